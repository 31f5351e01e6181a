#include "engine/session/preferences.h"

#include "core/host/sc_session.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

TEST(PreferencesTest, PreferencesStartWithTheirDefaults)
{
    const brindle::engine::Preferences preferences;
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
    brindle::engine::Preferences preferences;
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

TEST(PreferencesTest, PreferencesAreKeptFromOneRunToTheNext)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("preferences.json");
    {
        brindle::engine::Preferences preferences(path);
        preferences.setBoolValue("RIPPLE_SCENE_MARKERS", false);
        preferences.setBoolValue("SP_CONSTANT_SEGMENT", true);
        preferences.setBoolValue("OTHER", false);
        preferences.save();
    }
    const brindle::engine::Preferences preferences(path);
    EXPECT_FALSE(preferences.getBoolValue("RIPPLE_SCENE_MARKERS", true));
    EXPECT_TRUE(preferences.constantSegment());
    EXPECT_FALSE(preferences.getBoolValue("OTHER", true));
    EXPECT_FALSE(preferences.getBoolValue("EXTEND_DRAWING_EXPOSURE", true));
}

TEST(PreferencesTest, APreferenceThatIsSetBackIsNotWritten)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("preferences.json");
    brindle::engine::Preferences preferences(path);
    preferences.setBoolValue("EXTEND_DRAWING_EXPOSURE", true);
    preferences.setBoolValue("EXTEND_DRAWING_EXPOSURE", false);
    preferences.save();
    EXPECT_FALSE(QFileInfo::exists(path));
    preferences.setBoolValue("EXTEND_DRAWING_EXPOSURE", true);
    EXPECT_FALSE(QFileInfo::exists(path));
    preferences.save();
    EXPECT_TRUE(QFileInfo::exists(path));
    ASSERT_TRUE(QFile::remove(path));
    preferences.save();
    EXPECT_FALSE(QFileInfo::exists(path)) << "nothing changed since";
}

TEST(PreferencesTest, ASaveThatFailedIsTriedAgain)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("config/preferences.json");
    QFile blocker(folder.filePath("config"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    brindle::engine::Preferences preferences(path);
    preferences.setBoolValue("OTHER", true);
    testing::internal::CaptureStderr();
    preferences.save();
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
    ASSERT_TRUE(blocker.remove());
    preferences.save();
    EXPECT_TRUE(brindle::engine::Preferences(path).getBoolValue("OTHER", false));
}

namespace {

/// The text of the user's file about a preference that is set in a session, when the project is saved and when the
/// session ends. To be run in a process that has not asked for preferences yet.
QByteArrayList keptInASession()
{
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    const auto kept = [] {
        const auto values = brindle::engine::PreferenceFile(brindle::engine::PreferenceFile::pathOfUser()).read();
        return values.contains("OTHER") ? QByteArray(values.value("OTHER").toBool() ? "true" : "false")
                                        : QByteArray("nothing");
    };
    QByteArrayList all;
    QString error;
    {
        const auto session = SC_SessionContext::create();
        session->projectManager()->createProject(folder.filePath("project"), error);
        tuPref()->setBoolValue("OTHER", true);
        all.append(kept());
        session->projectManager()->saveProject(error);
        all.append(kept());
        tuPref()->setBoolValue("OTHER", false);
        all.append(kept());
    }
    all.append(kept());
    return all;
}

} // namespace

TEST(PreferencesDeathTest, TheyAreWrittenWithAProjectAndAtTheEndOfTheSession)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            std::fputs(keptInASession().join(' ').constData(), stderr);
            std::_Exit(0);
        },
        testing::ExitedWithCode(0), "nothing true true false");
}

TEST(PreferencesTest, AnItemTellsItsKindAndGoesBackToItsDefault)
{
    brindle::engine::Preferences preferences;
    preferences.setIntValue("WHOLE", 3);
    preferences.setRgbaValue("COLOUR", QColor(1, 2, 3, 4));
    EXPECT_EQ(preferences.find("WHOLE")->type(), PR_PrefItem::Int);
    EXPECT_EQ(dynamic_cast<PR_RgbaItem&>(*preferences.find("COLOUR")).value(), (PR_Rgba{3, 2, 1, 4}));
    preferences.setStringValue("WHOLE", "text");
    EXPECT_EQ(preferences.find("WHOLE")->type(), PR_PrefItem::String);
    preferences.find("WHOLE")->restoreDefault();
    EXPECT_EQ(preferences.getStringValue("WHOLE", "other"), "");
    preferences.setStringValue("RIPPLE_SCENE_MARKERS", "text");
    EXPECT_TRUE(preferences.getBoolValue("RIPPLE_SCENE_MARKERS", true)) << "of another kind: the caller's";
    preferences.find("RIPPLE_SCENE_MARKERS")->restoreDefault();
    EXPECT_EQ(preferences.find("RIPPLE_SCENE_MARKERS")->type(), PR_PrefItem::Bool);
    EXPECT_EQ(preferences.find("NEVER"), nullptr);
}

TEST(PreferencesTest, ASaveLearnsWhatOthersChangedAndTakesBackWhatIsAtItsDefault)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("preferences.json");
    brindle::engine::Preferences one(path);
    brindle::engine::Preferences other(path);
    one.setIntValue("A", 1);
    one.setBoolValue("RIPPLE_SCENE_MARKERS", false);
    EXPECT_TRUE(one.save());
    other.setIntValue("B", 2);
    EXPECT_TRUE(other.save());
    EXPECT_FALSE(other.getBoolValue("RIPPLE_SCENE_MARKERS", true));
    EXPECT_NE(other.find("A"), nullptr);
    other.find("RIPPLE_SCENE_MARKERS")->restoreDefault();
    EXPECT_TRUE(other.save());
    one.setIntValue("C", 3);
    EXPECT_TRUE(one.save());
    EXPECT_TRUE(one.getBoolValue("RIPPLE_SCENE_MARKERS", false));
    EXPECT_FALSE(brindle::engine::PreferenceFile(path).read().contains("RIPPLE_SCENE_MARKERS"));
}
