#include "core/columns/controlpoint.h"

namespace OMC {

ControlPoint::ControlPoint(double frame) : m_frame(frame) {}

std::string ControlPoint::__str__() const
{
    validate();
    return "ControlPoint()";
}

QVariant ControlPoint::getValue() const
{
    throw Exception(tr("Control point should be implemented in higher-level classes."));
}

void ControlPoint::setValue(const QVariant&)
{
    throw Exception(tr("Control point should be implemented in higher-level classes."));
}

double ControlPoint::getFrame() const
{
    validate();
    return m_frame;
}

} // namespace OMC
