#pragma once

#include "core/frame/obj.h"

#include <QVariant>

namespace OMC {

/// A fresh object in a variant, without the clone that QVariant::fromValue makes. Null gives a variant with an empty Obj.
inline QVariant inVariant(BaseObject* fresh)
{
    QVariant value(QMetaType::fromType<Obj>());
    static_cast<Obj*>(value.data())->set(fresh);
    return value;
}

} // namespace OMC
