#include "engine/session/project.h"

#include "core/host/sc_scene.h"
#include "engine/session/scene.h"

#include <gtest/gtest.h>

namespace {

class NameCollector final : public SC_AbstractSceneVisitor {
public:
    void visit(SC_SceneBase& scene) override { names.append(scene.name()); }
    QStringList names;
};

} // namespace

TEST(EngineProjectTest, ScenesAreFoundByPlaceAndById)
{
    brindle::engine::Project project("/never/on/disk");
    EXPECT_EQ(project.sceneCount(), 0);
    TUScene* first = project.addScene({"One", 10, 2, 9, 12.5});
    TUScene* second = project.addScene({"Two"});
    ASSERT_TRUE(first && second);
    EXPECT_EQ(project.sceneAt(0), first);
    EXPECT_EQ(project.sceneAt(1), second);
    EXPECT_EQ(project.sceneAt(2), nullptr);
    EXPECT_EQ(project.sceneAt(-1), nullptr);
    EXPECT_FALSE(first->id() == second->id());

    SC_SceneManager* scenes = project.projectCommon()->sceneManager();
    EXPECT_EQ(scenes->find(second->id()), second);
    EXPECT_EQ(scenes->find(SC_Id(0)), nullptr);
    EXPECT_EQ(scenes->sceneCount(), 2);
    NameCollector collector;
    scenes->forAllScenes(collector);
    EXPECT_EQ(collector.names, QStringList({"One", "Two"}));

    EXPECT_EQ(first->getNumberOfFrames(), 10);
    EXPECT_EQ(first->sceneCommon()->getStartFrame(), 2);
    EXPECT_EQ(first->sceneCommon()->getStopFrame(), 9);
    EXPECT_EQ(first->frameRate().fps(), 12.5);
    EXPECT_EQ(first->getRootGroup()->nSubNodes(), 0u);
    EXPECT_EQ(project.projectCommon()->commandManager()->historySize(), 0);
}

TEST(EngineProjectTest, ASceneWithATimingThatCantBeIsNotMade)
{
    brindle::engine::Project project("/never/on/disk");
    const brindle::engine::SceneRecord records[] = {
        {"S", 0, 1, 1, 24},  {"S", 10, 0, 10, 24}, {"S", 10, 1, 11, 24},
        {"S", 10, 5, 4, 24}, {"S", 10, 1, 10, 0},  {"S", 1'000'001, 1, 10, 24},
    };
    for (const auto& record : records)
        EXPECT_EQ(project.addScene(record), nullptr);
    EXPECT_EQ(project.sceneCount(), 0);
}

TEST(EngineProjectTest, ProjectsHaveIdsOfTheirOwn)
{
    const brindle::engine::Project one("/a"), two("/a");
    EXPECT_FALSE(one.id() == two.id());
    EXPECT_TRUE(one.id() == one.projectCommon()->id());
    EXPECT_EQ(one.path(), "/a");
}
