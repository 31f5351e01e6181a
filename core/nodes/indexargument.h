#pragma once

#include <QVariant>

#include <limits>

namespace OMC {

/// Whether an int holds the number that a value tells: QVariant::toInt gives some other number for one that none holds.
inline bool fitsIndex(const QVariant& value)
{
    const double number = value.toDouble();
    return number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
}

} // namespace OMC
