#pragma once

#include "core/host/export.h"
#include "core/host/math_matrix4x4.h"
#include "core/host/ut_sharebase.h"

class VS_CacheId;

/// One deformer of a chain: where it puts points of the plane. Who was given one holds it, whatever becomes of the
/// deformation that it was made for.
class BRINDLE_HOST_EXPORT GR_VertexTransform : public UT_ShareBase {
public:
    struct Vertex {
        float x = 0.0F;
        float y = 0.0F;
    };

    /// Writes a point to the output for each one from `begin` to `end`. The id stays the same for the points of one
    /// call and all deformers that they go through.
    virtual void transform(const VS_CacheId& cache, const Vertex* begin, const Vertex* end, Vertex* output) const = 0;
};

/// The base of all deformers.
class BRINDLE_HOST_EXPORT GR_Deform {
public:
    /// From the units that points of the scene are told in to those that deformers count in.
    static Math::Matrix4x4 implicitScalingMatrix();
    static void setImplicitScalingMatrix(const Math::Matrix4x4& matrix);
};
