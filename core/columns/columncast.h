#pragma once

#include "core/frame/visitcast.h"
#include "core/host/at_timedvaluevisitor.h"

namespace OMC {

/// The column as one of class T, or null.
template <typename T>
T* columnCast(TUTimedValue* column)
{
    return visitCast<T, AT_TimedValueVisitor>(column);
}

} // namespace OMC
