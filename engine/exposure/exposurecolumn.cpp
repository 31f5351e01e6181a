#include "engine/exposure/exposurecolumn.h"

#include "core/host/pr_preference.h"
#include "core/host/sc_scene.h"
#include "engine/curves/curvecolumn.h"
#include "engine/curves/framepaste.h"
#include "engine/elements/names.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace brindle::engine {

namespace {

bool isChange(const Exposures::Change& change)
{
    return change.count > 0 || !change.exposures.empty();
}

/// Exchanges the exposures that an edit changes, and tells what depends on the column.
class ExposureCommand final : public CO_Command {
public:
    ExposureCommand(ExposureSheet& sheet, ExposureSheet::Edit edit) : m_sheet(sheet), m_edit(std::move(edit)) {}
    ExposureCommand(ExposureSheet& sheet, Exposures::Change change) : m_sheet(sheet), m_change(std::move(change)) {}

    Status execute() override
    {
        if (m_edit) {
            std::optional<Exposures::Change> change = m_edit(m_sheet.exposures());
            if (!change)
                return kFail;
            m_change = std::move(*change);
            m_edit = nullptr;
        }
        return exchange();
    }
    Status unexecute() override { return exchange(); }

private:
    Status exchange()
    {
        if (!isChange(m_change))
            return kNoop;
        m_sheet.exposures().exchange(m_change);
        m_sheet.column().tellLinked();
        return kOk;
    }

    ExposureSheet& m_sheet;
    ExposureSheet::Edit m_edit; ///< Until it is made for the first time.
    Exposures::Change m_change; ///< The change that the next step makes.
};

} // namespace

std::unique_ptr<CO_Command> ExposureSheet::editCommand(Edit edit)
{
    return std::make_unique<ExposureCommand>(*this, std::move(edit));
}

std::unique_ptr<CO_Command> ExposureSheet::changeCommand(Exposures::Change change)
{
    if (!isChange(change))
        return nullptr;
    return std::make_unique<ExposureCommand>(*this, std::move(change));
}

int cellAt(double frame)
{
    return frame >= 1 && frame < Exposures::lastFrame + 1 ? static_cast<int>(frame) : 0;
}

/// Keeps all exposures; they share their names with the column.
template <typename Host>
class ExposureColumn<Host>::Memo final : public TUCellMemo {
public:
    explicit Memo(Exposures& exposures) : m_exposures(exposures), m_kept(exposures) {}
    void restore() override { m_exposures = m_kept; }

private:
    Exposures& m_exposures;
    Exposures m_kept;
};

template <typename Host>
void ExposureColumn<Host>::getValueForXsheet(double frame, int, QString* text, bool& isKey, bool& isHeld, bool& isBlank,
                                             bool& isLocked) const
{
    const int cell = cellAt(frame);
    const Exposure* exposure = m_exposures.find(cell);
    isBlank = !exposure || exposure->drawing.isEmpty();
    isKey = !isBlank && exposure->frame == cell;
    isHeld = !isKey && !isBlank;
    isLocked = false;
    if (text)
        *text = isBlank ? QString() : exposure->drawing;
}

template <typename Host>
int ExposureColumn<Host>::setValuesFromXsheet(double frame, int count, const QString& text, int)
{
    enum { kDone = 0, kRefused = 1 };
    CO_CommandManager* manager = this->scene() ? this->scene()->commandManager() : nullptr;
    if (!manager || count < 1 || count > Exposures::lastFrame)
        return kRefused;
    auto commands = std::make_unique<CO_AndCommand>();
    createSetValueCmd(nullptr, frame, QStringList(count, text), 0, *commands);
    const QString label = QCoreApplication::translate("Column", text.isEmpty() ? "Clear Cells" : "Set Cells");
    return manager->execute(commands.release(), label) ? kDone : kRefused;
}

template <typename Host>
CO_Command* ExposureColumn<Host>::spliceCommand(double frame, bool)
{
    const int cell = cellAt(frame);
    const FrameSpan range{cell, cell + 1};
    return changeCommand(m_exposures.withKeys(std::span(&range, 1))).release();
}

template <typename Host>
std::unique_ptr<TUCellMemo> ExposureColumn<Host>::remember(double)
{
    return std::make_unique<Memo>(m_exposures);
}

template <typename Host>
SC_ProjectCommon* ExposureColumn<Host>::projectCommon() const
{
    const SC_SceneCommon* common = this->scene();
    const auto* scene = common ? dynamic_cast<const TUScene*>(common->timedValues()) : nullptr;
    return scene ? scene->projectCommon() : nullptr;
}

