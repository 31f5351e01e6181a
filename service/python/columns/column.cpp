#include "core/columns/column.h"

#include "core/columns/beziercolumn.h"
#include "core/columns/beziercolumnvalue.h"
#include "core/columns/beziercontrolpoint.h"
#include "core/columns/columnvalue.h"
#include "core/columns/controlpointlist.h"
#include "core/columns/keyframeablecolumn.h"
#include "service/python/tables.h"

namespace brindle::python {

std::vector<ClassTable> columnTables()
{
    using namespace OMC;
    return {
        Class<Column>("Column", "A column of the exposure sheet: a value for each frame, counted from 1, and what it "
                                "drives. A loop goes over the values of all frames.")
            .property("name", "The name, which no other column of the scene has.")
            .property("display_name", "The name as the exposure sheet shows it.")
            .property("type", "\"BEZIER\", \"DRAWING\", \"SOUND\", ...")
            .property("anonymous", "Whether the project named it, and shows it by what it drives.")
            .property("linked_nodes", "The nodes that the column drives, as a list.")
            .property("linked_attributes", "The attributes that the column drives, as a list.")
            .method<"get_entry", Form<&Column::getEntry, "frame, sub_column=-1">>("The entry at a frame.")
            .method<"set_entry", Form<&Column::setEntry, "frame, value, sub_column=-1">>("Writes the entry at a frame.")
            .method<"n_frames", Form<&Column::nFrames>>("The number of frames of the scene.")
            .method<"size", Form<&Column::size>>("The number of frames of the scene, as len() gives it.")
            .method<"get", Form<pick<int>(&Column::get), "frame">, Form<pick<const QString&>(&Column::get), "frame">>(
                "The entry at a frame.")
            .method<"set", Form<pick<int, const QVariant&>(&Column::set), "frame, value">,
                    Form<pick<const QString&, const QVariant&>(&Column::set), "frame, value">>(
                "Writes the entry at a frame.")
            .method<"list", Form<&Column::list>>(
                "As many empty values as the scene has frames, one more, and behind them the entries.")
            .method<"scale", Form<&Column::scale, "factor, second=0">>("Multiplies the values.")
            .method<"get_current_index", Form<&Column::getCurrentIndex>>("The frame that an iteration stands at.")
            .method<"reset_iterator", Form<&Column::resetIterator>>("Sets the iteration back to the first frame."),
        Class<ColumnValue>("ColumnValue", "A column at one frame.")
            .property("frame", "The frame.")
            .property("value", "The value there; takes a number or another column value."),
        Class<KeyframeableColumn>("KeyframeableColumn", "A column that is a function of time with keyframes. Frames "
                                                        "are given as a number or a list of them, nested to any depth.")
            .property("hold_start", "The first frame of the stretch that holds its values over steps.")
            .property("hold_stop", "The last frame of that stretch.")
            .property("hold_step", "How many frames a step lasts.")
            .property("control_point_size", "The number of control points.")
            .property("control_points", "The control points, a ControlPointList.")
            .method<"keyframe_create", Form<&KeyframeableColumn::keyframeCreate, "frames">>(
                "Makes keyframes without changing the curve. Gives the control point, or a list of them.")
            .method<"keyframe_remove", Form<&KeyframeableColumn::keyframeRemove, "frames">>(
                "Removes keyframes; frames without one are passed over.")
            .method<"keyframe_exists", Form<&KeyframeableColumn::keyframeExists, "frames">>(
                "Whether a keyframe stands at any of the frames.")
            .method<"keyframe_clear", Form<&KeyframeableColumn::keyframeClear, "start, end">>(
                "Removes the keyframes from start to end; an end under 1 is the scene's last frame.")
            .method<"keyframe_list", Form<&KeyframeableColumn::keyframeList>>(
                "The frames of the keyframes, ascending."),
        Class<BezierColumn>("BezierColumn", "A curve through keyframes with a handle on either side. column[frame] "
                                            "gives a BezierColumnValue and takes a number.")
            .method<"create_point",
                    Form<&BezierColumn::createPoint, "frame, value, handle_left_x, handle_left_y, handle_right_x, "
                                                     "handle_right_y, const_segment=False, continuity='CORNER'">>(
                "Makes a keyframe, or sets the one at the frame. Handles are in frames (x) and in the column's values "
                "(y), not relative to the point; continuity is \"CORNER\", \"STRAIGHT\" or \"SMOOTH\"."),
        Class<BezierColumnValue>(
            "BezierColumnValue",
            "A bezier column at one frame; between keyframes, handles and the like are those of the keyframe before.")
            .property("key", "Whether a keyframe stands at the frame; writing makes or removes it.")
            .property("const_segment", "Whether the value holds up to the next keyframe.")
            .property("continuity", "\"CORNER\", \"STRAIGHT\", \"SMOOTH\", or \"UNKNOWN\" ahead of the first keyframe.")
            .property("handle_left_x", "The left handle, in frames.")
            .property("handle_left_y", "The left handle, in the column's values.")
            .property("handle_right_x", "The right handle, in frames.")
            .property("handle_right_y", "The right handle, in the column's values.")
            .property("keyframe_previous", "The keyframe at or before the frame, or None.")
            .property("keyframe_next", "The keyframe behind it, or None."),
        Class<ControlPoint>("ControlPoint", "A control point of a column.")
            .property("frame", "The frame that it stands at.")
            .property("value", "The value there; it can't be written here."),
        Class<BezierControlPoint>(
            "BezierControlPoint",
            "A control point of a bezier column; invalid once the point is gone, also when another takes its frame.")
            .property("const_segment", "Whether the value holds up to the next point.")
            .property("continuity", "\"CORNER\", \"STRAIGHT\" or \"SMOOTH\".")
            .property("handle_left_x", "The left handle, in frames.")
            .property("handle_left_y", "The left handle, in the column's values.")
            .property("handle_right_x", "The right handle, in frames.")
            .property("handle_right_y", "The right handle, in the column's values."),
        Class<ControlPointList>(
            "ControlPointList",
            "The control points of a column, in the order of their frames; they come by a loop or by list().")
            .method<"create", Form<&ControlPointList::create, "frames">>("Makes keyframes.")
            .method<"remove", Form<&ControlPointList::remove, "frames">>("Removes keyframes."),
    };
}

} // namespace brindle::python
