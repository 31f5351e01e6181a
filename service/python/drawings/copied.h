#pragma once

#include "core/frame/baseobject.h"

namespace brindle::python {

/// A constructor that takes another object of the class, or nothing.
template <typename T>
T* newOrCopied(const QVariant& other)
{
    if (!other.isValid())
        return new T;
    const auto* given = OMC::objectFrom<T>(other);
    if (!given)
        OMC::BaseObject::throwInvalidArgument(0);
    return new T(*given);
}

} // namespace brindle::python
