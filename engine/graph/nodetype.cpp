#include "engine/graph/nodetype.h"

namespace brindle::engine {

namespace {

constexpr PortSpec image{PortKind::Image, false};
constexpr PortSpec matte{PortKind::Image, true};
constexpr PortSpec peg{PortKind::Peg, false};

constexpr NodeType groupType{u"GROUP", u"Group", NodeClass::Group, MO_DynamicPorts};
constexpr NodeType multiPortInType{u"MULTIPORT_IN", u"Multi-Port-In", NodeClass::MultiPortIn, MO_DynamicOutPortsOnly};
constexpr NodeType multiPortOutType{u"MULTIPORT_OUT", u"Multi-Port-Out", NodeClass::MultiPortOut, MO_DynamicInPortsOnly,
                                    true};

constexpr std::array nodeTypes{
    NodeType{u"READ", u"Drawing", NodeClass::Element, MO_FixedPorts, false, false, 1, {peg}, 1, {image}},
    NodeType{u"PEG", u"Peg", NodeClass::Peg, MO_FixedPorts, false, false, 1, {peg}, 1, {peg}},
    NodeType{u"CAMERA", u"Camera", NodeClass::Camera, MO_FixedPorts, false, false, 1, {peg}, 0, {}},
    NodeType{u"DISPLAY", u"Display", NodeClass::Display, MO_FixedPorts, false, false, 1, {image}, 1, {image}},
    NodeType{u"COMPOSITE", u"Composite", NodeClass::Module, MO_DynamicInPorts, true, true, 1, {image}, 1, {image}},
    NodeType{u"WRITE", u"Write", NodeClass::Module, MO_FixedPorts, false, false, 1, {image}, 1, {image}},
    groupType,
    multiPortInType,
    multiPortOutType,
    NodeType{u"COLOR_CARD", u"Colour-Card", NodeClass::Module, MO_FixedPorts, false, false, 0, {}, 1, {image}},
    NodeType{u"BLUR", u"Blur", NodeClass::Module, MO_FixedPorts, false, false, 1, {image}, 1, {image}},
    NodeType{u"CUTTER", u"Cutter", NodeClass::Module, MO_FixedPorts, false, false, 2, {matte, image}, 1, {image}},
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
