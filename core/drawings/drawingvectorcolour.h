#pragma once

#include "core/frame/obj.h"
#include "core/host/gr_color.h"

#include <QString>
#include <QVariant>

namespace OMC {

/// What a side of a stroke is painted with: the id of a palette's colour, the matrix of its gradient, and perhaps a
/// texture with a matrix. It is made of another one, of an id, or of "AUTO" or "ERASER"; by default it names no colour.
///
/// A value: a change reaches no drawing until it is set on a stroke. An id is sixteen hexadecimal digits, as the
/// colours of palettes give them; an id that no palette knows stays and paints nothing.
class BRINDLE_CORE_EXPORT DrawingVectorColour : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingVectorColour)
    Q_PROPERTY(QVariant colour_matrix READ getColourMatrix WRITE setColourMatrix)
    Q_PROPERTY(QString colour_id READ getColourId WRITE setColourId)
    Q_PROPERTY(QString id READ getColourId WRITE setColourId)
    Q_PROPERTY(QVariant texture_matrix READ getTextureMatrix WRITE setTextureMatrix)
    Q_PROPERTY(QVariant texture_id READ getTextureId WRITE setTextureId)

public:
    DrawingVectorColour(); ///< Names no colour.
    DrawingVectorColour(const DrawingVectorColour& other);
    explicit DrawingVectorColour(const GR_Color& colour);
    explicit DrawingVectorColour(const GR_Color* colour); ///< Null names no colour.
    explicit DrawingVectorColour(GR_ColorPtr colour);     ///< Shared. Null names no colour.
    DrawingVectorColour& operator=(const DrawingVectorColour& other);

    std::string __str__() const override;

    bool operator==(const DrawingVectorColour& other) const { return *m_colour == *other.m_colour; }

    /// The colour with which a side takes what the contour there is painted with already.
    static const DrawingVectorColour* autoColour();
    static const DrawingVectorColour* eraserColour(); ///< The colour with which paint is taken away.

    /// A colour of a vector colour, of "AUTO" or "ERASER" in any case of letters, or of a text of sixteen characters,
    /// the id of a colour; null for anything else.
    ///
    /// The caller doesn't own it, and it is good until the next call.
    static const DrawingVectorColour* fromQVariant(const QVariant& value);
    /// The engine's colour of what fromQVariant() takes; null for anything else.
    static GR_ColorPtr colourFrom(const QVariant& value);
    /// The id that a text of sixteen characters tells; a text of another length throws throwInvalidArgument(0).
    ///
    /// Required: nothing but the length is checked. A text that is no number names no colour.
    static CM_ColorId_t idFrom(const QString& text);

    /// From the coordinates of the colour's gradient to those of the drawing, a Matrix; of what Matrix takes, the part
    /// in the plane counts.
    QVariant getColourMatrix() const;
    void setColourMatrix(const QVariant& matrix);
    QString getColourId() const; ///< The id of the palette's colour; takes sixteen characters.
    void setColourId(const QString& id);
    /// From the coordinates of the texture to those of the drawing, a Matrix; of what Matrix takes, the part in the
    /// plane counts.
    QVariant getTextureMatrix() const;
    void setTextureMatrix(const QVariant& matrix);
    QVariant getTextureId() const; ///< The id of the texture, or false without one; null or false takes it away.
    void setTextureId(const QVariant& id);

    const GR_ColorPtr& colour() const { return m_colour; } ///< The engine's colour, shared. Never null.

private:
    GR_ColorPtr m_colour;
};

} // namespace OMC
