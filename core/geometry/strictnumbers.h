#pragma once

#include <QList>
#include <QVariant>

#include <algorithm>
#include <array>

namespace OMC {

/// Whether the strict readers take a value as a number.
inline bool isStrictNumber(const QVariant& value)
{
    return value.typeId() == QMetaType::Int || value.typeId() == QMetaType::Double;
}

/// Writes the numbers among the first items of a list to the coordinates in their place.
///
/// The last item that is read decides alone whether the list is taken (an empty one isn't): `["a", 1]` is taken and
/// writes the second coordinate only, `[1, "a"]` is refused after it wrote the first. Required as it is: scripts pass
/// such lists.
template <std::size_t Count>
bool readStrictList(const QList<QVariant>& list, const std::array<double*, Count>& coordinates)
{
    bool taken = false;
    const qsizetype count = std::min<qsizetype>(list.size(), Count);
    for (qsizetype index = 0; index < count; ++index) {
        taken = isStrictNumber(list[index]);
        if (taken)
            *coordinates[static_cast<std::size_t>(index)] = list[index].toDouble();
    }
    return taken;
}

} // namespace OMC
