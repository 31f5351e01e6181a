#include "core/nodes/nodelist.h"

#include "core/nodes/node.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace {

using OMC::Node;
using OMC::NodeList;
using OMC::Obj;

/// The path of the node in a handle; "" for an empty handle.
QString pathIn(const Obj& object)
{
    const auto* node = OMC::objectIn<Node>(object);
    return node ? node->getPath() : QString();
}

QString pathsIn(const std::vector<Obj>& objects)
{
    QStringList paths;
    for (const Obj& object : objects)
        paths.append(pathIn(object));
    return paths.join(QLatin1Char(' '));
}

/// The paths that a loop over the list meets.
QString pathsOfLoop(const NodeList& list)
{
    QStringList paths;
    const Obj handle = list.__iter__();
    auto& loop = *OMC::objectIn<NodeList>(handle);
    for (; !loop.__atend__(); ++loop)
        paths.append(pathIn(loop.__iterItem__()));
    return paths.join(QLatin1Char(' '));
}

/// Top: Display, Composite, Body (Arm (Hand), Leg), Peg.
class NodeListTest : public GraphTest {
protected:
    TUGroup* body = addGroup(QStringLiteral("Body"));
    TUGroup* arm = addGroup(QStringLiteral("Arm"), body);
    MO_Node* hand = add(QStringLiteral("READ"), QStringLiteral("Hand"), arm);
    MO_Node* leg = add(QStringLiteral("PEG"), QStringLiteral("Leg"), body);
    MO_Node* peg = add(QStringLiteral("PEG"), QStringLiteral("Peg"));

    NodeList all{scene(), false};
    NodeList inTop{scene(), true};
    NodeList inBody{body};
    NodeList filled = [this] {
        NodeList list;
        list.addNode(leg);
        list.addNode(hand);
        return list;
    }();

    const QString allPaths =
        QStringLiteral("Top/Display Top/Composite Top/Body Top/Body/Arm Top/Body/Arm/Hand Top/Body/Leg Top/Peg");
    const QString topPaths = QStringLiteral("Top/Display Top/Composite Top/Body Top/Peg");
    const QString bodyPaths = QStringLiteral("Top/Body/Arm Top/Body/Leg");
    const QString filledPaths = QStringLiteral("Top/Body/Leg Top/Body/Arm/Hand");
};

TEST_F(NodeListTest, EachKindHasItsMembersAndText)
{
    const struct {
        const NodeList& list;
        QString paths;
        std::size_t size;
        std::string text;
    } rows[] = {
        {all, allPaths, 7, "NodeList(Scene)[7]"},
        {inTop, topPaths, 4, "NodeList(Group, Top)[4]"},
        {inBody, bodyPaths, 2, "NodeList(Group, Top/Body)[2]"},
        {filled, filledPaths, 2, "NodeList(Node)[2]"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(row.list.__str__(), row.text);
        EXPECT_EQ(row.list.size(), row.size);
        EXPECT_EQ(pathsIn(row.list.list()), row.paths);
        EXPECT_EQ(pathsOfLoop(row.list), row.paths);
        QStringList byIndex;
        for (int index = 0; index < static_cast<int>(row.size); ++index)
            byIndex.append(pathIn(row.list.get(index)));
        EXPECT_EQ(byIndex.join(QLatin1Char(' ')), row.paths);
        const int count = static_cast<int>(row.size);
        for (const int index : {count, count + 1, std::numeric_limits<int>::max(), -1, std::numeric_limits<int>::min()})
            EXPECT_EQ(failureOf([&] { row.list.get(index); }), indexOutOfRange) << index;
    }
}

TEST_F(NodeListTest, ItsTextTakesAnyGroupName)
{
    EXPECT_EQ(NodeList(addGroup(QStringLiteral("%2 of %1"))).__str__(), "NodeList(Group, Top/%2 of %1)[0]");
}

TEST_F(NodeListTest, TheListsOfASceneAndAGroupFollowTheGraph)
{
    removeNode(leg);
    EXPECT_EQ(all.size(), 6u);
    EXPECT_EQ(pathsIn(inBody.list()), QStringLiteral("Top/Body/Arm"));
    add(QStringLiteral("BLUR"), QStringLiteral("Soft"), body);
    EXPECT_EQ(pathsIn(inBody.list()), QStringLiteral("Top/Body/Arm Top/Body/Soft"));
}

TEST_F(NodeListTest, AFilledListShowsWhatIsGoneAsEmpty)
{
    removeNode(leg);
    EXPECT_EQ(filled.size(), 2u);
    EXPECT_EQ(filled.get(0).get(), nullptr);
    EXPECT_EQ(pathsIn(filled.list()), QStringLiteral(" Top/Body/Arm/Hand"));
    EXPECT_EQ(pathsOfLoop(filled), QStringLiteral(" Top/Body/Arm/Hand"));
    EXPECT_FALSE(filled.contains(QStringLiteral("Leg")));
    EXPECT_EQ(pathIn(filled.get(QStringLiteral("Hand"))), QStringLiteral("Top/Body/Arm/Hand"));
}

TEST_F(NodeListTest, ANameFindsWhatTheKindOfTheListCanReach)
{
    const QString none;
    const struct {
        const NodeList& list;
        const char* name;
        QString path;
    } rows[] = {
        {all, "Top/Body/Arm/Hand", QStringLiteral("Top/Body/Arm/Hand")},
        {all, "Top", QStringLiteral("Top")},
        {all, "Hand", none},
        {all, "Body/Arm", none},
        {all, "Top/Nothing", none},
        {all, "", none},
        {all, "/", none},
        {all, "Top/", none},

        {inBody, "Leg", QStringLiteral("Top/Body/Leg")},
        {inBody, "Top/Body", QStringLiteral("Top/Body")},
        {inBody, "Top/Body/Leg", QStringLiteral("Top/Body/Leg")},
        {inBody, "Top/Body/Arm/Hand", QStringLiteral("Top/Body/Arm/Hand")},
        {inBody, "Arm/Hand", QStringLiteral("Top/Body/Arm/Hand")},
        {inBody, "Hand", none},
        {inBody, "Top/Peg", QStringLiteral("Top/Peg")},
        {inBody, "Top", QStringLiteral("Top")},
        {inBody, "Nothing", none},
        // The group's path is cut off within a word, too.
        {inBody, "Top/BodyLeg", QStringLiteral("Top/Body/Leg")},

        {inTop, "Peg", QStringLiteral("Top/Peg")},
        {inTop, "Top/Peg", QStringLiteral("Top/Peg")},
        {inTop, "Body/Leg", QStringLiteral("Top/Body/Leg")},

        {filled, "Hand", QStringLiteral("Top/Body/Arm/Hand")},
        {filled, "Top/Body/Arm/Hand", QStringLiteral("Top/Body/Arm/Hand")},
        {filled, "Arm/Hand", none},
        {filled, "Peg", none},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.list.__str__() + " " + row.name);
        const QString name = QString::fromLatin1(row.name);
        EXPECT_EQ(pathIn(row.list.get(name)), row.path);
        EXPECT_EQ(pathIn(row.list(name)), row.path);
        EXPECT_EQ(row.list.contains(name), !row.path.isEmpty());
    }
}

