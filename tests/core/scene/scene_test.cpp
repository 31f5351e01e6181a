#include "core/scene/scene.h"

#include "core/host/pr_preference.h"
#include "core/nodes/groupnode.h"
#include "core/nodes/nodelist.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/openproject.h"
#include "tests/core/support/refusingmanager.h"
#include "tests/core/support/standins.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

const char* const invalid = "Object is no longer valid.";

class SceneTest : public ProjectTest {
protected:
    SceneTest() : wrapper(scene()) {}

    /// A call that has to fail with a sentence and to leave the project and its history alone.
    void refuses(const std::function<void()>& call, const char* sentence)
    {
        const QByteArray before = saved();
        const QStringList done = labels();
        EXPECT_EQ(failureOf(call), sentence);
        EXPECT_EQ(labels(), done);
        EXPECT_EQ(saved(), before);
    }

    /// A call that has to make one entry, which undoes and redoes exactly.
    void changes(const std::function<void()>& call)
    {
        const QByteArray before = saved();
        const auto entries = labels().size();
        call();
        EXPECT_EQ(labels().size(), entries + 1);
        const QByteArray after = saved();
        EXPECT_NE(after, before);
        undo();
        EXPECT_EQ(saved(), before);
        redo();
        EXPECT_EQ(saved(), after);
    }

    OMC::Scene wrapper;
};

TEST_F(SceneTest, ANewSceneHasItsTimingAndName)
{
    EXPECT_EQ(wrapper.getName(), QStringLiteral("Scene-1"));
    EXPECT_EQ(wrapper.getFramerate(), 24.0);
    EXPECT_EQ(wrapper.getFrameCount(), 60);
    EXPECT_EQ(wrapper.getFrameStart(), 1);
    EXPECT_EQ(wrapper.getFrameStop(), 60);
    EXPECT_EQ(wrapper.__str__(), "Scene(Scene-1)");
    EXPECT_EQ(wrapper.scene(), scene());
}

TEST_F(SceneTest, ThePropertiesStandInTheirOrder)
{
    bool extendNative = false;
    bool filter = false;
    EXPECT_EQ(wrapper.getDir(extendNative, filter),
              (std::vector<std::string>{"objectName", "name", "framerate", "frame_count", "frame_start", "frame_stop",
                                        "sounds", "top", "nodes", "compositions"}));
}

TEST_F(SceneTest, PropertiesAreReadByName)
{
    const std::pair<const char*, QVariant> rows[] = {
        {"name", QStringLiteral("Scene-1")},
        {"framerate", 24.0},
        {"frame_count", 60},
        {"frame_start", 1},
        {"frame_stop", 60},
    };
    for (const auto& [name, value] : rows) {
        bool found = false;
        EXPECT_EQ(wrapper.getAttr(name, found), value) << name;
        EXPECT_TRUE(found) << name;
    }
}

TEST_F(SceneTest, ASceneCannotBeRenamed)
{
    refuses([&] { wrapper.setName(QStringLiteral("Other")); }, "Renaming Scenes is not supported at this time.");
}

TEST_F(SceneTest, TheFrameRateIsSetAsOneEntry)
{
    changes([&] { wrapper.setFramerate(12.5); });
    EXPECT_EQ(wrapper.getFramerate(), 12.5);
    EXPECT_EQ(labels(), QStringList{"Set Frame Rate"});
    undo();
    EXPECT_EQ(wrapper.getFramerate(), 24.0);
}

TEST_F(SceneTest, AFrameRateThatTheSceneCannotTakeIsRefused)
{
    for (const double rate : {0.0, -24.0})
        refuses([&] { wrapper.setFramerate(rate); }, "Failed to set the frame rate.");
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double rate : {std::numeric_limits<double>::quiet_NaN(), infinity, -infinity})
        refuses([&] { wrapper.setFramerate(rate); }, "Invalid argument at index 0.");
}

TEST_F(SceneTest, ARefusedFrameRateCommandFailsWithItsSentence)
{
    RefusingManager refusing;
    StandInScene stub;
    stub.commands = &refusing;
    stub.common = sceneCommon();
    OMC::Scene refused(&stub);
    EXPECT_EQ(failureOf([&] { refused.setFramerate(12.0); }), "Failed to set the frame rate.");
    EXPECT_EQ(refusing.refusedLabels, QStringList{"Set Frame Rate"});
}

TEST_F(SceneTest, ASceneWithoutItsPartsIsInvalidWhereItNeedsThem)
{
    RefusingManager manager;
    StandInScene stub;
    OMC::Scene bare(&stub);
    EXPECT_EQ(failureOf([&] { bare.setFramerate(12.0); }), invalid);
    EXPECT_EQ(failureOf([&] { bare.getFrameStart(); }), invalid);
    EXPECT_EQ(failureOf([&] { bare.getFrameStop(); }), invalid);
    stub.commands = &manager;
    EXPECT_EQ(failureOf([&] { bare.setFramerate(12.0); }), invalid);
    EXPECT_EQ(manager.refusedLabels, QStringList());
}

TEST_F(SceneTest, FramesAreAddedAtTheEndAndTakenFromThere)
{
    changes([&] { wrapper.setFrameCount(100); });
    EXPECT_EQ(wrapper.getFrameCount(), 100);
    changes([&] { wrapper.setFrameCount(1); });
    EXPECT_EQ(wrapper.getFrameCount(), 1);
    undo(2);
    EXPECT_EQ(wrapper.getFrameCount(), 60);
}

