#pragma once

#include "core/host/math_matrix4x4.h"

#include <Imath/ImathMatrix.h>

#include <algorithm>

/// Converts matrices to Imath's and back. Imath's multiply a row from the left, ours a column from the right: so the
/// cells lie in the same order in memory, and a product of ours is one of Imath's with its sides changed.
namespace brindle::engine {

inline Imath::M44d toImath(const Math::Matrix4x4& matrix)
{
    Imath::M44d cells(Imath::UNINITIALIZED);
    std::copy_n(matrix.cells().data(), 16, cells.getValue());
    return cells;
}

inline Math::Matrix4x4 fromImath(const Imath::M44d& matrix)
{
    return Math::Matrix4x4(matrix.getValue());
}

} // namespace brindle::engine