TEST_F(NodeListTest, ASubNodeNamedAsTheGroupStaysBehindTheGroupItself)
{
    TUGroup* top = this->top();
    add(QStringLiteral("BLUR"), QStringLiteral("Top"), top);
    EXPECT_EQ(pathIn(inTop.get(QStringLiteral("Top"))), QStringLiteral("Top"));
    EXPECT_EQ(pathIn(inTop.get(QStringLiteral("Top/Top"))), QStringLiteral("Top/Top"));
}

TEST_F(NodeListTest, TheFirstOfAFilledListIsFound)
{
    MO_Node* other = add(QStringLiteral("BLUR"), QStringLiteral("Leg"));
    filled.addNode(other);
    EXPECT_EQ(pathIn(filled.get(QStringLiteral("Leg"))), QStringLiteral("Top/Body/Leg"));
    EXPECT_EQ(pathIn(filled.get(QStringLiteral("Top/Leg"))), QStringLiteral("Top/Leg"));
}

TEST_F(NodeListTest, ItCannotBeSet)
{
    NodeList unknown;
    for (NodeList* list : {&all, &inBody, &filled, &unknown})
        EXPECT_EQ(failureOf([&] { list->set(0, Obj()); }), "The node list cannot be set.");
    EXPECT_EQ(pathsIn(filled.list()), filledPaths);
}

TEST_F(NodeListTest, LoopsOverOneListAreIndependent)
{
    for (const NodeList* list : {&all, &inBody, &filled}) {
        const Obj firstHandle = list->__iter__();
        const Obj secondHandle = list->__iter__();
        auto& first = *OMC::objectIn<NodeList>(firstHandle);
        auto& second = *OMC::objectIn<NodeList>(secondHandle);
        ++first;
        EXPECT_EQ(pathIn(first.__iterItem__()), pathIn(list->get(1)));
        EXPECT_EQ(pathIn(second.__iterItem__()), pathIn(list->get(0)));
    }
}

TEST_F(NodeListTest, ALoopIsAtItsEndOnlyWhenTheLastItemWasGiven)
{
    for (const NodeList* list : {&inBody, &filled}) {
        const Obj handle = list->__iter__();
        auto& loop = *OMC::objectIn<NodeList>(handle);
        --loop;
        EXPECT_FALSE(loop.__atend__());
        loop.__iterItem__();
        ++loop;
        EXPECT_FALSE(loop.__atend__());
        const QString last = pathIn(loop.__iterItem__());
        EXPECT_TRUE(loop.__atend__());
        ++loop;
        EXPECT_EQ(failureOf([&] { loop.__iterItem__(); }), "Iteration item is out of range.");
        --loop;
        EXPECT_FALSE(loop.__atend__());
        EXPECT_EQ(pathIn(loop.__iterItem__()), last);
        --loop;
        --loop;
        --loop;
        EXPECT_EQ(pathIn(loop.__iterItem__()), pathIn(list->get(0)));
    }
}

