#include "core/nodes/node.h"

#include "core/attributes/attributelist.h"
#include "core/geometry/point2d.h"
#include "core/geometry/point3d.h"
#include "core/geometry/rectangles.h"
#include "core/host/mo_backdrop.h"
#include "core/host/sc_session.h"
#include "core/nodes/groupnode.h"
#include "core/nodes/node_coordinates.h"
#include "core/scene/scene.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"
#include "tests/core/support/standinnode.h"

#include <gtest/gtest.h>

#include <QPointF>

#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace {

using OMC::Node;
using OMC::Obj;

/// A wrapper that the test keeps.
std::unique_ptr<Node> wrapped(MO_Node* node)
{
    return std::unique_ptr<Node>(Node::getWrapped(node));
}

class NodeTest : public GraphTest {
protected:
    std::unique_ptr<Node> wrapped(const QString& path) const { return ::wrapped(node(path)); }

    QVariant read(Node& node, const char* property)
    {
        bool found = false;
        const QVariant value = node.getAttr(property, found);
        EXPECT_TRUE(found) << property;
        return value;
    }

    MO_Node* composite = node(QStringLiteral("Top/Composite"));
    std::unique_ptr<Node> wrapper = wrapped(QStringLiteral("Top/Composite"));
};

TEST_F(NodeTest, ItsPropertiesComeInOneOrder)
{
    bool extendNative = false;
    bool filter = false;
    const std::vector<std::string> expected = {"objectName",  "attributes", "ports_in",   "ports_out",
                                               "name",        "path",       "type",       "position",
                                               "width",       "height",     "rect",       "enabled",
                                               "cached",      "locked",     "colour",     "cacheable",
                                               "version_max", "version",    "matte_port", "thumbnail_timeline",
                                               "data",        "metadata",   "valid",      "subselections"};
    EXPECT_EQ(wrapper->getDir(extendNative, filter), expected);
}

TEST_F(NodeTest, ItsPropertiesTellWhatTheNodeIs)
{
    MO_Node* blur = add(QStringLiteral("BLUR"), QStringLiteral("Soft"), addGroup(QStringLiteral("Body")));
    const auto node = ::wrapped(blur);
    EXPECT_EQ(read(*node, "name"), QStringLiteral("Soft"));
    EXPECT_EQ(read(*node, "path"), QStringLiteral("Top/Body/Soft"));
    EXPECT_EQ(read(*node, "type"), QStringLiteral("BLUR"));
    EXPECT_EQ(read(*node, "enabled"), true);
    EXPECT_EQ(read(*node, "valid"), true);
    EXPECT_EQ(node->__str__(), "Node(Top/Body/Soft)");
}

TEST_F(NodeTest, ItsTextTakesAnyName)
{
    MO_Node* odd = add(QStringLiteral("BLUR"), QStringLiteral("%1 of 100%2"));
    EXPECT_EQ(::wrapped(odd)->__str__(), "Node(Top/%1 of 100%2)");
}

TEST_F(NodeTest, ItsAttributesAreThoseOfTheNode)
{
    const auto peg = ::wrapped(add(QStringLiteral("PEG"), QStringLiteral("Peg")));
    const QVariant value = read(*peg, "attributes");
    const auto* attributes = readAs<OMC::AttributeList>(value);
    ASSERT_NE(attributes, nullptr);
    EXPECT_TRUE(attributes->contains(QStringLiteral("position.x")));
}

TEST_F(NodeTest, ThePortModeDecidesTheClassOfItsPortLists)
{
    const struct {
        MO_PortMode mode;
        std::string in;
        std::string out;
    } rows[] = {
        {MO_FixedPorts, "OMC::InPortList", "OMC::PortList"},
        {MO_DynamicInPorts, "OMC::MultiInPortList", "OMC::PortList"},
        {MO_DynamicInPortsOnly, "OMC::MultiInPortList", "The node does not support out-ports."},
        {MO_DynamicOutPortsOnly, "Multi-In nodes do not support in-ports.", "OMC::MultiPortList"},
        {MO_DynamicPorts, "OMC::MultiInPortList", "OMC::MultiPortList"},
        {static_cast<MO_PortMode>(7), "OMC::InPortList", "OMC::PortList"},
    };
    const auto classOf = [](Node& node, const char* property) -> std::string {
        bool found = false;
        try {
            const QVariant value = node.getAttr(property, found);
            return OMC::objectFrom<OMC::BaseObject>(value)->metaObject()->className();
        } catch (const OMC::Exception& exception) {
            return exception.what();
        }
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.mode);
        StandInNode standIn;
        standIn.mode = row.mode;
        const auto node = ::wrapped(&standIn);
        EXPECT_EQ(classOf(*node, "ports_in"), row.in);
        EXPECT_EQ(classOf(*node, "ports_out"), row.out);
    }
}

