#include "engine/session/scenecommands.h"

#include "core/host/mo_unconnecteddisplay.h"
#include "core/host/sc_projectcmds.h"
#include "tests/engine/support/memoryproject.h"

namespace {

class DefaultNodesTest : public GraphTest {
protected:
    SC_SceneCommon* common() { return scene().sceneCommon(); }
    TUCameraModule* addCamera(const QString& name, TUGroup* group = nullptr)
    {
        return dynamic_cast<TUCameraModule*>(add("CAMERA", name, group));
    }
    TUDisplayModule* display(const QString& path) { return dynamic_cast<TUDisplayModule*>(node(path)); }
    bool setCamera(TUCameraModule* camera)
    {
        return run(new SC_SceneCmds::SetDefaultCameraCmd(common(), camera), "Camera");
    }
    bool setDisplay(TUDisplayModule* display)
    {
        return run(new SC_SceneCmds::SetDefaultDisplayCmd(common(), display), "Display");
    }
};

bool isPlaceholder(TUDisplayModule* display)
{
    return dynamic_cast<MO_UnconnectedDisplayModule*>(display);
}

} // namespace

TEST_F(DefaultNodesTest, ANewSceneIsShownByItsDisplayThroughNoCamera)
{
    EXPECT_EQ(common()->camera(false), nullptr);
    EXPECT_EQ(common()->defaultDisplay(), display("Top/Display"));
    EXPECT_EQ(scene().findDefaultDisplay(), display("Top/Display"));
}

TEST_F(DefaultNodesTest, ACameraIsSetAndUnsetUndoably)
{
    TUCameraModule* one = addCamera("One");
    TUCameraModule* two = addCamera("Two");
    manager().clearHistory();
    EXPECT_TRUE(setCamera(one));
    EXPECT_TRUE(setCamera(two));
    EXPECT_TRUE(setCamera(nullptr));
    EXPECT_EQ(common()->camera(false), nullptr);
    EXPECT_EQ(labels(), QStringList({"Camera", "Camera", "Camera"}));
    undo();
    EXPECT_EQ(common()->camera(false), two);
    undo();
    EXPECT_EQ(common()->camera(true), one);
    undo();
    EXPECT_EQ(common()->camera(false), nullptr);
    redo(2);
    EXPECT_EQ(common()->camera(false), two);
}

TEST_F(DefaultNodesTest, WithoutADefaultDisplayThereIsAPlaceholder)
{
    EXPECT_TRUE(setDisplay(nullptr));
    EXPECT_EQ(common()->defaultDisplay(), nullptr);
    TUDisplayModule* placeholder = scene().findDefaultDisplay();
    ASSERT_TRUE(isPlaceholder(placeholder));
    EXPECT_EQ(placeholder->parentGroup(), nullptr);
    EXPECT_EQ(placeholder->sceneCommon(), common());
    EXPECT_EQ(placeholder->instanceName(), "Unconnected Display");
    EXPECT_EQ(placeholder->qualifiedName(), "Unconnected Display");
    EXPECT_EQ(placeholder->nInPorts() + placeholder->nOutPorts(), 0u);
    EXPECT_EQ(placeholder->attrsBegin(), placeholder->attrsEnd());
    EXPECT_EQ(names(top()), QStringList({"Display", "Composite"}));
    undo();
    EXPECT_EQ(scene().findDefaultDisplay(), display("Top/Display"));
    redo();
    EXPECT_EQ(scene().findDefaultDisplay(), placeholder);
    EXPECT_FALSE(setDisplay(placeholder)) << "it is in no scene";
    EXPECT_EQ(labels(), QStringList("Display"));
}

TEST_F(DefaultNodesTest, ASceneWithoutDisplaysHasNoPlaceholder)
{
    ASSERT_TRUE(remove({node("Top/Display")}));
    EXPECT_EQ(common()->defaultDisplay(), nullptr);
    EXPECT_EQ(scene().findDefaultDisplay(), nullptr);
    add("DISPLAY", "Other");
    EXPECT_TRUE(isPlaceholder(scene().findDefaultDisplay())) << "it is not the default one by itself";
    undo(2);
    EXPECT_EQ(scene().findDefaultDisplay(), display("Top/Display"));
}

TEST_F(DefaultNodesTest, ANodeThatLeavesIsUnset)
{
    TUGroup* group = addGroup("Group");
    TUCameraModule* camera = addCamera("Camera", group);
    auto* other = dynamic_cast<TUDisplayModule*>(add("DISPLAY", "Other", group));
    ASSERT_TRUE(setCamera(camera));
    ASSERT_TRUE(setDisplay(other));
    manager().clearHistory();
    ASSERT_TRUE(remove({group}));
    EXPECT_EQ(common()->camera(false), nullptr);
    EXPECT_TRUE(isPlaceholder(scene().findDefaultDisplay()));
    EXPECT_EQ(labels(), QStringList("Delete Nodes"));
    undo();
    EXPECT_EQ(common()->camera(false), camera);
    EXPECT_EQ(common()->defaultDisplay(), other);
    redo();
    EXPECT_EQ(common()->camera(false), nullptr);
    EXPECT_EQ(common()->defaultDisplay(), nullptr);
    manager().clearHistory();
    EXPECT_EQ(common()->camera(false), nullptr);
}

TEST_F(DefaultNodesTest, ANodeThatIsNotInTheSceneIsRefused)
{
    MemoryProject other;
    auto* camera = dynamic_cast<TUCameraModule*>(other.add("CAMERA", "Camera"));
    bool flag = true;
    const std::unique_ptr<MO_Node> loose(TUGroup::createNode("CAMERA", 0, 0, 0, flag, nullptr));
    EXPECT_FALSE(setCamera(camera));
    EXPECT_FALSE(setCamera(dynamic_cast<TUCameraModule*>(loose.get())));
    EXPECT_FALSE(setDisplay(dynamic_cast<TUDisplayModule*>(other.node("Top/Display"))));
    EXPECT_FALSE(run(new SC_SceneCmds::SetDefaultCameraCmd(nullptr, nullptr)));
    EXPECT_FALSE(run(new SC_SceneCmds::SetDefaultDisplayCmd(nullptr, nullptr)));
    EXPECT_EQ(common()->camera(false), nullptr);
    EXPECT_EQ(common()->defaultDisplay(), display("Top/Display"));
    EXPECT_EQ(manager().historySize(), 0);
}
