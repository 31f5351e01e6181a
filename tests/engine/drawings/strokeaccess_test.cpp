#include "tests/engine/drawings/drawingtest.h"

namespace {

using namespace brindle::engine;

class StrokeAccessTest : public DrawingTest {
public:
    StrokeAccessTest()
    {
        access.SetDrawing(&art());
        layer = access.CreateLayerAbove(GR_Layer::kPen, nullptr);
    }

    GR_VectorStroke* insert(const Math::Point2d& from, const Math::Point2d& to)
    {
        return access.Insert(straightStroke(from, to), layer);
    }
    /// A square of four strokes that run anticlockwise: the inside is on their left.
    void insertSquare(double size)
    {
        insert({0, 0}, {size, 0});
        insert({size, 0}, {size, size});
        insert({size, size}, {0, size});
        insert({0, size}, {0, 0});
    }
    const GR_StrokeData& data(std::size_t index) { return strokeAt(layer, index)->GetStrokeData(); }
    GR_VectorStroke* find(quint32 id) { return strokesOf(layer).FindStroke(id); }
    const GR_Contour* inside() { return strokeAt(layer, 0)->GetContour(GR_StrokeSide::Left); }

    GR_DrawingAccess access;
    UT_Node* layer;
};

} // namespace

TEST_F(StrokeAccessTest, EndsComeOntoJointsThatAreNear)
{
    insert({0, 0}, {10, 0});
    const GR_VectorStroke* second = insert({10.00005, 0}, {10, 10});
    EXPECT_EQ(second->GetStrokeData().GetPath().GetFromPoint(), (Math::Point2d{10, 0}));
    EXPECT_EQ(second->Tail().GetDegree(), 2);
    EXPECT_EQ(insert({10.01, 0}, {20, 0})->Tail().GetDegree(), 1);
    access.SetBezierPath(strokeAt(layer, 2), straightStroke({10, 0.00009}, {30, 0}).GetPath());
    EXPECT_EQ(strokeAt(layer, 2)->Tail().GetDegree(), 3);
    access.Erase(strokeAt(layer, 0));
    EXPECT_EQ(insert({0.00001, 0}, {5, 5})->GetStrokeData().GetPath().GetFromPoint(), (Math::Point2d{0.00001, 0}))
        << "the joint has gone with its stroke";
}

TEST_F(StrokeAccessTest, StrokesAreFoundByTheirIdsWhateverTheirOrder)
{
    for (int count = 0; count < 5; ++count)
        insert({0, double(count)}, {1, double(count)});
    UT_Node* other = access.CreateLayerAbove(GR_Layer::kPen, nullptr);
    EXPECT_EQ(access.Move(find(2), other)->id(), 2u);
    EXPECT_EQ(find(2), nullptr);
    EXPECT_EQ(access.Move(strokesOf(other).FindStroke(2), layer)->id(), 2u);
    EXPECT_EQ(strokeAt(layer, 4)->id(), 2u);
    insert({0, 9}, {1, 9});
    for (const quint32 id : {1u, 2u, 3u, 4u, 5u, 6u}) {
        ASSERT_NE(find(id), nullptr) << id;
        EXPECT_EQ(find(id)->id(), id);
    }
    access.Erase(find(3));
    EXPECT_EQ(find(3), nullptr);
    EXPECT_EQ(find(2)->id(), 2u);
    access.Erase(find(2));
    EXPECT_EQ(find(6)->id(), 6u);
    EXPECT_EQ(find(7), nullptr);
}

TEST_F(StrokeAccessTest, AColourGoesToTheSidesOfAContour)
{
    insertSquare(10);
    access.SetColor(inside(), colourOf(5), false);
    for (std::size_t index = 0; index < 4; ++index) {
        ASSERT_TRUE(data(index).GetColor(1));
        EXPECT_EQ(data(index).GetColor(1)->GetColorID(), CM_ColorId_t(5));
        EXPECT_EQ(data(index).GetColor(0), nullptr);
    }
    EXPECT_EQ(inside()->GetInsideColor()->GetColorID(), CM_ColorId_t(5));
    access.SetColor(inside(), colourOf(6), true);
    EXPECT_EQ(data(2).GetColor(0)->GetColorID(), CM_ColorId_t(6));
    access.SetColor(inside(), GR_Color::CreateWith(GR_Color::eraserId()), false);
    EXPECT_EQ(data(2).GetColor(1), nullptr);
}

TEST_F(StrokeAccessTest, SidesWithTheEraserColourStayWhereThatIsRespected)
{
    insertSquare(10);
    access.SetColor(strokeAt(layer, 1), GR_Color::CreateWith(GR_Color::eraserId()), 1);
    access.SetRespectSticky(true);
    access.SetColor(inside(), colourOf(5), false);
    EXPECT_EQ(data(0).GetColor(1)->GetColorID(), CM_ColorId_t(5));
    EXPECT_EQ(data(1).GetColor(1)->GetColorID(), GR_Color::eraserId());
    access.SetRespectSticky(false);
    access.SetColor(inside(), colourOf(5), false);
    EXPECT_EQ(data(1).GetColor(1)->GetColorID(), CM_ColorId_t(5));
}

