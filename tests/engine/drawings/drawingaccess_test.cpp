#include "tests/engine/drawings/drawingtest.h"

#include <algorithm>
#include <limits>

namespace {

using namespace brindle::engine;

class DrawingAccessTest : public DrawingTest {
public:
    DrawingAccessTest() { access.SetDrawing(&art()); }

    UT_Node* layer(GR_Layer::LayerType type = GR_Layer::kPen) { return access.CreateLayerAbove(type, nullptr); }
    std::vector<quint32> layerIds()
    {
        std::vector<quint32> ids;
        for (const UT_Node* leaf : leavesOf(art()))
            ids.push_back(leaf->id());
        return ids;
    }
    static std::vector<quint32> strokeIds(UT_Node* leaf)
    {
        std::vector<quint32> ids;
        for (auto stroke = strokesOf(leaf).GetStrokeBegin(); stroke != strokesOf(leaf).GetStrokeEnd(); ++stroke)
            ids.push_back((*stroke)->id());
        return ids;
    }

    GR_DrawingAccess access;
};

/// Collects what it is told of leaves.
class Told final : public GR_DrawingAccessListener {
public:
    void nodeCreated(UT_Node* node) override { lines.push_back("+" + std::to_string(node->id())); }
    void nodeAboutToBeRemoved(UT_Node* node) override { lines.push_back("-" + std::to_string(node->id())); }
    void drawingAboutToChange() override { lines.push_back("changes"); }
    std::vector<std::string> lines;
};

using Ids = std::vector<quint32>;

} // namespace

TEST_F(DrawingAccessTest, LayersStandWhereTheyArePut)
{
    UT_Node* first = layer();
    UT_Node* top = layer();
    UT_Node* under = access.CreateLayerUnder(GR_Layer::kBrush, top);
    access.CreateLayerUnder(GR_Layer::kPaint, nullptr);
    access.CreateLayerAbove(GR_Layer::kStroke, first);
    access.CreateLayerNodeAt(GR_Layer::kStroke, 5);
    EXPECT_EQ(layerIds(), Ids({4, 1, 5, 3, 2, 6}));
    EXPECT_EQ(strokesOf(under).GetType(), GR_Layer::kBrush);
    EXPECT_THROW(access.CreateLayerNodeAt(GR_Layer::kStroke, 7), std::invalid_argument);
    EXPECT_THROW(access.CreateLayerAbove(static_cast<GR_Layer::LayerType>(55), nullptr), std::invalid_argument);
    EXPECT_EQ(layerIds().size(), 6u);
}

TEST_F(DrawingAccessTest, AnIdIsNeverGivenTwice)
{
    access.Erase(layer());
    UT_Node* second = layer();
    EXPECT_EQ(second->id(), 2u);
    access.Erase(access.Insert(straightStroke({0, 0}, {1, 0}), second));
    EXPECT_EQ(access.Insert(straightStroke({0, 0}, {1, 0}), second)->id(), 2u);
    const DrawingPointer before = drawing().value();
    access.Insert(straightStroke({0, 0}, {1, 0}), second);
    drawing().setValue(before);
    EXPECT_EQ(access.Insert(straightStroke({0, 0}, {1, 0}), leavesOf(art()).front())->id(), 4u);
}

TEST_F(DrawingAccessTest, ALeafIsTheSameOneWhenItsLayerComesBack)
{
    UT_Node* leaf = layer();
    access.Insert(straightStroke({0, 0}, {1, 0}), leaf);
    const DrawingPointer there = drawing().value();
    access.Erase(leaf);
    EXPECT_EQ(leaf->GetNextLeaf(), nullptr);
    EXPECT_EQ(strokeIds(leaf), Ids{1}) << "it shows what it held";
    EXPECT_THROW(access.Erase(strokeAt(leaf, 0)), std::invalid_argument);
    EXPECT_THROW(access.Insert(straightStroke({0, 0}, {1, 0}), leaf), std::invalid_argument);
    drawing().setValue(there);
    EXPECT_EQ(leavesOf(art()), std::vector<UT_Node*>{leaf});
    EXPECT_EQ(strokeIds(leaf), Ids{1});
}

TEST_F(DrawingAccessTest, LayersMoveWithinTheDrawingAndKeepTheirIds)
{
    UT_Node* first = layer();
    UT_Node* second = layer();
    UT_Node* third = layer();
    access.Move(first, second);
    EXPECT_EQ(layerIds(), Ids({2, 1, 3}));
    access.Move(third, second);
    EXPECT_EQ(layerIds(), Ids({2, 3, 1}));
    access.Move(second, nullptr);
    EXPECT_EQ(layerIds(), Ids({3, 1, 2}));
    const int revision = art().GetRevision();
    access.Move(second, second);
    access.Move(second, first);
    EXPECT_EQ(art().GetRevision(), revision) << "where it is already, nothing changes";

    GR_DrawingAccess other;
    LiveArt& colours = drawing().art(GR_CompositeVectorDrawingObj::kColour);
    other.SetDrawing(&colours);
    other.Move(first, nullptr);
    EXPECT_EQ(layerIds(), Ids({3, 2}));
    EXPECT_EQ(leavesOf(colours), std::vector<UT_Node*>{first});
    EXPECT_TRUE(GR_DrawingAccess::LayerLess(first, third));
    EXPECT_FALSE(GR_DrawingAccess::LayerLess(second, third));
}

