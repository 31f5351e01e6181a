#include "engine/graph/scenegraph.h"

#include "tests/engine/support/memoryproject.h"

namespace {

class SceneGraphTest : public GraphTest {
protected:
    static constexpr int depth = 10'000;

    TUGroup* nest(int levels)
    {
        const CO_CommandAccumScope scope(&manager(), "Nest", nullptr, CO_CommandAccumScope::kDefault);
        TUGroup* group = top();
        for (int i = 0; i < levels; ++i)
            group = addGroup("g", group);
        return group;
    }
};

class Collector final : public MO_ModuleVisitor {
public:
    using MO_ModuleVisitor::visit;
    void visit(MO_Module& module) override { names.append(module.instanceName()); }
    QStringList names;
};

} // namespace

TEST_F(SceneGraphTest, TheRootGroupIsTop)
{
    EXPECT_EQ(top()->instanceName(), "Top");
    EXPECT_EQ(top()->qualifiedName(), "Top");
    EXPECT_EQ(top()->parentGroup(), nullptr);
    EXPECT_EQ(top()->sceneCommon(), scene().sceneCommon());
    EXPECT_FALSE(top()->setInstanceName("Other"));
}

TEST_F(SceneGraphTest, ANodeIsFoundByItsPath)
{
    TUGroup* outer = addGroup("Outer");
    TUGroup* inner = addGroup("Inner", outer);
    MO_Node* arm = add("PEG", QString::fromUtf8("Ärm 1"), inner);
    EXPECT_EQ(arm->qualifiedName(), QString::fromUtf8("Top/Outer/Inner/Ärm 1"));
    EXPECT_EQ(node("Top"), top());
    EXPECT_EQ(node("Top/Outer"), outer);
    EXPECT_EQ(node(arm->qualifiedName()), arm);
    for (const char* path : {"", "/", "Top/", "/Top", "Outer", "Top//Outer", "Top/Outer/", "Top/outer", "Top/Display/x",
                             "Top/Outer/Inner/Arm 1", "Topx", "To"})
        EXPECT_EQ(node(path), nullptr) << path;
    EXPECT_EQ(node(QString()), nullptr);
    EXPECT_EQ(node_util::getNodeFromQualifiedName_optimized(nullptr, "Top"), nullptr);
}

TEST_F(SceneGraphTest, ARelativePathStartsInAGroup)
{
    TUGroup* outer = addGroup("Outer");
    TUGroup* inner = addGroup("Inner", outer);
    MO_Node* arm = add("PEG", "Arm", inner);
    EXPECT_EQ(node_util::getNodeFromQualifiedName(outer, "Inner/Arm", false), arm);
    EXPECT_EQ(node_util::getNodeFromQualifiedName(outer, "/Inner/Arm", false), arm);
    EXPECT_EQ(node_util::getNodeFromQualifiedName(inner, "Arm", false), arm);
    EXPECT_EQ(node_util::getNodeFromQualifiedName(outer, "Arm", false), nullptr);
    EXPECT_EQ(node_util::getNodeFromQualifiedName(outer, "", false), nullptr);
    EXPECT_EQ(node_util::getNodeFromQualifiedName(inner, "Top/Outer/Inner/Arm", true), arm);
    EXPECT_EQ(node_util::getNodeFromQualifiedName(inner, "Arm", true), nullptr);
    EXPECT_EQ(node_util::getNodeFromQualifiedName(nullptr, "Arm", false), nullptr);
}

TEST_F(SceneGraphTest, AllNodesAreListedDepthFirstEachGroupAheadOfItsContent)
{
    TUGroup* outer = addGroup("Outer");
    TUGroup* inner = addGroup("Inner", outer);
    add("PEG", "p", inner);
    add("PEG", "q", outer);
    add("PEG", "r");
    std::vector<MO_Node*> nodes{nullptr};
    top()->getRecursiveSubNodeList(nodes);
    QStringList names;
    for (const MO_Node* node : nodes)
        names.append(node->instanceName());
    EXPECT_EQ(names, QStringList({"Display", "Composite", "Outer", "Inner", "p", "q", "r"}));

    Collector collector;
    top()->accept(collector);
    EXPECT_EQ(collector.names, QStringList({"Display", "Composite", "p", "q", "r"}));
}

