#pragma once

#include "core/frame/exception.h"

#include <string>

// The sentences that several classes have.
inline constexpr char objectGone[] = "Object is no longer valid.";
inline constexpr char nodeGone[] = "Node is no longer valid. Node may have been moved or deleted.";
inline constexpr char indexOutOfRange[] = "Index is out of range.";
inline constexpr char portsApart[] = "These ports are no longer connected.";
inline constexpr char unexpectedError[] = "An unexpected error has occurred.";

/// The result of failureOf() for a call that doesn't fail.
inline constexpr char passes[] = "no exception";

/// The sentence of the OMC::Exception that leaves a call.
template <typename Call>
std::string failureOf(Call call)
{
    try {
        call();
    } catch (const OMC::Exception& exception) {
        return exception.what();
    }
    return passes;
}
