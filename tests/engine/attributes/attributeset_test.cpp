#include "engine/attributes/attributeset.h"

#include "engine/attributes/attributeof.h"
#include "engine/attributes/attributetable.h"
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
    ASSERT_NE(set.findTop("position"), nullptr);
    EXPECT_EQ(set.findTop("position")->meta().keyword(), "position");
    EXPECT_EQ(*set.begin(), set.findTop("position"));
    EXPECT_EQ(set.end() - set.begin(), 7);
    for (const char* keyword : {"x", "Position", "position.x", "", "nothing"})
        EXPECT_EQ(set.findTop(keyword), nullptr) << keyword;
    EXPECT_EQ(set.findTop("angle")->node(), peg);
    EXPECT_EQ(set.findTop("angle")->sceneCommon(), scene().sceneCommon());
}

TEST_F(AttributeSetTest, AnUnknownTypeHasNoAttributes)
{
    const brindle::engine::AttributeSet set(*peg, brindle::engine::attributeTable("NOTHING"));
    EXPECT_EQ(set.begin(), set.end());
    EXPECT_EQ(set.findTop("position"), nullptr);
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

TEST_F(AttributeSetTest, AVisitThatIsNotOverriddenFallsBackOnTheMoreGeneralClass)
{
    class Coarse final : public AT_AttrVisitor {
    public:
        using AT_AttrVisitor::visit;
        void visit(AT_SimpleAttr&) override { texts.append("simple"); }
        void visit(AT_Attr&) override { texts.append("any"); }
        QStringList texts;
    } coarse;
    for (const auto& [type, path] : std::initializer_list<std::pair<const char*, const char*>>{
             {"PEG", "angle"}, {"WRITE", "format"}, {"PEG", "position"}, {"READ", "drawing"}})
        attribute(add(type), path)->accept(coarse);
    EXPECT_EQ(coarse.texts, QStringList({"simple", "simple", "any", "any"}));
}

TEST_F(AttributeSetTest, AllAttributesAreReachedByPlaceAndByPath)
{
    const brindle::engine::AttributeSet set(*peg, brindle::engine::attributeTable("PEG"));
    QStringList paths;
    for (int place = 0; place < set.count(); ++place) {
        paths.append(brindle::engine::metaOf(set.at(place)).fullKeyword());
        EXPECT_EQ(set.find(paths.back()), place);
    }
    EXPECT_EQ(paths.join(' '), "position position.x position.y position.z scale scale.x scale.y scale.z rotation "
                               "rotation.x rotation.y rotation.z angle skew pivot pivot.x pivot.y pivot.z "
                               "full_transform");
    for (const char* path : {"", ".", "x", "position.", "position.w", "positionx", "Angle", "engle", "angles"})
        EXPECT_EQ(set.find(QString(path)), -1) << path;
}

/// Some text that is not the one of a new attribute.
QString otherText(const AT_Attr& attr)
{
    const QString type = attr.typeText();
    if (type == "BOOL")
        return attr.textAt(1) == "true" ? "false" : "true";
    if (type == "ENUM")
        return dynamic_cast<const AT_EnumAttrBase&>(attr).options().last();
    return type == "STRING" ? "text" : "7";
}

TEST_F(AttributeSetTest, TheLocalValuesOfEveryKindAreCopied)
{
    using namespace brindle::engine;
    int copied = 0;
    for (const char* type : {"PEG", "READ", "CAMERA", "COMPOSITE", "WRITE", "COLOR_CARD", "BLUR", "CUTTER"}) {
        const AttributeSet from(*peg, attributeTable(type));
        AttributeSet to(*peg, attributeTable(type));
        for (int place = 0; place < from.count(); ++place) {
            AT_Attr& attr = from.at(place);
            if (dynamic_cast<AT_ComplexAttr*>(&attr))
                continue;
            const std::unique_ptr<CO_Command> command(attr.setTextCommand(1, otherText(attr)));
            ASSERT_TRUE(command) << type << place;
            command->execute();
            EXPECT_NE(metaOf(attr).kind().stored(attr), metaOf(attr).newValue()) << type << place;
            ++copied;
        }
        copyValues(from, to);
        for (int place = 0; place < from.count(); ++place)
            EXPECT_EQ(to.at(place).textAt(1), from.at(place).textAt(1)) << type << place;
    }
    EXPECT_GT(copied, 40);
}

TEST_F(AttributeSetTest, AKindWhoseSavingCopyingOrDefaultIsForgottenIsNone)
{
    using namespace brindle::engine;
    struct Complete : AttributeOf<AT_SimpleAttr> {
        static AttributeValue newValue(const AttributeSpec&);
        AttributeValue stored() const;
        void store(const AttributeValue&);
    };
    struct NotSaved : AttributeOf<AT_SimpleAttr> {
        static AttributeValue newValue(const AttributeSpec&);
        void store(const AttributeValue&);
    };
    struct NotRead : AttributeOf<AT_SimpleAttr> {
        static AttributeValue newValue(const AttributeSpec&);
        AttributeValue stored() const;
    };
    struct WithoutDefault : AttributeOf<AT_SimpleAttr> {
        AttributeValue stored() const;
        void store(const AttributeValue&);
    };
    EXPECT_TRUE(KindOfAttribute<Complete>);
    EXPECT_FALSE(KindOfAttribute<NotSaved> || KindOfAttribute<NotRead> || KindOfAttribute<WithoutDefault>);
    struct Unvisited : AT_SimpleAttr {};
    EXPECT_FALSE(AT_AttrKinds::has<Unvisited>);
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
