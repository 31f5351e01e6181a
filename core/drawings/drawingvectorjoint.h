#pragma once

#include "core/drawings/drawingvectorstroke.h"

namespace OMC {

/// A joint of a layer: a place where ends of strokes meet, or a free end, seen from one of these ends. Sides are seen
/// along the stroke when it leaves the joint; the inside is its left.
///
/// It is named by a stroke and one of its ends, and shows the joint that is there now, also after an edit. It is
/// invalid once the stroke is erased or its layer is gone.
class BRINDLE_CORE_EXPORT DrawingVectorJoint : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingVectorJoint)
    Q_PROPERTY(QVariant contours READ getContours)
    Q_PROPERTY(int degree READ getDegree)
    Q_PROPERTY(QString extremity READ getExtremity)
    Q_PROPERTY(bool empty READ getEmpty)
    Q_PROPERTY(OMC::Obj position READ getPosition)
    Q_PROPERTY(OMC::Obj color_inside READ getColorInside)
    // Required: spelled so, beside the right spelling.
    Q_PROPERTY(OMC::Obj coloir_inside READ getColorInside)
    Q_PROPERTY(OMC::Obj colour_outside READ getColorOutside)
    Q_PROPERTY(OMC::Obj color_outside READ getColorOutside)
    Q_PROPERTY(OMC::Obj tangent READ getTangent)

public:
    DrawingVectorJoint(DrawingLayerImplShared* layer, const GR_Joint& joint);
    /// Of this stroke.
    DrawingVectorJoint(const DrawingVectorStroke& stroke, const GR_Joint& joint);
    DrawingVectorJoint(const DrawingVectorJoint& other);
    DrawingVectorJoint& operator=(const DrawingVectorJoint& other);

    std::string __str__() const override;

    /// Whether both show one joint now, also when they see it from other ends. One that is gone is equal to its copies
    /// only.
    bool operator==(const DrawingVectorJoint& other) const;

    Obj stroke() const;  ///< The stroke from whose end it is seen.
    Obj layer() const;   ///< The layer that has the joint.
    Obj drawing() const; ///< The drawing that has the joint.

    Obj jointOpposite() const; ///< The joint at the other end of the stroke.
    Obj left() const;          ///< The same joint, seen from the end that leaves it next, counterclockwise.
    Obj right() const;         ///< The same joint, seen from the end that leaves it next, clockwise.

    QVariant getContours() const; ///< The contours that pass through, counterclockwise from the one at the inside.
    int getDegree() const;        ///< How many ends of strokes meet: 1 for a free end, 0 for an empty joint.
    QString getExtremity() const; ///< The end of the stroke from which it is seen: "Head", "Tail" or "Invalid".
    bool getEmpty() const;        ///< Whether the stroke is degenerate, and so in no joint.
    Obj getPosition() const;      ///< The place that the ends share, a Point2d in units of the drawing.
    Obj getColorInside() const;   ///< The colour at the left of the stroke, seen from here; null without one.
    Obj getColorOutside() const;  ///< The colour at the right of the stroke, seen from here; null without one.
    Obj getTangent() const;       ///< The direction in which the stroke leaves, of length 1; (0, 0) when empty.

    /// Collects the joints in an argument: the one that it is, those of a list of joints of a layer, or those in a
    /// list. Each end of a stroke once, in their order.
    static std::vector<DrawingVectorJoint> getDrawingVectorJointFromQVariant(const QVariant& value);
    /// The same, added to those that were read before.
    static void getDrawingVectorJointFromQVariant(const QVariant& value, std::vector<DrawingVectorJoint>& joints);

    /// The engine's joint, good until the drawing changes; of no stroke once that is erased. Throws where the layer is
    /// gone.
    const GR_Joint& validateJoint() const;
    GR_Joint getJoint() const;                   ///< A copy of it.
    DrawingLayerImplShared* layerRecord() const; ///< Never null.
    layerprimitives::Key key() const;            ///< Of the end of the stroke; throws where the layer is gone.

protected:
    void validate() const override;

private:
    struct Block;

    const GR_Joint& joint() const;
    Obj wrapped(const GR_Joint& joint) const;

    std::shared_ptr<Block> d;
};

} // namespace OMC
