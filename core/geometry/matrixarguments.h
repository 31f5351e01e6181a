#pragma once

#include "core/frame/finite.h"
#include "core/geometry/point3d.h"
#include "core/host/math_matrix4x4.h"

#include <initializer_list>

/// The arguments that matrices and transformations share.
namespace OMC {

/// Refuses arguments that aren't finite, by their place.
inline void requireFinite(std::initializer_list<double> arguments)
{
    unsigned int index = 0;
    for (const double argument : arguments)
        requireFinite(argument, index++);
}

/// Reads a value leniently; `fallback` for null.
inline Math::Point3d pointOr(const QVariant& value, const Math::Point3d& fallback)
{
    return value.isNull() ? fallback : Point3d::valueOf(value);
}
inline Math::Vector3d vectorOr(const QVariant& value, const Math::Vector3d& fallback)
{
    return value.isNull() ? fallback : Point3d::valueOf(value) - Math::Point3d();
}

/// The axis of a turn: out of the picture unless it is given.
inline Math::Vector3d rotationAxis(const QVariant& axis)
{
    return vectorOr(axis, {0, 0, 1});
}

/// The inverse, or the failure in the words of the class that asks.
template <typename T>
Math::Matrix4x4 inverseOf(const Math::Matrix4x4& matrix)
{
    try {
        return matrix.getInverse();
    } catch (...) {
        throw Exception(T::tr("Matrix cannot be inverted."));
    }
}

} // namespace OMC
