#pragma once

#include "core/frame/export.h"
#include "core/host/dd_dragdrop.h"

#include <QString>

class TUScene;

namespace OMC {

class CopyObject;
class PasteOptions;

/// The engine's way of pasting into a scene, as a script's options say it; without options, that of a plain paste. What
/// is pasted is a copy, or the template at a path, or neither (null, and an empty path).
///
/// Required: where the options say 0 for the first frame or for the number of frames, the number that is used is
/// written into them. Throws where the source doesn't tell its number of frames.
BRINDLE_CORE_EXPORT DD_DropMode dropMode(PasteOptions* options, const TUScene& scene, const CopyObject* copy,
                                         const QString& templatePath);

} // namespace OMC
