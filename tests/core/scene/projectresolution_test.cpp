#include "core/scene/projectresolution.h"

#include "core/host/sc_projectcmds.h"
#include "core/host/tu_dbscenedata.h"
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

using OMC::ProjectNamedResolution;
using OMC::ProjectResolution;

const char* const failed = "Failed to set resolution.";
const char* const noResolution = "Unable to find named-resolution.";

class ProjectResolutionTest : public ChangeTest {
protected:
    ProjectResolutionTest() : resolution(projectCommon()) {}

    ProjectResolution resolution;
};

/// A table of named resolutions that a test writes.
class StandInSceneData : public TUDbSceneData {
public:
    std::vector<TUDbResolution::UsaResolutionTable> namedResolutions() const override { return rows; }

    std::vector<TUDbResolution::UsaResolutionTable> rows;
};

/// A project of no engine, with the resolution "Wide" and a table of three rows, two of one name.
class ResolutionTableTest : public testing::Test {
protected:
    ResolutionTableTest()
        : picture(QStringLiteral("Wide"), 1000, 500, TUDbResolution::kFitWidth, TUDbResolution::kOrthogonal),
          resolution(&project)
    {
        table.rows = {
            {QStringLiteral("Wide"), 1000, 500, 12.5, 30.0, TUDbResolution::kFitWidth, TUDbResolution::kOrthogonal},
            {QStringLiteral("Twice"), 1, 2, 3.0, 4.0},
            {QStringLiteral("Twice"), 5, 6, 7.0, 8.0},
            {QStringLiteral("Odd"), 9, 10, 11.0, 12.0, TUDbResolution::kFitHeight,
             static_cast<TUDbResolution::Projection>(2)}};
        project.commands = &manager;
        project.picture = &picture;
        project.sceneData = &table;
        project.fov = 30.5;
    }

    ProjectNamedResolution named(const char* name) { return {&project, QString::fromLatin1(name)}; }

    RefusingManager manager;
    SC_Resolution picture;
    StandInSceneData table;
    StandInProjectCommon project;
    ProjectResolution resolution;
};

TEST_F(ProjectResolutionTest, ANewProjectIsInHighDefinition)
{
    EXPECT_EQ(resolution.getX(), 1920);
    EXPECT_EQ(resolution.getY(), 1080);
    EXPECT_EQ(resolution.getDefaultName(), QStringLiteral("HD_1080"));
    EXPECT_EQ(resolution.getDefaultFOV(), 41.112);
    EXPECT_EQ(resolution.__str__(), "ProjectResoluion(1920,1080,41.112)");
}

TEST_F(ProjectResolutionTest, ThePropertiesStandInTheirOrder)
{
    bool extendNative = false;
    bool filter = false;
    EXPECT_EQ(resolution.getDir(extendNative, filter),
              (std::vector<std::string>{"objectName", "x", "y", "default_name", "default_FOV", "names"}));
    const ProjectNamedResolution named(projectCommon(), QStringLiteral("PAL"));
    EXPECT_EQ(named.getDir(extendNative, filter),
              (std::vector<std::string>{"objectName", "x", "y", "fov", "framerate", "name", "projection"}));
}

TEST_F(ProjectResolutionTest, EachSideIsSetAsOneEntryAndTakesTheName)
{
    changes([&] { resolution.setX(1000); }, QStringLiteral("Set X Resolution."));
    EXPECT_EQ(resolution.__str__(), "ProjectResoluion(1000,1080,41.112)");
    EXPECT_EQ(resolution.getDefaultName(), QString());
    changes([&] { resolution.setY(500); }, QStringLiteral("Set Y Resolution."));
    EXPECT_EQ(resolution.__str__(), "ProjectResoluion(1000,500,41.112)");
    undo(2);
    EXPECT_EQ(resolution.getDefaultName(), QStringLiteral("HD_1080"));
}

