#pragma once

#include "core/drawings/drawinglayerimplshared.h"
#include "core/drawings/layerprimitives.h"
#include "core/frame/obj.h"

#include <QString>
#include <QVariant>

#include <memory>
#include <vector>

namespace OMC {

class AllocatedRect2D;

/// A stroke of a layer: a path of cubic curves from its tail to its head, with a colour at each side, a line style and
/// a thickness. Left and right are seen along the path, with axes x to the right and y up.
///
/// It finds its stroke by the id, so it goes on through edits of other strokes, and through undo. It is invalid once
/// the stroke is erased or its layer is gone. A write is one undo step, or a part of the open edit session
/// (DrawingAccess). Lengths and coordinates are in units of the drawing.
class BRINDLE_CORE_EXPORT DrawingVectorStroke : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingVectorStroke)
    Q_PROPERTY(QVariant bezier_path READ getBezierPath WRITE setBezierPath)
    Q_PROPERTY(QVariant bounding_box READ getBoundingBox)
    Q_PROPERTY(QVariant bounding_box_visible READ getBoundingBoxVisible)
    Q_PROPERTY(QVariant bounding_box_inner READ getBoundingBoxInner)
    Q_PROPERTY(QVariant colour_left READ getColorLeft WRITE setColorLeft)
    Q_PROPERTY(QVariant color_left READ getColorLeft WRITE setColorLeft)
    Q_PROPERTY(QVariant colour_right READ getColorRight WRITE setColorRight)
    Q_PROPERTY(QVariant color_right READ getColorRight WRITE setColorRight)
    Q_PROPERTY(OMC::Obj contour_left READ getContourLeft)
    Q_PROPERTY(OMC::Obj contour_right READ getContourRight)
    Q_PROPERTY(OMC::Obj tail READ getTail)
    Q_PROPERTY(OMC::Obj head READ getHead)
    Q_PROPERTY(bool tail_cut READ getTailCut)
    Q_PROPERTY(bool head_cut READ getHeadCut)
    Q_PROPERTY(OMC::Obj tail_tangent READ getTailTangent)
    Q_PROPERTY(OMC::Obj head_tangent READ getHeadTangent)
    Q_PROPERTY(double left_thickness_tangent_from READ getLeftThicknessTangentFrom WRITE setLeftThicknessTangentFrom)
    Q_PROPERTY(double left_thickness_tangent_to READ getLeftThicknessTangentTo WRITE setLeftThicknessTangentTo)
    Q_PROPERTY(double right_thickness_tangent_from READ getRightThicknessTangentFrom WRITE setRightThicknessTangentFrom)
    Q_PROPERTY(double right_thickness_tangent_to READ getRightThicknessTangentTo WRITE setRightThicknessTangentTo)
    Q_PROPERTY(QString tip_type_from READ getTipTypeFrom)
    Q_PROPERTY(QString tip_type_to READ getTipTypeTo)
    Q_PROPERTY(uint unique_id READ getUniqueId)
    Q_PROPERTY(QVariant line_style READ getLineStyle WRITE setLineStyle)
    Q_PROPERTY(QVariant thickness READ getThickness WRITE setThickness)
    Q_PROPERTY(double thickness_max_visible READ getThicknessMaxVisible)
    Q_PROPERTY(bool degenerate READ getDegenerate)
    Q_PROPERTY(bool thickness_valid READ getThicknessValid)

