#pragma once

#include "core/host/export.h"
#include "core/host/math_matrix4x4.h"
#include "core/host/ut_sharebase.h"

#include <QExplicitlySharedDataPointer>

#include <memory>

class GR_VertexTransform;
class VS_CacheId;

/// A deformation that a transformation carries along.
class BRINDLE_HOST_EXPORT MO_Deformation : public UT_ShareBase {
public:
    /// The source of the deformation; deformations of one id are reset together.
    virtual unsigned int id() const = 0;
    /// The effect on a drawing as a whole.
    virtual Math::Matrix4x4 matrix() const { return {}; }
};

/// Computes deformed points for the display.
class BRINDLE_HOST_EXPORT MO_DeformationOglRenderer {
public:
    virtual ~MO_DeformationOglRenderer() = default;

    virtual void setDeformation(const MO_Deformation& deformation) = 0;
    /// The deformer of the deformation that was set, or null where that one moves no points.
    virtual QExplicitlySharedDataPointer<GR_VertexTransform> vertexTransform(const VS_CacheId& cache) = 0;
};

/// Makes what draws a kind of deformation.
class BRINDLE_HOST_EXPORT MO_DeformationRendererInterface {
public:
    virtual ~MO_DeformationRendererInterface() = default;

    virtual std::unique_ptr<MO_DeformationOglRenderer> createOglRenderer() const = 0;
};

/// A deformation that can be switched off and knows how it is drawn.
class BRINDLE_HOST_EXPORT MO_DeformationInformation : public MO_Deformation {
public:
    virtual bool enabled() const = 0;
    virtual const MO_DeformationRendererInterface* rendererInterface() const = 0; ///< Null where it isn't drawn.
};
