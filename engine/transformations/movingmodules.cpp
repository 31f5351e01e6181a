#include "engine/transformations/movingmodules.h"

#include "core/host/sc_metrics.h"
#include "core/host/sc_scene.h"

namespace brindle::engine {

Math::Point3d PegModule::pivotAt(const MO_BaseContext& context) const
{
    return moving().pivot->value(context.frame());
}

const TransformationAttributes& PegModule::moving() const
{
    if (!m_moving)
        m_moving = std::make_unique<TransformationAttributes>(*this);
    return *m_moving;
}

bool ElementModule::getPivotForParent(const MO_BaseContext& context, Math::Point3d& pivot,
                                      Math::Matrix4x4& matrix) const
{
    const SC_SceneMetrics* metrics = sceneCommon() ? sceneCommon()->metrics() : nullptr;
    if (!metrics || !isEnabled())
        return false;
    const TransformationAttributes moving(*this);
    const Math::Point3d own = moving.pivot->value(context.frame());
    const Math::Matrix4x4 added =
        moving.matrix(context.frame(), {metrics->toOGLFactorX(), metrics->toOGLFactorY(), metrics->toOGLFactorZ()});
    if (own == Math::Point3d() && added.isIdentity())
        return false;
    pivot = own;
    matrix = added;
    return true;
}

} // namespace brindle::engine
