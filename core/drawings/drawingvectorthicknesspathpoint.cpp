#include "core/drawings/drawingvectorthicknesspathpoint.h"

#include "core/frame/finite.h"

namespace OMC {

namespace {

/// A width at a key.
double usableWidth(double thickness, unsigned int argument)
{
    requireFinite(thickness, argument);
    if (thickness < 0)
        BaseObject::throwInvalidArgument(argument);
    return thickness;
}

double finite(double number)
{
    requireFinite(number, 0);
    return number;
}

} // namespace

DrawingVectorThicknessPathPoint::DrawingVectorThicknessPathPoint() : m_key(0, 0) {}

DrawingVectorThicknessPathPoint::DrawingVectorThicknessPathPoint(double position, double thickness)
    : m_key(finite(position), usableWidth(thickness, 1))
{}

DrawingVectorThicknessPathPoint::DrawingVectorThicknessPathPoint(const Key& key) : m_key(key) {}

DrawingVectorThicknessPathPoint::DrawingVectorThicknessPathPoint(const DrawingVectorThicknessPathPoint& other)
    : BaseObject(other),
      m_key(other.m_key)
{}

DrawingVectorThicknessPathPoint&
DrawingVectorThicknessPathPoint::operator=(const DrawingVectorThicknessPathPoint& other)
{
    m_key = other.m_key;
    return *this;
}

std::string DrawingVectorThicknessPathPoint::__str__() const
{
    return "DrawingVectorThicknessPathPoint()";
}

double DrawingVectorThicknessPathPoint::getPosition() const
{
    return m_key.position;
}

void DrawingVectorThicknessPathPoint::setPosition(double position)
{
    m_key = Key(finite(position), m_key.left.thickness, m_key.right.thickness);
}

double DrawingVectorThicknessPathPoint::getLeftThickness() const
{
    return m_key.left.thickness;
}

void DrawingVectorThicknessPathPoint::setLeftThickness(double thickness)
{
    m_key.left.thickness = usableWidth(thickness, 0);
}

double DrawingVectorThicknessPathPoint::getRightThickness() const
{
    return m_key.right.thickness;
}

void DrawingVectorThicknessPathPoint::setRightThickness(double thickness)
{
    m_key.right.thickness = usableWidth(thickness, 0);
}

double DrawingVectorThicknessPathPoint::getLeftThicknessFromControl() const
{
    return m_key.left.fromControl;
}

void DrawingVectorThicknessPathPoint::setLeftThicknessFromControl(double thickness)
{
    m_key.left.fromControl = finite(thickness);
}

double DrawingVectorThicknessPathPoint::getLeftThicknessFromControlPosition() const
{
    return m_key.left.fromControlPosition;
}

void DrawingVectorThicknessPathPoint::setLeftThicknessFromControlPosition(double position)
{
    m_key.left.fromControlPosition = finite(position);
}

double DrawingVectorThicknessPathPoint::getLeftThicknessToControl() const
{
    return m_key.left.toControl;
}

void DrawingVectorThicknessPathPoint::setLeftThicknessToControl(double thickness)
{
    m_key.left.toControl = finite(thickness);
}

double DrawingVectorThicknessPathPoint::getLeftThicknessToControlPosition() const
{
    return m_key.left.toControlPosition;
}

void DrawingVectorThicknessPathPoint::setLeftThicknessToControlPosition(double position)
{
    m_key.left.toControlPosition = finite(position);
}

double DrawingVectorThicknessPathPoint::getRightThicknessFromControl() const
{
    return m_key.right.fromControl;
}

void DrawingVectorThicknessPathPoint::setRightThicknessFromControl(double thickness)
{
    m_key.right.fromControl = finite(thickness);
}

double DrawingVectorThicknessPathPoint::getRightThicknessFromControlPosition() const
{
    return m_key.right.fromControlPosition;
}

void DrawingVectorThicknessPathPoint::setRightThicknessFromControlPosition(double position)
{
    m_key.right.fromControlPosition = finite(position);
}

double DrawingVectorThicknessPathPoint::getRightThicknessToControl() const
{
    return m_key.right.toControl;
}

void DrawingVectorThicknessPathPoint::setRightThicknessToControl(double thickness)
{
    m_key.right.toControl = finite(thickness);
}

double DrawingVectorThicknessPathPoint::getRightThicknessToControlPosition() const
{
    return m_key.right.toControlPosition;
}

void DrawingVectorThicknessPathPoint::setRightThicknessToControlPosition(double position)
{
    m_key.right.toControlPosition = finite(position);
}

} // namespace OMC
