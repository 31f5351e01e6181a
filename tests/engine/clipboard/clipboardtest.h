#pragma once

#include "core/host/dd_clipboard.h"
#include "core/host/em_commands.h"
#include "core/host/sl_selection.h"
#include "core/host/tu_seqtimedvalue.h"
#include "engine/elements/elementfile.h"
#include "engine/elements/elementmanager.h"
#include "engine/exposure/exposurecolumn.h"
#include "engine/folder/scenefile.h"
#include "tests/core/support/standins.h"
#include "tests/engine/support/columnproject.h"

/// A project with short ways to copy, to paste, and to elements with drawings.
class ClipboardProject : public ColumnProject {
public:
    using Nodes = std::vector<MO_Node*>;

    /// All that is saved of the first scene and of the elements.
    std::string saved()
    {
        return (brindle::engine::sceneText(scene()) + brindle::engine::elementFileText(elements())).toStdString();
    }

    DD_DragObject copy(const Nodes& nodes, int start = 1, int count = 0)
    {
        SL_Selection selection(nullptr);
        for (MO_Node* node : nodes)
            SL_SelectionUtil::addToSelection(selection, node);
        selection.setFrameRange(start, count);
        return DD_SystemExternalAPI::CreateDragObjectFromSelection(&scene(), &selection, false, false);
    }

    Nodes pasteNew(const DD_DragObject& object, const DD_DropMode& mode = DD_DropMode::GetDragDropDefault(),
                   TUGroup* group = nullptr)
    {
        SL_Selection selected(nullptr);
        DD_Selection dropped;
        if (!DD_System::DropDragObjectNewLayer(nullptr, &scene(), group ? group : top(), object, mode, dropped, 0, 0, 0,
                                               0, selected))
            return {};
        EXPECT_EQ(dropped.Nodes(), SL_SelectionUtil::getNodes(selected));
        return dropped.Nodes();
    }

    bool pasteOver(const DD_DragObject& object, const Nodes& targets,
                   const DD_DropMode& mode = DD_DropMode::GetDragDropDefault(), int start = 1, int count = 60,
                   const DD_SelectionUtil::CompositionOptions& options = DD_SelectionUtil::CompositionOptions::DEFAULT)
    {
        SL_Selection selection(nullptr);
        for (MO_Node* node : targets)
            SL_SelectionUtil::addToSelection(selection, node);
        return DD_SystemExternalAPI::PasteIntoScene(nullptr, &scene(), selection, object, mode, options, nullptr, start,
                                                    count);
    }

    /// Runs a change that works as one entry, and undoes and redoes it three times.
    template <typename Change>
    void changes(Change change)
    {
        const std::string before = saved();
        const int entries = manager().executedHistorySize();
        ASSERT_TRUE(change());
        ASSERT_EQ(manager().executedHistorySize(), entries + 1);
        const std::string after = saved();
        for (int round = 0; round < 3; ++round) {
            undo();
            ASSERT_EQ(saved(), before);
            redo();
            ASSERT_EQ(saved(), after);
        }
    }
    /// Runs a change that fails and leaves everything as it was.
    template <typename Change>
    void refuses(Change change)
    {
        const std::string before = saved();
        const int entries = manager().historySize();
        EXPECT_FALSE(change());
        EXPECT_EQ(manager().historySize(), entries);
        EXPECT_EQ(saved(), before);
    }

    brindle::engine::ElementManager& elements()
    {
        return *brindle::engine::engineElements(project().projectCommon()->elementManager());
    }
    brindle::engine::Element& element(const QString& name)
    {
        return *elements().find(elements().elementByName(name, 0).id());
    }
    QStringList elementNames()
    {
        QStringList names;
        for (const TUElement* element : elements().elements())
            names.append(element->name());
        return names;
    }
    QStringList drawingNames(const QString& name) { return element(name).getAllDrawingNames(); }
    QByteArray content(const QString& name, const QString& drawing)
    {
        const brindle::engine::Drawing* found = element(name).drawings().named(drawing);
        const auto content = found ? found->content(EM_DefaultLayerId) : nullptr;
        return content ? content->bytes() : QByteArray();
    }
    void setContent(const QString& name, const QString& drawing, const QByteArray& bytes)
    {
        const int id = element(name).id();
        ASSERT_TRUE(run(new SetDrawingContentCmd(
            &elements(), CA_CelKeyElement(id, elements().getDrawingId(id, drawing, false)), bytes)));
    }

