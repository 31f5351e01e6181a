#include "core/nodes/node.h"

#include "core/attributes/attributelist.h"
#include "core/frame/undo.h"
#include "core/geometry/point3d.h"
#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"
#include "core/host/tu_node.h"
#include "core/nodes/groupnode.h"
#include "core/nodes/multiportlist.h"
#include "core/nodes/node_coordinates.h"
#include "core/nodes/nodewrappervisitor.h"
#include "core/scene/scene.h"

#include <QStringList>

#include <limits>

namespace OMC {

namespace {

/// Cuts a coordinate to the engine's integers; refuses what they can't hold.
int truncated(double coordinate)
{
    constexpr double low = std::numeric_limits<int>::min();
    constexpr double high = std::numeric_limits<int>::max();
    if (!(coordinate > low - 1.0 && coordinate < high + 1.0))
        BaseObject::throwInvalidArgument(0);
    return static_cast<int>(coordinate);
}

} // namespace

Node::Node(MO_Node* node) : m_node(node) {}

Node::Node(const Node& other) : BaseObject(other), m_node(other.m_node) {}

Node* Node::getWrapped(MO_Node* node)
{
    if (!node)
        return nullptr;
    NodeWrapperVisitor visitor;
    node->accept(visitor);
    return visitor.take();
}

BaseObject* Node::copy() const
{
    return new Node(*this);
}

std::string Node::__str__() const
{
    return textAs("Node");
}

Obj Node::getAttributes() const
{
    return Obj(new AttributeList(&validNode(), QStringList(), AttributeList::AllOfLevel));
}

Obj Node::getPortsIn() const
{
    MO_Node& node = validNode();
    switch (node.portMode()) {
    case MO_DynamicInPorts:
    case MO_DynamicInPortsOnly:
    case MO_DynamicPorts:
        return Obj(new MultiInPortList(&node));
    case MO_DynamicOutPortsOnly:
        throw Exception(tr("Multi-In nodes do not support in-ports."));
    case MO_FixedPorts:
        break;
    }
    return Obj(new InPortList(&node));
}

Obj Node::getPortsOut() const
{
    MO_Node& node = validNode();
    switch (node.portMode()) {
    case MO_DynamicInPortsOnly:
        throw Exception(tr("The node does not support out-ports."));
    case MO_DynamicOutPortsOnly:
    case MO_DynamicPorts:
        return Obj(new MultiPortList(&node, false));
    case MO_FixedPorts:
    case MO_DynamicInPorts:
        break;
    }
    return Obj(new PortList(&node, false));
}

Obj Node::parentScene() const
{
    const SC_SceneCommon* scene = validNode().sceneCommon();
    if (!scene)
        throw Exception(tr("An unknwon exception has occurred."));
    return Obj(new Scene(dynamic_cast<TUScene*>(scene->timedValues())));
}

Obj Node::parentGroup() const
{
    return Obj(new GroupNode(validNode().parentGroup()));
}

QString Node::getName() const
{
    return validNode().instanceName();
}

void Node::setName(const QString& name)
{
    MO_Node& node = validNode();
    CO_CommandManager& manager = undo::manager(node.sceneCommon(), tr("An unexpected error occurred."));
    // The label has the name as it was given, not as the engine takes it: required, people look for what they typed.
    undo::run(manager, new tu_node::SetInstanceNameCmd(&node, TUModuleNameValidator::getValidName(name)),
              tr("Rename ") + node.instanceName() + tr(" to ") + name, tr("Failed to rename the node."));
}

QString Node::getPath() const
{
    return validNode().qualifiedName();
}

QString Node::getType() const
{
    return validNode().typeName();
}

// The coordinates of an invalid node are invalid themselves and say so at their first use.
QVariant Node::getPosition() const
{
    return toVariant(Obj(new Node_Coordinates(getNode())));
}

void Node::setPosition(const QVariant& position) const
{
    MO_Node& node = validNode();
    double x = 0.0;
    double y = 0.0;
    double z = node.z();
    Point3d::ConvertQVariant(position, x, y, z);
    truncated(y);
    const int engineX = truncated(x);
    const int engineY = truncated(y + double(Node_Coordinates::networkOffset));
    const int engineZ = truncated(z);
    CO_CommandManager& manager = undo::manager(node.sceneCommon(), tr("An unexpected error occurred."));
    // The label names x though all three are set: required, the undo list has always said so.
    undo::run(manager, new tu_node::SetXYZCmd(&node, engineX, engineY, engineZ),
              tr("Set X position of ") + node.instanceName(), tr("Failed to set the node's position."));
}

bool Node::getEnabled() const
{
    return validNode().isEnabled();
}

void Node::setEnabled(bool enabled)
{
    MO_Node& node = validNode();
    // One label for both values, and a refusal is silent: required as it is.
    undo::manager(node.sceneCommon(), tr("An unexpected error occurred."))
        .execute(new tu_node::EnabledNodeCmd(&node, enabled), tr("Enable ") + node.instanceName());
}

bool Node::getValid() const
{
    return getNode() != nullptr;
}

bool Node::__eq__(const Obj& other) const
{
    const MO_Node& node = validNode();
    const Node* wrapper = objectIn<Node>(other);
    return wrapper && wrapper->getNode() == &node;
}

MO_Node* Node::getNode() const
{
    return m_node.get();
}

void Node::validate() const
{
    if (!m_node.get())
        throw Exception(tr("Node is no longer valid. Node may have been moved or deleted."));
    validateThreadLock();
}

MO_Node& Node::validNode() const
{
    validate();
    return *m_node.get();
}

std::string Node::textAs(const char* className) const
{
    return (QLatin1String(className) + QLatin1Char('(') + validNode().qualifiedName() + QLatin1Char(')')).toStdString();
}

} // namespace OMC