TEST_F(DrawingAccessTest, MergingPutsAllStrokesInTheLowestLayer)
{
    UT_Node* first = layer();
    UT_Node* second = layer();
    UT_Node* third = layer();
    for (UT_Node* leaf : {third, first, second})
        access.Insert(straightStroke({0, 0}, {1, 1}), leaf);
    EXPECT_EQ(access.Merge({third, second, third}), second);
    EXPECT_EQ(layerIds(), Ids({1, 2}));
    EXPECT_EQ(strokeIds(second), Ids({3, 1}));
    EXPECT_EQ(access.Merge({}), nullptr);
    EXPECT_THROW(access.Merge({first, layer(GR_Layer::kText)}), std::invalid_argument);
}

TEST_F(DrawingAccessTest, CopiesOfALayerHaveIdsOfTheirOwn)
{
    UT_Node* leaf = layer(GR_Layer::kBrush);
    access.Insert(straightStroke({0, 0}, {1, 0}), leaf);
    UT_Node* copy = access.PasteNodeAt(leaf, 0);
    EXPECT_EQ(layerIds(), Ids({2, 1}));
    EXPECT_EQ(strokeIds(copy), Ids{2});
    EXPECT_EQ(strokesOf(copy).GetType(), GR_Layer::kBrush);
    access.Copy(leaf, copy);
    EXPECT_EQ(strokeIds(copy), Ids({2, 3}));
    EXPECT_THROW(access.Copy(leaf, layer(GR_Layer::kBitmap)), std::invalid_argument);
}

TEST_F(DrawingAccessTest, APastedArtLayerGoesThroughTheMatrix)
{
    UT_Node* leaf = layer();
    GR_StrokeData data = straightStroke({1, 2}, {3, 2});
    data.SetColor(GR_Color::CreateWith(CM_ColorId_t(7), Math::Matrix2x3().Translate({1, 0})), 1);
    data.SetLineStyle(GR_LineStyle(GR_LineStyle::kThick, CM_ColorId_t(3), 4));
    data.CopyThicknessBinder(GR_ThicknessBinder(widthPath(5)));
    access.Insert(data, leaf);
    access.Paste(art(), Math::Matrix2x3().Scale({-2, 2}));
    ASSERT_EQ(leavesOf(art()).size(), 2u);
    const GR_StrokeData& copy = strokeAt(leavesOf(art())[1], 0)->GetStrokeData();
    EXPECT_EQ(copy.GetPath().GetFromPoint(), (Math::Point2d{-2, 4}));
    EXPECT_EQ(copy.GetColor(1), nullptr) << "a mirror exchanges left and right";
    ASSERT_TRUE(copy.GetColor(0));
    EXPECT_EQ(copy.GetColor(0)->GetMatrix(), Math::Matrix2x3({-2, 0}, {0, 2}, {-2, 0}));
    EXPECT_EQ(copy.GetLineStyle().GetThickness(), 8);
    EXPECT_EQ(copy.GetThicknessBinder().maxThickness(), 10);
    EXPECT_EQ(strokeAt(leaf, 0)->GetStrokeData().GetThicknessBinder().maxThickness(), 5);
}

TEST_F(DrawingAccessTest, ListenersAreToldOfLeavesAndOfTheFirstChange)
{
    Told told;
    access.AddListener(&told);
    access.AddListener(&told);
    UT_Node* leaf = layer();
    access.Insert(straightStroke({0, 0}, {1, 0}), leaf);
    access.PasteNodeAt(leaf, 0);
    access.Clear();
    EXPECT_EQ(told.lines, (std::vector<std::string>{"changes", "+1", "+2", "-1", "-2"}));
    access.RemoveListener(&told);
    layer();
    EXPECT_EQ(told.lines.size(), 5u);
}

