#include "core/nodes/portlink.h"

#include "core/frame/undo.h"
#include "core/host/tu_node.h"
#include "core/nodes/cable.h"
#include "core/nodes/inport.h"
#include "core/nodes/outport.h"

#include <utility>

namespace OMC {

Obj linkPort(const Port& port, const QVariant& value)
{
    const auto tr = [&texts = *port.metaObject()](const char* text) { return texts.tr(text, nullptr); };

    MO_Node* node = port.getNode();
    CO_CommandManager& manager = undo::manager(node->sceneCommon());
    const undo::Scope scope(manager, tr("Connecting ports."));

    QString error;
    MO_Port* target =
        port.getIsInport() ? port.QVariantToOutPort(value, error, true) : port.QVariantToInPort(value, error, true);
    if (!target)
        throw Exception(error);
    MO_Port* own = port.getPort();
    if (!own)
        throw Exception(tr("Unable to find this port."));
    MO_Node* targetNode = target->node();
    if (!targetNode)
        throw Exception(tr("Unable to find the target port or node."));
    if (targetNode == node)
        throw Exception(tr("Unable to connect a node to itself."));

    MO_Port* inPort = own;
    MO_Port* outPort = target;
    MO_Node* inNode = node;
    MO_Node* outNode = targetNode;
    if (port.getIsOutport()) {
        std::swap(inPort, outPort);
        std::swap(inNode, outNode);
    }
    const int place = Port::inPortIdxFromPort(inPort);
    if (place < 0)
        BaseObject::throwUnexpected();

    if (const auto index = static_cast<unsigned int>(place); inPort->srcPort() != outPort) {
        if (inPort->srcPort())
            undo::run(manager, new tu_node::UnlinkInPortFromOutsideCmd(inNode, index), tr("Unlinking in-port node."),
                      tr("In-port node must be unlinked first."));
        if (!inPort->isLinkable(outPort))
            throw Exception(tr("The ports are unable to be linked."));
        const auto outIndex = static_cast<unsigned int>(Port::outPortIdxFromPort(outPort));
        undo::run(manager, new tu_node::LinkCmd(inNode, index, outNode, outIndex, nullptr), tr("Linking nodes."),
                  tr("Failed to link nodes."));
    }
    const OutPort source(outNode, outPort->id());
    const InPort destination(inNode, inPort->id());
    return Obj(new Cable(&source, &destination));
}

} // namespace OMC
