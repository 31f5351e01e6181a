#include "core/geometry/point2d.h"

#include "core/geometry/matrix.h"
#include "core/geometry/point3d.h"
#include "core/geometry/vectors.h"
#include "core/nodes/node.h"
#include "core/nodes/node_coordinates.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/openproject.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QPoint>
#include <QPointF>
#include <QStringList>
#include <QVariantMap>

#include <limits>
#include <memory>
#include <vector>

namespace {

using OMC::Node;
using OMC::Node_Coordinates;
using OMC::Obj;
using OMC::Point2d;
using OMC::Point3d;

const std::string unsupportedPoint2d = "Unsupported Point2D type.";

class Point2dReaderTest : public ProjectTest {
protected:
    static constexpr double startX = -11.0;
    static constexpr double startY = -22.0;

    /// Reads a value over the start values; gives the failure, or "no exception".
    std::string read(const QVariant& value)
    {
        x = startX;
        y = startY;
        return failureOf([&] { Point2d::ConvertQVariant(value, x, y); });
    }

    double x = startX;
    double y = startY;
};

TEST(Point2dTest, ItsCoordinatesAreZeroUnlessTheyAreGiven)
{
    EXPECT_EQ(Point2d(), Point2d(0.0, 0.0));
    EXPECT_EQ(Point2d(3.0), Point2d(3.0, 0.0));
    const Point2d point(1.5, -2.5);
    EXPECT_EQ(point.x, 1.5);
    EXPECT_EQ(point.y, -2.5);
}

TEST(Point2dTest, PointsAreEqualWhenAllCoordinatesAre)
{
    EXPECT_TRUE(Point2d(1.0, 2.0) == Point2d(1.0, 2.0));
    EXPECT_FALSE(Point2d(1.0, 2.0) == Point2d(1.0, 3.0));
    EXPECT_FALSE(Point2d(1.0, 2.0) == Point2d(0.0, 2.0));
    const Point2d nowhere(std::numeric_limits<double>::quiet_NaN(), 0.0);
    EXPECT_FALSE(nowhere == nowhere);
}

TEST(Point2dTest, ACopyIsAnObjectOfItsOwn)
{
    const Point2d point(1.0, 2.0);
    const std::unique_ptr<OMC::BaseObject> copy(point.copy());
    const auto* copied = dynamic_cast<const Point2d*>(copy.get());
    ASSERT_NE(copied, nullptr);
    EXPECT_EQ(*copied, point);
    EXPECT_EQ(copy->getOwnership(), OMC::Unowned);
}

TEST(Point2dTest, AssigningTakesTheCoordinatesOnly)
{
    Point2d point;
    point.setOwnership(OMC::OwnedByPython);
    point = Point2d(4.0, 5.0);
    EXPECT_EQ(point, Point2d(4.0, 5.0));
    EXPECT_EQ(point.getOwnership(), OMC::OwnedByPython);
}

TEST(Point2dTest, ItsTextHasTheCoordinates)
{
    EXPECT_EQ(Point2d().__str__(), "Point2d(0, 0)");
    EXPECT_EQ(Point2d(1.5, -2.0).__str__(), "Point2d(1.5, -2)");
    EXPECT_EQ(Point2d(1e300, 1234567.0).__str__(), "Point2d(1e+300, 1.23457e+06)");
}

TEST(Point2dTest, ItTravelsInsideAVariantByValue)
{
    const QVariant value = QVariant::fromValue(Point2d(1.0, 2.0));
    const auto* point = OMC::objectFrom<Point2d>(value);
    ASSERT_NE(point, nullptr);
    EXPECT_EQ(*point, Point2d(1.0, 2.0));
}

TEST_F(Point2dReaderTest, ReadsWhatTellsAPosition)
{
    const struct {
        const char* name;
        QVariant value;
        double x;
        double y;
    } rows[] = {
        {"an int", 5, 5.0, startY},
        {"a double", 2.5, 2.5, startY},
        {"two numbers", QVariantList{1, 2.5}, 1.0, 2.5},
        {"three numbers", QVariantList{1, 2, 3}, 1.0, 2.0},
        {"one number in a list", QVariantList{7}, 7.0, startY},
        {"a list whose last item alone is a number", QVariantList{QStringLiteral("a"), 1}, startX, 1.0},
        {"a list with a text behind the second item", QVariantList{1, 2, QStringLiteral("a")}, 1.0, 2.0},
        {"a QPoint", QPoint(3, 4), 3.0, 4.0},
        {"a QPointF", QPointF(3.5, 4.5), 3.5, 4.5},
        {"a Point2d", QVariant::fromValue(Point2d(1.0, 2.0)), 1.0, 2.0},
        {"a Point2d in a handle", OMC::toVariant(Obj(new Point2d(1.0, 2.0))), 1.0, 2.0},
        {"a Point3d", QVariant::fromValue(Point3d(1.0, 2.0, 3.0)), 1.0, 2.0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(read(row.value), "no exception");
        EXPECT_EQ(x, row.x);
        EXPECT_EQ(y, row.y);
    }
}

TEST_F(Point2dReaderTest, RefusesEverythingElse)
{
    const struct {
        const char* name;
        QVariant value;
        double x;
    } rows[] = {
        {"nothing", QVariant(), startX},
        {"a text", QStringLiteral("1"), startX},
        {"a bool", true, startX},
        {"a number beyond 32 bits", QVariant(qlonglong(1) << 40), startX},
        {"an empty list", QVariantList(), startX},
        {"a list whose second item is a text", QVariantList{1, QStringLiteral("a")}, 1.0},
        {"a list whose second item is a list", QVariantList{1, QVariantList{3, 4}}, 1.0},
        {"a list of points", QVariantList{QVariantList{1, 2}}, startX},
        {"a list of texts", QStringList{QStringLiteral("1"), QStringLiteral("2")}, startX},
        {"a map", QVariantMap{{QStringLiteral("x"), 1}}, startX},
        {"an empty handle", OMC::toVariant(Obj()), startX},
        {"another object", OMC::toVariant(Obj(new OMC::BaseObject)), startX},
        {"an object of Qt", QVariant::fromValue<QObject*>(QCoreApplication::instance()), startX},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(read(row.value), unsupportedPoint2d);
        EXPECT_EQ(x, row.x);
        EXPECT_EQ(y, startY);
    }
}

TEST_F(Point2dReaderTest, ReadsWhereANodeStandsInTheYOfScripts)
{
    MO_Node* node = this->node(QStringLiteral("Top/Composite"));
    node->setX(10);
    node->setY(20);
    EXPECT_EQ(read(OMC::toVariant(Obj(Node::getWrapped(node)))), "no exception");
    EXPECT_EQ(x, 10.0);
    EXPECT_EQ(y, -12.0);
    EXPECT_EQ(read(OMC::toVariant(Obj(new Node_Coordinates(node)))), "no exception");
    EXPECT_EQ(x, 10.0);
    EXPECT_EQ(y, -12.0);
}

TEST_F(Point2dReaderTest, RefusesANodeThatIsGone)
{
    MO_Node* node = this->node(QStringLiteral("Top/Composite"));
    const QVariant wrapper = OMC::toVariant(Obj(Node::getWrapped(node)));
    const QVariant coordinates = OMC::toVariant(Obj(new Node_Coordinates(node)));
    close();
    EXPECT_EQ(read(wrapper), "Position is invalid.");
    EXPECT_EQ(read(coordinates), "Object is no longer valid.");
    EXPECT_EQ(x, startX);
    EXPECT_EQ(y, startY);
}

// --- The lenient reader ---------------------------------------------------------------------------------------------

class Point2dLenientReaderTest : public ProjectTest {};

TEST_F(Point2dLenientReaderTest, ANumberIsBothCoordinatesWhereTheStrictReaderTakesItForX)
{
    EXPECT_EQ(Point2d(QVariant(5)), Point2d(5.0, 5.0));
    double x = -1.0;
    double y = -2.0;
    Point2d::ConvertQVariant(QVariant(5), x, y);
    EXPECT_EQ(x, 5.0);
    EXPECT_EQ(y, -2.0);
}

TEST_F(Point2dLenientReaderTest, KeepsXAndYOfWhatTellsAPosition)
{
    const struct {
        const char* name;
        QVariant value;
        Point2d expected;
    } rows[] = {
        {"nothing", QVariant(), Point2d()},
        {"a text that is a number", QStringLiteral("2.5"), Point2d(2.5, 2.5)},
        {"a text", QStringLiteral("a"), Point2d()},
        {"two numbers", QVariantList{1, 2.5}, Point2d(1.0, 2.5)},
        {"three numbers", QVariantList{1, 2, 3}, Point2d(1.0, 2.0)},
        {"four numbers", QVariantList{1, 2, 3, 4}, Point2d(5.0, 2.0)},
        {"a point in space", QVariant::fromValue(Point3d(1.0, 2.0, 3.0)), Point2d(1.0, 2.0)},
        {"a QPointF, which is no number", QPointF(3.0, 4.0), Point2d()},
        {"a map", QVariantMap{{QStringLiteral("x"), 1}}, Point2d()},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Point2d(row.value), row.expected);
        const std::unique_ptr<Point2d> point(Point2d::fromQVariant(row.value));
        ASSERT_NE(point, nullptr);
        EXPECT_EQ(*point, row.expected);
        EXPECT_EQ(point->getOwnership(), OMC::Unowned);
    }
}

TEST_F(Point2dLenientReaderTest, TakesTheCoordinatesOfANodeAsTheyAre)
{
    MO_Node* node = this->node(QStringLiteral("Top/Composite"));
    node->setX(10);
    node->setY(20);
    const QVariant wrapper = OMC::toVariant(Obj(Node::getWrapped(node)));
    EXPECT_EQ(Point2d(wrapper), Point2d(10.0, -12.0));
    close();
    EXPECT_EQ(failureOf([&] { Point2d(QVariant(wrapper)); }), "Object is no longer valid.");
}

TEST(Point2dTest, TranslatingAddsWhatTheLenientReaderReads)
{
    Point2d point(1.0, 2.0);
    point.translate(QVariantList{10, 20});
    EXPECT_EQ(point, Point2d(11.0, 22.0));
    point.translate(QVariant::fromValue(OMC::Vector2d(-1.0, -2.0)));
    EXPECT_EQ(point, Point2d(10.0, 20.0));
    point.translate(QVariant(0.5));
    EXPECT_EQ(point, Point2d(10.5, 20.5));
    point.translate(QStringLiteral("nothing"));
    EXPECT_EQ(point, Point2d(10.5, 20.5));
}

TEST(Point2dTest, ItIsMadeOfAPointOfTheHost)
{
    EXPECT_EQ(Point2d(Math::Point2d{1.0, 2.0}), Point2d(1.0, 2.0));
}

// --- Lists of points ------------------------------------------------------------------------------------------------

std::string textOf(const std::vector<Point2d>& points)
{
    std::string text;
    for (const Point2d& point : points)
        text += QStringLiteral("(%1,%2)").arg(point.x).arg(point.y).toStdString();
    return text;
}

TEST(Point2dListTest, PointsAreReadFromListsNestedToAnyDepth)
{
    const QVariantList pair = {1, 2};
    const struct {
        const char* name;
        QVariant value;
        const char* expected;
    } rows[] = {
        {"one number", 5, "(5,0)"},
        {"one point", QVariant::fromValue(Point3d(1.0, 2.0, 3.0)), "(1,2)"},
        {"an empty list", QVariantList(), ""},
        {"a list that is one point", pair, "(1,2)"},
        {"one number in a list", QVariantList{7.5}, "(7.5,0)"},
        {"two points", QVariantList{QVariant(pair), QVariantList{3, 4}}, "(1,2)(3,4)"},
        {"points and lists of points",
         QVariantList{QVariant(QVariantList{QVariant(pair), QVariantList{3, 4}}), QPointF(5.0, 6.0), QVariantList()},
         "(1,2)(3,4)(5,6)"},
        {"a point ahead of a number", QVariantList{QVariant::fromValue(Point2d(1.0, 2.0)), 9}, "(1,2)(9,0)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        std::vector<Point2d> points;
        Point2d::fromQVariant(row.value, points);
        EXPECT_EQ(textOf(points), row.expected);
        std::vector<std::unique_ptr<Math::Point2d>> hostPoints;
        Point2d::fromQVariant(row.value, hostPoints);
        ASSERT_EQ(hostPoints.size(), points.size());
        for (std::size_t i = 0; i < points.size(); ++i)
            EXPECT_EQ(Point2d(*hostPoints[i]), points[i]);
    }
}

TEST(Point2dListTest, PointsAreAppendedToWhatIsThere)
{
    std::vector<Point2d> points = {Point2d(9.0, 9.0)};
    Point2d::fromQVariant(QVariantList{1, 2}, points);
    EXPECT_EQ(textOf(points), "(9,9)(1,2)");
}

TEST(Point2dListTest, WhatTheStrictReaderRefusesIsRefusedHere)
{
    const struct {
        const char* name;
        QVariant value;
        const char* before; ///< The points that were appended up to the failure.
    } rows[] = {
        {"a text", QStringLiteral("a"), ""},
        {"a number ahead of a point", QVariantList{1, QVariantList{3, 4}}, ""},
        {"a text behind a point", QVariantList{QVariant(QVariantList{1, 2}), QStringLiteral("a")}, "(1,2)"},
        {"a matrix", QVariant::fromValue(OMC::Matrix()), ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        std::vector<Point2d> points;
        EXPECT_EQ(failureOf([&] { Point2d::fromQVariant(row.value, points); }), unsupportedPoint2d);
        EXPECT_EQ(textOf(points), row.before);
    }
}

} // namespace
