#include "core/host/co_command.h"
#include "core/host/em_commands.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"
#include "core/host/tu_elementmgr.h"
#include "engine/curves/curvecolumn.h"
#include "engine/elements/names.h"
#include "engine/exposure/exposurecolumn.h"
#include "engine/session/projectcommon.h"
#include "engine/session/scene.h"

#include <QCoreApplication>

#include <map>
#include <utility>

namespace {

using namespace brindle::engine;
using DR_DrawingCommands::FrameRange;
using DR_DrawingCommands::FrameRanges;

/// Lets a column show another element.
class SetElement final : public CO_Command {
public:
    SetElement(TUElementTimedValue* column, int id) : m_column(dynamic_cast<DrawingColumn*>(column)), m_element(id) {}

    Status execute() override
    {
        if (!m_column || (m_element >= 0 && !isElement()))
            return kFail;
        return exchange();
    }
    Status unexecute() override { return exchange(); }

private:
    bool isElement() const
    {
        const SC_SceneCommon* scene = m_column->scene();
        const TUElementMgr* elements = scene ? scene->elementManager() : nullptr;
        return elements && elements->elementById(m_element).id() >= 0;
    }

    Status exchange()
    {
        const int before = m_column->elementId();
        const int after = std::max(m_element, -1);
        if (before == after)
            return kNoop;
        m_column->setElementId(after);
        m_element = before;
        m_column->tellLinked();
        return kOk;
    }

    DrawingColumn* m_column;
    int m_element; ///< The id that the next step sets.
};

using Sheets = std::map<ExposureSheet*, std::vector<FrameSpan>>;

/// The ranges by their columns; nothing where one is of another engine, or there is none.
std::optional<Sheets> sheetsOf(const FrameRanges& ranges)
{
    Sheets sheets;
    for (const FrameRange& range : ranges) {
        ExposureSheet* sheet = ExposureSheet::of(range.timedValue);
        if (!sheet)
            return std::nullopt;
        sheets[sheet].push_back({range.first, range.end});
    }
    return sheets.empty() ? std::nullopt : std::optional(std::move(sheets));
}

bool run(SC_ProjectCommon* project, std::unique_ptr<CO_Command> command, const char* label)
{
    CO_CommandManager* manager = project ? project->commandManager() : nullptr;
    return manager && manager->execute(command.release(), QCoreApplication::translate("DR_DrawingCommands", label));
}

/// Runs one edit for each column of the ranges.
template <typename Edit>
bool runEdits(SC_ProjectCommon* project, const FrameRanges& ranges, const char* label, Edit edit)
{
    const auto sheets = sheetsOf(ranges);
    if (!sheets)
        return false;
    auto commands = std::make_unique<CO_AndCommand>();
    for (const auto& [sheet, spans] : *sheets) {
        commands->add(sheet
                          ->editCommand([edit, spans = spans](const Exposures& exposures) {
                              return std::optional(edit(exposures, spans));
                          })
                          .release());
    }
    return run(project, std::move(commands), label);
}

/// The drawings that the frames of a column show, each once.
QStringList drawingsIn(const Exposures& exposures, const std::vector<FrameSpan>& spans)
{
    QStringList drawings;
    const auto add = [&](const QString& drawing) {
        if (!drawing.isEmpty() && !drawings.contains(drawing))
            drawings.append(drawing);
    };
    for (const FrameSpan& span : spans) {
        add(span.first < span.end ? exposures.at(span.first) : QString());
        for (const Exposure& exposure : exposures.all()) {
            if (exposure.frame > span.first && exposure.frame < span.end)
                add(exposure.drawing);
        }
    }
    return drawings;
}

/// Adds the commands by which all columns of the project that show an element stop to show some drawings of it.
void addEmptying(const ProjectCommon& project, int element, const QStringList& drawings, CO_AndCommand& commands)
{
    for (int place = 0; const Scene* scene = project.scenes().at(place); ++place) {
        for (auto column = scene->timedValuesBegin(); column != scene->timedValuesEnd(); ++column) {
            auto* shown = dynamic_cast<DrawingColumn*>(*column);
            if (shown && shown->elementId() == element)
                commands.add(shown->changeCommand(shown->exposures().without(drawings)).release());
        }
    }
}

} // namespace

namespace tu_timedvalue::element {

SetElementIdCmd::SetElementIdCmd(TUElementTimedValue* timedValue, int id)
    : CO_EngineCommand(std::make_unique<SetElement>(timedValue, id))
{}

} // namespace tu_timedvalue::element

