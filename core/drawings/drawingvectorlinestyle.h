#pragma once

#include "core/frame/obj.h"
#include "core/host/gr_linestyle.h"

#include <QString>
#include <QVariant>

namespace OMC {

/// How the line of a stroke is drawn: its type, colour and thickness, and the textures that run along it. By default
/// there is no line.
///
/// A value: a change reaches no drawing until it is set on a stroke. Lengths are in units of the drawing.
class BRINDLE_CORE_EXPORT DrawingVectorLineStyle : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingVectorLineStyle)
    Q_PROPERTY(QVariant colour READ getColour WRITE setColour)
    Q_PROPERTY(QString colour_id READ getColourId WRITE setColourId)
    Q_PROPERTY(QString type READ getType WRITE setType)
    Q_PROPERTY(double thickness READ getThickness WRITE setThickness)
    Q_PROPERTY(bool line READ getLine)
    Q_PROPERTY(bool visible READ getVisible)
    Q_PROPERTY(QVariant texture_scaling READ getTextureScaling WRITE setTextureScaling)
    Q_PROPERTY(QVariant texture_offset READ getTextureOffset WRITE setTextureOffset)
    Q_PROPERTY(bool texture_tiled READ getTextureTiled WRITE setTextureTiled)
    Q_PROPERTY(QString opacity_colour_id READ getOpacityColourId WRITE setOpacityColourId)
    Q_PROPERTY(QVariant opacity_texture_scaling READ getOpacityTextureScaling WRITE setOpacityTextureScaling)
    Q_PROPERTY(QVariant opacity_texture_offset READ getOpacityTextureOffset WRITE setOpacityTextureOffset)
    Q_PROPERTY(bool opacity_texture_tiled READ getOpacityTextureTiled WRITE setOpacityTextureTiled)
    Q_PROPERTY(bool texture_wrap_at_tip READ getTextureWrapAtTip WRITE setTextureWrapAtTip)
    Q_PROPERTY(bool opacity_textured READ getOpacityTextured)
    Q_PROPERTY(bool textured READ getTextured)

public:
    DrawingVectorLineStyle();
    explicit DrawingVectorLineStyle(const GR_LineStyle& style);
    DrawingVectorLineStyle(const DrawingVectorLineStyle& other);
    DrawingVectorLineStyle& operator=(const DrawingVectorLineStyle& other);

    std::string __str__() const override;

    bool operator==(const DrawingVectorLineStyle& other) const { return m_style == other.m_style; }

    QVariant getColour() const; ///< The colour as a DrawingVectorColour of its id; takes one, or an id.
    void setColour(const QVariant& colour);
    QString getColourId() const; ///< The id of the palette's colour; takes sixteen characters.
    void setColourId(const QString& id);
    /// "No_Linestyle", "Cutter_Linestyle", "Stroke_LineStyle", "Hair_Linestyle", "Thick_Linestyle" or
    /// "Thickness_Cutter_Linestyle", written in any case of letters; "Unknown" is only read.
    QString getType() const;
    void setType(const QString& type);
    double getThickness() const; ///< The full width of a line without a thickness path; not negative.
    void setThickness(double thickness);
    bool getLine() const;    ///< Whether it marks a line: of type stroke, hair or thick.
    bool getVisible() const; ///< Whether pictures show the line: of type hair or thick.
    /// The factors, a Vector2d, by which a picture of the texture is enlarged along and across the line. At (1, 1) the
    /// picture is as wide as the line; it is as long as its own proportions make it where the texture is tiled, else as
    /// long as the line. A factor below 0 mirrors it.
    QVariant getTextureScaling() const;
    void setTextureScaling(const QVariant& scaling);
    /// How far the texture is moved along the line and to its left, a Vector2d in lengths and widths of one picture.
    QVariant getTextureOffset() const;
    void setTextureOffset(const QVariant& offset);
    bool getTextureTiled() const; ///< Whether the texture repeats.
    void setTextureTiled(bool tiled);
    QString getOpacityColourId() const; ///< The id of the texture whose alpha thins the line; takes sixteen characters.
    void setOpacityColourId(const QString& id);
    QVariant getOpacityTextureScaling() const; ///< As texture_scaling, of the opacity texture.
    void setOpacityTextureScaling(const QVariant& scaling);
    QVariant getOpacityTextureOffset() const; ///< As texture_offset, of the opacity texture.
    void setOpacityTextureOffset(const QVariant& offset);
    bool getOpacityTextureTiled() const; ///< Whether the opacity texture repeats.
    void setOpacityTextureTiled(bool tiled);
    /// Whether textures cover the tips of the line as well; otherwise the tips continue what the line's ends show.
    bool getTextureWrapAtTip() const;
    void setTextureWrapAtTip(bool wrap);
    bool getOpacityTextured() const; ///< Whether it names an opacity texture.
    bool getTextured() const;        ///< Whether its colour is a texture of a palette of the open project.

    const GR_LineStyle& lineStyle() const { return m_style; } ///< The engine's line style.

private:
    GR_LineStyle m_style;
};

} // namespace OMC
