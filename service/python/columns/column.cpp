#include "core/columns/column.h"

#include "core/columns/columnvalue.h"
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
                    Form<pick<const QString&, const QVariant&>(&Column::set), "frame, value">>("Writes the entry at a frame.")
            .method<"list", Form<&Column::list>>(
                "As many empty values as the scene has frames, one more, and behind them the entries.")
            .method<"scale", Form<&Column::scale, "factor, second=0">>("Multiplies the values.")
            .method<"get_current_index", Form<&Column::getCurrentIndex>>("The frame that an iteration stands at.")
            .method<"reset_iterator", Form<&Column::resetIterator>>("Sets the iteration back to the first frame."),
        Class<ColumnValue>("ColumnValue", "A column at one frame.")
            .property("frame", "The frame.")
            .property("value", "The value there; takes a number or another column value."),
    };
}

} // namespace brindle::python
