#pragma once

#include <QImage>
#include <QProcess>
#include <QString>

namespace app {

/// A movie that is written frame by frame, by the program ffmpeg: an ".mp4" file, or an animated ".gif" or ".apng". The
/// file is there whole or not at all.
class Movie {
public:
    static bool isForm(const QString& path); ///< Whether a path has one of those endings.
    static bool isPossible(QString& error);  ///< Whether ffmpeg is installed; else one sentence in `error`.
    /// Starts it; false, with one sentence in `error`, where that fails.
    bool begin(const QString& path, const QSize& size, double framesPerSecond, QString& error);
    /// Adds a frame of the movie's size. False, with one sentence in `error`, where that fails.
    bool add(const QImage& frame, QString& error);
    /// Ends it. False, with one sentence in `error`, where ffmpeg failed.
    bool end(QString& error);

    ~Movie(); ///< What isn't ended goes.

private:
    QString failure();

    QProcess m_ffmpeg;
    QString m_path;
    QString m_written;
};

} // namespace app
