#pragma once

namespace brindle::engine {

/// How frames of a column are written over those of another one: its frames 1 to `count` over those from `at` on.
struct FramePaste {
    int at = 1;
    int count = 0;
    bool fixesEnds = true; ///< Both ends get keys, and so do the frames beside them, which keep their values by these.
    bool offsets = false;  ///< What is written is moved by what stood at the first frame, less what is written there.
    bool extends = true;   ///< The last drawing holds on up to the next exposure.
    bool substitutes = true; ///< Drawings give way; without, only frames that show nothing get one.

    int first() const { return at; }
    int last() const { return at + count - 1; }
};

} // namespace brindle::engine
