#pragma once

#include <chrono>
#include <cstdint>
#include <utility>

namespace brindle::render {

/// Tells nanoseconds; one that is off looks at no clock, and tells 0.
class Stopwatch {
public:
    explicit Stopwatch(bool isOn) : m_isOn(isOn) { lap(); }

    /// The time since the last call, or since it was made.
    std::int64_t lap()
    {
        if (!m_isOn)
            return 0;
        const auto now = std::chrono::steady_clock::now();
        return std::chrono::nanoseconds(now - std::exchange(m_last, now)).count();
    }

private:
    bool m_isOn;
    std::chrono::steady_clock::time_point m_last;
};

} // namespace brindle::render
