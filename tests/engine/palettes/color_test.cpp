#include "core/host/cm_color.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

CM_Color gradient(std::initializer_list<CM_GradientData> markers)
{
    CM_Color colour(CM_Color::kLinearGradient, "Sky");
    colour.setGradientDataCol(markers);
    return colour;
}

constexpr CM_Rgba red(255, 0, 0, 255);
constexpr CM_Rgba clearBlue(0, 0, 255, 0);

} // namespace

TEST(ColorTest, ANewColourHasAnIdentityOfItsOwnAndNoMarker)
{
    const CM_Color one(CM_Color::kSolid, "Skin");
    const CM_Color other(CM_Color::kSolid, "Skin");
    EXPECT_TRUE(one.GetID().IsValid());
    EXPECT_FALSE(one.GetID() == other.GetID());
    EXPECT_EQ(one.Size(), 0);
    EXPECT_EQ(one.GetGradientColor(0.5), CM_Rgba(0, 0, 0, 255));
}

TEST(ColorTest, ACloneSharesNothingAndKeepsOrRenewsTheIdentity)
{
    CM_Color colour = gradient({{0, red}});
    const auto kept = CM_CastToColor(colour.Clone(false));
    const auto renewed = CM_CastToColor(colour.Clone(true));
    EXPECT_EQ(kept->GetID(), colour.GetID());
    EXPECT_FALSE(renewed->GetID() == colour.GetID());
    EXPECT_EQ(renewed->GetColorName(), "Sky");
    kept->AddColorMarker({1, clearBlue});
    kept->Rename("Sea");
    EXPECT_EQ(colour.Size(), 1);
    EXPECT_EQ(colour.GetColorName(), "Sky");
}

TEST(ColorTest, MarkersStandByPositionAndThoseOfEqualPositionsAsTheyCame)
{
    CM_Color colour = gradient({{1, red}, {0.25, clearBlue}});
    EXPECT_EQ(colour.AddColorMarker({0.25, red}), 1);
    EXPECT_EQ(colour.AddColorMarker({-3, red}), 0);
    EXPECT_EQ(colour.AddColorMarker({NAN, clearBlue}), 1);
    EXPECT_EQ(colour.AddColorMarker({7, clearBlue}), 5);
    std::vector<double> positions;
    for (const CM_GradientData& marker : colour.gradientDataCol())
        positions.push_back(marker.position);
    EXPECT_EQ(positions, (std::vector<double>{0, 0, 0.25, 0.25, 1, 1}));
    EXPECT_EQ(colour.GetColorMarker(2).rgba, clearBlue);
    EXPECT_EQ(colour.GetColorMarker(3).rgba, red);
}

TEST(ColorTest, BetweenMarkersEachChannelChangesLinearly)
{
    const CM_Color colour = gradient({{0.25, red}, {0.75, clearBlue}});
    const struct {
        double position;
        CM_Rgba expected;
    } rows[] = {{0, red},
                {0.25, red},
                {0.375, CM_Rgba(191, 0, 64, 191)},
                {0.5, CM_Rgba(128, 0, 128, 128)},
                {0.75, clearBlue},
                {1, clearBlue},
                {NAN, red},
                {INFINITY, clearBlue}};
    for (const auto& row : rows)
        EXPECT_EQ(colour.GetGradientColor(row.position), row.expected) << row.position;
}

TEST(ColorTest, AtAHardEdgeTheLaterMarkerCounts)
{
    const CM_Color colour = gradient({{0, red}, {0.5, red}, {0.5, clearBlue}, {1, clearBlue}});
    EXPECT_EQ(colour.GetGradientColor(0.49999), red);
    EXPECT_EQ(colour.GetGradientColor(0.5), clearBlue);
}

TEST(ColorTest, ASolidColourBecomesAGradientThatFadesAndBackWhatItWas)
{
    CM_Color colour(CM_Color::kSolid, "Skin");
    colour.AddColorMarker({0, red});
    colour.ChangeColorType(CM_Color::kRadialGradient);
    ASSERT_EQ(colour.Size(), 2);
    EXPECT_EQ(colour.GetColorMarker(1).position, 1);
    EXPECT_EQ(colour.GetColorMarker(1).rgba, CM_Rgba(255, 0, 0, 0));
    colour.ChangeColorType(CM_Color::kLinearGradient);
    EXPECT_EQ(colour.Size(), 2);
    colour.ChangeColorType(CM_Color::kSolid);
    ASSERT_EQ(colour.Size(), 1);
    EXPECT_EQ(colour.GetColorMarker(0).rgba, red);
}

TEST(ColorTest, AnEntryIsCastToItsKindOnly)
{
    const std::shared_ptr<CM_BaseColorObj> colour = std::make_shared<CM_Color>(CM_Color::kSolid, "Skin");
    const std::shared_ptr<CM_BaseColorObj> texture = std::make_shared<CM_Texture>("Wood", "/nowhere.png", true);
    EXPECT_EQ(CM_CastToColor(colour), colour);
    EXPECT_EQ(CM_CastToTexture(colour), nullptr);
    EXPECT_EQ(CM_CastToTexture(texture), texture);
    EXPECT_EQ(CM_CastToColor(nullptr), nullptr);
}
