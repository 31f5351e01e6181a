#include "core/host/math_matrix4x4.h"

#include "tests/engine/math/matrices.h"
#include "tests/support/numbers.h"

#include <gtest/gtest.h>

namespace {

using Math::Matrix4x4;
using Math::Point3d;
using Math::Vector3d;

TEST(MatrixView, TheDefaultLookAtIsTheIdentity)
{
    Matrix4x4 matrix;
    matrix.lookAt({}, {0, 0, -2.66}, {0, 1, 0});
    EXPECT_TRUE(matrix.isIdentity());
}

TEST(MatrixView, LookAtPutsTheTargetAheadAndUpUpwards)
{
    RandomMatrices random(6);
    for (int round = 0; round < rounds; ++round) {
        const Point3d eye = random.point(10);
        const Point3d target = random.point(10);
        const Vector3d up = random.vector(1);
        Matrix4x4 matrix;
        matrix.lookAt(eye, target, up);
        expectNear(matrix * eye, {});
        expectNear(matrix * target, {0, 0, -(target - eye).length()});
        const Point3d above = matrix * (eye + up);
        EXPECT_NEAR(above.x, 0, 1e-9);
        EXPECT_GE(above.y, 0);
        const Point3d one = random.point(10);
        const Point3d two = random.point(10);
        EXPECT_NEAR((matrix * one - matrix * two).length(), (one - two).length(), 1e-9) << "it moves and turns only";
    }
}

TEST(MatrixView, LookAtWithoutADirectionOrWithoutAnUpIsTheNearestTurn)
{
    Matrix4x4 nowhere;
    nowhere.lookAt({1, 2, 3}, {1, 2, 3}, {0, 1, 0});
    EXPECT_EQ(nowhere * (Point3d{1, 2, 2}), (Point3d{0, 0, -1}));
    EXPECT_EQ(nowhere.axis(1), (Vector3d{0, 1, 0}));
    Matrix4x4 down;
    down.lookAt({}, {0, -5, 0}, {0, 1, 0});
    expectNear(down * Point3d{0, -5, 0}, {0, 0, -5});
    expectNear(down * Point3d{1, 0, 0}, {1, 0, 0});
    Matrix4x4 noUp;
    noUp.lookAt({}, {0, 0, 4}, {});
    expectNear(noUp * Point3d{0, 0, 4}, {0, 0, -4});
    expectNear(noUp * Point3d{0, 1, 0}, {0, 1, 0});
}

TEST(MatrixView, AnOrthogonalProjectionBringsTheBoxToTheCube)
{
    Matrix4x4 matrix;
    ASSERT_TRUE(matrix.orthogonalProject(-2, 6, 1, 5, 0.5, 10));
    expectNear(matrix * Point3d{-2, 1, -0.5}, {-1, -1, -1});
    expectNear(matrix * Point3d{6, 5, -10}, {1, 1, 1});
    EXPECT_FALSE(matrix.isPerspectiveProjection());
}

TEST(MatrixView, APerspectiveProjectionBringsTheStumpToTheCube)
{
    Matrix4x4 matrix;
    ASSERT_TRUE(matrix.perspectiveProject(-2, 6, 1, 5, 0.5, 10));
    expectNear(matrix * Point3d{-2, 1, -0.5}, {-1, -1, -1});
    expectNear(matrix * Point3d{6 * 20, 5 * 20, -10}, {1, 1, 1});
    EXPECT_TRUE(matrix.isPerspectiveProjection());
    Matrix4x4 byAngle;
    ASSERT_TRUE(byAngle.perspectiveProject(90, 2, 1, 100));
    expectNear(byAngle * Point3d{2, 1, -1}, {1, 1, -1});
}

TEST(MatrixView, AProjectionOfNoVolumeChangesNothing)
{
    Matrix4x4 matrix = counted();
    EXPECT_FALSE(matrix.orthogonalProject(1, 1, 0, 1, 0, 1));
    EXPECT_FALSE(matrix.orthogonalProject(0, 1, 2, 2, 0, 1));
    EXPECT_FALSE(matrix.orthogonalProject(0, 1, 0, 1, 3, 3));
    EXPECT_FALSE(matrix.orthogonalProject(0, 0, 0, 0, 0, 0));
    EXPECT_FALSE(matrix.orthogonalProject(nan, 1, 0, 1, 0, 1));
    EXPECT_FALSE(matrix.orthogonalProject(-1, infinity, 0, 1, 0, 1));
    EXPECT_FALSE(matrix.perspectiveProject(0, 0, 0, 1, 1, 2));
    EXPECT_FALSE(matrix.perspectiveProject(0, 1, 1, 1, 1, 2));
    EXPECT_FALSE(matrix.perspectiveProject(0, 1, 0, 1, 2, 2));
    EXPECT_FALSE(matrix.perspectiveProject(0, 1, 0, 1, 0, 2));
    EXPECT_FALSE(matrix.perspectiveProject(0, 1, 0, 1, -1, 2));
    EXPECT_FALSE(matrix.perspectiveProject(0, 1, 0, 1, 1, -2));
    EXPECT_FALSE(matrix.perspectiveProject(0, 1, 1, 2));
    EXPECT_FALSE(matrix.perspectiveProject(180, 1, 1, 2));
    EXPECT_FALSE(matrix.perspectiveProject(50, 0, 1, 2));
    EXPECT_FALSE(matrix.perspectiveProject(nan, 1, 1, 2));
    EXPECT_TRUE(matrix.compare(counted()));
}

} // namespace
