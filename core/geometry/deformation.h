#pragma once

#include "core/frame/baseobject.h"
#include "core/host/gr_deform.h"
#include "core/host/mo_deformation.h"
#include "core/host/vs_cacheid.h"

#include <QExplicitlySharedDataPointer>

#include <memory>
#include <vector>

namespace OMC {

/// The deformers of a transformation as they were when it was asked for them: where they put points of the plane.
///
/// Copies share the deformers, which live as long as one of them does, whatever becomes of the transformation.
class BRINDLE_CORE_EXPORT Deformation : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(Deformation)

public:
    using VertexTransform = QExplicitlySharedDataPointer<GR_VertexTransform>;

    Deformation(std::unique_ptr<MO_DeformationOglRenderer> renderer, std::vector<VertexTransform> transforms,
                const VS_CacheId& cache);
    Deformation(const Deformation& other);
    ~Deformation() override;

    /// "Deformation()[%1]": how many deformers there are.
    std::string __str__() const override;

    /// Where a point in any form that Point3d takes comes to, as a Point3d with z 0, or a list of them for a list of
    /// points; a list of one to three items that starts with a number is one point. In the units of the scene, or, with
    /// `scaled`, in those that the deformers count in.
    QVariant transform(const QVariant& value, bool scaled) const;
    QVariant operator()(const QVariant& value, bool scaled) const { return transform(value, scaled); }

private:
    struct Block;
    QExplicitlySharedDataPointer<Block> d;
};

} // namespace OMC
