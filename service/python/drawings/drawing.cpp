#include "core/drawings/drawing.h"

#include "core/drawings/drawingbitmaplayer.h"
#include "core/drawings/drawingtextlayer.h"
#include "core/drawings/drawingvectorartlayer.h"
#include "core/drawings/drawingvectorcontourlist.h"
#include "core/drawings/drawingvectorjointlist.h"
#include "core/drawings/drawingvectorlayer.h"
#include "core/drawings/drawingvectorstrokelist.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

QStringList artNames(const OMC::Drawing&)
{
    return {QStringLiteral("underlay"), QStringLiteral("colour"), QStringLiteral("line"), QStringLiteral("overlay")};
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<Drawing>()
            .items("DrawingVectorArtLayer")
            .keys<&artNames>()
            .property<&Drawing::getColors>("colors", "None", "object")
            .property<&Drawing::getPivot>("pivot", "Point2d | None", "PointLike | None")
            .property("bounding_box", "AllocatedRect2D")
            .property("bounding_box_visible", "AllocatedRect2D")
            .property("implicit_scaling_matrix", "Matrix")
            .property("implicit_scaling_matrix_inverse", "Matrix")
            .method<"contains", Form<&Drawing::contains, "art">>(),
        Class<DrawingArtLayer>().items("AnyDrawingLayer"),
        Class<DrawingVectorArtLayer>()
            .items("AnyDrawingLayer")
            .property<&DrawingVectorArtLayer::getColors>("colors", "None")
            .property<&DrawingVectorArtLayer::getPivot>("pivot", "Point2d | None", "object")
            .property("bounding_box", "AllocatedRect2D")
            .property("bounding_box_visible", "AllocatedRect2D")
            .method<
                "add", Form<&DrawingVectorArtLayer::add, "type: str -> AnyDrawingLayer">,
                Form<&DrawingVectorArtLayer::add, "source: BaseObject | Sequence[object] -> list[AnyDrawingLayer]">>()
            .method<"remove", Form<&DrawingVectorArtLayer::remove, "value: int | BaseObject | Sequence[object]">>()
            .method<"clear", Form<&DrawingVectorArtLayer::clear>>()
            .method<"find_containing_contour", Form<&DrawingVectorArtLayer::findContainingContour,
                                                    "point: PointLike -> list[DrawingVectorContour]">>()
            .method<"transform", Form<&DrawingVectorArtLayer::transform, "matrix: MatrixLike">>()
            .method<"translate", Form<&DrawingVectorArtLayer::translate, "vector: PointLike">>(),
        Class<DrawingLayer>()
            .alias("AnyDrawingLayer", "DrawingLayer", "A layer of the class that fits what it holds.")
            .property("bounding_box", "AllocatedRect2D")
            .property("bounding_box_visible", "AllocatedRect2D")
            .property("bounding_box_linestyle", "AllocatedRect2D")
            .method<"drawing", Form<&DrawingLayer::drawing, "-> Drawing">>(),
        Class<DrawingVectorLayer>()
            .property<&DrawingVectorLayer::newContours>("contours")
            .property<&DrawingVectorLayer::newStrokes>("strokes")
            .property<&DrawingVectorLayer::newJoints>("joints")
            .method<"transform", Form<&DrawingVectorLayer::transform, "matrix: MatrixLike">>()
            .method<"translate", Form<&DrawingVectorLayer::translate, "vector: PointLike">>(),
        Class<DrawingTextLayer>().property("matrix", "Matrix").property("colour_matrix", "Matrix", "MatrixLike"),
        Class<DrawingBitmapLayer>(),
    };
});

} // namespace

} // namespace brindle::python
