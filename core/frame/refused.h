#pragma once

#include "core/frame/exception.h"

#include <QString>

#include <stdexcept>

namespace OMC {

/// Runs a call of the engine's values: curves, paths, widths. What they refuse (a point that is not finite, an index
/// that isn't there, ...) becomes a failure of the object model with their sentence.
template <typename Call>
decltype(auto) orRefused(Call&& call)
{
    try {
        return call();
    } catch (const std::logic_error& refusal) {
        throw Exception(QString::fromUtf8(refusal.what()));
    }
}

} // namespace OMC