TEST_F(ProjectResolutionTest, TheSideThatIsThereKeepsTheName)
{
    changes([&] { resolution.setX(1920); }, QStringLiteral("Set X Resolution."));
    changes([&] { resolution.setY(1080); }, QStringLiteral("Set Y Resolution."));
    EXPECT_EQ(resolution.getDefaultName(), QStringLiteral("HD_1080"));
}

TEST_F(ProjectResolutionTest, ASideThatNoPictureHasIsRefused)
{
    for (const int pixels : {0, -1, 32769, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        refuses([&] { resolution.setX(pixels); }, failed);
        refuses([&] { resolution.setY(pixels); }, failed);
    }
}

TEST_F(ProjectResolutionTest, ANameIsChosenAsOneEntry)
{
    changes([&] { resolution.setDefaultName(QStringLiteral("PAL")); }, QStringLiteral("Set Default Resolution Name"));
    EXPECT_EQ(resolution.getDefaultName(), QStringLiteral("PAL"));
    EXPECT_EQ(resolution.__str__(), "ProjectResoluion(720,576,41.112)");
}

TEST_F(ProjectResolutionTest, AnUnknownNameIsRefusedWithoutACommand)
{
    for (const QString& name : {QStringLiteral("Nowhere"), QStringLiteral("pal"), QStringLiteral(" PAL"), QString()})
        refuses([&] { resolution.setDefaultName(name); }, "Named-resolution cannot be found.");
}

TEST_F(ProjectResolutionTest, NamesLeadToTheValuesOfEachResolution)
{
    const QMap<QString, OMC::Obj> names = resolution.getNames();
    EXPECT_EQ(names.size(),
              static_cast<qsizetype>(TUDbResolution::getResolutions(*projectCommon()->dbSceneData(), false).size()));
    const OMC::Obj handle = names[QStringLiteral("PAL")];
    const auto* pal = OMC::objectIn<ProjectNamedResolution>(handle);
    ASSERT_NE(pal, nullptr);
    EXPECT_EQ(pal->getX(), 720);
    EXPECT_EQ(pal->getY(), 576);
    EXPECT_EQ(pal->getFOV(), 41.112);
    EXPECT_EQ(pal->getFramerate(), 25.0);
    EXPECT_EQ(pal->getName(), QStringLiteral("PAL"));
    EXPECT_EQ(pal->getProjection(), QStringLiteral("Perspective"));
    EXPECT_EQ(pal->__str__(), "ProjectNamedResolution(PAL,720,576,41.112,25)");
    for (auto name = names.begin(); name != names.end(); ++name)
        EXPECT_EQ(OMC::objectIn<ProjectNamedResolution>(name.value())->getName(), name.key());
}

TEST_F(ProjectResolutionTest, NamesAreReadAsAPropertyOfTheirType)
{
    bool found = false;
    const QVariant value = resolution.getAttr("names", found);
    ASSERT_TRUE(found);
    EXPECT_TRUE((value.value<QMap<QString, OMC::Obj>>().contains(QStringLiteral("PAL"))));
}

TEST_F(ProjectResolutionTest, ACopyIsOfTheSameProject)
{
    const std::unique_ptr<OMC::BaseObject> copy(resolution.copy());
    resolution.setX(1000);
    EXPECT_EQ(copy->__str__(), resolution.__str__());
    const ProjectNamedResolution named(projectCommon(), QStringLiteral("PAL"));
    const std::unique_ptr<OMC::BaseObject> again(named.copy());
    EXPECT_EQ(again->__str__(), named.__str__());
}

TEST_F(ProjectResolutionTest, OnceTheProjectIsClosedEveryOperationSaysSo)
{
    close();
    const std::pair<const char*, std::function<void()>> calls[] = {
        {"x", [&] { resolution.getX(); }},
        {"x =", [&] { resolution.setX(5); }},
        {"y", [&] { resolution.getY(); }},
        {"y =", [&] { resolution.setY(5); }},
        {"default_name", [&] { resolution.getDefaultName(); }},
        {"default_name =", [&] { resolution.setDefaultName(QStringLiteral("PAL")); }},
        {"default_FOV", [&] { resolution.getDefaultFOV(); }},
        {"names", [&] { resolution.getNames(); }},
        {"__str__", [&] { resolution.__str__(); }},
    };
    for (const auto& [name, call] : calls)
        EXPECT_EQ(failureOf(call), objectGone) << name;
    EXPECT_EQ(failureOf([] { ProjectResolution(nullptr).getX(); }), objectGone);
}

TEST_F(ProjectResolutionTest, TheThreadIsAskedForButForANamesName)
{
    const std::string lockedOut = "Unable to access Object Model from another thread -- application must be locked.";
    const ProjectNamedResolution named(projectCommon(), QStringLiteral("PAL"));
    EXPECT_EQ(
        failuresOnOtherThread({[&] { resolution.getX(); }, [&] { resolution.setDefaultName(QString()); },
                               [&] { resolution.getNames(); }, [&] { named.getX(); }, [&] { named.getY(); },
                               [&] { named.getFOV(); }, [&] { named.getFramerate(); }, [&] { named.getProjection(); }}),
        std::vector<std::string>(8, lockedOut));
    EXPECT_EQ(failuresOnOtherThread({[&] { named.getName(); }}), std::vector<std::string>{"no exception"});
    // One asks for the project first, the other for the thread.
    ProjectResolution gone(nullptr);
    const ProjectNamedResolution nameOnly(nullptr, QStringLiteral("PAL"));
    EXPECT_EQ(failuresOnOtherThread({[&] { gone.getX(); }, [&] { nameOnly.getX(); }}),
              (std::vector<std::string>{objectGone, lockedOut}));
}

TEST_F(ProjectResolutionTest, ANamedResolutionOfAClosedProjectKeepsItsName)
{
    const ProjectNamedResolution named(projectCommon(), QStringLiteral("PAL"));
    close();
    EXPECT_EQ(named.getName(), QStringLiteral("PAL"));
    const std::pair<const char*, std::function<void()>> calls[] = {
        {"x", [&] { named.getX(); }},
        {"y", [&] { named.getY(); }},
        {"fov", [&] { named.getFOV(); }},
        {"framerate", [&] { named.getFramerate(); }},
        {"projection", [&] { named.getProjection(); }},
        {"__str__", [&] { named.__str__(); }},
    };
    for (const auto& [name, call] : calls)
        EXPECT_EQ(failureOf(call), unexpectedError) << name;
}

TEST_F(ResolutionTableTest, ACommandThatIsRefusedHasItsSentenceAndLabel)
{
    EXPECT_EQ(failureOf([&] { resolution.setX(5); }), failed);
    EXPECT_EQ(failureOf([&] { resolution.setY(5); }), failed);
    EXPECT_EQ(failureOf([&] { resolution.setDefaultName(QStringLiteral("Wide")); }), "Failed to set named resolution.");
    EXPECT_EQ(manager.refusedLabels,
              (QStringList{"Set X Resolution.", "Set Y Resolution.", "Set Default Resolution Name"}));
}

TEST_F(ResolutionTableTest, WithoutAManagerNothingIsWritten)
{
    project.commands = nullptr;
    EXPECT_EQ(failureOf([&] { resolution.setX(5); }), objectGone);
    EXPECT_EQ(failureOf([&] { resolution.setY(5); }), objectGone);
    // The manager is asked for before the name is looked up.
    for (const char* name : {"Wide", "Nowhere"})
        EXPECT_EQ(failureOf([&] { resolution.setDefaultName(QString::fromLatin1(name)); }), objectGone);
    EXPECT_EQ(resolution.getX(), 1000);
}

TEST_F(ResolutionTableTest, WithoutAResolutionOnlyNamesAreReadAndChosen)
{
    project.picture = nullptr;
    EXPECT_EQ(failureOf([&] { resolution.getX(); }), objectGone);
    EXPECT_EQ(failureOf([&] { resolution.getY(); }), objectGone);
    EXPECT_EQ(failureOf([&] { resolution.getDefaultName(); }), objectGone);
    EXPECT_EQ(failureOf([&] { resolution.getDefaultFOV(); }), objectGone);
    EXPECT_EQ(failureOf([&] { resolution.setX(5); }), objectGone);
    EXPECT_EQ(failureOf([&] { resolution.setY(5); }), objectGone);
    EXPECT_EQ(resolution.getNames().size(), 3);
    EXPECT_EQ(failureOf([&] { resolution.setDefaultName(QStringLiteral("Wide")); }), "Failed to set named resolution.");
}

TEST_F(ResolutionTableTest, AProjectWithoutNamedResolutionsHasAnEmptyMap)
{
    table.rows.clear();
    EXPECT_TRUE(resolution.getNames().isEmpty());
    project.sceneData = nullptr;
    EXPECT_TRUE(resolution.getNames().isEmpty());
    EXPECT_EQ(failureOf([&] { resolution.setDefaultName(QStringLiteral("Wide")); }),
              "Named-resolution cannot be found.");
    EXPECT_EQ(failureOf([&] { named("Wide").getX(); }), noResolution);
    EXPECT_TRUE(manager.refusedLabels.isEmpty());
}

TEST_F(ResolutionTableTest, RowsOfOneNameAreOneObjectWhichReadsTheFirst)
{
    const qint64 before = OMC::BaseObject::liveObjects();
    {
        const QMap<QString, OMC::Obj> names = resolution.getNames();
        EXPECT_EQ(names.keys(), (QStringList{"Odd", "Twice", "Wide"}));
        const OMC::Obj handle = names[QStringLiteral("Twice")];
        EXPECT_EQ(OMC::objectIn<ProjectNamedResolution>(handle)->getX(), 1);
    }
    EXPECT_EQ(OMC::BaseObject::liveObjects(), before);
}

TEST_F(ResolutionTableTest, EachValueIsThatOfTheRow)
{
    EXPECT_EQ(named("Wide").__str__(), "ProjectNamedResolution(Wide,1000,500,30,12.5)");
    EXPECT_EQ(named("Wide").getProjection(), QStringLiteral("Orthogonal"));
    EXPECT_EQ(named("Twice").getProjection(), QStringLiteral("Perspective"));
    EXPECT_EQ(named("Odd").getProjection(), QStringLiteral("NONE"));
}

TEST_F(ResolutionTableTest, ANameThatWasRemovedFromTheTableSaysSo)
{
    const ProjectNamedResolution wide = named("Wide");
    const ProjectNamedResolution other = named("wide");
    table.rows.erase(table.rows.begin());
    for (const ProjectNamedResolution& gone : {wide, other}) {
        EXPECT_EQ(failureOf([&] { gone.getX(); }), noResolution);
        EXPECT_EQ(failureOf([&] { gone.getY(); }), noResolution);
        EXPECT_EQ(failureOf([&] { gone.getFOV(); }), noResolution);
        EXPECT_EQ(failureOf([&] { gone.getFramerate(); }), noResolution);
        EXPECT_EQ(failureOf([&] { gone.getProjection(); }), noResolution);
    }
    EXPECT_EQ(wide.getName(), QStringLiteral("Wide"));
}

TEST_F(ResolutionTableTest, ANameMayHoldAnything)
{
    table.rows.push_back({QStringLiteral("%1 %2"), 1, 2, 3.0, 4.0});
    EXPECT_EQ(named("%1 %2").__str__(), "ProjectNamedResolution(%1 %2,1,2,4,3)");
}

} // namespace
