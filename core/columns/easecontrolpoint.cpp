#include "core/columns/easecontrolpoint.h"

#include "core/columns/continuitywords.h"

namespace OMC {

EaseControlPoint* EaseControlPoint::at(TUEaseTimedValue& timedValue, quint64 index)
{
    return wrapperAt<EaseControlPoint>(timedValue, index);
}

EaseControlPoint* EaseControlPoint::at(TUEaseTimedValue& timedValue, double frame)
{
    return wrapperAt<EaseControlPoint>(timedValue, frame);
}

std::string EaseControlPoint::__str__() const
{
    return described(tr("EaseControlPoint( \"%1\", %2 )"));
}

QVariant EaseControlPoint::getValue() const
{
    return controlPoint().value;
}

void EaseControlPoint::setValue(const QVariant&)
{
    throw Exception(tr("NOT YET IMPLEMENTED"));
}

bool EaseControlPoint::getConstSegment() const
{
    return controlPoint().constSegment;
}

QString EaseControlPoint::getContinuity() const
{
    return continuitywords::wordFor(controlPoint().continuity, continuitywords::easeCount);
}

double EaseControlPoint::getEaseIn() const
{
    return controlPoint().easeIn;
}

double EaseControlPoint::getEaseInAngle() const
{
    return controlPoint().slopeIn;
}

double EaseControlPoint::getEaseOut() const
{
    return controlPoint().easeOut;
}

double EaseControlPoint::getEaseOutAngle() const
{
    return controlPoint().slopeOut;
}

} // namespace OMC
