#pragma once

#include "core/frame/obj.h"

#include <QList>
#include <QString>

namespace OMC {

/// Base of the maps from names to objects.
///
/// Unlike the lists it has no text of its own.
class BRINDLE_CORE_EXPORT MapObj : public BaseObject {
    Q_OBJECT

public:
    virtual std::size_t size() const;                        ///< The number of items, as len() gives it.
    virtual Obj get(const QString& key) const;               ///< The object of a name.
    virtual void set(const QString& key, const Obj& object); ///< Replaces the object of a name.
    virtual QList<QString> list() const;                     ///< All names.

    [[noreturn]] void throwIndexOutOfRange() const;
};

} // namespace OMC
