#include "core/scene/project.h"

#include "core/host/sc_resolution.h"
#include "core/scene/history.h"
#include "core/scene/projectresolution.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/openproject.h"
#include "tests/core/support/otherthread.h"
#include "tests/core/support/standins.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

const char* const unexpected = "An unexpected error has occurred.";

class ProjectWrapperTest : public ProjectTest {
protected:
    ProjectWrapperTest() : wrapper(projectCommon()) {}

    OMC::Project wrapper;
};

TEST_F(ProjectWrapperTest, ANewProjectIsCleanAndHasNoHistory)
{
    EXPECT_FALSE(wrapper.getDirty());
    EXPECT_FALSE(wrapper.getDirtyPreviously());
    EXPECT_EQ(wrapper.__str__(), "Brindle Base Project");
}

TEST_F(ProjectWrapperTest, AChangeMakesItDirtyUntilItIsUndone)
{
    ASSERT_TRUE(scene()->setStopFrame(30));
    EXPECT_TRUE(wrapper.getDirty());
    EXPECT_TRUE(wrapper.getDirtyPreviously());
    undo();
    EXPECT_FALSE(wrapper.getDirty());
    EXPECT_FALSE(wrapper.getDirtyPreviously());
}

TEST_F(ProjectWrapperTest, SavingMakesItCleanAndKeepsTheHistory)
{
    ASSERT_TRUE(scene()->setStopFrame(30));
    saved();
    EXPECT_FALSE(wrapper.getDirty());
    EXPECT_TRUE(wrapper.getDirtyPreviously());
}

TEST_F(ProjectWrapperTest, ThePropertiesStandInTheirOrder)
{
    bool extendNative = false;
    bool filter = false;
    EXPECT_EQ(wrapper.getDir(extendNative, filter),
              (std::vector<std::string>{"objectName", "dirty", "dirty_previously", "history", "resolution",
                                        "palette_lists", "palettes"}));
}

TEST_F(ProjectWrapperTest, TheHistoryIsThatOfTheProject)
{
    bool found = false;
    const QVariant value = wrapper.getAttr("history", found);
    ASSERT_TRUE(found);
    const auto* history = OMC::objectFrom<OMC::History>(value);
    ASSERT_NE(history, nullptr);
    EXPECT_EQ(history->size(), 0U);
    ASSERT_TRUE(scene()->setStopFrame(30));
    EXPECT_EQ(history->size(), 1U);
}

TEST_F(ProjectWrapperTest, TheResolutionIsThatOfTheProject)
{
    const OMC::Obj handle = wrapper.getResolution();
    auto* resolution = OMC::objectIn<OMC::ProjectResolution>(handle);
    ASSERT_NE(resolution, nullptr);
    resolution->setX(1000);
    EXPECT_EQ(projectCommon()->resolution()->width(), 1000);
}

TEST_F(ProjectWrapperTest, TheHistoryAndTheResolutionAskNoThread)
{
    const std::string lockedOut = "Unable to access Object Model from another thread -- application must be locked.";
    EXPECT_EQ(failuresOnOtherThread({[&] { wrapper.getHistory(); }, [&] { wrapper.getResolution(); },
                                     [&] { wrapper.getDirty(); }, [&] { wrapper.getDirtyPreviously(); }}),
              (std::vector<std::string>{"no exception", "no exception", lockedOut, lockedOut}));
    const OMC::Project gone(nullptr);
    EXPECT_EQ(failuresOnOtherThread({[&] { gone.getDirty(); }, [&] { gone.getDirtyPreviously(); }}),
              std::vector<std::string>(2, objectGone));
}

TEST_F(ProjectWrapperTest, ACopyIsOfTheSameProject)
{
    const OMC::Obj copy(wrapper.copy());
    ASSERT_TRUE(scene()->setStopFrame(30));
    EXPECT_TRUE(OMC::objectIn<OMC::Project>(copy)->getDirty());
}

TEST_F(ProjectWrapperTest, OnceItIsClosedItSaysSo)
{
    close();
    EXPECT_EQ(failureOf([&] { wrapper.getDirty(); }), objectGone);
    EXPECT_EQ(failureOf([&] { wrapper.getDirtyPreviously(); }), objectGone);
    EXPECT_EQ(wrapper.__str__(), "Brindle Base Project");

    const OMC::Obj history = wrapper.getHistory();
    EXPECT_EQ(failureOf([&] { OMC::objectIn<OMC::History>(history)->size(); }), objectGone);
    const OMC::Obj resolution = wrapper.getResolution();
    EXPECT_EQ(failureOf([&] { OMC::objectIn<OMC::ProjectResolution>(resolution)->getX(); }), objectGone);
}

TEST_F(ProjectWrapperTest, AProjectThatNeverWasIsInvalidFromTheStart)
{
    const OMC::Project nothing(nullptr);
    EXPECT_EQ(failureOf([&] { nothing.getDirty(); }), objectGone);
    EXPECT_NE(nothing.getHistory().get(), nullptr);
}

TEST_F(ProjectWrapperTest, WithoutASessionOrItsManagerTheFlagsFailUnexpectedly)
{
    {
        const StandInSession managerless;
        EXPECT_EQ(failureOf([&] { wrapper.getDirty(); }), unexpected);
        EXPECT_EQ(failureOf([&] { wrapper.getDirtyPreviously(); }), unexpected);
        PLUG_Services::setSessionContext(nullptr);
        EXPECT_EQ(failureOf([&] { wrapper.getDirty(); }), unexpected);
        EXPECT_EQ(failureOf([&] { wrapper.getDirtyPreviously(); }), unexpected);
    }
    EXPECT_FALSE(wrapper.getDirty());
}

} // namespace