template <typename Host>
int ExposureColumn<Host>::nFrames() const
{
    return m_exposures.frameCount(sceneLength());
}

template <typename Host>
std::unique_ptr<TUSequence> ExposureColumn<Host>::seqAt(double frame) const
{
    const QString drawing = getTiming(frame);
    return drawing.isEmpty() ? nullptr : std::make_unique<TUDrawingSequence>(drawing);
}

template <typename Host>
void ExposureColumn<Host>::generateValues(double frame, bool byFrame, QStringList& names) const
{
    const int cell = cellAt(frame);
    if (cell == 0)
        return;
    if (!byFrame) {
        names.append(freeName());
        return;
    }
    // A second drawing of the frame is told by its own number behind that of the frame.
    const QString base = QString::number(cell);
    QString name = base;
    for (int number = 1; hasName(name); ++number)
        name = base + u'-' + QString::number(number);
    names.append(name);
}

template <typename Host>
void ExposureColumn<Host>::createSetValueCmd(void*, double frame, const QStringList& names, int,
                                             CO_AndCommand& commands)
{
    const int cell = cellAt(frame);
    const bool isRefused = cell == 0 || names.size() > Exposures::lastFrame - cell + 1 ||
                           std::any_of(names.begin(), names.end(),
                                       [](const QString& name) { return !name.isEmpty() && !isElementName(name); });
    if (isRefused) {
        commands.add(new RefusedCommand);
        return;
    }
    addMissingDrawings(names, commands);
    commands.add(
        editCommand([cell, names](const Exposures& exposures) { return exposures.exposed(cell, names); }).release());
}

template <typename Host>
void ExposureColumn<Host>::clear(double start, int count, bool ripple, CO_Command** command)
{
    *command = nullptr;
    const int cell = cellAt(start);
    if (cell == 0 || count < 1 || count > Exposures::lastFrame - cell + 1)
        return;
    *command = editCommand([cell, count, ripple, length = sceneLength()](const Exposures& exposures) {
                   return ripple
                              ? exposures.shifted({cell - 1, -count}, std::max(length, exposures.frameCount(0)), false)
                              : exposures.exposedOnly(cell, QStringList(count, QString()));
               }).release();
}

template <typename Host>
std::unique_ptr<CO_Command> ExposureColumn<Host>::shiftFramesCommand(const FrameShift& shift)
{
    const bool extends = tuPref()->getBoolValue(QStringLiteral("EXTEND_DRAWING_EXPOSURE"), false);
    return changeCommand(m_exposures.shifted(shift, sceneLength(), extends));
}

template <typename Host>
std::unique_ptr<CO_Command> ExposureColumn<Host>::clearFramesCommand(int at, int count)
{
    return changeCommand(m_exposures.cleared(at, count, sceneLength()));
}

template <typename Host>
std::unique_ptr<CO_Command> ExposureColumn<Host>::pasteCommand(const Column& source, const FramePaste& paste)
{
    const ExposureSheet* sheet = ExposureSheet::of(source);
    if (!sheet || paste.last() > Exposures::lastFrame)
        return nullptr;
    return editCommand([pasted = sheet->exposures(), paste](const Exposures& exposures) {
        return exposures.pasted(pasted, paste.first(), paste.count, paste.extends, paste.substitutes);
    });
}

template <typename Host>
void ExposureColumn<Host>::write(JsonWriter& json) const
{
    json.key("exposures").beginArray();
    for (const Exposure& exposure : m_exposures.all()) {
        json.beginArray(JsonWriter::Inline);
        json.integer(exposure.frame);
        if (!exposure.drawing.isEmpty())
            json.text(exposure.drawing);
        json.endArray();
    }
    json.endArray();
}

template <typename Host>
void ExposureColumn<Host>::read(const JsonPlace& place)
{
    const JsonPlace list = place.field("exposures");
    const int count = list.size();
    m_exposures.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const JsonPlace exposure = list.item(i);
        const int frame = exposure.item(0).integer(1, Exposures::lastFrame);
        QString drawing;
        if (exposure.size() > 1) {
            drawing = exposure.item(1).text();
            exposure.requireSize(2);
            if (!isElementName(drawing))
                exposure.item(1).fail(QStringLiteral("is no name that a drawing can have"));
        }
        if (!m_exposures.append(frame, drawing))
            exposure.fail(QStringLiteral("can't stand behind the exposure ahead of it"));
    }
}

template <typename Host>
int ExposureColumn<Host>::sceneLength() const
{
    return this->scene() ? this->scene()->getNumberOfFrames() : 0;
}

template class ExposureColumn<TUElementTimedValue>;
template class ExposureColumn<TUTimingTimedValue>;

} // namespace brindle::engine
