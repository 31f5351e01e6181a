#pragma once

#include "core/frame/obj.h"

#include <QList>
#include <QString>

namespace OMC {

/// Base of the maps from names to objects. Unlike the lists it has no text of its own.
class BRINDLE_CORE_EXPORT MapObj : public BaseObject {
    Q_OBJECT

public:
    virtual std::size_t size() const;
    virtual Obj get(const QString& key) const;
    virtual void set(const QString& key, const Obj& object);
    virtual QList<QString> list() const;

    [[noreturn]] void throwIndexOutOfRange() const;
};

} // namespace OMC
