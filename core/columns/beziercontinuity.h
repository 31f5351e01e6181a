#pragma once

#include <QString>

#include <iterator>

/// The words for how the curve goes through a point of a bezier column.
namespace OMC::beziercontinuity {

inline constexpr const char* words[] = {"CORNER", "STRAIGHT", "SMOOTH"};

inline QString wordFor(int continuity)
{
    const bool known = continuity >= 0 && continuity < static_cast<int>(std::size(words));
    return QLatin1String(known ? words[continuity] : "UNKNOWN");
}

/// The number for a word in capitals, or -1.
inline int numberFor(const QString& word)
{
    for (int number = 0; number < static_cast<int>(std::size(words)); ++number) {
        if (word == QLatin1String(words[number]))
            return number;
    }
    return -1;
}

} // namespace OMC::beziercontinuity
