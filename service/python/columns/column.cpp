#include "core/columns/column.h"

#include "core/columns/beziercolumn.h"
#include "core/columns/beziercolumnvalue.h"
#include "core/columns/beziercontrolpoint.h"
#include "core/columns/columnlist.h"
#include "core/columns/columnvalue.h"
#include "core/columns/controlpointlist.h"
#include "core/columns/drawingtimingcolumn.h"
#include "core/columns/easecolumn.h"
#include "core/columns/easecolumnvalue.h"
#include "core/columns/easecontrolpoint.h"
#include "core/columns/elementcolumn.h"
#include "core/columns/expressioncolumn.h"
#include "core/columns/keyframeablecolumn.h"
#include "core/columns/path3dcolumnvalue.h"
#include "core/columns/path3dcontrolpoint.h"
#include "core/columns/path3dxyzcolumnvalue.h"
#include "core/columns/quaternioncolumn.h"
#include "core/columns/velobasedcolumn.h"
#include "core/columns/velobasedcolumnvalue.h"
#include "core/columns/velobasedcontrolpoint.h"
#include "core/elements/elementdrawing.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

QStringList columnNames(const OMC::ColumnList& columns)
{
    QStringList names;
    for (const OMC::Obj& item : columns.list()) {
        if (const auto* column = OMC::objectIn<OMC::Column>(item))
            names.append(column->getName());
    }
    return names;
}

