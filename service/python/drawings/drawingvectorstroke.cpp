#include "core/drawings/drawingvectorstroke.h"

#include "core/drawings/drawingvectorcontourlist.h"
#include "core/drawings/drawingvectorjointlist.h"
#include "core/drawings/drawingvectorstrokelist.h"
#include "core/geometry/rectangles.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

QString shownStroke(const OMC::DrawingVectorStroke& stroke)
{
    return QStringLiteral("stroke %1").arg(stroke.getUniqueId());
}

QString shownContour(const OMC::DrawingVectorContour& contour)
{
    return QStringLiteral("contour %1").arg(contour.getUniqueId());
}

QString shownJoint(const OMC::DrawingVectorJoint& joint)
{
    return QStringLiteral("joint of %1 at (%2, %3)")
        .arg(joint.getDegree())
        .arg(joint.getJoint().GetStrokeAccess().GetJointPosition().x)
        .arg(joint.getJoint().GetStrokeAccess().GetJointPosition().y);
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<DrawingVectorStroke>()
            .shownAs<&shownStroke>()
            .property("bezier_path", "BezierPath", "CurveLike")
            .property<&DrawingVectorStroke::newBoundingBox>("bounding_box")
            .property<&DrawingVectorStroke::newBoundingBoxVisible>("bounding_box_visible")
            .property<&DrawingVectorStroke::newBoundingBoxInner>("bounding_box_inner")
            .property<&DrawingVectorStroke::getColorLeft>("colour_left", "DrawingVectorColour | None",
                                                          "VectorColourLike")
            .property<&DrawingVectorStroke::getColorLeft>("color_left", "DrawingVectorColour | None",
                                                          "VectorColourLike")
            .property<&DrawingVectorStroke::getColorRight>("colour_right", "DrawingVectorColour | None",
                                                           "VectorColourLike")
            .property<&DrawingVectorStroke::getColorRight>("color_right", "DrawingVectorColour | None",
                                                           "VectorColourLike")
            .property("contour_left", "DrawingVectorContour | None")
            .property("contour_right", "DrawingVectorContour | None")
            .property("tail", "DrawingVectorJoint")
            .property("head", "DrawingVectorJoint")
            .property("tail_tangent", "Vector2d")
            .property("head_tangent", "Vector2d")
            .property("line_style", "DrawingVectorLineStyle")
            .property("thickness", "DrawingVectorThickness",
                      "DrawingVectorThickness | DrawingVectorThicknessPath | Sequence[ThicknessKeyLike] | float")
            .method<"layer", Form<&DrawingVectorStroke::layer, "-> DrawingVectorLayer">>()
            .method<"drawing", Form<&DrawingVectorStroke::drawing, "-> Drawing">>()
            .method<"continuous", Form<&DrawingVectorStroke::continuous, "stroke: DrawingVectorStroke">>()
            .method<"strokes_shared", Form<&DrawingVectorStroke::strokesShared, "-> list[DrawingVectorStroke]">>()
            .method<"strokes_shared_tickness",
                    Form<&DrawingVectorStroke::strokesSharedTickness, "-> list[DrawingVectorStroke]">>()
            .method<"thickness_sharing", Form<&DrawingVectorStroke::thicknessSharing, "stroke: DrawingVectorStroke">>()
            .method<"set_tip_type_from", Form<&DrawingVectorStroke::setTipTypeFrom, "type">>()
            .method<"set_tip_type_to", Form<&DrawingVectorStroke::setTipTypeTo, "type">>(),
        Class<DrawingVectorContour>()
            .shownAs<&shownContour>()
            .property("bounding_box", "AllocatedRect2D")
            .property("bounding_box_inner", "AllocatedRect2D")
            .property("colour_inside", "DrawingVectorColour | None")
            .property("color_inside", "DrawingVectorColour | None")
            .property("colour_outside", "DrawingVectorColour | None")
            .property("color_outside", "DrawingVectorColour | None")
            .property("contours_children", "list[DrawingVectorContour]")
            .property("strokes_current_inside", "list[DrawingVectorStroke]")
            .property("strokes_current_children", "list[DrawingVectorStroke]")
            .property("strokes", "list[DrawingVectorStroke]")
            .property("strokes_inside", "list[DrawingVectorStroke]")
            .property("strokes_children", "list[DrawingVectorStroke]")
            .method<"stroke", Form<&DrawingVectorContour::stroke, "-> DrawingVectorStroke">>()
            .method<"layer", Form<&DrawingVectorContour::layer, "-> DrawingVectorLayer">>()
            .method<"drawing", Form<&DrawingVectorContour::drawing, "-> Drawing">>()
            .method<"contained_in", Form<&DrawingVectorContour::containedIn, "path: CurveLike">>()
            .method<"contains", Form<&DrawingVectorContour::contains, "path: CurveLike">>()
            .method<"outside", Form<&DrawingVectorContour::outside, "path: CurveLike">>()
            .method<"contour_parent", Form<&DrawingVectorContour::contourParent, "-> DrawingVectorContour | None">>()
            .method<
                "relationship",
                Form<&DrawingVectorContour::relationship,
                     "other: DrawingVectorContour | DrawingVectorContourList | Sequence[object] -> str | list[str]">>(),
        Class<DrawingVectorJoint>()
            .shownAs<&shownJoint>()
            .property("contours", "list[DrawingVectorContour]")
            .property("position", "Point2d")
            .property("color_inside", "DrawingVectorColour | None")
            .property("coloir_inside", "DrawingVectorColour | None")
            .property("colour_outside", "DrawingVectorColour | None")
            .property("color_outside", "DrawingVectorColour | None")
            .property("tangent", "Vector2d")
            .method<"stroke", Form<&DrawingVectorJoint::stroke, "-> DrawingVectorStroke">>()
            .method<"layer", Form<&DrawingVectorJoint::layer, "-> DrawingVectorLayer">>()
            .method<"drawing", Form<&DrawingVectorJoint::drawing, "-> Drawing">>()
            .method<"joint_opposite", Form<&DrawingVectorJoint::jointOpposite, "-> DrawingVectorJoint">>()
            .method<"left", Form<&DrawingVectorJoint::left, "-> DrawingVectorJoint">>()
            .method<"right", Form<&DrawingVectorJoint::right, "-> DrawingVectorJoint">>(),
        Class<DrawingVectorStrokeList>()
            .items("DrawingVectorStroke")
            .method<"add", Form<&DrawingVectorStrokeList::add,
                                "strokes: DrawingVectorStroke | DrawingVectorStrokeList | CurveLike -> "
                                "DrawingVectorStroke | list[DrawingVectorStroke]">>(),
        Class<DrawingVectorContourList>().items("DrawingVectorContour"),
        Class<DrawingVectorJointList>().items("DrawingVectorJoint"),
    };
});

} // namespace

} // namespace brindle::python
