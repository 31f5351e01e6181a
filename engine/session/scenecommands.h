#pragma once

#include "core/host/co_command.h"

#include <memory>

namespace brindle::engine {

class Scene;
struct SceneTiming;

/// Changes the timing but for the count. Fails when the frames lie outside the scene, start beyond stop, or the rate is
/// not a positive, finite number.
std::unique_ptr<CO_Command> newTimingCommand(Scene& scene, const SceneTiming& timing);

/// Inserts frames behind frame `at`, or removes those behind it (at the end of the scene, the last ones) when `delta`
/// is negative, with all that lies on them. Fails for a change that the scene can't take.
std::unique_ptr<CO_Command> newFrameCountCommand(Scene& scene, int at, int delta, bool rippleMarkers);

} // namespace brindle::engine
