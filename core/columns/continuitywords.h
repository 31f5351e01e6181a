#pragma once

#include <QString>

#include <iterator>

/// The words for how a curve goes through one of its points, in the order of the engine's numbers. An ease column has
/// the first two.
namespace OMC::continuitywords {

inline constexpr const char* words[] = {"CORNER", "STRAIGHT", "SMOOTH"};
inline constexpr int bezierCount = 3;
inline constexpr int easeCount = 2;

/// The word of a number among the first `count`.
inline QString wordFor(int continuity, int count)
{
    return QLatin1String(continuity >= 0 && continuity < count ? words[continuity] : "UNKNOWN");
}

/// The number of a word in capitals among the first `count`, or -1.
inline int numberFor(const QString& word, int count)
{
    for (int number = 0; number < count; ++number) {
        if (word == QLatin1String(words[number]))
            return number;
    }
    return -1;
}

} // namespace OMC::continuitywords
