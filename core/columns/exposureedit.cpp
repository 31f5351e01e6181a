#include "core/columns/exposureedit.h"

#include "core/columns/elementcolumn.h"
#include "core/columns/framerangesargument.h"
#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/host/em_commands.h"
#include "core/host/sc_session.h"

#include <cmath>

namespace OMC::exposureedit {

void requireFrame(double frame)
{
    if (!std::isfinite(frame))
        BaseObject::throwInvalidArgument(0);
}

QVariant range(int start, int end)
{
    return QVariantMap{{QStringLiteral("from"), start}, {QStringLiteral("to"), end}};
}

void change(TUSeqTimedValue& column, const QVariant& frames, const QString& failure, const Change& change)
{
    DR_DrawingCommands::FrameRanges ranges;
    addFrameRanges(&column, frames, ranges);
    if (!change(column.projectCommon(), ranges))
        throw Exception(failure);
}

void duplicate(TUSeqTimedValue& column, int frame)
{
    const SC_ProjectCommon* project = column.projectCommon();
    CO_CommandManager& manager = found(project ? project->commandManager() : nullptr, unexpected::ErrorOccurred);
    CO_Command* command = DuplicateDrawingCmd::Create(&column, 0, frame, 1);
    if (!command)
        throw Exception(ElementColumn::tr("Failed to duplicate the drawing at the given frame."));
    // Required: the participle of the second sentence.
    undo::run(manager, command, ElementColumn::tr("Duplicate Drawing"),
              ElementColumn::tr("Failed to duplicated the drawing."));
}

} // namespace OMC::exposureedit
