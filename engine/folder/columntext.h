#pragma once

#include "engine/folder/nodeattributes.h"

namespace brindle::engine {

class ColumnList;

/// Writes a column and the order of its links, where the nodes don't give it. `driven` is of all nodes of the scene.
void writeColumn(JsonWriter& json, const TUTimedValue& column, const DrivenAttributes& driven);

/// Makes a column, without its links, at the end of the list.
void readColumn(const JsonPlace& place, ColumnList& columns);
/// Links the column to the attributes that it drives.
void linkColumn(const JsonPlace& place, TUTimedValue& column, const DrivenAttributes& driven);

} // namespace brindle::engine
