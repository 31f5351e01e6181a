#include "render/operations/shade.h"
#include "tests/render/support/pictures.h"

#include <gtest/gtest.h>

#include <limits>

using namespace brindle::render;
using pictures::all;
using pictures::at;
using pictures::filled;
using pictures::Pixel;
using pictures::size;

namespace {

constexpr Pixel grey{20000, 20000, 20000, 40000};

} // namespace

TEST(ShadeTest, AMatteLetsThroughWhatLiesUnderIt)
{
    Picture picture = filled(size, all, grey);
    cut(picture, filled(size, {2, 2, 3, 3}, {0, 0, 0, 65535}));
    EXPECT_EQ(picture.box(), QRect(2, 2, 3, 3));
    EXPECT_EQ(at(picture, 3, 3), grey);
    EXPECT_EQ(at(picture, 1, 3), Pixel{});
}

TEST(ShadeTest, AnInvertedMatteLetsThroughTheRest)
{
    Picture picture = filled(size, all, grey);
    cut(picture, filled(size, {2, 2, 3, 3}, {0, 0, 0, 65535}), true);
    EXPECT_EQ(at(picture, 3, 3), Pixel{});
    EXPECT_EQ(at(picture, 1, 3), grey);
    EXPECT_EQ(at(picture, 5, 3), grey);
}

TEST(ShadeTest, AMatteAndItsInverseAddUpToThePicture)
{
    for (const std::uint16_t alpha : {0, 1, 257, 30000, 65534, 65535}) {
        Picture one = filled(size, all, grey);
        Picture other = one;
        const Picture matte = filled(size, all, {0, 0, 0, alpha});
        cut(one, matte);
        cut(other, matte, true);
        for (std::size_t c = 0; c < 4; ++c)
            EXPECT_NEAR(at(one, 4, 4)[c] + at(other, 4, 4)[c], grey[c], 1) << alpha;
    }
}

TEST(ShadeTest, AnEmptyMatteLetsNothingThroughAndItsInverseAll)
{
    Picture picture = filled(size, all, grey);
    cut(picture, Picture(size), true);
    EXPECT_EQ(at(picture, 4, 4), grey);
    cut(picture, Picture(size));
    EXPECT_TRUE(picture.isEmpty());
}

TEST(ShadeTest, OpacityMultiplies)
{
    struct Row {
        double opacity;
        Pixel expected;
    };
    const Row rows[] = {
        {1, grey}, {2, grey}, {0.5, {10000, 10000, 10000, 20000}},
        {0, {}},   {-1, {}},  {std::numeric_limits<double>::quiet_NaN(), {}},
    };
    for (const Row& row : rows) {
        Picture picture = filled(size, all, grey);
        fade(picture, row.opacity);
        EXPECT_EQ(at(picture, 4, 4), row.expected) << row.opacity;
        EXPECT_EQ(picture.size(), size);
    }
}

TEST(ShadeTest, ACardIsOfOneColourAllOver)
{
    const Picture card = colourCard(size, QRgba64::fromRgba(255, 128, 0, 255));
    EXPECT_EQ(at(card, 0, 0), (Pixel{65535, 128 * 257, 0, 65535}));
    EXPECT_EQ(at(card, 7, 7), at(card, 0, 0));
    EXPECT_EQ(at(colourCard(size, QRgba64::fromRgba(255, 128, 0, 51)), 2, 2), (Pixel{51 * 257, 6579, 0, 51 * 257}));
    EXPECT_TRUE(colourCard(size, QRgba64::fromRgba(255, 128, 0, 0)).isEmpty());
    EXPECT_TRUE(colourCard(QSize(), QRgba64::fromRgba(1, 2, 3, 255)).isEmpty());
}
