#include "render/operations/blend.h"
#include "tests/render/support/pictures.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace brindle::render;
using pictures::all;
using pictures::at;
using pictures::filled;
using pictures::Pixel;
using pictures::size;

namespace {

struct Mode {
    const char* name;
    BlendMode mode;
    double (*colour)(double s, double d, double sa, double da);
    double (*alpha)(double sa, double da);
};

double overAlpha(double sa, double da)
{
    return sa + da * (1 - sa);
}

/// A mode by what the two colours become where both pictures are opaque, as the W3C gives it.
template <double (*both)(double d, double s)>
double mixed(double s, double d, double sa, double da)
{
    const double mix = sa > 0 && da > 0 ? sa * da * both(d / da, s / sa) : 0;
    return mix + s * (1 - da) + d * (1 - sa);
}

double hardLight(double d, double s)
{
    return s <= 0.5 ? d * 2 * s : d + (2 * s - 1) - d * (2 * s - 1);
}

double overlay(double d, double s)
{
    return hardLight(s, d);
}

double softLight(double d, double s)
{
    const double root = d <= 0.25 ? ((16 * d - 12) * d + 4) * d : std::sqrt(d);
    return s <= 0.5 ? d - (1 - 2 * s) * d * (1 - d) : d + (2 * s - 1) * (root - d);
}

double darken(double d, double s)
{
    return std::min(d, s);
}

double lighten(double d, double s)
{
    return std::max(d, s);
}

double difference(double d, double s)
{
    return std::abs(d - s);
}

double exclusion(double d, double s)
{
    return d + s - 2 * d * s;
}

const Mode modes[] = {
    {"Normal", BlendMode::Normal, [](double s, double d, double sa, double) { return s + d * (1 - sa); }, overAlpha},
    {"Multiply", BlendMode::Multiply,
     [](double s, double d, double sa, double da) { return s * d + s * (1 - da) + d * (1 - sa); }, overAlpha},
    {"Screen", BlendMode::Screen, [](double s, double d, double, double) { return s + d - s * d; }, overAlpha},
    {"Add", BlendMode::Add, [](double s, double d, double, double) { return std::min(s + d, 1.0); },
     [](double sa, double da) { return std::min(sa + da, 1.0); }},
    {"Overlay", BlendMode::Overlay, mixed<overlay>, overAlpha},
    {"Darken", BlendMode::Darken, mixed<darken>, overAlpha},
    {"Lighten", BlendMode::Lighten, mixed<lighten>, overAlpha},
    {"Difference", BlendMode::Difference, mixed<difference>, overAlpha},
    {"Exclusion", BlendMode::Exclusion, mixed<exclusion>, overAlpha},
    {"SoftLight", BlendMode::SoftLight, mixed<softLight>, overAlpha},
    {"HardLight", BlendMode::HardLight, mixed<hardLight>, overAlpha},
};

const Pixel pixelsTried[] = {
    {0, 0, 0, 0},       {65535, 0, 0, 65535}, {65535, 65535, 65535, 65535}, {20000, 10000, 5, 40000}, {0, 0, 0, 65535},
    {128, 64, 32, 128}, {1, 1, 1, 1},         {30000, 30000, 30000, 30000},
};

class BlendTest : public testing::TestWithParam<Mode> {};

} // namespace

TEST_P(BlendTest, FollowsItsFormulaToTheLastStep)
{
    const Mode& mode = GetParam();
    for (const Pixel& s : pixelsTried) {
        for (const Pixel& d : pixelsTried) {
            Picture below = filled(size, all, d);
            blend(below, filled(size, all, s), mode.mode);
            const Pixel got = at(below, 3, 3);
            const double sa = s[3] / 65535.0;
            const double da = d[3] / 65535.0;
            EXPECT_NEAR(got[3], 65535 * mode.alpha(sa, da), 1.01);
            for (std::size_t c = 0; c < 3; ++c) {
                EXPECT_NEAR(got[c], 65535 * mode.colour(s[c] / 65535.0, d[c] / 65535.0, sa, da), 2.01);
                EXPECT_LE(got[c], got[3]) << "a colour is never more than its alpha";
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Modes, BlendTest, testing::ValuesIn(modes),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(BlendTest, APictureOverNothingIsItself)
{
    Picture below(size);
    const Picture above = filled(size, {2, 3, 4, 2}, {100, 50, 25, 200});
    blend(below, above);
    EXPECT_EQ(below.box(), QRect(2, 3, 4, 2));
    EXPECT_EQ(at(below, 3, 4), (Pixel{100, 50, 25, 200}));
    EXPECT_EQ(at(below, 1, 4), Pixel{});
}

TEST(BlendTest, BoxesThatLieApartAreHeldInOne)
{
    Picture below = filled(size, {0, 0, 2, 2}, {1000, 0, 0, 1000});
    const Picture before = below;
    blend(below, filled(size, {6, 6, 2, 2}, {0, 2000, 0, 2000}));
    EXPECT_EQ(below.box(), all);
    EXPECT_EQ(at(below, 1, 1), (Pixel{1000, 0, 0, 1000}));
    EXPECT_EQ(at(below, 6, 7), (Pixel{0, 2000, 0, 2000}));
    EXPECT_EQ(at(below, 4, 4), Pixel{});
    EXPECT_EQ(before.box(), QRect(0, 0, 2, 2)) << "a copy isn't touched";
}
