#pragma once

#include "core/host/export.h"
#include "core/host/math_matrix2x3.h"
#include "core/host/ut_id.h"

#include <memory>

/// The identity of a colour or a texture of a palette, as drawings keep it.
using CM_ColorId_t = UT_Id;

class GR_Color;
using GR_ColorPtr = std::shared_ptr<const GR_Color>;

/// What one side of a stroke is painted with: the identity of a palette's colour, a matrix that places its gradient,
/// and perhaps a texture with a matrix of its own. How the colour looks stands in the palette; an identity that no
/// palette knows stays as it is and paints nothing.
///
/// A matrix takes the gradient's or the texture's own coordinates to those of the drawing. A colour is shared by all
/// who hold it and never changes: the Copy operations give a new one. Two colours are equal when all that they say is.
class BRINDLE_HOST_EXPORT GR_Color {
public:
    /// Painting with this identity leaves the choice to the engine: the side takes the colour that the contour there is
    /// painted with already, and none where there is none.
    static constexpr CM_ColorId_t autoId() { return CM_ColorId_t(0xfffffffffffffffeULL); }
    /// Painting with this identity takes the paint away.
    static constexpr CM_ColorId_t eraserId() { return CM_ColorId_t(0xffffffffffffffffULL); }

    /// Names no colour.
    GR_Color() = default;
    /// With both matrices the identity, and no texture.
    explicit GR_Color(const CM_ColorId_t& id, const Math::Matrix2x3& gradientMatrix = {})
        : m_id(id),
          m_gradientMatrix(gradientMatrix)
    {}
    static GR_ColorPtr CreateWith(const CM_ColorId_t& id, const Math::Matrix2x3& gradientMatrix = {});

    const CM_ColorId_t& GetColorID() const { return m_id; }
    const Math::Matrix2x3& GetMatrix() const { return m_gradientMatrix; }
    bool HasTexture() const { return m_textureId.IsValid(); }
    const CM_ColorId_t& GetTextureID() const { return m_textureId; } ///< Names nothing without a texture.
    const Math::Matrix2x3& GetTextureMatrix() const { return m_textureMatrix; }

    GR_ColorPtr CopyWithDifferentColorID(const CM_ColorId_t& id) const;
    GR_ColorPtr CopyWithDifferentGradientMatrix(const Math::Matrix2x3& matrix) const;
    GR_ColorPtr CopyWithDifferentTextureMatrix(const Math::Matrix2x3& matrix) const;
    /// With a texture in the place of the one that there is. An identity that names nothing gives none.
    GR_ColorPtr CopyWithTexture(const CM_ColorId_t& id, const Math::Matrix2x3& matrix) const;
    GR_ColorPtr CopyWithoutTexture() const; ///< The texture's matrix is the identity again.

    bool operator==(const GR_Color&) const = default;

private:
    CM_ColorId_t m_id;
    Math::Matrix2x3 m_gradientMatrix;
    CM_ColorId_t m_textureId;
    Math::Matrix2x3 m_textureMatrix;
};
