#include "core/nodes/multiportlist.h"

#include "core/frame/undo.h"
#include "core/host/mo_port.h"
#include "core/host/tu_node.h"
#include "core/nodes/port.h"
#include "core/nodes/portside.h"

#include <algorithm>

namespace OMC {

MultiPortList::MultiPortList(MO_Node* node, bool isInPort) : PortList(node, isInPort) {}

bool MultiPortList::getDynamic() const
{
    return true;
}

Obj MultiPortList::create(unsigned int index, const QString& type)
{
    MO_Node* node = &target();
    CO_CommandManager& manager = undo::manager(node->sceneCommon());
    // Required: the number of in-ports bounds the place in out-port lists as well.
    const unsigned int place = std::min(index, node->nInPorts());
    const MO_PortMode mode = node->portMode();

    std::unique_ptr<CO_Command> command;
    QString label;
    if (isInPortList() && (mode == MO_DynamicInPorts || node->isModeMultiInPort())) {
        MO_AutoInPortsModule* module = MO_AutoInPortsModule::castTo(node);
        if (!module)
            unexpected::fail();
        command.reset(module->addInPortCommand(place));
        label = tr("Add in-port node.");
    } else if (isInPortList() && mode == MO_DynamicPorts) {
        command = std::make_unique<tu_node::AddInPortCmd>(node, place, newPort(type));
        label = tr("Add inport to the node.");
    } else if (!isInPortList() && (mode == MO_DynamicOutPortsOnly || mode == MO_DynamicPorts)) {
        command = std::make_unique<tu_node::AddOutPortCmd>(node, place, newPort(type));
        label = tr("Add out-port to the node.");
    }
    if (!command || !manager.execute(command.release(), label))
        return {};
    return Obj(wrapped((node->*side().at)(place)));
}

Obj MultiPortList::create(const QString& type)
{
    return create(static_cast<unsigned int>(size()), type);
}

Obj MultiPortList::create(const Obj& port, bool before, const QString& type)
{
    const MO_Node* node = &target();
    const auto* neighbour = objectIn<Port>(port);
    if (!neighbour)
        throw Exception(tr("Port object is not valid."));
    // Required: the port is looked for by its id among the in-ports, in out-port lists as well.
    const unsigned int id = neighbour->getPortId();
    for (unsigned int index = 0; index < node->nInPorts(); ++index) {
        const MO_Port* candidate = node->inPort(index);
        if (candidate && candidate->id() == id)
            return create(before ? index : index + 1, type);
    }
    throw Exception(tr("Unable to find the port provided."));
}

void MultiPortList::remove(unsigned int index)
{
    MO_Node* node = &target();
    if (!(node->*side().at)(index))
        throw Exception(isInPortList() ? tr("No in port available at given index.")
                                       : tr("No out port available at given index."));
    if (isInPortList())
        removeInPort(node, index);
    else
        removeOutPort(node, index);
}

void MultiPortList::remove(const Obj& port)
{
    MO_Node* node = &target();
    const auto* removed = objectIn<Port>(port);
    if (!removed)
        throw Exception(tr("Invalid port-type specified for removal."));
    if (isInPortList() && removed->getIsOutport())
        throw Exception(tr("Cannot remove a out-port from and in-port list."));
    if (!isInPortList() && removed->getIsInport())
        throw Exception(tr("Cannot remove an in-port from and out-port list."));
    // Required: the port's place counts on this list's node, whichever node the port belongs to.
    const unsigned int index = removed->getIndex();
    if (isInPortList())
        removeInPort(node, index);
    else
        removeOutPort(node, index);
}

void MultiPortList::removeInPort(MO_Node* node, unsigned int index)
{
    CO_CommandManager& manager = undo::manager(node->sceneCommon());
    auto command = std::make_unique<CO_AndCommand>();
    command->add(new tu_node::UnlinkInPortFromOutsideCmd(node, index));
    command->add(new tu_node::DeleteInPortCmd(node, index));
    undo::run(manager, command.release(), tr("Remove in-port node."), tr("Failed to remove in-port from the node."));
}

void MultiPortList::removeOutPort(MO_Node* node, unsigned int index)
{
    CO_CommandManager& manager = undo::manager(node->sceneCommon());
    auto command = std::make_unique<CO_AndCommand>();
    command->add(new tu_node::UnlinkOutPortFromOutsideCmd(node, index));
    command->add(new tu_node::DeleteOutPortCmd(node, index));
    // Required: a failure has the words of an in-port.
    undo::run(manager, command.release(), tr("Remove out-port node."), tr("Failed to remove in-port from the node."));
}

std::unique_ptr<MO_Port> MultiPortList::newPort(const QString& type) const
{
    const MO_Node* node = &target();
    if (type.isNull()) {
        if (node->nOutPorts() > 0 && !node->hasImageOutput())
            return MO_Port::createMatrixPort();
        const unsigned int count = (node->*side().count)();
        const MO_Port* last = count > 0 ? (node->*side().at)(count - 1) : nullptr;
        return last ? last->clone() : MO_Port::createImagePort();
    }
    const QString name = type.toLower();
    if (name == QLatin1String("image"))
        return MO_Port::createImagePort();
    if (name == QLatin1String("peg") || name == QLatin1String("matrix") || name == QLatin1String("transform"))
        return MO_Port::createMatrixPort();
    throw Exception(tr("Port creation requires a type -- 'image' or 'peg' is accepted."));
}

MultiInPortList::MultiInPortList(MO_Node* node) : MultiPortList(node, true) {}

Obj MultiInPortList::getMattePort() const
{
    return lastMattePort();
}

} // namespace OMC
