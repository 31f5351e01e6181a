#pragma once

#include "core/frame/baseobject.h"
#include "core/host/gr_deform.h"
#include "core/host/mo_deformation.h"
#include "core/host/vs_cacheid.h"

#include <QExplicitlySharedDataPointer>

#include <memory>
#include <vector>

namespace OMC {

/// The deformers of a transformation at the time of the call that gave them. They move points of the plane.
///
/// Copies share the deformers. These live as long as one of the copies, also after the transformation is gone.
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

    /// Deforms a point in any form that Point3d takes, and gives a Point3d with z 0; a list of points gives a list.
    /// A list of one to three items that starts with a number is one point. Coordinates are in the units of the scene,
    /// or, with `scaled`, in the units of the deformers.
    QVariant transform(const QVariant& value, bool scaled) const;
    QVariant operator()(const QVariant& value, bool scaled) const { return transform(value, scaled); }

private:
    struct Block;
    QExplicitlySharedDataPointer<Block> d;
};

} // namespace OMC
