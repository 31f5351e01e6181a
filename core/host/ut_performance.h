#pragma once

#include "core/host/export.h"

#include <QString>
#include <QStringList>

#include <atomic>

/// What a node took when the scene was shown last. Times are in nanoseconds. Any thread may add and read.
class TIR_PerformanceTimer {
public:
    qint64 count() const { return m_count; }               ///< How often it was visited.
    qint64 traverseTime() const { return m_traverseTime; } ///< For finding what it is linked to.
    qint64 computeTime() const { return m_computeTime; }   ///< For its values at the frame.
    qint64 renderTime() const { return m_renderTime; }     ///< For its pixels.

    void addVisit(qint64 traverseTime, qint64 computeTime)
    {
        ++m_count;
        m_traverseTime += traverseTime;
        m_computeTime += computeTime;
    }
    void addRendering(qint64 time) { m_renderTime += time; }
    void reset() { m_count = m_traverseTime = m_computeTime = m_renderTime = 0; }

private:
    std::atomic<qint64> m_count = 0;
    std::atomic<qint64> m_traverseTime = 0;
    std::atomic<qint64> m_computeTime = 0;
    std::atomic<qint64> m_renderTime = 0;
};

/// Averages over the frames that were shown while the preference "ADVANCED_ENABLE_PERFORMANCE_REPORT" is set. On the
/// main thread.
class BRINDLE_HOST_EXPORT UT_PerformanceReportManager {
public:
    static UT_PerformanceReportManager* instance();

    void resetAverages(int, int); ///< Begins anew. The arguments are always 0 and 1.
    /// Appends a line for each average, "Frame Time (msec): 12.5", and for the number of frames.
    void getAverages(QStringList& lines) const;

    /// Counts a frame, with what it took in nanoseconds.
    void addFrame(qint64 prepareTime, qint64 renderTime);

private:
    int m_frames = 0;
    qint64 m_prepareTime = 0;
    qint64 m_renderTime = 0;
};
