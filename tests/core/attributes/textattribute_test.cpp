#include "core/attributes/textattribute.h"

#include "tests/core/support/animation.h"
#include "tests/core/support/standinattribute.h"

using namespace OMC;

class TextAttributeTest : public AnimationTest {
protected:
    MO_Node* write = add("WRITE", "Write");
    TextAttribute path = attribute<TextAttribute>("path", write);
};

TEST_F(TextAttributeTest, ItSaysWhatItIs)
{
    EXPECT_EQ(path.__str__(), "TextAttr(Top/Write, path)");
    EXPECT_TRUE(objectIn<TextAttribute>(Obj(path.copy())));
    TextAttribute wrong(peg, {}, "angle");
    for (const auto& call : std::initializer_list<std::function<void()>>{
             [&] { wrong.value(1); }, [&] { wrong.localvalue(); }, [&] { wrong.setValue(1, "a"); },
             [&] { wrong.setLocalvalue("a"); }})
        expectRefused(call, "Unexpected type found.");
}

TEST_F(TextAttributeTest, ItsTextIsSetUndoablyWhateverItHolds)
{
    for (const QString& text : {QString("frames/final-"), QString("%1\n\t\"\\"),
                                QString::fromUtf8("écran \xF0\x9F\x8E\xAC"), QString(), QString(100000, 'x')}) {
        path.setLocalvalue("before");
        manager().clearHistory();
        const QByteArray before = saved();
        path.setValue(10, text);
        EXPECT_EQ(path.value(1), text);
        EXPECT_EQ(path.localvalue(), text);
        EXPECT_EQ(labels(), QStringList("Set Attribute Value"));
        expectUndoable(before);
        undo();
        EXPECT_EQ(path.value(1), "before");
        path.setLocalvalue(text);
        EXPECT_EQ(labels(), QStringList("Set Attribute local value."));
        expectUndoable(before);
    }
}

TEST_F(TextAttributeTest, ARefusedChangeIsReported)
{
    RefusingManager refusing;
    StandInSceneCommon common;
    common.commands = &refusing;
    AttributedNode node(&common);
    struct Text : StandInAttribute<AT_StringAttr> {
        using StandInAttribute::StandInAttribute;
        QString value(double) const override { return "held"; }
        QString localValue() const override { return "held"; }
        QString defaultValue() const override { return QString(); }
        bool setValue(double, const QString&, bool, bool) override { return false; }
        bool setLocalValue(const QString&) override { return false; }
        TUTimedValue* createTimedValue() const override { return nullptr; }
    } text(node, "text");
    node.attributes = {&text};
    TextAttribute wrapper(&node, {}, "text");
    EXPECT_EQ(failureOf([&] { wrapper.setValue(1, "new"); }), "Failed to set the attribute's value.");
    EXPECT_EQ(failureOf([&] { wrapper.setLocalvalue("new"); }), "Failed to set the attribute's local value.");
    common.commands = nullptr;
    EXPECT_EQ(failureOf([&] { wrapper.setValue(1, "new"); }), "An unexpected error has occurred.");
}