/// What a drawing column exposes at a frame, without a handle in between.
PyObject* exposureAt(const OMC::ElementColumn& column, int frame)
{
    QString name;
    if (OMC::ElementDrawing* drawing = column.newDrawingAt(frame, name))
        return toPython(drawing);
    return name.isNull() ? toPython(QVariant()) : toPython(name);
}

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
                                            "frames: FramesLike -> AnyControlPoint | list[AnyControlPoint]">>()
            .method<"keyframe_remove", Form<&KeyframeableColumn::keyframeRemove, "frames: FramesLike">>()
            .method<"keyframe_exists", Form<&KeyframeableColumn::keyframeExists, "frames: FramesLike">>()
            .method<"keyframe_clear", Form<&KeyframeableColumn::keyframeClear, "start, end">>()
            .method<"keyframe_list", Form<&KeyframeableColumn::keyframeList>>(),
        Class<ElementColumn>()
            .item<&exposureAt>()
            .alias("FrameRangesLike", "int | dict[str, int] | Sequence[object]",
                   "A frame, a dictionary of a first and a last frame ({\"from\": 2, \"to\": 4}), or a list of these.")
            .items("ElementDrawing | str | None")
            .property("drawings", "ElementDrawingList | None")
            .property<&ElementColumn::getElement>("element", "Element | None", "Element | int")
            .method<"get", Form<pick<int>(&ElementColumn::get), "frame -> ElementDrawing | str | None">,
                    Form<pick<const QString&>(&Column::get), "frame -> ElementDrawing | str | None">>()
            .method<"set", Form<pick<int, const QVariant&>(&ElementColumn::set), "frame, drawings: object">,
                    Form<pick<const QString&, const QVariant&>(&Column::set), "frame, drawings: object">>()
            .method<"attach_new_element",
                    Form<&ElementColumn::attachNewElement, "name, scan_type='COLOR', field_chart=12.0, "
                                                           "pixmap_format='PNG', vector_type='PNT' -> Element">>()
            .method<"drawing", Form<&ElementColumn::drawing, "frame -> ElementDrawing | None">>()
            .method<"generate", Form<&ElementColumn::generate, "frame, by_frame=False -> ElementDrawing">>()
            .method<"drawing_type", Form<&ElementColumn::drawingType, "frame">>()
            .method<"set_drawing_type", Form<&ElementColumn::setDrawingType, "frame, type">>()
            .method<"drawing_version", Form<&ElementColumn::drawingVersion, "timing">>()
            .method<"drawing_delete", Form<&ElementColumn::drawingDelete, "frames: FrameRangesLike">>()
            .method<"drawing_duplicate",
                    Form<&ElementColumn::drawingDuplicate, "frame -> ElementDrawing | str | None">>()
            .method<"key_exposure_add", Form<&ElementColumn::keyExposureAdd, "frames: FrameRangesLike">>()
            .method<"key_exposure_remove", Form<&ElementColumn::keyExposureRemove, "frames: FrameRangesLike">>()
            .method<"key_exposure_remove_duplicate",
                    Form<&ElementColumn::keyExposureRemoveDuplicate, "frames: FrameRangesLike">>()
            .method<"key_exposure_next", Form<&ElementColumn::keyExposureNext,
                                              "frame, marks: str | Sequence[str] | None = None -> int | None">>()
            .method<"fill_empty", Form<&ElementColumn::fillEmpty, "start, end">>()
            .method<"clear", Form<&ElementColumn::clear, "start, count, ripple=False">>(),
        Class<DrawingTimingColumn>()
            .items("str")
            .method<"drawing_delete", Form<&DrawingTimingColumn::drawingDelete, "frame">>()
            .method<"drawing_duplicate", Form<&DrawingTimingColumn::drawingDuplicate, "frame -> str">>()
            .method<"fill_empty", Form<&DrawingTimingColumn::fill_empty, "start, end">>()
            .method<"key_exposure_add", Form<&DrawingTimingColumn::keyExposureAdd, "frame">>()
            .method<"key_exposure_remove",
                    Form<&DrawingTimingColumn::keyExposureRemove, "frame, duplicates_only=False">>()
            .method<"line_test_fill",
                    Form<&DrawingTimingColumn::lineTestFill, "start, end, prefix, empty_only=False">>()
            .method<"contains", Form<&DrawingTimingColumn::contains, "value: object">>(),
        Class<ExpressionColumn>().items("float"),
        Class<BezierColumn>()
            .items("BezierColumnValue")
            .method<"create_point",
                    Form<&BezierColumn::createPoint, "frame, value, handle_left_x, handle_left_y, handle_right_x, "
                                                     "handle_right_y, const_segment=False, continuity='CORNER'">>(),
        Class<BezierColumnValue>()
            .property("keyframe_previous", "BezierColumnValue | None")
            .property("keyframe_next", "BezierColumnValue | None"),
        Class<EaseColumn>()
            .items("EaseColumnValue")
            .method<"create_point",
                    Form<&EaseColumn::createPoint, "frame, value, ease_in, ease_in_angle, ease_out, ease_out_angle, "
                                                   "const_segment=False, continuity='CORNER'">>(),
        Class<EaseColumnValue>()
            .property("keyframe_previous", "EaseColumnValue | None")
            .property("keyframe_next", "EaseColumnValue | None"),
        Class<VeloBasedColumn>()
            .items("VeloBasedColumnValue")
            .method<"create_point", Form<&VeloBasedColumn::createPoint, "frame, value">>(),
        Class<VeloBasedColumnValue>()
            .property("keyframe_previous", "VeloBasedColumnValue | None")
            .property("keyframe_next", "VeloBasedColumnValue | None"),
        Class<Path3DColumn>()
            .items("Path3DColumnValue")
            .property("velocity_column", "VeloBasedColumn")
            .method<"create_point",
                    Form<&Path3DColumn::createPoint, "frame, x, y, z, tension=0, continuity=0, bias=0">>()
            .method<"remove_point", Form<&Path3DColumn::removePoint, "index">>()
            .method<"convert_to_separate",
                    Form<&Path3DColumn::convertToSeparate, "conversion='BEZIER_FITTER' -> list[BezierColumn]">>(),
        Class<QuaternionColumn>(),
        Class<Path3DColumnValue>()
            .property("value", "Path3DXYZColumnValue", "PointLike | object")
            .property("keyframe_previous", "Path3DColumnValue | None")
            .property("keyframe_next", "Path3DColumnValue | None")
            .method<"set_value_axis", Form<&Path3DColumnValue::setValueAxis, "value: object, axis=-1">>(),
        Class<Path3DXYZColumnValue>(),
        Class<ControlPoint>()
            .alias("AnyControlPoint", "ControlPoint", "A control point of the class that the kind of column decides.")
            .property("value", "Any", "object"),
        Class<BezierControlPoint>(),
        Class<EaseControlPoint>(),
        Class<VeloBasedControlPoint>(),
        Class<Path3DControlPoint>()
            .property("value", "Path3DControlPointValue", "object")
            .method<"set_continuity", Form<&Path3DControlPoint::setContinuity, "continuity">>(),
        Class<Path3DControlPointValue>(),
        Class<ColumnList>()
            .alias("ColumnsLike", "Column | str | int | Sequence[str]", "Columns: one, a name, an index or names.")
            .items("Column")
            .keys<&columnNames>()
            .method<"create", Form<&ColumnList::create, "type, name='', options: dict[str, object] | None=None -> "
                                                        "Column">>()
            .method<"remove", Form<&ColumnList::remove, "selector: ColumnsLike">>()
            .method<"find", Form<&ColumnList::find, "pattern -> list[Column]">>()
            .method<"contains", Form<&ColumnList::contains, "selector: ColumnsLike">>()
            .method<"linked_nodes", Form<&ColumnList::linkedNodes, "selector: ColumnsLike -> list[Node]">>()
            .method<"linked_attributes",
                    Form<&ColumnList::linkedAttributes, "selector: ColumnsLike -> list[AnyAttribute]">>(),
        Class<ControlPointList>()
            .items("AnyControlPoint")
            .method<"create", Form<&ControlPointList::create, "frames: FramesLike">>()
            .method<"remove", Form<&ControlPointList::remove, "frames: FramesLike">>(),
    };
});

} // namespace

} // namespace brindle::python
