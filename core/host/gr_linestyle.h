#pragma once

#include "core/host/export.h"
#include "core/host/gr_color.h"
#include "core/host/math_point.h"

/// How the line of a stroke is drawn: its type, the identity of its colour, its thickness, and how textures lie on it.
/// A value; who holds a copy owns it. It is equal to another when all fields are.
///
/// A texture runs along the line: its x along the stroke, and its y across, from the right edge to the left one. With a
/// scaling of (1, 1), one picture covers the width of the line at each place. One that repeats is as long as its form
/// asks for where the line is widest; any other one covers the line from its start to its end, and what lies outside of
/// it is transparent. The scaling makes it so many times as long, from the start, and as wide, about the middle; below
/// 0 it is mirrored, and at 0 not seen. The offset moves it forwards by so many of its lengths, and to the left by so
/// many of its widths.
///
/// A gradient runs along the line from its start to its end, or, radial, from the middle of the line to both edges.
class BRINDLE_HOST_EXPORT GR_LineStyle {
public:
    enum Type {
        kNone = 0,              ///< No line: the stroke only bounds areas.
        kCutter = 1,            ///< Not seen; cuts what lies across.
        kStroke = 2,            ///< Not seen in pictures: an outline for the person who draws.
        kHair = 3,              ///< One pixel wide at each size.
        kThick = 4,             ///< As wide as the thickness says.
        kThicknessCutter = 128, ///< Not seen; cuts across its thickness.
    };

    /// Whether a number is one of the types above.
    static bool IsType(int type);

    /// kNone, with no colour and a thickness of 0.
    GR_LineStyle() = default;
    explicit GR_LineStyle(Type type) : m_type(type) {}
    GR_LineStyle(Type type, const CM_ColorId_t& color, double thickness)
        : m_type(type),
          m_thickness(thickness),
          m_colorId(color)
    {}

    Type GetType() const { return m_type; }
    void SetType(Type type) { m_type = type; }
    const CM_ColorId_t& GetColorID() const { return m_colorId; }
    void SetColorID(const CM_ColorId_t& id) { m_colorId = id; }
    /// The full width of a line whose stroke has no thickness path, in units of the drawing. Finite, and not negative.
    double GetThickness() const { return m_thickness; }
    void SetThickness(double thickness) { m_thickness = thickness; }

    bool IsLine() const;    ///< Whether it marks a line at all: kStroke, kHair and kThick.
    bool IsVisible() const; ///< Whether pictures show the line: kHair and kThick.

    const Math::Vector2d& getTextureScaling() const { return m_texture.scaling; }
    void setTextureScaling(const Math::Vector2d& scaling) { m_texture.scaling = scaling; }
    const Math::Vector2d& getTextureOffset() const { return m_texture.offset; }
    void setTextureOffset(const Math::Vector2d& offset) { m_texture.offset = offset; }
    bool isTextureTiled() const { return m_texture.tiled; } ///< Whether the picture repeats.
    void setTextureTiled(bool tiled) { m_texture.tiled = tiled; }

    /// The texture whose alpha thins the line.
    const CM_ColorId_t& GetOpacityColorID() const { return m_opacityColorId; }
    void SetOpacityColorID(const CM_ColorId_t& id) { m_opacityColorId = id; }
    const Math::Vector2d& getOpacityTextureScaling() const { return m_opacityTexture.scaling; }
    void setOpacityTextureScaling(const Math::Vector2d& scaling) { m_opacityTexture.scaling = scaling; }
    const Math::Vector2d& getOpacityTextureOffset() const { return m_opacityTexture.offset; }
    void setOpacityTextureOffset(const Math::Vector2d& offset) { m_opacityTexture.offset = offset; }
    bool isOpacityTextureTiled() const { return m_opacityTexture.tiled; }
    void setOpacityTextureTiled(bool tiled) { m_opacityTexture.tiled = tiled; }

    /// Whether the line's tips count to its length; else they continue what its ends show.
    bool isTextureWrapAtTip() const { return m_wrapAtTip; }
    void setTextureWrapAtTip(bool wrap) { m_wrapAtTip = wrap; }

    /// Whether the identity of the colour names a texture of a palette of the open project.
    bool isTextured() const;
    bool isOpacityTextured() const { return m_opacityColorId.IsValid(); } ///< Whether there is an opacity texture.

    bool operator==(const GR_LineStyle&) const = default;

private:
    struct Texture {
        Math::Vector2d scaling{1, 1};
        Math::Vector2d offset;
        bool tiled = false;

        bool operator==(const Texture&) const = default;
    };

    Type m_type = kNone;
    bool m_wrapAtTip = false;
    double m_thickness = 0;
    CM_ColorId_t m_colorId;
    CM_ColorId_t m_opacityColorId;
    Texture m_texture;
    Texture m_opacityTexture;
};