TEST_F(SceneGraphTest, GroupsMayLieInEachOtherAsDeepAsAScriptLikes)
{
    TUGroup* deepest = nest(depth);
    MO_Node* peg = add("PEG", "Peg", deepest);
    const QString path = peg->qualifiedName();
    EXPECT_EQ(path.size(), 3 + 2 * depth + 4);
    EXPECT_EQ(node(path), peg);

    std::vector<MO_Node*> nodes;
    top()->getRecursiveSubNodeList(nodes);
    EXPECT_EQ(nodes.size(), 2u + depth + 1u);
    Collector collector;
    top()->accept(collector);
    EXPECT_EQ(collector.names.size(), 3);

    std::set<MO_Node*> all(nodes.begin(), nodes.end());
    ASSERT_TRUE(remove(all));
    EXPECT_EQ(top()->nSubNodes(), 0u);
    undo();
    EXPECT_EQ(node(path), peg);
    undo(2);
    EXPECT_EQ(top()->nSubNodes(), 2u);
    redo(2);
    EXPECT_EQ(node(path), peg);
}

TEST_F(SceneGraphTest, ADeepSceneIsClosed)
{
    nest(depth);
    close();
}

TEST_F(SceneGraphTest, ADeepRemovedGroupGoesWithTheUndoList)
{
    nest(depth);
    remove({node("Top/g")});
    manager().clearHistory();
    EXPECT_EQ(node("Top/g"), nullptr);
}

TEST_F(SceneGraphTest, WeakPointersOfANodeThatLeftStayExpired)
{
    TUGroup* group = addGroup("G");
    MO_Node* peg = add("PEG", "Peg", group);
    UT_SharedWeakPtrBase groupPointer, pegPointer;
    groupPointer.assign(group);
    pegPointer.assign(peg);

    remove({group});
    EXPECT_EQ(groupPointer.get(), nullptr);
    EXPECT_EQ(pegPointer.get(), nullptr);
    undo();
    EXPECT_EQ(node("Top/G/Peg"), peg) << "the same node is back";
    EXPECT_EQ(groupPointer.get(), nullptr);
    EXPECT_EQ(pegPointer.get(), nullptr);

    pegPointer.assign(peg);
    EXPECT_EQ(pegPointer.get(), peg);
    undo();
    EXPECT_EQ(pegPointer.get(), nullptr) << "adding it was undone";
    redo();
    EXPECT_EQ(node("Top/G/Peg"), peg);
    EXPECT_EQ(pegPointer.get(), nullptr);
}

TEST_F(SceneGraphTest, ADisplaysNameIsAcceptableWhenNoOtherDisplayOfTheSceneHasIt)
{
    TUGroup* group = addGroup("G");
    bool flag = true;
    const std::unique_ptr<MO_Node> display(TUGroup::createNode("DISPLAY", 0, 0, 0, flag, nullptr));
    const std::unique_ptr<MO_Node> peg(TUGroup::createNode("PEG", 0, 0, 0, flag, nullptr));
    display->setScene(scene().sceneCommon());
    peg->setScene(scene().sceneCommon());
    EXPECT_FALSE(display->isNameAcceptable("Display"));
    EXPECT_TRUE(display->isNameAcceptable("Screen"));
    EXPECT_FALSE(display->isNameAcceptable("a/b"));
    EXPECT_TRUE(peg->isNameAcceptable("Display"));
    EXPECT_EQ(scene().generateNodeName("Display", group), "Display_1") << "though nothing in the group has the name";
    EXPECT_EQ(scene().generateNodeName("Screen", group), "Screen");

    MO_Node* screen = add("DISPLAY", "Screen", group);
    EXPECT_FALSE(display->isNameAcceptable("Screen"));
    run(new tu_node::SetInstanceNameCmd(screen, "Monitor"));
    EXPECT_TRUE(display->isNameAcceptable("Screen"));
    EXPECT_FALSE(display->isNameAcceptable("Monitor"));
    remove({group});
    EXPECT_TRUE(display->isNameAcceptable("Monitor"));
    undo();
    EXPECT_FALSE(display->isNameAcceptable("Monitor"));
}

TEST_F(SceneGraphTest, ANodesNameIsAcceptableWhenNoSiblingHasIt)
{
    MO_Node* arm = add("PEG", "Arm");
    add("PEG", "Leg");
    EXPECT_TRUE(arm->isNameAcceptable("Arm"));
    EXPECT_TRUE(arm->isNameAcceptable("Hand"));
    EXPECT_FALSE(arm->isNameAcceptable("Leg"));
    EXPECT_TRUE(node("Top/Display")->isNameAcceptable("Display"));
}

TEST_F(SceneGraphTest, AGeneratedNameIsFreeInItsGroup)
{
    add("PEG", "Arm");
    EXPECT_EQ(scene().generateNodeName("Arm", top()), "Arm_1");
    EXPECT_EQ(scene().generateNodeName("Leg", top()), "Leg");
    EXPECT_EQ(scene().generateNodeName("a/b", top()), "a_b");
    EXPECT_EQ(scene().generateNodeName("Arm", nullptr), "Arm");
}
