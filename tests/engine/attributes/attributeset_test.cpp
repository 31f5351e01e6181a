#include "engine/attributes/attributeset.h"

#include "tests/engine/support/columnproject.h"

#include <chrono>

namespace {

class AttributeSetTest : public ColumnTest {
protected:
    MO_Node* peg = add("PEG", "Peg");
};

TEST_F(AttributeSetTest, FindsTheTopLevelByKeyword)
{
    const brindle::engine::AttributeSet set(*peg, brindle::engine::attributeTable("PEG"));
    ASSERT_NE(set.find("position"), nullptr);
    EXPECT_EQ(set.find("position")->meta().keyword(), "position");
    EXPECT_EQ(*set.begin(), set.find("position"));
    EXPECT_EQ(set.end() - set.begin(), 7);
    for (const char* keyword : {"x", "Position", "position.x", "", "nothing"})
        EXPECT_EQ(set.find(keyword), nullptr) << keyword;
    EXPECT_EQ(set.find("angle")->node(), peg);
    EXPECT_EQ(set.find("angle")->sceneCommon(), scene().sceneCommon());
}

TEST_F(AttributeSetTest, AnUnknownTypeHasNoAttributes)
{
    const brindle::engine::AttributeSet set(*peg, brindle::engine::attributeTable("NOTHING"));
    EXPECT_EQ(set.begin(), set.end());
    EXPECT_EQ(set.find("position"), nullptr);
}

TEST_F(AttributeSetTest, VisitorsComeToTheKindOfTheAttribute)
{
    class Kinds final : public AT_AttrVisitor {
    public:
        using AT_AttrVisitor::visit;
        void visit(AT_Attr&) override { texts.append("attr"); }
        void visit(AT_ComplexAttr&) override { texts.append("complex"); }
        void visit(AT_BoolAttr&) override { texts.append("bool"); }
        void visit(AT_IntAttr&) override { texts.append("int"); }
        void visit(AT_DoubleAttr&) override { texts.append("double"); }
        void visit(AT_StringAttr&) override { texts.append("string"); }
        void visit(AT_EnumAttrBase&) override { texts.append("enum"); }
        void visit(AT_ColorAttr&) override { texts.append("colour"); }
        void visit(AT_Position3dAttr&) override { texts.append("position"); }
        QStringList texts;
    } kinds;
    for (const auto& [type, path] :
         std::initializer_list<std::pair<const char*, const char*>>{{"PEG", "position"},
                                                                    {"PEG", "angle"},
                                                                    {"READ", "visible"},
                                                                    {"READ", "drawing"},
                                                                    {"COLOR_CARD", "colour"},
                                                                    {"COLOR_CARD", "colour.red"},
                                                                    {"WRITE", "path"},
                                                                    {"WRITE", "format"}})
        attribute(add(type), path)->accept(kinds);
    EXPECT_EQ(kinds.texts, QStringList({"position", "double", "bool", "complex", "colour", "int", "string", "enum"}));
}

TEST_F(AttributeSetTest, DottedPathsAreParted)
{
    QString first;
    QString rest;
    EXPECT_TRUE(AT_ComplexAttr::splitNames("a.b.c", first, rest));
    EXPECT_EQ(first, "a");
    EXPECT_EQ(rest, "b.c");
    first = "as it was";
    EXPECT_FALSE(AT_ComplexAttr::splitNames("a", first, rest));
    EXPECT_FALSE(AT_ComplexAttr::splitNames("", first, rest));
    EXPECT_EQ(first, "as it was");
}

TEST_F(AttributeSetTest, TenThousandSetsAreMadeInAMoment)
{
    const auto& table = brindle::engine::attributeTable("PEG");
    std::vector<std::unique_ptr<brindle::engine::AttributeSet>> sets;
    sets.reserve(10000);
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < 10000; ++i)
        sets.push_back(std::make_unique<brindle::engine::AttributeSet>(*peg, table));
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    EXPECT_LT(taken.count(), 1.0) << "far above the 10 ms that it takes, for busy and sanitized machines";
}

} // namespace
