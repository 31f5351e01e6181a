#pragma once

#include "core/host/export.h"

#include <QString>

#include <functional>

/// The identity of a colour, a palette or a palette list: 64 random bits, which are kept in files and never given
/// twice. A default-made one names nothing.
class BRINDLE_HOST_EXPORT UT_Id {
public:
    constexpr UT_Id() = default;
    constexpr explicit UT_Id(quint64 value) : m_value(value) {}

    /// A new identity, from the system's source of random numbers.
    static UT_Id Generate();
    /// The identity that the text names: sixteen hexadecimal digits in either case. Any other text gives the one that
    /// names nothing.
    static UT_Id FromString(const QString& text);
    QString AsString() const; ///< Sixteen hexadecimal digits in lower case.

    constexpr bool IsValid() const { return m_value != 0; }
    constexpr quint64 value() const { return m_value; }
    constexpr bool operator==(const UT_Id&) const = default;

private:
    quint64 m_value = 0;
};

template <>
struct std::hash<UT_Id> {
    std::size_t operator()(const UT_Id& id) const noexcept { return static_cast<std::size_t>(id.value()); }
};
