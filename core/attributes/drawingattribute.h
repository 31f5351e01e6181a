#pragma once

#include "core/attributes/exposedattribute.h"

class AT_DrawingAttr;

namespace OMC {

/// What a read node shows. In element mode a drawing column gives both the element and the drawing at a frame; in
/// timing mode the element is that of the attribute "element", and a timing column, linked to the attribute "timing",
/// gives the drawings.
class BRINDLE_CORE_EXPORT DrawingAttribute : public LocalExposedAttribute {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingAttribute)
    Q_PROPERTY(QVariant element READ getElement)
    Q_PROPERTY(QString drawing_type READ getDrawingType)
    Q_PROPERTY(QString element_name READ getElementName)
    Q_PROPERTY(QString timing_name READ getTimingName)
    Q_PROPERTY(bool element_mode READ getElementMode WRITE setElementMode)
    Q_PROPERTY(OMC::Obj drawing READ getDrawing)
    Q_PROPERTY(OMC::Obj timing READ getTiming)

public:
    using LocalExposedAttribute::LocalExposedAttribute;

    std::string __str__() const override;

    /// The column of the drawings: that of the attribute "element" or, in timing mode, of "timing".
    QVariant getColumn() const override;
    void setColumn(const QVariant& value) override;
    QString getColumnName() const override; ///< The name of that column, "" without one.
    void setColumnName(const QString& name) override;

    QString value(int frame) const override;
    void setValue(int frame, const QVariant& drawings) override;

    virtual QVariant getElement() const; ///< The element whose drawings are shown, null for none.
    /// Lets the drawing column show another element: an Element or its number.
    virtual void setElement(const QVariant& element);
    virtual QString getDrawingType() const; ///< The mark of the drawing at the first frame, as its `type` has it.
    virtual QString getElementName() const; ///< The name of the element, "" for none.
    virtual QString getTimingName() const;  ///< The name of the column of the drawings, "" without one.
    virtual bool getElementMode() const; ///< Whether the drawing column of the attribute "element" gives the drawings.
    virtual void setElementMode(bool elementMode);
    virtual Obj getDrawing() const; ///< The attribute that has the link to the column: "element" or "timing".
    virtual Obj getTiming() const;  ///< The column of the drawings, or null.

    virtual double scaleFactor(int frame) const; ///< The scale factor of the drawing at a frame; 1 where none is shown.

    /// Adds the names of the drawings in a script's argument, and a text for each object in it that is no drawing.
    static void QVariantToDrawingNames(const QVariant& value, QStringList& names, QStringList& errors);

private:
    AT_DrawingAttr& drawingAttribute() const;
};

} // namespace OMC
