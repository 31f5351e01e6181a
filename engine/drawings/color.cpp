#include "core/host/gr_color.h"

GR_ColorPtr GR_Color::CreateWith(const CM_ColorId_t& id, const Math::Matrix2x3& gradientMatrix)
{
    return std::make_shared<const GR_Color>(id, gradientMatrix);
}

GR_ColorPtr GR_Color::CopyWithDifferentColorID(const CM_ColorId_t& id) const
{
    auto changed = std::make_shared<GR_Color>(*this);
    changed->m_id = id;
    return changed;
}

GR_ColorPtr GR_Color::CopyWithDifferentGradientMatrix(const Math::Matrix2x3& matrix) const
{
    auto changed = std::make_shared<GR_Color>(*this);
    changed->m_gradientMatrix = matrix;
    return changed;
}

GR_ColorPtr GR_Color::CopyWithDifferentTextureMatrix(const Math::Matrix2x3& matrix) const
{
    auto changed = std::make_shared<GR_Color>(*this);
    changed->m_textureMatrix = matrix;
    return changed;
}

GR_ColorPtr GR_Color::CopyWithTexture(const CM_ColorId_t& id, const Math::Matrix2x3& matrix) const
{
    auto changed = std::make_shared<GR_Color>(*this);
    changed->m_textureId = id;
    changed->m_textureMatrix = matrix;
    return changed;
}

GR_ColorPtr GR_Color::CopyWithoutTexture() const
{
    return CopyWithTexture(CM_ColorId_t(), Math::Matrix2x3());
}
