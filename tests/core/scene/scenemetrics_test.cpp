#include "core/scene/scenemetrics.h"

#include "core/host/sc_projectcmds.h"
#include "tests/core/support/changetest.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/otherthread.h"
#include "tests/core/support/refusingmanager.h"
#include "tests/core/support/standinmetrics.h"
#include "tests/core/support/standins.h"
#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <QMetaProperty>

#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using OMC::SceneAspect;
using OMC::SceneCenter;
using OMC::SceneUnits;

class SceneMetricsTest : public ChangeTest {
protected:
    SceneMetricsTest() : aspect(scene()), units(scene()), center(scene()) {}

    std::vector<OMC::BaseObject*> views() { return {&aspect, &units, &center}; }

    SceneAspect aspect;
    SceneUnits units;
    SceneCenter center;
};

/// Views of a scene of no engine, which has whatever a test gives it.
class SceneMetricsPartsTest : public testing::Test {
protected:
    SceneMetricsPartsTest() : aspect(&scene), units(&scene), center(&scene)
    {
        scene.measures = &metrics;
        scene.project = &project;
        scene.commands = &manager;
    }

    StandInMetrics metrics;
    StandInProjectCommon project;
    RefusingManager manager;
    StandInScene scene;
    SceneAspect aspect;
    SceneUnits units;
    SceneCenter center;
};

using Call = std::function<void()>;

std::vector<std::pair<std::string, Call>> writes(SceneAspect& aspect, SceneUnits& units, SceneCenter& center)
{
    return {
        {"aspect.x", [&] { aspect.setX(0.5); }}, {"aspect.y", [&] { aspect.setY(0.5); }},
        {"units.x", [&] { units.setX(20); }},    {"units.y", [&] { units.setY(20); }},
        {"units.z", [&] { units.setZ(20); }},    {"center.x", [&] { center.setX(5); }},
        {"center.y", [&] { center.setY(5); }},
    };
}

std::vector<std::pair<std::string, Call>> reads(SceneAspect& aspect, SceneUnits& units, SceneCenter& center)
{
    return {
        {"aspect.x", [&] { aspect.getX(); }},  {"aspect.y", [&] { aspect.getY(); }},
        {"aspect", [&] { aspect.__str__(); }}, {"units.x", [&] { units.getX(); }},
        {"units.y", [&] { units.getY(); }},    {"units.z", [&] { units.getZ(); }},
        {"units", [&] { units.__str__(); }},   {"center.x", [&] { center.getX(); }},
        {"center.y", [&] { center.getY(); }},  {"center", [&] { center.__str__(); }},
    };
}

TEST_F(SceneMetricsTest, ANewSceneHasAChartOfFourToThree)
{
    EXPECT_EQ(aspect.getX(), 4.0 / 24.0);
    EXPECT_EQ(aspect.getY(), 3.0 / 24.0);
    EXPECT_EQ(units.getX(), 24);
    EXPECT_EQ(units.getY(), 24);
    EXPECT_EQ(units.getZ(), 12);
    EXPECT_EQ(center.getX(), 0);
    EXPECT_EQ(center.getY(), 0);
}

TEST_F(SceneMetricsTest, TheTextsHoldTheValues)
{
    EXPECT_EQ(aspect.__str__(), "SceneAspect(0.166667, 0.125)");
    EXPECT_EQ(units.__str__(), "SceneUnits(24, 24, 12)");
    EXPECT_EQ(center.__str__(), "SceneCenter(0, 0)");
}

TEST_F(SceneMetricsTest, ThePropertiesStandInTheirOrder)
{
    const std::vector<std::vector<std::string>> expected = {
        {"objectName", "x", "y"}, {"objectName", "x", "y", "z"}, {"objectName", "x", "y"}};
    for (std::size_t i = 0; i < expected.size(); ++i) {
        bool extendNative = false;
        bool filter = false;
        EXPECT_EQ(views()[i]->getDir(extendNative, filter), expected[i]);
    }
    EXPECT_EQ(aspect.metaObject()->property(1).typeId(), QMetaType::Double);
    EXPECT_EQ(units.metaObject()->property(3).typeId(), QMetaType::Int);
    EXPECT_EQ(center.metaObject()->property(1).typeId(), QMetaType::Int);
}

