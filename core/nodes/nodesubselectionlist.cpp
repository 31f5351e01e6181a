#include "core/nodes/nodesubselectionlist.h"

#include "core/host/slb_nodepickadaptor.h"
#include "core/nodes/node.h"
#include "core/nodes/nodesubselection.h"
#include "core/nodes/nodesubselectionnamefactory.h"

#include <algorithm>

namespace OMC {

NodeSubselectionList::NodeSubselectionList(MO_Node* node) : CountedList(node) {}

std::string NodeSubselectionList::__str__() const
{
    return QStringLiteral("NodeSubselectionList(\"%1\")[%2]")
        .arg(target().qualifiedName(), QString::number(handleCount()))
        .toStdString();
}

std::size_t NodeSubselectionList::size() const
{
    return static_cast<std::size_t>(handleCount());
}

int NodeSubselectionList::handleCount() const
{
    SLB_NodePickAdaptorFactory factory;
    target().accept(factory);
    const SLB_NodePickAdaptor* adaptor = factory.pickAdaptor();
    return adaptor ? adaptor->handleCount() : -1;
}

NodeSubselection* NodeSubselectionList::newItem(int index) const
{
    MO_Node& node = target();
    if (index < 0 || index >= handleCount())
        throw Exception(tr("Invalid subselection index for this node type."));
    return new NodeSubselection(&node, index);
}

NodeSubselection* NodeSubselectionList::newItem(const QString& name) const
{
    MO_Node& node = target();
    // Required: the place that a factory tells isn't compared with the count.
    if (const auto* factory = NodeSubselectionNameFactory::getFactory(node.typeName())) {
        const int index = factory->getSubselectionIndex(name);
        if (index >= 0)
            return new NodeSubselection(&node, index);
    }
    const int index = NodeSubselectionNameFactory::getGenericSubselectionIndex(name);
    if (index >= handleCount())
        throw Exception(tr("Invalid subselection name for this node type."));
    return new NodeSubselection(&node, index);
}

Obj NodeSubselectionList::get(int index) const
{
    return Obj(newItem(index));
}

Obj NodeSubselectionList::get(const QString& name) const
{
    return Obj(newItem(name));
}

std::vector<Obj> NodeSubselectionList::list() const
{
    std::vector<Obj> handles;
    const int count = handleCount();
    for (int index = 0; index < count; ++index)
        handles.push_back(get(index));
    return handles;
}

void NodeSubselectionList::validate() const
{
    validateThreadLock();
    if (isGone())
        Node::throwNodeGone();
}

void NodeSubselectionList::beforeStep() const
{
    validate();
}

std::size_t NodeSubselectionList::iterationSize() const
{
    return static_cast<std::size_t>(std::max(handleCount(), 0));
}

Obj NodeSubselectionList::itemAt(quint64 position) const
{
    if (position >= iterationSize())
        throw Exception(tr("Iteration item is out of range."));
    return get(static_cast<int>(position));
}

} // namespace OMC
