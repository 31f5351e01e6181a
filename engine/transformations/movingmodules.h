#pragma once

#include "engine/graph/hostnode.h"
#include "engine/transformations/localtransformation.h"

namespace brindle::engine {

/// A peg. Its attributes are looked up when they are first asked for.
class PegModule final : public HostModule<TUPegModule>, private MO_PegTransform {
public:
    using HostModule::HostModule;

    const MO_PegTransform& pegTransform() const override { return *this; }

private:
    AT_Position3dAttr* position() const override { return moving().position; }
    AT_DoubleAttr* rotationAngle() const override { return moving().angle; }
    AT_Rotation3dAttr* rotation3d() const override { return moving().rotation; }
    AT_DoubleAttr* skew() const override { return moving().skew; }
    AT_Scale3dAttr* scale() const override { return moving().scale; }
    AT_Position3dAttr* pivot() const override { return moving().pivot; }
    Math::Point3d pivotAt(const MO_BaseContext& context) const override;
    bool usesFullTransform() const override { return moving().isInSpace(1); }

    const TransformationAttributes& moving() const;

    mutable std::unique_ptr<TransformationAttributes> m_moving;
};

/// A node that shows the drawings of an element, with a transformation of its own.
class ElementModule final : public HostModule<MO_ElementModule> {
public:
    using HostModule::HostModule;

    bool getPivotForParent(const MO_BaseContext& context, Math::Point3d& pivot, Math::Matrix4x4& matrix) const override;
};

} // namespace brindle::engine
