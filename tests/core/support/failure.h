#pragma once

#include "core/frame/exception.h"

#include <string>

/// The sentence of the OMC::Exception that leaves a call, or "no exception".
template <typename Call>
std::string failureOf(Call call)
{
    try {
        call();
    } catch (const OMC::Exception& exception) {
        return exception.what();
    }
    return "no exception";
}
