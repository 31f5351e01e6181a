#include "engine/exposure/textcolumn.h"

#include "core/host/sc_scene.h"
#include "engine/curves/framepaste.h"
#include "engine/curves/frameshift.h"
#include "engine/exposure/exposurecolumn.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"

#include <QCoreApplication>

#include <algorithm>

namespace brindle::engine {

namespace {

constexpr const char* textFields[] = {"cells"};

template <typename Host>
const ColumnKind& kindOf()
{
    if constexpr (std::is_same_v<Host, TUSoundTimedValue>)
        return soundKind;
    else if constexpr (std::is_same_v<Host, AT_AnnotationTimedValue>)
        return annotationKind;
    else
        return fileLibraryKind;
}

} // namespace

constinit const ColumnKind soundKind{TUTimedValue::kSound, "SOUND", textFields,
                                     &makeColumn<TextColumn<TUSoundTimedValue>>};
constinit const ColumnKind annotationKind{TUTimedValue::kAnnotation, "ANNOTATION", textFields,
                                          &makeColumn<TextColumn<AT_AnnotationTimedValue>>};
constinit const ColumnKind fileLibraryKind{TUTimedValue::kFileLibrary, "FILE_LIBRARY", textFields,
                                           &makeColumn<TextColumn<AT_FileLibraryTimedValue>>};

/// Exchanges the texts that an edit changes, and tells what depends on the column.
class TextCells::Command final : public CO_Command {
public:
    Command(TextCells& cells, Change change) : m_cells(cells), m_change(std::move(change)) {}

    Status execute() override
    {
        if (m_change.empty())
            return kNoop;
        m_cells.exchange(m_change);
        m_cells.column().tellLinked();
        return kOk;
    }
    Status unexecute() override { return execute(); }

private:
    TextCells& m_cells;
    Change m_change; ///< The one that the next step makes.
};

class TextCells::Memo final : public TUCellMemo {
public:
    Memo(TextCells& cells, int frame) : m_cells(cells), m_frame(frame), m_text(cells.textAt(frame)) {}

