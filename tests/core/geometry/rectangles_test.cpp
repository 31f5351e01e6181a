#include "core/geometry/rectangles.h"

#include "core/geometry/point2d.h"
#include "core/geometry/vectors.h"
#include "core/nodes/node.h"
#include "core/nodes/node_coordinates.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/openproject.h"
#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <QPoint>
#include <QStringList>

#include <limits>
#include <memory>

namespace {

using OMC::AllocatedRect2D;
using OMC::AllocatedRect2DI;
using OMC::Node;
using OMC::Node_Coordinates;
using OMC::Obj;
using OMC::Point2d;
using OMC::Rect2D;
using OMC::Rect2DI;

// --- What all four are ----------------------------------------------------------------------------------------------

TEST(RectangleTest, ItsMembersAreZeroUnlessTheyAreGiven)
{
    EXPECT_EQ(Rect2D(), Rect2D(0.0, 0.0));
    EXPECT_EQ(Rect2D(3.0), Rect2D(3.0, 0.0));
    EXPECT_EQ(Rect2DI(), Rect2DI(0, 0));
    EXPECT_EQ(AllocatedRect2D(), AllocatedRect2D(0.0, 0.0, 0.0, 0.0));
    EXPECT_EQ(AllocatedRect2DI(1), AllocatedRect2DI(1, 0, 0, 0));
}

TEST(RectangleTest, TheSizeComesAheadOfThePlace)
{
    const AllocatedRect2D rectangle(1.0, 2.0, 3.0, 4.0);
    EXPECT_EQ(rectangle.width, 1.0);
    EXPECT_EQ(rectangle.height, 2.0);
    EXPECT_EQ(rectangle.x, 3.0);
    EXPECT_EQ(rectangle.y, 4.0);
    const AllocatedRect2DI whole(1, 2, 3, 4);
    EXPECT_EQ(whole.width, 1);
    EXPECT_EQ(whole.height, 2);
    EXPECT_EQ(whole.x, 3);
    EXPECT_EQ(whole.y, 4);
}

TEST(RectangleTest, ItsTextIsAsScriptsKnowIt)
{
    EXPECT_EQ(Rect2D(1.5, -2.0).__str__(), "Rect2D(1.5, -2)");
    EXPECT_EQ(Rect2DI(1, 2).__str__(), "Rect2dI(1, 2)");
    EXPECT_EQ(AllocatedRect2D(1.5, 2.0, 3.0, 4.0).__str__(), "AllocatedRect2D(1.5, 2, 3, 4)");
    EXPECT_EQ(AllocatedRect2DI(1, 2, 3, 4).__str__(), "AllocatedRect2D(1, 2, 3, 4)");
}

TEST(RectangleTest, RectanglesAreEqualWhenAllMembersAre)
{
    EXPECT_TRUE(Rect2D(1.0, 2.0) == Rect2D(1.0, 2.0));
    EXPECT_FALSE(Rect2D(1.0, 2.0) == Rect2D(1.0, 3.0));
    EXPECT_FALSE(Rect2D(nan, 0.0) == Rect2D(nan, 0.0));
    EXPECT_FALSE(Rect2DI(1, 2) == Rect2DI(0, 2));
    EXPECT_TRUE(AllocatedRect2D(1.0, 2.0, 3.0, 4.0) == AllocatedRect2D(1.0, 2.0, 3.0, 4.0));
    EXPECT_FALSE(AllocatedRect2D(1.0, 2.0, 3.0, 4.0) == AllocatedRect2D(9.0, 2.0, 3.0, 4.0));
    EXPECT_FALSE(AllocatedRect2D(1.0, 2.0, 3.0, 4.0) == AllocatedRect2D(1.0, 2.0, 3.0, 5.0));
    EXPECT_FALSE(AllocatedRect2DI(1, 2, 3, 4) == AllocatedRect2DI(1, 2, 0, 4));
    EXPECT_FALSE(AllocatedRect2DI(1, 2, 3, 4) == AllocatedRect2DI(1, 9, 3, 4));
}

template <typename T>
class RectangleClassTest : public testing::Test {};
using Classes = testing::Types<Rect2D, Rect2DI, AllocatedRect2D, AllocatedRect2DI>;
TYPED_TEST_SUITE(RectangleClassTest, Classes);

TYPED_TEST(RectangleClassTest, ACopyIsAnObjectOfTheSameClass)
{
    const TypeParam rectangle(3, 4);
    const std::unique_ptr<OMC::BaseObject> copy(rectangle.copy());
    ASSERT_EQ(copy->metaObject(), &TypeParam::staticMetaObject);
    EXPECT_EQ(dynamic_cast<const TypeParam&>(*copy), rectangle);
    EXPECT_EQ(copy->getOwnership(), OMC::Unowned);
}

TYPED_TEST(RectangleClassTest, AssigningTakesTheMembersOnly)
{
    TypeParam rectangle;
    rectangle.setOwnership(OMC::OwnedByPython);
    rectangle = TypeParam(3, 4);
    EXPECT_EQ(rectangle, TypeParam(3, 4));
    EXPECT_EQ(rectangle.getOwnership(), OMC::OwnedByPython);
}

TYPED_TEST(RectangleClassTest, ItTravelsInsideAVariantByValue)
{
    const QVariant value = QVariant::fromValue(TypeParam(3, 4));
    const auto* rectangle = OMC::objectFrom<TypeParam>(value);
    ASSERT_NE(rectangle, nullptr);
    EXPECT_EQ(*rectangle, TypeParam(3, 4));
}

// --- Rect2DI --------------------------------------------------------------------------------------------------------

TEST(Rect2DITest, TheFractionOfTheHeightIsCutOff)
{
    EXPECT_EQ(Rect2DI(1, 2.9).height, 2);
    EXPECT_EQ(Rect2DI(1, -2.9).height, -2);
    EXPECT_EQ(Rect2DI(1, 2147483647.5).height, 2147483647);
    EXPECT_EQ(Rect2DI(1, -2147483648.5).height, std::numeric_limits<int>::min());
}

TEST(Rect2DITest, AHeightBeyondTheIntegersIsRefused)
{
    for (const double height : {2147483648.0, -2147483649.0, 1e300, infinity, -infinity, nan}) {
        SCOPED_TRACE(height);
        EXPECT_EQ(failureOf([&] { Rect2DI(1, height); }), "Invalid argument at index 1.");
    }
}

std::string readSize(const QVariant& value)
{
    std::string text;
    const std::string failure = failureOf([&] {
        const std::unique_ptr<Rect2DI> size(Rect2DI::ConvertQVariant(value));
        text = size->__str__();
    });
    return text.empty() ? failure : text;
}

TEST(Rect2DITest, ReadsTheFirstTwoOfThreeItems)
{
    const struct {
        QVariantList value;
        const char* expected;
    } rows[] = {
        {{3.2, 4.6, 0}, "Rect2dI(3, 5)"},
        {{3, 4, QStringLiteral("a")}, "Rect2dI(3, 4)"},
        {{-0.7, -1.7, 0}, "Rect2dI(0, -1)"},
        {{0.5, 1.5, 0, 9, 9}, "Rect2dI(1, 2)"},
        {{QStringLiteral("a"), 4, 0}, "Rect2dI(0, 4)"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(readSize(row.value), row.expected);
}

TEST(Rect2DITest, ARectangleInAnyFormReadsAsNoSizeAtAll)
{
    const QVariant rows[] = {QVariant::fromValue(Rect2DI(3, 4)), QVariant::fromValue(Rect2D(3.0, 4.0)),
                             QVariant::fromValue(AllocatedRect2DI(3, 4, 5, 6)),
                             QVariant::fromValue(AllocatedRect2D(3.0, 4.0, 5.0, 6.0)),
                             OMC::toVariant(Obj(new Rect2DI(3, 4)))};
    for (const QVariant& row : rows)
        EXPECT_EQ(readSize(row), "Rect2dI(0, 0)");
}

TEST(Rect2DITest, RefusesEverythingElse)
{
    const QVariant rows[] = {QVariant(),
                             5,
                             QStringLiteral("a"),
                             QPoint(3, 4),
                             QVariantList(),
                             QVariantList{3.2, 4.6},
                             QVariantList{3, QStringLiteral("a"), 0},
                             QVariantList{3, true, 0},
                             QVariantList{1e300, 4, 0},
                             QVariantList{3, nan, 0},
                             QVariantList{infinity, 4, 0},
                             QVariant::fromValue(Point2d(3.0, 4.0)),
                             OMC::toVariant(Obj())};
    for (const QVariant& row : rows)
        EXPECT_EQ(readSize(row), "Unsupported Point3D type.") << row.typeName();
}

// --- AllocatedRect2D ------------------------------------------------------------------------------------------------

class AllocatedRect2DTest : public ProjectTest {
protected:
    static std::string read(const QVariant& value)
    {
        const std::unique_ptr<AllocatedRect2D> rectangle(AllocatedRect2D::fromQVariant(value));
        return rectangle->__str__();
    }
};

TEST_F(AllocatedRect2DTest, ReadsWhatTellsAPlace)
{
    const QVariant point = QVariant::fromValue(Point2d(3.0, 4.0));
    const struct {
        const char* name;
        QVariant value;
        const char* expected;
    } rows[] = {
        {"a rectangle", QVariant::fromValue(AllocatedRect2D(1.0, 2.0, 3.0, 4.0)), "AllocatedRect2D(1, 2, 3, 4)"},
        {"a point", point, "AllocatedRect2D(0, 0, 3, 4)"},
        {"a number", 5, "AllocatedRect2D(0, 0, 5, 5)"},
        {"a size, which is no place", QVariant::fromValue(Rect2D(1.0, 2.0)), "AllocatedRect2D(0, 0, 0, 0)"},
        {"nothing", QVariant(), "AllocatedRect2D(0, 0, 0, 0)"},
        {"an empty list", QVariantList(), "AllocatedRect2D(0, 0, 0, 0)"},
        {"a list of one point", QVariantList{point}, "AllocatedRect2D(0, 0, 3, 4)"},
        {"a list of points", QVariantList{point, QVariant(QVariantList{-1, 10}), QVariant(QVariantList{7, 5})},
         "AllocatedRect2D(8, 6, -1, 4)"},
        {"a list of numbers, each a point", QVariantList{1, 5}, "AllocatedRect2D(4, 4, 1, 1)"},
        {"a list with a text, the point (0, 0)", QVariantList{point, QStringLiteral("a")},
         "AllocatedRect2D(3, 4, 0, 0)"},
        {"a rectangle in a list, no point", QVariantList{QVariant::fromValue(AllocatedRect2D(1.0, 2.0, 3.0, 4.0))},
         "AllocatedRect2D(0, 0, 0, 0)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(read(row.value), row.expected);
    }
}

TEST_F(AllocatedRect2DTest, ReadsWhereNodesStand)
{
    MO_Node* composite = node(QStringLiteral("Top/Composite"));
    composite->setX(10);
    composite->setY(20);
    MO_Node* display = node(QStringLiteral("Top/Display"));
    display->setX(-5);
    display->setY(132);
    const QVariant first = OMC::toVariant(Obj(Node::getWrapped(composite)));
    const QVariant second = OMC::toVariant(Obj(Node::getWrapped(display)));
    const QVariant coordinates = OMC::toVariant(Obj(new Node_Coordinates(composite)));
    EXPECT_EQ(read(first), "AllocatedRect2D(0, 0, 10, -12)");
    EXPECT_EQ(read(coordinates), "AllocatedRect2D(0, 0, 10, 10)") << "x twice";
    EXPECT_EQ(read(QVariantList{first, second}), "AllocatedRect2D(15, 112, -5, -12)");
    close();
    EXPECT_EQ(failureOf([&] { read(first); }), "Object is no longer valid.");
    EXPECT_EQ(failureOf([&] { read(QVariantList{first}); }), "Object is no longer valid.");
    EXPECT_EQ(failureOf([&] { read(coordinates); }), "Object is no longer valid.");
}

TEST(AllocatedRect2DChangeTest, AddingGrowsIt)
{
    const struct {
        const char* name;
        QVariant value;
        AllocatedRect2D expected;
    } rows[] = {
        {"a point inside", QVariantList{2, 3}, AllocatedRect2D(10.0, 10.0, 1.0, 2.0)},
        {"a point outside", QVariantList{20, -3}, AllocatedRect2D(19.0, 15.0, 1.0, -3.0)},
        {"a rectangle", QVariant::fromValue(AllocatedRect2D(5.0, 5.0, -2.0, 20.0)),
         AllocatedRect2D(13.0, 23.0, -2.0, 2.0)},
        {"a size, the point (0, 0)", QVariant::fromValue(Rect2D(50.0, 50.0)), AllocatedRect2D(11.0, 12.0, 0.0, 0.0)},
        {"an unknown object, the point (0, 0)", OMC::toVariant(Obj(new OMC::BaseObject)),
         AllocatedRect2D(11.0, 12.0, 0.0, 0.0)},
        {"a point that is no number", QVariantList{nan, nan}, AllocatedRect2D(10.0, 10.0, 1.0, 2.0)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        AllocatedRect2D rectangle(10.0, 10.0, 1.0, 2.0);
        rectangle.add(row.value);
        EXPECT_EQ(rectangle.__str__(), row.expected.__str__());
    }
}

TEST(AllocatedRect2DChangeTest, ANegativeSizeIsTurnedOver)
{
    AllocatedRect2D rectangle(-4.0, -6.0, 10.0, 10.0);
    rectangle.add(QVariantList{8, 8});
    EXPECT_EQ(rectangle, AllocatedRect2D(4.0, 6.0, 6.0, 4.0));
}

TEST(AllocatedRect2DChangeTest, OneWithoutAPlaceTakesTheFirstPoint)
{
    AllocatedRect2D rectangle(nan, nan, nan, nan);
    rectangle.add(QVariantList{3, 4});
    EXPECT_EQ(rectangle, AllocatedRect2D(0.0, 0.0, 3.0, 4.0));
}

TEST(AllocatedRect2DChangeTest, ExpandingMovesTheSidesOutwards)
{
    AllocatedRect2D rectangle(10.0, 10.0, 1.0, 2.0);
    rectangle.expand(3.0, 4.0);
    EXPECT_EQ(rectangle, AllocatedRect2D(16.0, 18.0, -2.0, -2.0));
    rectangle.expand(-3.0, -4.0);
    EXPECT_EQ(rectangle, AllocatedRect2D(10.0, 10.0, 1.0, 2.0));
    rectangle.expand(1.0, 2.0, 3.0, 4.0);
    EXPECT_EQ(rectangle, AllocatedRect2D(14.0, 16.0, 0.0, 0.0));
}

TEST(AllocatedRect2DChangeTest, SidesThatPassEachOtherChangePlaces)
{
    AllocatedRect2D rectangle(10.0, 10.0, 0.0, 0.0);
    rectangle.expand(-8.0, 0.0, -8.0, 0.0);
    EXPECT_EQ(rectangle, AllocatedRect2D(6.0, 10.0, 2.0, 0.0));
    rectangle.expand(0.0, -20.0, 0.0, 0.0);
    EXPECT_EQ(rectangle, AllocatedRect2D(6.0, 10.0, 2.0, 10.0));
}

TEST(AllocatedRect2DChangeTest, AMarginThatIsNotFiniteIsRefusedAndChangesNothing)
{
    AllocatedRect2D rectangle(10.0, 10.0, 1.0, 2.0);
    for (const double margin : {nan, infinity, -infinity}) {
        EXPECT_EQ(failureOf([&] { rectangle.expand(margin, 1.0); }), "Invalid argument at index 0.");
        EXPECT_EQ(failureOf([&] { rectangle.expand(1.0, margin); }), "Invalid argument at index 1.");
        EXPECT_EQ(failureOf([&] { rectangle.expand(1.0, 1.0, margin, 1.0); }), "Invalid argument at index 2.");
        EXPECT_EQ(failureOf([&] { rectangle.expand(1.0, 1.0, 1.0, margin); }), "Invalid argument at index 3.");
    }
    EXPECT_EQ(rectangle, AllocatedRect2D(10.0, 10.0, 1.0, 2.0));
}

} // namespace
