#pragma once

#include "core/host/tu_seqtimedvalue.h"

#include <QVariant>

namespace OMC {

/// Adds the ranges of frames of a column that a script's argument names: a frame, a map of a first and a last frame
/// ({"from": 2, "to": 4}), or a list of these, nested to any depth. The first frame is also called "start" or "begin",
/// the last one "end" or "finish", in small letters or in capital ones. What is none of these is passed over. True when
/// it added a range.
bool addFrameRanges(TUSeqTimedValue* column, const QVariant& value, DR_DrawingCommands::FrameRanges& ranges);

} // namespace OMC
