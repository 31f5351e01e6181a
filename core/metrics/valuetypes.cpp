#include "core/frame/valuetypes.h"

#include "core/metrics/nodevisitoptions.h"
#include "core/metrics/playbackoptions.h"
#include "core/metrics/reportoptions.h"

namespace OMC {

namespace {

/// The options that travel inside a QVariant by value.
[[maybe_unused]] const bool registered = registerValueTypes<NodeVisitOptions, PlaybackOptions, ReportOptions>();

} // namespace

} // namespace OMC
