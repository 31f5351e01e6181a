#include "core/scene/scene.h"

#include "core/nodes/groupnode.h"
#include "core/nodes/nodelist.h"
#include "core/scene/scenemetrics.h"
#include "core/scene/sceneunitconverter.h"
#include "tests/core/support/changetest.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/otherthread.h"
#include "tests/core/support/refusingmanager.h"
#include "tests/core/support/standins.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

/// Everything that asks first whether the scene is there and the thread may go on.
std::vector<std::pair<std::string, std::function<void()>>> checkedCalls(OMC::Scene& scene)
{
    return {
        {"aspect", [&] { scene.getAspect(); }},
        {"units", [&] { scene.getUnits(); }},
        {"center", [&] { scene.getCenter(); }},
        {"name", [&] { scene.getName(); }},
        {"name =", [&] { scene.setName(QStringLiteral("x")); }},
        {"framerate", [&] { scene.getFramerate(); }},
        {"framerate =", [&] { scene.setFramerate(12.0); }},
        {"frame_count", [&] { scene.getFrameCount(); }},
        {"frame_count =", [&] { scene.setFrameCount(0); }},
        {"frame_start", [&] { scene.getFrameStart(); }},
        {"frame_start =", [&] { scene.setFrameStart(1); }},
        {"frame_stop", [&] { scene.getFrameStop(); }},
        {"frame_stop =", [&] { scene.setFrameStop(1); }},
        {"vector_texture_pixel_density", [&] { scene.getVectorTexturePixelDensity(); }},
        {"vector_texture_pixel_density =", [&] { scene.setVectorTexturePixelDensity(1.0); }},
        {"bitmap_texture_pixel_density", [&] { scene.getBitmapTexturePixelDensity(); }},
        {"bitmap_texture_pixel_density =", [&] { scene.setBitmapTexturePixelDensity(1.0); }},
        {"colorspace", [&] { scene.getColorspace(); }},
        {"colorspace =", [&] { scene.setColorspace(QString()); }},
        {"colorspaces", [&] { scene.getColorspaces(); }},
        {"camera", [&] { scene.getCamera(); }},
        {"camera =", [&] { scene.setCamera(QVariant()); }},
        {"camera_path", [&] { scene.getCameraPath(); }},
        {"camera_path =", [&] { scene.setCameraPath(QVariant()); }},
        {"unit_converter", [&] { scene.getUnitConverter(); }},
        {"display", [&] { scene.getDisplay(); }},
        {"display =", [&] { scene.setDisplay(QVariant()); }},
        {"display_name", [&] { scene.getDisplayName(); }},
        {"display_name =", [&] { scene.setDisplayName(QVariant()); }},
        {"displays", [&] { scene.getDisplays(); }},
        {"display_names", [&] { scene.getDisplayNames(); }},
        {"clipboard", [&] { scene.getClipboard(); }},
        {"frame_insert", [&] { scene.frameInsert(1, 0); }},
        {"top", [&] { scene.getTop(); }},
        {"nodes", [&] { scene.getNodes(); }},
        {"compositions", [&] { scene.getCompositions(); }},
        {"__str__", [&] { scene.__str__(); }},
    };
}

class SceneTest : public ChangeTest {
protected:
    SceneTest() : wrapper(scene()) {}

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
    EXPECT_EQ(wrapper.getDir(extendNative, filter), (std::vector<std::string>{"objectName",
                                                                              "aspect",
                                                                              "units",
                                                                              "center",
                                                                              "name",
                                                                              "framerate",
                                                                              "vector_texture_pixel_density",
                                                                              "bitmap_texture_pixel_density",
                                                                              "frame_count",
                                                                              "frame_start",
                                                                              "frame_stop",
                                                                              "colorspace",
                                                                              "colorspaces",
                                                                              "camera",
                                                                              "camera_path",
                                                                              "unit_converter",
                                                                              "metadata",
                                                                              "sounds",
                                                                              "top",
                                                                              "nodes",
                                                                              "compositions",
                                                                              "columns",
                                                                              "display",
                                                                              "display_name",
                                                                              "displays",
                                                                              "display_names",
                                                                              "clipboard"}));
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
    changes([&] { wrapper.setFramerate(12.5); }, QStringLiteral("Set Frame Rate"));
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
    EXPECT_EQ(failureOf([&] { bare.setFramerate(12.0); }), objectGone);
    EXPECT_EQ(failureOf([&] { bare.getFrameStart(); }), objectGone);
    EXPECT_EQ(failureOf([&] { bare.getFrameStop(); }), objectGone);
    stub.commands = &manager;
    EXPECT_EQ(failureOf([&] { bare.setFramerate(12.0); }), objectGone);
    EXPECT_EQ(manager.refusedLabels, QStringList());
}

TEST_F(SceneTest, TheViewsAreOfTheScene)
{
    const OMC::Obj aspect = wrapper.getAspect();
    const OMC::Obj units = wrapper.getUnits();
    const OMC::Obj center = wrapper.getCenter();
    const OMC::Obj converter = wrapper.getUnitConverter();
    ASSERT_NE(OMC::objectIn<OMC::SceneAspect>(aspect), nullptr);
    ASSERT_NE(OMC::objectIn<OMC::SceneUnits>(units), nullptr);
    ASSERT_NE(OMC::objectIn<OMC::SceneCenter>(center), nullptr);
    ASSERT_NE(OMC::objectIn<OMC::SceneUnitConverter>(converter), nullptr);
    OMC::objectIn<OMC::SceneUnits>(units)->setZ(7);
    EXPECT_EQ(OMC::objectIn<OMC::SceneUnits>(wrapper.getUnits())->getZ(), 7);
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
    for (const auto& [name, call] : checkedCalls(wrapper))
        EXPECT_EQ(failureOf(call), objectGone) << name;
    EXPECT_EQ(failureOf([&] { wrapper.frameRemove(1, 1); }), objectGone);
    EXPECT_EQ(failureOf([&] { wrapper.getSounds(); }), "Sounds are not yet supported in the Python DOM.");
}

TEST_F(SceneTest, TheThreadIsAskedForAheadOfTheScene)
{
    OMC::Scene gone(nullptr);
    for (OMC::Scene* either : {&wrapper, &gone}) {
        std::vector<std::function<void()>> calls;
        for (const auto& [name, call] : checkedCalls(*either))
            calls.push_back(call);
        EXPECT_EQ(
            failuresOnOtherThread(calls),
            std::vector<std::string>(
                calls.size(), "Unable to access Object Model from another thread -- application must be locked."));
    }
    EXPECT_EQ(failuresOnOtherThread({[&] { wrapper.getSounds(); }}),
              std::vector<std::string>{"Sounds are not yet supported in the Python DOM."});
}

TEST_F(SceneTest, ASceneThatNeverWasIsInvalidFromTheStart)
{
    const OMC::Scene nothing(nullptr);
    EXPECT_EQ(nothing.scene(), nullptr);
    EXPECT_EQ(failureOf([&] { nothing.getName(); }), objectGone);
}

} // namespace
