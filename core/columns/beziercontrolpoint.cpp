#include "core/columns/beziercontrolpoint.h"

#include "core/columns/beziercontinuity.h"
#include "core/columns/columncast.h"

namespace OMC {

BezierControlPoint::BezierControlPoint(TUBezierTimedValue* timedValue, double frame)
    : ControlPoint(frame),
      m_timedValue(timedValue)
{
    BezierCtrlPt point;
    if (timedValue && timedValue->pointAt(frame, point))
        m_identity = point.identity;
}

BezierControlPoint::BezierControlPoint(TUBezierTimedValue& timedValue, const BezierCtrlPt& point)
    : ControlPoint(point.frame),
      m_timedValue(&timedValue),
      m_identity(point.identity)
{}

BezierControlPoint* BezierControlPoint::at(TUBezierTimedValue& timedValue, quint64 index)
{
    if (index >= static_cast<quint64>(timedValue.pointCount()))
        return nullptr;
    return new BezierControlPoint(timedValue, timedValue.point(static_cast<int>(index)));
}

BezierControlPoint* BezierControlPoint::at(TUBezierTimedValue& timedValue, double frame)
{
    BezierCtrlPt point;
    return timedValue.pointAt(frame, point) ? new BezierControlPoint(timedValue, point) : nullptr;
}

std::string BezierControlPoint::__str__() const
{
    const double frame = controlPoint().frame;
    return tr("BezierControlPoint( \"%1\", %2 )")
        .arg(m_timedValue.get()->getName(), QString::number(frame))
        .toStdString();
}

QVariant BezierControlPoint::getValue() const
{
    return controlPoint().value;
}

void BezierControlPoint::setValue(const QVariant&)
{
    throw Exception(tr("NOT YET IMPLEMENTED"));
}

bool BezierControlPoint::getConstSegment() const
{
    return controlPoint().constSegment;
}

QString BezierControlPoint::getContinuity() const
{
    return beziercontinuity::wordFor(controlPoint().continuity);
}

double BezierControlPoint::getHandleLeftX() const
{
    return controlPoint().leftX;
}

double BezierControlPoint::getHandleLeftY() const
{
    return controlPoint().leftY;
}

double BezierControlPoint::getHandleRightX() const
{
    return controlPoint().rightX;
}

double BezierControlPoint::getHandleRightY() const
{
    return controlPoint().rightY;
}

void BezierControlPoint::validate() const
{
    controlPoint();
}

BezierCtrlPt BezierControlPoint::controlPoint() const
{
    TUTimedValue* timedValue = m_timedValue.get();
    if (!timedValue)
        throwInvalid();
    validateThreadLock();
    const auto* column = columnCast<TUBezierTimedValue>(timedValue);
    BezierCtrlPt point;
    if (!column || !column->pointAt(pointFrame(), point) || point.identity != m_identity)
        throwInvalid();
    return point;
}

} // namespace OMC
