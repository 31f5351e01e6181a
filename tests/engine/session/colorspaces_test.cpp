#include "engine/session/colorspaces.h"

#include <gtest/gtest.h>

TEST(ColorSpacesTest, TheListHasTheSpacesOfFilmAndWeb)
{
    const brindle::engine::ColorSpaceManager manager;
    const QStringList names = manager.colorSpaceNames({});
    for (const char* name :
         {"sRGB", "Linear", "Rec.709", "Rec.2020", "DCI-P3", "Display P3", "ACES2065-1", "ACEScg", "ACEScct", "Raw"}) {
        EXPECT_TRUE(names.contains(name)) << name;
        EXPECT_TRUE(manager.contains(name)) << name;
    }
    EXPECT_EQ(names.first(), "sRGB");
    EXPECT_EQ(QSet<QString>(names.begin(), names.end()).size(), names.size()) << "no name twice";
}

TEST(ColorSpacesTest, AFilterKeepsTheNamesThatContainIt)
{
    const brindle::engine::ColorSpaceManager manager;
    EXPECT_EQ(manager.colorSpaceNames("aces"), QStringList({"ACES2065-1", "ACEScg", "ACEScc", "ACEScct"}));
    EXPECT_EQ(manager.colorSpaceNames(""), manager.colorSpaceNames({}));
    EXPECT_TRUE(manager.colorSpaceNames("no such space").isEmpty());
}

TEST(ColorSpacesTest, NamesAreComparedExactly)
{
    const brindle::engine::ColorSpaceManager manager;
    for (const char* name : {"", "srgb", "sRGB ", "ACES", "Rec.70"})
        EXPECT_FALSE(manager.contains(name)) << name;
    EXPECT_FALSE(manager.contains(QString()));
}
