#pragma once

#include "core/host/sc_scene.h"
#include "core/host/tu_timedvalue.h"

#include <QString>

/// All that is saved of a curve, every bit of its numbers: equal texts are equal curves. The points' identities are
/// left out.
QString curveDump(const TUBezierTimedValue& column);

/// All columns of a scene with their curves, states and links, and the local values of all attributes of its nodes.
QString columnsDump(const TUScene& scene);
