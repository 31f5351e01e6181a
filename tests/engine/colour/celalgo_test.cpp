#include "core/host/celalgo.h"

#include <gtest/gtest.h>

#include <QColor>

#include <cmath>
#include <limits>
#include <random>

namespace {

struct Rgb {
    double r = -1.0, g = -1.0, b = -1.0;
};
struct Hsl {
    double h = -1.0, s = -1.0, l = -1.0;
};

Rgb rgbOf(double h, double s, double l)
{
    Rgb rgb;
    CelAlgo::hslToRgb(h, s, l, rgb.r, rgb.g, rgb.b);
    return rgb;
}

Hsl hslOf(double r, double g, double b)
{
    Hsl hsl;
    CelAlgo::rgbToHsl(r, g, b, hsl.h, hsl.s, hsl.l);
    return hsl;
}

void expectRgb(const Rgb& rgb, double r, double g, double b)
{
    EXPECT_NEAR(rgb.r, r, 1e-12);
    EXPECT_NEAR(rgb.g, g, 1e-12);
    EXPECT_NEAR(rgb.b, b, 1e-12);
}

// The examples of "HSL Colors" in the CSS Color Module.
TEST(CelAlgoTest, TheHuesOfTheCircle)
{
    const struct {
        double h, r, g, b;
    } rows[] = {
        {0, 1, 0, 0},   {30, 1, 0.5, 0},  {60, 1, 1, 0},  {90, 0.5, 1, 0},  {120, 0, 1, 0}, {150, 0, 1, 0.5},
        {180, 0, 1, 1}, {210, 0, 0.5, 1}, {240, 0, 0, 1}, {270, 0.5, 0, 1}, {300, 1, 0, 1}, {330, 1, 0, 0.5},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.h);
        expectRgb(rgbOf(row.h, 1, 0.5), row.r, row.g, row.b);
        expectRgb(rgbOf(row.h + 360, 1, 0.5), row.r, row.g, row.b);
        expectRgb(rgbOf(row.h - 720, 1, 0.5), row.r, row.g, row.b);
        const Hsl hsl = hslOf(row.r, row.g, row.b);
        EXPECT_NEAR(hsl.h, row.h, 1e-12);
        EXPECT_NEAR(hsl.s, 1.0, 1e-12);
        EXPECT_NEAR(hsl.l, 0.5, 1e-12);
    }
}

TEST(CelAlgoTest, BlackWhiteAndGrey)
{
    for (const double lightness : {0.0, 0.25, 0.5, 1.0}) {
        expectRgb(rgbOf(77, 0, lightness), lightness, lightness, lightness);
        const Hsl hsl = hslOf(lightness, lightness, lightness);
        EXPECT_EQ(hsl.h, 0.0);
        EXPECT_EQ(hsl.s, 0.0);
        EXPECT_EQ(hsl.l, lightness);
    }
    expectRgb(rgbOf(77, 1, 0), 0, 0, 0);
    expectRgb(rgbOf(77, 1, 1), 1, 1, 1);
    const Rgb black = rgbOf(0, 0, 0);
    EXPECT_EQ(black.r + black.g + black.b, 0.0);
}

TEST(CelAlgoTest, ThereAndBackIsTheSameColour)
{
    std::mt19937 random(7); // NOLINT: the same colours every time
    std::uniform_real_distribution<double> channel(0.0, 1.0);
    for (int i = 0; i < 10000; ++i) {
        const double r = channel(random);
        const double g = channel(random);
        const double b = channel(random);
        const Hsl hsl = hslOf(r, g, b);
        EXPECT_GE(hsl.h, 0.0);
        EXPECT_LT(hsl.h, 360.0);
        EXPECT_GE(hsl.s, 0.0);
        EXPECT_LE(hsl.s, 1.0);
        const Rgb rgb = rgbOf(hsl.h, hsl.s, hsl.l);
        EXPECT_NEAR(rgb.r, r, 1e-12);
        EXPECT_NEAR(rgb.g, g, 1e-12);
        EXPECT_NEAR(rgb.b, b, 1e-12);
    }
}

TEST(CelAlgoTest, AgreesWithQColorToItsPrecision)
{
    for (int h = 0; h < 360; h += 11) {
        for (int s = 0; s <= 100; s += 20) {
            for (int l = 0; l <= 100; l += 20) {
                const QColor reference = QColor::fromHslF(h / 360.0F, s / 100.0F, l / 100.0F).toRgb();
                const Rgb rgb = rgbOf(h, s / 100.0, l / 100.0);
                EXPECT_NEAR(rgb.r, reference.redF(), 1e-3);
                EXPECT_NEAR(rgb.g, reference.greenF(), 1e-3);
                EXPECT_NEAR(rgb.b, reference.blueF(), 1e-3);
            }
        }
    }
}

TEST(CelAlgoTest, WhatLiesBeyondTheScaleIsHeldOnIt)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    expectRgb(rgbOf(0, 7, 0.5), 1, 0, 0);
    expectRgb(rgbOf(0, infinity, -3), 0, 0, 0);
    expectRgb(rgbOf(nan, 1, 0.5), 1, 0, 0);
    expectRgb(rgbOf(infinity, 1, 0.5), 1, 0, 0);
    expectRgb(rgbOf(0, nan, nan), 0, 0, 0);
    expectRgb(rgbOf(-1e-300, 1, 0.5), 1, 0, 0);
    expectRgb(rgbOf(1e300, 0, 0.5), 0.5, 0.5, 0.5);
    EXPECT_EQ(hslOf(9, -9, nan).h, 0.0);
    EXPECT_EQ(hslOf(9, -9, nan).s, 1.0);
    EXPECT_EQ(hslOf(9, -9, nan).l, 0.5);
    const Hsl faint = hslOf(5e-324, 0, 0);
    EXPECT_TRUE(std::isfinite(faint.h) && std::isfinite(faint.s) && std::isfinite(faint.l));
}

} // namespace
