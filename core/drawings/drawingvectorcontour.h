#pragma once

#include "core/drawings/drawingvectorstroke.h"

namespace OMC {

/// A contour of a layer: a closed walk along sides of strokes that turns as far to the left as each joint allows.
/// Around an area it runs counterclockwise, with the area inside; around strokes that hang together, seen from outside,
/// it runs clockwise; lines with free ends have one without an area.
///
/// It is named by a stroke and one of its sides, and shows the contour that is at this side now, also after an edit. It
/// is invalid once the stroke is erased or its layer is gone. Coordinates are in units of the drawing.
class BRINDLE_CORE_EXPORT DrawingVectorContour : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingVectorContour)
    Q_PROPERTY(QString extremity READ getExtremity)
    Q_PROPERTY(QVariant bounding_box READ getBoundingBox)
    Q_PROPERTY(QVariant bounding_box_inner READ getBoundingBoxInner)
    Q_PROPERTY(bool clockwise READ getClockwise)
    Q_PROPERTY(bool degenerate READ getDegenerate)
    Q_PROPERTY(bool outline_colour_used READ getOutlineColourUsed)
    Q_PROPERTY(bool top_level READ getTopLevel)
    Q_PROPERTY(uint unique_id READ getUniqueId)
    Q_PROPERTY(OMC::Obj colour_inside READ getColourInside)
    Q_PROPERTY(OMC::Obj color_inside READ getColourInside)
    Q_PROPERTY(OMC::Obj colour_outside READ getColourOutside)
    Q_PROPERTY(OMC::Obj color_outside READ getColourOutside)
    Q_PROPERTY(QVariant contours_children READ getContoursChildren)
    Q_PROPERTY(QVariant strokes_current_inside READ getStrokesCurrentInside)
    Q_PROPERTY(QVariant strokes_current_children READ getStrokesCurrentChildren)
    Q_PROPERTY(QVariant strokes READ getStrokes)
    Q_PROPERTY(QVariant strokes_inside READ getStrokesInside)
    Q_PROPERTY(QVariant strokes_children READ getStrokesChildren)

public:
    /// Named by the stroke and the side that name it in the engine.
    DrawingVectorContour(DrawingLayerImplShared* layer, const GR_Contour* contour);
    /// Named by this stroke and side. `contour` is the one there, now.
    DrawingVectorContour(const DrawingVectorStroke& stroke, GR_StrokeSide side, const GR_Contour* contour);
    DrawingVectorContour(const DrawingVectorContour& other);
    DrawingVectorContour& operator=(const DrawingVectorContour& other);

    std::string __str__() const override;

    /// Whether both show one contour now. One that is gone is equal to its copies only.
    bool operator==(const DrawingVectorContour& other) const;

    Obj stroke() const;  ///< The stroke that names it.
    Obj layer() const;   ///< The layer that has the contour.
    Obj drawing() const; ///< The drawing that has the contour.

    bool containedIn(const QVariant& path) const; ///< Whether it lies in the area that a path fills.
    bool contains(const QVariant& path) const;    ///< Whether a path lies in its area.
    bool outside(const QVariant& path) const;     ///< Whether neither it nor a path holds a part of the other.
    Obj contourParent() const;                    ///< The smallest contour that holds it; null at top level.
    /// Where it stands to another contour: "Same", "Contains", "Contained_In", "Not_Related" or "Unknown"; to those in
    /// a list, a list of these. What holds no contour gives a list with "Unknown".
    QVariant relationship(const QVariant& other) const;

    /// Where the stroke's side starts to follow it: "Tail" at the left side, "Head" at the right one.
    QString getExtremity() const;
    QVariant getBoundingBox() const;      ///< The smallest rectangle about the curves.
    QVariant getBoundingBoxInner() const; ///< The smallest rectangle about the points on the curves.
    bool getClockwise() const;            ///< Whether it runs clockwise, around strokes that hang together.
    bool getDegenerate() const;           ///< Whether it has no area: lines, or strokes that coincide.
    bool getOutlineColourUsed() const;    ///< Whether one of its strokes is drawn with a line.
    bool getTopLevel() const;             ///< Whether no other contour holds it.
    unsigned int getUniqueId() const;     ///< An id that no other contour of the drawing has now.
    Obj getColourInside() const;          ///< The colour at its inside, a DrawingVectorColour; null without one.
    Obj getColourOutside() const;         ///< The colour at the other side of its first stroke; null without one.
    QVariant getContoursChildren() const; ///< The contours that lie directly in it.
    /// The strokes that hang together with its own and end within its area.
    QVariant getStrokesCurrentInside() const;
    QVariant getStrokesCurrentChildren() const; ///< The same of the contours that lie directly in it.
    QVariant getStrokes() const;                ///< Its own strokes, in the order of the walk.
    QVariant getStrokesInside() const;          ///< All strokes that lie in its area.
    QVariant getStrokesChildren() const;        ///< The strokes of the contours that lie directly in it.

    /// Collects the contours in an argument: the one that it is, those of a list of contours of a layer, or those in a
    /// list. Each once, in their order.
    static std::vector<DrawingVectorContour> getDrawingVectorContourFromQVariant(const QVariant& value);
    /// The same, added to those that were read before.
    static void getDrawingVectorContourFromQVariant(const QVariant& value, std::vector<DrawingVectorContour>& contours);

    /// The engine's contour, good until the drawing changes; null once there is none. Throws where the layer is gone.
    const GR_Contour* validateContour() const;
    DrawingLayerImplShared* layerRecord() const; ///< Never null.
    layerprimitives::Key key() const;            ///< Of the contour as it is now; throws where the layer is gone.

protected:
    void validate() const override;

private:
    struct Block;

    const GR_Contour& contour() const;
    bool compare(bool (GR_Contour::*question)(const GR_BezierPath2d&, int) const, const QVariant& path) const;

    std::shared_ptr<Block> d;
};

} // namespace OMC