public:
    DrawingVectorStroke(DrawingLayerImplShared* layer, const GR_VectorStroke* stroke);
    DrawingVectorStroke(const DrawingVectorStroke& other); ///< Shows the same stroke, also after it was moved.
    DrawingVectorStroke& operator=(const DrawingVectorStroke& other);

    std::string __str__() const override;

    bool operator==(const DrawingVectorStroke& other) const; ///< Whether both show one stroke.

    Obj layer() const;   ///< The layer that has the stroke.
    Obj drawing() const; ///< The drawing that has the stroke.

    /// Whether another stroke continues this one: ends of both meet as neighbours in a joint, in one direction.
    bool continuous(const QVariant& stroke) const;
    /// The strokes of the layer that are drawn as one line with this one: they share its thickness path and continue
    /// each other. In their order along the line.
    QList<QVariant> strokesShared() const;
    QList<QVariant> strokesSharedTickness() const;       ///< The strokes of the layer that share the thickness path.
    bool thicknessSharing(const QVariant& stroke) const; ///< Whether another stroke shares the thickness path.

    QVariant getBezierPath() const; ///< The path, a BezierPath; takes one, or what it reads, with degree 3.
    void setBezierPath(const QVariant& path);
    QVariant getBoundingBox() const; ///< The smallest rectangle about the curves, without thickness.
    /// The same with thickness and tips; of size 0 for a line that isn't shown.
    QVariant getBoundingBoxVisible() const;
    QVariant getBoundingBoxInner() const; ///< The smallest rectangle about the points on the curve.
    /// The boxes, for a caller that takes the object itself.
    AllocatedRect2D* newBoundingBox() const;
    AllocatedRect2D* newBoundingBoxVisible() const;
    AllocatedRect2D* newBoundingBoxInner() const;
    /// The colour at the left side, a DrawingVectorColour; null without one. Takes one, or the id of a colour.
    QVariant getColorLeft() const;
    void setColorLeft(const QVariant& colour);
    /// The colour at the right side, a DrawingVectorColour; null without one. Takes one, or the id of a colour.
    QVariant getColorRight() const;
    void setColorRight(const QVariant& colour);
    Obj getContourLeft() const;  ///< The contour at the left side; null for a degenerate stroke.
    Obj getContourRight() const; ///< The contour at the right side; null for a degenerate stroke.
    Obj getTail() const;         ///< The joint at the start.
    Obj getHead() const;         ///< The joint at the end.
    bool getTailCut() const;     ///< Whether the stroke was cut at its start, where it crosses another one.
    bool getHeadCut() const;     ///< Whether the stroke was cut at its end, where it crosses another one.
    Obj getTailTangent() const;  ///< The direction of travel at the start, of length 1; (0, 0) for a degenerate stroke.
    Obj getHeadTangent() const;  ///< The direction of travel at the end, of length 1; (0, 0) for a degenerate stroke.
    /// The slope of the left edge over the tip at the start: 0 goes straight on, -1 narrows by 45 degrees.
    double getLeftThicknessTangentFrom() const;
    void setLeftThicknessTangentFrom(double tangent);
    double getLeftThicknessTangentTo() const; ///< The same of the left edge at the end.
    void setLeftThicknessTangentTo(double tangent);
    double getRightThicknessTangentFrom() const; ///< The same of the right edge at the start.
    void setRightThicknessTangentFrom(double tangent);
    double getRightThicknessTangentTo() const; ///< The same of the right edge at the end.
    void setRightThicknessTangentTo(double tangent);
    QString getTipTypeFrom() const; ///< The form of the line's start: "Round", "Flat", "Bevel" or "Undefined".
    void setTipTypeFrom(const QString& type); ///< Sets the form of the start: "round", "flat" or "bevel" in any case.
    QString getTipTypeTo() const;             ///< The form of the line's end: "Round", "Flat", "Bevel" or "Undefined".
    void setTipTypeTo(const QString& type);   ///< Sets the form of the end: "round", "flat" or "bevel" in any case.
    unsigned int getUniqueId() const;         ///< The id, which no other stroke of the drawing ever has.
    QVariant getLineStyle() const;            ///< The line style, a DrawingVectorLineStyle of its own.
    void setLineStyle(const QVariant& lineStyle);
    /// The thickness, a DrawingVectorThickness of its own that shares the path. Takes one, or a
    /// DrawingVectorThicknessPath, which the stroke shares then, or the keys of a new path, or one thickness for all of
    /// it.
    QVariant getThickness() const;
    void setThickness(const QVariant& thickness);
    double getThicknessMaxVisible() const; ///< The largest full width of the line; 0 for one that isn't shown.
    bool getDegenerate() const;            ///< Whether all points are in one place: it is in no joint and no contour.
    bool getThicknessValid() const;        ///< Whether there is a thickness path, and a part of it for the stroke.

    /// Collects the strokes in an argument: the one that it is, those of a list of strokes of a layer, or those in a
    /// list. Each once, in their order.
    static std::vector<DrawingVectorStroke> getDrawingVectorStrokeFromQVariant(const QVariant& value);
    /// The same, added to those that were read before.
    static void getDrawingVectorStrokeFromQVariant(const QVariant& value, std::vector<DrawingVectorStroke>& strokes);

    /// The engine's stroke, good until the drawing changes; null once it is erased. Throws where the layer is gone.
    GR_VectorStroke* validateStroke() const;
    DrawingLayerImplShared* layerRecord() const; ///< Never null.
    layerprimitives::Key key() const;            ///< Of the stroke as it is now; throws where the layer is gone.

    /// Lets this wrapper and its copies show a stroke in another place, or in another layer.
    void updateStroke(GR_VectorStroke* stroke) const;
    void updateImpl(DrawingLayerImplShared* layer, GR_VectorStroke* stroke) const;

protected:
    void validate() const override;

private:
    struct Block;

    GR_VectorStroke& stroke() const;
    const GR_StrokeData& data() const;
    QVariant colourAt(GR_StrokeSide side) const;
    void setColourAt(GR_StrokeSide side, const QVariant& colour);
    Obj contourAt(GR_StrokeSide side) const;
    QString tipTypeAt(GR_StrokeEnd end) const;
    void setTipTypeAt(GR_StrokeEnd end, const QString& type);
    void setTangentAt(GR_StrokeSide side, GR_StrokeEnd end, double tangent);
    template <typename Edit>
    void change(const Edit& edit) const;

    std::shared_ptr<Block> d;
};

} // namespace OMC
