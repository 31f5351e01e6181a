#include "core/attributes/attributelist.h"

#include "core/attributes/attribute.h"
#include "tests/core/support/animation.h"
#include "tests/core/support/standinattribute.h"

using namespace OMC;

class AttributeListTest : public AnimationTest {
protected:
    static std::string pathIn(const Obj& handle)
    {
        const auto* attribute = objectIn<Attribute>(handle);
        return attribute ? attribute->getFullKeyword().toStdString() : "nothing";
    }

    static std::vector<std::string> walk(const AttributeList& list)
    {
        const Obj handle = list.__iter__();
        auto* iterator = objectIn<AttributeList>(handle);
        std::vector<std::string> paths;
        for (; !iterator->__atend__(); ++*iterator)
            paths.push_back(pathIn(iterator->__iterItem__()));
        return paths;
    }

    AttributeList all{peg, {}, AttributeList::AllOfLevel};
    AttributeList members{peg, {"position"}, AttributeList::AllOfLevel};
};

TEST_F(AttributeListTest, TheTopLevelHoldsTheNodesAttributesInOrder)
{
    const std::vector<std::string> keywords{"position", "scale", "rotation",      "angle",
                                            "skew",     "pivot", "full_transform"};
    EXPECT_EQ(all.size(), keywords.size());
    EXPECT_EQ(walk(all), keywords);
    EXPECT_EQ(all.list().size(), keywords.size());
    for (int index = 0; index < static_cast<int>(keywords.size()); ++index)
        EXPECT_EQ(pathIn(all.get(index)), keywords[static_cast<std::size_t>(index)]);
    EXPECT_EQ(all.__str__(), "AttributeList(Top/Peg)[7]");
}

TEST_F(AttributeListTest, TheListInsideAnAttributeHoldsItsMembers)
{
    EXPECT_EQ(walk(members), std::vector<std::string>({"position.x", "position.y", "position.z"}));
    EXPECT_EQ(pathIn(members.get(1)), "position.y");
    EXPECT_EQ(members.__str__(), "AttributeList(Top/Peg, position)[3]");
}

TEST_F(AttributeListTest, AnAttributeIsFoundByKeywordAndByDottedPath)
{
    const struct {
        const char* name;
        const char* fromTop;
        const char* fromMembers;
    } rows[] = {
        {"angle", "angle", "nothing"},        {"position.x", "position.x", "position.x"},
        {"x", "nothing", "position.x"},       {"position", "position", "nothing"},
        {"position.w", "nothing", "nothing"}, {"angle.x", "nothing", "nothing"},
        {"scale.x", "scale.x", "nothing"},    {"", "nothing", "nothing"},
        {".", "nothing", "nothing"},          {"position..x", "nothing", "nothing"},
        {"POSITION", "nothing", "nothing"},
    };
    for (const auto& [name, fromTop, fromMembers] : rows) {
        EXPECT_EQ(pathIn(all.get(QString(name))), fromTop) << name;
        EXPECT_EQ(pathIn(all(name)), fromTop) << name;
        EXPECT_EQ(pathIn(members.get(QString(name))), fromMembers) << name;
        EXPECT_EQ(all.contains(name), std::string(fromTop) != "nothing") << name;
        EXPECT_EQ(members.contains(name), std::string(fromMembers) != "nothing") << name;
    }
}

TEST_F(AttributeListTest, APathThatGoesOnBelowTheMembersIsFoundFromTheirList)
{
    AttributedNode node;
    StandInComplex outer(node, "outer");
    StandInComplex inner(node, "inner");
    StandInSimple deep(node, "deep");
    node.attributes = {&outer};
    outer.members = {&inner};
    inner.members = {&deep};
    const AttributeList list(&node, {"outer"}, AttributeList::AllOfLevel);
    EXPECT_EQ(pathIn(list.get(QString("inner.deep"))), "outer.inner.deep");
    EXPECT_EQ(pathIn(AttributeList(&node, {}, AttributeList::AllOfLevel).get(QString("outer.inner.deep"))),
              "outer.inner.deep");
}

