#include "engine/graph/nodetype.h"

#include "tests/engine/support/memoryproject.h"

namespace {

struct ExpectedType {
    const char* name;
    const char* defaultName;
    MO_PortMode mode;
    const char* inPorts; ///< A letter a port: i image, m matte image, p peg.
    const char* outPorts;
};

constexpr ExpectedType expectedTypes[] = {
    {"READ", "Drawing", MO_FixedPorts, "p", "i"},
    {"PEG", "Peg", MO_FixedPorts, "p", "p"},
    {"CAMERA", "Camera", MO_FixedPorts, "p", ""},
    {"DISPLAY", "Display", MO_FixedPorts, "i", "i"},
    {"COMPOSITE", "Composite", MO_DynamicInPorts, "i", "i"},
    {"WRITE", "Write", MO_FixedPorts, "i", "i"},
    {"MULTIPORT_IN", "Multi-Port-In", MO_DynamicOutPortsOnly, "", ""},
    {"MULTIPORT_OUT", "Multi-Port-Out", MO_DynamicInPortsOnly, "", ""},
    {"COLOR_CARD", "Colour-Card", MO_FixedPorts, "", "i"},
    {"BLUR", "Blur", MO_FixedPorts, "i", "i"},
    {"CUTTER", "Cutter", MO_FixedPorts, "mi", "i"},
};

QString letter(const MO_Port& port)
{
    if (port.typeName() == "PEG")
        return "p";
    return port.isMattePort() ? "m" : "i";
}

class NodeTypeTest : public testing::TestWithParam<ExpectedType> {
protected:
    std::unique_ptr<MO_Module> create(const QString& type)
    {
        bool flag = true;
        std::unique_ptr<MO_Module> node(TUGroup::createNode(type, 1, 2, 3, flag, nullptr));
        EXPECT_TRUE(flag);
        return node;
    }
};

/// Notes the kind of the last node that it was handed.
class KindVisitor final : public MO_ModuleVisitor {
public:
    void visit(MO_Module&) override { kind = "module"; }
    void visit(TUPegModule&) override { kind = "peg"; }
    void visit(TUCameraModule&) override { kind = "camera"; }
    void visit(TUDisplayModule&) override { kind = "display"; }
    void visit(MO_ElementModule&) override { kind = "element"; }
    void visit(TUMultiPortIn&) override { kind = "multi-port-in"; }
    void visit(TUMultiPortOut&) override { kind = "multi-port-out"; }
    void visit(TUGroup&) override { kind = "group"; }

    QString kind;
};

} // namespace

TEST_P(NodeTypeTest, ANewNodeHasTheNameAndThePortsOfItsType)
{
    const auto node = create(GetParam().name);
    ASSERT_TRUE(node);
    EXPECT_EQ(node->typeName(), GetParam().name);
    EXPECT_EQ(node->defaultInstanceName(), GetParam().defaultName);
    EXPECT_EQ(node->portMode(), GetParam().mode);
    QString ins, outs;
    for (unsigned int i = 0; i < node->nInPorts(); ++i)
        ins += letter(*node->inPort(i));
    for (unsigned int i = 0; i < node->nOutPorts(); ++i)
        outs += letter(*node->outPort(i));
    EXPECT_EQ(ins, GetParam().inPorts);
    EXPECT_EQ(outs, GetParam().outPorts);
    EXPECT_EQ(node->hasImageOutput(), outs.contains('i'));
    EXPECT_EQ(node->x(), 1);
    EXPECT_EQ(node->y(), 2);
    EXPECT_EQ(node->z(), 3);
    EXPECT_TRUE(node->isEnabled());
    EXPECT_EQ(node->version(), 1);
    EXPECT_EQ(node->versionMax(), 1);
    EXPECT_EQ(node->module(), node.get());
    EXPECT_EQ(node->group(), nullptr);
    EXPECT_EQ(node->sceneCommon(), nullptr);
    EXPECT_EQ(node->parentGroup(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(All, NodeTypeTest, testing::ValuesIn(expectedTypes),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(NodeTypeTest, ANewNodeHasTheColourOfItsType)
{
    const QColor colour = create(GetParam().name)->getNodeColor();
    EXPECT_TRUE(colour.isValid());
    EXPECT_EQ(colour.alpha(), 255);
    EXPECT_EQ(colour, create(GetParam().name)->getNodeColor());
}

TEST_F(NodeTypeTest, NodesThatDoDifferentThingsDifferInColour)
{
    QList<QRgb> colours;
    for (const char* type : {"READ", "PEG", "CAMERA", "COMPOSITE", "MULTIPORT_IN"}) {
        const QRgb colour = create(type)->getNodeColor().rgb();
        EXPECT_FALSE(colours.contains(colour)) << type;
        colours.append(colour);
    }
    const std::unique_ptr<TUGroup> group(TUGroup::create());
    EXPECT_EQ(group->getNodeColor(), create("MULTIPORT_IN")->getNodeColor());
}

TEST_F(NodeTypeTest, GroupsAndUnknownTypesAreNotMadeByType)
{
    for (const char* type : {"GROUP", "peg", "", "NO_SUCH_TYPE", "PEG "})
        EXPECT_FALSE(create(type)) << type;
}

TEST_F(NodeTypeTest, ANodeIsVisitedAsWhatItIs)
{
    const std::pair<const char*, const char*> kinds[] = {
        {"READ", "element"},
        {"PEG", "peg"},
        {"CAMERA", "camera"},
        {"DISPLAY", "display"},
        {"COMPOSITE", "module"},
        {"WRITE", "module"},
        {"BLUR", "module"},
        {"CUTTER", "module"},
        {"COLOR_CARD", "module"},
        {"MULTIPORT_IN", "multi-port-in"},
        {"MULTIPORT_OUT", "multi-port-out"},
    };
    for (const auto& [type, kind] : kinds) {
        KindVisitor visitor;
        create(type)->accept(visitor);
        EXPECT_EQ(visitor.kind, kind) << type;
    }
    const std::unique_ptr<TUGroup> group(TUGroup::create());
    KindVisitor visitor;
    group->accept(visitor);
    EXPECT_EQ(visitor.kind, "group");
    EXPECT_EQ(group->typeName(), "GROUP");
    EXPECT_EQ(group->portMode(), MO_DynamicPorts);
    EXPECT_EQ(group->group(), group.get());
    EXPECT_EQ(group->module(), nullptr);
    EXPECT_EQ(group->instanceName(), "");
}

TEST_F(NodeTypeTest, OnlyNodesThatMakeTheirInPortsAreCastToSuchModules)
{
    for (const ExpectedType& type : expectedTypes) {
        const auto node = create(type.name);
        const bool makesThem = node->typeName() == "COMPOSITE" || node->typeName() == "MULTIPORT_OUT";
        EXPECT_EQ(MO_AutoInPortsModule::castTo(node.get()) != nullptr, makesThem) << type.name;
        EXPECT_EQ(node->isModeMultiInPort(), node->typeName() == "MULTIPORT_OUT") << type.name;
    }
    EXPECT_EQ(MO_AutoInPortsModule::castTo(nullptr), nullptr);
}
