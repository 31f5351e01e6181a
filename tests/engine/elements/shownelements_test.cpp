#include "engine/exposure/exposurecolumn.h"
#include "tests/engine/elements/elementtest.h"

namespace {

using brindle::engine::DrawingColumn;

/// An element that a column of the scene shows.
class ShownElementTest : public ElementTest {
public:
    int element = create("Arm");
    EM_DrawingId one = draw(element, "1");
    EM_DrawingId two = draw(element, "2");
    DrawingColumn& column = added();

    DrawingColumn& added()
    {
        auto* made = new DrawingColumn(QStringLiteral("Drawing"));
        run(new SC_SceneCmds::AddTimedValueCmd(scene().sceneCommon(), made, -1, -1));
        run(new tu_timedvalue::element::SetElementIdCmd(made, element));
        auto commands = std::make_unique<CO_AndCommand>();
        made->createSetValueCmd(nullptr, 5, {"1"}, 0, *commands);
        run(commands.release());
        return *made;
    }
    bool remove(bool withFiles) { return run(RemoveElementsCmd::BuildCmd(&elements(), {element}, withFiles, 0)); }
};

} // namespace

TEST_F(ShownElementTest, WhatAColumnShowsIsLinkedAndUsed)
{
    EXPECT_TRUE(elements().elementIsLinkedToTimedValue(element));
    EXPECT_TRUE(info(element).isDrawingUsed(one));
    EXPECT_FALSE(info(element).isDrawingUsed(two));
    EXPECT_FALSE(elements().elementIsLinkedToTimedValue(create("Leg")));
    EXPECT_FALSE(elements().elementIsLinkedToTimedValue(99));
}

TEST_F(ShownElementTest, AnElementThatAColumnShowsStays)
{
    const int leg = create("Leg");
    std::set<int> deletable;
    MSG_Text reasons;
    EXPECT_FALSE(elements().canDeleteElements({element, leg, 99}, deletable, reasons));
    EXPECT_EQ(deletable, std::set<int>({leg}));
    EXPECT_EQ(reasons.getText(), "Element \"Arm\" is shown by column \"Drawing\" of scene \"Scene-1\".\n"
                                 "There is no element of the id 99.");
    EXPECT_FALSE(remove(true));
    EXPECT_FALSE(remove(false));
    ASSERT_TRUE(run(new tu_timedvalue::element::SetElementIdCmd(&column, leg)));
    EXPECT_TRUE(remove(true));
}

TEST_F(ShownElementTest, CellsFollowADrawingThatIsRenamed)
{
    ASSERT_TRUE(run(new RenameDrawingCmd(&elements(), element, one, "first")));
    EXPECT_EQ(column.getTiming(5), "first");
    undo();
    EXPECT_EQ(column.getTiming(5), "1");
    redo();
    EXPECT_EQ(column.getTiming(5), "first");
    EXPECT_TRUE(info(element).isDrawingUsed(one));
}

TEST_F(ShownElementTest, CellsGoOnNamingADrawingThatIsRemoved)
{
    ASSERT_TRUE(run(new EM_Commands::DeleteDrawingCmd(&elements(), element, one)));
    EXPECT_EQ(column.getTiming(5), "1");
    undo();
    EXPECT_TRUE(info(element).isDrawingUsed(one));
}
