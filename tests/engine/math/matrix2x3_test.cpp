#include "core/host/math_matrix2x3.h"

#include <gtest/gtest.h>

namespace {

using Math::Matrix2x3;
using Math::Point2d;
using Math::Vector2d;

TEST(Matrix2x3, StartsAsTheIdentity)
{
    EXPECT_EQ(Matrix2x3() * (Point2d{3, 4}), (Point2d{3, 4}));
    EXPECT_EQ(Matrix2x3().determinant(), 1);
}

TEST(Matrix2x3, ALaterStepFollowsTheEarlierOnes)
{
    const Matrix2x3 scaledThenMoved = Matrix2x3().Scale({2, 3}).Translate({10, 20});
    EXPECT_EQ(scaledThenMoved * (Point2d{1, 1}), (Point2d{12, 23}));
    const Matrix2x3 movedThenScaled = Matrix2x3().Translate({10, 20}).Scale({2, 3});
    EXPECT_EQ(movedThenScaled * (Point2d{1, 1}), (Point2d{22, 63}));
}

TEST(Matrix2x3, AVectorIsNotMoved)
{
    EXPECT_EQ(Matrix2x3().Scale({2, 3}).Translate({10, 20}) * (Vector2d{1, 1}), (Vector2d{2, 3}));
}

TEST(Matrix2x3, TheRightHandMapOfAProductActsFirst)
{
    const Matrix2x3 one({1, 2}, {-3, 4}, {5, 6});
    const Matrix2x3 two({0, 1}, {7, -2}, {3, -8});
    const Point2d point{11, 13};
    EXPECT_EQ((one * two) * point, one * (two * point));
    EXPECT_EQ((one * two).determinant(), one.determinant() * two.determinant());
}

} // namespace
