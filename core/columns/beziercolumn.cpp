#include "core/columns/beziercolumn.h"

#include "core/columns/beziercolumnvalue.h"
#include "core/columns/columnedit.h"
#include "core/columns/continuitywords.h"
#include "core/frame/finite.h"

namespace OMC {

BezierColumn::BezierColumn(TUBezierTimedValue* timedValue) : KeyframeableColumn(timedValue) {}

std::string BezierColumn::__str__() const
{
    return described(tr("BezierColumn(%1)"));
}

QVariant BezierColumn::getEntry(double frame, int) const
{
    const auto& column = bezier();
    requireFinite(frame, 0);
    return column.evaluate(frame);
}

void BezierColumn::setEntry(double frame, QVariant value, int)
{
    auto& column = bezier();
    requireFinite(frame, 0);
    BezierColumnValue(&column, frame).setValue(value);
}

QVariant BezierColumn::get(int frame) const
{
    return toVariant(new BezierColumnValue(&target(), frame));
}

void BezierColumn::set(int frame, const QVariant& value)
{
    BezierColumnValue(&target(), frame).setValue(value);
}

void BezierColumn::createPoint(double frame, double value, double handleLeftX, double handleLeftY, double handleRightX,
                               double handleRightY, bool constSegment, const QString& continuity)
{
    auto& column = bezier();
    const double numbers[] = {frame, value, handleLeftX, handleLeftY, handleRightX, handleRightY};
    for (unsigned int argument = 0; argument < std::size(numbers); ++argument)
        requireFinite(numbers[argument], argument);
    const QString word = continuity.toUpper();
    const int number = continuitywords::numberFor(word, continuitywords::bezierCount);
    if (number < 0)
        throw Exception(tr("Invalid continuity value %1. Accepted values are : %2 ")
                            .arg(word, QStringLiteral("STRAIGHT, CORNER, SMOOTH")));

    namespace cmd = tu_timedvalue::bezier;
    BezierCtrlPt before;
    BezierCtrlPt after;
    const bool hasBefore = column.pointBefore(frame, before);
    const bool isNew = !hasBefore || before.frame != frame;
    const bool hasAfter = column.pointAfter(frame, after);
    ColumnEdit edit(column, tr("Set Bezier Point ") + column.getDisplayName());
    edit.run(new cmd::SpliceCmd(&column, frame, true));
    // The splice turned the handles that face the new point, to keep the shape of a curve that changes anyway. A curve
    // that is written point by point has the handles that it was given, whatever the order of the points.
    if (isNew && hasBefore)
        edit.run(new cmd::SetRightHandleGlobalCmd(&column, before.frame, before.rightX, before.rightY));
    if (isNew && hasAfter)
        edit.run(new cmd::SetLeftHandleGlobalCmd(&column, after.frame, after.leftX, after.leftY));
    edit.run(new cmd::SetPointCmd2(&column, frame, frame, value));
    pointAt(column, frame);
    edit.run(new cmd::SetLeftHandleGlobalCmd(&column, frame, handleLeftX, handleLeftY));
    edit.run(new cmd::SetRightHandleGlobalCmd(&column, frame, handleRightX, handleRightY));
    edit.run(new cmd::SetConstSegCmd(&column, frame, constSegment));
    edit.run(new cmd::SetContinuityCmd(&column, frame, number, 0));
}

// A wrapper leads to the column that it was made for, or to nothing.
TUBezierTimedValue& BezierColumn::bezier() const
{
    return static_cast<TUBezierTimedValue&>(target());
}

} // namespace OMC
