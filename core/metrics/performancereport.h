#pragma once

#include <QStringList>

#include <map>

namespace OMC {

/// The figures of a performance report, and the file that shows them.
struct PerformanceReport {
    /// In percent of what the frame rate asks for; there is no upper limit.
    struct Ratings {
        double playback = 0;
        double traverse = 0;
        double compute = 0;
        double render = 0;
        double interactive = 0; ///< Of a frame as a whole.
        double overall = 0;
    };

    /// Sums over all visits of nodes, in milliseconds.
    struct Totals {
        double traverse = 0;
        double compute = 0;
        double render = 0;
        qint64 hits = 0;
        qint64 visits = 0; ///< Frames at which nodes were visited.
    };

    double fps = 24; ///< That the project asks for.
    Totals totals;
    std::map<int, double> loopFps; ///< The average speed of each loop, in frames per second.

    QString path;
    qint64 start = 1;
    qint64 stop = 1;
    int loops = 5;
    int splitCount = 10;
    QStringList staticInfo;
    QString interactive; ///< The text of the visits.
    QStringList playback;

    /// Average seconds of a visit. 0 where nothing was visited.
    double traverseTime() const { return average(totals.traverse); }
    double computeTime() const { return average(totals.compute); }
    double renderTime() const { return average(totals.render); }
    double weight() const; ///< Nodes of a visit.
    Ratings ratings() const;
    QString text() const; ///< The whole file; lines end with "\n".

private:
    double average(double milliseconds) const;
};

} // namespace OMC
