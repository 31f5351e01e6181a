#include "tests/engine/drawings/randomdrawingedits.h"

#include "engine/drawings/drawingfile.h"

namespace {

using namespace brindle::engine;

/// What scripts read of a layer, asked for at any time, must be as if it were computed now.
void expectFresh(const LiveDrawing& drawing)
{
    const auto fresh = GR_CompositeVectorDrawingObj::Create(nullptr);
    liveDrawing(fresh.data())->setValue(drawing.value());
    for (int index = 0; index < GR_CompositeVectorDrawingObj::kArtCount; ++index) {
        const auto& shown = drawing.art(static_cast<std::size_t>(index)).leaves();
        const auto& made = liveDrawing(fresh.data())->art(static_cast<std::size_t>(index)).leaves();
        ASSERT_EQ(shown.size(), made.size());
        for (std::size_t place = 0; place < shown.size(); ++place) {
            EXPECT_EQ(shown[place]->layerId(), made[place]->layerId());
            EXPECT_EQ(shown[place]->place(), place);
            const LiveLayer* layer = shown[place]->strokes();
            const LiveLayer* other = made[place]->strokes();
            ASSERT_EQ(layer != nullptr, other != nullptr);
            if (!layer)
                continue;
            EXPECT_EQ(layer->map().contourCount(), other->map().contourCount());
            EXPECT_EQ(layer->map().jointCount(), other->map().jointCount());
            EXPECT_EQ(layer->GetBox(), other->GetBox());
            EXPECT_EQ(layer->GetVisibleBox(), other->GetVisibleBox());
            for (auto stroke = layer->GetStrokeBegin(); stroke != layer->GetStrokeEnd(); ++stroke)
                EXPECT_EQ(layer->FindStroke((*stroke)->id()), *stroke);
        }
    }
}

class RandomDrawings : public DrawingTest, public testing::WithParamInterface<unsigned int> {};

} // namespace

TEST_P(RandomDrawings, AreTheSameBytesAfterUndoAndRedo)
{
    RandomDrawingEdits edits(GetParam());
    std::vector<QByteArray> states{bytes()};
    const int before = manager().executedHistorySize();
    for (int session = 0; session < 40; ++session) {
        const bool differs = edit([&edits](GR_DrawingAccess& access) {
            for (unsigned int count = 1 + edits.pick(6); count > 0; --count)
                edits.edit(access);
        });
        ASSERT_EQ(differs, bytes() != states.back()) << session;
        if (differs)
            states.push_back(bytes());
        if (session % 8 == 0)
            expectFresh(drawing());
        // Some undos and redos in between.
        const unsigned int steps = edits.pick(3);
        undo(steps);
        redo(steps);
        ASSERT_EQ(bytes(), states.back());
        ASSERT_EQ(drawingFileBytes(*readDrawingFile("1", bytes())), bytes());
    }
    const auto steps = static_cast<int>(states.size()) - 1;
    ASSERT_EQ(manager().executedHistorySize(), before + steps);
    ASSERT_GT(steps, 10);
    for (int step = steps; step > 0; --step) {
        undo();
        ASSERT_EQ(bytes(), states[static_cast<std::size_t>(step - 1)]);
    }
    for (int step = 1; step <= steps; ++step) {
        redo();
        ASSERT_EQ(bytes(), states[static_cast<std::size_t>(step)]);
    }
    expectFresh(drawing());
}

INSTANTIATE_TEST_SUITE_P(Programs, RandomDrawings, testing::Range(0u, 12u));
