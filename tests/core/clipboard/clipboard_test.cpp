#include "core/clipboard/clipboard.h"

#include "core/attributes/attributelist.h"
#include "core/attributes/doubleattribute.h"
#include "core/clipboard/copyobject.h"
#include "core/clipboard/copyoptions.h"
#include "core/clipboard/pasteactionoptions.h"
#include "core/clipboard/pasteoptions.h"
#include "core/host/tu_timedvalue.h"
#include "core/nodes/node.h"
#include "core/scene/scene.h"
#include "tests/core/support/changetest.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <string>

namespace {

using OMC::Clipboard;
using OMC::CopyObject;
using OMC::CopyOptions;
using OMC::Obj;
using OMC::PasteActionOptions;
using OMC::PasteOptions;

constexpr char noNodes[] = "Unable to identify any nodes to copy.";
constexpr char noTargets[] = "Unable to identify any target nodes to paste upon.";
constexpr char noCopy[] = "Invalid copy object provided.";
constexpr char noColumn[] = "Invalid column specified.";
constexpr char noGroup[] = "Failed to identify target group.";
constexpr char otherCopyOptions[] = "Invalid Copy_Options object provided in options argument.";

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

/// Top: Display, Composite, Arm (a peg), Body (a group).
class ClipboardTest : public ChangeTest {
protected:
    Obj copyOf(const char* path) { return clipboard.copy(text(path), Obj()); }
    PasteOptions* makingColumns() const { return new PasteOptions(QVariantMap{{text("create_new_column"), true}}); }

    MO_Node* arm = add(text("PEG"), text("Arm"));
    TUGroup* body = addGroup(text("Body"));
    Clipboard clipboard{scene()};
    /// Gives a peg's angle keys at the frames 1 and 20.
    void keyed(MO_Node* node, double slope) const
    {
        const std::unique_ptr<OMC::Node> wrapper(OMC::Node::getWrapped(node));
        const Obj attributes = wrapper->getAttributes();
        const Obj angle = OMC::objectIn<OMC::AttributeList>(attributes)->get(text("angle"));
        for (const int frame : {1, 20})
            OMC::objectIn<OMC::DoubleAttribute>(angle)->setValue(frame, slope * frame, false);
    }

