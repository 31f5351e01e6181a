#include "core/columns/elementcolumn.h"

#include "core/attributes/drawingattribute.h"
#include "core/attributes/elementattribute.h"
#include "core/attributes/timingattribute.h"
#include "core/columns/columnlist.h"
#include "core/columns/drawingtimingcolumn.h"
#include "core/columns/expressioncolumn.h"
#include "core/elements/element.h"
#include "core/elements/elementdrawing.h"
#include "core/host/tu_exprtimedvalue.h"
#include "tests/core/support/animation.h"
#include "tests/core/support/standinsequence.h"

using namespace OMC;

namespace {

using Call = std::function<void()>;

/// A drawing column with a node that shows it.
class ElementColumnTest : public AnimationTest {
protected:
    ElementColumnTest() { manager().clearHistory(); }

    template <typename T>
    T made(const char* type, const char* name)
    {
        const T column = *objectIn<T>(ColumnList(scene()).create(type, name, QVariant()));
        manager().clearHistory();
        return column;
    }

    ElementColumn arm = made<ElementColumn>("DRAWING", "Arm");
};

} // namespace

TEST_F(ElementColumnTest, AColumnOfAnotherKindIsToldInTheSentenceOfEachOperation)
{
    TUBezierTimedValue* curve = animate("position.x", {{1, 0}});
    ElementColumn column(curve);
    DrawingTimingColumn timing(curve);
    const std::pair<Call, const char*> rows[] = {
        {[&] { column.attachNewElement("x", "COLOR", 12, "PNG", ""); }, "Unexpected column-type found."},
        {[&] { column.setElement(1); }, "Unexpected column-type found."},
        {[&] { column.drawing(1); }, "Invalid column-type."},
        {[&] { column.drawingType(1); }, "Invalid column-type."},
        {[&] { column.keyExposureAdd(1); }, "Invalid column-type."},
        {[&] { column.keyExposureRemove(1); }, "Invalid column-type."},
        {[&] { column.keyExposureRemoveDuplicate(1); }, "Invalid column-type."},
        {[&] { column.keyExposureNext(1, QVariant()); }, "Invalid column-type."},
        {[&] { column.fillEmpty(1, 2); }, "Invalid column-type."},
        {[&] { column.clear(1, 2, false); }, "Invalid column-type."},
        {[&] { column.getDrawingNames(); }, "Invalid column-type."},
        {[&] { timing.lineTestFill(1, 2, "x", false); }, "Invalid column-type."},
        {[&] { timing.contains("x"); }, "Invalid column-type."},
    };
    for (const auto& [call, sentence] : rows)
        expectRefused(call, sentence);
    EXPECT_EQ(column.getElement(), QVariant());
    EXPECT_EQ(column.getDrawings().get(), nullptr);
    EXPECT_EQ(column.nFrames(), 60u);
}

TEST_F(ElementColumnTest, ASequenceThatIsNoDrawingIsUnsupported)
{
    StandInSequence sequence(sceneCommon());
    const ElementColumn column(&sequence);
    EXPECT_EQ(failureOf([&] { column.drawingType(1); }), "Unsupported sequence-type.");
    EXPECT_EQ(failureOf([&] { ElementColumn(column).setDrawingType(1, "KEY"); }), "Unsupported sequence-type.");
    EXPECT_EQ(column.size(), 3u);
    EXPECT_EQ(column.drawing(1).get(), nullptr);
}

TEST_F(ElementColumnTest, AnEngineThatHasNoCommandIsToldInTheSentenceOfTheOperation)
{
    StandInSequence sequence(sceneCommon());
    ElementColumn column(&sequence);
    const std::pair<Call, const char*> rows[] = {
        {[&] { column.generate(1, false); }, "Failed to generate a drawing."},
        {[&] { column.clear(1, 2, false); }, "Failed to clear frames."},
        {[&] { column.drawingDuplicate(1); }, "An unexpected error occurred."},
        {[&] { column.drawingDelete(1); }, "Failed to delete drawing at specified frame."},
        {[&] { column.keyExposureAdd(1); }, "Failed to add key exposures."},
        {[&] { column.keyExposureRemove(1); }, "Failed to remove key exposures."},
        {[&] { column.keyExposureRemoveDuplicate(1); }, "Failed to remove duplicate key exposures."},
        {[&] { column.fillEmpty(1, 2); }, "Failed to fill empty cells."},
        {[&] { column.setElement(1); }, "Failed to set the drawing column's linked ID."},
    };
    for (const auto& [call, sentence] : rows)
        EXPECT_EQ(failureOf(call), sentence);
    sequence.project = projectCommon();
    EXPECT_EQ(failureOf([&] { column.drawingDuplicate(1); }), "Failed to duplicate the drawing at the given frame.");
    EXPECT_TRUE(labels().isEmpty());
    sequence.scene = nullptr;
    EXPECT_EQ(failureOf([&] { column.set(1, "a"); }), "An unexpected error occurred.");
    EXPECT_EQ(failureOf([&] { column.clear(1, 2, false); }), "An unexpected error occurred.");
    EXPECT_EQ(failureOf([&] { column.attachNewElement("x", "COLOR", 12, "PNG", ""); }),
              "An unexpected error occurred.");
}

