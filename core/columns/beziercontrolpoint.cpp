#include "core/columns/beziercontrolpoint.h"

#include "core/columns/continuitywords.h"

namespace OMC {

BezierControlPoint* BezierControlPoint::at(TUBezierTimedValue& timedValue, quint64 index)
{
    return wrapperAt<BezierControlPoint>(timedValue, index);
}

BezierControlPoint* BezierControlPoint::at(TUBezierTimedValue& timedValue, double frame)
{
    return wrapperAt<BezierControlPoint>(timedValue, frame);
}

std::string BezierControlPoint::__str__() const
{
    return described(tr("BezierControlPoint( \"%1\", %2 )"));
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
    return continuitywords::wordFor(controlPoint().continuity, continuitywords::bezierCount);
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

} // namespace OMC