    /// A read node with a drawing column of the same name, and an element with these drawings, whose contents say their
    /// names. They are exposed from frame 1 on, one a frame.
    MO_Node* addRead(const QString& name, const QStringList& drawings, TUGroup* group = nullptr)
    {
        const int id = elements().createElement(name, 0, 12, 0, TUElement::kNoVector, false).id();
        EXPECT_TRUE(run(new EM_Commands::FakeAddElementsCmd(&elements(), {id}, true, true, 0)));
        for (const QString& drawing : drawings) {
            EXPECT_TRUE(run(EM_Commands::NewDrawingCmd::Create(&elements(), id, drawing, false, false)));
            setContent(name, drawing, "picture " + drawing.toUtf8() + " of " + name.toUtf8());
        }
        auto& column = addSequence<brindle::engine::DrawingColumn>(name);
        EXPECT_TRUE(run(new tu_timedvalue::element::SetElementIdCmd(&column, id)));
        MO_Node* node = add("READ", name, group);
        EXPECT_TRUE(drive(*attribute(node, "drawing.element"), &column));
        expose(column, 1, drawings);
        return node;
    }
    template <typename Kind>
    Kind& addSequence(const QString& name)
    {
        auto* column = new Kind(name);
        EXPECT_TRUE(run(new SC_SceneCmds::AddTimedValueCmd(scene().sceneCommon(), column, -1, -1)));
        return *column;
    }
    void expose(TUSeqTimedValue& column, int frame, const QStringList& drawings)
    {
        auto commands = std::make_unique<CO_AndCommand>();
        column.createSetValueCmd(nullptr, frame, drawings, 0, *commands);
        EXPECT_TRUE(run(commands.release()));
    }
    /// The drawings that a read node shows, a frame each; "-" for none.
    static QString shown(const MO_Node* node, int count)
    {
        const auto& drawing = dynamic_cast<AT_DrawingAttr&>(*node->findAttributeByKeyword("drawing"));
        QStringList names;
        for (int frame = 1; frame <= count; ++frame)
            names.append(drawing.value(frame).isEmpty() ? QStringLiteral("-") : drawing.value(frame));
        return names.join(u' ');
    }

    /// A bezier column that drives an attribute, with keys at frames.
    TUTimedValue* animate(MO_Node* node, const QString& path, const std::vector<std::pair<double, double>>& keys,
                          const QString& name = {})
    {
        auto* column = new brindle::engine::BezierColumn(
            name.isNull() ? TUTimedValue::generateAnonymousName(&scene(), {}) : name, name.isNull());
        EXPECT_TRUE(run(new SC_SceneCmds::AddTimedValueCmd(scene().sceneCommon(), column, -1, -1)));
        EXPECT_TRUE(drive(*attribute(node, path), column));
        for (const auto& [frame, value] : keys)
            EXPECT_TRUE(run(column->setValueCommand(frame, value).release()));
        return column;
    }
    static double valueOf(const MO_Node* node, const QString& path, double frame)
    {
        return attributeAs<AT_DoubleAttr>(node, path).value(frame);
    }
    static std::vector<int> keysOf(const MO_Node* node, const QString& path)
    {
        return dynamic_cast<AT_FncTimedValue&>(*attribute(node, path)->socket()->linkedTimedValue()).keyframes();
    }
};

class ClipboardTest : public testing::Test, public ClipboardProject {};
