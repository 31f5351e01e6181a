#pragma once

#include "core/host/math_matrix4x4.h"

/// Simple matrices to build with and to compare with.
inline Math::Matrix4x4 scaled(double factor)
{
    Math::Matrix4x4 matrix;
    matrix.scale(factor, factor, factor);
    return matrix;
}

inline Math::Matrix4x4 moved(double x, double y, double z)
{
    Math::Matrix4x4 matrix;
    matrix.translate(x, y, z);
    return matrix;
}
