#include "core/host/ut_performance.h"

UT_PerformanceReportManager* UT_PerformanceReportManager::instance()
{
    static UT_PerformanceReportManager only;
    return &only;
}

void UT_PerformanceReportManager::resetAverages(int, int)
{
    *this = {};
}

void UT_PerformanceReportManager::addFrame(qint64 prepareTime, qint64 renderTime)
{
    ++m_frames;
    m_prepareTime += prepareTime;
    m_renderTime += renderTime;
}

void UT_PerformanceReportManager::getAverages(QStringList& lines) const
{
    const auto average = [this](qint64 time) { return m_frames > 0 ? double(time) / m_frames / 1e6 : 0; };
    lines << QStringLiteral("Frames: %1").arg(m_frames)
          << QStringLiteral("Frame Time (msec): %1").arg(average(m_prepareTime + m_renderTime))
          << QStringLiteral("Traverse and Compute Time (msec): %1").arg(average(m_prepareTime))
          << QStringLiteral("Render Time (msec): %1").arg(average(m_renderTime));
}