    void restore() override
    {
        Change change{{m_frame, m_text}};
        m_cells.exchange(change);
    }

private:
    TextCells& m_cells;
    int m_frame;
    QString m_text;
};

QString TextCells::textAt(int frame) const
{
    const auto found = m_cells.find(frame);
    return found == m_cells.end() ? QString() : found->second;
}

std::unique_ptr<CO_Command> TextCells::writeCommand(int frame, int count, const QString& text)
{
    if (frame < 1 || count < 1 || count > Exposures::lastFrame - frame + 1)
        return nullptr;
    Change change;
    for (int at = frame; at < frame + count; ++at) {
        if (textAt(at) != text)
            change.emplace_hint(change.end(), at, text);
    }
    return std::make_unique<Command>(*this, std::move(change));
}

std::unique_ptr<CO_Command> TextCells::changeCommand(Change change)
{
    return change.empty() ? nullptr : std::make_unique<Command>(*this, std::move(change));
}

std::unique_ptr<CO_Command> TextCells::shiftCommand(const FrameShift& shift)
{
    Change change;
    const auto first = m_cells.upper_bound(shift.at);
    for (auto cell = first; cell != m_cells.end(); ++cell)
        change[cell->first] = QString();
    for (auto cell = first; cell != m_cells.end(); ++cell) {
        const int moved = cell->first + shift.delta;
        if (moved > shift.at && moved <= Exposures::lastFrame)
            change[moved] = cell->second;
    }
    return changeCommand(std::move(change));
}

std::unique_ptr<CO_Command> TextCells::clearCommand(int at, int count)
{
    Change change;
    for (auto cell = m_cells.upper_bound(at); cell != m_cells.end() && cell->first <= at + count; ++cell)
        change[cell->first] = QString();
    return changeCommand(std::move(change));
}

std::unique_ptr<CO_Command> TextCells::pasteOf(const Column& source, const FramePaste& paste)
{
    const auto* given = dynamic_cast<const TextCells*>(&source);
    if (!given || paste.first() < 1 || paste.last() > Exposures::lastFrame)
        return nullptr;
    Change change;
    if (paste.substitutes) {
        for (auto cell = m_cells.lower_bound(paste.first()); cell != m_cells.end() && cell->first <= paste.last();
             ++cell)
            change[cell->first] = QString();
    }
    for (auto cell = given->m_cells.begin(); cell != given->m_cells.end() && cell->first <= paste.count; ++cell) {
        const int frame = paste.first() + cell->first - 1;
        if (paste.substitutes || textAt(frame).isEmpty())
            change[frame] = cell->second;
    }
    std::erase_if(change, [this](const auto& cell) { return textAt(cell.first) == cell.second; });
    return changeCommand(std::move(change));
}

void TextCells::keep(int first, int count)
{
    std::map<int, QString> kept;
    for (auto cell = m_cells.lower_bound(first); cell != m_cells.end() && cell->first < first + count; ++cell)
        kept.emplace_hint(kept.end(), cell->first - first + 1, cell->second);
    m_cells = std::move(kept);
}

std::unique_ptr<TUCellMemo> TextCells::rememberCell(int frame)
{
    return std::make_unique<Memo>(*this, frame);
}

int TextCells::write(double frame, int count, const QString& text)
{
    enum { kDone = 0, kRefused = 1 };
    CO_CommandManager* manager = column().scene() ? column().scene()->commandManager() : nullptr;
    std::unique_ptr<CO_Command> command = manager ? writeCommand(cellAt(frame), count, text) : nullptr;
    if (!command)
        return kRefused;
    const QString label = QCoreApplication::translate("Column", text.isEmpty() ? "Clear Cells" : "Set Cells");
    return manager->execute(command.release(), label) ? kDone : kRefused;
}

void TextCells::writeCells(JsonWriter& json) const
{
    json.key("cells").beginArray();
    for (const auto& [frame, text] : m_cells) {
        json.beginArray(JsonWriter::Inline);
        json.integer(frame);
        json.text(text);
        json.endArray();
    }
    json.endArray();
}

void TextCells::readCells(const JsonPlace& place)
{
    const JsonPlace list = place.field("cells");
    for (int i = 0, count = list.size(); i < count; ++i) {
        const JsonPlace cell = list.item(i);
        cell.requireSize(2);
        const int frame = cell.item(0).integer(1, Exposures::lastFrame);
        const QString text = cell.item(1).text();
        if (text.isEmpty())
            cell.item(1).fail(QStringLiteral("is empty"));
        if (!m_cells.empty() && m_cells.rbegin()->first >= frame)
            cell.fail(QStringLiteral("can't stand behind the cell ahead of it"));
        m_cells.emplace_hint(m_cells.end(), frame, text);
    }
}

void TextCells::exchange(Change& change)
{
    for (auto& [frame, text] : change) {
        const QString before = textAt(frame);
        if (text.isEmpty())
            m_cells.erase(frame);
        else
            m_cells[frame] = text;
        text = before;
    }
}

template <typename Host>
TextColumn<Host>::TextColumn(const QString& name, bool anonymous) : HostColumn<Host>(kindOf<Host>(), name, anonymous)
{}

template <typename Host>
void TextColumn<Host>::getValueForXsheet(double frame, int, QString* text, bool& isKey, bool& isHeld, bool& isBlank,
                                         bool& isLocked) const
{
    const QString shown = textAt(cellAt(frame));
    isBlank = shown.isEmpty();
    isKey = !isBlank;
    isHeld = isLocked = false;
    if (text)
        *text = shown;
}

template <typename Host>
std::unique_ptr<TUCellMemo> TextColumn<Host>::remember(double frame)
{
    return rememberCell(cellAt(frame));
}

template <typename Host>
std::unique_ptr<Column> TextColumn<Host>::copy(const QString& name, bool anonymous) const
{
    auto made = std::make_unique<TextColumn>(name, anonymous);
    made->m_cells = m_cells;
    return made;
}

template class TextColumn<TUSoundTimedValue>;
template class TextColumn<AT_AnnotationTimedValue>;
template class TextColumn<AT_FileLibraryTimedValue>;

} // namespace brindle::engine
