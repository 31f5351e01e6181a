#include "core/columns/easecolumnvalue.h"

#include "core/columns/columnedit.h"
#include "core/columns/continuitywords.h"
#include "core/frame/finite.h"

#include <cmath>

namespace OMC {

namespace easecmd = tu_timedvalue::ease;

std::string EaseColumnValue::__str__() const
{
    return tr("EaseColumnValue(\"%1\", %2)").arg(column().getName(), QString::number(frame())).toStdString();
}

double EaseColumnValue::getFrame() const
{
    column();
    return frame();
}

QVariant EaseColumnValue::getValue() const
{
    return column().evaluate(frame());
}

void EaseColumnValue::setValue(const QVariant& variant)
{
    const Place here = place();
    TUEaseTimedValue& column = here.column;
    const double value = numberFrom(variant);
    if (here.isKey && std::abs(value - column.evaluate(frame())) < valueTolerance)
        return;
    ColumnEdit edit(column, tr("Set Ease Point ") + column.getDisplayName());
    if (!here.isKey)
        edit.run(new easecmd::SpliceCmd(&column, frame(), true));
    pointAt(column, frame());
    edit.run(new easecmd::SetPointCmd2(&column, frame(), frame(), value));
}

bool EaseColumnValue::getKey() const
{
    return place().isKey;
}

void EaseColumnValue::setKey(bool key)
{
    const Place here = place();
    if (key == here.isKey)
        return;
    if (key) {
        ColumnEdit edit(here.column, tr("Set Ease Point ") + here.column.getDisplayName());
        edit.run(new easecmd::SpliceCmd(&here.column, frame(), true));
        pointAt(here.column, frame());
    } else {
        ColumnEdit edit(here.column, tr("Remove Ease Point ") + here.column.getDisplayName());
        edit.run(new easecmd::RemovePointCmd(&here.column, frame()));
        if (here.column.isKey(frame()))
            unexpected::fail(unexpected::Error);
    }
}

bool EaseColumnValue::getConstSegment() const
{
    const Place here = place();
    return here.hasPoint && here.point.constSegment;
}

void EaseColumnValue::setConstSegment(bool constSegment)
{
    const Place key = constSegmentPlace();
    if (constSegment == key.point.constSegment)
        return;
    ColumnEdit edit(key.column, tr("Set Constant Segment on ") + key.column.getDisplayName());
    edit.run(new easecmd::SetConstSegCmd(&key.column, frame(), constSegment));
}

QString EaseColumnValue::getContinuity() const
{
    const Place here = place();
    return continuitywords::wordFor(here.hasPoint ? here.point.continuity : -1, continuitywords::easeCount);
}

void EaseColumnValue::setContinuity(const QString& continuity)
{
    const Place key = constSegmentPlace();
    const int number = continuitywords::numberFor(continuity, continuitywords::easeCount);
    if (number < 0)
        throw Exception(tr("Invalid continuity value %1. Accepted values are : %2 ")
                            .arg(continuity, QStringLiteral("STRAIGHT, CORNER")));
    if (number == key.point.continuity)
        return;
    // Required: the label is the constant segment's.
    ColumnEdit edit(key.column, tr("Set Constant Segment on ") + key.column.getDisplayName());
    edit.run(new easecmd::SetContinuityCmd(&key.column, frame(), number, 0));
}

double EaseColumnValue::getEaseIn() const
{
    return governingPoint().easeIn;
}

void EaseColumnValue::setEaseIn(double ease)
{
    setNumber<easecmd::SetEaseInCmd>(ease, &EaseCtrlPt::easeIn, tr("Ease-in can only be set on a keyframe."),
                                     tr("Set ease-in on "));
}

// Required: the angles are the slopes as they are kept, though EaseColumn::createPoint takes degrees.
double EaseColumnValue::getEaseInAngle() const
{
    return governingPoint().slopeIn;
}

void EaseColumnValue::setEaseInAngle(double slope)
{
    setNumber<easecmd::SetSlopeInCmd>(slope, &EaseCtrlPt::slopeIn, tr("Angle Ease-in can only be set on a keyframe."),
                                      tr("Set angle ease-in on "));
}

double EaseColumnValue::getEaseOut() const
{
    return governingPoint().easeOut;
}

void EaseColumnValue::setEaseOut(double ease)
{
    setNumber<easecmd::SetEaseOutCmd>(ease, &EaseCtrlPt::easeOut, tr("Ease-out can only be set on a keyframe."),
                                      tr("Set ease-out on "));
}

double EaseColumnValue::getEaseOutAngle() const
{
    return governingPoint().slopeOut;
}

void EaseColumnValue::setEaseOutAngle(double slope)
{
    setNumber<easecmd::SetSlopeOutCmd>(slope, &EaseCtrlPt::slopeOut,
                                       tr("Angle Ease-out can only be set on a keyframe."),
                                       tr("Set angle ease-out on "));
}

Obj EaseColumnValue::getKeyframePrevious() const
{
    return previousOf(*this);
}

Obj EaseColumnValue::getKeyframeNext() const
{
    return nextOf(*this);
}

// Required: the constant segment's text stands for continuity, too.
EaseColumnValue::Place EaseColumnValue::constSegmentPlace() const
{
    return keyPlace(tr("Constant Segment can only be set on a keyframe."));
}

template <typename Command>
void EaseColumnValue::setNumber(double number, double EaseCtrlPt::*field, const QString& keyOnly, const QString& label)
{
    const Place key = keyPlace(keyOnly);
    requireFinite(number, 0);
    if (number == key.point.*field)
        return;
    ColumnEdit edit(key.column, label + key.column.getDisplayName());
    edit.run(new Command(&key.column, frame(), number));
}

} // namespace OMC
