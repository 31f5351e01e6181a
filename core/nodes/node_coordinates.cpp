#include "core/nodes/node_coordinates.h"

#include "core/frame/undo.h"
#include "core/host/mo_node.h"
#include "core/host/tu_node.h"

#include <algorithm>
#include <limits>

namespace OMC {

Node_Coordinates::Node_Coordinates(MO_Node* node) : m_node(node) {}

Node_Coordinates::Node_Coordinates(const Node_Coordinates& other) : BaseObject(other), m_node(other.m_node) {}

BaseObject* Node_Coordinates::copy() const
{
    return new Node_Coordinates(*this);
}

// The engine's y, 32 more than the property's: required, scripts parse this text.
std::string Node_Coordinates::__str__() const
{
    const MO_Node& node = this->node();
    return QStringLiteral("NodeCoordinates(%1, %2, %3)").arg(node.x()).arg(node.y()).arg(node.z()).toStdString();
}

void Node_Coordinates::setX(int x)
{
    MO_Node& node = this->node();
    undo::manager(node.sceneCommon())
        .execute(new tu_node::SetXYCmd(&node, x, node.y()), tr("Set X position of ") + node.instanceName());
}

int Node_Coordinates::getX() const
{
    return node().x();
}

void Node_Coordinates::setY(int y)
{
    MO_Node& node = this->node();
    if (y > std::numeric_limits<int>::max() - networkOffset)
        throwInvalidArgument(0);
    undo::manager(node.sceneCommon())
        .execute(new tu_node::SetXYCmd(&node, node.x(), y + networkOffset),
                 tr("Set Y position of ") + node.instanceName());
}

int Node_Coordinates::getY() const
{
    return std::max(node().y(), std::numeric_limits<int>::min() + networkOffset) - networkOffset;
}

void Node_Coordinates::setZ(int z)
{
    MO_Node& node = this->node();
    CO_CommandManager& manager = undo::manager(node.sceneCommon());
    undo::run(manager, new tu_node::SetXYZCmd(&node, node.x(), node.y(), z),
              tr("Set Z position of ") + node.instanceName(), tr("Failed to set the node's position."));
}

int Node_Coordinates::getZ() const
{
    return node().z();
}

void Node_Coordinates::validate() const
{
    if (!m_node.get())
        throwInvalid();
}

MO_Node& Node_Coordinates::node() const
{
    validate();
    return *m_node.get();
}

} // namespace OMC
