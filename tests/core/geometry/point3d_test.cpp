#include "core/geometry/point3d.h"

#include "core/columns/columnvalue.h"
#include "core/geometry/matrix.h"
#include "core/geometry/vectors.h"
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

const std::string unsupportedPoint3d = "Unsupported Point3D type.";

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
        EXPECT_EQ(read(row.value), unsupportedPoint3d);
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
    EXPECT_EQ(read(OMC::toVariant(Obj(Node::getWrapped(node)))), unsupportedPoint3d);
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

// --- The lenient reader ---------------------------------------------------------------------------------------------

using OMC::Matrix;
using OMC::Vector2d;
using OMC::Vector3d;

/// A matrix that moves and, if asked, scales.
Matrix matrixOf(double x, double y, double z, double scale = 1.0)
{
    Math::Matrix4x4 matrix;
    matrix.translate(x, y, z);
    matrix.scale(scale, scale, scale);
    return Matrix(matrix);
}

class Point3dLenientReaderTest : public ProjectTest {};

TEST_F(Point3dLenientReaderTest, ReadsASingleValue)
{
    const struct {
        const char* name;
        QVariant value;
        Point3d expected;
    } rows[] = {
        {"an int", 5, Point3d(5.0, 5.0, 5.0)},
        {"a double", -2.5, Point3d(-2.5, -2.5, -2.5)},
        {"a number beyond 32 bits", QVariant(qlonglong(1) << 40), Point3d(0x1p40, 0x1p40, 0x1p40)},
        {"a bool", true, Point3d(1.0, 1.0, 1.0)},
        {"a text that is a number", QStringLiteral("1.5"), Point3d(1.5, 1.5, 1.5)},
        {"a text beyond the numbers", QStringLiteral("1e999"), Point3d()},
        {"a text", QStringLiteral("a"), Point3d()},
        {"nothing", QVariant(), Point3d()},
        {"a map", QVariantMap{{QStringLiteral("x"), 1}}, Point3d()},
        {"texts", QStringList{QStringLiteral("1"), QStringLiteral("2")}, Point3d(1.0, 2.0, 0.0)},
        {"a QPoint", QPoint(3, 4), Point3d()},
        {"a matrix", QVariant::fromValue(matrixOf(1.0, 2.0, 3.0, 7.0)), Point3d(1.0, 2.0, 3.0)},
        {"a Vector3d", QVariant::fromValue(Vector3d(1.0, 2.0, 3.0)), Point3d(1.0, 2.0, 3.0)},
        {"a Vector2d", QVariant::fromValue(Vector2d(1.0, 2.0)), Point3d(1.0, 2.0, 0.0)},
        {"a Point3d in a handle", OMC::toVariant(Obj(new Point3d(1.0, 2.0, 3.0))), Point3d(1.0, 2.0, 3.0)},
        {"a Point2d", QVariant::fromValue(Point2d(1.0, 2.0)), Point3d(1.0, 2.0, 0.0)},
        {"another object", OMC::toVariant(Obj(new OMC::BaseObject)), Point3d()},
        {"an empty handle", OMC::toVariant(Obj()), Point3d()},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Point3d(row.value), row.expected);
        const std::unique_ptr<Point3d> point(Point3d::fromQVariant(row.value));
        ASSERT_NE(point, nullptr);
        EXPECT_EQ(*point, row.expected);
        EXPECT_EQ(point->getOwnership(), OMC::Unowned);
    }
}

