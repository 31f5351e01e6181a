#pragma once

#include "core/drawings/drawingartlayer.h"
#include "core/host/math_matrix2x3.h"

#include <memory>

namespace OMC {

class DrawingLayer;

/// An art layer of a drawing with its layers, bottom first: what is painted later lies above. art[0] is the lowest
/// layer.
///
/// A change is one undo step, or a part of the open edit session (DrawingAccess). It fails while a session is open on
/// another drawing.
class BRINDLE_CORE_EXPORT DrawingVectorArtLayer : public DrawingArtLayer {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingVectorArtLayer)
    Q_PROPERTY(QVariant colors READ getColors)
    Q_PROPERTY(QVariant pivot READ getPivot WRITE setPivot)
    Q_PROPERTY(bool pivot_defined READ getPivotDefined WRITE setPivotDefined)
    Q_PROPERTY(double thickness_max READ getThicknessMax)
    Q_PROPERTY(QVariant bounding_box READ getBoundingBox)
    Q_PROPERTY(QVariant bounding_box_visible READ getBoundingBoxVisible)
    Q_PROPERTY(bool empty READ getEmpty)

public:
    DrawingVectorArtLayer(GR_VectorDrawingObj* drawing, const CA_DrawingLayerKey& key);

    std::string __str__() const override; ///< "DrawingVectorArtLayer()".

    std::size_t size() const override;      ///< The number of layers.
    QVariant get(int index) const override; ///< The layer at an index.
    using DrawingArtLayer::get;
    DrawingLayer* newItem(int index) const; ///< The same, for a caller that takes the wrapper itself.
    using DrawingArtLayer::set;
    void set(int index, const QVariant& value) override; ///< Does nothing: layers are added and removed.
    QList<QVariant> list() const override;               ///< All layers.
    bool contains(const QVariant& layer) const override; ///< Whether a layer is one of the art layer's.

    /// Adds layers under the top one and gives them: an empty one for the name of a layer type ("PEN_LAYER"); copies of
    /// all layers of an art layer, which go on top; copies of layers; or a layer with a copy of a stroke, for each
    /// stroke. A name gives the layer, the others give a list of layers; anything else gives null.
    virtual QVariant add(const QVariant& value);
    /// Removes a layer, given as itself or its index, or a stroke of a layer; or the layers or strokes of a list.
    virtual void remove(const QVariant& value);
    virtual void clear(); ///< Removes all layers.
    /// The contours that hold a point: those of the top layer first, in a layer from the innermost outwards.
    virtual QList<QVariant> findContainingContour(const QVariant& point) const;
    /// Transforms all that the art layer holds by a matrix, or by what Matrix reads. Its layers are new ones
    /// afterwards.
    virtual void transform(const QVariant& matrix);
    virtual void translate(const QVariant& vector); ///< The same, by a way to move.

    virtual QVariant getColors() const; ///< Always empty.
    /// The pivot of the drawing. It can't be written here: set the pivot of the Drawing.
    virtual QVariant getPivot() const;
    virtual void setPivot(const QVariant& pivot);
    virtual bool getPivotDefined() const; ///< Whether the drawing has a pivot. It can't be written here.
    virtual void setPivotDefined(bool defined);
    virtual double getThicknessMax() const;         ///< The largest full width of a line; 0 without lines.
    virtual QVariant getBoundingBox() const;        ///< The box about all layers, without thickness of lines.
    virtual QVariant getBoundingBoxVisible() const; ///< The box about all that is painted.
    virtual bool getEmpty() const; ///< Whether there is no stroke, text or picture; layers without any don't count.

    /// The engine's art layer, which may be gone; the operations check it.
    GR_VectorDrawingObj* getVectorDrawing() const { return m_vector; }

protected:
    void validate() const override;

private:
    GR_VectorDrawingObj& drawing() const;
    const std::vector<UT_Node*>& leaves() const;
    UT_Node* topLayer() const;
    DrawingLayer* wrapperOf(UT_Node* leaf) const;
    QVariant addCopies(const std::vector<GR_DrawingBase*>& arts);
    void transformBy(const Math::Matrix2x3& matrix);
    const GR_CompositeDrawingInfo* drawingInfo() const;
    [[noreturn]] static void refusePivot();

    GR_VectorDrawingObj* m_vector;
    /// The leaves as of a revision of the drawing. Copies share them.
    mutable std::shared_ptr<const std::vector<UT_Node*>> m_leaves;
    mutable int m_leavesRevision = -1;
};

} // namespace OMC
