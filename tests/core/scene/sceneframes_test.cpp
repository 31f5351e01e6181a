#include "core/host/pr_preference.h"
#include "core/host/sc_scenemarker.h"
#include "core/scene/frameoptions.h"
#include "core/scene/scene.h"
#include "tests/core/support/animation.h"
#include "tests/core/support/changetest.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/otherthread.h"
#include "tests/core/support/refusingmanager.h"
#include "tests/core/support/standins.h"
#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <stdexcept>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

const QString ripple = QStringLiteral("RIPPLE_SCENE_MARKERS");
const QString extend = QStringLiteral("EXTEND_DRAWING_EXPOSURE");

/// Gives a preference a value for the length of a test.
class Preference {
public:
    Preference(const QString& name, bool value) : m_name(name), m_kept(tuPref()->getBoolValue(name, false))
    {
        tuPref()->setBoolValue(name, value);
    }
    Preference(const Preference&) = delete;
    Preference& operator=(const Preference&) = delete;
    ~Preference() { tuPref()->setBoolValue(m_name, m_kept); }

    bool value() const { return tuPref()->getBoolValue(m_name, false); }

private:
    QString m_name;
    bool m_kept;
};

class SceneFramesTest : public ChangeTest {
protected:
    SceneFramesTest() : wrapper(scene()) {}

    void addMarker(int frame)
    {
        SC_SceneMarker marker;
        marker.frame = frame;
        prepare(new SC_SceneCmds::AddSceneMarkerCmd(sceneCommon(), marker));
    }

    std::vector<int> markers() const
    {
        std::vector<int> frames;
        for (const SC_SceneMarker& marker : sceneCommon()->sceneMarkers())
            frames.push_back(marker.frame);
        return frames;
    }

    OMC::Scene wrapper;
};

/// The same with a curve of a node.
class SceneKeysTest : public AnimationTest {
protected:
    SceneKeysTest() : wrapper(scene()) {}

    OMC::Scene wrapper;
};

/// Notes the preference at each change of the frames.
class WatchingScene : public StandInScene {
public:
    void setNumberOfFrames(int at, int delta, bool rippleMarkers, bool last) override
    {
        StandInScene::setNumberOfFrames(at, delta, rippleMarkers, last);
        extended.push_back(tuPref()->getBoolValue(extend, false));
        if (broken)
            throw std::runtime_error("broken");
    }

    std::vector<bool> extended;
    bool broken = false;
};

using FrameChange = std::tuple<int, int, bool, bool>;

TEST_F(SceneFramesTest, FramesAreAddedAtTheEndAndTakenFromThere)
{
    changes([&] { wrapper.setFrameCount(100); }, QStringLiteral("Set Number of Frames"));
    EXPECT_EQ(wrapper.getFrameCount(), 100);
    changes([&] { wrapper.setFrameCount(1); }, QStringLiteral("Set Number of Frames"));
    EXPECT_EQ(wrapper.getFrameCount(), 1);
    undo(2);
    EXPECT_EQ(wrapper.getFrameCount(), 60);
}

TEST_F(SceneFramesTest, AFrameCountBelowOneIsRefused)
{
    for (const int count : {0, -5, std::numeric_limits<int>::min()})
        refuses([&] { wrapper.setFrameCount(count); }, "Framecount needs to be a positive value above one.");
}

TEST_F(SceneFramesTest, ThePresentFrameCountMakesNoEngineCall)
{
    wrapper.setFrameCount(60);
    EXPECT_EQ(labels(), QStringList());
    StandInScene stub;
    OMC::Scene(&stub).setFrameCount(60);
    EXPECT_TRUE(stub.frameChanges.empty());
}

TEST_F(SceneFramesTest, AFrameCountThatTheSceneDoesNotTakeFailsWithItsSentence)
{
    StandInScene stub;
    OMC::Scene stubborn(&stub);
    EXPECT_EQ(failureOf([&] { stubborn.setFrameCount(61); }), "Failed to set the scene's frame count.");
}

TEST_F(SceneFramesTest, StartAndStopAreSetAsOneEntryEach)
{
    changes([&] { wrapper.setFrameStart(10); }, QStringLiteral("Set Start Frame"));
    EXPECT_EQ(wrapper.getFrameStart(), 10);
    changes([&] { wrapper.setFrameStop(50); }, QStringLiteral("Set Stop Frame"));
    EXPECT_EQ(wrapper.getFrameStop(), 50);
    undo(2);
    EXPECT_EQ(wrapper.getFrameStart(), 1);
    EXPECT_EQ(wrapper.getFrameStop(), 60);
}