TEST_F(SceneTest, AFrameCountBelowOneIsRefused)
{
    for (const int count : {0, -5, std::numeric_limits<int>::min()})
        refuses([&] { wrapper.setFrameCount(count); }, "Framecount needs to be a positive value above one.");
}

TEST_F(SceneTest, ThePresentFrameCountMakesNoEngineCall)
{
    wrapper.setFrameCount(60);
    EXPECT_EQ(labels(), QStringList());
    StandInScene stub;
    OMC::Scene(&stub).setFrameCount(60);
    EXPECT_TRUE(stub.frameChanges.empty());
}

TEST_F(SceneTest, AFrameCountThatTheSceneDoesNotTakeFailsWithItsSentence)
{
    StandInScene stub;
    OMC::Scene stubborn(&stub);
    EXPECT_EQ(failureOf([&] { stubborn.setFrameCount(61); }), "Failed to set the scene's frame count.");
}

TEST_F(SceneTest, TheMarkersRippleByPreference)
{
    const QString name = QStringLiteral("RIPPLE_SCENE_MARKERS");
    const bool kept = tuPref()->getBoolValue(name, true);
    StandInScene stub;
    OMC::Scene stubborn(&stub);
    for (const bool ripple : {false, true}) {
        tuPref()->setBoolValue(name, ripple);
        failureOf([&] { stubborn.setFrameCount(50); });
        EXPECT_EQ(stub.frameChanges.back(), std::tuple(60, -10, ripple, true));
    }
    tuPref()->setBoolValue(name, kept);
}

TEST_F(SceneTest, StartAndStopAreSetAsOneEntryEach)
{
    changes([&] { wrapper.setFrameStart(10); });
    EXPECT_EQ(wrapper.getFrameStart(), 10);
    changes([&] { wrapper.setFrameStop(50); });
    EXPECT_EQ(wrapper.getFrameStop(), 50);
    undo(2);
    EXPECT_EQ(wrapper.getFrameStart(), 1);
    EXPECT_EQ(wrapper.getFrameStop(), 60);
}

TEST_F(SceneTest, AStartOrStopThatTheSceneCannotTakeIsRefused)
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

TEST_F(SceneTest, TopIsTheRootGroup)
{
    const OMC::Obj handle = wrapper.getTop();
    const auto* group = OMC::objectIn<OMC::GroupNode>(handle);
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->getPath(), QStringLiteral("Top"));
}

TEST_F(SceneTest, NodesAreAllNodesOfTheScene)
{
    const OMC::Obj handle = wrapper.getNodes();
    const auto* nodes = OMC::objectIn<OMC::NodeList>(handle);
    ASSERT_NE(nodes, nullptr);
    EXPECT_EQ(nodes->size(), 2U);
}

TEST_F(SceneTest, SoundsAndCompositionsAreRefused)
{
    refuses([&] { wrapper.getSounds(); }, "Sounds are not yet supported in the Python DOM.");
    refuses([&] { wrapper.getCompositions(); }, "Compositions are not currently supported in Python.");
    bool found = true;
    EXPECT_EQ(failureOf([&] { wrapper.getAttr("sounds", found); }), "Sounds are not yet supported in the Python DOM.");
    EXPECT_FALSE(found);
}

TEST_F(SceneTest, ObjectsOfOneSceneAreEqual)
{
    const OMC::Scene again(scene());
    const OMC::Obj copy(wrapper.copy());
    StandInScene other;
    const OMC::Scene another(&other);
    EXPECT_TRUE(wrapper == &again);
    EXPECT_TRUE(wrapper == OMC::objectIn<OMC::Scene>(copy));
    EXPECT_FALSE(wrapper == &another);
    EXPECT_FALSE(wrapper == static_cast<const OMC::Scene*>(nullptr));
    close();
    EXPECT_TRUE(wrapper == &again);
}

TEST_F(SceneTest, OnceTheSceneIsGoneEveryOperationSaysSo)
{
    close();
    EXPECT_EQ(wrapper.scene(), nullptr);
    const std::pair<const char*, std::function<void()>> calls[] = {
        {"name", [&] { wrapper.getName(); }},
        {"name =", [&] { wrapper.setName(QStringLiteral("x")); }},
        {"framerate", [&] { wrapper.getFramerate(); }},
        {"framerate =", [&] { wrapper.setFramerate(12.0); }},
        {"frame_count", [&] { wrapper.getFrameCount(); }},
        {"frame_count =", [&] { wrapper.setFrameCount(0); }},
        {"frame_start", [&] { wrapper.getFrameStart(); }},
        {"frame_start =", [&] { wrapper.setFrameStart(1); }},
        {"frame_stop", [&] { wrapper.getFrameStop(); }},
        {"frame_stop =", [&] { wrapper.setFrameStop(1); }},
        {"top", [&] { wrapper.getTop(); }},
        {"nodes", [&] { wrapper.getNodes(); }},
        {"compositions", [&] { wrapper.getCompositions(); }},
        {"__str__", [&] { wrapper.__str__(); }},
    };
    for (const auto& [name, call] : calls)
        EXPECT_EQ(failureOf(call), invalid) << name;
    EXPECT_EQ(failureOf([&] { wrapper.getSounds(); }), "Sounds are not yet supported in the Python DOM.");
}

TEST_F(SceneTest, ASceneThatNeverWasIsInvalidFromTheStart)
{
    const OMC::Scene nothing(nullptr);
    EXPECT_EQ(nothing.scene(), nullptr);
    EXPECT_EQ(failureOf([&] { nothing.getName(); }), invalid);
}

} // namespace
