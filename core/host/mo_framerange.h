#pragma once

#include "core/host/export.h"

#include <algorithm>
#include <limits>
#include <vector>

/// The frames that an edit of animated values reaches: one frame, a stretch of frames about one, or all of them.
///
/// Frames count from 1. A frame under 1 names none, and stands for all frames when it is given alone.
class BRINDLE_HOST_EXPORT MO_FrameRange {
public:
    explicit MO_FrameRange(double frame) : MO_FrameRange(frame, 0, 0) { m_infinite = frame < 1; }
    /// The stretch from `before` frames ahead of a frame to `after` frames behind it.
    MO_FrameRange(double frame, int before, int after)
        : m_first(bounded(frame, -static_cast<double>(before))),
          m_last(bounded(frame, after))
    {}

    bool isInfinite() const { return m_infinite; }
    bool isFrameEnabled(int frame) const { return m_infinite || (frame >= m_first && frame <= m_last); }

    /// The frames right outside the range: fixed at their values, they keep what lies beyond them where it is.
    std::vector<int> passiveFrames() const
    {
        std::vector<int> frames;
        if (m_infinite || isEmpty())
            return frames;
        if (m_first > 1)
            frames.push_back(m_first - 1);
        if (m_last < std::numeric_limits<int>::max())
            frames.push_back(m_last + 1);
        return frames;
    }

    /// The first and the last frame of the range.
    std::vector<int> edgeFrames() const
    {
        if (m_infinite || isEmpty())
            return {};
        if (first() == m_last)
            return {m_last};
        return {first(), m_last};
    }

private:
    static int bounded(double frame, double distance)
    {
        constexpr double lowest = std::numeric_limits<int>::min();
        constexpr double highest = std::numeric_limits<int>::max();
        return static_cast<int>(std::clamp(frame + distance, lowest, highest));
    }
    int first() const { return std::max(m_first, 1); }
    bool isEmpty() const { return m_last < 1 || m_first > m_last; }

    int m_first;
    int m_last;
    bool m_infinite = false;
};
