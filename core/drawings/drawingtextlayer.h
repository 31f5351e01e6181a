#pragma once

#include "core/drawings/drawinglayer.h"
#include "core/host/gr_layer.h"

namespace OMC {

/// A layer with a paragraph of text. Lengths are in the units of the drawing. Characters are counted from 0, as Python
/// counts them.
///
/// A change is one undo step, or a part of the open edit session.
class BRINDLE_CORE_EXPORT DrawingTextLayer : public DrawingLayer {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingTextLayer)
    Q_PROPERTY(QVariant matrix READ getMatrix)
    Q_PROPERTY(QVariant colour_matrix READ getColourMatrix WRITE setColourMatrix)
    Q_PROPERTY(double width READ getWidth WRITE setWidth)
    Q_PROPERTY(double width_fixed READ getWidthFixed WRITE setWidthFixed)
    Q_PROPERTY(QString alignment READ getAlignment WRITE setAlignment)
    Q_PROPERTY(int margin_left READ getMarginLeft WRITE setMarginLeft)
    Q_PROPERTY(int margin_right READ getMarginRight WRITE setMarginRight)
    Q_PROPERTY(int indent READ getIndent WRITE setIndent)
    Q_PROPERTY(int line_space READ getLineSpace WRITE setLineSpace)
    Q_PROPERTY(int character_count READ getCharacterCount)
    Q_PROPERTY(int character_selection_from READ getCharacterSelectionFrom WRITE setCharacterSelectionFrom)
    Q_PROPERTY(int character_selection_to READ getCharacterSelectionTo WRITE setCharacterSelectionTo)
    Q_PROPERTY(QString text READ getText WRITE setText)
    Q_PROPERTY(QString text_selected READ getTextSelected WRITE setTextSelected)

public:
    using DrawingLayer::DrawingLayer;

    std::string __str__() const override; ///< "DrawingTextLayer()".

    QVariant getBoundingBox() const override;        ///< The box about the lines of text, with the heights of the font.
    QVariant getBoundingBoxVisible() const override; ///< The box about the outlines of the letters.
    QVariant getBoundingBoxLinestyle() const override; ///< The box about the lines of text ahead of the layer's matrix.
    QString getType() const override;                  ///< "Vector", as of a layer of strokes.

    virtual QVariant getMatrix() const; ///< The Matrix that places the text in the drawing.
    /// The Matrix that places the gradient of the text's colour.
    virtual QVariant getColourMatrix() const;
    virtual void setColourMatrix(const QVariant& matrix);
    /// The width at which lines are broken; 0 breaks them where the text does.
    virtual double getWidth() const;
    virtual void setWidth(double width);
    /// The width that the paragraph takes whatever its text; 0 takes that of the text.
    virtual double getWidthFixed() const;
    virtual void setWidthFixed(double width);
    /// "Left", "Center", "Right" or "Justify", written in any case of letters.
    virtual QString getAlignment() const;
    virtual void setAlignment(const QString& alignment);
    virtual int getMarginLeft() const; ///< The space at the left of all lines.
    virtual void setMarginLeft(int margin);
    virtual int getMarginRight() const; ///< The space at the right of all lines.
    virtual void setMarginRight(int margin);
    virtual int getIndent() const; ///< The space at the left of the first line, besides the margin.
    virtual void setIndent(int indent);
    virtual int getLineSpace() const; ///< The space between lines, besides that of the font.
    virtual void setLineSpace(int space);
    virtual int getCharacterCount() const; ///< The number of characters.
    /// The first selected character. Writing one behind the end of the selection moves the end there.
    virtual int getCharacterSelectionFrom() const;
    virtual void setCharacterSelectionFrom(int index);
    /// The character behind the selection. Writing one before its start moves the start there.
    virtual int getCharacterSelectionTo() const;
    virtual void setCharacterSelectionTo(int index);
    virtual QString getText() const; ///< The text. Of the selection, what lies behind a new one's end goes.
    virtual void setText(const QString& text);
    /// The selected part of the text. Writing it puts another text in its place, which is selected then.
    virtual QString getTextSelected() const;
    virtual void setTextSelected(const QString& text);

protected:
    void validate() const override;

private:
    const GR_TextLayer& layer() const;
    const GR_TextLayer::Data& data() const { return layer().GetData(); }
    void write(const GR_TextLayer::Data& changed);
    template <typename Value>
    void writeField(Value GR_TextLayer::Data::*field, const Value& value);
    int requireCharacter(int index) const;
};

} // namespace OMC
