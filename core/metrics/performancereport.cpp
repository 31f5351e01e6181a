#include "core/metrics/performancereport.h"

#include <QTextStream>

#include <algorithm>

namespace OMC {

namespace {

constexpr double slow = 50; ///< Ratings below it are told in words.

const QString& rule()
{
    static const QString line(74, u'-');
    return line;
}

/// A line for each rating that is too low; nothing where none is.
void writeDetails(QTextStream& stream, const PerformanceReport::Ratings& ratings, double weight)
{
    QStringList lines;
    const auto tell = [&](double rating, const char* sentence) {
        if (rating < slow)
            lines.append(QString::fromLatin1(sentence).arg(rating));
    };
    tell(ratings.playback, "Scene playback is slow (%1%).");
    tell(ratings.interactive, "Interactive rendering is slow (%1%)");
    if (ratings.traverse < slow)
        lines.append(
            QStringLiteral("Scene is slow to traverse (%1%) -- %2 nodes traversed").arg(ratings.traverse).arg(weight));
    tell(ratings.compute, "Scene is slow to compute  (%1%)");
    tell(ratings.render, "Scene is slow to render in OpenGL (%1%)");
    if (lines.isEmpty())
        return;
    stream << rule() << "\n"
           << "DETAILS\n"
           << "\n";
    for (const QString& line : lines)
        stream << line << "\n";
}

void writeHeading(QTextStream& stream, const char* heading)
{
    stream << heading << "\n" << rule() << "\n";
}

} // namespace

double PerformanceReport::average(double milliseconds) const
{
    return totals.visits == 0 ? 0 : milliseconds / 1000.0 / double(totals.visits);
}

double PerformanceReport::weight() const
{
    return totals.visits == 0 ? 0 : double(totals.hits) / double(totals.visits);
}

PerformanceReport::Ratings PerformanceReport::ratings() const
{
    Ratings ratings;
    if (totals.visits == 0)
        return ratings;
    const auto rated = [this](double seconds) { return 1.0 / std::max(seconds, 0.001) / fps * 100.0; };
    double speeds = 0;
    for (const auto& [loop, speed] : loopFps)
        speeds += speed / fps;
    if (!loopFps.empty())
        ratings.playback = speeds / double(loopFps.size()) * 100.0;
    ratings.traverse = rated(traverseTime());
    ratings.compute = rated(computeTime());
    ratings.render = rated(renderTime());
    ratings.interactive = rated(std::max(renderTime(), traverseTime() + computeTime()));
    ratings.overall = (ratings.interactive + ratings.playback) * 0.5;
    return ratings;
}

QString PerformanceReport::text() const
{
    const Ratings rated = ratings();
    const double expected = 1.0 / fps * 1000.0;
    QString text;
    QTextStream stream(&text);

    writeHeading(stream, "BRINDLE PERFORMANCE METRICS,0.1");
    stream << "\n";
    writeHeading(stream, "OVERVIEW:");
    stream << "TYPE,RATING\n"
           << "OVERALL," << rated.overall << "\n"
           << "PLAYBACK," << rated.playback << "\n"
           << "INTERACTIVE," << rated.interactive << "\n"
           << "\n\n"
           << "TYPE,RATING,AVERAGE TIME (ms),EXPECTED\n"
           << "TRAVERSE," << rated.traverse << "," << traverseTime() * 1000.0 << "," << expected << "\n"
           << "COMPUTE," << rated.compute << "," << computeTime() * 1000.0 << "," << expected << "\n"
           << "RENDER," << rated.render << "," << renderTime() * 1000.0 << "," << expected << "\n"
           << "WEIGHT," << weight() << ",---,---\n"
           << "\n";
    writeDetails(stream, rated, weight());
    stream << "\n";
    writeHeading(stream, "\nPLAYBACK FRAMERATES");
    stream << "\n"
           << "Loop Count,FPS\n";
    for (const auto& [loop, speed] : loopFps)
        stream << loop << "," << speed << "\n";
    stream << "\n\n";
    writeHeading(stream, "TESTING PARAMETERS:");
    stream << "Target file:" << path << "\n"
           << "Start Frame:" << start << "\n"
           << "Stop Frame:" << stop << "\n"
           << "Loop Count:" << loops << "\n"
           << "Split Count:" << splitCount << "\n"
           << "\n";
    writeHeading(stream, "\nSTATIC PARAMETERS");
    stream << "\n";
    for (QString line : staticInfo)
        stream << line.replace(u',', u' ') << "\n";
    stream << "\n\n";
    writeHeading(stream, "\n\nINTERACTIVE PERFORMANCE");
    stream << "\n" << interactive << "\n";
    stream << "\n\n";
    writeHeading(stream, "\n\nCAMERA VIEW PERFORMANCE");
    stream << "\n";
    for (QString line : playback)
        stream << line.replace(u':', u',') << "\n";
    stream.flush();
    return text;
}

} // namespace OMC