TEST_F(SceneFramesTest, AStartOrStopThatTheSceneCannotTakeIsRefused)
{
    for (const int frame : {0, -1, 61, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        refuses([&] { wrapper.setFrameStart(frame); }, "Unable to set the start frame.");
        refuses([&] { wrapper.setFrameStop(frame); }, "Unable to set the stop frame.");
    }
    wrapper.setFrameStart(20);
    wrapper.setFrameStop(40);
    refuses([&] { wrapper.setFrameStart(41); }, "Unable to set the start frame.");
    refuses([&] { wrapper.setFrameStop(19); }, "Unable to set the stop frame.");
}

TEST_F(SceneFramesTest, FramesAreInsertedBehindAFrame)
{
    changes([&] { EXPECT_TRUE(wrapper.frameInsert(10, 5)); }, QStringLiteral("Set Number of Frames"));
    EXPECT_EQ(wrapper.getFrameCount(), 65);
    changes([&] { EXPECT_TRUE(wrapper.frameInsert(0, 1)); }, QStringLiteral("Set Number of Frames"));
    changes([&] { EXPECT_TRUE(wrapper.frameInsert(66, 1)); }, QStringLiteral("Set Number of Frames"));
    EXPECT_EQ(wrapper.getFrameCount(), 67);
}

TEST_F(SceneFramesTest, FramesAreRemovedBehindAFrame)
{
    changes([&] { EXPECT_TRUE(wrapper.frameRemove(10, 5)); }, QStringLiteral("Remove Frames"));
    EXPECT_EQ(wrapper.getFrameCount(), 55);
    changes([&] { EXPECT_TRUE(wrapper.frameRemove(0, 54)); }, QStringLiteral("Remove Frames"));
    EXPECT_EQ(wrapper.getFrameCount(), 1);
}

TEST_F(SceneKeysTest, KeysMoveAlongAndThoseOfRemovedFramesGo)
{
    TUBezierTimedValue* curve = animate(QStringLiteral("angle"), {{1, 1.0}, {12, 2.0}, {30, 3.0}});
    const QByteArray before = saved();
    EXPECT_TRUE(wrapper.frameInsert(10, 5));
    EXPECT_EQ(keysOf(*curve), (Keys{{1, 1.0}, {17, 2.0}, {35, 3.0}}));
    expectUndoable(before);
    const QByteArray inserted = saved();
    EXPECT_TRUE(wrapper.frameRemove(10, 10));
    EXPECT_EQ(keysOf(*curve), (Keys{{1, 1.0}, {25, 3.0}}));
    EXPECT_EQ(labels(), (QStringList{"Set Number of Frames", "Remove Frames"}));
    expectUndoable(inserted);
}

TEST_F(SceneFramesTest, NoFramesIsNoChangeAndFewerIsFalse)
{
    OMC::FrameOptions options(false, true);
    const OMC::FrameOptions* const forms[] = {nullptr, &options};
    for (const OMC::FrameOptions* form : forms) {
        leaves([&] { EXPECT_TRUE(wrapper.frameInsert(1, 0, form)); });
        leaves([&] { EXPECT_TRUE(wrapper.frameRemove(1, 0, form)); });
        for (const int count : {-1, lowest}) {
            leaves([&] { EXPECT_FALSE(wrapper.frameInsert(1, count, form)); });
            leaves([&] { EXPECT_FALSE(wrapper.frameRemove(1, count, form)); });
        }
    }
    leaves([&] { EXPECT_TRUE(wrapper.frameInsert(1, 0)); });
    leaves([&] { EXPECT_TRUE(wrapper.frameRemove(1, 0)); });
    leaves([&] { EXPECT_FALSE(wrapper.frameInsert(1, -1)); });
    leaves([&] { EXPECT_FALSE(wrapper.frameRemove(1, -1)); });
}

// Required: a scene that can't take the frames says nothing.
TEST_F(SceneFramesTest, FramesThatTheSceneCannotTakeAreTrueWithoutEffect)
{
    for (const int at : {-1, lowest, 61, highest})
        leaves([&] { EXPECT_TRUE(wrapper.frameInsert(at, 1)); });
    leaves([&] { EXPECT_TRUE(wrapper.frameInsert(1, highest)); });
    leaves([&] { EXPECT_TRUE(wrapper.frameRemove(0, 60)); });
    leaves([&] { EXPECT_TRUE(wrapper.frameRemove(0, highest)); });
    leaves([&] { EXPECT_TRUE(wrapper.frameRemove(lowest, highest)); });
}

TEST_F(SceneFramesTest, MarkersRippleByPreferenceOrByOptions)
{
    addMarker(20);
    const Preference preferred(ripple, true);
    wrapper.frameInsert(10, 5);
    EXPECT_EQ(markers(), std::vector<int>{25});
    const OMC::FrameOptions stay(false, false);
    wrapper.frameInsert(10, 5, &stay);
    EXPECT_EQ(markers(), std::vector<int>{25});
    wrapper.frameRemove(10, 5, &stay);
    EXPECT_EQ(markers(), std::vector<int>{25});
    wrapper.frameRemove(10, 5);
    EXPECT_EQ(markers(), std::vector<int>{20});
    undo(4);
    EXPECT_EQ(markers(), std::vector<int>{20});
}

TEST(SceneFramesCallTest, TheEngineIsAskedWithThePreferenceOrTheOption)
{
    StandInScene stub;
    StandInProjectCommon project;
    RefusingManager manager;
    stub.project = &project;
    stub.commands = &manager;
    OMC::Scene wrapper(&stub);
    for (const bool preferred : {false, true}) {
        const Preference preference(ripple, preferred);
        const OMC::FrameOptions other(!preferred, false);
        stub.frameChanges.clear();
        failureOf([&] { wrapper.setFrameCount(50); });
        wrapper.frameInsert(3, 4);
        wrapper.frameInsert(3, 4, nullptr);
        wrapper.frameInsert(3, 4, &other);
        wrapper.frameRemove(3, 4);
        wrapper.frameRemove(3, 4, nullptr);
        wrapper.frameRemove(3, 4, &other);
        EXPECT_EQ(stub.frameChanges, (std::vector<FrameChange>{{60, -10, preferred, true},
                                                               {3, 4, preferred, true},
                                                               {3, 4, preferred, true},
                                                               {3, 4, !preferred, true},
                                                               {3, -4, preferred, true},
                                                               {3, -4, preferred, true},
                                                               {3, -4, !preferred, true}}));
    }
    EXPECT_EQ(manager.openScopes, 0);
    EXPECT_EQ(manager.cancelledScopes, 0);
}

TEST(SceneFramesCallTest, TheExposureOptionHoldsForTheInsertionAlone)
{
    for (const bool preferred : {false, true}) {
        const Preference preference(extend, preferred);
        WatchingScene watching;
        OMC::Scene wrapper(&watching);
        const OMC::FrameOptions on(true, true);
        const OMC::FrameOptions off(true, false);
        wrapper.frameInsert(1, 1, &on);
        EXPECT_EQ(preference.value(), preferred);
        wrapper.frameInsert(1, 1, &off);
        EXPECT_EQ(preference.value(), preferred);
        wrapper.frameInsert(1, 1);
        EXPECT_EQ(watching.extended, (std::vector<bool>{true, false, preferred}));
        EXPECT_EQ(preference.value(), preferred);
    }
}

// Required as it is.
TEST(SceneFramesCallTest, AnExceptionOfTheEngineLeavesTheExposurePreferenceAsTheOptionsSay)
{
    const Preference preference(extend, false);
    WatchingScene watching;
    watching.broken = true;
    OMC::Scene wrapper(&watching);
    const OMC::FrameOptions options(true, true);
    EXPECT_THROW(wrapper.frameInsert(1, 1, &options), std::runtime_error);
    EXPECT_TRUE(preference.value());
}

TEST(SceneFramesCallTest, AnExceptionOfTheEngineTakesARemovalBack)
{
    StandInProjectCommon project;
    RefusingManager manager;
    WatchingScene watching;
    watching.project = &project;
    watching.commands = &manager;
    watching.broken = true;
    OMC::Scene wrapper(&watching);
    EXPECT_THROW(wrapper.frameRemove(1, 1), std::runtime_error);
    EXPECT_EQ(manager.openScopes, 0);
    EXPECT_EQ(manager.cancelledScopes, 1);
}

TEST(SceneFramesCallTest, RemovingNeedsTheProjectAndTheManager)
{
    StandInProjectCommon project;
    RefusingManager manager;
    for (const bool withProject : {false, true}) {
        StandInScene stub;
        stub.project = withProject ? &project : nullptr;
        stub.commands = withProject ? nullptr : &manager;
        OMC::Scene wrapper(&stub);
        EXPECT_EQ(failureOf([&] { wrapper.frameRemove(1, 1); }), objectGone);
        EXPECT_TRUE(wrapper.frameRemove(1, 0));
        EXPECT_FALSE(wrapper.frameRemove(1, -1));
        EXPECT_TRUE(stub.frameChanges.empty());
    }
}

// Inserting asks whether the scene is there first; removing only when there is something to remove.
TEST(SceneFramesCallTest, AMissingSceneIsToldAtOnceOrWhenItIsNeeded)
{
    OMC::Scene nothing(nullptr);
    for (const int count : {-1, 0, 1})
        EXPECT_EQ(failureOf([&] { nothing.frameInsert(1, count); }), objectGone);
    EXPECT_FALSE(nothing.frameRemove(1, -1));
    EXPECT_TRUE(nothing.frameRemove(1, 0));
    EXPECT_EQ(failureOf([&] { nothing.frameRemove(1, 1); }), objectGone);
}

TEST_F(SceneFramesTest, RemovingAsksForNoThread)
{
    EXPECT_EQ(failuresOnOtherThread({[&] { wrapper.frameInsert(1, 1); }, [&] { wrapper.frameRemove(1, 1); }}),
              (std::vector<std::string>{
                  "Unable to access Object Model from another thread -- application must be locked.", "no exception"}));
    EXPECT_EQ(wrapper.getFrameCount(), 59);
}

TEST(FrameOptionsTest, WithoutAWordMarkersRippleAndExposuresStay)
{
    const OMC::FrameOptions options;
    EXPECT_TRUE(options.rippleMarkers);
    EXPECT_FALSE(options.extendExposure);
}

} // namespace
