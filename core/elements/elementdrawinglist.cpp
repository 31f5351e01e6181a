#include "core/elements/elementdrawinglist.h"

#include "core/elements/elementdrawing.h"
#include "core/frame/undo.h"
#include "core/host/em_commands.h"
#include "core/host/tu_elementmgr.h"

#include <memory>
#include <set>

namespace OMC {

namespace {

/// Adds the drawings of an element that a value names; what names none adds none.
void addDrawings(const TUElementMgr& manager, int element, const QVariant& value, std::set<EM_DrawingId>& drawings)
{
    EM_DrawingId drawing = EM_InvalidDrawingId;
    if (value.typeId() == QMetaType::QString) {
        drawing = manager.getDrawingId(element, value.toString(), false);
    } else if (value.typeId() == QMetaType::QVariantList || value.typeId() == QMetaType::QStringList) {
        const QVariantList items = value.toList();
        for (const QVariant& item : items)
            addDrawings(manager, element, item, drawings);
    } else if (const auto* given = objectFrom<ElementDrawing>(value); given && given->elementId() == element) {
        drawing = given->drawingId();
    }
    if (!manager.getDrawingTiming(element, drawing).isNull())
        drawings.insert(drawing);
}

} // namespace

// Required: the word is that of the list of elements.
std::string ElementDrawingList::__str__() const
{
    return QStringLiteral("ElementList(%1)[%2]").arg(m_elementId).arg(size()).toStdString();
}

std::size_t ElementDrawingList::size() const
{
    return static_cast<std::size_t>(m_guard.info(m_elementId).drawingCount());
}

ElementDrawing* ElementDrawingList::newItem(int index) const
{
    const EM_ElementInfo::Map& drawings = m_guard.info(m_elementId).getMap();
    // A negative index is a huge unsigned one, and so out of range as well.
    const auto place = static_cast<unsigned int>(index);
    if (place >= drawings.size())
        throwIndexOutOfRange();
    return new ElementDrawing(m_guard, m_elementId, drawings[place]->id());
}

ElementDrawing* ElementDrawingList::newItem(const QString& name) const
{
    // What is found needs no look at the element.
    const EM_DrawingId drawing = m_guard.manager().getDrawingId(m_elementId, name, false);
    if (drawing == EM_InvalidDrawingId) {
        m_guard.info(m_elementId);
        throwIndexOutOfRange();
    }
    return new ElementDrawing(m_guard, m_elementId, drawing);
}

Obj ElementDrawingList::get(int index) const
{
    return Obj(newItem(index));
}

Obj ElementDrawingList::get(const QString& name) const
{
    return Obj(newItem(name));
}

Obj ElementDrawingList::operator()(const QString& name) const
{
    return get(name);
}

void ElementDrawingList::set(int, const Obj&)
{
    throw Exception(tr("Unable to set a Element Drawing List"));
}

std::vector<EM_DrawingId> ElementDrawingList::ids() const
{
    const EM_ElementInfo::Map& drawings = m_guard.info(m_elementId).getMap();
    std::vector<EM_DrawingId> ids;
    ids.reserve(drawings.size());
    for (const EM_DrawingInfo* drawing : drawings)
        ids.push_back(drawing->id());
    return ids;
}

std::vector<Obj> ElementDrawingList::list() const
{
    const std::vector<EM_DrawingId> all = ids();
    std::vector<Obj> drawings;
    drawings.reserve(all.size());
    for (const EM_DrawingId drawing : all)
        drawings.emplace_back(new ElementDrawing(m_guard, m_elementId, drawing));
    return drawings;
}

QStringList ElementDrawingList::names() const
{
    return m_guard.info(m_elementId).getAllDrawingNames();
}

bool ElementDrawingList::contains(const QString& name) const
{
    return m_guard.info(m_elementId).hasDrawingName(name);
}

bool ElementDrawingList::holds(const BaseObject& item) const
{
    m_guard.info(m_elementId);
    const auto* drawing = dynamic_cast<const ElementDrawing*>(&item);
    return drawing && drawing->elementId() == m_elementId &&
           !m_guard.manager().getDrawingTiming(m_elementId, drawing->drawingId()).isNull();
}

QVariant ElementDrawingList::create(const QVariant& names, bool fileExists, bool second)
{
    TUElementMgr& manager = m_guard.manager();
    EM_ElementInfo& info = m_guard.info(m_elementId);
    CO_CommandManager& commands = m_guard.commands();
    const bool wantsList = names.typeId() == QMetaType::QStringList;
    std::set<QString> sorted;
    if (names.typeId() == QMetaType::QString)
        sorted.insert(names.toString());
    if (wantsList) {
        const QStringList list = names.toStringList();
        sorted.insert(list.begin(), list.end());
    }
    if (sorted.empty())
        throw Exception(tr("No drawing names provided."));

    auto command = std::make_unique<CO_AndCommand>();
    for (const QString& name : sorted) {
        CO_Command* made = EM_Commands::NewDrawingCmd::Create(&manager, m_elementId, name, fileExists, second);
        // Required: a drawing that is there already gets its file at once, which no undo takes back.
        if (fileExists && !made)
            info.setDrawingFileExists(manager.getDrawingId(m_elementId, name, false), true);
        command->add(made);
    }
    undo::run(commands, command.release(), tr("Adding drawings."), tr("Failed to add the drawings."));
    const auto drawingOf = [&](const QString& name) {
        return toVariant(new ElementDrawing(m_guard, m_elementId, manager.getDrawingId(m_elementId, name, false)));
    };
    if (!wantsList && sorted.size() == 1)
        return drawingOf(*sorted.begin());
    QVariantList drawings;
    drawings.reserve(static_cast<qsizetype>(sorted.size()));
    for (const QString& name : sorted)
        drawings.append(drawingOf(name));
    return drawings;
}

void ElementDrawingList::remove(const QVariant& drawings)
{
    TUElementMgr& manager = m_guard.manager();
    m_guard.info(m_elementId);
    CO_CommandManager& commands = m_guard.commands();
    std::set<EM_DrawingId> removed;
    addDrawings(manager, m_elementId, drawings, removed);
    if (removed.empty())
        throw Exception(tr("Incorrect drawings specified."));
    auto command = std::make_unique<CO_AndCommand>();
    for (const EM_DrawingId drawing : removed)
        command->add(new EM_Commands::DeleteDrawingCmd(&manager, m_elementId, drawing));
    undo::run(commands, command.release(), tr("Removing drawings."), tr("Failed to remove the drawings."));
}

void ElementDrawingList::startIteration()
{
    m_snapshot.take(ids());
}

Obj ElementDrawingList::itemAt(quint64 position) const
{
    if (position >= m_snapshot.size())
        throwIndexOutOfRange();
    return Obj(new ElementDrawing(m_guard, m_elementId, m_snapshot[position]));
}

} // namespace OMC
