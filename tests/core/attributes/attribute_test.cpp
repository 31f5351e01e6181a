#include "core/attributes/attribute.h"

#include "core/attributes/boolattribute.h"
#include "core/attributes/intattribute.h"
#include "core/attributes/textattribute.h"
#include "core/nodes/node.h"
#include "tests/core/support/animation.h"
#include "tests/core/support/standinattribute.h"

using namespace OMC;

class AttributeTest : public AnimationTest {
protected:
    static QVariant propertyOf(Attribute& attribute, const char* name)
    {
        bool found = false;
        return attribute.getAttr(name, found);
    }
};

TEST_F(AttributeTest, AnAttributeKnowsItsPathFromTheNodesTopLevel)
{
    const auto angle = attribute<Attribute>("angle");
    EXPECT_EQ(angle.getPath(), QStringList({"angle"}));
    EXPECT_EQ(angle.getKeyword(), "angle");
    EXPECT_EQ(angle.getFullKeyword(), "angle");
    const auto x = attribute<Attribute>("position.x");
    EXPECT_EQ(x.getPath(), QStringList({"position", "x"}));
    EXPECT_EQ(x.getKeyword(), "x");
    EXPECT_EQ(x.getFullKeyword(), "position.x");
}

TEST_F(AttributeTest, AnAttributeSaysWhatTheEngineHoldsOfIt)
{
    auto x = attribute<Attribute>("position.x");
    EXPECT_EQ(x.getDisplayName(), engineAttribute("position.x")->displayText());
    EXPECT_EQ(x.getTypeName(), "DOUBLE");
    EXPECT_FALSE(x.getDynamic());
    EXPECT_TRUE(x.getLinkable());
    EXPECT_FALSE(attribute<Attribute>("pivot.x").getLinkable());
    EXPECT_EQ(attribute<Attribute>("position").__str__(), "Attribute(Top/Peg, position)");
}

TEST_F(AttributeTest, PropertiesAreServedByNameInTheirOrder)
{
    auto x = attribute<Attribute>("position.x");
    bool native = false;
    bool filter = false;
    const std::vector<std::string> names{"objectName", "column",       "column_name", "keyword",  "display_name",
                                         "type",       "full_keyword", "dynamic",     "linkable", "subattributes"};
    EXPECT_EQ(attribute<Attribute>("position").getDir(native, filter), names);
    EXPECT_EQ(propertyOf(x, "full_keyword"), "position.x");
    EXPECT_EQ(propertyOf(x, "type"), "DOUBLE");
    EXPECT_EQ(propertyOf(x, "linkable"), true);
    EXPECT_EQ(propertyOf(x, "column_name"), "");
}

TEST_F(AttributeTest, TheMethodThatSetsAValueIsListedThoughAccessorsAreNot)
{
    const auto x = attribute<Attribute>("position.x");
    for (const auto& [name, shown] : std::initializer_list<std::pair<const char*, bool>>{
             {"set_value", true}, {"set_column", false}, {"get_column", false}, {"column", true}}) {
        std::string text = name;
        EXPECT_EQ(x.filterDir(text), shown) << name;
    }
}

TEST_F(AttributeTest, AWrapperIsMadeForTheAttributesKind)
{
    MO_Node* card = add("COLOR_CARD", "Card");
    EXPECT_TRUE(objectIn<DoubleAttribute>(wrapped("angle")));
    EXPECT_TRUE(objectIn<BoolAttribute>(wrapped("full_transform")));
    EXPECT_TRUE(objectIn<TextAttribute>(wrapped("path", add("WRITE", "Write"))));
    EXPECT_TRUE(objectIn<IntAttribute>(wrapped("colour.red", card)));
    const Obj position = wrapped("position");
    ASSERT_TRUE(objectIn<Attribute>(position));
    EXPECT_FALSE(objectIn<DoubleAttribute>(position));
    EXPECT_EQ(Attribute::getWrapped(nullptr, {}), nullptr);
}

