#pragma once

namespace brindle::engine {

/// Frames that come into a scene or go out of it: `delta` frames come in behind frame `at`, or the -`delta` frames
/// behind it go.
struct FrameShift {
    int at = 0;
    int delta = 0;

    /// Moves a stretch of frames along: frames that come in between its first and its last one become a part of it,
    /// frames that go are cut out of it. False when nothing is left of it; the first frame is then behind the last one.
    bool carry(int& first, int& last) const;
};

} // namespace brindle::engine
