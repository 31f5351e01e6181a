#pragma once

#include "core/frame/visitcast.h"
#include "core/host/at_attr.h"

namespace OMC {

/// The attribute as one of class T, or null.
template <typename T>
T* attributeCast(AT_Attr* attribute)
{
    return visitCast<T, AT_AttrVisitor>(attribute);
}

} // namespace OMC
