#pragma once

#include <QString>

namespace app::desk {

/// What a piece of text is to the person who reads it, and so how it looks.
enum class Tone {
    Plain, ///< What scripts print, and lines of the log.
    Input, ///< What the person typed.
    Error,
    Debug ///< For developers.
};

/// A piece of text of one tone: whole lines, parts of one, or both.
struct Message {
    Tone tone;
    QString text;
};

} // namespace app::desk