TEST_F(AttributeListTest, AnIndexOutsideTheListIsRefused)
{
    for (const int index : {-1, 7, 100000, std::numeric_limits<int>::min()})
        EXPECT_EQ(failureOf([&] { all.get(index); }), "Index is out of range.") << index;
    EXPECT_EQ(failureOf([&] { members.get(3); }), "Index is out of range.");
}

TEST_F(AttributeListTest, AnAttributeIsInTheListOfItsLevelOnly)
{
    const Obj x = all.get(QString("position.x"));
    const Obj position = all.get(QString("position"));
    const auto contains = [](const AttributeList& list, const Obj& object) {
        return list.contains(QVariant::fromValue(object));
    };
    EXPECT_TRUE(contains(members, x));
    EXPECT_FALSE(contains(all, x));
    EXPECT_TRUE(contains(all, position));
    EXPECT_FALSE(contains(members, position));
    EXPECT_FALSE(contains(AttributeList(add("PEG", "Other"), {}, AttributeList::AllOfLevel), position));
    const Obj iterator = all.__iter__();
    EXPECT_TRUE(contains(*objectIn<AttributeList>(iterator), position));
    EXPECT_FALSE(contains(*objectIn<AttributeList>(iterator), x));
    for (const QVariant& other : {QVariant(), QVariant(0), QVariant(true), QVariant(QVariantList()), asArgument(all)})
        EXPECT_FALSE(all.contains(other));
}

TEST_F(AttributeListTest, AnAttributeOfANodeThatIsGoneIsInNoListOfAnother)
{
    MO_Node* other = add("PEG", "Other");
    const Obj angle = AttributeList(other, {}, AttributeList::AllOfLevel).get(QString("angle"));
    const Obj iterator = all.__iter__();
    SU_CleanUpCommands::removeNodes(scene(), {other}, false);
    EXPECT_FALSE(all.contains(QVariant::fromValue(angle)));
    EXPECT_FALSE(objectIn<AttributeList>(iterator)->contains(QVariant::fromValue(angle)));
}

TEST_F(AttributeListTest, AListCannotBeSet)
{
    EXPECT_EQ(failureOf([&] { all.set(0, all.get(0)); }), "Attribute List cannot be set.");
}

TEST_F(AttributeListTest, EachIterationIsASnapshotOfItsOwn)
{
    const Obj first = members.__iter__();
    const Obj second = members.__iter__();
    auto& a = *objectIn<AttributeList>(first);
    auto& b = *objectIn<AttributeList>(second);
    ++a;
    ++a;
    EXPECT_EQ(pathIn(a.__iterItem__()), "position.z");
    EXPECT_EQ(pathIn(b.__iterItem__()), "position.x");
    ++a;
    ++a;
    EXPECT_TRUE(a.__atend__());
    EXPECT_EQ(failureOf([&] { a.__iterItem__(); }), "Iterator is out of range.");
    --a;
    EXPECT_EQ(pathIn(a.__iterItem__()), "position.z");
    --a;
    --a;
    --a;
    EXPECT_EQ(pathIn(a.__iterItem__()), "position.x");
    EXPECT_EQ(a.size(), 3u);
    EXPECT_EQ(pathIn(a.get(1)), "position.y");
    EXPECT_EQ(failureOf([&] { a.get(3); }), "Index is out of range.");
    EXPECT_EQ(failureOf([&] { a.get(QString("x")); }), "This action is not supported.");
}

TEST_F(AttributeListTest, OnlyWhatIterGaveCanBeIterated)
{
    const std::string sentence = "Unsupported iteration type.";
    EXPECT_EQ(failureOf([&] { ++all; }), sentence);
    EXPECT_EQ(failureOf([&] { --all; }), sentence);
    EXPECT_EQ(failureOf([&] { all.__iterItem__(); }), sentence);
    EXPECT_TRUE(all.__atend__());
}

