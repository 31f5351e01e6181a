#include "core/scene/scenelist.h"

#include "core/host/sc_projectcmds.h"
#include "core/scene/scene.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/openproject.h"
#include "tests/core/support/otherthread.h"
#include "tests/core/support/standins.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using OMC::SceneList;

const char* const outOfRange = "Scene index is out of range.";

QString nameOf(const OMC::Obj& handle)
{
    const auto* scene = OMC::objectIn<OMC::Scene>(handle);
    return scene ? scene->getName() : QStringLiteral("no scene");
}

/// A project of the open engine, with its one scene.
class SceneListTest : public ProjectTest {
protected:
    SceneListTest() : scenes(projectCommon()) {}

    SceneList scenes;
};

/// A project of four scenes, of which the manager's third is the project's first.
class ManyScenesTest : public testing::Test {
protected:
    ManyScenesTest()
    {
        manager.scenes = {&night, &day, &dawn, &dusk};
        common.scenes = &manager;
        project.common = &common;
        project.first = &dawn;
        projects.opened = &project;
        session.projects = &projects;
        session.common = &common;
    }

    static QStringList namesIn(const SceneList& list)
    {
        QStringList names;
        for (const OMC::Obj& handle : list.list())
            names.append(nameOf(handle));
        return names;
    }

    StandInScene night{1, QStringLiteral("Night")};
    StandInScene day{2, QStringLiteral("Day")};
    StandInScene dawn{3, QStringLiteral("Dawn")};
    StandInScene dusk{4, QStringLiteral("Dusk")};
    StandInSceneManager manager;
    StandInProjectCommon common;
    StandInProject project;
    StandInProjectManager projects;
    StandInSession session;
};

TEST_F(SceneListTest, ANewProjectHasOneScene)
{
    EXPECT_EQ(scenes.size(), 1U);
    EXPECT_EQ(scenes.__str__(), "Scenes()[1]");
    EXPECT_EQ(nameOf(scenes.get(0)), QStringLiteral("Scene-1"));
    ASSERT_EQ(scenes.list().size(), 1U);
    EXPECT_EQ(OMC::objectIn<OMC::Scene>(scenes.list()[0])->scene(), scene());
}