TEST_F(NodeTest, ARenameIsOneUndoableStepAndKeepsEveryWrapper)
{
    const auto second = wrapped(QStringLiteral("Top/Composite"));
    const QStringList before = labels();
    bool found = false;
    wrapper->setAttr("name", QStringLiteral("Sum"), found);
    EXPECT_TRUE(found);
    EXPECT_EQ(labels(), before + QStringList(QStringLiteral("Rename Composite to Sum")));
    EXPECT_EQ(second->getPath(), QStringLiteral("Top/Sum"));
    undo();
    EXPECT_EQ(second->getName(), QStringLiteral("Composite"));
    EXPECT_EQ(labels(), before);
    redo();
    EXPECT_EQ(wrapper->getName(), QStringLiteral("Sum"));
    EXPECT_TRUE(second->getValid());
}

TEST_F(NodeTest, ANameIsMadeValidButItsLabelHasWhatWasGiven)
{
    const QString name = QStringLiteral(" a/b\n");
    wrapper->setName(name);
    EXPECT_EQ(wrapper->getName(), TUModuleNameValidator::getValidName(name));
    EXPECT_FALSE(wrapper->getName().contains(QLatin1Char('/')));
    EXPECT_EQ(labels().last(), QStringLiteral("Rename Composite to ") + name);
    undo();
    EXPECT_EQ(wrapper->getName(), QStringLiteral("Composite"));
}

TEST_F(NodeTest, ARenameThatIsRefusedChangesNothing)
{
    const QStringList before = labels();
    EXPECT_EQ(failureOf([&] { wrapper->setName(QStringLiteral("Display")); }), "Failed to rename the node.");
    EXPECT_EQ(failureOf([&] { ::wrapped(top())->setName(QStringLiteral("Bottom")); }), "Failed to rename the node.");
    EXPECT_EQ(wrapper->getPath(), QStringLiteral("Top/Composite"));
    EXPECT_EQ(labels(), before);
}

TEST_F(NodeTest, EnablingAndDisablingHaveOneLabel)
{
    const QStringList before = labels();
    const QString label = QStringLiteral("Enable Composite");
    bool found = false;
    wrapper->setAttr("enabled", false, found);
    EXPECT_TRUE(found);
    EXPECT_FALSE(wrapper->getEnabled());
    EXPECT_EQ(labels(), before + QStringList(label));
    wrapper->setEnabled(true);
    EXPECT_TRUE(wrapper->getEnabled());
    EXPECT_EQ(labels(), before + QStringList({label, label}));
    undo();
    EXPECT_FALSE(wrapper->getEnabled());
    undo();
    EXPECT_TRUE(wrapper->getEnabled());
    EXPECT_EQ(labels(), before);
    redo();
    EXPECT_FALSE(wrapper->getEnabled());
}

TEST_F(NodeTest, ItsPositionIsAViewOfTheNode)
{
    composite->setX(1);
    composite->setY(2);
    composite->setZ(3);
    const QVariant position = read(*wrapper, "position");
    const auto* coordinates = readAs<OMC::Node_Coordinates>(position);
    ASSERT_NE(coordinates, nullptr);
    composite->setX(4);
    EXPECT_EQ(coordinates->__str__(), "NodeCoordinates(4, 2, 3)");
}

