#pragma once

#include "engine/curves/frameshift.h"

#include <optional>

namespace brindle::engine {

/// The frames of a scene: 1 to count, played from start to stop.
struct SceneTiming {
    int count = 60;
    int start = 1;
    int stop = 60;
    double rate = 24.0;
    bool operator==(const SceneTiming&) const = default;

    static constexpr int maxCount = 1'000'000;
    /// 1 <= start <= stop <= count <= maxCount, and a rate that is a positive, finite number.
    bool isValid() const;

    /// The shift that is meant when frames are to come in behind frame `at` or to go behind it (at the last frame:
    /// those at the end); none when it reaches beyond the last frame, leaves no frame or makes more than the most.
    std::optional<FrameShift> fitted(int at, int delta) const;

    /// The timing behind a fitted shift. The range that is played moves along with what is on its frames; where it
    /// began at the first frame, or ended at the last one, it still does. Where all of it went, it is one frame.
    SceneTiming shifted(const FrameShift& shift) const;
};

} // namespace brindle::engine