TEST_F(AttributeListTest, ANodeWithoutAttributesHasAnEmptyList)
{
    const AttributeList none(addGroup("Group"), {}, AttributeList::AllOfLevel);
    EXPECT_EQ(none.size(), 0u);
    EXPECT_TRUE(walk(none).empty());
    EXPECT_EQ(failureOf([&] { none.get(0); }), "Index is out of range.");
}

TEST_F(AttributeListTest, AListOfARemovedNodeIsInvalid)
{
    const Obj iterator = all.__iter__();
    auto* walking = objectIn<AttributeList>(iterator);
    SU_CleanUpCommands::removeNodes(scene(), {peg}, false);
    const std::string invalid = "Object is no longer valid.";
    EXPECT_EQ(failureOf([&] { all.size(); }), invalid);
    EXPECT_EQ(failureOf([&] { all.get(0); }), invalid);
    EXPECT_EQ(failureOf([&] { all.get(QString("angle")); }), invalid);
    EXPECT_EQ(failureOf([&] { all.list(); }), invalid);
    EXPECT_EQ(failureOf([&] { all.contains("angle"); }), invalid);
    EXPECT_EQ(failureOf([&] { all.__iter__(); }), invalid);
    EXPECT_EQ(failureOf([&] { all.__str__(); }), invalid);
    EXPECT_EQ(failureOf([&] { walking->__iterItem__(); }), invalid);
    EXPECT_EQ(failureOf([&] { walking->__atend__(); }), invalid);
    EXPECT_EQ(failureOf([&] { AttributeList(nullptr, {}, AttributeList::AllOfLevel).size(); }), invalid);
}

namespace {

class FilteredListTest : public AttributeListTest {
protected:
    FilteredListTest()
    {
        all.createDynamicAttr("meta.take", "INT", "Take", true);
        all.createDynamicAttr("meta.note", "STRING", "", false);
        all.createDynamicAttr("place", "POSITION_2D", "Place", false);
        manager().clearHistory();
    }

    AttributeList list(AttributeList::AttrTypeFilter filter, const QStringList& path = {}) const
    {
        return AttributeList(peg, path, filter);
    }
};

} // namespace

TEST_F(FilteredListTest, EachFilterHoldsItsAttributes)
{
    using Paths = std::vector<std::string>;
    EXPECT_EQ(walk(list(AttributeList::DynamicOfLevel)), (Paths{"meta", "place"}));
    EXPECT_EQ(walk(list(AttributeList::DynamicOfLevel, {"meta"})), (Paths{"meta.take", "meta.note"}));
    EXPECT_EQ(walk(list(AttributeList::DynamicOfLevel, {"position"})), Paths{});
    EXPECT_EQ(walk(list(AttributeList::Timed, {"meta"})), Paths{"meta.take"});
    EXPECT_EQ(walk(list(AttributeList::Full, {"meta"})), (Paths{"meta.take", "meta.note"}));
    const Paths timed = walk(list(AttributeList::Timed));
    EXPECT_EQ(std::count(timed.begin(), timed.end(), "pivot.x"), 0) << "no column drives a pivot";
    EXPECT_EQ(timed.back(), "meta.take");
    const Paths full = walk(list(AttributeList::Full));
    EXPECT_EQ(Paths(full.begin(), full.begin() + 3), (Paths{"position", "position.x", "position.y"}));
    EXPECT_EQ(full.back(), "place.y");
    EXPECT_EQ(list(AttributeList::Full).size(), full.size());
    EXPECT_EQ(list(AttributeList::DynamicOfLevel).size(), 2u);
}