TEST_F(SceneMetricsTest, EachValueIsSetAsOneEntry)
{
    changes([&] { aspect.setX(0.5); }, QStringLiteral("Set X Units Aspect Ratio"));
    EXPECT_EQ(aspect.getX(), 0.5);
    EXPECT_EQ(aspect.getY(), 0.125);
    changes([&] { aspect.setY(0.25); }, QStringLiteral("Set Y Units Aspect Ratio"));
    EXPECT_EQ(aspect.getX(), 0.5);
    EXPECT_EQ(aspect.getY(), 0.25);
    changes([&] { units.setX(12); }, QStringLiteral("Set Number of X Units"));
    EXPECT_EQ(units.__str__(), "SceneUnits(12, 24, 12)");
    changes([&] { units.setY(15); }, QStringLiteral("Set Number of Y Units"));
    EXPECT_EQ(units.__str__(), "SceneUnits(12, 15, 12)");
    changes([&] { units.setZ(7); }, QStringLiteral("Set Number of Z Units"));
    EXPECT_EQ(units.__str__(), "SceneUnits(12, 15, 7)");
    changes([&] { center.setX(-4); }, QStringLiteral("Set X Coordinate at Center"));
    EXPECT_EQ(center.__str__(), "SceneCenter(-4, 0)");
}

TEST_F(SceneMetricsTest, TheVerticalCenterHasTheLabelOfTheHorizontalOne)
{
    changes([&] { center.setY(3); }, QStringLiteral("Set X Coordinate at Center"));
    EXPECT_EQ(center.__str__(), "SceneCenter(0, 3)");
}

TEST_F(SceneMetricsTest, WidthAndHeightAreKeptByHalvesAndTheDepthWhole)
{
    units.setX(12);
    units.setY(13);
    units.setZ(12);
    const SC_SceneMetrics& metrics = *scene()->metrics();
    EXPECT_EQ(metrics.designFieldChartX(), 6.0);
    EXPECT_EQ(metrics.designFieldChartY(), 6.5);
    EXPECT_EQ(metrics.designFieldChartZ(), 12.0);
    EXPECT_EQ(units.__str__(), "SceneUnits(12, 13, 12)");
}

TEST_F(SceneMetricsTest, AnAspectLosesTheFractionOfTheChartsUnits)
{
    aspect.setX(0.49);
    EXPECT_EQ(scene()->metrics()->designAspectRatioX(), 11);
    EXPECT_EQ(aspect.getX(), 11.0 / 24.0);
    units.setX(5);
    aspect.setX(3.0);
    EXPECT_EQ(scene()->metrics()->designAspectRatioX(), 15);
}

TEST_F(SceneMetricsTest, TheChartItselfLosesItsFractionFirst)
{
    prepare(new SC_ProjectCmds::SetDesignFieldChartCmd(projectCommon(), 2.4, 3.9, 1.9));
    EXPECT_EQ(units.__str__(), "SceneUnits(4, 7, 1)");
    aspect.setX(1.9);
    EXPECT_EQ(scene()->metrics()->designAspectRatioX(), 7);
    EXPECT_EQ(aspect.getX(), 7.0 / 4.8);
}

TEST_F(SceneMetricsTest, TheValuesThatAreThereStayWhatTheyAre)
{
    const std::string before = aspect.__str__() + units.__str__() + center.__str__();
    aspect.setX(aspect.getX());
    units.setX(24);
    units.setY(24);
    units.setZ(12);
    center.setX(0);
    center.setY(0);
    EXPECT_EQ(aspect.__str__() + units.__str__() + center.__str__(), before);
    undo(6);
    EXPECT_EQ(aspect.__str__() + units.__str__() + center.__str__(), before);
}

TEST_F(SceneMetricsTest, AnAspectThatIsNoNumberOrBeyondMeasureIsRefused)
{
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double value : {std::numeric_limits<double>::quiet_NaN(), infinity, -infinity, 1e300, -1e300, 1e9}) {
        refuses([&] { aspect.setX(value); }, "Invalid argument at index 0.");
        refuses([&] { aspect.setY(value); }, "Invalid argument at index 0.");
    }
}

// A refused command is not told: these settings have no sentence for it.
TEST_F(SceneMetricsTest, WhatTheEngineDoesNotTakeChangesNothing)
{
    for (const double value : {0.0, -0.0, -1.0, 0.001, -1e6}) {
        leaves([&] { aspect.setX(value); });
        leaves([&] { aspect.setY(value); });
    }
    for (const int value : {0, -1, lowest, highest}) {
        leaves([&] { units.setX(value); });
        leaves([&] { units.setY(value); });
        leaves([&] { units.setZ(value); });
    }
}

TEST_F(SceneMetricsTest, AnyWholeNumbersMayStandAtTheCenter)
{
    center.setX(lowest);
    center.setY(highest);
    EXPECT_EQ(center.getX(), lowest);
    EXPECT_EQ(center.getY(), highest);
}

