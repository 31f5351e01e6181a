#include "core/columns/easecolumn.h"

#include "core/columns/columnedit.h"
#include "core/columns/continuitywords.h"
#include "core/columns/easecolumnvalue.h"
#include "core/frame/finite.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace OMC {

namespace {

/// The slope of an angle in degrees, which is held within a range.
double slopeOf(double angle, double lowest, double highest)
{
    return std::tan(std::clamp(angle, lowest, highest) * std::numbers::pi / 180);
}

} // namespace

EaseColumn::EaseColumn(TUEaseTimedValue* timedValue) : KeyframeableColumn(timedValue) {}

std::string EaseColumn::__str__() const
{
    return described(tr("EaseColumn(\"%1\")"));
}

QVariant EaseColumn::getEntry(double frame, int) const
{
    const auto& column = ease();
    requireFinite(frame, 0);
    return column.evaluate(frame);
}

void EaseColumn::setEntry(double frame, QVariant value, int)
{
    auto& column = ease();
    requireFinite(frame, 0);
    EaseColumnValue(&column, frame).setValue(value);
}

QVariant EaseColumn::get(int frame) const
{
    return toVariant(new EaseColumnValue(&target(), frame));
}

void EaseColumn::set(int frame, const QVariant& value)
{
    EaseColumnValue(&target(), frame).setValue(value);
}

void EaseColumn::createPoint(double frame, double value, double easeIn, double easeInAngle, double easeOut,
                             double easeOutAngle, bool constSegment, const QString& continuity)
{
    auto& column = ease();
    const double numbers[] = {frame, value, easeIn, easeInAngle, easeOut, easeOutAngle};
    for (unsigned int argument = 0; argument < std::size(numbers); ++argument)
        requireFinite(numbers[argument], argument);
    const int number = continuitywords::numberFor(continuity, continuitywords::easeCount);
    if (number < 0)
        throw Exception(tr("Invalid continuity value %1").arg(continuity));

    namespace cmd = tu_timedvalue::ease;
    EaseCtrlPt before;
    EaseCtrlPt after;
    const bool hasBefore = column.pointBefore(frame, before);
    const bool isNew = !hasBefore || before.frame != frame;
    const bool hasAfter = column.pointAfter(frame, after);
    ColumnEdit edit(column, tr("Set Ease Point ") + column.getDisplayName());
    edit.run(new cmd::SpliceCmd(&column, frame, true));
    // The splice gave the eases that face the new point, to keep the shape of a curve that changes anyway. A curve that
    // is written point by point has the eases that it was given, whatever the order of the points.
    if (isNew && hasBefore) {
        edit.run(new cmd::SetSlopeOutCmd(&column, before.frame, before.slopeOut));
        edit.run(new cmd::SetEaseOutCmd(&column, before.frame, before.easeOut));
    }
    if (isNew && hasAfter) {
        edit.run(new cmd::SetSlopeInCmd(&column, after.frame, after.slopeIn));
        edit.run(new cmd::SetEaseInCmd(&column, after.frame, after.easeIn));
    }
    edit.run(new cmd::SetPointCmd2(&column, frame, frame, value));
    pointAt(column, frame);
    edit.run(new cmd::SetSlopeInCmd(&column, frame, slopeOf(easeInAngle, -85, 85)));
    edit.run(new cmd::SetEaseInCmd(&column, frame, easeIn));
    edit.run(new cmd::SetSlopeOutCmd(&column, frame, slopeOf(easeOutAngle, 95, 265)));
    edit.run(new cmd::SetEaseOutCmd(&column, frame, easeOut));
    edit.run(new cmd::SetConstSegCmd(&column, frame, constSegment));
    edit.run(new cmd::SetContinuityCmd(&column, frame, number, 0));
}

double EaseColumn::getTensionEase() const
{
    return ease().tension();
}

// A wrapper leads to the column that it was made for, or to nothing.
TUEaseTimedValue& EaseColumn::ease() const
{
    return static_cast<TUEaseTimedValue&>(target());
}

} // namespace OMC
