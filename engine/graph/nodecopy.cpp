#include "engine/graph/nodecopy.h"

#include "engine/attributes/attributeset.h"

namespace brindle::engine {

namespace {

void copyPorts(const Node& from, Node& to, PortSide side)
{
    if (!from.takesPorts(side))
        return;
    while (to.portCount(side) > 0)
        to.takePort(side, to.portCount(side) - 1);
    for (std::size_t place = 0; place < from.portCount(side); ++place) {
        const Port& port = *from.port(side, place);
        auto copy = std::make_unique<Port>(PortSpec{port.kind(), port.isMattePort()});
        copy->setId(port.id());
        to.insertPort(side, place, std::move(copy));
    }
}

bool isMultiPort(const Node& node)
{
    return node.type().nodeClass == NodeClass::MultiPortIn || node.type().nodeClass == NodeClass::MultiPortOut;
}

void copyBackdrops(const Group& from, Group& to)
{
    for (const std::shared_ptr<MO_Backdrop>& backdrop : from.backdrops()) {
        auto copy = std::make_shared<MO_Backdrop>(&to, to.sceneCommon());
        copy->setProperties(backdrop->properties());
        to.backdropList().push_back(std::move(copy));
    }
}

std::unique_ptr<MO_Node> newNodeLike(const Node& node, SC_SceneCommon* scene)
{
    const NodePosition& place = node.position();
    bool flag = true;
    std::unique_ptr<MO_Node> host(
        node.asGroup() ? static_cast<MO_Node*>(TUGroup::create())
                       : TUGroup::createNode(sharedText(node.type().name), place.x, place.y, place.z, flag, nullptr));
    Node& copy = *engineNode(host.get());
    copy.setScene(scene);
    copy.setName(node.name());
    copy.setPosition(place);
    copy.setEnabled(node.isEnabled());
    copy.setMarks(node.marks());
    if (node.hasAttributes())
        copyValues(node.attributes(), copy.attributes());
    if (const Group* group = node.asGroup())
        copyBackdrops(*group, *copy.asGroup());
    return host;
}

/// Links the copy of a node as the node is linked to others that were copied.
void copyLinks(const Node& node, const NodeCopies& copies)
{
    for (std::size_t place = 0; place < node.portCount(PortSide::Out); ++place) {
        const Port& out = *node.port(PortSide::Out, place);
        for (std::size_t i = 0; i < out.destinationCount(); ++i) {
            const Port& in = *out.destination(i);
            Port& copied = *copies.at(&node)->port(PortSide::Out, place);
            Port::link(copied, *copies.at(in.owner())->port(PortSide::In, in.place()), copied.destinationCount());
        }
    }
}

} // namespace

std::unique_ptr<MO_Node> copyNode(const Node& top, NodeCopies& copies, SC_SceneCommon* scene)
{
    std::unique_ptr<MO_Node> copy;
    forEachFrom(const_cast<Node&>(top), [&](const Node& node) {
        std::unique_ptr<MO_Node> host = newNodeLike(node, scene);
        Node& made = *engineNode(host.get());
        copies[&node] = &made;
        if (&node != &top || !isMultiPort(node)) {
            copyPorts(node, made, PortSide::In);
            copyPorts(node, made, PortSide::Out);
        }
        if (&node == &top)
            copy = std::move(host);
        else
            copies.at(node.parent())->asGroup()->subNodes().append(std::move(host), made);
    });
    // The top node's own links lead out of it.
    forEachFrom(const_cast<Node&>(top), [&](const Node& node) {
        if (&node != &top)
            copyLinks(node, copies);
    });
    return copy;
}

} // namespace brindle::engine