TEST_F(StrokeAccessTest, TheAutomaticColourIsThatOfTheContour)
{
    insertSquare(10);
    access.SetColor(strokeAt(layer, 3), colourOf(8), 1);
    access.SetColor(strokeAt(layer, 0), GR_Color::CreateWith(GR_Color::autoId()), 1);
    EXPECT_EQ(data(0).GetColor(1)->GetColorID(), CM_ColorId_t(8));
    access.SetColor(strokeAt(layer, 0), GR_Color::CreateWith(GR_Color::autoId()), 0);
    EXPECT_EQ(data(0).GetColor(0), nullptr);
    GR_StrokeData diagonal = straightStroke({0, 0}, {5, 5});
    diagonal.SetColor(GR_Color::CreateWith(GR_Color::autoId()), 0);
    EXPECT_EQ(access.Insert(diagonal, layer)->GetStrokeData().GetColor(0)->GetColorID(), CM_ColorId_t(8));
}

TEST_F(StrokeAccessTest, TheSidesOfAJointAreSeenFromIt)
{
    const GR_VectorStroke* stroke = insert({0, 0}, {10, 0});
    access.SetColor(stroke->Tail(), colourOf(1), false);
    EXPECT_EQ(data(0).GetColor(1)->GetColorID(), CM_ColorId_t(1));
    access.SetColor(strokeAt(layer, 0)->Head(), colourOf(2), false);
    EXPECT_EQ(data(0).GetColor(0)->GetColorID(), CM_ColorId_t(2));
    EXPECT_EQ(strokeAt(layer, 0)->Head().GetInsideColor()->GetColorID(), CM_ColorId_t(2));
    EXPECT_EQ(strokeAt(layer, 0)->Head().GetOutsideColor()->GetColorID(), CM_ColorId_t(1));
}

TEST_F(StrokeAccessTest, AWalkAroundAJointMeetsItsStrokesAndContours)
{
    insert({0, 0}, {10, 0});
    insert({0, 0}, {0, 10});
    insert({-10, 0}, {0, 0});
    const GR_Joint joint = strokeAt(layer, 0)->Tail();
    EXPECT_EQ(joint.GetDegree(), 3);
    EXPECT_EQ(joint.Left().GetStrokeAccess().GetStroke()->id(), 2u);
    EXPECT_EQ(joint.Left().Left().GetStrokeAccess().GetStroke()->id(), 3u);
    EXPECT_EQ(joint.Left().Left().GetStrokeAccess().GetExtremity(), GR_StrokeAccess::kHead);
    EXPECT_EQ(joint.Right().GetStrokeAccess().GetStroke()->id(), 3u);
    EXPECT_TRUE(joint == joint.Right());
    EXPECT_FALSE(joint == joint.Opposite());
    EXPECT_EQ(joint.Opposite().GetDegree(), 1);
    EXPECT_TRUE(joint.Opposite().Left() == joint.Opposite());
    EXPECT_EQ(joint.GetContours().size(), 1u) << "lines bound no area";
    EXPECT_EQ(strokesOf(layer).GetJoints().size(), 4u);
    EXPECT_EQ(joint.Right().GetStrokeAccess().GetTangent(), (Math::Vector2d{-1, 0}));
    EXPECT_TRUE(strokeAt(layer, 2)->IsContinuous(*strokeAt(layer, 0)));
    EXPECT_FALSE(strokeAt(layer, 2)->IsContinuous(*strokeAt(layer, 1)));
}

TEST_F(StrokeAccessTest, ADegenerateStrokeIsInNoJointAndNoContour)
{
    const GR_VectorStroke* speck = insert({3, 4}, {3, 4});
    EXPECT_TRUE(speck->IsDegenerate());
    EXPECT_TRUE(speck->Tail().IsEmpty());
    EXPECT_EQ(speck->Tail().GetDegree(), 0);
    EXPECT_EQ(speck->Tail().GetStrokeAccess().GetJointPosition(), (Math::Point2d{3, 4}));
    EXPECT_EQ(speck->GetContour(GR_StrokeSide::Left), nullptr);
    EXPECT_TRUE(strokesOf(layer).GetContours().empty());
}

TEST_F(StrokeAccessTest, TheMapIsKeptWhileColoursChange)
{
    insertSquare(10);
    const GR_Contour* contour = inside();
    access.SetColor(contour, colourOf(5), false);
    EXPECT_EQ(inside(), contour);
    insert({20, 0}, {30, 0});
    EXPECT_EQ(inside()->GetBox(), Math::Box2d({0, 0}, {10, 10}));
}

