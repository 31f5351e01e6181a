#include "engine/graph/nodetype.h"

namespace brindle::engine {

namespace {

constexpr PortSpec image{PortKind::Image, false};
constexpr PortSpec matte{PortKind::Image, true};
constexpr PortSpec peg{PortKind::Peg, false};

using Text = QStringView;
using Ports = std::initializer_list<PortSpec>;

constexpr NodeType dynamic(Text name, Text defaultName, NodeClass nodeClass, MO_PortMode portMode, Text purpose,
                           Text effect)
{
    return {name, defaultName, purpose, effect, nodeClass, portMode};
}

constexpr NodeType fixed(Text name, Text defaultName, NodeClass nodeClass, Ports in, Ports out, Text purpose,
                         Text effect)
{
    NodeType type{name, defaultName, purpose, effect, nodeClass};
    type.inPortCount = static_cast<int>(in.size());
    std::copy(in.begin(), in.end(), type.inPorts.begin());
    type.outPortCount = static_cast<int>(out.size());
    std::copy(out.begin(), out.end(), type.outPorts.begin());
    return type;
}

constexpr NodeType makingInPorts(NodeType type)
{
    type.makesInPorts = true;
    return type;
}

constexpr NodeType withHandles(int count, NodeType type)
{
    type.handleCount = count;
    return type;
}

constexpr NodeType compositing(NodeType type)
{
    type.portMode = MO_DynamicInPorts;
    type.imagePortsOnly = true;
    return makingInPorts(type);
}

constexpr NodeType groupType = dynamic(u"GROUP", u"Group", NodeClass::Group, MO_DynamicPorts,
                                       u"Holds nodes. Its ports are the outside of the multi-port nodes in it.",
                                       u"Shows what its first out-port is fed inside. Disabled, each out-port gives "
                                       u"what the in-port at the same place is fed.");
constexpr NodeType multiPortInType =
    dynamic(u"MULTIPORT_IN", u"Multi-Port-In", NodeClass::MultiPortIn, MO_DynamicOutPortsOnly,
            u"Gives inside a group what the group's in-ports are fed.", u"");
constexpr NodeType multiPortOutType =
    makingInPorts(dynamic(u"MULTIPORT_OUT", u"Multi-Port-Out", NodeClass::MultiPortOut, MO_DynamicInPortsOnly,
                          u"Takes inside a group what the group's out-ports give.", u""));

constexpr NodeClass module = NodeClass::Module;

constexpr int pegHandles = 7;    // Position, rotation, scale in x, in y and in both, skew, pivot.
constexpr int cameraHandles = 4; // Position, rotation, zoom, pivot.
constexpr int frameHandles = 4;  // The corners of a picture.

constexpr std::array nodeTypes{
    fixed(u"READ", u"Drawing", NodeClass::Element, {peg}, {image}, u"Shows the drawings of an element.",
          u"Draws what is exposed at the frame: the art layers underlay, colour, line and overlay, each over the one "
          u"before it, faded by the opacities of the node and of the element. A vector drawing is placed by its field "
          u"chart, a picture of pixels is as high as the chart. Colours come from the project's palettes; one that no "
          u"palette has paints nothing."),
    withHandles(pegHandles,
                fixed(u"PEG", u"Peg", NodeClass::Peg, {peg}, {peg}, u"Moves, scales and turns what is linked below it.",
                      u"Shows nothing of itself: drawings below it are drawn once, at the place that their chain of "
                      u"pegs gives.")),
    withHandles(cameraHandles,
                fixed(u"CAMERA", u"Camera", NodeClass::Camera, {peg}, {},
                      u"The view of the scene that becomes its picture.",
                      u"Shows nothing of itself: the scene's camera decides which part of the scene a picture holds. "
                      u"The field chart fills the picture's height, or its width where the resolution fits that.")),
    fixed(u"DISPLAY", u"Display", NodeClass::Display, {image}, {image}, u"Shows the picture that it is fed.",
          u"Lets the picture through; what the scene's display shows are the frames of the scene."),
    compositing(
        fixed(u"COMPOSITE", u"Composite", module, {image}, {image}, u"Lays pictures over each other.",
              u"Lays the pictures over each other in the order of its ports, the first one lowest, by the formulas of "
              u"the W3C's Compositing and Blending for its mode. Disabled, it lets the first one through.")),
    fixed(u"WRITE", u"Write", module, {image}, {image}, u"Writes the picture that it is fed to image files.",
          u"Lets the picture through; rendering writes a file for each frame where its path says."),
    groupType,
    multiPortInType,
    multiPortOutType,
    withHandles(frameHandles, fixed(u"COLOR_CARD", u"Colour-Card", module, {}, {image}, u"A picture of one colour.",
                                    u"Fills the whole picture with the colour.")),
    fixed(u"BLUR", u"Blur", module, {image}, {image}, u"Blurs the picture that it is fed.",
          u"Softens the picture by a bell curve whose standard deviation is half the radius; the radius is in pixels "
          u"of the project's resolution, and larger or smaller with the picture."),
    withHandles(frameHandles,
                fixed(u"CUTTER", u"Cutter", module, {matte, image}, {image}, u"Cuts a picture by a matte.",
                      u"Multiplies the picture by the matte's alpha, or where it is inverted by what is left of 1. "
                      u"Without a matte nothing stays; inverted, everything does.")),
};

} // namespace

QStringView portKindName(PortKind kind)
{
    return kind == PortKind::Image ? QStringView(u"IMAGE") : QStringView(u"PEG");
}

QRgb nodeColour(NodeClass nodeClass)
{
    switch (nodeClass) {
    case NodeClass::Element:
        return 0xff5b8fc7; // Blue: drawings.
    case NodeClass::Peg:
        return 0xff7fb069; // Green: movement.
    case NodeClass::Camera:
    case NodeClass::Display:
        return 0xff8d99ae; // Grey: where the picture is seen from, and where.
    case NodeClass::Group:
    case NodeClass::MultiPortIn:
    case NodeClass::MultiPortOut:
        return 0xffc9b458; // Ochre: what holds other nodes together.
    case NodeClass::Module:
        break;
    }
    return 0xffb497d6; // Violet: what changes pictures.
}

std::span<const NodeType> allNodeTypes()
{
    return nodeTypes;
}

const NodeType* findNodeType(QStringView name)
{
    const auto found =
        std::find_if(nodeTypes.begin(), nodeTypes.end(), [name](const NodeType& type) { return type.name == name; });
    return found == nodeTypes.end() ? nullptr : &*found;
}

const NodeType& groupNodeType()
{
    return groupType;
}

const NodeType& multiPortInNodeType()
{
    return multiPortInType;
}

const NodeType& multiPortOutNodeType()
{
    return multiPortOutType;
}

QString sharedText(QStringView text)
{
    return QString::fromRawData(text.data(), text.size());
}

} // namespace brindle::engine
