#include "core/host/sc_projectcmds.h"

#include "core/host/at_attr.h"
#include "tests/engine/support/columnproject.h"

namespace {

using namespace SC_ProjectCmds;

class SceneListCommandsTest : public ColumnTest {
protected:
    SC_ProjectCommon* common() { return project().projectCommon(); }
    bool addScene(const QString& name, int place = -1) { return run(new AddSceneCmd(common(), name, place), "Add"); }
    bool removeScene(SC_SceneBase* scene) { return run(new RemoveSceneCmd(common(), scene->id()), "Remove"); }
    QStringList names()
    {
        QStringList names;
        for (TUScene* scene : project().scenes())
            names.append(scene->name());
        return names;
    }
};

} // namespace

TEST_F(SceneListCommandsTest, AScenesPlaceIsWhereItWasAdded)
{
    EXPECT_TRUE(addScene("End"));
    EXPECT_TRUE(addScene("Begin", 0));
    EXPECT_TRUE(addScene("Middle", 2));
    const QStringList all{"Begin", "Scene-1", "Middle", "End"};
    EXPECT_EQ(names(), all);
    EXPECT_EQ(labels(), QStringList({"Add", "Add", "Add"}));
    undo(3);
    EXPECT_EQ(names(), QStringList("Scene-1"));
    redo(3);
    EXPECT_EQ(names(), all);
}

TEST_F(SceneListCommandsTest, ANewSceneHoldsWhatThatOfANewProjectHolds)
{
    ASSERT_TRUE(addScene("Second"));
    auto& second = static_cast<brindle::engine::Scene&>(*project().sceneAt(1));
    EXPECT_EQ(second.timing(), brindle::engine::SceneTiming());
    EXPECT_EQ(MemoryProject::names(second.getRootGroup()), QStringList({"Display", "Composite"}));
    MO_Node* display = second.getRootGroup()->subNode(QStringLiteral("Display"));
    EXPECT_EQ(second.findDefaultDisplay(), dynamic_cast<TUDisplayModule*>(display));
    EXPECT_EQ(second.camera(false), nullptr);
    EXPECT_EQ(second.projectCommon(), common());
    EXPECT_FALSE(second.id() == scene().id());
    EXPECT_EQ(second.commandManager(), &manager());
}

TEST_F(SceneListCommandsTest, AScenesPlaceAndContentComeBackWithIt)
{
    ASSERT_TRUE(addScene("Second"));
    ASSERT_TRUE(addScene("Third"));
    SC_SceneBase* second = project().sceneAt(1);
    const SC_Id id = second->id();
    static_cast<TUScene*>(second)->setNumberOfFrames(60, 40, true, true);
    ASSERT_TRUE(removeScene(second));
    EXPECT_EQ(names(), QStringList({"Scene-1", "Third"}));
    EXPECT_EQ(common()->sceneManager()->find(id), nullptr);
    undo();
    EXPECT_EQ(names(), QStringList({"Scene-1", "Second", "Third"}));
    EXPECT_EQ(project().sceneAt(1), second);
    EXPECT_EQ(static_cast<TUScene*>(second)->getNumberOfFrames(), 100);
    undo(3);
    EXPECT_EQ(names(), QStringList("Scene-1"));
    redo(4);
    EXPECT_EQ(names(), QStringList({"Scene-1", "Third"}));
}

TEST_F(SceneListCommandsTest, TheFirstSceneCanGo)
{
    ASSERT_TRUE(addScene("Second"));
    ASSERT_TRUE(removeScene(project().sceneAt(0)));
    EXPECT_EQ(names(), QStringList("Second"));
    undo();
    EXPECT_EQ(names(), QStringList({"Scene-1", "Second"}));
}

TEST_F(SceneListCommandsTest, WhatIsRefusedLeavesNoTrace)
{
    ASSERT_TRUE(addScene("Second"));
    EXPECT_FALSE(addScene("Second")) << "the name is taken";
    EXPECT_FALSE(addScene(QString()));
    EXPECT_FALSE(addScene("Third", 3));
    EXPECT_FALSE(addScene("Third", -2));
    EXPECT_FALSE(run(new AddSceneCmd(nullptr, "Third")));
    EXPECT_FALSE(run(new RemoveSceneCmd(common(), SC_Id(0))));
    EXPECT_FALSE(run(new RemoveSceneCmd(nullptr, scene().id())));
    EXPECT_EQ(names(), QStringList({"Scene-1", "Second"}));
    EXPECT_EQ(labels(), QStringList("Add"));
}

TEST_F(SceneListCommandsTest, TheLastSceneStays)
{
    EXPECT_FALSE(removeScene(project().sceneAt(0)));
    EXPECT_EQ(names(), QStringList("Scene-1"));
    EXPECT_EQ(manager().historySize(), 0);
}

TEST_F(SceneListCommandsTest, ASceneThatIsGoneCantGoAgain)
{
    ASSERT_TRUE(addScene("Second"));
    auto remove = std::make_unique<RemoveSceneCmd>(common(), project().sceneAt(1)->id());
    ASSERT_TRUE(removeScene(project().sceneAt(1)));
    EXPECT_FALSE(run(remove.release()));
    EXPECT_EQ(names(), QStringList("Scene-1"));
}

TEST_F(SceneListCommandsTest, WhatAScriptHoldsOfARemovedSceneStaysGone)
{
    ASSERT_TRUE(addScene("Second"));
    auto& second = static_cast<brindle::engine::Scene&>(*project().sceneAt(1));
    auto* column = new brindle::engine::BezierColumn("Curve");
    ASSERT_TRUE(run(new SC_SceneCmds::AddTimedValueCmd(second.sceneCommon(), column, -1, -1)));
    UT_SharedWeakPtrBase pointers[4];
    pointers[0].assign(&second);
    pointers[1].assign(second.getRootGroup());
    pointers[2].assign(second.getRootGroup()->subNode(QStringLiteral("Display")));
    pointers[3].assign(column);
    ASSERT_TRUE(removeScene(&second));
    for (const auto& pointer : pointers)
        EXPECT_EQ(pointer.get(), nullptr);
    undo();
    for (const auto& pointer : pointers)
        EXPECT_EQ(pointer.get(), nullptr);
    EXPECT_EQ(second.timedValueCount(), 1);
}

TEST_F(SceneListCommandsTest, AForgottenRemovalTakesTheSceneWithIt)
{
    ASSERT_TRUE(addScene("Second"));
    auto& second = static_cast<brindle::engine::Scene&>(*project().sceneAt(1));
    second.setNumberOfFrames(60, 5, true, true);
    ASSERT_TRUE(run(new tu_node::SetXYCmd(second.getRootGroup()->subNode(QStringLiteral("Composite")), 3, 4)));
    SU_CleanUpCommands::removeNodes(&second, {second.getRootGroup()->subNode(QStringLiteral("Display"))}, true);
    ASSERT_TRUE(removeScene(&second));
    manager().clearHistory();
    EXPECT_EQ(names(), QStringList("Scene-1"));
    undo();
    redo();
    EXPECT_EQ(names(), QStringList("Scene-1"));
}
