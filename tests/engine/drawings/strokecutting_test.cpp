#include "tests/engine/drawings/drawingtest.h"

#include <algorithm>

namespace {

using namespace brindle::engine;

class StrokeCuttingTest : public DrawingTest {
public:
    /// A layer with a line along y = 0 and one across it at x = 3, and a line on its own.
    void drawCross()
    {
        ASSERT_TRUE(edit([this](GR_DrawingAccess& access) {
            layer = access.CreateLayerAbove(GR_Layer::kPen, nullptr);
            GR_StrokeData along = straightStroke({0, 0}, {10, 0});
            along.SetColor(colourOf(1), 0);
            along.SetColor(colourOf(2), 1);
            along.CopyThicknessBinder(GR_ThicknessBinder(widthPath(2)));
            access.Insert(along, layer);
            access.Insert(straightStroke({3, -5}, {3, 5}), layer);
            access.Insert(straightStroke({0, 20}, {10, 20}), layer);
        }));
    }
    std::vector<quint32> ids()
    {
        std::vector<quint32> found;
        std::for_each(strokesOf(layer).GetStrokeBegin(), strokesOf(layer).GetStrokeEnd(),
                      [&found](const GR_VectorStroke* stroke) { found.push_back(stroke->id()); });
        return found;
    }

    UT_Node* layer = nullptr;
};

} // namespace

TEST_F(StrokeCuttingTest, PiecesHaveWhatTheirStrokeHad)
{
    drawCross();
    int cuts = 0;
    ASSERT_TRUE(edit([&](GR_DrawingAccess& access) { cuts = access.Cut(layer); }));
    EXPECT_EQ(cuts, 2);
    EXPECT_EQ(ids(), (std::vector<quint32>{1, 4, 2, 5, 3}));
    const GR_StrokeData& first = strokeAt(layer, 0)->GetStrokeData();
    const GR_StrokeData& second = strokeAt(layer, 1)->GetStrokeData();
    EXPECT_LT((first.GetPath().GetToPoint() - Math::Point2d{3, 0}).length(), 1e-12);
    EXPECT_EQ(second.GetPath().GetFromPoint(), first.GetPath().GetToPoint());
    EXPECT_EQ(*second.GetColor(0), *colourOf(1));
    EXPECT_EQ(*second.GetColor(1), *colourOf(2));
    EXPECT_TRUE(first.GetThicknessBinder().isSharing(second.GetThicknessBinder()));
    EXPECT_NEAR(first.GetThicknessBinder().stopPosition, 0.3, 1e-9);
    EXPECT_EQ(second.GetThicknessBinder().startPosition, first.GetThicknessBinder().stopPosition);
    EXPECT_EQ(second.GetThicknessBinder().stopPosition, 1);
    EXPECT_FALSE(first.isCut(GR_StrokeEnd::From));
    EXPECT_TRUE(first.isCut(GR_StrokeEnd::To) && second.isCut(GR_StrokeEnd::From));
    EXPECT_EQ(first.tipType(GR_StrokeEnd::From), kRoundTip);
    EXPECT_EQ(first.tipType(GR_StrokeEnd::To), kFlatTip);
    EXPECT_FALSE(second.isCut(GR_StrokeEnd::To));
    EXPECT_EQ(strokeAt(layer, 0)->Head().GetDegree(), 4);
}

TEST_F(StrokeCuttingTest, ACutIsUndoneAndRedoneToTheLastByte)
{
    drawCross();
    const QByteArray before = bytes();
    ASSERT_TRUE(edit([this](GR_DrawingAccess& access) { access.Cut(layer); }));
    const QByteArray after = bytes();
    EXPECT_NE(after, before);
    EXPECT_EQ(strokeAt(layer, 0)->Head().GetDegree(), 4);
    undo();
    EXPECT_EQ(bytes(), before);
    EXPECT_EQ(strokeAt(layer, 0)->Head().GetDegree(), 1);
    redo();
    EXPECT_EQ(bytes(), after);
}

TEST_F(StrokeCuttingTest, NothingToCutIsNoChange)
{
    drawCross();
    ASSERT_TRUE(edit([this](GR_DrawingAccess& access) { access.Cut(layer); }));
    const int revision = art().GetRevision();
    EXPECT_FALSE(edit([this](GR_DrawingAccess& access) { EXPECT_EQ(access.Cut(layer), 0); }));
    EXPECT_EQ(art().GetRevision(), revision);
}

TEST_F(StrokeCuttingTest, CuttingMakesAreasThatCanBePainted)
{
    ASSERT_TRUE(edit([this](GR_DrawingAccess& access) {
        layer = access.CreateLayerAbove(GR_Layer::kPen, nullptr);
        access.Insert(straightStroke({-1, 0}, {11, 0}), layer);
        access.Insert(straightStroke({10, -1}, {10, 11}), layer);
        access.Insert(straightStroke({11, 10}, {-1, 10}), layer);
        access.Insert(straightStroke({0, 11}, {0, -1}), layer);
    }));
    EXPECT_TRUE(art().FindContainingContours({5, 5}).empty());
    ASSERT_TRUE(edit([this](GR_DrawingAccess& access) {
        EXPECT_EQ(access.Cut(layer), 8);
        const auto around = art().FindContainingContours({5, 5});
        ASSERT_EQ(around.size(), 1u);
        access.SetColor(around.front(), colourOf(7), false);
    }));
    const auto around = art().FindContainingContours({5, 5});
    ASSERT_EQ(around.size(), 1u);
    EXPECT_EQ(*around.front()->GetInsideColor(), *colourOf(7));
    EXPECT_NEAR(around.front()->GetBox().minX(), 0, 1e-12);
    EXPECT_NEAR(around.front()->GetBox().maxY(), 10, 1e-12);
}