TEST_F(SceneMetricsTest, AViewReadsTheEngineAtEachCall)
{
    SceneUnits other(scene());
    other.setX(10);
    EXPECT_EQ(units.getX(), 10);
    undo();
    EXPECT_EQ(units.getX(), 24);
}

TEST_F(SceneMetricsTest, ACopyIsOfTheSameScene)
{
    for (OMC::BaseObject* view : views()) {
        const std::unique_ptr<OMC::BaseObject> copy(view->copy());
        EXPECT_EQ(copy->metaObject(), view->metaObject());
        EXPECT_EQ(copy->__str__(), view->__str__());
    }
}

TEST_F(SceneMetricsTest, OnceTheSceneIsGoneEveryOperationSaysSo)
{
    close();
    for (const auto& [name, call] : reads(aspect, units, center))
        EXPECT_EQ(failureOf(call), objectGone) << name;
    for (const auto& [name, call] : writes(aspect, units, center))
        EXPECT_EQ(failureOf(call), objectGone) << name << " =";
}

TEST_F(SceneMetricsTest, AViewOfNoSceneIsInvalidFromTheStart)
{
    EXPECT_EQ(failureOf([] { SceneAspect(nullptr).getX(); }), objectGone);
    EXPECT_EQ(failureOf([] { SceneUnits(nullptr).getX(); }), objectGone);
    EXPECT_EQ(failureOf([] { SceneCenter(nullptr).getX(); }), objectGone);
}

TEST_F(SceneMetricsTest, NoThreadIsAsked)
{
    std::vector<Call> calls;
    for (const auto& [name, call] : reads(aspect, units, center))
        calls.push_back(call);
    for (const auto& [name, call] : writes(aspect, units, center))
        calls.push_back(call);
    EXPECT_EQ(failuresOnOtherThread(calls), std::vector<std::string>(calls.size(), "no exception"));
}

TEST_F(SceneMetricsPartsTest, ARefusedCommandIsNotTold)
{
    for (const auto& [name, call] : writes(aspect, units, center))
        EXPECT_EQ(failureOf(call), "no exception") << name;
    EXPECT_EQ(manager.refusedLabels,
              (QStringList{"Set X Units Aspect Ratio", "Set Y Units Aspect Ratio", "Set Number of X Units",
                           "Set Number of Y Units", "Set Number of Z Units", "Set X Coordinate at Center",
                           "Set X Coordinate at Center"}));
}

TEST_F(SceneMetricsPartsTest, WithoutMetricsNothingIsReadOrWritten)
{
    scene.measures = nullptr;
    for (const auto& [name, call] : reads(aspect, units, center))
        EXPECT_EQ(failureOf(call), objectGone) << name;
    for (const auto& [name, call] : writes(aspect, units, center))
        EXPECT_EQ(failureOf(call), objectGone) << name << " =";
    EXPECT_TRUE(manager.refusedLabels.isEmpty());
}

TEST_F(SceneMetricsPartsTest, WithoutProjectOrManagerNothingIsWrittenAndAllIsRead)
{
    for (const bool withoutManager : {false, true}) {
        scene.project = withoutManager ? &project : nullptr;
        scene.commands = withoutManager ? nullptr : &manager;
        for (const auto& [name, call] : reads(aspect, units, center))
            EXPECT_EQ(failureOf(call), "no exception") << name;
        for (const auto& [name, call] : writes(aspect, units, center))
            EXPECT_EQ(failureOf(call), objectGone) << name << " =";
    }
    EXPECT_TRUE(manager.refusedLabels.isEmpty());
}

TEST_F(SceneMetricsPartsTest, TheEngineIsAskedForBeforeTheValue)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    scene.project = nullptr;
    EXPECT_EQ(failureOf([&] { aspect.setX(nan); }), objectGone);
    scene.project = &project;
    EXPECT_EQ(failureOf([&] { aspect.setX(nan); }), "Invalid argument at index 0.");
}

TEST_F(SceneMetricsPartsTest, MetricsBeyondAnIntAreHeldWithinIt)
{
    metrics.chartX = 1e300;
    metrics.chartY = -1e300;
    metrics.chartZ = std::numeric_limits<double>::infinity();
    EXPECT_EQ(units.getX(), highest);
    EXPECT_EQ(units.getY(), lowest);
    EXPECT_EQ(units.getZ(), highest);
    EXPECT_EQ(failureOf([&] { aspect.setX(2.0); }), "Invalid argument at index 0.");
}

} // namespace
