#pragma once

#include "core/host/sc_scenemarker.h"
#include "engine/session/scenetiming.h"

#include <vector>

namespace brindle::engine {

using SceneMarkers = std::vector<SC_SceneMarker>;

/// Whether a scene of so many frames can have the marker.
bool isWithinScene(const SC_SceneMarker& marker, int frameCount);
/// Whether a scene of so many frames can have the list: by first frames, each marker within the scene.
bool isMarkerList(const SceneMarkers& markers, int frameCount);

/// The markers behind a shift of the frames. With `ripple` each stays with what it marks: it grows with frames that
/// come into it, is cut by frames that go, and goes with the last of them. Without, the markers stay at their frames,
/// and what lies beyond the last frame goes.
SceneMarkers shiftedMarkers(const SceneMarkers& markers, const FrameShift& shift, int frameCount, bool ripple);

} // namespace brindle::engine
