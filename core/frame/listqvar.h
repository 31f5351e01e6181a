#pragma once

#include "core/frame/baseobject.h"

#include <QList>
#include <QString>
#include <QVariant>

#include <string>

namespace OMC {

/// Base of the lists of values. Lists are live: each call asks what they belong to.
///
/// An operation that a list does not override gives nothing, or is refused.
class BRINDLE_CORE_EXPORT ListQVar : public BaseObject {
    Q_OBJECT

public:
    std::string __str__() const override;

    virtual std::size_t size() const;               ///< The number of items, as len() gives it.
    virtual QVariant get(const QString& key) const; ///< The item at an index, or of a name.
    virtual QVariant get(int index) const;
    virtual void set(const QString& key, const QVariant& value); ///< Replaces an item.
    virtual void set(int index, const QVariant& value);
    virtual QList<QVariant> list() const;               ///< All items.
    virtual bool contains(const QVariant& value) const; ///< Whether the list holds the value.

    [[noreturn]] static void throwIndexOutOfRange();
};

} // namespace OMC
