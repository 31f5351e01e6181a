#include "core/drawings/drawingvectorthickness.h"

#include "core/drawings/drawingvectorthicknesspath.h"
#include "core/frame/finite.h"

namespace OMC {

DrawingVectorThickness::DrawingVectorThickness() = default;

DrawingVectorThickness::DrawingVectorThickness(const GR_ThicknessBinder& thickness) : m_binder(thickness) {}

DrawingVectorThickness::DrawingVectorThickness(const DrawingVectorThickness& other)
    : BaseObject(other),
      m_binder(other.m_binder)
{}

DrawingVectorThickness& DrawingVectorThickness::operator=(const DrawingVectorThickness& other)
{
    m_binder = other.m_binder;
    return *this;
}

std::string DrawingVectorThickness::__str__() const
{
    return "DrawingVectorThickness()";
}

double DrawingVectorThickness::getStartPosition() const
{
    return m_binder.startPosition;
}

void DrawingVectorThickness::setStartPosition(double position)
{
    requireFinite(position, 0);
    m_binder.startPosition = position;
}

double DrawingVectorThickness::getStopPosition() const
{
    return m_binder.stopPosition;
}

void DrawingVectorThickness::setStopPosition(double position)
{
    requireFinite(position, 0);
    m_binder.stopPosition = position;
}

double DrawingVectorThickness::getStartTangentLeft() const
{
    return m_binder.startTangentLeft;
}

void DrawingVectorThickness::setStartTangentLeft(double tangent)
{
    requireFinite(tangent, 0);
    m_binder.startTangentLeft = tangent;
}

double DrawingVectorThickness::getStartTangentRight() const
{
    return m_binder.startTangentRight;
}

void DrawingVectorThickness::setStartTangentRight(double tangent)
{
    requireFinite(tangent, 0);
    m_binder.startTangentRight = tangent;
}

double DrawingVectorThickness::getStopTangentLeft() const
{
    return m_binder.stopTangentLeft;
}

void DrawingVectorThickness::setStopTangentLeft(double tangent)
{
    requireFinite(tangent, 0);
    m_binder.stopTangentLeft = tangent;
}

double DrawingVectorThickness::getStopTangentRight() const
{
    return m_binder.stopTangentRight;
}

void DrawingVectorThickness::setStopTangentRight(double tangent)
{
    requireFinite(tangent, 0);
    m_binder.stopTangentRight = tangent;
}

QVariant DrawingVectorThickness::getThicknessPath() const
{
    return toVariant(DrawingVectorThicknessPath::createShared(m_binder.thicknessPath()));
}

void DrawingVectorThickness::setThicknessPath(const QVariant& path)
{
    const auto* given = objectFrom<DrawingVectorThicknessPath>(path);
    if (!given)
        throwInvalidArgument(0);
    m_binder.setThicknessPath(given->path());
}

void DrawingVectorThickness::shareThickness(const QVariant& other)
{
    const auto* given = objectFrom<DrawingVectorThickness>(other);
    if (!given)
        throwUnexpected();
    m_binder.shareThicknessPathAndFunctionPaths(given->m_binder);
}

} // namespace OMC