TEST_F(Point3dLenientReaderTest, AddsUpAList)
{
    const QVariant moved = QVariant::fromValue(matrixOf(10.0, 20.0, 30.0, 2.0));
    const QVariant vector = QVariant::fromValue(Vector3d(1.0, 0.0, 0.0));
    const struct {
        const char* name;
        QVariantList value;
        Point3d expected;
    } rows[] = {
        {"nothing", {}, Point3d()},
        {"a text", {QStringLiteral("a")}, Point3d()},
        {"one number", {1}, Point3d(1.0, 0.0, 0.0)},
        {"three numbers", {1, 2, 3}, Point3d(1.0, 2.0, 3.0)},
        {"a fourth number, added to x", {1, 2, 3, 4}, Point3d(5.0, 2.0, 3.0)},
        {"seven numbers", {1, 2, 3, 10, 20, 30, 100}, Point3d(111.0, 22.0, 33.0)},
        {"a text that is a number", {QStringLiteral("1.5"), 2}, Point3d(1.5, 2.0, 0.0)},
        {"a text between numbers, which takes no place", {1, QStringLiteral("a"), 2}, Point3d(1.0, 2.0, 0.0)},
        {"a list in it, which is passed over", {1, QVariantList{7, 8}, 2}, Point3d(1.0, 2.0, 0.0)},
        {"nothing between numbers", {1, QVariant(), 2}, Point3d(1.0, 2.0, 0.0)},
        {"a point and a vector", {QVariant::fromValue(Point3d(1.0, 1.0, 1.0)), vector}, Point3d(2.0, 1.0, 1.0)},
        {"an object among numbers, which takes no place", {1, vector, 2}, Point3d(2.0, 2.0, 0.0)},
        {"points in the plane",
         {QVariant::fromValue(Point2d(1.0, 2.0)), QVariant::fromValue(Vector2d(10.0, 20.0))},
         Point3d(11.0, 22.0, 0.0)},
        {"a matrix alone", {moved}, Point3d(10.0, 20.0, 30.0)},
        {"a matrix ahead of the numbers", {moved, 1, 2, 3}, Point3d(11.0, 22.0, 33.0)},
        {"a matrix behind the numbers", {1, 2, 3, moved}, Point3d(12.0, 24.0, 36.0)},
        {"a matrix among the numbers", {1, moved, 2, 3}, Point3d(12.0, 22.0, 33.0)},
        {"an object that tells no position", {OMC::toVariant(Obj(new OMC::BaseObject)), 1}, Point3d(1.0, 0.0, 0.0)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Point3d(QVariant(row.value)), row.expected);
    }
}

TEST_F(Point3dLenientReaderTest, ReadsWhereANodeStandsWithoutItsDepth)
{
    MO_Node* node = this->node(QStringLiteral("Top/Composite"));
    node->setX(10);
    node->setY(20);
    node->setZ(30);
    const QVariant wrapper = OMC::toVariant(Obj(Node::getWrapped(node)));
    const QVariant coordinates = OMC::toVariant(Obj(new Node_Coordinates(node)));
    EXPECT_EQ(Point3d(wrapper), Point3d(10.0, -12.0, 0.0));
    EXPECT_EQ(Point3d(coordinates), Point3d(10.0, -12.0, 0.0));
    EXPECT_EQ(Point3d(QVariant(QVariantList{wrapper, coordinates, 1})), Point3d(1.0, 0.0, 0.0))
        << "in a list neither counts";
    close();
    EXPECT_EQ(failureOf([&] { Point3d(QVariant(wrapper)); }), "Object is no longer valid.");
    EXPECT_EQ(failureOf([&] { Point3d(QVariant(coordinates)); }), "Object is no longer valid.");
}

/// A column's value that is whatever the test puts there.
class AnyColumnValue : public OMC::ColumnValue {
public:
    explicit AnyColumnValue(const QVariant& value) : value(value) {}
    QVariant getValue() const override { return value; }

    QVariant value;
};

TEST_F(Point3dLenientReaderTest, ReadsTheValueOfAColumnAtAFrame)
{
    EXPECT_EQ(Point3d(OMC::toVariant(Obj(new AnyColumnValue(2.5)))), Point3d(2.5, 2.5, 2.5));
    EXPECT_EQ(Point3d(OMC::toVariant(Obj(new AnyColumnValue(QVariantList{1, 2, 3})))), Point3d(1.0, 2.0, 3.0));
    EXPECT_EQ(Point3d(OMC::toVariant(Obj(new AnyColumnValue({})))), Point3d());
}

TEST(Point3dTest, TranslatingAddsWhatTheLenientReaderReads)
{
    Point3d point(1.0, 2.0, 3.0);
    point.translate(QVariantList{10, 20, 30});
    EXPECT_EQ(point, Point3d(11.0, 22.0, 33.0));
    point.translate(QVariant::fromValue(Vector2d(1.0, 1.0)));
    EXPECT_EQ(point, Point3d(12.0, 23.0, 33.0));
    point.translate(1);
    EXPECT_EQ(point, Point3d(13.0, 24.0, 34.0));
}

} // namespace
