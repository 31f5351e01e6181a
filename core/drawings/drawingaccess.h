#pragma once

#include "core/frame/obj.h"
#include "core/host/gr_layer.h"

#include <QString>
#include <QVariant>

namespace OMC {

/// Edits drawings. All edits happen in a session, which is open for one drawing at a time and becomes one step of the
/// undo list, "Drawing Modified with Python".
///
///     access = brindle.DrawingAccess()
///     with access.editing(drawing["line"]):
///         layer = access.vector_layer_create("PEN_LAYER")
///         access.stroke_create(path, layer, style, "LEFT", colour)
///
/// Sessions that are begun and ended by hand (`vector_begin_operations`, `vector_end_operations`) are shared by all
/// scripts: who begins while one is open on the same drawing joins it, and one end closes it. An operation that fails
/// changes nothing, and the session stays open. The class has no state of its own.
class BRINDLE_CORE_EXPORT DrawingAccess : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingAccess)
    Q_PROPERTY(bool colour_respect_sticky READ getColourRespectSticky WRITE setColourRespectSticky)

public:
    DrawingAccess() = default;
    DrawingAccess(const DrawingAccess&) = default;

    std::string __str__() const override; ///< "DrawingAccess()".

    /// Whether sides of strokes with the eraser colour keep it when the colour of a contour is set.
    virtual bool getColourRespectSticky() const;
    virtual void setColourRespectSticky(bool respect);

    /// Opens a session on the drawing of an art layer, or joins the one that is open on it. New layers go into the art
    /// layer that opened it.
    virtual void vectorBeginOperations(const QVariant& artLayer);
    /// Closes the session for all who joined it. `finish` tidies what is computed later otherwise.
    virtual void vectorEndOperations(bool finish);

    virtual Obj vectorLayerCreate(const QString& type); ///< Makes a layer on top: "PEN_LAYER", ...
    /// Makes a layer directly above a layer, or above the layer of a stroke.
    virtual Obj vectorLayerCreateAbove(const QVariant& reference, const QString& type);
    /// Makes a layer directly under a layer, or under the layer of a stroke.
    virtual Obj vectorLayerCreateUnder(const QVariant& reference, const QString& type);
    /// Makes a layer at an index, 0 for the bottom, up to the number of layers.
    virtual Obj vectorLayerCreateAt(unsigned int index, const QString& type);
    /// Makes layers with strokes by a map, or a list of maps, and gives them in a list.
    ///
    /// {"strokes": [...], "masks": [...], "reference_layer": layer, "under": False}: the first layer goes above the
    /// reference (under it with "under"), without one to the top (to the bottom), each further one above (under) the
    /// one before it. A stroke is {"path": path, "line_style": style, "colour_left": colour, "colour_right": colour,
    /// "type": "PEN_LAYER"}, of which only the path must be there, or a DrawingVectorStroke to copy. One with a "type"
    /// begins a new layer; others go into the layer of the stroke before. A mask is {"path": outline, "holes":
    /// [outline, ...]}, a layer of its own, painted with the automatic colour.
    virtual QList<QVariant> vectorLayersCreate(const QVariant& description);
    /// Copies what layers hold to the end of another layer, or of the layer of a stroke.
    virtual void vectorLayerCopy(const QVariant& layers, const QVariant& target);
    /// Moves layers of the drawing, kept in their order, to the place above a layer, or above the layer of a stroke.
    virtual void vectorLayerMove(const QVariant& layers, const QVariant& target);
    /// Puts copies of layers at an index, and gives them: one for a layer, a list for a list.
    virtual QVariant vectorLayerPasteAt(unsigned int index, const QVariant& layers);
    virtual void vectorLayerErase(const QVariant& layers); ///< Erases layers with what they hold.
    virtual void vectorLayerEraseAt(unsigned int index);   ///< Erases the layer at an index.
    /// Brings the strokes of layers together in the lowest one, and gives that.
    virtual Obj vectorLayersMerge(const QVariant& layers);
    /// Cuts the strokes of layers where they cross or touch others of their layer or themselves: joints are there then,
    /// and what the strokes enclose are contours. The first piece of a stroke stays that stroke; the ends that are made
    /// are flat, and tell it by `tail_cut` and `head_cut`. Gives the number of cuts.
    virtual int vectorLayerCut(const QVariant& layers);
    /// Puts copies of all layers of an art layer (without one, of the art layer under edit) above those of another one.
    virtual void artLayerPaste(const QVariant& target, const QVariant& source);

    /// Makes strokes in a layer, or in the layer of a stroke: of a path, or of a list of paths, which gives a list. A
    /// path needs a line style and a colour; the side that takes the colour is "LEFT" or "RIGHT", in any case of
    /// letters. A stroke may also be a map, as in `vector_layers_create`: its keys go ahead of the other arguments,
    /// which may be left out, and "type" makes a layer of its own above that layer.
    virtual QVariant strokeCreate(const QVariant& path, const QVariant& target, const QVariant& lineStyle,
                                  const QString& side, const QVariant& colour);
    /// Copies strokes into a layer, or into the layer of a stroke: gives one for a stroke, a list for a list.
    virtual QVariant strokeCopy(const QVariant& strokes, const QVariant& target);
    /// Moves strokes into a layer, or into the layer of a stroke. They stay the same strokes.
    virtual void strokeMove(const QVariant& strokes, const QVariant& target);
    virtual void strokeErase(const QVariant& strokes); ///< Erases strokes.
    /// Sets the colour of a side of strokes, "LEFT" or "RIGHT", in any case of letters.
    virtual void strokeSetColor(const QVariant& strokes, const QVariant& colour, const QString& side);
    virtual void strokeSetLineStyle(const QVariant& strokes, const QVariant& lineStyle); ///< Sets the line style.
    virtual void strokeSetPath(const QVariant& strokes, const QVariant& path);           ///< Sets the path.
    /// Sets the thickness: a DrawingVectorThickness, or a DrawingVectorThicknessPath that the strokes share then.
    virtual void strokeSetThickness(const QVariant& strokes, const QVariant& thickness);
    /// Sets the slope of an edge of the line ("LEFT", "RIGHT") beyond an end of the stroke ("from", "to"), in any case
    /// of letters.
    virtual void strokeSetTipTangent(const QVariant& strokes, const QString& side, const QString& end, double tangent);
    /// Sets the shape ("round", "flat", "bevel") of an end ("from", "to") of strokes, in any case of letters.
    virtual void strokeSetTipType(const QVariant& strokes, const QString& end, const QString& type);
    /// Sets the colour of the sides of strokes that bound contours; with `outside` of their other sides.
    virtual void contourSetColour(const QVariant& contours, const QVariant& colour, bool outside);
    /// Sets the colour at the left of the stroke of joints, seen from the joint.
    virtual void jointSetInsideColour(const QVariant& joints, const QVariant& colour);
    /// Sets the colour at the right of the stroke of joints, seen from the joint.
    virtual void jointSetOutsideColour(const QVariant& joints, const QVariant& colour);

private:
    Obj layerCreate(const QVariant& reference, const QString& type, bool under);
    void jointSetColour(const QVariant& joints, const QVariant& colour, bool outside);
};

} // namespace OMC
