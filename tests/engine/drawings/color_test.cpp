#include "core/host/gr_color.h"
#include "core/host/gr_linestyle.h"

#include <gtest/gtest.h>

namespace {

constexpr CM_ColorId_t skin{0x0123456789abcdefULL};
constexpr CM_ColorId_t paper{42};

TEST(Color, EachCopyDiffersInOneThingAndLeavesTheFirstAsItWas)
{
    const Math::Matrix2x3 twice({2, 0}, {0, 2}, {1, 1});
    const GR_ColorPtr colour = GR_Color::CreateWith(skin);
    EXPECT_EQ(*colour, GR_Color(skin));
    EXPECT_FALSE(colour->HasTexture());

    const GR_ColorPtr textured = colour->CopyWithTexture(paper, twice);
    EXPECT_TRUE(textured->HasTexture());
    EXPECT_EQ(textured->GetTextureID(), paper);
    EXPECT_EQ(textured->GetTextureMatrix(), twice);
    EXPECT_EQ(textured->GetMatrix(), Math::Matrix2x3());

    const GR_ColorPtr placed = textured->CopyWithDifferentGradientMatrix(twice);
    EXPECT_EQ(placed->GetMatrix(), twice);
    EXPECT_EQ(placed->CopyWithDifferentTextureMatrix({})->GetTextureMatrix(), Math::Matrix2x3());
    const GR_ColorPtr other = placed->CopyWithDifferentColorID(paper);
    EXPECT_EQ(other->GetColorID(), paper);
    EXPECT_EQ(other->GetTextureID(), paper);

    EXPECT_EQ(*placed->CopyWithoutTexture(), *GR_Color::CreateWith(skin, twice));
    EXPECT_EQ(*colour, GR_Color(skin));
    EXPECT_FALSE(*textured == *colour);
}

TEST(LineStyle, TypesTellWhetherThereIsALineAndPicturesShowIt)
{
    const struct {
        int type;
        bool isLine, isVisible;
    } table[] = {{0, false, false}, {1, false, false}, {2, true, false},
                 {3, true, true},   {4, true, true},   {128, false, false}};
    for (const auto& row : table) {
        const GR_LineStyle style(static_cast<GR_LineStyle::Type>(row.type));
        EXPECT_TRUE(GR_LineStyle::IsType(row.type));
        EXPECT_EQ(style.IsLine(), row.isLine) << row.type;
        EXPECT_EQ(style.IsVisible(), row.isVisible) << row.type;
    }
    EXPECT_FALSE(GR_LineStyle::IsType(5));
}

TEST(LineStyle, StylesAreEqualWhenAllFieldsAre)
{
    GR_LineStyle style(GR_LineStyle::kThick, skin, 3);
    const GR_LineStyle before = style;
    style.setOpacityTextureOffset({1, 0});
    EXPECT_FALSE(style == before);
    style.setOpacityTextureOffset({0, 0});
    EXPECT_EQ(style, before);
    EXPECT_FALSE(style.isOpacityTextured());
    style.SetOpacityColorID(paper);
    EXPECT_TRUE(style.isOpacityTextured());
    EXPECT_FALSE(style.isTextured()); // There is no palette.
}

} // namespace
