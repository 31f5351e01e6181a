#include "engine/elements/elementmanager.h"

#include "core/host/co_command.h"
#include "core/host/msg_scope.h"
#include "engine/curves/column.h"
#include "engine/elements/names.h"
#include "engine/folder/safenames.h"
#include "engine/session/projectcommon.h"
#include "engine/session/scene.h"

#include <algorithm>
#include <limits>

namespace brindle::engine {

namespace {

const TUElement noElement;

void setDrawingsGone(Element& element, bool areGone)
{
    for (std::size_t place = 0; place < element.drawings().size(); ++place)
        element.drawings().at(place).setGone(areGone);
}

} // namespace

ElementManager::ElementManager(ProjectCommon& project) : m_project(project) {}

ElementManager::~ElementManager() = default;

CommandManager& ElementManager::history() const
{
    return m_project.history();
}

Element* ElementManager::find(int id) const
{
    const auto found = m_elements.find(id);
    return found == m_elements.end() ? nullptr : found->second.get();
}

Element& ElementManager::insert(std::unique_ptr<Element> element)
{
    Element& added = *element;
    if (added.physicalName().isEmpty())
        added.setPhysicalName(safe_names::unique(safe_names::made(added.name()), m_folders));
    m_folders.insert(safe_names::folded(added.physicalName()));
    m_byName.insert(added.name(), &added);
    const auto place = std::upper_bound(m_order.begin(), m_order.end(), added.id(),
                                        [](int id, const TUElement* other) { return id < other->id(); });
    m_order.insert(place, &added);
    m_lastId = std::max(m_lastId, added.id());
    m_elements.emplace(added.id(), std::move(element));
    setDrawingsGone(added, false);
    ++m_revision;
    tellChanged();
    return added;
}

std::unique_ptr<Element> ElementManager::take(Element& element)
{
    m_folders.remove(safe_names::folded(element.physicalName()));
    m_byName.remove(element.name(), &element);
    m_order.erase(std::find(m_order.begin(), m_order.end(), &element));
    auto node = m_elements.extract(element.id());
    setDrawingsGone(element, true);
    ++m_revision;
    tellChanged();
    return std::move(node.mapped());
}

ElementFields ElementManager::exchangeFields(Element& element, const ElementFields& fields)
{
    ElementFields before = element.fields();
    m_byName.remove(before.name, &element);
    element.setFields(fields);
    m_byName.insert(fields.name, &element);
    ++m_revision;
    tellChanged();
    return before;
}

bool ElementManager::isFreeName(const QString& name, const Element* own) const
{
    const auto [first, last] = m_byName.equal_range(name);
    return std::none_of(first, last, [own](const Element* other) { return other != own && !other->isDeleted(); });
}

bool ElementManager::isFreeFolder(const QString& physicalName) const
{
    return !m_folders.contains(safe_names::folded(physicalName));
}

std::unique_ptr<Element> ElementManager::takeMade(int id)
{
    auto node = m_made.extract(id);
    return node ? std::move(node.mapped()) : nullptr;
}

template <typename Function>
void ElementManager::forColumnsOf(const Element& element, Function function) const
{
    for (int place = 0; const Scene* scene = m_project.scenes().at(place); ++place) {
        for (auto column = scene->timedValuesBegin(); column != scene->timedValuesEnd(); ++column) {
            Column* shown = Column::of(*column);
            if (shown && shown->elementId() == element.id())
                function(*scene, *shown);
        }
    }
}

bool ElementManager::isShown(const Element& element, const QString& drawing) const
{
    bool isShown = false;
    forColumnsOf(element, [&](const Scene&, const Column& column) { isShown |= column.showsDrawing(drawing); });
    return isShown;
}

std::vector<std::unique_ptr<CO_Command>> ElementManager::renameCommands(const Element& element, const QString& from,
                                                                        const QString& to) const
{
    std::vector<std::unique_ptr<CO_Command>> commands;
    forColumnsOf(element, [&](const Scene&, Column& column) {
        if (auto command = column.renameDrawingCommand(from, to))
            commands.push_back(std::move(command));
    });
    return commands;
}

void ElementManager::tellChanged() const
{
    for (int place = 0; Scene* scene = m_project.scenes().at(place); ++place)
        scene->changes().notify();
}

const TUElement& ElementManager::elementById(int id) const
{
    const Element* element = find(id);
    return element ? *element : noElement;
}

const TUElement& ElementManager::elementByName(const QString& name, int) const
{
    const Element* deleted = nullptr;
    const auto [first, last] = m_byName.equal_range(name);
    for (auto element = first; element != last; ++element) {
        if (!(*element)->isDeleted())
            return **element;
        // Of several that are deleted it is always the same one.
        if (!deleted || (*element)->id() > deleted->id())
            deleted = *element;
    }
    return deleted ? *deleted : noElement;
}

const TUElement& ElementManager::createElement(const QString& name, int scanType, double fieldChart, int pixmapFormat,
                                               int vectorType, bool useTemporaryFolder)
{
    const ElementFields fields{name, scanType, fieldChart, pixmapFormat, vectorType};
    // What isn't saved is in memory: there is no temporary folder.
    if (useTemporaryFolder || !isAcceptable(fields) || !isFreeName(name, nullptr) ||
        m_lastId == std::numeric_limits<int>::max())
        return noElement;
    const int id = ++m_lastId;
    return *m_made.emplace(id, std::make_unique<Element>(*this, id, fields)).first->second;
}

bool ElementManager::getLock(const TUElement& element)
{
    const Element* own = find(element.id());
    if (!own)
        return false;
    try {
        // Who holds it is told first, also to those who could not take it anyway.
        const Folder* project = m_contents.folder();
        const QString folder = (project ? project->place() : m_project.path()) + u'/' + own->folder();
        m_locks.requireFree(own->id(), folder);
        m_contents.requireWritable();
        m_locks.require(own->id(), folder);
        return true;
    } catch (const FolderFailure& failure) {
        MSG_Scope(QStringLiteral("Cannot lock element ") + quoted(own->name()) + QLatin1String(": ") + failure.reason +
                      u'.',
                  MSG_Scope::kError);
        return false;
    }
}

bool ElementManager::releaseLock(const TUElement& element)
{
    return m_locks.release(element.id());
}

bool ElementManager::isElementDeleted(int id) const
{
    const Element* element = find(id);
    return element && element->isDeleted();
}

bool ElementManager::elementIsLinkedToTimedValue(int id) const
{
    const Element* element = find(id);
    bool isLinked = false;
    if (element)
        forColumnsOf(*element, [&isLinked](const Scene&, const Column&) { isLinked = true; });
    return isLinked;
}

bool ElementManager::canDeleteElements(const std::set<int>& ids, std::set<int>& deletable, MSG_Text& reasons) const
{
    deletable.clear();
    for (const int id : ids) {
        const Element* element = find(id);
        if (!element) {
            reasons.addLine(QStringLiteral("There is no element of the id %1.").arg(id));
            continue;
        }
        QStringList columns;
        forColumnsOf(*element, [&columns](const Scene& scene, const Column& column) {
            columns.append(QStringLiteral("\"%1\" of scene \"%2\"").arg(column.name(), scene.name()));
        });
        if (columns.isEmpty())
            deletable.insert(id);
        else
            reasons.addLine(QStringLiteral("Element \"%1\" is shown by column %2.")
                                .arg(element->name(), columns.join(QLatin1String(", "))));
    }
    return deletable.size() == ids.size();
}

VFS_Path ElementManager::elementFolder(int id, int) const
{
    const Element* element = find(id);
    return element ? VFS_Path(m_project.path() + u'/' + element->folder()) : VFS_Path();
}

int ElementManager::getDrawingOpacity(int id) const
{
    const Element* element = find(id);
    return element ? element->fields().opacity : ElementFields().opacity;
}

QString ElementManager::fileExt(int id) const
{
    const Element* element = find(id);
    return element ? element->extension() : QString();
}

const Drawing* ElementManager::drawing(int id, EM_DrawingId drawing) const
{
    const Element* element = find(id);
    return element ? element->drawings().find(drawing) : nullptr;
}

EM_DrawingId ElementManager::getDrawingId(int id, const QString& timing, bool) const
{
    const Element* element = find(id);
    const Drawing* found = element ? element->drawings().named(timing) : nullptr;
    return found ? found->id() : EM_InvalidDrawingId;
}

QString ElementManager::getDrawingTiming(int id, EM_DrawingId drawingId) const
{
    const Drawing* found = drawing(id, drawingId);
    return found ? found->name() : QString();
}

int ElementManager::getDrawingType(int id, EM_DrawingId drawingId) const
{
    const Drawing* found = drawing(id, drawingId);
    return found ? found->type : kMarkNone;
}

int ElementManager::getDrawingVersion(int id, EM_DrawingId drawingId) const
{
    const Drawing* found = drawing(id, drawingId);
    return found ? found->version : 1;
}

double ElementManager::getDrawingScaleFactor(int id, EM_DrawingId drawingId) const
{
    const Drawing* found = drawing(id, drawingId);
    return found ? found->scaleFactor : 1.0;
}

QString ElementManager::nextUnusedNumericTiming(int id) const
{
    const Element* element = find(id);
    if (!element)
        return QString::number(1);
    qulonglong highest = element->drawings().highestNumber();
    QString next;
    do {
        next = QString::number(++highest);
    } while (element->drawings().named(next));
    return next;
}

VFS_Path ElementManager::drawingFilenamePart(int id, EM_DrawingId drawingId, EM_LayerId layer, bool, int) const
{
    const Element* element = find(id);
    const Drawing* found = element ? element->drawings().find(drawingId) : nullptr;
    return found ? VFS_Path(m_project.path() + u'/' + element->fileNamePart(*found, layer)) : VFS_Path();
}

ElementManager* engineElements(TUElementMgr* manager)
{
    return dynamic_cast<ElementManager*>(manager);
}

} // namespace brindle::engine

namespace celcache_util {

VFS_Path buildDrawingName(const VFS_Path& part, const QString& extension, int version)
{
    const QString suffix = version > 1 ? u'@' + QString::number(version) : QString();
    return VFS_Path(part.filepath() + suffix + u'.' + extension);
}

} // namespace celcache_util