TEST_F(NodeTest, APositionOfAnyFormIsSetInOneUndoableStep)
{
    MO_Node* other = add(QStringLiteral("PEG"), QStringLiteral("Peg"));
    other->setX(70);
    other->setY(80);
    other->setZ(90);
    const OMC::Node_Coordinates coordinates(other);
    const struct {
        const char* name;
        QVariant value;
        int x, y, z; // of the engine
    } rows[] = {
        {"a point in the plane keeps z", QVariant::fromValue(OMC::Point2d(10.0, 20.0)), 10, 52, 3},
        {"a point in space", QVariant::fromValue(OMC::Point3d(10.0, 20.0, 30.0)), 10, 52, 30},
        {"y of zero", QVariantList{0, 0}, 0, 32, 3},
        {"three numbers", QVariantList{1, -2, -3}, 1, 30, -3},
        {"one number is x, and y becomes 0", 9, 9, 32, 3},
        {"fractions are cut towards zero", QVariantList{-1.9, -33.5, 2.9}, -1, -1, 2},
        {"a point of Qt", QPointF(5.5, 6.5), 5, 38, 3},
        {"the coordinates of another node", asArgument(coordinates), 70, 80, 90},
        {"the last integers", QVariantList{2147483647.5, 2147483615, -2147483648.5}, std::numeric_limits<int>::max(),
         std::numeric_limits<int>::max(), std::numeric_limits<int>::min()},
    };
    composite->setX(1);
    composite->setY(2);
    composite->setZ(3);
    const QStringList before = labels();
    const auto place = [this] { return std::vector<int>{composite->x(), composite->y(), composite->z()}; };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        bool found = false;
        wrapper->setAttr("position", row.value, found);
        EXPECT_TRUE(found);
        const std::vector<int> expected = {row.x, row.y, row.z};
        EXPECT_EQ(place(), expected);
        EXPECT_EQ(labels(), before + QStringList(QStringLiteral("Set X position of Composite")));
        undo();
        EXPECT_EQ(place(), (std::vector<int>{1, 2, 3}));
        EXPECT_EQ(labels(), before);
        redo();
        EXPECT_EQ(place(), expected);
        undo();
    }
}

TEST_F(NodeTest, APositionThatCannotBeTakenChangesNothing)
{
    const auto other = ::wrapped(add(QStringLiteral("PEG"), QStringLiteral("Peg")));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const std::string unsupported = "Unsupported Point3D type.";
    const std::string invalid = "Invalid argument at index 0.";
    const struct {
        const char* name;
        QVariant value;
        std::string failure;
    } rows[] = {
        {"nothing", QVariant(), unsupported},
        {"a text", QStringLiteral("here"), unsupported},
        {"an empty list", QVariantList(), unsupported},
        {"a node", asArgument(*other), unsupported},
        {"x is no number", QVariantList{nan, 1, 2}, invalid},
        {"y is no number", QVariantList{1, nan, 2}, invalid},
        {"z is no number", QVariantList{1, 2, nan}, invalid},
        {"x is infinite", infinity, invalid},
        {"y is infinite", QVariantList{1, -infinity}, invalid},
        {"x is huge", 1e300, invalid},
        {"y is beyond the integers with the offset", QVariantList{1, 2147483616.0}, invalid},
        {"y is beyond the integers without it", QVariantList{1, -2147483649.0}, invalid},
        {"z is beyond the integers", QVariantList{1, 2, 2147483648.0}, invalid},
    };
    composite->setX(1);
    composite->setY(2);
    composite->setZ(3);
    const QStringList before = labels();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(failureOf([&] { wrapper->setPosition(row.value); }), row.failure);
        EXPECT_EQ(composite->x(), 1);
        EXPECT_EQ(composite->y(), 2);
        EXPECT_EQ(composite->z(), 3);
        EXPECT_EQ(labels(), before);
    }
}

TEST_F(NodeTest, ItsSceneAndGroupAreReached)
{
    TUGroup* body = addGroup(QStringLiteral("Body"));
    const auto blur = ::wrapped(add(QStringLiteral("BLUR"), QStringLiteral("Soft"), body));
    const Obj parent = blur->parentGroup();
    const auto* group = OMC::objectIn<OMC::GroupNode>(parent);
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->getGroup(), body);
    const Obj found = blur->parentScene();
    const auto* wrappedScene = OMC::objectIn<OMC::Scene>(found);
    ASSERT_NE(wrappedScene, nullptr);
    EXPECT_EQ(wrappedScene->scene(), scene());
}

