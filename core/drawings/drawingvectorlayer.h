#pragma once

#include "core/drawings/drawinglayer.h"
#include "core/host/math_matrix2x3.h"

namespace OMC {

class DrawingVectorContourList;
class DrawingVectorJointList;
class DrawingVectorStrokeList;

/// A layer of strokes, with the contours that they enclose and the joints in which they meet.
class BRINDLE_CORE_EXPORT DrawingVectorLayer : public DrawingLayer {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingVectorLayer)
    Q_PROPERTY(OMC::Obj contours READ getContours)
    Q_PROPERTY(OMC::Obj strokes READ getStrokes)
    Q_PROPERTY(OMC::Obj joints READ getJoints)

public:
    using DrawingLayer::DrawingLayer;

    std::string __str__() const override; ///< "DrawingVectorLayer()".

    QVariant getBoundingBox() const override;
    QVariant getBoundingBoxVisible() const override;
    QVariant getBoundingBoxLinestyle() const override;
    QString getType() const override;

    virtual Obj getContours() const; ///< The contours of the layer.
    virtual Obj getStrokes() const;  ///< The strokes of the layer, bottom first.
    virtual Obj getJoints() const;   ///< The joints of the layer.
    /// The same, for a caller that takes the list itself.
    DrawingVectorContourList* newContours() const;
    DrawingVectorStrokeList* newStrokes() const;
    DrawingVectorJointList* newJoints() const;

    /// Transforms the strokes by a matrix, or by what Matrix reads, as one undo step or as a part of the open edit
    /// session. The strokes are new ones afterwards.
    virtual void transform(const QVariant& matrix);
    virtual void translate(const QVariant& vector); ///< The same, by a way to move.

protected:
    void validate() const override;

private:
    GR_Layer& layer() const;
    GR_Layer& measuredLayer() const;
    void transformBy(const Math::Matrix2x3& matrix);
};

} // namespace OMC
