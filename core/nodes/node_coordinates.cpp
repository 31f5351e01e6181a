#include "core/nodes/node_coordinates.h"

#include "core/frame/undo.h"
#include "core/host/mo_node.h"
#include "core/host/tu_node.h"

#include <QStringBuilder>

#include <algorithm>
#include <limits>

namespace OMC {

namespace {

/// The label of a change of the node. A view of the name, as Qt joins two strings by growing the first one.
QString labelOf(const QString& change, const MO_Node& node)
{
    const QString name = node.instanceName();
    return change % QStringView(name);
}

} // namespace

Node_Coordinates::Node_Coordinates(MO_Node* node) : EngineView(node) {}

// The engine's y, 32 more than the property's: required, scripts parse this text.
std::string Node_Coordinates::__str__() const
{
    const MO_Node& node = target();
    return QStringLiteral("NodeCoordinates(%1, %2, %3)").arg(node.x()).arg(node.y()).arg(node.z()).toStdString();
}

void Node_Coordinates::setX(int x)
{
    MO_Node& node = target();
    undo::manager(node.sceneCommon())
        .execute(new tu_node::SetXYCmd(&node, x, node.y()), labelOf(tr("Set X position of "), node));
}

int Node_Coordinates::getX() const
{
    return target().x();
}

void Node_Coordinates::setY(int y)
{
    MO_Node& node = target();
    if (y > std::numeric_limits<int>::max() - networkOffset)
        throwInvalidArgument(0);
    undo::manager(node.sceneCommon())
        .execute(new tu_node::SetXYCmd(&node, node.x(), y + networkOffset), labelOf(tr("Set Y position of "), node));
}

int Node_Coordinates::getY() const
{
    return std::max(target().y(), std::numeric_limits<int>::min() + networkOffset) - networkOffset;
}

void Node_Coordinates::setZ(int z)
{
    MO_Node& node = target();
    CO_CommandManager& manager = undo::manager(node.sceneCommon());
    undo::run(manager, new tu_node::SetXYZCmd(&node, node.x(), node.y(), z), labelOf(tr("Set Z position of "), node),
              tr("Failed to set the node's position."));
}

int Node_Coordinates::getZ() const
{
    return target().z();
}

void Node_Coordinates::validate() const
{
    if (isGone())
        throwInvalid();
}

} // namespace OMC
