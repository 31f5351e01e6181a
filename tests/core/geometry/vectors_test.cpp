#include "core/geometry/vectors.h"

#include "core/frame/obj.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using OMC::Point2d;
using OMC::Point3d;
using OMC::Vector2d;
using OMC::Vector3d;

TEST(VectorTest, ItsCoordinatesAreZeroUnlessTheyAreGiven)
{
    EXPECT_EQ(Vector2d(), Point2d(0.0, 0.0));
    EXPECT_EQ(Vector2d(1.0, 2.0), Point2d(1.0, 2.0));
    EXPECT_EQ(Vector3d(), Point3d(0.0, 0.0, 0.0));
    EXPECT_EQ(Vector3d(1.0, 2.0, 3.0), Point3d(1.0, 2.0, 3.0));
    EXPECT_EQ(Vector2d(Math::Vector2d{1.0, 2.0}), Point2d(1.0, 2.0));
}

TEST(VectorTest, ItsTextHasItsOwnName)
{
    EXPECT_EQ(Vector2d(1.5, -2.0).__str__(), "Vector2d(1.5, -2)");
    EXPECT_EQ(Vector3d(1.5, -2.0, 1e300).__str__(), "Vector3d(1.5, -2, 1e+300)");
}

TEST(VectorTest, ACopyIsAnotherVector)
{
    const Vector3d vector(1.0, 2.0, 3.0);
    const std::unique_ptr<OMC::BaseObject> copy(vector.copy());
    ASSERT_NE(dynamic_cast<const Vector3d*>(copy.get()), nullptr);
    EXPECT_EQ(dynamic_cast<const Vector3d&>(*copy), vector);
    const std::unique_ptr<OMC::BaseObject> planeCopy(Vector2d(1.0, 2.0).copy());
    ASSERT_NE(dynamic_cast<const Vector2d*>(planeCopy.get()), nullptr);
    EXPECT_EQ(dynamic_cast<const Vector2d&>(*planeCopy), Point2d(1.0, 2.0));
}

TEST(VectorTest, AssigningTakesTheCoordinatesOnly)
{
    Vector2d vector;
    vector.setOwnership(OMC::OwnedByPython);
    vector = Vector2d(4.0, 5.0);
    EXPECT_EQ(vector, Point2d(4.0, 5.0));
    EXPECT_EQ(vector.getOwnership(), OMC::OwnedByPython);
    Vector3d space;
    space = Vector3d(4.0, 5.0, 6.0);
    EXPECT_EQ(space, Point3d(4.0, 5.0, 6.0));
}

TEST(VectorTest, ItTravelsInsideAVariantByValue)
{
    const QVariant plane = QVariant::fromValue(Vector2d(1.0, 2.0));
    ASSERT_NE(OMC::objectFrom<Vector2d>(plane), nullptr);
    const QVariant space = QVariant::fromValue(Vector3d(1.0, 2.0, 3.0));
    ASSERT_NE(OMC::objectFrom<Vector3d>(space), nullptr);
    EXPECT_EQ(*OMC::objectFrom<Vector3d>(space), Point3d(1.0, 2.0, 3.0));
}

TEST(VectorTest, ItReadsWhatAPointReads)
{
    EXPECT_EQ(Vector2d(QVariant(QVariantList{1, 2, 3, 4})), Point2d(5.0, 2.0));
    EXPECT_EQ(Vector3d(QVariant(QVariantList{1, 2, 3, 4})), Point3d(5.0, 2.0, 3.0));
    EXPECT_EQ(Vector3d(QVariant(5)), Point3d(5.0, 5.0, 5.0));
    const std::unique_ptr<Vector2d> plane(Vector2d::fromQVariant(QVariant::fromValue(Point3d(1.0, 2.0, 3.0))));
    EXPECT_EQ(*plane, Point2d(1.0, 2.0));
    const std::unique_ptr<Vector3d> space(Vector3d::fromQVariant(QStringLiteral("a")));
    EXPECT_EQ(*space, Point3d());
}

TEST(VectorTest, TheStrictReadersTakeItForThePointThatItIs)
{
    double x = -1.0;
    double y = -2.0;
    double z = -3.0;
    Point3d::ConvertQVariant(QVariant::fromValue(Vector2d(1.0, 2.0)), x, y, z);
    EXPECT_EQ(Point3d(x, y, z), Point3d(1.0, 2.0, -3.0));
    Point3d::ConvertQVariant(QVariant::fromValue(Vector3d(4.0, 5.0, 6.0)), x, y, z);
    EXPECT_EQ(Point3d(x, y, z), Point3d(4.0, 5.0, 6.0));
    Point2d::ConvertQVariant(QVariant::fromValue(Vector3d(7.0, 8.0, 9.0)), x, y);
    EXPECT_EQ(Point2d(x, y), Point2d(7.0, 8.0));
}

TEST(VectorTest, ItMovesAsAPointDoes)
{
    Vector2d vector(1.0, 2.0);
    vector.translate(QVariantList{1, 1});
    EXPECT_EQ(vector, Point2d(2.0, 3.0));
}

} // namespace