TEST_F(SceneListTest, AnIndexOutsideIsRefused)
{
    for (const int index : {1, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        EXPECT_EQ(failureOf([&] { scenes.get(index); }), outOfRange) << index;
}

TEST_F(SceneListTest, GettingByNameIsTheCallOperatorsOnly)
{
    EXPECT_EQ(failureOf([&] { scenes.get(QStringLiteral("Scene-1")); }), "Unable to retrieve item in container.");
    EXPECT_EQ(nameOf(scenes(QStringLiteral("Scene-1"))), QStringLiteral("Scene-1"));
    EXPECT_EQ(nameOf(scenes(QStringLiteral("SCENE-1"))), QStringLiteral("Scene-1"));
    EXPECT_EQ(scenes(QStringLiteral("Scene-2")).get(), nullptr);
    EXPECT_EQ(scenes(QString()).get(), nullptr);
}

TEST_F(SceneListTest, SettingIsAlwaysRefused)
{
    EXPECT_EQ(failureOf([&] { scenes.set(0, scenes.get(0)); }), "Unable to set the scene list.");
    close();
    EXPECT_EQ(failureOf([&] { scenes.set(0, OMC::Obj()); }), "Unable to set the scene list.");
}

TEST_F(SceneListTest, ALiveSceneIsNeverContained)
{
    EXPECT_FALSE(scenes.contains(scenes.get(0)));
    EXPECT_FALSE(scenes.contains(OMC::Obj()));
    EXPECT_FALSE(scenes.contains(OMC::Obj(scenes.copy())));
    EXPECT_FALSE(scenes.contains(OMC::Obj(new OMC::Scene(nullptr))));
}

TEST_F(SceneListTest, OnceTheProjectIsClosedEveryOperationSaysSo)
{
    const OMC::Obj loop = scenes.__iter__();
    close();
    const std::pair<const char*, std::function<void()>> calls[] = {
        {"size", [&] { scenes.size(); }},
        {"get", [&] { scenes.get(0); }},
        {"list", [&] { scenes.list(); }},
        {"call", [&] { scenes(QStringLiteral("Scene-1")); }},
        {"contains", [&] { scenes.contains(OMC::Obj()); }},
        {"__iter__", [&] { scenes.__iter__(); }},
        {"__iterItem__", [&] { OMC::objectIn<SceneList>(loop)->__iterItem__(); }},
        {"__str__", [&] { scenes.__str__(); }},
    };
    for (const auto& [name, call] : calls)
        EXPECT_EQ(failureOf(call), objectGone) << name;
}

TEST_F(SceneListTest, TheThreadIsAskedForBehindTheProject)
{
    const OMC::Obj handle = scenes.__iter__();
    auto& loop = *OMC::objectIn<SceneList>(handle);
    const SceneList gone(nullptr);
    const auto calls = [](const SceneList& list) {
        return std::vector<std::function<void()>>{[&] { list.size(); },
                                                  [&] { list.get(0); },
                                                  [&] { list.list(); },
                                                  [&] { list(QStringLiteral("Scene-1")); },
                                                  [&] { list.contains(OMC::Obj()); },
                                                  [&] { list.__iter__(); },
                                                  [&] { list.__iterItem__(); },
                                                  [&] { list.__str__(); }};
    };
    const std::string lockedOut = "Unable to access Object Model from another thread -- application must be locked.";
    EXPECT_EQ(failuresOnOtherThread(calls(loop)), std::vector<std::string>(8, lockedOut));
    EXPECT_EQ(failuresOnOtherThread(calls(gone)), std::vector<std::string>(8, objectGone));
    EXPECT_EQ(failuresOnOtherThread({[&] { scenes.set(0, OMC::Obj()); }, [&] { ++loop; }, [&] { loop.__atend__(); }}),
              (std::vector<std::string>{"Unable to set the scene list.", "no exception", "no exception"}));
}

TEST_F(SceneListTest, ScenesThatAreAddedAreListedFoundAndUndone)
{
    manager().execute(new SC_ProjectCmds::AddSceneCmd(projectCommon(), QStringLiteral("Night")), QString());
    manager().execute(new SC_ProjectCmds::AddSceneCmd(projectCommon(), QStringLiteral("Day"), 1), QString());
    QStringList names;
    for (const OMC::Obj& handle : scenes.list())
        names.append(nameOf(handle));
    EXPECT_EQ(names, (QStringList{"Scene-1", "Day", "Night"}));
    EXPECT_EQ(nameOf(scenes(QStringLiteral("NIGHT"))), QStringLiteral("Night"));
    EXPECT_EQ(nameOf(scenes.get(2)), QStringLiteral("Night"));
    EXPECT_FALSE(scenes.contains(scenes.get(2)));
    const OMC::Obj night = scenes.get(2);
    undo(2);
    EXPECT_EQ(scenes.size(), 1U);
    EXPECT_EQ(nameOf(scenes(QStringLiteral("Night"))), QStringLiteral("no scene"));
    EXPECT_EQ(failureOf([&] { OMC::objectIn<OMC::Scene>(night)->getName(); }), objectGone);
}

TEST_F(SceneListTest, ASceneThatIsRemovedDuringALoopComesAsAnInvalidObject)
{
    manager().execute(new SC_ProjectCmds::AddSceneCmd(projectCommon(), QStringLiteral("Night")), QString());
    const SC_Id night = OMC::objectIn<OMC::Scene>(scenes.list()[1])->scene()->id();
    const OMC::Obj handle = scenes.__iter__();
    auto& loop = *OMC::objectIn<SceneList>(handle);
    EXPECT_EQ(nameOf(loop.__iterItem__()), QStringLiteral("Scene-1"));
    ++loop;
    ASSERT_TRUE(manager().execute(new SC_ProjectCmds::RemoveSceneCmd(projectCommon(), night), QString()));
    EXPECT_FALSE(loop.__atend__());
    const OMC::Obj item = loop.__iterItem__();
    ASSERT_NE(OMC::objectIn<OMC::Scene>(item), nullptr);
    EXPECT_EQ(failureOf([&] { nameOf(item); }), objectGone);
    EXPECT_TRUE(loop.__atend__());
    EXPECT_EQ(scenes.size(), 1U);
}

TEST_F(ManyScenesTest, TheProjectsFirstSceneStandsAtIndexZero)
{
    const SceneList list(&common);
    const QStringList order = {"Dawn", "Night", "Day", "Dusk"};
    EXPECT_EQ(namesIn(list), order);
    EXPECT_EQ(list.size(), 4U);
    for (int i = 0; i < order.size(); ++i)
        EXPECT_EQ(nameOf(list.get(i)), order[i]);
    EXPECT_EQ(failureOf([&] { list.get(4); }), outOfRange);
}

TEST_F(ManyScenesTest, OfScenesThatDifferByCaseTheLastIsFound)
{
    StandInScene shouting{5, QStringLiteral("DAY")};
    manager.scenes.push_back(&shouting);
    const qint64 before = OMC::BaseObject::liveObjects();
    {
        const SceneList list(&common);
        const OMC::Obj found = list(QStringLiteral("day"));
        EXPECT_EQ(OMC::objectIn<OMC::Scene>(found)->scene(), &shouting);
    }
    EXPECT_EQ(OMC::BaseObject::liveObjects(), before);
}

TEST_F(ManyScenesTest, ALoopVisitsEverySceneOnce)
{
    const SceneList list(&common);
    const OMC::Obj handle = list.__iter__();
    auto& loop = *OMC::objectIn<SceneList>(handle);
    QStringList names;
    for (; !loop.__atend__(); ++loop)
        names.append(nameOf(loop.__iterItem__()));
    EXPECT_EQ(names, (QStringList{"Dawn", "Night", "Day", "Dusk"}));
    EXPECT_EQ(failureOf([&] { loop.__iterItem__(); }), outOfRange);
}

TEST_F(ManyScenesTest, LoopsDoNotInterfere)
{
    const SceneList list(&common);
    const OMC::Obj outerHandle = list.__iter__();
    auto& outer = *OMC::objectIn<SceneList>(outerHandle);
    ++outer;
    const OMC::Obj innerHandle = list.__iter__();
    auto& inner = *OMC::objectIn<SceneList>(innerHandle);
    const OMC::Obj copyHandle(outer.copy());
    auto& copy = *OMC::objectIn<SceneList>(copyHandle);
    ++copy;
    EXPECT_EQ(nameOf(inner.__iterItem__()), QStringLiteral("Dawn"));
    EXPECT_EQ(nameOf(outer.__iterItem__()), QStringLiteral("Night"));
    EXPECT_EQ(nameOf(copy.__iterItem__()), QStringLiteral("Day"));
    const OMC::Obj againHandle = outer.__iter__();
    EXPECT_EQ(nameOf(OMC::objectIn<SceneList>(againHandle)->__iterItem__()), QStringLiteral("Dawn"));
}

TEST_F(ManyScenesTest, GoingBackStopsAtTheFirstAndLeavesTheEndFlag)
{
    const SceneList list(&common);
    const OMC::Obj handle = list.__iter__();
    auto& loop = *OMC::objectIn<SceneList>(handle);
    --loop;
    EXPECT_EQ(nameOf(loop.__iterItem__()), QStringLiteral("Dawn"));
    for (int i = 0; i < 3; ++i)
        ++loop;
    EXPECT_FALSE(loop.__atend__());
    loop.__iterItem__();
    EXPECT_TRUE(loop.__atend__());
    --loop;
    EXPECT_TRUE(loop.__atend__());
    EXPECT_EQ(nameOf(loop.__iterItem__()), QStringLiteral("Day"));
}

TEST_F(ManyScenesTest, ALoopGoesThroughTheScenesOfItsBeginning)
{
    auto gone = std::make_unique<StandInScene>(6, QStringLiteral("Gone"));
    manager.scenes.push_back(gone.get());
    const SceneList list(&common);
    const OMC::Obj handle = list.__iter__();
    auto& loop = *OMC::objectIn<SceneList>(handle);
    manager.scenes.pop_back();
    gone.reset();
    for (int i = 0; i < 4; ++i)
        ++loop;
    const OMC::Obj item = loop.__iterItem__();
    ASSERT_NE(OMC::objectIn<OMC::Scene>(item), nullptr);
    EXPECT_EQ(failureOf([&] { OMC::objectIn<OMC::Scene>(item)->getName(); }), objectGone);
    EXPECT_TRUE(loop.__atend__());
}

TEST_F(ManyScenesTest, AnEmptyListIsAtItsEndFromTheStart)
{
    manager.scenes.clear();
    project.first = nullptr;
    const SceneList list(&common);
    const OMC::Obj handle = list.__iter__();
    EXPECT_TRUE(OMC::objectIn<SceneList>(handle)->__atend__());
    EXPECT_EQ(list.size(), 0U);
    EXPECT_TRUE(list.list().empty());
    EXPECT_EQ(failureOf([&] { list.get(0); }), outOfRange);
}

TEST_F(ManyScenesTest, ADeadSceneIsContainedWhenTheProjectHasTheFixedIdentifier)
{
    const SceneList list(&common);
    const OMC::Obj dead(new OMC::Scene(nullptr));
    EXPECT_FALSE(list.contains(dead));
    StandInScene fixed{72};
    manager.scenes.push_back(&fixed);
    EXPECT_TRUE(list.contains(dead));
    EXPECT_FALSE(list.contains(OMC::Obj(new OMC::Scene(&fixed))));
    EXPECT_EQ(manager.asked, (std::vector<unsigned int>{72, 72}));
}

TEST_F(ManyScenesTest, EverySceneIsMadeByTheOneFactory)
{
    class Counting : public SceneList {
    public:
        using SceneList::SceneList;
        OMC::BaseObject* createScene(TUScene* scene) const override
        {
            ++made;
            return SceneList::createScene(scene);
        }
        mutable int made = 0;
    };
    const Counting list(&common);
    list.get(0);
    list(QStringLiteral("Day"));
    EXPECT_EQ(list.made, 2);
    EXPECT_EQ(list.list().size(), 4U);
    EXPECT_EQ(list.made, 6);
}

TEST_F(ManyScenesTest, WithoutAPartOfTheSessionTheListIsInvalid)
{
    const SceneList list(&common);
    const OMC::Obj dead(new OMC::Scene(nullptr));
    const auto failures = [&] {
        return std::vector<std::string>{
            failureOf([&] { list.size(); }),     failureOf([&] { list.get(0); }),
            failureOf([&] { list.list(); }),     failureOf([&] { list(QStringLiteral("Day")); }),
            failureOf([&] { list.__iter__(); }), failureOf([&] { list.contains(dead); }),
        };
    };
    const std::string none = "no exception";

    common.scenes = nullptr;
    EXPECT_EQ(failures(), (std::vector<std::string>{objectGone, objectGone, objectGone, objectGone, objectGone, none}));
    common.scenes = &manager;
    session.common = nullptr;
    EXPECT_EQ(failures(), (std::vector<std::string>{objectGone, objectGone, objectGone, objectGone, objectGone, none}));
    session.common = &common;
    projects.opened = nullptr;
    EXPECT_EQ(failures(), (std::vector<std::string>{none, objectGone, objectGone, none, objectGone, none}));
    session.projects = nullptr;
    EXPECT_EQ(failures(), (std::vector<std::string>{none, objectGone, objectGone, none, objectGone, objectGone}));
    PLUG_Services::setSessionContext(nullptr);
    EXPECT_EQ(failures(), std::vector<std::string>(6, objectGone));
}

} // namespace
