#include "engine/exposure/exposurecolumn.h"

#include "core/host/em_commands.h"
#include "core/host/sc_scene.h"
#include "core/host/tu_elementmgr.h"
#include "engine/attributes/attributemeta.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"

#include <QSet>

namespace brindle::engine {

namespace {

constexpr const char* drawingFields[] = {"element", "exposures"};
constexpr const char* timingFields[] = {"exposures"};

TUElementMgr* elementsOf(const Column& column)
{
    return column.scene() ? column.scene()->elementManager() : nullptr;
}

} // namespace

const ColumnKind drawingKind{TUTimedValue::kDrawing, "DRAWING", drawingFields, &makeColumn<DrawingColumn>};
const ColumnKind timingKind{TUTimedValue::kTiming, "TIMING", timingFields, &makeColumn<TimingColumn>};

const EM_ElementInfo* DrawingColumn::element() const
{
    const TUElementMgr* elements = elementsOf(*this);
    return elements && m_element >= 0 ? elements->getElementDrawingInfoById(m_element) : nullptr;
}

int DrawingColumn::nextKeyExposure(double frame, const std::set<EM_MarkType>& marks) const
{
    const TUElementMgr* elements = elementsOf(*this);
    if (!elements)
        return 0;
    return exposures().nextKey(cellAt(frame), [&](const QString& drawing) {
        const EM_DrawingId id = elements->getDrawingId(m_element, drawing, false);
        return id != EM_InvalidDrawingId &&
               marks.contains(static_cast<EM_MarkType>(elements->getDrawingType(m_element, id)));
    });
}

bool DrawingColumn::fits(const AttributeMeta& attribute) const
{
    return attribute.kind().drivenBy == DrivenBy::Drawings;
}

std::unique_ptr<CO_Command> DrawingColumn::renameDrawingCommand(const QString& from, const QString& to)
{
    return changeCommand(exposures().renamed(from, to));
}

QString DrawingColumn::freeName() const
{
    return element() ? elementsOf(*this)->nextUnusedNumericTiming(m_element) : exposures().freeNumber();
}

bool DrawingColumn::hasName(const QString& name) const
{
    const EM_ElementInfo* info = element();
    return info ? info->hasDrawingName(name) : exposures().shows(name);
}

void DrawingColumn::addMissingDrawings(const QStringList& names, CO_AndCommand& commands) const
{
    const EM_ElementInfo* info = element();
    if (!info)
        return;
    QSet<QString> missing;
    const QString* last = nullptr;
    for (const QString& name : names) {
        const bool isHeld = last && *last == name;
        last = &name;
        if (isHeld || name.isEmpty() || info->hasDrawingName(name) || missing.contains(name))
            continue;
        missing.insert(name);
        commands.add(EM_Commands::NewDrawingCmd::Create(elementsOf(*this), m_element, name, false, false));
    }
}

std::unique_ptr<Column> DrawingColumn::copy(const QString& name, bool anonymous) const
{
    auto copy = std::make_unique<DrawingColumn>(name, anonymous);
    copy->m_element = m_element;
    copy->m_exposures = m_exposures;
    return copy;
}

void DrawingColumn::write(JsonWriter& json) const
{
    if (m_element >= 0)
        json.key("element").integer(m_element);
    ExposureColumn::write(json);
}

void DrawingColumn::read(const JsonPlace& place)
{
    if (const auto element = place.ifField("element"))
        m_element = element->integer(0);
    ExposureColumn::read(place);
}

bool TimingColumn::fits(const AttributeMeta& attribute) const
{
    return attribute.kind().drivenBy == DrivenBy::Timings;
}

QString TimingColumn::freeName() const
{
    return exposures().freeNumber();
}

std::unique_ptr<Column> TimingColumn::copy(const QString& name, bool anonymous) const
{
    auto copy = std::make_unique<TimingColumn>(name, anonymous);
    copy->m_exposures = m_exposures;
    return copy;
}

} // namespace brindle::engine
