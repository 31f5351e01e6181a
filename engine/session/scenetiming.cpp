#include "engine/session/scenetiming.h"

#include <algorithm>
#include <cmath>

namespace brindle::engine {

bool SceneTiming::isValid() const
{
    return count <= maxCount && 1 <= start && start <= stop && stop <= count && std::isfinite(rate) && rate > 0;
}

std::optional<FrameShift> SceneTiming::fitted(int at, int delta) const
{
    if (at < 0 || at > count || delta < -(count - 1) || delta > maxCount - count)
        return std::nullopt;
    if (delta < 0 && at == count)
        at += delta;
    if (at - std::min(delta, 0) > count)
        return std::nullopt;
    return FrameShift{at, delta};
}

SceneTiming SceneTiming::shifted(const FrameShift& shift) const
{
    SceneTiming after = *this;
    after.count = count + shift.delta;
    if (!shift.carry(after.start, after.stop))
        after.start = after.stop = std::clamp(shift.at, 1, after.count);
    if (start == 1)
        after.start = 1;
    if (stop == count)
        after.stop = after.count;
    return after;
}

} // namespace brindle::engine
