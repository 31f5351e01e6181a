#include "engine/session/preferences.h"

#include <gtest/gtest.h>

TEST(PreferencesTest, PreferencesStartWithTheirDefaults)
{
    const engine::Preferences preferences;
    for (const bool callers : {true, false}) {
        EXPECT_TRUE(preferences.getBoolValue("RIPPLE_SCENE_MARKERS", callers));
        EXPECT_FALSE(preferences.getBoolValue("EXTEND_DRAWING_EXPOSURE", callers));
        EXPECT_FALSE(preferences.getBoolValue("SP_CONSTANT_SEGMENT", callers));
        EXPECT_EQ(preferences.getBoolValue("UNKNOWN", callers), callers);
    }
    EXPECT_FALSE(preferences.constantSegment());
}

TEST(PreferencesTest, APreferenceKeepsWhatWasSet)
{
    engine::Preferences preferences;
    preferences.setBoolValue("RIPPLE_SCENE_MARKERS", false);
    preferences.setBoolValue("UNKNOWN", true);
    EXPECT_FALSE(preferences.getBoolValue("RIPPLE_SCENE_MARKERS", true));
    EXPECT_TRUE(preferences.getBoolValue("UNKNOWN", false));
}

TEST(PreferencesTest, TheCachedPreferenceFollows)
{
    EXPECT_FALSE(PR_CachedPreferences::getSpConstantSegment());
    tuPref()->setBoolValue("SP_CONSTANT_SEGMENT", true);
    EXPECT_TRUE(PR_CachedPreferences::getSpConstantSegment());
    tuPref()->setBoolValue("SP_CONSTANT_SEGMENT", false);
    EXPECT_FALSE(PR_CachedPreferences::getSpConstantSegment());
}
