#pragma once

#include <cmath>

namespace OMC {

/// The index of the point nearest to a frame, less than 0.1 away; the first one of those at the same distance, and -1
/// where there is none. `frameAt(index)` gives the frame of a point.
template <typename FrameAt>
int nearestPoint(double frame, int count, FrameAt frameAt)
{
    double nearest = 0.1;
    int found = -1;
    for (int index = 0; index < count; ++index) {
        const double distance = std::abs(frameAt(index) - frame);
        if (distance < nearest) {
            nearest = distance;
            found = index;
        }
    }
    return found;
}

} // namespace OMC
