#include "render/operations/blur.h"
#include "tests/render/support/pictures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace brindle::render;
using pictures::at;
using pictures::filled;
using pictures::Pixel;

namespace {

constexpr QSize square(101, 101);

/// One white pixel in the middle.
Picture dot()
{
    return filled(square, {50, 50, 1, 1}, {65535, 65535, 65535, 65535});
}

double sumOf(const Picture& picture)
{
    double sum = 0;
    for (int y = picture.box().top(); y <= picture.box().bottom(); ++y) {
        for (int x = picture.box().left(); x <= picture.box().right(); ++x)
            sum += at(picture, x, y)[3];
    }
    return sum;
}

} // namespace

TEST(BlurTest, ADotBecomesABellOfTheStatedWidth)
{
    for (const double radius : {4.0, 8.0, 20.0}) {
        Picture picture = dot();
        blur(picture, radius, 0);
        double variance = 0;
        double sum = 0;
        for (int x = picture.box().left(); x <= picture.box().right(); ++x) {
            const double share = at(picture, x, 50)[3];
            sum += share;
            variance += share * (x - 50) * (x - 50);
        }
        EXPECT_NEAR(std::sqrt(variance / sum), radius / 2, 0.05 * radius) << radius;
        EXPECT_NEAR(sum, 65535, 100) << "no light is lost";
    }
}

TEST(BlurTest, ItIsTheSameInAllFourDirections)
{
    Picture picture = dot();
    blur(picture, 7, 7);
    for (int d = 0; d < 9; ++d) {
        EXPECT_EQ(at(picture, 50 + d, 50), at(picture, 50 - d, 50)) << d;
        EXPECT_NEAR(at(picture, 50, 50 + d)[3], at(picture, 50 + d, 50)[3], 1) << d;
    }
    EXPECT_NEAR(sumOf(picture), 65535, 600);
}

TEST(BlurTest, ThePlaneInsideOfAnAreaStays)
{
    Picture picture = filled(square, {10, 10, 80, 80}, {300, 200, 100, 60000});
    blur(picture, 6, 6);
    EXPECT_EQ(at(picture, 50, 50), (Pixel{300, 200, 100, 60000}));
    EXPECT_LT(at(picture, 10, 50)[3], 40000);
    EXPECT_GT(at(picture, 8, 50)[3], 0) << "the box grows";
}

TEST(BlurTest, WhatLiesOutsideOfThePictureComesIn)
{
    Picture picture = filled(square, {-6, 50, 5, 5}, {0, 0, 0, 65535});
    blur(picture, 8, 0);
    EXPECT_GT(at(picture, 0, 52)[3], 0);
}

TEST(BlurTest, WithoutARadiusNothingChanges)
{
    for (const double radius : {0.0, -3.0, std::numeric_limits<double>::quiet_NaN()}) {
        Picture picture = dot();
        blur(picture, radius, radius);
        EXPECT_EQ(picture.box(), QRect(50, 50, 1, 1));
    }
    Picture empty(square);
    blur(empty, 5, 5);
    EXPECT_TRUE(empty.isEmpty());
}