TEST_F(FilteredListTest, AnItemIsFoundByIndexAndByNameWhereItPassesTheFilter)
{
    EXPECT_EQ(pathIn(list(AttributeList::DynamicOfLevel).get(1)), "place");
    EXPECT_EQ(pathIn(list(AttributeList::Full).get(1)), "position.x");
    EXPECT_EQ(pathIn(list(AttributeList::Timed, {"meta"}).get(0)), "meta.take");
    const struct {
        const char* name;
        const char* dynamic;
        const char* timed;
        const char* full;
    } rows[] = {
        {"meta", "meta", "meta", "nothing"},
        {"meta.take", "meta.take", "meta.take", "meta.take"},
        {"meta.note", "meta.note", "meta.note", "nothing"},
        {"angle", "nothing", "angle", "angle"},
        {"nowhere", "nothing", "nothing", "nothing"},
    };
    for (const auto& [name, dynamic, timed, full] : rows) {
        EXPECT_EQ(pathIn(list(AttributeList::DynamicOfLevel).get(QString(name))), dynamic) << name;
        EXPECT_EQ(pathIn(list(AttributeList::Timed).get(QString(name))), timed) << name;
        EXPECT_EQ(pathIn(list(AttributeList::Full).get(QString(name))), full) << name;
    }
    const QVariant x = QVariant::fromValue(all.get(QString("position.x")));
    EXPECT_TRUE(list(AttributeList::Full).contains(x));
    EXPECT_FALSE(list(AttributeList::DynamicOfLevel).contains(x));
    EXPECT_FALSE(list(AttributeList::Full, {"meta"}).contains(x));
}

TEST_F(FilteredListTest, EachFilterRefusesAnIndexInItsOwnWords)
{
    EXPECT_EQ(failureOf([&] { list(AttributeList::DynamicOfLevel).get(2); }), "Index is out of range.");
    for (const int index : {-1, 2, 1000}) {
        EXPECT_EQ(failureOf([&] { list(AttributeList::Full, {"meta"}).get(index); }), "Index out of range.");
        EXPECT_EQ(failureOf([&] { list(AttributeList::Timed, {"meta"}).get(index); }), "Index out of range.");
    }
}

TEST_F(FilteredListTest, AnIteratingListFindsNothingByName)
{
    const Obj handle = all.__iter__();
    auto& iterator = *objectIn<AttributeList>(handle);
    EXPECT_EQ(failureOf([&] { iterator.get(QString("angle")); }), "This action is not supported.");
    EXPECT_EQ(failureOf([&] { iterator.get(QString("position.x")); }),
              "Getting a subattribute by name in this list-type is not supported.");
}

TEST_F(FilteredListTest, ADynamicAttributeTellsItsGroupsFlags)
{
    all.createDynamicAttr("group.part", "INT", "", true);
    EXPECT_EQ(engineAttribute("group")->meta().flags(), 14u);
    EXPECT_EQ(engineAttribute("group.part")->meta().flags(), 13u);
    EXPECT_EQ(engineAttribute("meta")->meta().flags(), 14u);
    all.createDynamicAttr("quiet.part", "INT", "", false);
    EXPECT_EQ(engineAttribute("quiet")->meta().flags(), 13u);
}

TEST_F(FilteredListTest, WithoutASceneNothingIsAddedOrTaken)
{
    AttributedNode node;
    StandInSimple own(node, "own");
    own.details = AT_AttrMeta("own", "", 13);
    node.attributes = {&own};
    AttributeList list(&node, {}, AttributeList::AllOfLevel);
    EXPECT_EQ(failureOf([&] { list.createDynamicAttr("new", "INT", "", false); }), "An unexpected error occurred.");
    EXPECT_EQ(failureOf([&] { list.removeDynamicAttr("own"); }), "An unexpected error occurred.");
}

TEST_F(FilteredListTest, ARefusedRemovalSaysSo)
{
    StandInSceneCommon scene;
    RefusingManager refusing;
    scene.commands = &refusing;
    AttributedNode node(&scene);
    StandInSimple own(node, "own");
    own.details = AT_AttrMeta("own", "", 13);
    node.attributes = {&own};
    AttributeList list(&node, {}, AttributeList::AllOfLevel);
    EXPECT_EQ(failureOf([&] { list.removeDynamicAttr("own"); }), "Failed to remove the attribute.");
    EXPECT_EQ(failureOf([&] { list.createDynamicAttr("new", "INT", "", false); }), "Failed to create the attribute.");
}