namespace DR_DrawingCommands {

bool deleteDrawings(SC_ProjectCommon* project, const FrameRanges& ranges)
{
    const auto sheets = sheetsOf(ranges);
    const ProjectCommon* own = engineProjectCommon(project);
    if (!sheets || !own)
        return false;
    auto commands = std::make_unique<CO_AndCommand>();
    std::map<int, QStringList> ofElements;
    for (const auto& [sheet, spans] : *sheets) {
        const QStringList drawings = drawingsIn(sheet->exposures(), spans);
        if (const int element = sheet->column().elementId(); element < 0)
            commands->add(sheet->changeCommand(sheet->exposures().without(drawings)).release());
        else
            ofElements[element] += drawings;
    }
    TUElementMgr* elements = project->elementManager();
    for (auto& [element, drawings] : ofElements) {
        drawings.removeDuplicates();
        addEmptying(*own, element, drawings, *commands);
        for (const QString& drawing : drawings) {
            const EM_DrawingId id = elements ? elements->getDrawingId(element, drawing, false) : EM_InvalidDrawingId;
            if (id != EM_InvalidDrawingId)
                commands->add(new EM_Commands::DeleteDrawingCmd(elements, element, id));
        }
    }
    return commands->size() > 0 && run(project, std::move(commands), "Delete Drawings");
}

bool addKeyExposures(SC_ProjectCommon* project, const FrameRanges& ranges)
{
    return runEdits(project, ranges, "Add Key Exposures",
                    [](const Exposures& exposures, const auto& spans) { return exposures.withKeys(spans); });
}

bool removeKeyExposures(SC_ProjectCommon* project, const FrameRanges& ranges, bool duplicatesOnly)
{
    return runEdits(project, ranges, duplicatesOnly ? "Remove Duplicate Key Exposures" : "Remove Key Exposures",
                    [duplicatesOnly](const Exposures& exposures, const auto& spans) {
                        return exposures.withoutKeys(spans, duplicatesOnly);
                    });
}

bool fillWithHeldFrames(SC_ProjectCommon* project, const FrameRanges& ranges)
{
    return runEdits(project, ranges, "Fill Empty Cells",
                    [](const Exposures& exposures, const auto& spans) { return exposures.filled(spans); });
}

} // namespace DR_DrawingCommands

CO_Command* DuplicateDrawingCmd::Create(TUSeqTimedValue* column, int, double frame, int count)
{
    ExposureSheet* sheet = ExposureSheet::of(column);
    const int cell = cellAt(frame);
    const QString drawing = sheet ? sheet->exposures().at(cell) : QString();
    if (drawing.isEmpty() || count != 1)
        return nullptr;
    const QString name = sheet->freeName();
    auto commands = std::make_unique<CO_AndCommand>();
    if (const int element = sheet->column().elementId(); element >= 0) {
        TUElementMgr* elements = column->sceneCommon()->elementManager();
        const EM_ElementInfo* info = elements ? elements->getElementDrawingInfoById(element) : nullptr;
        const EM_DrawingId id = info ? elements->getDrawingId(element, drawing, false) : EM_InvalidDrawingId;
        if (id == EM_InvalidDrawingId)
            return nullptr;
        for (const EM_LayerId layer : info->layerIds())
            commands->add(Create(elements, CA_CelKeyElement(element, id, layer),
                                 CA_CelKeyElement(element, EM_InvalidDrawingId, layer), name));
    }
    commands->add(
        sheet->editCommand([cell, name](const Exposures& exposures) { return exposures.exposed(cell, {name}); })
            .release());
    return commands.release();
}

CO_Command* DuplicateDrawingCmd::CreateWithFillDuplicate(TUSeqTimedValue* column, int, int start, int end,
                                                         const QString& prefix, bool emptyOnly)
{
    ExposureSheet* sheet = ExposureSheet::of(column);
    if (!sheet || start < 1 || end < start || end > Exposures::lastFrame)
        return nullptr;
    const Exposures& exposures = sheet->exposures();
    QStringList names;
    int number = 0;
    bool fills = false;
    for (int frame = start; frame <= end; ++frame) {
        QString name = exposures.at(frame);
        if (!emptyOnly || name.isEmpty()) {
            do {
                name = prefix + QString::number(++number);
            } while (sheet->hasName(name));
            fills = true;
        }
        names.append(name);
    }
    if (!fills)
        return nullptr;
    if (!isElementName(prefix + QString::number(number)))
        return new RefusedCommand;
    auto commands = std::make_unique<CO_AndCommand>();
    sheet->addMissingDrawings(names, *commands);
    commands->add(sheet->changeCommand(exposures.exposedOnly(start, names)).release());
    return commands.release();
}
