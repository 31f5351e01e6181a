#pragma once

/// Classes of the host seam are shared by the object model and the engine that it is linked with, so their type
/// information is visible in every library: a cast or an exception crosses the seam whole.
#define BRINDLE_HOST_EXPORT __attribute__((visibility("default")))
