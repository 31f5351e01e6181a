#pragma once

#include "core/frame/export.h"

#include <QString>

/// The sentences of failures without a cause to name: a part of the engine is missing that is always there.
///
/// Required: the sentences differ from place to place, also in spelling; scripts compare them letter for letter.
namespace OMC::unexpected {

enum Sentence {
    ErrorOccurred,     ///< "An unexpected error occurred."
    ErrorHasOccurred,  ///< "An unexpected error has occurred."
    ExceptionMisspelt, ///< "An unknwon exception has occurred."
    Error,             ///< "Unexpected error"
    ErrorAtCheck1,     ///< "An unexpected error occurred [1]."
    ErrorAtCheck2,     ///< "An unexpected error occurred [2]."
    ErrorAtCheck3,     ///< "An unexpected error occurred [3]."
};

BRINDLE_CORE_EXPORT QString text(Sentence sentence);
[[noreturn]] BRINDLE_CORE_EXPORT void fail(Sentence sentence = ErrorOccurred);

} // namespace OMC::unexpected
