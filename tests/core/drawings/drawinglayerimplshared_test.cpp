#include "core/drawings/drawinglayerimplshared.h"

#include "core/drawings/drawinglayer.h"
#include "tests/core/support/scratchdrawings.h"

#include <memory>

using namespace OMC;

namespace {

class DrawingLayerRecord : public DrawingTest {
public:
    DrawingLayerRecord()
    {
        addLayer();
        addLayer();
        access().vectorEnd(true);
    }

    DrawingLayerImplShared::Pointer record(std::size_t index = 0) const
    {
        return DrawingLayerImplShared::of(art(), leaves()[index], key());
    }
};

} // namespace

TEST_F(DrawingLayerRecord, IsOneForALeafAsLongAsSomebodyHoldsIt)
{
    const auto first = record();
    EXPECT_EQ(record(), first);
    EXPECT_NE(record(1), first);
    EXPECT_EQ(DrawingLayerImplShared::allOf(art()).size(), 1u);
    EXPECT_EQ(first->getLayer(), leaves()[0]);
    EXPECT_EQ(first->layerId(), leaves()[0]->id());
    EXPECT_EQ(first->drawing(), art());
    EXPECT_EQ(first->revision(), art()->GetRevision());
}

TEST_F(DrawingLayerRecord, OfNothingIsInvalid)
{
    for (const auto& nothing :
         {DrawingLayerImplShared::of(nullptr, leaves()[0], key()), DrawingLayerImplShared::of(art(), nullptr, key())}) {
        EXPECT_EQ(failureOf([&] { nothing->update(); }), objectGone);
        EXPECT_EQ(nothing->drawing(), nullptr);
        EXPECT_EQ(nothing->revision(), -1);
    }
}

TEST_F(DrawingLayerRecord, InvalidatesAllWrappersForGood)
{
    const std::unique_ptr<DrawingLayer> wrapper(DrawingLayer::getWrapped(art(), leaves()[0], key()));
    const std::unique_ptr<DrawingLayer> copy(wrapper->copy());
    wrapper->record()->invalidate();
    EXPECT_EQ(failureOf([&] { wrapper->getType(); }), objectGone);
    EXPECT_EQ(failureOf([&] { copy->getType(); }), objectGone);
    const std::unique_ptr<DrawingLayer> later(DrawingLayer::getWrapped(art(), leaves()[0], key()));
    EXPECT_EQ(later->getType(), "Vector");
    EXPECT_EQ(failureOf([&] { wrapper->getType(); }), objectGone);
    EXPECT_FALSE(*wrapper == later.get());
}

TEST_F(DrawingLayerRecord, IsGoneWithItsLeafAlsoWhenTheLeafComesBack)
{
    const auto gone = record(0);
    const auto kept = record(1);
    UT_Node* leaf = leaves()[0];
    GR_DrawingAccess other;
    other.SetDrawing(art());
    other.Erase(leaf);
    EXPECT_EQ(failureOf([&] { gone->update(); }), objectGone);
    EXPECT_EQ(failureOf([&] { kept->update(); }), passes);
    EXPECT_EQ(failureOf([&] { gone->update(); }), objectGone);
}

TEST_F(DrawingLayerRecord, IsGoneWithItsDrawing)
{
    const auto layer = record();
    const Drawing whole(drawing.data(), CA_CelKey());
    const DrawingVectorArtLayer arts = wrapper();
    EXPECT_EQ(failureOf([&] { whole.size(); }), passes);
    drawing.reset();
    EXPECT_EQ(failureOf([&] { whole.size(); }), objectGone) << "it was the last one that held the drawing";
    EXPECT_EQ(failureOf([&] { layer->update(); }), objectGone);
    EXPECT_EQ(failureOf([&] { arts.size(); }), objectGone);
    drawing = GR_CompositeVectorDrawingObj::Create(&colours);
}

TEST_F(DrawingLayerRecord, OutlivesUndoOfOtherSteps)
{
    const auto layer = record();
    addLayer();
    access().vectorEnd(true);
    undo();
    EXPECT_EQ(failureOf([&] { layer->update(); }), passes);
    undo();
    EXPECT_EQ(failureOf([&] { layer->update(); }), objectGone);
}