TEST_F(NodeListTest, ALoopOverNothingIsAtItsEnd)
{
    const NodeList empty(addGroup(QStringLiteral("Empty")));
    EXPECT_EQ(pathsOfLoop(empty), QString());
    EXPECT_EQ(empty.size(), 0u);
    EXPECT_TRUE(empty.list().empty());
    for (const QString& path :
         {QStringLiteral("Top/Display"), QStringLiteral("Top/Composite"), QStringLiteral("Top/Peg")})
        removeNode(node(path));
    removeNode(body);
    removeNode(node(QStringLiteral("Top/Empty")));
    EXPECT_EQ(pathsOfLoop(all), QString());
    EXPECT_EQ(all.__str__(), "NodeList(Scene)[0]");
}

TEST_F(NodeListTest, ALoopOverASceneMayRemoveItsNodes)
{
    const Obj handle = all.__iter__();
    auto& loop = *OMC::objectIn<NodeList>(handle);
    EXPECT_EQ(loop.__str__(), "NodeList(Node)[7]");
    QStringList paths;
    for (; !loop.__atend__(); ++loop) {
        const Obj item = loop.__iterItem__();
        paths.append(pathIn(item));
        if (const auto* node = OMC::objectIn<Node>(item))
            all.remove(asArgument(*node));
    }
    EXPECT_EQ(paths.join(QLatin1Char(' ')), QStringLiteral("Top/Display Top/Composite Top/Body    Top/Peg"));
    EXPECT_EQ(all.size(), 0u);
}

TEST_F(NodeListTest, ALoopOverAGroupThatShrinksFails)
{
    const Obj handle = inBody.__iter__();
    auto& loop = *OMC::objectIn<NodeList>(handle);
    loop.__iterItem__();
    ++loop;
    removeNode(leg);
    EXPECT_EQ(failureOf([&] { loop.__iterItem__(); }), "Iteration item is out of range.");
}

TEST_F(NodeListTest, CopiesOfAFilledListAreIndependent)
{
    const std::unique_ptr<OMC::BaseObject> copy(filled.copy());
    auto& copied = dynamic_cast<NodeList&>(*copy);
    copied.addNode(peg);
    EXPECT_EQ(copied.size(), 3u);
    EXPECT_EQ(filled.size(), 2u);
    EXPECT_EQ(copied.getOwnership(), OMC::Unowned);
}

TEST_F(NodeListTest, AFilledListMayHoldNothingAtAPlace)
{
    NodeList list;
    list.addNode(nullptr);
    EXPECT_EQ(list.size(), 1u);
    EXPECT_EQ(list.get(0).get(), nullptr);
    EXPECT_TRUE(list.find(QStringLiteral("")).empty());
}

/// Every use of a list that asks for its members.
std::vector<std::function<void()>> usesOf(NodeList& list)
{
    return {
        [&] { list.size(); },
        [&] { list.get(0); },
        [&] { list.get(QStringLiteral("Top")); },
        [&] { list.list(); },
        [&] { list.contains(QStringLiteral("Top")); },
        [&] { list(QStringLiteral("Top")); },
        [&] { list.find(QStringLiteral("Top")); },
        [&] { list.create(QStringLiteral("PEG"), QStringLiteral("A")); },
        [&] { list.create(QStringLiteral("PEG"), QVariant(0), QStringLiteral("A")); },
        [&] { list.remove(0); },
        [&] { list.__iter__(); },
        [&] { list.__iterItem__(); },
        [&] { (void)list.__str__(); },
    };
}

TEST_F(NodeListTest, WithoutItsSceneOrGroupEveryUseFails)
{
    NodeList unknown;
    NodeList noScene(nullptr, false);
    NodeList noTop(nullptr, true);
    NodeList noGroup(nullptr);
    const Obj loopHandle = inBody.__iter__();
    NodeList loop(*OMC::objectIn<NodeList>(loopHandle));
    close();
    for (NodeList* list : {&all, &inTop, &inBody, &loop, &unknown, &noScene, &noTop, &noGroup}) {
        for (const auto& use : usesOf(*list))
            EXPECT_EQ(failureOf(use), objectGone);
    }
    EXPECT_EQ(filled.size(), 2u);
    EXPECT_EQ(pathsIn(filled.list()), QStringLiteral(" "));
}

TEST_F(NodeListTest, AGroupThatWasRemovedTakesItsListAlongForEver)
{
    SU_CleanUpCommands::removeNodes(scene(), {body}, false);
    EXPECT_EQ(failureOf([&] { inBody.size(); }), objectGone);
    undo();
    EXPECT_EQ(failureOf([&] { inBody.size(); }), objectGone);
    EXPECT_EQ(pathsIn(all.list()), allPaths);
}

TEST_F(NodeListTest, AnUnfilledListIsInvalidUntilANodeIsAdded)
{
    NodeList list;
    EXPECT_EQ(failureOf([&] { list.size(); }), objectGone);
    EXPECT_TRUE(list.__atend__());
    list.addNode(peg);
    EXPECT_EQ(list.__str__(), "NodeList(Node)[1]");
}

} // namespace
