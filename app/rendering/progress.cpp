#include "app/rendering/progress.h"

#include <unistd.h>

#include <cmath>
#include <cstdio>

namespace app {

namespace {

constexpr std::size_t kWidth = 40; ///< Of the bar, in letters.

QString timeText(qint64 seconds)
{
    return QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

Progress::Progress(std::size_t total) : m_total(total), m_isTerminal(isatty(STDERR_FILENO))
{
    m_time.start();
}

void Progress::advance()
{
    const std::size_t before = m_done * 10 / m_total;
    ++m_done;
    if (m_isTerminal)
        draw();
    else if (const std::size_t tenths = m_done * 10 / m_total; tenths != before)
        std::fprintf(stderr, "%zu of %zu frames (%zu %%)\n", m_done, m_total, tenths * 10);
}

void Progress::say(const QString& line)
{
    if (m_isTerminal)
        std::fputs("\r\033[K", stderr);
    std::fprintf(stderr, "%s\n", line.toLocal8Bit().constData());
    if (m_isTerminal)
        draw();
}

void Progress::end()
{
    if (m_isTerminal)
        std::fputs("\r\033[K", stderr);
}

void Progress::draw() const
{
    if (m_total == 0)
        return;
    const std::size_t filled = m_done * kWidth / m_total;
    const double perFrame = m_done > 0 ? double(m_time.elapsed()) / double(m_done) : 0;
    const auto left = static_cast<qint64>(std::ceil(perFrame * double(m_total - m_done) / 1000));
    std::fprintf(stderr, "\r\033[K[%s%s] %zu of %zu, %s left", std::string(filled, '#').c_str(),
                 std::string(kWidth - filled, ' ').c_str(), m_done, m_total, timeText(left).toLatin1().constData());
    std::fflush(stderr);
}

} // namespace app
