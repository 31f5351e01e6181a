#pragma once

#include "core/host/tu_timedvalue.h"

#include <memory>
#include <span>

namespace brindle::engine {

class Column;
class JsonPlace;

/// A kind of column of the open engine: its number, its word in the file of a scene, and what makes one. Each kind has
/// one such record, which lives as long as the process, and a line in the table behind `columnKinds`.
struct ColumnKind {
    TUTimedValue::timedValueType type;
    const char* word;
    std::span<const char* const> fields; ///< Those that Column::write writes.
    std::unique_ptr<Column> (*make)(const QString& name, bool anonymous);
};

/// All kinds, in the order of their numbers.
std::span<const ColumnKind* const> columnKinds();

/// The kind that a file names; fails where there is none of the word.
const ColumnKind& columnKindAt(const JsonPlace& place);

/// The kind that an attribute with a number is given when it is to change with the frame.
const ColumnKind& numberColumnKind();

/// A `ColumnKind::make`.
template <typename Kind>
std::unique_ptr<Column> makeColumn(const QString& name, bool anonymous)
{
    return std::make_unique<Kind>(name, anonymous);
}

} // namespace brindle::engine
