#include "core/drawings/drawingvectorstroke.h"

#include "core/drawings/drawingvectorcontourlist.h"
#include "core/drawings/drawingvectorjointlist.h"
#include "core/drawings/drawingvectorstrokelist.h"
#include "tests/core/support/artlayer.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/properties.h"

#include <gtest/gtest.h>

namespace {

using OMC::DrawingVectorContour;
using OMC::DrawingVectorContourList;
using OMC::DrawingVectorJoint;
using OMC::DrawingVectorJointList;
using OMC::DrawingVectorStroke;
using OMC::DrawingVectorStrokeList;
using OMC::Obj;
using OMC::objectIn;

class DrawingVectorStrokeTest : public ArtLayerTest {};

TEST_F(DrawingVectorStrokeTest, PropertiesAreWordForWord)
{
    const QMetaObject& base = OMC::BaseObject::staticMetaObject;
    expectProperties(DrawingVectorStroke::staticMetaObject, base,
                     {{"bezier_path", "QVariant", true},
                      {"bounding_box", "QVariant", false},
                      {"bounding_box_visible", "QVariant", false},
                      {"bounding_box_inner", "QVariant", false},
                      {"colour_left", "QVariant", true},
                      {"color_left", "QVariant", true},
                      {"colour_right", "QVariant", true},
                      {"color_right", "QVariant", true},
                      {"contour_left", "OMC::Obj", false},
                      {"contour_right", "OMC::Obj", false},
                      {"tail", "OMC::Obj", false},
                      {"head", "OMC::Obj", false},
                      {"tail_cut", "bool", false},
                      {"head_cut", "bool", false},
                      {"tail_tangent", "OMC::Obj", false},
                      {"head_tangent", "OMC::Obj", false},
                      {"left_thickness_tangent_from", "double", true},
                      {"left_thickness_tangent_to", "double", true},
                      {"right_thickness_tangent_from", "double", true},
                      {"right_thickness_tangent_to", "double", true},
                      {"tip_type_from", "QString", false},
                      {"tip_type_to", "QString", false},
                      {"unique_id", "uint", false},
                      {"line_style", "QVariant", true},
                      {"thickness", "QVariant", true},
                      {"thickness_max_visible", "double", false},
                      {"degenerate", "bool", false},
                      {"thickness_valid", "bool", false}});
    expectProperties(DrawingVectorContour::staticMetaObject, base,
                     {{"extremity", "QString", false},
                      {"bounding_box", "QVariant", false},
                      {"bounding_box_inner", "QVariant", false},
                      {"clockwise", "bool", false},
                      {"degenerate", "bool", false},
                      {"outline_colour_used", "bool", false},
                      {"top_level", "bool", false},
                      {"unique_id", "uint", false},
                      {"colour_inside", "OMC::Obj", false},
                      {"color_inside", "OMC::Obj", false},
                      {"colour_outside", "OMC::Obj", false},
                      {"color_outside", "OMC::Obj", false},
                      {"contours_children", "QVariant", false},
                      {"strokes_current_inside", "QVariant", false},
                      {"strokes_current_children", "QVariant", false},
                      {"strokes", "QVariant", false},
                      {"strokes_inside", "QVariant", false},
                      {"strokes_children", "QVariant", false}});
    expectProperties(DrawingVectorJoint::staticMetaObject, base,
                     {{"contours", "QVariant", false},
                      {"degree", "int", false},
                      {"extremity", "QString", false},
                      {"empty", "bool", false},
                      {"position", "OMC::Obj", false},
                      {"color_inside", "OMC::Obj", false},
                      {"coloir_inside", "OMC::Obj", false},
                      {"colour_outside", "OMC::Obj", false},
                      {"color_outside", "OMC::Obj", false},
                      {"tangent", "OMC::Obj", false}});
}

TEST_F(DrawingVectorStrokeTest, AWrapperFindsItsStrokeAgainAfterAnEditOfAnother)
{
    const DrawingVectorStroke first(record.get(), insert({{0, 0}, {10, 0}}));
    GR_VectorStroke* other = insert({{0, 5}, {10, 5}});
    const quint32 id = first.getUniqueId();
    access.Erase(other);
    ASSERT_TRUE(first.validateStroke());
    EXPECT_EQ(first.validateStroke()->id(), id);
    EXPECT_EQ(first.validateStroke(), record->strokes().FindStroke(id));
}

TEST_F(DrawingVectorStrokeTest, AnErasedStrokeIsNullAndItsWrapperInvalid)
{
    GR_VectorStroke* stroke = insert({{0, 0}, {10, 0}});
    const DrawingVectorStroke wrapper(record.get(), stroke);
    const DrawingVectorJoint tail(wrapper, stroke->Tail());
    const DrawingVectorContour contour(wrapper, GR_StrokeSide::Left, stroke->GetContour(GR_StrokeSide::Left));
    access.Erase(stroke);
    EXPECT_FALSE(wrapper.validateStroke());
    EXPECT_FALSE(contour.validateContour());
    EXPECT_TRUE(tail.validateJoint().IsEmpty());
    EXPECT_EQ(failureOf([&] { wrapper.getUniqueId(); }), objectGone);
    EXPECT_EQ(failureOf([&] { contour.getUniqueId(); }), objectGone);
    EXPECT_EQ(failureOf([&] { tail.getDegree(); }), objectGone);
}

TEST_F(DrawingVectorStrokeTest, WrappersOfALayerThatIsGoneThrow)
{
    const DrawingVectorStroke wrapper(record.get(), insert({{0, 0}, {10, 0}}));
    access.Erase(leaf);
    EXPECT_EQ(failureOf([&] { wrapper.validateStroke(); }), objectGone);
    EXPECT_EQ(failureOf([&] { DrawingVectorStrokeList(record.get()).size(); }), objectGone);
}

TEST_F(DrawingVectorStrokeTest, CopiesFollowAStrokeThatIsMoved)
{
    GR_VectorStroke* stroke = insert({{0, 0}, {10, 0}});
    const DrawingVectorStroke wrapper(record.get(), stroke);
    const DrawingVectorStroke copy = wrapper;
    UT_Node* other = access.CreateLayerAbove(GR_Layer::kPen, nullptr);
    const auto otherRecord = OMC::DrawingLayerImplShared::of(&art, other, {});
    const quint32 id = wrapper.getUniqueId();
    GR_VectorStroke* moved = access.Move(wrapper.validateStroke(), other);
    EXPECT_FALSE(copy.validateStroke());
    wrapper.updateImpl(otherRecord.get(), moved);
    EXPECT_EQ(copy.validateStroke(), moved);
    EXPECT_EQ(copy.getUniqueId(), id);
    EXPECT_EQ(copy.layerRecord(), otherRecord.get());

    GR_VectorStroke* inserted = access.Insert(GR_StrokeData(lines({{0, 0}, {1, 1}})), other);
    copy.updateStroke(inserted);
    EXPECT_EQ(wrapper.getUniqueId(), inserted->id());
}

TEST_F(DrawingVectorStrokeTest, StrokesAreCollectedOnceInTheOrderInWhichTheyAreSeen)
{
    DrawingVectorStroke first(record.get(), insert({{0, 0}, {10, 0}}));
    DrawingVectorStroke second(record.get(), insert({{0, 5}, {10, 5}}));
    DrawingVectorStroke again = first;
    DrawingVectorStrokeList list(record.get());
    const auto variant = [](OMC::BaseObject& object) { return QVariant::fromValue<OMC::BaseObject*>(&object); };
    const QVariantList mixed = {variant(second), 7, QVariantList{variant(again), variant(list)}, variant(first)};
    const auto strokes = DrawingVectorStroke::getDrawingVectorStrokeFromQVariant(mixed);
    ASSERT_EQ(strokes.size(), 2u);
    EXPECT_EQ(strokes[0], second);
    EXPECT_EQ(strokes[1], first);

    std::vector<DrawingVectorStroke> more = {first};
    DrawingVectorStroke::getDrawingVectorStrokeFromQVariant(variant(list), more);
    ASSERT_EQ(more.size(), 2u);
    EXPECT_EQ(more[1], second);
    EXPECT_TRUE(DrawingVectorStroke::getDrawingVectorStrokeFromQVariant(QVariant()).empty());
}

TEST_F(DrawingVectorStrokeTest, AContourIsTheOneThatIsAtItsSideNow)
{
    GR_VectorStroke* stroke = insert({{0, 0}, {10, 0}, {10, 10}});
    const DrawingVectorStroke wrapper(record.get(), stroke);
    const DrawingVectorContour left(wrapper, GR_StrokeSide::Left, stroke->GetContour(GR_StrokeSide::Left));
    EXPECT_TRUE(left.getDegenerate());
    insert({{10, 10}, {0, 0}});
    EXPECT_FALSE(left.getDegenerate());
    EXPECT_FALSE(left.getClockwise());
    EXPECT_EQ(left.getExtremity(), "Tail");
    EXPECT_EQ(left, *objectIn<DrawingVectorContour>(wrapper.getContourLeft()));
    EXPECT_FALSE(left == *objectIn<DrawingVectorContour>(wrapper.getContourRight()));
}

TEST_F(DrawingVectorStrokeTest, ListsFollowTheLayer)
{
    const DrawingVectorStrokeList strokes(record.get());
    const DrawingVectorContourList contours(record.get());
    const DrawingVectorJointList joints(record.get());
    EXPECT_EQ(strokes.size() + contours.size() + joints.size(), 0u);
    insert({{0, 0}, {10, 0}, {10, 10}, {0, 0}});
    EXPECT_EQ(strokes.size(), 1u);
    EXPECT_EQ(contours.size(), 2u);
    EXPECT_EQ(joints.size(), 1u);
    insert({{0, 0}, {-5, -5}});
    EXPECT_EQ(strokes.size(), 2u);
    EXPECT_EQ(contours.size(), 2u);
    EXPECT_EQ(joints.size(), 2u);
}

} // namespace
