#include "engine/session/colorspaces.h"

#include <QSet>

#include <gtest/gtest.h>

namespace {

/// Without a configuration of the machine's.
class ColorSpacesTest : public testing::Test {
protected:
    void SetUp() override { qunsetenv("OCIO"); }

    const brindle::engine::ColorSpaceManager m_manager;
};

} // namespace

TEST_F(ColorSpacesTest, TheListHasTheSpacesOfFilmAndWeb)
{
    const QStringList names = m_manager.colorSpaceNames({});
    for (const char* name : {"sRGB", "Linear", "Rec.709", "Rec.1886", "Rec.2020", "DCI-P3", "Display P3", "ACES2065-1",
                             "ACEScg", "ACEScct", "Raw"}) {
        EXPECT_TRUE(names.contains(name)) << name;
        EXPECT_TRUE(m_manager.contains(name)) << name;
    }
    EXPECT_EQ(names.first(), "sRGB");
    EXPECT_EQ(QSet<QString>(names.begin(), names.end()).size(), names.size()) << "no name twice";
}

TEST_F(ColorSpacesTest, AFilterKeepsTheNamesThatContainIt)
{
    EXPECT_EQ(m_manager.colorSpaceNames("aces"), QStringList({"ACES2065-1", "ACEScg", "ACEScc", "ACEScct"}));
    EXPECT_EQ(m_manager.colorSpaceNames(""), m_manager.colorSpaceNames({}));
    EXPECT_TRUE(m_manager.colorSpaceNames("no such space").isEmpty());
}

TEST_F(ColorSpacesTest, NamesAreComparedExactly)
{
    for (const char* name : {"", "srgb", "sRGB ", "ACES", "Rec.70"})
        EXPECT_FALSE(m_manager.contains(name)) << name;
    EXPECT_FALSE(m_manager.contains(QString()));
}
