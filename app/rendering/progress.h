#pragma once

#include <QElapsedTimer>
#include <QString>

namespace app {

/// Tells on standard error how far a run is: on a terminal a bar with the time that is left, elsewhere a line for each
/// tenth.
class Progress {
public:
    explicit Progress(std::size_t total);

    void advance(); ///< One more is done.
    /// A line of its own, above the bar.
    void say(const QString& line);
    void end(); ///< The bar goes.

private:
    void draw() const;

    std::size_t m_total;
    std::size_t m_done = 0;
    bool m_isTerminal;
    QElapsedTimer m_time;
};

} // namespace app
