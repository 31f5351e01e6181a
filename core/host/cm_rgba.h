#pragma once

#include "core/host/export.h"

#include <QtGlobal>

/// A colour of four bytes: red, green, blue, and alpha, which is 255 where it is opaque.
class BRINDLE_HOST_EXPORT CM_Rgba {
public:
    /// Takes the low 8 bits of each number.
    constexpr CM_Rgba(int red, int green, int blue, int alpha)
        : m_red(static_cast<quint8>(red)),
          m_green(static_cast<quint8>(green)),
          m_blue(static_cast<quint8>(blue)),
          m_alpha(static_cast<quint8>(alpha))
    {}

    constexpr bool operator==(const CM_Rgba&) const = default;

    constexpr quint8 red() const { return m_red; }
    constexpr void setRed(int red) { m_red = static_cast<quint8>(red); }
    constexpr quint8 green() const { return m_green; }
    constexpr void setGreen(int green) { m_green = static_cast<quint8>(green); }
    constexpr quint8 blue() const { return m_blue; }
    constexpr void setBlue(int blue) { m_blue = static_cast<quint8>(blue); }
    constexpr quint8 alpha() const { return m_alpha; }
    constexpr void setAlpha(int alpha) { m_alpha = static_cast<quint8>(alpha); }

private:
    quint8 m_red;
    quint8 m_green;
    quint8 m_blue;
    quint8 m_alpha;
};