TEST_F(NodeTest, TheGroupAboveTheRootGroupIsAnInvalidOne)
{
    const Obj parent = ::wrapped(top())->parentGroup();
    const auto* group = OMC::objectIn<OMC::GroupNode>(parent);
    ASSERT_NE(group, nullptr);
    EXPECT_FALSE(group->getValid());
    EXPECT_EQ(failureOf([&] { (void)group->getName(); }), nodeGone);
}

TEST_F(NodeTest, WrappersOfOneNodeAreEqual)
{
    const Obj same(Node::getWrapped(composite));
    EXPECT_TRUE(wrapper->__eq__(same));
    EXPECT_TRUE(*wrapper == same);
    const auto root = ::wrapped(top());
    // A wrapper of another class on the same node.
    const Obj plain(Node(*root).copy());
    EXPECT_TRUE(root->__eq__(plain));

    EXPECT_FALSE(wrapper->__eq__(Obj(Node::getWrapped(top()))));
    EXPECT_FALSE(wrapper->__eq__(Obj()));
    EXPECT_FALSE(wrapper->__eq__(Obj(new OMC::BaseObject)));
    const Obj dead = root->parentGroup();
    EXPECT_FALSE(wrapper->__eq__(dead));
    EXPECT_EQ(failureOf([&] { OMC::objectIn<Node>(dead)->__eq__(dead); }), nodeGone);
}

TEST_F(NodeTest, ACopyIsAWrapperOfTheSameClassAndNode)
{
    for (const QString& path :
         {QStringLiteral("Top/Composite"), QStringLiteral("Top/Display"), QStringLiteral("Top")}) {
        const auto original = wrapped(path);
        const std::unique_ptr<OMC::BaseObject> copy(original->copy());
        EXPECT_STREQ(copy->metaObject()->className(), original->metaObject()->className());
        EXPECT_EQ(copy->__str__(), original->__str__());
        EXPECT_EQ(copy->getOwnership(), OMC::Unowned);
    }
}

TEST_F(NodeTest, NothingIsWrappedByNothing)
{
    EXPECT_EQ(Node::getWrapped(nullptr), nullptr);
}

/// Every use of a wrapper that asks for its node.
std::vector<std::function<void()>> usesOf(Node& node)
{
    return {
        [&] { node.getAttributes(); },
        [&] { node.getPortsIn(); },
        [&] { node.getPortsOut(); },
        [&] { node.parentScene(); },
        [&] { node.parentGroup(); },
        [&] { (void)node.getName(); },
        [&] { node.setName(QStringLiteral("Name")); },
        [&] { (void)node.getPath(); },
        [&] { (void)node.getType(); },
        [&] {
            node.setPosition(QVariantList{1, 2});
        },
        [&] { node.setPosition(QVariant()); },
        [&] { node.getEnabled(); },
        [&] { node.setEnabled(false); },
        [&] { node.getColour(); },
        [&] { node.setColour(QStringLiteral("red")); },
        [&] { node.__eq__(Obj()); },
        [&] { (void)node.__str__(); },
    };
}

TEST_F(NodeTest, AWrapperOfANodeThatWasRemovedSaysSoForEver)
{
    const auto copy = std::unique_ptr<OMC::BaseObject>(wrapper->copy());
    auto& copied = dynamic_cast<Node&>(*copy);
    SU_CleanUpCommands::removeNodes(scene(), {composite}, false);
    for (Node* dead : {wrapper.get(), &copied}) {
        EXPECT_FALSE(dead->getValid());
        EXPECT_EQ(read(*dead, "valid"), false);
        for (const auto& use : usesOf(*dead))
            EXPECT_EQ(failureOf(use), nodeGone);
    }
    undo();
    EXPECT_FALSE(wrapper->getValid());
    EXPECT_TRUE(wrapped(QStringLiteral("Top/Composite"))->getValid());
}

TEST_F(NodeTest, AWrapperOfAClosedProjectSaysSo)
{
    const auto root = ::wrapped(top());
    close();
    for (Node* dead : {wrapper.get(), root.get()}) {
        EXPECT_FALSE(dead->getValid());
        for (const auto& use : usesOf(*dead))
            EXPECT_EQ(failureOf(use), nodeGone);
    }
}