TEST_F(AttributeTest, ACopyAndAnotherWrapperOfTheSameAttributeAreEqual)
{
    const auto x = number("position.x");
    const Obj copy(x.copy());
    EXPECT_TRUE(objectIn<DoubleAttribute>(copy));
    EXPECT_TRUE(x == *objectIn<Attribute>(copy));
    EXPECT_TRUE(x == attribute<Attribute>("position.x"));
    EXPECT_FALSE(x == attribute<Attribute>("position.y"));
    EXPECT_FALSE(x == attribute<Attribute>("position.x", add("PEG", "Other")));
    EXPECT_FALSE(x == static_cast<const Attribute*>(nullptr));
}

TEST_F(AttributeTest, AnAttributeLeadsToItsNodeAndToTheAttributesInIt)
{
    const Obj node = attribute<Attribute>("position.x").node();
    ASSERT_TRUE(objectIn<Node>(node));
    EXPECT_EQ(objectIn<Node>(node)->getNode(), peg);
    EXPECT_EQ(attribute<Attribute>("angle").getSubattributes().get(), nullptr);
    const Obj members = attribute<Attribute>("position").getSubattributes();
    ASSERT_TRUE(objectIn<AttributeList>(members));
    EXPECT_EQ(objectIn<AttributeList>(members)->size(), 3u);
}

TEST_F(AttributeTest, ADottedPathIsWalkedLevelByLevel)
{
    const struct {
        const char* path;
        bool found;
    } paths[] = {{"angle", true},       {"position", true},     {"position.x", true},
                 {"position.w", false}, {"angle.x", false},     {"nothing", false},
                 {"", false},           {".", false},           {"position.", false},
                 {".x", false},         {"position.x.y", false}};
    for (const auto& [path, found] : paths)
        EXPECT_EQ(Attribute::attribFromFullPath(peg, path) != nullptr, found) << path;
    EXPECT_EQ(Attribute::attribFromFullPath(peg, "position.x")->meta().keyword(), "x");
    EXPECT_EQ(Attribute::attribFromFullPath(nullptr, "angle"), nullptr);
}

TEST_F(AttributeTest, AnAttributeKnownByPointerIsFoundOnTheFirstTwoLevels)
{
    for (const char* path : {"angle", "position", "position.x"}) {
        const Obj found(Attribute::getWrappedByAttr(engineAttribute(path)));
        ASSERT_TRUE(objectIn<Attribute>(found)) << path;
        EXPECT_EQ(objectIn<Attribute>(found)->getFullKeyword(), path);
    }
    EXPECT_EQ(Attribute::getWrappedByAttr(nullptr), nullptr);

    AttributedNode node;
    StandInComplex outer(node, "outer");
    StandInComplex inner(node, "inner");
    StandInSimple deep(node, "deep");
    node.attributes = {&outer};
    outer.members = {&inner};
    inner.members = {&deep};
    const Obj second(Attribute::getWrappedByAttr(&inner));
    EXPECT_EQ(objectIn<Attribute>(second)->getFullKeyword(), "outer.inner");
    EXPECT_EQ(Attribute::getWrappedByAttr(&deep), nullptr);
    EXPECT_EQ(Attribute::attribFromFullPath(&node, "outer.inner.deep"), &deep);
}

