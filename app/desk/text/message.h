#pragma once

#include <QString>

namespace app::desk {

/// The role of a piece of text, which gives its look.
enum class Tone {
    Plain, ///< Prints of scripts, and lines of the log.
    Input, ///< Text that the person typed.
    Error,
    Debug ///< For developers.
};

/// A piece of text of one tone: whole lines, parts of one, or both.
struct Message {
    Tone tone;
    QString text;
};

} // namespace app::desk
