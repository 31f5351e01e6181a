#include "core/nodes/node_colour.h"

#include "core/frame/undo.h"
#include "core/host/mo_node.h"
#include "core/host/tu_node.h"

#include <QColor>

#include <algorithm>

namespace OMC {

Node_Colour::Node_Colour(MO_Node* node) : EngineView(node) {}

std::string Node_Colour::__str__() const
{
    return tr("NodeColour(%1)").arg(target().qualifiedName()).toStdString();
}

void Node_Colour::setR(int value)
{
    setChannel(&QColor::setRed, value);
}

int Node_Colour::getR() const
{
    return target().getNodeColor().red();
}

void Node_Colour::setG(int value)
{
    setChannel(&QColor::setGreen, value);
}

int Node_Colour::getG() const
{
    return target().getNodeColor().green();
}

void Node_Colour::setB(int value)
{
    setChannel(&QColor::setBlue, value);
}

int Node_Colour::getB() const
{
    return target().getNodeColor().blue();
}

QString Node_Colour::getHex() const
{
    return target().getNodeColor().name();
}

void Node_Colour::setHex(const QString& text)
{
    change(QColor::fromString(text), tr("Set Node Color"));
}

void Node_Colour::reset()
{
    change(QColor(), tr("Reset Node Color"));
}

void Node_Colour::validate() const
{
    if (isGone())
        throwInvalid();
}

void Node_Colour::setChannel(Setter setter, int value)
{
    QColor colour = target().getNodeColor();
    (colour.*setter)(std::clamp(value, 0, 255));
    change(colour, tr("Set Node Color"));
}

void Node_Colour::change(const QColor& colour, const QString& label)
{
    MO_Node& node = target();
    CO_CommandManager& manager = undo::manager(node.sceneCommon());
    undo::run(manager, new tu_node::SetNodeColorCmd(&node, colour), label, tr("Failed to set the node color."));
}

} // namespace OMC
