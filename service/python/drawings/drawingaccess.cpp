#include "core/drawings/drawingaccess.h"

#include "core/drawings/drawinglayer.h"
#include "service/python/drawings/editing.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

OMC::DrawingAccess* newAccess()
{
    return new OMC::DrawingAccess;
}

OMC::BaseObject* newEditing(const QVariant& artLayer)
{
    const auto* art = OMC::objectFrom<OMC::DrawingVectorArtLayer>(artLayer);
    if (!art)
        throw OMC::Exception(OMC::DrawingAccess::tr("Unexpected argument - a valid art-layer was not provided."));
    return new DrawingEditing(*art);
}

/// Lets an exception of the block go on.
bool leave(DrawingEditing& block, PyObject* type, PyObject*, PyObject*)
{
    block.leave(type != Py_None);
    return false;
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<DrawingAccess>()
            .alias("LayersLike", "DrawingLayer | Sequence[object]", "A layer, or a list of layers.")
            .alias("StrokesLike", "DrawingVectorStroke | DrawingVectorStrokeList | Sequence[object]",
                   "A stroke, or a list of strokes.")
            .alias("LayerOrStroke", "DrawingLayer | DrawingVectorStroke",
                   "A layer, or a stroke, which stands for its layer.")
            .constructor<&newAccess, "">()
            .staticMethod<"editing", StaticForm<&newEditing, "art_layer: DrawingVectorArtLayer -> DrawingEditing">>(
                "A with block that edits the drawing of an art layer, in a session of its own or in the one that is "
                "open.")
            .method<"vector_begin_operations",
                    Form<&DrawingAccess::vectorBeginOperations, "art_layer: DrawingVectorArtLayer">>()
            .method<"vector_end_operations", Form<&DrawingAccess::vectorEndOperations, "finish=True">>()
            .method<"vector_layer_create", Form<&DrawingAccess::vectorLayerCreate, "type -> AnyDrawingLayer">>()
            .method<"vector_layer_create_above",
                    Form<&DrawingAccess::vectorLayerCreateAbove, "reference: LayerOrStroke, type -> AnyDrawingLayer">>()
            .method<"vector_layer_create_under",
                    Form<&DrawingAccess::vectorLayerCreateUnder, "reference: LayerOrStroke, type -> AnyDrawingLayer">>()
            .method<"vector_layer_create_at",
                    Form<&DrawingAccess::vectorLayerCreateAt, "index, type -> AnyDrawingLayer">>()
            .method<"vector_layers_create",
                    Form<&DrawingAccess::vectorLayersCreate,
                         "description: dict[str, object] | Sequence[object] -> list[AnyDrawingLayer]">>()
            .method<"vector_layer_copy",
                    Form<&DrawingAccess::vectorLayerCopy, "layers: LayersLike, target: LayerOrStroke">>()
            .method<"vector_layer_move",
                    Form<&DrawingAccess::vectorLayerMove, "layers: LayersLike, target: LayerOrStroke">>()
            .method<"vector_layer_paste_at",
                    Form<&DrawingAccess::vectorLayerPasteAt,
                         "index, layers: LayersLike -> AnyDrawingLayer | list[AnyDrawingLayer]">>()
            .method<"vector_layer_erase", Form<&DrawingAccess::vectorLayerErase, "layers: LayersLike">>()
            .method<"vector_layer_erase_at", Form<&DrawingAccess::vectorLayerEraseAt, "index">>()
            .method<"vector_layers_merge",
                    Form<&DrawingAccess::vectorLayersMerge, "layers: LayersLike -> DrawingVectorLayer">>()
            .method<"vector_layer_cut", Form<&DrawingAccess::vectorLayerCut, "layers: LayersLike">>()
            .method<"art_layer_paste",
                    Form<&DrawingAccess::artLayerPaste,
                         "target: DrawingVectorArtLayer, source: DrawingVectorArtLayer | None=None">>()
            .method<"stroke_create",
                    Form<&DrawingAccess::strokeCreate,
                         "path: CurveLike | dict[str, object] | Sequence[object], target: LayerOrStroke, line_style: "
                         "DrawingVectorLineStyle | None=None, side='LEFT', colour: VectorColourLike | None=None -> "
                         "DrawingVectorStroke | list[DrawingVectorStroke]">>()
            .method<"stroke_copy",
                    Form<&DrawingAccess::strokeCopy, "strokes: StrokesLike, target: LayerOrStroke -> "
                                                     "DrawingVectorStroke | list[DrawingVectorStroke]">>()
            .method<"stroke_move", Form<&DrawingAccess::strokeMove, "strokes: StrokesLike, target: LayerOrStroke">>()
            .method<"stroke_erase", Form<&DrawingAccess::strokeErase, "strokes: StrokesLike">>()
            .method<"stroke_set_color",
                    Form<&DrawingAccess::strokeSetColor, "strokes: StrokesLike, colour: VectorColourLike, side">>()
            .method<"stroke_set_line_style", Form<&DrawingAccess::strokeSetLineStyle,
                                                  "strokes: StrokesLike, line_style: DrawingVectorLineStyle">>()
            .method<"stroke_set_path", Form<&DrawingAccess::strokeSetPath, "strokes: StrokesLike, path: CurveLike">>()
            .method<"stroke_set_thickness",
                    Form<&DrawingAccess::strokeSetThickness,
                         "strokes: StrokesLike, thickness: DrawingVectorThickness | DrawingVectorThicknessPath">>()
            .method<"stroke_set_tip_tangent",
                    Form<&DrawingAccess::strokeSetTipTangent, "strokes: StrokesLike, side, end, tangent">>()
            .method<"stroke_set_tip_type", Form<&DrawingAccess::strokeSetTipType, "strokes: StrokesLike, end, type">>()
            .method<"contour_set_colour",
                    Form<&DrawingAccess::contourSetColour,
                         "contours: DrawingVectorContour | DrawingVectorContourList | Sequence[object], colour: "
                         "VectorColourLike, outside=False">>()
            .method<"joint_set_inside_colour",
                    Form<&DrawingAccess::jointSetInsideColour,
                         "joints: DrawingVectorJoint | DrawingVectorJointList | Sequence[object], colour: "
                         "VectorColourLike">>()
            .method<"joint_set_outside_colour",
                    Form<&DrawingAccess::jointSetOutsideColour,
                         "joints: DrawingVectorJoint | DrawingVectorJointList | Sequence[object], colour: "
                         "VectorColourLike">>(),
        Class<DrawingEditing>()
            .method<"__enter__", Form<&DrawingEditing::enter, "-> DrawingAccess">>(
                "Opens the session, or joins the one that is open on the drawing; gives the DrawingAccess.")
            .method<"__exit__", Form<&leave, "type, value, traceback -> Literal[False]">>(
                "Ends the session if the block began it, or takes its changes back after an exception."),
    };
});

} // namespace

} // namespace brindle::python
