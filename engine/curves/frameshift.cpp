#include "engine/curves/frameshift.h"

#include <algorithm>
#include <limits>

namespace brindle::engine {

bool FrameShift::carry(int& first, int& last) const
{
    const auto moved = [this](int frame, int instead) {
        if (frame <= at)
            return frame;
        if (delta < 0 && frame - at <= -delta)
            return instead;
        return static_cast<int>(
            std::min<long long>(static_cast<long long>(frame) + delta, std::numeric_limits<int>::max()));
    };
    first = moved(first, at + 1);
    last = moved(last, at);
    return first <= last;
}

} // namespace brindle::engine
