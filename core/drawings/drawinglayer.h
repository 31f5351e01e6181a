#pragma once

#include "core/drawings/drawinglayerimplshared.h"
#include "core/frame/obj.h"

#include <QString>
#include <QVariant>

#include <set>
#include <vector>

namespace OMC {

/// A layer of an art layer. It is invalid once it left the drawing: after the edit session in which it was erased, or
/// an undo of the step that made it. An undo that brings it back doesn't make it valid again.
class BRINDLE_CORE_EXPORT DrawingLayer : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingLayer)
    Q_PROPERTY(QVariant bounding_box READ getBoundingBox)
    Q_PROPERTY(QVariant bounding_box_visible READ getBoundingBoxVisible)
    Q_PROPERTY(QVariant bounding_box_linestyle READ getBoundingBoxLinestyle)
    Q_PROPERTY(QString type READ getType)

public:
    explicit DrawingLayer(DrawingLayerImplShared* layer);

    std::string __str__() const override; ///< "DrawingLayer()".

    virtual bool operator==(const DrawingLayer* other) const; ///< Whether both show one layer.

    virtual Obj drawing() const; ///< The drawing that has the layer.

    virtual QVariant getBoundingBox() const;        ///< The box about what the layer holds, without thickness of lines.
    virtual QVariant getBoundingBoxVisible() const; ///< The box about what is painted.
    virtual QVariant getBoundingBoxLinestyle() const; ///< The box about the lines alone, with their thickness.
    virtual QString getType() const; ///< "Vector" for strokes and texts, "Bitmap" for a picture, else "Unknown".

    /// A new wrapper of the class that fits the leaf; null for a leaf of no known kind.
    static DrawingLayer* getWrapped(GR_VectorDrawingObj* drawing, UT_Node* layer, const CA_DrawingLayerKey& key);
    /// Collects the layers in an argument, a list recursively, each once, in their order. Throws for one that is not
    /// valid.
    static void getDrawingLayerFromQVariant(const QVariant& value, std::set<UT_Node*>& nodes,
                                            std::vector<const DrawingLayer*>& layers);
    static std::vector<const DrawingLayer*> getDrawingLayerFromQVariant(const QVariant& value);

    UT_Node* getNode() const; ///< The leaf; throws as `validate` does.
    const DrawingLayerImplShared::Pointer& record() const { return m_record; }

protected:
    void validate() const override;

private:
    DrawingLayerImplShared::Pointer m_record;
};

} // namespace OMC