TEST_F(AttributeTest, AnAttributeOfARemovedNodeIsInvalidForEver)
{
    auto x = number("position.x");
    const auto position = attribute<Attribute>("position");
    SU_CleanUpCommands::removeNodes(scene(), {peg}, false);
    const std::string invalid = "Object is no longer valid.";
    const auto expectInvalid = [&] {
        EXPECT_EQ(failureOf([&] { x.getKeyword(); }), invalid);
        EXPECT_EQ(failureOf([&] { x.getFullKeyword(); }), invalid);
        EXPECT_EQ(failureOf([&] { x.getColumn(); }), invalid);
        EXPECT_EQ(failureOf([&] { x.getTextValue(1); }), invalid);
        EXPECT_EQ(failureOf([&] { x.setTextValue(1, "2"); }), invalid);
        EXPECT_EQ(failureOf([&] { x.value(1); }), invalid);
        EXPECT_EQ(failureOf([&] { x.setValue(1, 2); }), invalid);
        EXPECT_EQ(failureOf([&] { x.node(); }), invalid);
        EXPECT_EQ(failureOf([&] { x.__str__(); }), invalid);
        EXPECT_EQ(failureOf([&] { position.getSubattributes(); }), invalid);
        EXPECT_FALSE(x.link("any"));
    };
    expectInvalid();
    undo();
    expectInvalid();
}

TEST_F(AttributeTest, AnAttributeThatTheNodeLostIsInvalidAlsoWhenAnotherTakesItsPath)
{
    AttributedNode node;
    StandInSimple first(node, "extra");
    StandInSimple second(node, "extra");
    node.attributes = {&first};
    Attribute wrapper(&node, {}, "extra");
    EXPECT_EQ(wrapper.getDisplayName(), "Stand-in");
    node.attributes.clear();
    first.expireWeakPointers();
    EXPECT_EQ(failureOf([&] { wrapper.getDisplayName(); }), "Object is no longer valid.");
    node.attributes = {&second};
    EXPECT_EQ(failureOf([&] { wrapper.getDisplayName(); }), "Object is no longer valid.");
    node.attributes = {&first};
    EXPECT_EQ(failureOf([&] { wrapper.getDisplayName(); }), "Object is no longer valid.") << "it came back";
    EXPECT_EQ(Attribute(&node, {}, "extra").getDisplayName(), "Stand-in");
}

TEST_F(AttributeTest, AnotherAttributeAtTheSameAddressIsNotTakenForTheOneThatIsGone)
{
    AttributedNode node;
    alignas(StandInSimple) std::byte memory[sizeof(StandInSimple)];
    auto* first = new (memory) StandInSimple(node, "extra");
    node.attributes = {first};
    Attribute wrapper(&node, {}, "extra");
    const Obj found(Attribute::getWrapped(first, {}));
    const Obj copy(wrapper.copy());
    first->~StandInSimple();
    auto* second = new (memory) StandInSimple(node, "extra");
    node.attributes = {second};
    for (const Attribute* gone : {&wrapper, objectIn<Attribute>(found), objectIn<Attribute>(copy)})
        EXPECT_EQ(failureOf([&] { gone->getDisplayName(); }), "Object is no longer valid.");
    EXPECT_EQ(Attribute(&node, {}, "extra").getAttr(), second);
    second->~StandInSimple();
}

TEST_F(AttributeTest, AWrapperOfAnAttributeThatNeverWasSaysSo)
{
    Attribute missing(peg, {"position"}, "w");
    EXPECT_EQ(missing.getAttr(), nullptr);
    EXPECT_EQ(missing.getFullKeyword(), "position.w");
    EXPECT_EQ(failureOf([&] { missing.getColumn(); }), "Unable to find attribute.");
    EXPECT_EQ(failureOf([&] { missing.getColumnName(); }), "Unable to find attribute.");
    EXPECT_EQ(failureOf([&] { missing.setColumn(QVariant()); }), "Unable to find attribute.");
    EXPECT_EQ(failureOf([&] { missing.setColumnName(""); }), "Unable to find attribute.");
    EXPECT_EQ(failureOf([&] { missing.getTypeName(); }), "Object is no longer valid.");
    DoubleAttribute number(peg, {}, "nothing");
    EXPECT_EQ(failureOf([&] { number.value(1); }), "Unexpected type found.");
    EXPECT_EQ(failureOf([&] { Attribute(nullptr, {}, "angle"); }), "Object is no longer valid.");
}

