#include "core/host/math_matrix4x4.h"

#include "tests/engine/math/matrices.h"
#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <Imath/ImathMatrix.h>

#include <limits>
#include <numbers>
#include <stdexcept>

namespace {

using Math::Matrix4x4;
using Math::Point3d;
using Math::Vector3d;

double determinant(const Matrix4x4& matrix)
{
    Imath::M44d cells;
    matrix.getValues(cells.getValue());
    return cells.determinant();
}

TEST(Matrix4x4, ItsCellsAreTheAxesTheOriginAndTheHomogeneousForm)
{
    const Matrix4x4 matrix = counted();
    EXPECT_EQ(matrix.axis(0), (Vector3d{1, 2, 3}));
    EXPECT_EQ(matrix.axis(1), (Vector3d{5, 6, 7}));
    EXPECT_EQ(matrix.axis(2), (Vector3d{9, 10, 11}));
    EXPECT_EQ(matrix.origin(), (Point3d{13, 14, 15}));
    EXPECT_EQ(matrix.axis(3), Vector3d());
    EXPECT_EQ(matrix.axis(-1), Vector3d());
    double cells[16];
    matrix.getValues(cells);
    EXPECT_TRUE(Matrix4x4(cells).compare(matrix));
}

TEST(Matrix4x4, StartsAsTheIdentityAndIsClearedToIt)
{
    Matrix4x4 matrix;
    EXPECT_TRUE(matrix.isIdentity());
    matrix = counted();
    EXPECT_FALSE(matrix.isIdentity());
    matrix.clear();
    EXPECT_TRUE(matrix.isIdentity());
}

TEST(Matrix4x4, APointIsTheSumOfTheAxesFromTheOrigin)
{
    const double cells[16] = {1, 2, 3, 0, 5, 6, 7, 0, 9, 10, 11, 0, 13, 14, 15, 1};
    EXPECT_EQ(Matrix4x4(cells) * (Point3d{1, 10, 100}), (Point3d{964, 1076, 1188}));
}

TEST(Matrix4x4, APointIsDividedByItsHomogeneousScale)
{
    double cells[16] = {1, 0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    EXPECT_EQ(Matrix4x4(cells) * (Point3d{1, 4, 6}), (Point3d{0.5, 2, 3}));
    EXPECT_EQ(Matrix4x4(cells) * (Point3d{-1, 4, 6}), (Point3d{-1, 4, 6})) << "at infinity: its direction";
}

TEST(Matrix4x4, TheRightHandMatrixOfAProductActsFirst)
{
    Matrix4x4 move;
    move.translate(10, 0, 0);
    Matrix4x4 grow;
    grow.scale(2, 2, 2);
    EXPECT_EQ((move * grow) * (Point3d{1, 1, 1}), (Point3d{12, 2, 2}));
    EXPECT_EQ((grow * move) * (Point3d{1, 1, 1}), (Point3d{22, 2, 2}));

    RandomMatrices random(1);
    for (int round = 0; round < rounds; ++round) {
        const Matrix4x4 one = random.any();
        const Matrix4x4 two = random.any();
        const Point3d point = random.point(10);
        expectNear((one * two) * point, one * (two * point), 1e-6); // Division by a small scale costs digits.
        for (std::size_t column = 0; column < 4; ++column) {
            for (std::size_t row = 0; row < 4; ++row) {
                double sum = 0;
                for (std::size_t i = 0; i < 4; ++i)
                    sum += one.cells()[4 * i + row] * two.cells()[4 * column + i];
                EXPECT_NEAR((one * two).cells()[4 * column + row], sum, 1e-12);
            }
        }
    }
}

TEST(Matrix4x4, EachStepIsAProductFromTheRight)
{
    RandomMatrices random(2);
    for (int round = 0; round < rounds; ++round) {
        const Matrix4x4 start = random.any();
        const Vector3d v = random.vector(5);
        const Vector3d axis = random.vector(1);
        const double angle = random.number(-1000, 1000);
        const auto check = [&](auto step) {
            Matrix4x4 stepped = start;
            step(stepped);
            Matrix4x4 alone;
            step(alone);
            expectNear(stepped, start * alone, 1e-13);
        };
        check([&](Matrix4x4& m) { m.translate(v.x, v.y, v.z); });
        check([&](Matrix4x4& m) { m.scale(v.x, v.y, v.z); });
        check([&](Matrix4x4& m) { m.skew(v.x); });
        check([&](Matrix4x4& m) { m.rotateDegrees(angle, axis); });
        check([&](Matrix4x4& m) { m.rotateRadians(angle, axis); });
        check([&](Matrix4x4& m) { m.lookAt(Point3d() + v, {}, axis); });
        check([&](Matrix4x4& m) { m.orthogonalProject(v.x, 6, v.y, 6, v.z, 6); });
        check([&](Matrix4x4& m) { m.perspectiveProject(50, 1.5, 0.5, 6); });
    }
}

TEST(Matrix4x4, SkewLeansTheYAxisTowardsX)
{
    Matrix4x4 matrix;
    matrix.skew(45);
    expectNear(matrix * Point3d{0, 2, 0}, {2, 2, 0});
    EXPECT_EQ(matrix * (Point3d{3, 0, 0}), (Point3d{3, 0, 0}));
}

TEST(Matrix4x4, RotationsAreCounterClockwiseAboutTheirAxis)
{
    struct Row {
        Vector3d axis;
        Point3d from, to;
    };
    const Row rows[] = {{{0, 0, 1}, {1, 0, 0}, {0, 1, 0}},  {{0, 0, 7}, {0, 1, 0}, {-1, 0, 0}},
                        {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}},  {{0, 1, 0}, {0, 0, 1}, {1, 0, 0}},
                        {{0, 0, -1}, {0, 1, 0}, {1, 0, 0}}, {{1, 1, 1}, {1, 0, 0}, {0, 1, 0}}};
    for (const Row& row : rows) {
        Matrix4x4 degrees;
        Matrix4x4 radians;
        const double angle = row.axis == Vector3d{1, 1, 1} ? 120 : 90;
        degrees.rotateDegrees(angle, row.axis);
        radians.rotateRadians(angle / 180 * std::numbers::pi, row.axis);
        expectNear(degrees * row.from, row.to, 1e-15);
        expectNear(radians, degrees, 1e-15);
    }
}

TEST(Matrix4x4, RotationsAgreeWithImathOnRandomAxes)
{
    RandomMatrices random(3);
    for (int round = 0; round < rounds; ++round) {
        const Vector3d axis = random.vector(10);
        const double angle = random.number(-20, 20);
        Imath::M44d expected;
        expected.setAxisAngle(Imath::V3d(axis.x, axis.y, axis.z), angle);
        Matrix4x4 matrix;
        matrix.rotateRadians(angle, axis);
        expectNear(matrix, Matrix4x4(expected.getValue()), 1e-14);
        Matrix4x4 degrees;
        degrees.rotateDegrees(angle * 180 / std::numbers::pi, axis);
        expectNear(degrees, matrix, 1e-13);
    }
}

TEST(Matrix4x4, QuarterTurnsAreExactHoweverManyThereAre)
{
    for (const double turns : {1.0, -1.0, 3.0, 1e6, -1e12}) {
        Matrix4x4 matrix;
        matrix.rotateDegrees(turns * 360, {0, 0, 1});
        EXPECT_TRUE(matrix.isIdentity()) << turns;
        matrix.rotateDegrees(turns * 360 + 90, {0, 0, 1});
        EXPECT_EQ(matrix * (Point3d{1, 0, 0}), (Point3d{0, 1, 0}));
        matrix.rotateDegrees(180, {0, 0, 1});
        matrix.rotateDegrees(-270, {0, 0, 1});
        EXPECT_TRUE(matrix.isIdentity()) << turns;
    }
}

TEST(Matrix4x4, AnAxisOfAnySizeServesAndOneWithoutLengthTurnsNothing)
{
    for (const double size : {5e-324, 1e-200, 1.0, 1e300, std::numeric_limits<double>::max()}) {
        Matrix4x4 matrix;
        matrix.rotateDegrees(90, {0, 0, size});
        EXPECT_EQ(matrix * (Point3d{1, 0, 0}), (Point3d{0, 1, 0})) << size;
        Matrix4x4 slanted;
        slanted.rotateDegrees(120, {size, size, size});
        expectNear(slanted * Point3d{1, 0, 0}, {0, 1, 0});
    }
    Matrix4x4 matrix = counted();
    matrix.rotateDegrees(30, {});
    matrix.rotateRadians(3, {});
    EXPECT_TRUE(matrix.compare(counted()));
}

TEST(Matrix4x4, WhatIsNoNumberGoesThroughTheArithmeticAndIsToldOf)
{
    Matrix4x4 matrix;
    EXPECT_FALSE(matrix.hasNan() || matrix.hasInfinity());
    matrix.translate(infinity, 0, 0);
    EXPECT_TRUE(matrix.hasInfinity());
    matrix = Matrix4x4();
    matrix.rotateDegrees(30, {nan, 0, 0});
    EXPECT_TRUE(matrix.hasNan());
    matrix = Matrix4x4();
    matrix.scale(1e300, 1, 1);
    EXPECT_FALSE(matrix.hasInfinity());
    matrix.scale(1e300, 1, 1);
    EXPECT_TRUE(matrix.hasInfinity());
    EXPECT_TRUE(matrix.isSingular());
}

TEST(Matrix4x4, AFrameHasItsYAxisAlongADirection)
{
    EXPECT_TRUE(Matrix4x4(Vector3d{0, 5, 0}, Point3d()).isIdentity());
    EXPECT_EQ(Matrix4x4(Vector3d(), Point3d{1, 2, 3}).origin(), (Point3d{1, 2, 3}));
    EXPECT_EQ(Matrix4x4(Vector3d(), Point3d()).axis(1), (Vector3d{0, 1, 0}));
    const Matrix4x4 down({0, -2, 0}, {});
    EXPECT_EQ(down.axis(1), (Vector3d{0, -1, 0}));
    EXPECT_EQ(down.axis(0), (Vector3d{-1, 0, 0})) << "half a turn in the picture's plane";
    RandomMatrices random(4);
    for (int round = 0; round < rounds; ++round) {
        const Vector3d direction = random.vector(1e3);
        const Matrix4x4 frame(direction, random.point(10));
        const Vector3d unit = direction * (1 / direction.length());
        expectNear(Point3d() + frame.axis(1), Point3d() + unit, 1e-12);
        expectNear(Point3d() + frame.axis(0).cross(frame.axis(1)), Point3d() + frame.axis(2), 1e-12);
    }
}

TEST(Matrix4x4, NormalizeMakesUnitAxesAndKeepsThePlace)
{
    const double cells[16] = {6, 8, 0, 0, 0, -4, 0, 0, 0, 0, 0, 0, 2, 4, 6, 2};
    Matrix4x4 matrix(cells);
    matrix.normalize();
    EXPECT_EQ(matrix.axis(0), (Vector3d{0.6, 0.8, 0}));
    EXPECT_EQ(matrix.axis(1), (Vector3d{0, -1, 0}));
    EXPECT_EQ(matrix.axis(2), Vector3d());
    EXPECT_EQ(matrix.origin(), (Point3d{1, 2, 3}));
    EXPECT_EQ(matrix.cells()[15], 1);
}

TEST(Matrix4x4, TransposeSwapsRowsAndColumns)
{
    Matrix4x4 matrix = counted();
    matrix.transpose();
    EXPECT_EQ(matrix.axis(0), (Vector3d{1, 5, 9}));
    EXPECT_EQ(matrix.cells()[3], 13);
    matrix.transpose();
    EXPECT_TRUE(matrix.compare(counted()));
}

TEST(Matrix4x4, TheInverseUndoesTheMatrix)
{
    RandomMatrices random(5);
    for (int round = 0; round < rounds; ++round) {
        const Matrix4x4 matrix = random.any();
        if (std::abs(determinant(matrix)) < 1)
            continue; // An inverse of large numbers can't be exact to small ones.
        ASSERT_FALSE(matrix.isSingular());
        expectNear(matrix * matrix.getInverse(), Matrix4x4());
        expectNear(matrix.getInverse() * matrix, Matrix4x4());
        Matrix4x4 inverted = matrix;
        inverted.inverse();
        EXPECT_TRUE(inverted.compare(matrix.getInverse()));
    }
}

TEST(Matrix4x4, ASingularMatrixHasNoInverseAndStaysAsItIs)
{
    const double planes[16] = {1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, 0, 0, 0, 1};
    Matrix4x4 flat;
    flat.scale(1, 0, 1);
    Matrix4x4 endless;
    endless.translate(infinity, 0, 0);
    Matrix4x4 undefined;
    undefined.scale(nan, 1, 1);
    Matrix4x4 beyond;
    beyond.scale(1e-310, 1e-310, 1e-310);
    for (const Matrix4x4& matrix : {Matrix4x4(planes), flat, endless, undefined, beyond, counted()}) {
        EXPECT_THROW(matrix.getInverse(), std::domain_error);
        Matrix4x4 kept = matrix;
        EXPECT_THROW(kept.inverse(), std::domain_error);
        EXPECT_TRUE(kept.hasNan() || kept.compare(matrix));
    }
    EXPECT_TRUE(Matrix4x4(planes).isSingular());
    EXPECT_TRUE(flat.isSingular());
    EXPECT_TRUE(endless.isSingular());
    EXPECT_TRUE(undefined.isSingular());
}

TEST(Matrix4x4, NeitherAFarOriginNorASmallScaleMakesItSingular)
{
    Matrix4x4 matrix;
    matrix.translate(1e17, -1e17, 1e17);
    EXPECT_FALSE(matrix.isSingular());
    matrix.scale(1e-100, 1e100, 1e-5);
    EXPECT_FALSE(matrix.isSingular());
    Matrix4x4 small;
    small.scale(1e-200, 1e-200, 1e-200);
    expectNear(small.getInverse() * small, Matrix4x4());
}

TEST(Matrix4x4, ItsKindsAreTold)
{
    Matrix4x4 plane;
    plane.translate(3, 4, 0);
    plane.rotateDegrees(33, {0, 0, 1});
    plane.scale(2, 3, 1);
    plane.skew(10);
    EXPECT_TRUE(plane.isTransform2d());
    EXPECT_TRUE(plane.isConstantZ());
    EXPECT_TRUE(plane.hasRotation());
    EXPECT_FALSE(plane.isPerspectiveProjection());

    Matrix4x4 deep = plane;
    deep.translate(0, 0, -2);
    EXPECT_FALSE(deep.isTransform2d());
    EXPECT_TRUE(deep.isConstantZ());

    Matrix4x4 tilted = plane;
    tilted.rotateDegrees(5, {1, 0, 0});
    EXPECT_FALSE(tilted.isConstantZ());

    Matrix4x4 grown;
    grown.scale(2, 3, 4);
    EXPECT_FALSE(grown.hasRotation());
    EXPECT_FALSE(grown.isTransform2d());
    Matrix4x4 projected;
    projected.perspectiveProject(40, 1, 1, 9);
    EXPECT_TRUE(projected.isPerspectiveProjection());
}

TEST(Matrix4x4, ScaleFactorIsHowMuchLengthsGrowInThePlane)
{
    Matrix4x4 matrix;
    EXPECT_EQ(matrix.scaleFactor(), 1);
    matrix.rotateDegrees(40, {1, 2, 3});
    matrix.scale(2, 8, 100);
    EXPECT_NEAR(matrix.scaleFactor(), 4, 1e-12);
    matrix.scale(-1, 1, 1);
    EXPECT_NEAR(matrix.scaleFactor(), 4, 1e-12);
    matrix.scale(0, 1, 1);
    EXPECT_EQ(matrix.scaleFactor(), 0);
    Matrix4x4 large;
    large.scale(1e200, 1e200, 1);
    EXPECT_NEAR(large.scaleFactor() / 1e200, 1, 1e-12);
    const double half[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 2};
    EXPECT_EQ(Matrix4x4(half).scaleFactor(), 0.5);
}

TEST(Matrix4x4, TruckFactorIsTheSizeThatTheCameraSees)
{
    struct Row {
        double z, factor;
    };
    for (const Row& row : {Row{0, 1}, Row{Matrix4x4::cameraDistance / 2, 2}, Row{-Matrix4x4::cameraDistance, 0.5},
                           Row{Matrix4x4::cameraDistance, 0}, Row{100, 0}, Row{-infinity, 0}}) {
        Matrix4x4 matrix;
        matrix.translate(5, 6, row.z);
        if (std::isinf(row.z)) {
            double cells[16];
            Matrix4x4().getValues(cells);
            cells[14] = row.z;
            matrix = Matrix4x4(cells);
        }
        EXPECT_NEAR(matrix.truckFactor(), row.factor, 1e-15) << row.z;
    }
}

TEST(Matrix4x4, TheMapOfThePlaneIsWhatItDoesThere)
{
    RandomMatrices random(7);
    for (int round = 0; round < rounds; ++round) {
        Matrix4x4 matrix;
        matrix.translate(random.number(-9, 9), random.number(-9, 9), 0);
        matrix.rotateDegrees(random.number(-180, 180), {0, 0, 1});
        matrix.skew(random.number(-60, 60));
        matrix.scale(random.scale(true), random.scale(true), 1);
        const Point3d point{random.number(-9, 9), random.number(-9, 9), 0};
        const Math::Point2d mapped = matrix.getTransform2d() * Math::Point2d{point.x, point.y};
        expectNear(Point3d{mapped.x, mapped.y, 0}, matrix * point);
    }
    const double half[16] = {1, 2, 0, 0, 3, 4, 0, 0, 0, 0, 1, 0, 5, 6, 0, 2};
    EXPECT_EQ(Matrix4x4(half).getTransform2d(), (Math::Matrix2x3({0.5, 1}, {1.5, 2}, {2.5, 3})));
}

TEST(Matrix4x4, ComparesCellByCell)
{
    Matrix4x4 matrix = counted();
    EXPECT_TRUE(matrix.compare(counted()));
    matrix.translate(0, 0, 1e-12);
    EXPECT_FALSE(matrix.compare(counted()));
    Matrix4x4 undefined;
    undefined.scale(nan, 1, 1);
    EXPECT_FALSE(undefined.compare(undefined));
}

TEST(Matrix4x4, PrintsItsTextAndFourCellsALine)
{
    Matrix4x4 matrix;
    matrix.translate(1.5, 0, 0);
    testing::internal::CaptureStdout();
    matrix.print("camera");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "camera\n"
                                                      "           1            0            0            0\n"
                                                      "           0            1            0            0\n"
                                                      "           0            0            1            0\n"
                                                      "         1.5            0            0            1\n");
}

} // namespace