TEST_F(NodeTest, ThePositionOfADeadNodeFailsAtItsFirstUse)
{
    close();
    const QVariant position = read(*wrapper, "position");
    const auto* coordinates = readAs<OMC::Node_Coordinates>(position);
    ASSERT_NE(coordinates, nullptr);
    EXPECT_EQ(failureOf([&] { coordinates->getX(); }), "Object is no longer valid.");
}

TEST(NodeOfStandInTest, ANodeWithoutASceneSaysSo)
{
    StandInNode standIn;
    const auto node = wrapped(&standIn);
    EXPECT_EQ(failureOf([&] { node->parentScene(); }), "An unknwon exception has occurred.");
}

TEST(NodeOfStandInTest, WithoutASceneOrAManagerNothingCanBeSet)
{
    StandInSceneCommon scene;
    for (SC_SceneCommon* common : {static_cast<SC_SceneCommon*>(nullptr), static_cast<SC_SceneCommon*>(&scene)}) {
        StandInNode standIn(common);
        const auto node = wrapped(&standIn);
        const std::string failure = "An unexpected error occurred.";
        EXPECT_EQ(failureOf([&] { node->setName(QStringLiteral("Name")); }), failure);
        EXPECT_EQ(failureOf([&] { node->setPosition(QVariantList{1, 2}); }), failure);
        EXPECT_EQ(failureOf([&] { node->setEnabled(false); }), failure);
    }
}

TEST(NodeOfStandInTest, ARefusalIsToldButForTheEnabledFlag)
{
    RefusingManager manager;
    StandInSceneCommon scene;
    scene.commands = &manager;
    StandInNode standIn(&scene);
    const auto node = wrapped(&standIn);
    EXPECT_EQ(failureOf([&] { node->setName(QStringLiteral("Name")); }), "Failed to rename the node.");
    EXPECT_EQ(failureOf([&] { node->setPosition(QVariantList{1, 2}); }), "Failed to set the node's position.");
    EXPECT_EQ(failureOf([&] { node->setEnabled(false); }), "no exception");
    EXPECT_EQ(manager.refusedLabels.join(QLatin1Char('|')),
              QStringLiteral("Rename StandIn to Name|Set X position of StandIn|Enable StandIn"));
}

/// A node view that draws every node in one box.
class StandInNetworkView final : public PLUG_NetworkViewInterface {
public:
    explicit StandInNetworkView(const TURect& box) : m_box(box) { PLUG_Services::setNetworkViewInterface(this); }
    ~StandInNetworkView() override { PLUG_Services::setNetworkViewInterface(nullptr); }

    void showNode(MO_Node*) override {}
    void getNodeRect(const MO_Node*, unsigned int, TURect& rect) const override { rect = m_box; }

private:
    TURect m_box;
};

TEST(NodeOfStandInTest, ItsSizeIsThatOfTheNodeViewWhereThereIsOne)
{
    StandInNode standIn;
    const auto node = wrapped(&standIn);
    EXPECT_EQ(std::pair(node->getWidth(), node->getHeight()), std::pair(80u, 0u));
    EXPECT_EQ(node->getRect().get() ? OMC::objectIn<OMC::AllocatedRect2D>(node->getRect())->height : 0, 32)
        << "lower than `height` says, as required";
    const struct {
        TURect box;
        unsigned int width, height;
    } rows[] = {{{.left = 10, .top = 20, .right = 130.9, .bottom = 65.5}, 120, 45},
                {{.left = 5, .top = 5, .right = 5, .bottom = 5}, 0, 0},
                {{.left = 9, .top = 9, .right = -1, .bottom = -1}, 0, 0},
                {{.left = 0, .top = 0, .right = 1e300, .bottom = qQNaN()}, 0, 0}};
    for (const auto& [box, width, height] : rows) {
        const StandInNetworkView view(box);
        EXPECT_EQ(std::pair(node->getWidth(), node->getHeight()), std::pair(width, height));
        const Obj handle = node->getRect();
        const auto& rect = *OMC::objectIn<OMC::AllocatedRect2D>(handle);
        EXPECT_EQ(std::pair(rect.width, rect.height), std::pair(double(width), double(height)));
    }
}

} // namespace
