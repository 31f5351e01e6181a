#include "core/elements/elementlist.h"

#include "core/elements/element.h"
#include "core/elements/elementfields.h"
#include "core/frame/undo.h"
#include "core/host/em_commands.h"
#include "core/host/tu_elementmgr.h"
#include "core/host/tu_pixmapformat.h"

#include <limits>
#include <memory>
#include <set>

namespace OMC {

namespace {

/// The texts of a name or a list of names; none for anything else.
std::set<QString> namesIn(const QVariant& value)
{
    if (value.typeId() == QMetaType::QString)
        return {value.toString()};
    if (value.typeId() != QMetaType::QStringList)
        return {};
    const QStringList names = value.toStringList();
    return {names.begin(), names.end()};
}

/// Reads what names elements into their numbers; what can't be found goes to the errors.
class ElementSelector {
public:
    explicit ElementSelector(const TUElementMgr& manager) : m_manager(manager) {}

    void read(const QVariant& value)
    {
        switch (value.typeId()) {
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
            add(m_manager.elementById(numberIn(value)), value.toString());
            break;
        case QMetaType::QString:
            add(m_manager.elementByName(value.toString(), 0), value.toString());
            break;
        case QMetaType::QVariantList:
        case QMetaType::QStringList: {
            const QVariantList items = value.toList();
            for (const QVariant& item : items)
                read(item);
            break;
        }
        default:
            if (const auto* element = objectFrom<Element>(value))
                ids.insert(element->getId());
        }
    }

    std::set<int> ids;
    QStringList errors;

private:
    /// -1 for one that no element has.
    static int numberIn(const QVariant& value)
    {
        bool isNumber = false;
        const qlonglong number = value.toLongLong(&isNumber);
        return isNumber && number >= 0 && number <= std::numeric_limits<int>::max() ? static_cast<int>(number) : -1;
    }

    void add(const TUElement& element, const QString& text)
    {
        if (element.id() != -1)
            ids.insert(element.id());
        else
            errors.append(ElementList::tr("Failed to find element : %1").arg(text));
    }

    const TUElementMgr& m_manager;
};

} // namespace

std::string ElementList::__str__() const
{
    return QStringLiteral("ElementList()[%1]").arg(size()).toStdString();
}

std::size_t ElementList::size() const
{
    return static_cast<std::size_t>(m_guard.manager().nbElements());
}

Element* ElementList::newItem(int id) const
{
    return m_guard.manager().elementById(id).id() == -1 ? nullptr : new Element(id);
}

Element* ElementList::newItem(const QString& name) const
{
    const TUElement& element = m_guard.manager().elementByName(name, 0);
    return element.id() == -1 || element.isDeleted() ? nullptr : new Element(element.id());
}

Obj ElementList::get(int id) const
{
    return Obj(newItem(id));
}

Obj ElementList::get(const QString& name) const
{
    return Obj(newItem(name));
}

Obj ElementList::operator()(const QString& name) const
{
    return get(name);
}

void ElementList::set(int, const Obj&)
{
    throw Exception(tr("Unable to set the Element List"));
}

std::vector<int> ElementList::ids() const
{
    const TUElementMgr& manager = m_guard.manager();
    std::vector<int> ids;
    for (auto element = manager.elementBegin(); element != manager.elementEnd(); ++element) {
        if (!(*element)->isDeleted())
            ids.push_back((*element)->id());
    }
    return ids;
}

std::vector<Obj> ElementList::list() const
{
    std::vector<Obj> elements;
    for (const int id : ids())
        elements.emplace_back(new Element(id));
    return elements;
}

bool ElementList::contains(const QVariant& value) const
{
    const TUElementMgr& manager = m_guard.manager();
    if (value.typeId() == QMetaType::QString)
        return manager.elementByName(value.toString(), 0).id() != -1;
    if (const QObject* object = QVariantToPointer(value)) {
        // Required: an object that is no element is taken for the number 0.
        const auto* element = dynamic_cast<const Element*>(object);
        return manager.elementById(element ? element->findId() : 0).id() != -1;
    }
    bool isNumber = false;
    const int id = value.toInt(&isNumber);
    return isNumber && manager.elementById(id).id() != -1;
}

QVariant ElementList::create(const QVariant& names, const QString& scanType, double fieldChart,
                             const QString& pixmapFormat, const QString& vectorType)
{
    TUElementMgr& manager = m_guard.manager();
    CO_CommandManager& commands = m_guard.commands();
    QStringList errors;
    const std::optional<int> scan = elementfields::scanType(scanType);
    if (!scan)
        errors.append(elementfields::scanTypeFailure());
    const int format = elementfields::formats().format(pixmapFormat);
    if (format < 0)
        errors.append(elementfields::formatFailure());
    const int vector = elementfields::vectorType(vectorType);
    const bool wantsList = names.typeId() == QMetaType::QStringList;
    const std::set<QString> sorted = namesIn(names);
    if (sorted.empty())
        throw Exception(tr("No element names provided."));
    for (const QString& name : sorted) {
        const TUElement& there = manager.elementByName(name, 0);
        if (there.id() != -1 && !there.isDeleted())
            errors.append(tr("Element with name %1 already exists.").arg(name));
    }
    if (!errors.isEmpty())
        throw Exception(errors.join(u'\n'));

    auto command = std::make_unique<CO_AndCommand>();
    QVariantList created;
    for (const QString& name : sorted) {
        const int id =
            manager.createElement(name, *scan, fieldChart, format, vector, manager.useTemporaryFolder()).id();
        if (id == -1)
            throw Exception(tr("Failed to create new element: %1").arg(name));
        command->add(new EM_Commands::FakeAddElementsCmd(&manager, {id}, true, true, 0));
        created.append(toVariant(new Element(id)));
    }
    // Required: one element has the label of several, and several that of one.
    undo::run(commands, command.release(), sorted.size() < 2 ? tr("Creating elements.") : tr("Creating element."),
              tr("Failed to create elements."));
    return wantsList || created.size() > 1 ? QVariant(created) : created.first();
}

void ElementList::remove(const QVariant& elements, bool removeFiles)
{
    TUElementMgr& manager = m_guard.manager();
    CO_CommandManager& commands = m_guard.commands();
    ElementSelector selector(manager);
    selector.read(elements);
    if (!selector.errors.isEmpty())
        throw Exception(selector.errors.join(u'\n'));
    if (selector.ids.empty())
        throw Exception(tr("No elements found."));
    std::set<int> deletable;
    MSG_Text reasons;
    if (!manager.canDeleteElements(selector.ids, deletable, reasons))
        throw Exception(tr("Unable to delete element.\n%1").arg(reasons.getText()));
    // Required: the entry of the undo list has no label.
    undo::run(commands, RemoveElementsCmd::BuildCmd(&manager, selector.ids, removeFiles, 0), QString(),
              tr("Failed to delete elements."));
    if (removeFiles) {
        manager.saveChangesToDataBase(true);
        manager.flush();
    }
}

void ElementList::startIteration()
{
    m_snapshot.take(ids());
}

Obj ElementList::itemAt(quint64 position) const
{
    if (position >= m_snapshot.size())
        throwIndexOutOfRange();
    return Obj(new Element(m_snapshot[position]));
}

} // namespace OMC
