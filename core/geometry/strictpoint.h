#pragma once

#include <QList>
#include <QVariant>

#include <span>

namespace OMC {

/// The kind of value that the strict readers of positions found.
enum class StrictReading {
    Unsupported,
    Position, ///< Something that tells a position; its coordinates are written.
    Node,     ///< A node; its coordinates are written.
    DeadNode  ///< The wrapper of a node that is gone.
};

/// Writes the coordinates that a value tells to the places for them (two for x and y, three with z): a node or its
/// coordinates, a point, a QPoint or QPointF, a list of numbers, or a single number, which is written to x alone. What
/// the value doesn't tell stays as it is; what was read up to a failure stays written.
StrictReading readStrictPoint(const QVariant& value, std::span<double* const> coordinates);

/// Writes the numbers among the first items of a list to the coordinates in their place; ints and doubles count.
///
/// Required: the last item that is read decides alone whether the list is taken (an empty one isn't). `["a", 1]` is
/// taken and writes the second coordinate only, `[1, "a"]` is refused after it wrote the first. Scripts pass such
/// lists.
bool readStrictList(const QList<QVariant>& list, std::span<double* const> coordinates);

/// Whether the strict readers take a value as a number.
bool isStrictNumber(const QVariant& value);

} // namespace OMC
