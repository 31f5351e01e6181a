#include "core/geometry/point3d.h"

#include "core/geometry/point2d.h"
#include "core/nodes/node.h"
#include "core/nodes/node_coordinates.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/openproject.h"

#include <gtest/gtest.h>

#include <QPoint>
#include <QPointF>
#include <QStringList>
#include <QVariantMap>

#include <limits>
#include <memory>

namespace {

using OMC::Node;
using OMC::Node_Coordinates;
using OMC::Obj;
using OMC::Point2d;
using OMC::Point3d;

const std::string unsupported = "Unsupported Point3D type.";

class Point3dReaderTest : public ProjectTest {
protected:
    static constexpr double startX = -11.0;
    static constexpr double startY = -22.0;
    static constexpr double startZ = -33.0;

    /// Reads a value over the start values; gives the failure, or "no exception".
    std::string read(const QVariant& value)
    {
        point = Point3d(startX, startY, startZ);
        return failureOf([&] { Point3d::ConvertQVariant(value, point.x, point.y, point.z); });
    }

    Point3d point;
};

TEST(Point3dTest, ItsCoordinatesAreZeroUnlessTheyAreGiven)
{
    EXPECT_EQ(Point3d(), Point3d(0.0, 0.0, 0.0));
    EXPECT_EQ(Point3d(3.0, 4.0), Point3d(3.0, 4.0, 0.0));
    const Point3d point(1.5, -2.5, 3.5);
    EXPECT_EQ(point.x, 1.5);
    EXPECT_EQ(point.y, -2.5);
    EXPECT_EQ(point.z, 3.5);
}

TEST(Point3dTest, PointsAreEqualWhenAllCoordinatesAre)
{
    EXPECT_TRUE(Point3d(1.0, 2.0, 3.0) == Point3d(1.0, 2.0, 3.0));
    EXPECT_FALSE(Point3d(1.0, 2.0, 3.0) == Point3d(0.0, 2.0, 3.0));
    EXPECT_FALSE(Point3d(1.0, 2.0, 3.0) == Point3d(1.0, 0.0, 3.0));
    EXPECT_FALSE(Point3d(1.0, 2.0, 3.0) == Point3d(1.0, 2.0, 0.0));
    const Point3d nowhere(0.0, 0.0, std::numeric_limits<double>::quiet_NaN());
    EXPECT_FALSE(nowhere == nowhere);
}

TEST(Point3dTest, ACopyIsAnObjectOfItsOwn)
{
    const Point3d point(1.0, 2.0, 3.0);
    const std::unique_ptr<OMC::BaseObject> copy(point.copy());
    const auto* copied = dynamic_cast<const Point3d*>(copy.get());
    ASSERT_NE(copied, nullptr);
    EXPECT_EQ(*copied, point);
    EXPECT_EQ(copy->getOwnership(), OMC::Unowned);
}

TEST(Point3dTest, AssigningTakesTheCoordinatesOnly)
{
    Point3d point;
    point.setOwnership(OMC::OwnedByPython);
    point = Point3d(4.0, 5.0, 6.0);
    EXPECT_EQ(point, Point3d(4.0, 5.0, 6.0));
    EXPECT_EQ(point.getOwnership(), OMC::OwnedByPython);
}

TEST(Point3dTest, ItsTextHasTheCoordinates)
{
    EXPECT_EQ(Point3d().__str__(), "Point3d(0, 0, 0)");
    EXPECT_EQ(Point3d(1.5, -2.0, 0.25).__str__(), "Point3d(1.5, -2, 0.25)");
}

TEST(Point3dTest, ItTravelsInsideAVariantByValue)
{
    const QVariant value = QVariant::fromValue(Point3d(1.0, 2.0, 3.0));
    const auto* point = OMC::objectFrom<Point3d>(value);
    ASSERT_NE(point, nullptr);
    EXPECT_EQ(*point, Point3d(1.0, 2.0, 3.0));
}

TEST_F(Point3dReaderTest, ReadsWhatTellsAPosition)
{
    const struct {
        const char* name;
        QVariant value;
        Point3d expected;
    } rows[] = {
        {"an int", 5, Point3d(5.0, startY, startZ)},
        {"a double", 2.5, Point3d(2.5, startY, startZ)},
        {"three numbers", QVariantList{1, 2.5, 3}, Point3d(1.0, 2.5, 3.0)},
        {"four numbers", QVariantList{1, 2, 3, 4}, Point3d(1.0, 2.0, 3.0)},
        {"two numbers", QVariantList{1, 2}, Point3d(1.0, 2.0, startZ)},
        {"one number in a list", QVariantList{7}, Point3d(7.0, startY, startZ)},
        {"a list whose last item alone is a number", QVariantList{QStringLiteral("a"), QStringLiteral("b"), 1},
         Point3d(startX, startY, 1.0)},
        {"a QPoint", QPoint(3, 4), Point3d(3.0, 4.0, startZ)},
        {"a QPointF", QPointF(3.5, 4.5), Point3d(3.5, 4.5, startZ)},
        {"a Point2d", QVariant::fromValue(Point2d(1.0, 2.0)), Point3d(1.0, 2.0, startZ)},
        {"a Point3d", QVariant::fromValue(Point3d(1.0, 2.0, 3.0)), Point3d(1.0, 2.0, 3.0)},
        {"a Point3d in a handle", OMC::toVariant(Obj(new Point3d(1.0, 2.0, 3.0))), Point3d(1.0, 2.0, 3.0)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(read(row.value), "no exception");
        EXPECT_EQ(point.__str__(), row.expected.__str__());
    }
}

TEST_F(Point3dReaderTest, RefusesEverythingElse)
{
    const struct {
        const char* name;
        QVariant value;
        Point3d written = Point3d(startX, startY, startZ);
    } rows[] = {
        {"nothing", QVariant()},
        {"a text", QStringLiteral("1")},
        {"a bool", true},
        {"a number beyond 32 bits", QVariant(qlonglong(1) << 40)},
        {"an empty list", QVariantList()},
        {"a text in a list", QVariantList{QStringLiteral("a")}},
        {"a list whose last item is a text", QVariantList{1, 2, QStringLiteral("a")}, Point3d(1.0, 2.0, startZ)},
        {"a list of lists", QVariantList{QVariantList{1, 2, 3}}},
        {"a list of texts", QStringList{QStringLiteral("1")}},
        {"a map", QVariantMap{{QStringLiteral("x"), 1}}},
        {"an empty handle", OMC::toVariant(Obj())},
        {"another object", OMC::toVariant(Obj(new OMC::BaseObject))},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(read(row.value), unsupported);
        EXPECT_EQ(point.__str__(), row.written.__str__());
    }
}

TEST_F(Point3dReaderTest, ReadsTheCoordinatesOfANode)
{
    MO_Node* node = this->node(QStringLiteral("Top/Composite"));
    node->setX(10);
    node->setY(20);
    node->setZ(30);
    EXPECT_EQ(read(OMC::toVariant(Obj(new Node_Coordinates(node)))), "no exception");
    EXPECT_EQ(point, Point3d(10.0, -12.0, 30.0));
}

TEST_F(Point3dReaderTest, RefusesANodeAfterItWroteWhereItStands)
{
    MO_Node* node = this->node(QStringLiteral("Top/Composite"));
    node->setX(10);
    node->setY(20);
    node->setZ(30);
    EXPECT_EQ(read(OMC::toVariant(Obj(Node::getWrapped(node)))), unsupported);
    EXPECT_EQ(point, Point3d(10.0, -12.0, 30.0));
}

TEST_F(Point3dReaderTest, RefusesANodeThatIsGone)
{
    MO_Node* node = this->node(QStringLiteral("Top/Composite"));
    const QVariant wrapper = OMC::toVariant(Obj(Node::getWrapped(node)));
    const QVariant coordinates = OMC::toVariant(Obj(new Node_Coordinates(node)));
    close();
    EXPECT_EQ(read(wrapper), "Position is invalid.");
    EXPECT_EQ(read(coordinates), "Object is no longer valid.");
    EXPECT_EQ(point, Point3d(startX, startY, startZ));
}

} // namespace
