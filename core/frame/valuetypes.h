#pragma once

#include "core/frame/baseobject.h"

#include <QMetaType>

namespace OMC {

/// Lets classes travel inside a QVariant by value. Called while the library is loaded, once a source: its result goes
/// into a flag of that file.
template <typename... Classes>
bool registerValueTypes()
{
    (BaseObject::registerValueType(qMetaTypeId<Classes>()), ...);
    return true;
}

} // namespace OMC
