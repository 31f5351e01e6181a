#include "core/nodes/portargument.h"

#include "core/frame/unexpected.h"
#include "core/host/sc_scene.h"
#include "core/host/tu_node.h"
#include "core/nodes/groupnode.h"
#include "core/nodes/indexargument.h"
#include "core/nodes/port.h"
#include "core/nodes/portside.h"

namespace OMC {

namespace {

/// The differences between naming an in-port and naming an out-port.
struct ArgumentRules {
    const PortSide& side;
    const char* noneGiven;
    const char* wrongSide;
    const char* addLabel;
    const char* addFailed;
    /// Whether a new port is what is asked for.
    bool (*adds)(MO_PortMode mode, bool indexGiven, bool createIfNeeded);
    Obj (*insideNode)(const GroupNode& group);
    CO_Command* (*addCommand)(MO_Node* target, unsigned int index, std::unique_ptr<MO_Port> port);
    bool freeOnly; ///< An in-port takes one source; an out-port feeds any number of in-ports.
};

constexpr ArgumentRules inPortRules{
    inPortSide,
    QT_TRANSLATE_NOOP("OMC::Port", "No in-port has been specified."),
    QT_TRANSLATE_NOOP("OMC::Port", "Expected an in-port, but received an out-port."),
    QT_TRANSLATE_NOOP("OMC::Port", "Add in-port to the node."),
    QT_TRANSLATE_NOOP("OMC::Port", "Failed to create a new port on the input node."),
    [](MO_PortMode mode, bool indexGiven, bool createIfNeeded) {
        return createIfNeeded && !indexGiven &&
               (mode == MO_DynamicInPorts || mode == MO_DynamicInPortsOnly || mode == MO_DynamicPorts);
    },
    [](const GroupNode& group) { return group.getMultiPortIn(); },
    [](MO_Node* target, unsigned int index, std::unique_ptr<MO_Port> port) -> CO_Command* {
        return new tu_node::AddInPortCmd(target, index, std::move(port));
    },
    true};

constexpr ArgumentRules outPortRules{
    outPortSide, QT_TRANSLATE_NOOP("OMC::Port", "No out-port has been specified."),
    QT_TRANSLATE_NOOP("OMC::Port", "Expected an out-port, but received an in-port."),
    QT_TRANSLATE_NOOP("OMC::Port", "Add out-port to the node."),
    QT_TRANSLATE_NOOP("OMC::Port", "Failed to create a new port on the output node."),
    // Required: a group answers every request for an out-port with a new one, index and flag or not; scripts that link
    // from a group rely on a port of their own.
    [](MO_PortMode mode, bool indexGiven, bool createIfNeeded) {
        return mode == MO_DynamicPorts || (createIfNeeded && !indexGiven && mode == MO_DynamicOutPortsOnly);
    },
    [](const GroupNode& group) { return group.getMultiPortOut(); },
    [](MO_Node* target, unsigned int index, std::unique_ptr<MO_Port> port) -> CO_Command* {
        return new tu_node::AddOutPortCmd(target, index, std::move(port));
    },
    false};

struct Target {
    MO_Node* node = nullptr;
    int index = -1; ///< Negative: none given.
};

/// A node object or a path, absolute or relative to the group of `own`. Another value leaves the target without a node.
bool readNode(const MO_Node& own, const QVariant& value, Target& target, QString& error)
{
    if (const auto* node = objectFrom<Node>(value)) {
        target.node = node->getNode();
    } else if (value.typeId() == QMetaType::QString) {
        const QString path = value.toString();
        target.node = node_util::getNodeFromQualifiedName_optimized(own.sceneCommon(), path);
        if (const TUGroup* group = own.parentGroup(); !target.node && group)
            target.node = node_util::getNodeFromQualifiedName(group, path, false);
    } else {
        return true;
    }
    if (!target.node)
        error = Port::tr("Unable to find the target node.");
    return target.node;
}

bool readList(const MO_Node& own, const QVariantList& values, Target& target, QString& error)
{
    if (values.isEmpty()) {
        error = Port::tr("No port or node specified.");
        return false;
    }
    if (!readNode(own, values.at(0), target, error))
        return false;
    if (values.size() < 2)
        return true;
    const QVariant& index = values.at(1);
    bool isNumber = fitsIndex(index);
    if (isNumber)
        target.index = index.toInt(&isNumber);
    if (!isNumber)
        error = Port::tr("Unable to find the target index.");
    return isNumber;
}

MO_Port* addPort(const Port& port, const ArgumentRules& rules, MO_Node* target, QString& error)
{
    CO_CommandManager* manager = port.getNode()->sceneCommon()->commandManager();
    if (!manager) {
        error = unexpected::text(unexpected::ErrorOccurred);
        return nullptr;
    }
    if (TUGroup* group = target->group())
        rules.insideNode(GroupNode(group));
    // Required: the number of in-ports is the place of a new out-port as well; what a group shows depends on it.
    const unsigned int index = target->nInPorts();
    const MO_Port* model = port.getPort();
    MO_Port* added = nullptr;
    if (model && manager->execute(rules.addCommand(target, index, model->clone()), Port::tr(rules.addLabel)))
        added = (target->*rules.side.at)(index);
    if (!added)
        error = Port::tr(rules.addFailed);
    return added;
}

MO_Port* findFitting(const Port& port, const ArgumentRules& rules, const MO_Node& target, QString& error)
{
    const MO_Port* model = port.getPort();
    const QString type = model ? model->typeName() : QString();
    bool allTaken = false;
    for (unsigned int index = 0; model && index < (target.*rules.side.count)(); ++index) {
        MO_Port* candidate = (target.*rules.side.at)(index);
        if (!candidate || candidate->typeName() != type)
            continue;
        if (!rules.freeOnly || !candidate->srcPort())
            return candidate;
        allTaken = true;
    }
    error = allTaken ? Port::tr("Target has no available ports that can be linked. Unlink a port first.")
                     : Port::tr("Failed to identify specified port.");
    return nullptr;
}

} // namespace

MO_Port* portFromArgument(const Port& port, const QVariant& value, bool isInPort, QString& error, bool createIfNeeded)
{
    const ArgumentRules& rules = isInPort ? inPortRules : outPortRules;
    if (value.isNull()) {
        error = Port::tr(rules.noneGiven);
        return nullptr;
    }
    const MO_Node& own = *port.getNode();
    if (!own.sceneCommon())
        unexpected::fail();

    if (const auto* named = objectFrom<Port>(value)) {
        MO_Port* found = nullptr;
        if (named->getIsInport() != isInPort)
            error = Port::tr(rules.wrongSide);
        else if (found = named->getPort(); !found)
            error = Port::tr("Failed to identify specified port.");
        return found;
    }

    Target target;
    const bool isRead = value.typeId() == QMetaType::QVariantList ? readList(own, value.toList(), target, error)
                                                                  : readNode(own, value, target, error);
    if (!isRead)
        return nullptr;
    if (!target.node) {
        error = Port::tr("Failed to identify specified port.");
        return nullptr;
    }
    if (rules.adds(target.node->portMode(), target.index >= 0, createIfNeeded))
        return addPort(port, rules, target.node, error);
    if (target.index < 0)
        return findFitting(port, rules, *target.node, error);
    MO_Port* found = (target.node->*rules.side.at)(static_cast<unsigned int>(target.index));
    if (!found)
        error = Port::tr("There is no port at the provided index on the target node.");
    return found;
}

} // namespace OMC
