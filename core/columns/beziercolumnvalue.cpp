#include "core/columns/beziercolumnvalue.h"

#include "core/columns/columnedit.h"
#include "core/columns/continuitywords.h"
#include "core/frame/finite.h"

#include <cmath>

namespace OMC {

namespace beziercmd = tu_timedvalue::bezier;

std::string BezierColumnValue::__str__() const
{
    return tr("BezierColumnValue(\"%1\", %2)").arg(column().getName(), QString::number(frame())).toStdString();
}

double BezierColumnValue::getFrame() const
{
    column();
    return frame();
}

QVariant BezierColumnValue::getValue() const
{
    return column().evaluate(frame());
}

void BezierColumnValue::setValue(const QVariant& variant)
{
    const Place here = place();
    TUBezierTimedValue& column = here.column;
    const double value = numberFrom(variant);
    if (here.isKey && std::abs(value - column.evaluate(frame())) < valueTolerance)
        return;

    ColumnEdit edit(column, tr("Set Bezier Point ") + column.getDisplayName());
    if (!here.isKey)
        edit.run(new beziercmd::SpliceCmd(&column, frame(), true));
    const double delta = value - pointAt(column, frame()).value;
    edit.run(new beziercmd::SetPointCmd2(&column, frame(), frame(), value));
    const BezierCtrlPt point = pointAt(column, frame());
    if (std::abs(delta) <= valueTolerance)
        return;
    edit.run(new beziercmd::SetLeftHandleGlobalCmd(&column, frame(), point.leftX, point.leftY + delta));
    edit.run(new beziercmd::SetRightHandleGlobalCmd(&column, frame(), point.rightX, point.rightY + delta));
}

bool BezierColumnValue::getKey() const
{
    return place().isKey;
}

void BezierColumnValue::setKey(bool key)
{
    const Place here = place();
    if (key == here.isKey)
        return;
    if (key) {
        ColumnEdit edit(here.column, tr("Set Bezier Point ") + here.column.getDisplayName());
        edit.run(new beziercmd::SpliceCmd(&here.column, frame(), true));
        pointAt(here.column, frame());
    } else {
        ColumnEdit edit(here.column, tr("Remove Bezier Point ") + here.column.getDisplayName());
        edit.run(new beziercmd::RemovePointCmd(&here.column, frame()));
        BezierCtrlPt point;
        if (here.column.pointAt(frame(), point))
            unexpected::fail(unexpected::Error);
    }
}

bool BezierColumnValue::getConstSegment() const
{
    const Place here = place();
    return here.hasPoint && here.point.constSegment;
}

void BezierColumnValue::setConstSegment(bool constSegment)
{
    const Place key = keyPlace();
    if (constSegment == key.point.constSegment)
        return;
    ColumnEdit edit(key.column, tr("Set Constant Segment on ") + key.column.getDisplayName());
    edit.run(new beziercmd::SetConstSegCmd(&key.column, frame(), constSegment));
}

QString BezierColumnValue::getContinuity() const
{
    const Place here = place();
    return continuitywords::wordFor(here.hasPoint ? here.point.continuity : -1, continuitywords::bezierCount);
}

void BezierColumnValue::setContinuity(const QString& continuity)
{
    const Place key = keyPlace();
    const int number = continuitywords::numberFor(continuity, continuitywords::bezierCount);
    if (number < 0)
        throw Exception(tr("Invalid continuity value %1. Accepted values are : %2 ")
                            .arg(continuity, QStringLiteral("STRAIGHT, CORNER, SMOOTH")));
    if (number == key.point.continuity)
        return;
    // Required: the label is the constant segment's.
    ColumnEdit edit(key.column, tr("Set Constant Segment on ") + key.column.getDisplayName());
    edit.run(new beziercmd::SetContinuityCmd(&key.column, frame(), number, 0));
}

double BezierColumnValue::getHandleLeftX() const
{
    return governingPoint().leftX;
}

void BezierColumnValue::setHandleLeftX(double x)
{
    const Place key = keyPlace();
    requireFinite(x, 0);
    if (x != key.point.leftX)
        setLeftHandle(key, x, key.point.leftY);
}

double BezierColumnValue::getHandleLeftY() const
{
    return governingPoint().leftY;
}

void BezierColumnValue::setHandleLeftY(double y)
{
    const Place key = keyPlace();
    requireFinite(y, 0);
    if (y != key.point.leftY)
        setLeftHandle(key, key.point.leftX, y);
}

double BezierColumnValue::getHandleRightX() const
{
    return governingPoint().rightX;
}

void BezierColumnValue::setHandleRightX(double x)
{
    const Place key = keyPlace();
    requireFinite(x, 0);
    if (x != key.point.rightX)
        setRightHandle(key, x, key.point.rightY);
}

double BezierColumnValue::getHandleRightY() const
{
    return governingPoint().rightY;
}

void BezierColumnValue::setHandleRightY(double y)
{
    const Place key = keyPlace();
    requireFinite(y, 0);
    if (y != key.point.rightY)
        setRightHandle(key, key.point.rightX, y);
}

Obj BezierColumnValue::getKeyframePrevious() const
{
    return previousOf(*this);
}

Obj BezierColumnValue::getKeyframeNext() const
{
    return nextOf(*this);
}

// Required: the constant segment's text stands for continuity and handles too.
BezierColumnValue::Place BezierColumnValue::keyPlace() const
{
    return FramedValue::keyPlace(tr("Constant Segment can only be set on a keyframe."));
}

void BezierColumnValue::setLeftHandle(const Place& key, double x, double y)
{
    ColumnEdit edit(key.column, tr("Set left handle on ") + key.column.getDisplayName());
    edit.run(new beziercmd::SetLeftHandleGlobalCmd(&key.column, frame(), x, y));
}

void BezierColumnValue::setRightHandle(const Place& key, double x, double y)
{
    ColumnEdit edit(key.column, tr("Set right handle on ") + key.column.getDisplayName());
    edit.run(new beziercmd::SetRightHandleGlobalCmd(&key.column, frame(), x, y));
}

} // namespace OMC
