#include "core/nodes/node_coordinates.h"

#include "tests/core/support/failure.h"
#include "tests/core/support/openproject.h"
#include "tests/core/support/standinnode.h"
#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace {

using OMC::Node_Coordinates;

class NodeCoordinatesTest : public ProjectTest {
protected:
    NodeCoordinatesTest()
    {
        composite->setX(1);
        composite->setY(2);
        composite->setZ(3);
    }

    void expectAt(int x, int y, int z) const
    {
        EXPECT_EQ(composite->x(), x);
        EXPECT_EQ(composite->y(), y);
        EXPECT_EQ(composite->z(), z);
    }

    MO_Node* composite = node(QStringLiteral("Top/Composite"));
    Node_Coordinates coordinates{composite};
};

TEST_F(NodeCoordinatesTest, TheYOfScriptsIsLessByThirtyTwo)
{
    EXPECT_EQ(coordinates.getX(), 1);
    EXPECT_EQ(coordinates.getY(), -30);
    EXPECT_EQ(coordinates.getZ(), 3);
}

TEST_F(NodeCoordinatesTest, ItsTextHasTheYOfTheEngine)
{
    EXPECT_EQ(coordinates.__str__(), "NodeCoordinates(1, 2, 3)");
}

TEST_F(NodeCoordinatesTest, ACoordinateIsSetInOneUndoableStep)
{
    const struct {
        const char* property;
        const char* label;
        int x, y, z;
    } rows[] = {
        {"x", "Set X position of Composite", 50, 2, 3},
        {"y", "Set Y position of Composite", 1, 82, 3},
        {"z", "Set Z position of Composite", 1, 2, 50},
    };
    const QStringList before = labels();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.property);
        bool found = false;
        coordinates.setAttr(row.property, 50, found);
        EXPECT_TRUE(found);
        EXPECT_EQ(coordinates.getAttr(row.property, found), QVariant(50));
        expectAt(row.x, row.y, row.z);
        EXPECT_EQ(labels(), before + QStringList{QString::fromLatin1(row.label)});
        undo();
        expectAt(1, 2, 3);
        EXPECT_EQ(labels(), before);
        redo();
        expectAt(row.x, row.y, row.z);
        undo();
    }
}

TEST_F(NodeCoordinatesTest, AYOfZeroReadsBackAsZero)
{
    coordinates.setY(0);
    EXPECT_EQ(coordinates.getY(), 0);
    EXPECT_EQ(composite->y(), 32);
}

TEST_F(NodeCoordinatesTest, TheLastIntegersAreKeptOrRefused)
{
    coordinates.setX(lowest);
    coordinates.setZ(highest);
    coordinates.setY(lowest);
    EXPECT_EQ(coordinates.getY(), lowest);
    coordinates.setY(highest - 32);
    EXPECT_EQ(coordinates.getY(), highest - 32);
    const QStringList before = labels();
    EXPECT_EQ(failureOf([&] { coordinates.setY(highest - 31); }), "Invalid argument at index 0.");
    EXPECT_EQ(failureOf([&] { coordinates.setY(highest); }), "Invalid argument at index 0.");
    expectAt(lowest, highest, highest);
    EXPECT_EQ(labels(), before);
    composite->setY(lowest);
    EXPECT_EQ(coordinates.getY(), lowest);
}

TEST_F(NodeCoordinatesTest, CopiesLeadToTheSameNode)
{
    const std::unique_ptr<OMC::BaseObject> copy(coordinates.copy());
    auto* copied = dynamic_cast<Node_Coordinates*>(copy.get());
    ASSERT_NE(copied, nullptr);
    copied->setX(77);
    EXPECT_EQ(coordinates.getX(), 77);
}

TEST_F(NodeCoordinatesTest, WithoutANodeEveryUseFails)
{
    Node_Coordinates nothing(nullptr);
    close();
    for (Node_Coordinates* dead : {&coordinates, &nothing}) {
        const std::function<void()> uses[] = {
            [&] { dead->getX(); },  [&] { dead->getY(); },  [&] { dead->getZ(); },          [&] { dead->setX(1); },
            [&] { dead->setY(1); }, [&] { dead->setZ(1); }, [&] { (void)dead->__str__(); },
        };
        for (const auto& use : uses)
            EXPECT_EQ(failureOf(use), "Object is no longer valid.");
    }
}

TEST(NodeCoordinatesOfStandInTest, WithoutASceneOrAManagerNothingCanBeSet)
{
    StandInSceneCommon scene;
    for (SC_SceneCommon* common : {static_cast<SC_SceneCommon*>(nullptr), static_cast<SC_SceneCommon*>(&scene)}) {
        StandInNode node(common);
        Node_Coordinates coordinates(&node);
        EXPECT_EQ(failureOf([&] { coordinates.setX(1); }), "An unexpected error occurred.");
        EXPECT_EQ(failureOf([&] { coordinates.setY(1); }), "An unexpected error occurred.");
        EXPECT_EQ(failureOf([&] { coordinates.setZ(1); }), "An unexpected error occurred.");
    }
}

TEST(NodeCoordinatesOfStandInTest, OnlyTheRefusalOfZIsTold)
{
    RefusingManager manager;
    StandInSceneCommon scene;
    scene.commands = &manager;
    StandInNode node(&scene);
    Node_Coordinates coordinates(&node);
    EXPECT_EQ(failureOf([&] { coordinates.setX(1); }), "no exception");
    EXPECT_EQ(failureOf([&] { coordinates.setY(1); }), "no exception");
    EXPECT_EQ(failureOf([&] { coordinates.setZ(1); }), "Failed to set the node's position.");
    EXPECT_EQ(coordinates.__str__(), "NodeCoordinates(0, 0, 0)");
    EXPECT_EQ(manager.refusedLabels.join(QLatin1Char('|')),
              QStringLiteral("Set X position of StandIn|Set Y position of StandIn|Set Z position of StandIn"));
}

} // namespace
