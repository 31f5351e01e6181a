#include "core/columns/column.h"

#include "core/columns/beziercolumn.h"
#include "core/columns/beziercolumnvalue.h"
#include "core/columns/beziercontrolpoint.h"
#include "core/columns/columnvalue.h"
#include "core/columns/controlpointlist.h"
#include "core/columns/expressioncolumn.h"
#include "core/columns/keyframeablecolumn.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<Column>()
            .items("Any")
            .property("linked_nodes", "list[Node]")
            .property("linked_attributes", "list[AnyAttribute]")
            .method<"get_entry", Form<&Column::getEntry, "frame, sub_column=-1 -> Any">>()
            .method<"set_entry", Form<&Column::setEntry, "frame, value: object, sub_column=-1">>()
            .method<"n_frames", Form<&Column::nFrames>>()
            .method<"size", Form<&Column::size>>()
            .method<"get", Form<pick<int>(&Column::get), "frame -> Any">,
                    Form<pick<const QString&>(&Column::get), "frame -> Any">>()
            .method<"set", Form<pick<int, const QVariant&>(&Column::set), "frame, value: object">,
                    Form<pick<const QString&, const QVariant&>(&Column::set), "frame, value: object">>()
            .method<"list", Form<&Column::list, "-> list[Any]">>()
            .method<"scale", Form<&Column::scale, "factor, second=0">>()
            .method<"get_current_index", Form<&Column::getCurrentIndex>>()
            .method<"reset_iterator", Form<&Column::resetIterator>>(),
        Class<ColumnValue>().property("value", "Any", "float | ColumnValue"),
        Class<KeyframeableColumn>()
            .alias("FramesLike", "float | str | Sequence[object]", "A frame, or a list of frames and of such lists.")
            .property("control_points", "ControlPointList")
            .method<"keyframe_create", Form<&KeyframeableColumn::keyframeCreate,
                                            "frames: FramesLike -> ControlPoint | list[ControlPoint]">>()
            .method<"keyframe_remove", Form<&KeyframeableColumn::keyframeRemove, "frames: FramesLike">>()
            .method<"keyframe_exists", Form<&KeyframeableColumn::keyframeExists, "frames: FramesLike">>()
            .method<"keyframe_clear", Form<&KeyframeableColumn::keyframeClear, "start, end">>()
            .method<"keyframe_list", Form<&KeyframeableColumn::keyframeList>>(),
        Class<ExpressionColumn>().items("float"),
        Class<BezierColumn>()
            .items("BezierColumnValue")
            .method<"create_point",
                    Form<&BezierColumn::createPoint, "frame, value, handle_left_x, handle_left_y, handle_right_x, "
                                                     "handle_right_y, const_segment=False, continuity='CORNER'">>(),
        Class<BezierColumnValue>()
            .property("keyframe_previous", "BezierColumnValue | None")
            .property("keyframe_next", "BezierColumnValue | None"),
        Class<ControlPoint>().property("value", "Any", "object"),
        Class<BezierControlPoint>(),
        Class<ControlPointList>()
            .items("BezierControlPoint")
            .method<"create", Form<&ControlPointList::create, "frames: FramesLike">>()
            .method<"remove", Form<&ControlPointList::remove, "frames: FramesLike">>(),
    };
});

} // namespace

} // namespace brindle::python
