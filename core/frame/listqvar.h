#pragma once

#include "core/frame/baseobject.h"

#include <QList>
#include <QString>
#include <QVariant>

#include <string>

namespace OMC {

/// Base of the lists of plain values, and of objects inside a QVariant. What a list does not override is empty, or
/// refused.
class BRINDLE_CORE_EXPORT ListQVar : public BaseObject {
    Q_OBJECT

public:
    std::string __str__() const override;

    virtual std::size_t size() const;
    virtual QVariant get(const QString& key) const;
    virtual QVariant get(int index) const;
    virtual void set(const QString& key, const QVariant& value);
    virtual void set(int index, const QVariant& value);
    virtual QList<QVariant> list() const;
    virtual bool contains(const QVariant& value) const;

    [[noreturn]] static void throwIndexOutOfRange();
};

} // namespace OMC
