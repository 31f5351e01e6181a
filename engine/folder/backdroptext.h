#pragma once

#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"

namespace brindle::engine {

class Group;

/// Writes the field "backdrops" of a group, if it has any.
void writeBackdrops(JsonWriter& json, const Group& group);
/// Reads the field of a group that has just been made; throws a `FolderFailure` for what no backdrop can have.
void readBackdrops(const JsonPlace& place, Group& group);

} // namespace brindle::engine
