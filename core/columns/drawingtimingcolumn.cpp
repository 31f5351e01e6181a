#include "core/columns/drawingtimingcolumn.h"

#include "core/columns/columncast.h"
#include "core/columns/exposureedit.h"
#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/host/em_commands.h"
#include "core/host/sc_session.h"

#include <vector>

namespace OMC {

DrawingTimingColumn::DrawingTimingColumn(TUTimedValue* timedValue) : Column(timedValue) {}

std::string DrawingTimingColumn::__str__() const
{
    return described(tr("DrawingTimingColumn(%1)"));
}

// Doesn't check the thread; size does.
unsigned int DrawingTimingColumn::nFrames() const
{
    const auto* column = columnCast<TUSeqTimedValue>(findTarget());
    return column ? static_cast<unsigned int>(column->nFrames()) : Column::nFrames();
}

void DrawingTimingColumn::drawingDelete(int frame)
{
    exposureedit::change(sequence(), frame, tr("Failed to delete drawing at specified frame."),
                         &DR_DrawingCommands::deleteDrawings);
}

QVariant DrawingTimingColumn::drawingDuplicate(int frame)
{
    exposureedit::duplicate(sequence(), frame);
    return get(frame);
}

void DrawingTimingColumn::fill_empty(int start, int end)
{
    exposureedit::change(sequence(), exposureedit::range(start, end), tr("Failed to fill empty cells."),
                         &DR_DrawingCommands::fillWithHeldFrames);
}

void DrawingTimingColumn::keyExposureAdd(int frame)
{
    exposureedit::change(sequence(), frame, tr("Failed to add key exposure at specified frame."),
                         &DR_DrawingCommands::addKeyExposures);
}

void DrawingTimingColumn::keyExposureRemove(int frame, bool duplicatesOnly)
{
    exposureedit::change(sequence(), frame, tr("Failed to remove key exposure at specified frame."),
                         [duplicatesOnly](auto* project, const auto& ranges) {
                             return DR_DrawingCommands::removeKeyExposures(project, ranges, duplicatesOnly);
                         });
}

void DrawingTimingColumn::lineTestFill(int start, int end, const QString& prefix, bool emptyOnly)
{
    auto& column = sequence();
    const SC_ProjectCommon* project = column.projectCommon();
    CO_CommandManager& manager = found(project ? project->commandManager() : nullptr, unexpected::ErrorOccurred);
    undo::run(manager, DuplicateDrawingCmd::CreateWithFillDuplicate(&column, 0, start, end, prefix, emptyOnly),
              tr("Line Test Fill"), tr("Failed to apply line-test fill."));
}

bool DrawingTimingColumn::contains(const QVariant& value) const
{
    const auto& column = sequence();
    QStringList names;
    column.getDrawingTimings(names);
    for (int frame = 1; frame <= column.nFrames(); ++frame) {
        if (column.getTiming(frame).isEmpty()) {
            names.append(QString());
            break;
        }
    }
    // Not by recursion: a script decides how deep its lists lie inside each other.
    std::vector<QVariant> waiting{value};
    while (!waiting.empty()) {
        const QVariant next = std::move(waiting.back());
        waiting.pop_back();
        if (const auto* object = objectFrom<BaseObject>(next)) {
            if (names.contains(QString::fromStdString(object->__str__())))
                return true;
        } else if (next.typeId() == QMetaType::QStringList || next.typeId() == QMetaType::QVariantList) {
            const QVariantList items = next.toList();
            waiting.insert(waiting.end(), items.begin(), items.end());
        } else if (next.typeId() == QMetaType::QString && names.contains(next.toString())) {
            return true;
        }
    }
    return false;
}

TUSeqTimedValue& DrawingTimingColumn::sequence() const
{
    return found(columnCast<TUSeqTimedValue>(&target()), [] { return tr("Invalid column-type."); });
}

} // namespace OMC
