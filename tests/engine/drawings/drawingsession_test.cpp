#include "tests/engine/drawings/drawingtest.h"

namespace {

using namespace brindle::engine;

class DrawingSessionTest : public DrawingTest {
public:
    static void addStroke(GR_DrawingAccess& access)
    {
        UT_Node* layer = access.CreateLayerAbove(GR_Layer::kPen, nullptr);
        access.Insert(straightStroke({0, 0}, {1, 0}), layer);
    }
    bool addStroke()
    {
        return edit([](GR_DrawingAccess& access) { addStroke(access); });
    }
    std::size_t layerCount() { return leavesOf(art()).size(); }
};

} // namespace

TEST_F(DrawingSessionTest, ASessionIsOneStep)
{
    const QByteArray blank = bytes();
    ASSERT_TRUE(addStroke());
    const QByteArray once = bytes();
    ASSERT_TRUE(addStroke());
    const QByteArray twice = bytes();
    EXPECT_NE(blank, once);
    EXPECT_NE(once, twice);

    int revision = art().GetRevision();
    undo();
    EXPECT_EQ(bytes(), once);
    EXPECT_GT(art().GetRevision(), revision);
    revision = art().GetRevision();
    undo();
    EXPECT_EQ(bytes(), blank);
    EXPECT_GT(art().GetRevision(), revision);
    redo(2);
    EXPECT_EQ(bytes(), twice);
}

TEST_F(DrawingSessionTest, WhatCameAndWentLeavesNoStep)
{
    ASSERT_TRUE(addStroke());
    const ContentPointer content = drawing().content();
    EXPECT_FALSE(edit([](GR_DrawingAccess&) {}));
    EXPECT_FALSE(edit([this](GR_DrawingAccess& access) {
        UT_Node* layer = leavesOf(art()).front();
        access.Erase(access.Insert(straightStroke({5, 5}, {6, 6}), layer));
        access.SetColor(strokeAt(layer, 0), colourOf(4), 1);
        access.SetColor(strokeAt(layer, 0), nullptr, 1);
    }));
    EXPECT_EQ(drawing().content(), content) << "the file is the one that it was";
}

TEST_F(DrawingSessionTest, AnUndoGivesALayerItsLeafAndItsIdsAgain)
{
    ASSERT_TRUE(addStroke());
    UT_Node* leaf = leavesOf(art()).front();
    ASSERT_TRUE(edit([&](GR_DrawingAccess& access) { access.Erase(leaf); }));
    EXPECT_EQ(strokesOf(leaf).GetStrokeBegin(), strokesOf(leaf).GetStrokeEnd()) << "the session has ended";
    undo();
    EXPECT_EQ(leavesOf(art()), std::vector<UT_Node*>{leaf});
    EXPECT_EQ(strokeAt(leaf, 0)->id(), 1u);
}

TEST_F(DrawingSessionTest, WhileASessionIsOpenItsDrawingIsNotUndone)
{
    ASSERT_TRUE(addStroke());
    {
        EditSession session(&art());
        undo();
        EXPECT_EQ(layerCount(), 1u);
        EXPECT_EQ(manager().executedHistorySize(), 3);
        EXPECT_FALSE(run(new EM_Commands::DeleteDrawingCmd(&elements(), element, key().drawingId())));
        EXPECT_FALSE(run(RemoveElementsCmd::BuildCmd(&elements(), {element}, true, 0)));
        EXPECT_FALSE(run(new SetDrawingContentCmd(&elements(), key(), bytes())));
        addStroke(session.access);
        EXPECT_TRUE(run(new RenameDrawingCmd(&elements(), element, key().drawingId(), "one")));
        undo();
        ASSERT_TRUE(session.end(manager()));
    }
    EXPECT_EQ(layerCount(), 2u);
    undo();
    EXPECT_EQ(layerCount(), 1u);
    EXPECT_TRUE(run(new EM_Commands::DeleteDrawingCmd(&elements(), element, key().drawingId())));
}

TEST_F(DrawingSessionTest, ASessionThatIsDroppedKeepsNothingBack)
{
    {
        EditSession session(&art());
        EXPECT_TRUE(drawing().isUnderEdit());
    }
    EXPECT_FALSE(drawing().isUnderEdit());
    EXPECT_TRUE(run(new EM_Commands::DeleteDrawingCmd(&elements(), element, key().drawingId())));
}

TEST_F(DrawingSessionTest, StepsOfARemovedDrawingAreUndoneWithIt)
{
    ASSERT_TRUE(addStroke());
    const LiveDrawingPointer held(&drawing());
    EXPECT_FALSE(held->IsGone());
    ASSERT_TRUE(run(new EM_Commands::DeleteDrawingCmd(&elements(), element, key().drawingId())));
    EXPECT_TRUE(held->IsGone());
    undo();
    EXPECT_FALSE(held->IsGone());
    EXPECT_EQ(&drawing(), held.data());
    undo();
    EXPECT_EQ(layerCount(), 0u);
    redo(2);
    EXPECT_TRUE(held->IsGone());
    ASSERT_TRUE(run(RemoveElementsCmd::BuildCmd(&elements(), {element}, true, 0)));
    undo(2);
    EXPECT_FALSE(held->IsGone());
}

TEST_F(DrawingSessionTest, AnOpenSessionOutlivesItsProject)
{
    EditSession session(&art());
    const LiveDrawingPointer held(&drawing());
    addStroke(session.access);
    close();
    EXPECT_TRUE(held->IsGone());
    EXPECT_THROW(addStroke(session.access), std::invalid_argument);
    const std::unique_ptr<DT_Command> step(session.release());
    ASSERT_TRUE(step);
    EXPECT_NE(step->unexecute(), CO_Command::kFail);
}

TEST_F(DrawingSessionTest, AStepOutlivesItsDrawing)
{
    auto scratch = GR_CompositeVectorDrawingObj::Create(nullptr);
    std::unique_ptr<DT_Command> step;
    {
        EditSession session(dynamic_cast<GR_VectorDrawingObj*>(scratch->GetArt(0)));
        addStroke(session.access);
        step.reset(session.release());
    }
    ASSERT_TRUE(step && !step->IsEmpty());
    EXPECT_EQ(step->unexecute(), CO_Command::kOk);
    EXPECT_TRUE(scratch->IsEmpty());
    scratch.reset();
    EXPECT_EQ(step->execute(), CO_Command::kOk);
    EXPECT_EQ(step->unexecute(), CO_Command::kOk);
}

TEST_F(DrawingSessionTest, WhatIsNotedOfTheDrawingIsNoPartOfAStep)
{
    {
        EditSession session(&art());
        addStroke(session.access);
        drawing().GetDrawingInfo()->SetPivotPoint({3, 4});
        drawing().InfoChanged();
        ASSERT_TRUE(session.end(manager()));
    }
    undo();
    EXPECT_EQ(layerCount(), 0u);
    EXPECT_TRUE(drawing().GetDrawingInfo()->IsPivotPointDefined());
    redo();
    EXPECT_EQ(layerCount(), 1u);
    drawing().GetDrawingInfo()->SetPivotPoint({std::nan(""), 0});
    EXPECT_THROW(drawing().InfoChanged(), std::invalid_argument);
    EXPECT_EQ(drawing().GetDrawingInfo()->GetPivotPoint(), (Math::Point2d{3, 4}));
}