TEST_F(DrawingAccessTest, WhatIsNotThereIsRefusedAndChangesNothing)
{
    UT_Node* leaf = layer();
    UT_Node* text = layer(GR_Layer::kText);
    access.Insert(straightStroke({0, 0}, {1, 0}), leaf);
    ASSERT_TRUE(addDrawing("2"));
    GR_DrawingAccess other;
    other.SetDrawing(&drawing("2").art(0));
    UT_Node* foreign = other.CreateLayerAbove(GR_Layer::kPen, nullptr);
    GR_VectorStroke* foreignStroke = other.Insert(straightStroke({0, 0}, {1, 0}), foreign);

    const QByteArray before = bytes();
    EXPECT_THROW(access.Insert(straightStroke({0, 0}, {1, 0}), nullptr), std::invalid_argument);
    EXPECT_THROW(access.Insert(straightStroke({0, 0}, {1, 0}), text), std::invalid_argument);
    EXPECT_THROW(access.Insert(straightStroke({0, 0}, {1, 0}), foreign), std::invalid_argument);
    EXPECT_THROW(access.Insert(GR_StrokeData(), leaf), std::invalid_argument);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THROW(access.Insert(straightStroke({0, 0}, {nan, 0}), leaf), std::invalid_argument);
    EXPECT_THROW(access.Insert(std::vector{straightStroke({0, 0}, {1, 0}), GR_StrokeData()}, leaf),
                 std::invalid_argument);
    EXPECT_THROW(access.Erase(foreign), std::invalid_argument);
    EXPECT_THROW(access.Erase(foreignStroke), std::invalid_argument);
    EXPECT_THROW(access.Move(foreignStroke, leaf), std::invalid_argument);
    EXPECT_THROW(access.SetColor(foreignStroke, nullptr, 0), std::invalid_argument);
    EXPECT_THROW(access.SetColor(static_cast<GR_Contour*>(nullptr), nullptr, false), std::invalid_argument);
    EXPECT_THROW(access.SetText(leaf, {}), std::invalid_argument);
    EXPECT_THROW(access.SetBitmap(text, {}), std::invalid_argument);
    EXPECT_THROW(access.setTipTangent(strokeAt(leaf, 0), GR_StrokeSide::Left, GR_StrokeEnd::From, nan),
                 std::invalid_argument);
    EXPECT_THROW(GR_DrawingAccess().Clear(), std::invalid_argument);
    EXPECT_EQ(bytes(), before);
    EXPECT_EQ(access.Copy(foreignStroke, leaf)->id(), 2u) << "copies may come from anywhere";
}

TEST_F(DrawingAccessTest, TextsAndPicturesAreValues)
{
    UT_Node* text = layer(GR_Layer::kText);
    UT_Node* picture = layer(GR_Layer::kBitmap);
    GR_TextLayer::Data words;
    words.text = "Hello";
    words.selectionTo = 5;
    access.SetText(text, words);
    EXPECT_EQ(dynamic_cast<GR_TextNode*>(text)->GetLayer()->GetData(), words);
    words.selectionTo = 6;
    EXPECT_THROW(access.SetText(text, words), std::invalid_argument);

    GR_BitmapLayer::Data pixels{2, 1, QByteArray(8, '\x7f'), Math::Matrix2x3().Scale({10, 10})};
    access.SetBitmap(picture, pixels);
    const GR_BitmapLayer& shown = *dynamic_cast<GR_BitmapNode*>(picture)->GetLayer();
    EXPECT_EQ(shown.GetData(), pixels);
    EXPECT_EQ(shown.modelBox(), Math::Box2d({0, 0}, {20, 10}));
    pixels.width = 3;
    EXPECT_THROW(access.SetBitmap(picture, pixels), std::invalid_argument);
    EXPECT_FALSE(art().IsEmpty());
}

TEST_F(DrawingAccessTest, LayersWithoutContentDontCount)
{
    layer();
    layer(GR_Layer::kText);
    layer(GR_Layer::kBitmap);
    EXPECT_TRUE(art().IsEmpty());
    EXPECT_TRUE(drawing().IsEmpty());
    access.Insert(straightStroke({0, 0}, {1, 0}), leavesOf(art()).front());
    EXPECT_FALSE(drawing().IsEmpty());
}

TEST_F(DrawingAccessTest, ADrawingOfNoElementIsEditedTheSameWay)
{
    const auto scratch = GR_CompositeVectorDrawingObj::Create(nullptr);
    GR_DrawingAccess own;
    own.SetDrawing(dynamic_cast<GR_VectorDrawingObj*>(scratch->GetArt(2)));
    access.Insert(straightStroke({0, 0}, {1, 0}), layer());
    own.Paste(art(), Math::Matrix2x3().Translate({5, 0}));
    EXPECT_EQ(scratch->GetWorldBBox(), Math::Box2d({5, 0}, {6, 0}));
    EXPECT_FALSE(scratch->IsGone());
    EXPECT_FALSE(scratch->IsDrawingModified());
    EXPECT_NE(own.GetColorDict(), nullptr);
}

TEST_F(DrawingAccessTest, AnArtLayerOutlivesItsDrawingAndIsEmptyThen)
{
    auto scratch = GR_CompositeVectorDrawingObj::Create(nullptr);
    const QExplicitlySharedDataPointer<GR_DrawingBase> base(scratch->GetArt(2));
    auto* held = dynamic_cast<GR_VectorDrawingObj*>(base.data());
    GR_DrawingAccess own;
    own.SetDrawing(held);
    own.CreateLayerAbove(GR_Layer::kPen, nullptr);
    const int revision = held->GetRevision();
    scratch.reset();
    EXPECT_EQ(held->GetComposite(), nullptr);
    EXPECT_GT(held->GetRevision(), revision);
    EXPECT_EQ(held->GetRootnode()->GetNextLeaf(), nullptr);
    EXPECT_TRUE(held->IsEmpty());
    EXPECT_THROW(own.CreateLayerAbove(GR_Layer::kPen, nullptr), std::invalid_argument);
    EXPECT_EQ(own.GetColorDict(), nullptr);
}