TEST_F(StrokeAccessTest, ContoursAreNestedAndFoundByPoints)
{
    insertSquare(10);
    insert({4, 4}, {6, 4});
    insert({6, 4}, {5, 6});
    insert({5, 6}, {4, 4});
    const auto around = art().FindContainingContours({5, 4.5});
    ASSERT_EQ(around.size(), 2u);
    EXPECT_EQ(around[0]->TopologicalComparison(around[1]), GR_Contour::kContainedIn);
    EXPECT_EQ(around[1]->TopologicalComparison(around[0]), GR_Contour::kContains);
    EXPECT_TRUE(around[1]->IsTopLevel());
    EXPECT_EQ(around[0]->GetParent(), around[1]);
    EXPECT_EQ(around[1]->GetStrokesInside().size(), 3u);
    EXPECT_EQ(around[1]->id(), 2 * around[1]->GetStroke()->id() + 1);
}

TEST_F(StrokeAccessTest, ASharedThicknessIsDividedByLength)
{
    GR_VectorStroke* first = insert({0, 0}, {10, 0});
    GR_VectorStroke* second = insert({40, 0}, {10, 0});
    access.setSharedThicknessPath({first, second}, widthPath(3));
    const GR_ThicknessBinder& one = data(0).GetThicknessBinder();
    const GR_ThicknessBinder& other = data(1).GetThicknessBinder();
    EXPECT_TRUE(one.isSharing(other));
    EXPECT_DOUBLE_EQ(one.startPosition, 0);
    EXPECT_DOUBLE_EQ(one.stopPosition, 0.25);
    EXPECT_DOUBLE_EQ(other.startPosition, 1) << "it runs against the line";
    EXPECT_DOUBLE_EQ(other.stopPosition, 0.25);
    EXPECT_EQ(strokeAt(layer, 0)->GetStrokesSharingThickness().size(), 2u);
    const auto line = strokeAt(layer, 1)->GetStrokesShared();
    ASSERT_EQ(line.size(), 2u);
    access.Erase(strokeAt(layer, 1));
    EXPECT_EQ(strokeAt(layer, 0)->GetStrokesShared().size(), 1u);
}

TEST_F(StrokeAccessTest, CopiesOfOneCommandShareThicknessAmongThemselves)
{
    access.setSharedThicknessPath({insert({0, 0}, {10, 0}), insert({10, 0}, {20, 0})}, widthPath(3));
    access.BeginOperations(1);
    access.Copy(strokeAt(layer, 0), layer);
    access.Copy(strokeAt(layer, 1), layer);
    access.EndOperations(true);
    EXPECT_TRUE(data(2).GetThicknessBinder().isSharing(data(3).GetThicknessBinder()));
    EXPECT_FALSE(data(2).GetThicknessBinder().isSharing(data(0).GetThicknessBinder()));
    EXPECT_EQ(data(2).GetThicknessBinder(), data(0).GetThicknessBinder());
}

TEST_F(StrokeAccessTest, BoxesTellOfCurvesLinesAndPaint)
{
    insertSquare(10);
    const GR_Layer& strokes = strokesOf(layer);
    EXPECT_EQ(strokes.GetBox(), Math::Box2d({0, 0}, {10, 10}));
    EXPECT_TRUE(strokes.GetVisibleBox().isEmpty());
    access.SetColor(inside(), colourOf(5), false);
    EXPECT_EQ(strokes.GetVisibleBox(), Math::Box2d({0, 0}, {10, 10}));
    EXPECT_TRUE(strokes.GetLineStyleBox().isEmpty());
    access.SetLineStyle(strokeAt(layer, 0), GR_LineStyle(GR_LineStyle::kThick, CM_ColorId_t(1), 4));
    EXPECT_NEAR(strokes.GetLineStyleBox().minY(), -2, 1e-5);
    EXPECT_NEAR(strokes.GetVisibleBox().maxY(), 10, 1e-5);
    EXPECT_EQ(strokes.GetMaxThickness(), 4);
    EXPECT_EQ(drawing().GetMaxThickness(), 4);
    EXPECT_TRUE(inside()->IsOutlineColorUsed());
}

TEST_F(StrokeAccessTest, AnEditThatChangesNothingLeavesTheRevision)
{
    insertSquare(10);
    access.SetColor(inside(), colourOf(5), false);
    const int revision = art().GetRevision();
    access.SetColor(inside(), colourOf(5), false);
    access.SetLineStyle(strokeAt(layer, 0), data(0).GetLineStyle());
    access.Replace(strokeAt(layer, 0), data(0));
    EXPECT_EQ(art().GetRevision(), revision);
    access.setTipType(strokeAt(layer, 0), GR_StrokeEnd::To, kFlatTip);
    EXPECT_GT(art().GetRevision(), revision);
    EXPECT_EQ(strokeAt(layer, 0)->tipType(1), kFlatTip);
}
