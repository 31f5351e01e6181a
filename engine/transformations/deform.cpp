#include "core/host/gr_deform.h"
#include "core/host/vs_cacheid.h"

std::atomic<quint64> VS_CacheId::next_cache_id = 1;

namespace {

/// Deformers count in parts of a unit of the scene that single-precision numbers hold exactly.
constexpr double partsOfUnit = 1024;

Math::Matrix4x4& scaling()
{
    static Math::Matrix4x4 matrix = [] {
        Math::Matrix4x4 parts;
        parts.scale(partsOfUnit, partsOfUnit, partsOfUnit);
        return parts;
    }();
    return matrix;
}

} // namespace

Math::Matrix4x4 GR_Deform::implicitScalingMatrix()
{
    return scaling();
}

void GR_Deform::setImplicitScalingMatrix(const Math::Matrix4x4& matrix)
{
    scaling() = matrix;
}
