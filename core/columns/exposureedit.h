#pragma once

#include "core/frame/export.h"
#include "core/host/tu_seqtimedvalue.h"

#include <QString>
#include <QVariant>

#include <functional>

/// The edits of exposures that the columns of drawings share.
namespace OMC::exposureedit {

/// Throws for a frame that is no finite number.
void requireFrame(double frame);

/// The ranges of an argument, which may be none; or the frames from one up to another, or one alone.
QVariant range(int start, int end);

using Change = std::function<bool(SC_ProjectCommon*, const DR_DrawingCommands::FrameRanges&)>;
/// Runs a change over the ranges that an argument names; throws the sentence where it fails.
void change(TUSeqTimedValue& column, const QVariant& frames, const QString& failure, const Change& change);

/// Copies the drawing that is exposed at a frame, and exposes the copy there.
void duplicate(TUSeqTimedValue& column, int frame);

} // namespace OMC::exposureedit
