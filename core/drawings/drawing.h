#pragma once

#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listqvar.h"
#include "core/host/ca_celkey.h"
#include "core/host/gr_drawing.h"

#include <QExplicitlySharedDataPointer>
#include <QString>
#include <QVariant>

#include <memory>

class UT_Command;

namespace OMC {

class DrawingArtLayer;
class Matrix;

/// The vector content of a drawing of an element: its four art layers, bottom first. drawing[2] and drawing["line"] are
/// the art layer of lines; names begin with "underlay" (0), "colour" or "color" (1), "line" (2) or "overlay" (3), in
/// any case of letters. Coordinates are fields of the drawing times its units, x to the right and y up.
///
/// A view: any number may show one drawing. It is invalid once the drawing leaves its element or the project is closed.
/// Reading needs no edit session.
class BRINDLE_CORE_EXPORT Drawing : public CountedList<ListQVar, IterableQVar> {
    Q_OBJECT
    BRINDLE_COPYABLE(Drawing)
    Q_PROPERTY(QVariant colors READ getColors WRITE setColors)
    Q_PROPERTY(QVariant pivot READ getPivot WRITE setPivot)
    Q_PROPERTY(bool pivot_defined READ getPivotDefined WRITE setPivotDefined)
    Q_PROPERTY(int field_size READ getFieldSize WRITE setFieldSize)
    Q_PROPERTY(double point_quantum READ getPointQuantum WRITE setPointQuantum)
    Q_PROPERTY(double thickness_max READ getThicknessMax)
    Q_PROPERTY(QVariant bounding_box READ getBoundingBox)
    Q_PROPERTY(QVariant bounding_box_visible READ getBoundingBoxVisible)
    Q_PROPERTY(bool empty READ getEmpty)
    Q_PROPERTY(bool modified READ getModified)
    Q_PROPERTY(OMC::Obj implicit_scaling_matrix READ getImplicitScaleMatrix)
    Q_PROPERTY(OMC::Obj implicit_scaling_matrix_inverse READ getImplicitScaleMatrixInverse)

public:
    /// Keeps the drawing, under the key that it is found by again. Null gives one that is invalid from the start.
    Drawing(GR_CompositeVectorDrawingObj* drawing, const CA_CelKey& key);

    std::string __str__() const override; ///< "Drawing()".

    std::size_t size() const override; ///< 4.
    /// The art layer at an index, 0 to 3; null where the drawing lacks it.
    QVariant get(int index) const override;
    QVariant get(const QString& name) const override; ///< The art layer of a name; fails for another name.
    virtual QVariant operator()(const QString& name) const;
    /// Puts copies of all layers of another art layer, or of those in a list, in the place of what an art layer holds.
    /// It is one undo step, or a part of the open edit session. Fails for an art layer as itself.
    void set(int index, const QVariant& art) override;
    void set(const QString& name, const QVariant& art) override;
    QList<QVariant> list() const override;             ///< The four art layers.
    bool contains(const QVariant& art) const override; ///< Whether an art layer is one of the drawing's.

    virtual QVariant getColors() const; ///< Always empty; writing it does nothing.
    virtual void setColors(const QVariant& colors);
    /// The point about which the drawing turns, as a Point2d; null while it isn't defined. Writing null removes it.
    virtual QVariant getPivot() const;
    virtual void setPivot(const QVariant& pivot);
    /// Whether there is a pivot. Writing false removes it, writing true brings the last one back.
    virtual bool getPivotDefined() const;
    virtual void setPivotDefined(bool defined);
    virtual int getFieldSize() const; ///< The number of fields across the drawing, above 0.
    virtual void setFieldSize(int size);
    virtual double getPointQuantum() const; ///< The grid that a file keeps points on; 0 keeps them as they are.
    virtual void setPointQuantum(double quantum);
    virtual double getThicknessMax() const;         ///< The largest full width of a line; 0 without lines.
    virtual QVariant getBoundingBox() const;        ///< The box about all art layers, without thickness of lines.
    virtual QVariant getBoundingBoxVisible() const; ///< The box about all that is painted.
    virtual bool getEmpty() const;    ///< Whether there is no stroke, text or picture; layers without any don't count.
    virtual bool getModified() const; ///< Whether the drawing changed since the project was saved or opened.
    /// From the units of the drawing to those of the camera, as the element's field chart and the drawing's scale
    /// factor say.
    virtual Obj getImplicitScaleMatrix() const;
    virtual Obj getImplicitScaleMatrixInverse() const; ///< From the units of the camera to those of the drawing.

    /// The art layer index of a name, or -1.
    static int artIndex(const QString& name);

    /// The engine's drawing; throws as `validate` does.
    GR_CompositeVectorDrawingObj& composite() const;

protected:
    void validate() const override;
    void beforeIteration() const override { validate(); }

private:
    GR_CompositeDrawingInfo& info() const;
    void change(std::unique_ptr<UT_Command> command, const QString& label) const;

    mutable QExplicitlySharedDataPointer<GR_CompositeVectorDrawingObj> m_drawing;
    CA_CelKey m_key;
};

} // namespace OMC