TEST_F(ElementColumnTest, TheLastFrameOfTheSheetCanBeClearedAndTheProjectOpened)
{
    arm.set(1, "a");
    arm.set(999'998, QStringList({"b", "c", "d"}));
    const QByteArray before = saved();
    arm.clear(999'999, 2, false);
    EXPECT_EQ(objectFrom<ElementDrawing>(arm.get(999'998))->getName(), "b");
    EXPECT_FALSE(arm.get(1'000'000).isValid());
    expectUndoable(before);
    EXPECT_FALSE(saved().contains("1000001"));
}

TEST_F(ElementColumnTest, AttributesOfOtherKindsAreUnexpected)
{
    MO_Node* read = add("READ", "Read");
    const Call calls[] = {
        [&] { DrawingAttribute(peg, {}, "angle").value(1); },
        [&] { DrawingAttribute(peg, {}, "angle").getElementMode(); },
        [&] { DrawingAttribute(peg, {}, "angle").setValue(1, "a"); },
        [&] { ElementAttribute(peg, {}, "angle").getElement(); },
        [&] { ElementAttribute(read, {"drawing"}, "timing").setValue(1, "a"); },
        [&] { TimingAttribute(read, {"drawing"}, "element").value(1); },
        [&] { TimingAttribute(read, {"drawing"}, "element").setValue(1, "a"); },
        [&] { TimingAttribute(read, {"drawing"}, "missing").value(1); },
    };
    for (const Call& call : calls)
        expectRefused(call, "Unexpected type found.");
}

TEST_F(ElementColumnTest, AnExpressionIsToldByItsTextAlone)
{
    ExpressionColumn column = made<ExpressionColumn>("EXPR", "Sum");
    const QByteArray before = saved();
    column.setExpressionText("frame * 2");
    EXPECT_EQ(column.getEntry(21, -1), QVariant(42.0));
    EXPECT_EQ(column.__str__(), "ExpressionColumn(\"Sum\")");
    EXPECT_EQ(labels(), QStringList("Set Expression Value"));
    expectUndoable(before);
    expectRefused([&] { column.setEntry(1, 5, -1); },
                  "Unable to set value of the expression column at a given frame - the must be changed instead.");
    expectRefused([&] { column.setExpressionText("1 +"); }, failureOf([&] { column.setExpressionText("1 +"); }));
    expectRefused([&] { column.getEntry(qQNaN(), -1); }, "Invalid argument at index 0.");
}

TEST_F(ElementColumnTest, AColumnThatIsGoneSaysSo)
{
    DrawingTimingColumn timing = made<DrawingTimingColumn>("TIMING", "Mouth");
    ExpressionColumn expression = made<ExpressionColumn>("EXPR", "Sum");
    for (TUTimedValue* column : {arm.getTimedValue(), timing.getTimedValue(), expression.getTimedValue()})
        column->expireWeakPointers();
    const Call calls[] = {[&] { arm.get(1); },
                          [&] { arm.set(1, "a"); },
                          [&] { arm.getElement(); },
                          [&] { arm.setElement(1); },
                          [&] { arm.drawing(1); },
                          [&] { arm.generate(1, true); },
                          [&] { arm.size(); },
                          [&] { arm.__str__(); },
                          [&] { timing.keyExposureAdd(1); },
                          [&] { timing.lineTestFill(1, 2, "x", true); },
                          [&] { timing.contains("x"); },
                          [&] { timing.__str__(); },
                          [&] { expression.getExpressionText(); },
                          [&] { expression.setExpressionText("1"); },
                          [&] { expression.getEntry(1, -1); }};
    for (const Call& call : calls)
        EXPECT_EQ(failureOf(call), "Object is no longer valid.");
}