TEST_F(AttributeTest, TextIsReadAndSetUndoably)
{
    auto x = number("position.x");
    const QByteArray before = saved();
    EXPECT_TRUE(x.setTextValue(1, "2.5"));
    EXPECT_EQ(labels(), QStringList("Set x of Peg"));
    EXPECT_EQ(x.getTextValue(1), "2.5");
    EXPECT_EQ(x.localvalue(), 2.5);
    expectUndoable(before);
    EXPECT_FALSE(x.setTextValue(1, "much"));
    EXPECT_EQ(labels(), QStringList("Set x of Peg"));
    EXPECT_EQ(x.localvalue(), 2.5);
}

TEST_F(AttributeTest, TextWithoutACommandManagerIsRefused)
{
    StandInSceneCommon common;
    AttributedNode node(&common);
    StandInSimple simple(node, "extra");
    simple.linkable = true;
    node.attributes = {&simple};
    Attribute wrapper(&node, {}, "extra");
    const std::string failure = "An unexpected error occurred.";
    EXPECT_EQ(failureOf([&] { wrapper.setTextValue(1, "2"); }), failure);
    EXPECT_EQ(failureOf([&] { wrapper.setColumn(QVariant()); }), failure);
    EXPECT_EQ(failureOf([&] { wrapper.setColumnName(""); }), failure);
    node.scene = nullptr;
    EXPECT_EQ(failureOf([&] { wrapper.setTextValue(1, "2"); }), failure);
    EXPECT_EQ(failureOf([&] { wrapper.setColumn(QVariant()); }), failure);
}

TEST_F(AttributeTest, AFrameRangeIsReadFromAListAndAFrameFromANumber)
{
    const struct {
        QVariant value;
        int start, end;
        bool isRange;
    } rows[] = {
        {QVariantList{10, 5}, 5, 10, true},
        {QVariantList{10, 20}, 10, 20, true},
        {QVariantList{1, -1}, 1, 60, true},
        {QVariantList{70, -1}, 60, 70, true},
        {QVariantList{7}, 7, -8, false},
        {QVariantList{7.0, "9"}, 7, 9, true},
        {12, 12, -8, false},
        {12.7, 12, -8, false},
        {"12", -9, -8, false},
        {QVariant(), -9, -8, false},
        {QStringList{"1", "2"}, 1, 2, true},
        {QVariantMap(), -9, -8, false},
    };
    for (const auto& row : rows) {
        int start = -9;
        int end = -8;
        bool isRange = false;
        Attribute::deriveRangeQVariant(sceneCommon(), row.value, start, end, isRange);
        EXPECT_EQ(std::tie(start, end, isRange), std::tie(row.start, row.end, row.isRange))
            << testing::PrintToString(row.start);
    }
}

TEST_F(AttributeTest, AFrameRangeThatIsNoneIsRefused)
{
    const struct {
        QVariant value;
        const char* sentence;
    } rows[] = {
        {QVariantList(), "Invalid range specififed."},
        {QVariantList{"a", 1}, "First range argument is invalid."},
        {QVariantList{1.5, 1}, "First range argument is invalid."},
        {QVariantList{qQNaN(), 1}, "First range argument is invalid."},
        {QVariantList{QVariant(), 1}, "First range argument is invalid."},
        {QStringList{"a", "2"}, "First range argument is invalid."},
        {QVariantList{1, "a"}, "Second range argument is invalid."},
        {QVariantList{1, QVariantList{2}}, "Second range argument is invalid."},
        {QVariantList{1, 5000000000LL}, "Second range argument is invalid."},
        {qQNaN(), "Invalid argument at index 0."},
        {1e300, "Invalid argument at index 0."},
    };
    for (const auto& row : rows) {
        int start = 0;
        int end = 0;
        bool isRange = false;
        EXPECT_EQ(failureOf([&] { Attribute::deriveRangeQVariant(sceneCommon(), row.value, start, end, isRange); }),
                  row.sentence);
    }
}
