#include "core/columns/beziercolumnvalue.h"

#include "core/columns/beziercontinuity.h"
#include "core/columns/bezieredit.h"
#include "core/columns/columncast.h"

#include <cmath>

namespace OMC {

namespace cmd = tu_timedvalue::bezier;

namespace {

/// Differences of values under this are none.
constexpr double valueTolerance = 0.0001;

double finite(double number)
{
    if (!std::isfinite(number))
        BaseObject::throwInvalidArgument(0);
    return number;
}

double valueFromVariant(const QVariant& variant)
{
    bool read = false;
    double value = 0;
    if (const QObject* object = BaseObject::QVariantToPointer(variant)) {
        const auto* other = dynamic_cast<const ColumnValue*>(object);
        if (other)
            value = other->getValue().toDouble(&read);
    } else {
        value = variant.toDouble(&read);
    }
    if (!read)
        throw Exception(BezierColumnValue::tr("Invalid type set on column value."));
    return finite(value);
}

} // namespace

BezierColumnValue::BezierColumnValue(TUTimedValue* timedValue, double frame) : m_timedValue(timedValue), m_frame(frame)
{}

std::string BezierColumnValue::__str__() const
{
    return tr("BezierColumnValue(\"%1\", %2)").arg(place().column.getName(), QString::number(m_frame)).toStdString();
}

double BezierColumnValue::getFrame() const
{
    place();
    return m_frame;
}

QVariant BezierColumnValue::getValue() const
{
    return place().column.evaluate(m_frame);
}

void BezierColumnValue::setValue(const QVariant& variant)
{
    const Place here = place();
    TUBezierTimedValue& column = here.column;
    const double value = valueFromVariant(variant);
    if (here.isKey && std::abs(value - column.evaluate(m_frame)) < valueTolerance)
        return;

    BezierEdit edit(column, tr("Set Bezier Point "));
    if (!here.isKey)
        edit.run(new cmd::SpliceCmd(&column, m_frame, true));
    const double delta = value - edit.pointAt(m_frame).value;
    edit.run(new cmd::SetPointCmd2(&column, m_frame, m_frame, value));
    const BezierCtrlPt point = edit.pointAt(m_frame);
    if (std::abs(delta) <= valueTolerance)
        return;
    edit.run(new cmd::SetLeftHandleGlobalCmd(&column, m_frame, point.leftX, point.leftY + delta));
    edit.run(new cmd::SetRightHandleGlobalCmd(&column, m_frame, point.rightX, point.rightY + delta));
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
        BezierEdit edit(here.column, tr("Set Bezier Point "));
        edit.run(new cmd::SpliceCmd(&here.column, m_frame, true));
        edit.pointAt(m_frame);
    } else {
        BezierEdit edit(here.column, tr("Remove Bezier Point "));
        edit.run(new cmd::RemovePointCmd(&here.column, m_frame));
        BezierCtrlPt point;
        if (here.column.pointAt(m_frame, point))
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
    BezierEdit edit(key.column, tr("Set Constant Segment on "));
    edit.run(new cmd::SetConstSegCmd(&key.column, m_frame, constSegment));
}

QString BezierColumnValue::getContinuity() const
{
    const Place here = place();
    return beziercontinuity::wordFor(here.hasPoint ? here.point.continuity : -1);
}

void BezierColumnValue::setContinuity(const QString& continuity)
{
    const Place key = keyPlace();
    const int number = beziercontinuity::numberFor(continuity);
    if (number < 0)
        throw Exception(tr("Invalid continuity value %1. Accepted values are : %2 ")
                            .arg(continuity, QStringLiteral("STRAIGHT, CORNER, SMOOTH")));
    if (number == key.point.continuity)
        return;
    // Required: the label is the constant segment's.
    BezierEdit edit(key.column, tr("Set Constant Segment on "));
    edit.run(new cmd::SetContinuityCmd(&key.column, m_frame, number, 0));
}

double BezierColumnValue::getHandleLeftX() const
{
    return governingPoint().leftX;
}

void BezierColumnValue::setHandleLeftX(double x)
{
    const Place key = keyPlace();
    if (finite(x) != key.point.leftX)
        setLeftHandle(key, x, key.point.leftY);
}

double BezierColumnValue::getHandleLeftY() const
{
    return governingPoint().leftY;
}

void BezierColumnValue::setHandleLeftY(double y)
{
    const Place key = keyPlace();
    if (finite(y) != key.point.leftY)
        setLeftHandle(key, key.point.leftX, y);
}

double BezierColumnValue::getHandleRightX() const
{
    return governingPoint().rightX;
}

void BezierColumnValue::setHandleRightX(double x)
{
    const Place key = keyPlace();
    if (finite(x) != key.point.rightX)
        setRightHandle(key, x, key.point.rightY);
}

double BezierColumnValue::getHandleRightY() const
{
    return governingPoint().rightY;
}

void BezierColumnValue::setHandleRightY(double y)
{
    const Place key = keyPlace();
    if (finite(y) != key.point.rightY)
        setRightHandle(key, key.point.rightX, y);
}

// Required: on a keyframe it is that keyframe itself, and never steps further back.
Obj BezierColumnValue::getKeyframePrevious() const
{
    const Place here = place();
    if (!here.hasPoint)
        return {};
    return here.isKey ? Obj(copy()) : Obj(new BezierColumnValue(&here.column, here.point.frame));
}

// Required: ahead of the first keyframe there is none.
Obj BezierColumnValue::getKeyframeNext() const
{
    const Place here = place();
    BezierCtrlPt next;
    if (!here.hasPoint || !here.column.pointAfter(here.point.frame, next))
        return {};
    return Obj(new BezierColumnValue(&here.column, next.frame));
}

BezierColumnValue::Place BezierColumnValue::place() const
{
    TUTimedValue* timedValue = m_timedValue.get();
    if (!timedValue)
        throwInvalid();
    auto* column = columnCast<TUBezierTimedValue>(timedValue);
    if (!column)
        throwUnexpected();
    Place here{*column, {}, false, false};
    here.hasPoint = column->pointBefore(m_frame, here.point);
    here.isKey = here.hasPoint && here.point.frame == m_frame;
    return here;
}

// Required: the constant segment's text stands for continuity and handles too.
BezierColumnValue::Place BezierColumnValue::keyPlace() const
{
    const Place here = place();
    if (!here.isKey)
        throw Exception(tr("Constant Segment can only be set on a keyframe."));
    return here;
}

BezierCtrlPt BezierColumnValue::governingPoint() const
{
    const Place here = place();
    if (!here.hasPoint)
        throwUnexpected();
    return here.point;
}

void BezierColumnValue::setLeftHandle(const Place& key, double x, double y)
{
    BezierEdit edit(key.column, tr("Set left handle on "));
    edit.run(new cmd::SetLeftHandleGlobalCmd(&key.column, m_frame, x, y));
}

void BezierColumnValue::setRightHandle(const Place& key, double x, double y)
{
    BezierEdit edit(key.column, tr("Set right handle on "));
    edit.run(new cmd::SetRightHandleGlobalCmd(&key.column, m_frame, x, y));
}

} // namespace OMC