    const QString nowhere = text("/no/such/template.tpl");
};

TEST_F(ClipboardTest, ItHoldsTheSceneAndNothingElse)
{
    EXPECT_EQ(clipboard.__str__(), "Clipboard()");
    EXPECT_EQ(clipboard.getScene(), scene());
    const std::unique_ptr<Clipboard> other(clipboard.copy());
    EXPECT_EQ(other->getScene(), scene());
}

TEST_F(ClipboardTest, NoNameShowsInAListingOfIt)
{
    for (std::string name : {"paste", "objectName", "get_scene", "x"})
        EXPECT_FALSE(clipboard.filterDir(name)) << name;
}

TEST_F(ClipboardTest, TheSceneGivesIt)
{
    const Obj given = OMC::Scene(scene()).getClipboard();
    ASSERT_TRUE(OMC::objectIn<Clipboard>(given));
    EXPECT_EQ(OMC::objectIn<Clipboard>(given)->getScene(), scene());
}

TEST_F(ClipboardTest, OnceTheSceneIsGoneNothingGoesOn)
{
    const Obj copied = copyOf("Top/Arm");
    close();
    const std::function<void()> rows[] = {
        [&] { clipboard.copy(QVariantList(), Obj()); },
        [&] { clipboard.copy(QVariantList(), 1, 1, Obj()); },
        [&] { clipboard.copyFromTemplate(nowhere, 0, 0, Obj()); },
        [&] { clipboard.createSelectionTemplate(text("x"), text("/tmp"), Obj()); },
        [&] { clipboard.createTemplate(Obj(), text("x"), text("/tmp"), false); },
        [&] { clipboard.paste(copied, QVariant(), 0, 0, Obj()); },
        [&] { clipboard.pasteNewNodes(copied, QVariant(), Obj()); },
        [&] { clipboard.pasteTemplate(nowhere, 1, QVariant(), Obj()); },
        [&] { clipboard.pasteTemplateIntoGroup(nowhere, 1, QVariant(), Obj()); },
        [&] { clipboard.pasteActionTemplate(nowhere, 1, QVariant(), Obj(), Obj()); },
        [&] { Clipboard(nullptr).copy(QVariantList(), Obj()); },
    };
    for (const auto& call : rows)
        EXPECT_EQ(failureOf(call), objectGone);
    EXPECT_EQ(clipboard.getScene(), nullptr);
}

TEST_F(ClipboardTest, CopyingReadsTheNodesAheadOfTheOptions)
{
    const struct {
        const char* name;
        QVariant nodes;
        Obj options;
        const char* sentence;
    } rows[] = {
        {"nothing", QVariantList(), new PasteOptions, noNodes},
        {"a name of nothing", text("Top/Leg"), Obj(), noNodes},
        {"other options", text("Top/Arm"), new PasteOptions, otherCopyOptions},
        {"an index beyond the end", 100, new PasteOptions, indexOutOfRange},
        {"the root group", text("Top"), Obj(), "Failed to copy from template."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        refuses([&] { clipboard.copy(row.nodes, row.options); }, row.sentence);
        refuses([&] { clipboard.copy(row.nodes, 1, 5, row.options); }, row.sentence);
    }
    leaves([&] { EXPECT_EQ(OMC::objectIn<CopyObject>(copyOf("Top/Arm"))->__str__(), "CopyObject()"); });
}

TEST_F(ClipboardTest, WhatWasCopiedIsAskedForFirst)
{
    const Obj none;
    const Obj other(new CopyOptions);
    for (const Obj& copied : {none, other}) {
        refuses([&] { clipboard.paste(copied, QVariantList(), 0, 0, Obj()); }, noCopy);
        refuses([&] { clipboard.pasteNewNodes(copied, QVariantList(), Obj()); }, noCopy);
        refuses([&] { clipboard.createTemplate(copied, QString(), text("/tmp"), false); }, noCopy);
    }
}

TEST_F(ClipboardTest, ACopyObjectWithoutDataIsNoLongerValid)
{
    const CopyObject empty{DD_DragObject()};
    EXPECT_EQ(failureOf([&] { empty.getObject(); }), objectGone);
    refuses([&] { clipboard.paste(new CopyObject(empty), text("Top/Arm"), 0, 0, Obj()); }, objectGone);
    refuses([&] { clipboard.pasteNewNodes(new CopyObject(empty), text("Top"), Obj()); }, objectGone);
}

TEST_F(ClipboardTest, APasteNeedsItsTargets)
{
    const Obj copied = copyOf("Top/Arm");
    refuses([&] { clipboard.paste(copied, QVariantList(), 0, 0, Obj()); }, noTargets);
    refuses([&] { clipboard.paste(copied, text("Top/Leg"), 0, 0, Obj()); }, noTargets);
    refuses([&] { clipboard.pasteNewNodes(copied, QVariantList(), Obj()); }, noNodes);
    refuses([&] { clipboard.pasteNewNodes(copied, text("Top/Arm"), Obj()); }, noGroup);
    refuses([&] { clipboard.pasteTemplateIntoGroup(nowhere, 1, text("Top/Arm"), Obj()); }, noGroup);
    refuses([&] { clipboard.pasteTemplateIntoGroup(nowhere, 1, QVariant(), Obj()); }, noGroup);
}

TEST_F(ClipboardTest, TheFirstGroupAmongTheNodesIsPastedInto)
{
    const Obj copied = copyOf("Top/Arm");
    changes(
        [&] {
            clipboard.pasteNewNodes(copied, QStringList{text("Top/Arm"), text("Top/Body"), text("Top")}, Obj());
        },
        text("Paste Nodes from Copy Object"));
    EXPECT_NE(node(text("Top/Body/Arm")), nullptr);
}

TEST_F(ClipboardTest, TemplatesSpeakOfColumnsAlsoWhereNodesAreMissing)
{
    const Obj making(makingColumns());
    refuses([&] { clipboard.pasteTemplate(nowhere, 1, QVariant(), Obj()); }, noColumn);
    refuses([&] { clipboard.pasteTemplate(nowhere, 1, text("Nothing"), new PasteOptions); }, noColumn);
    refuses([&] { clipboard.pasteTemplate(nowhere, 1, QVariant(), making); }, "Failed to paste the template.");
    refuses([&] { clipboard.pasteTemplate(nowhere, 1, text("Nothing"), making); },
            "Failed to find column by name: Nothing");
    refuses([&] { clipboard.pasteActionTemplate(nowhere, 1, QVariant(), Obj(), Obj()); }, noColumn);
    refuses([&] { clipboard.pasteActionTemplate(nowhere, 1, QVariant(), new CopyOptions, new CopyOptions); }, noColumn);
    refuses([&] { clipboard.pasteActionTemplate(nowhere, 1, QVariant(), new CopyOptions, making); },
            "Invalid Paste_Action_Options object provided in options argument.");
    refuses([&] { clipboard.pasteActionTemplate(nowhere, 1, QVariant(), new PasteActionOptions, making); },
            "Failed to paste the action-template.");
    refuses([&] { clipboard.pasteActionTemplate(nowhere, 1, text("Top/Arm"), Obj(), Obj()); },
            "Failed to paste the action-template.");
}

TEST_F(ClipboardTest, APathWithoutATemplateCanNotBeCopied)
{
    refuses([&] { clipboard.copyFromTemplate(nowhere, 0, 0, new PasteOptions); },
            "Invalid template file provided to copy.");
    refuses([&] { clipboard.copyFromTemplate(QString(), 0, 0, Obj()); }, "Invalid template file provided to copy.");
}

TEST_F(ClipboardTest, ATemplateOfTheSelectionChecksItsOptionsAndNeedsASelection)
{
    refuses([&] { clipboard.createSelectionTemplate(text("x"), text("/tmp"), new PasteOptions); }, otherCopyOptions);
    leaves([&] { EXPECT_EQ(clipboard.createSelectionTemplate(text("x"), text("/tmp"), Obj()), QString()); });
}

TEST_F(ClipboardTest, EachPasteHasItsLabel)
{
    const QTemporaryDir folder;
    const Obj copied = copyOf("Top/Arm");
    MO_Node* leg = add(text("PEG"), text("Leg"));
    keyed(arm, 3.0);
    const Obj keys = copyOf("Top/Arm");
    const QString made = folder.filePath(clipboard.createTemplate(keys, text("Arm"), folder.path(), false));
    const QVariant targets = text("Top/Leg");
    keyed(leg, 5.0);
    manager().clearHistory();

    const Obj byType(
        new PasteOptions(QVariantMap{{text("use_paste_special"), true}, {text("match_node_name"), false}}));
    changes([&] { clipboard.pasteNewNodes(copied, text("Top"), Obj()); }, text("Paste Nodes from Copy Object"));
    changes([&] { clipboard.paste(keys, targets, 5, 0, byType); }, text("Pasting Script-Object."));
    changes([&] { clipboard.pasteTemplateIntoGroup(made, 1, text("Top/Body"), Obj()); }, text("Pasting Template."));
    changes([&] { clipboard.pasteTemplate(made, 9, scene()->timedValuesBegin()[0]->getName(), byType); },
            text("Pasting Template."));
    changes([&] { clipboard.pasteActionTemplate(made, 30, text("Top/Arm"), Obj(), Obj()); },
            text("Pasting Action-Template."));
}

TEST_F(ClipboardTest, ATemplateIsNoChangeOfTheProject)
{
    const QTemporaryDir folder;
    const Obj copied = copyOf("Top/Arm");
    const QString deeper = folder.filePath(text("a/b"));
    const struct {
        const char* name;
        const char* made;
    } rows[] = {{"", "New Template.tpl"}, {"Arm", "Arm.tpl"}, {"Arm.tpl", "Arm_1.tpl"}, {"Body/Arm", "Body_Arm.tpl"}};
    for (const auto& row : rows) {
        leaves([&] {
            EXPECT_EQ(clipboard.createTemplate(copied, text(row.name), deeper, false).toStdString(), row.made);
        });
        EXPECT_TRUE(QFileInfo(deeper + u'/' + text(row.made)).isDir());
    }
    leaves([&] { EXPECT_EQ(clipboard.createTemplate(copied, text("Arm"), QString(), false), QString()); });
    leaves([&] { EXPECT_EQ(clipboard.createTemplate(copied, text("Arm"), text("/proc/no"), false), QString()); });
}

TEST_F(ClipboardTest, WithoutASessionItCanNotGoOn)
{
    const Obj copied = copyOf("Top/Arm");
    PLUG_Services::setSessionContext(nullptr);
    const std::function<void()> rows[] = {
        [&] { clipboard.copyFromTemplate(nowhere, 0, 0, Obj()); },
        [&] { clipboard.createTemplate(copied, text("x"), text("/tmp"), false); },
        [&] { clipboard.paste(copied, text("Top/Arm"), 0, 0, Obj()); },
        [&] { clipboard.pasteActionTemplate(nowhere, 1, text("Top/Arm"), Obj(), Obj()); },
    };
    for (const auto& call : rows)
        EXPECT_EQ(failureOf(call), unexpectedError);
    PLUG_Services::setSessionContext(&session());
}

} // namespace
