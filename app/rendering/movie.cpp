#include "app/rendering/movie.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>

namespace app {

namespace {

const QString kProgram = QStringLiteral("ffmpeg");

/// What ffmpeg is told of the form of a movie; empty for an ending that stands for none.
QStringList formOf(const QString& suffix)
{
    if (suffix == u"mp4") // Sides have to be even there; the ground is black, where a frame is transparent.
        return {"-vf", "pad=ceil(iw/2)*2:ceil(ih/2)*2", "-c:v", "libx264", "-pix_fmt", "yuv420p", "-f", "mp4"};
    if (suffix == u"gif")
        return {"-filter_complex",
                "split[a][b];[a]palettegen=reserve_transparent=1[p];[b][p]paletteuse",
                "-loop",
                "0",
                "-f",
                "gif"};
    if (suffix == u"apng")
        return {"-plays", "0", "-f", "apng"};
    return {};
}

} // namespace

bool Movie::isForm(const QString& path)
{
    return !formOf(QFileInfo(path).suffix().toLower()).isEmpty();
}

bool Movie::isPossible(QString& error)
{
    if (!QStandardPaths::findExecutable(kProgram).isEmpty())
        return true;
    error = QStringLiteral("Movies need the program ffmpeg, which isn't installed (Debian's package ffmpeg).");
    return false;
}

bool Movie::begin(const QString& path, const QSize& size, double framesPerSecond, QString& error)
{
    m_path = path;
    m_written = path + QStringLiteral(".part");
    QStringList arguments = {"-v",         "error",
                             "-f",         "rawvideo",
                             "-pix_fmt",   "rgba",
                             "-s",         QStringLiteral("%1x%2").arg(size.width()).arg(size.height()),
                             "-framerate", QString::number(framesPerSecond, 'g', 12),
                             "-i",         "-"};
    arguments += formOf(QFileInfo(path).suffix().toLower());
    arguments += {"-y", QStringLiteral("file:") + m_written};
    m_ffmpeg.start(kProgram, arguments);
    if (m_ffmpeg.waitForStarted())
        return true;
    error = QStringLiteral("ffmpeg can't be started: %1.").arg(m_ffmpeg.errorString());
    return false;
}

bool Movie::add(const QImage& frame, QString& error)
{
    const QImage pixels = frame.convertToFormat(QImage::Format_RGBA8888);
    for (int y = 0; y < pixels.height(); ++y)
        m_ffmpeg.write(reinterpret_cast<const char*>(pixels.constScanLine(y)), qint64(4) * pixels.width());
    while (m_ffmpeg.bytesToWrite() > 0 && m_ffmpeg.state() == QProcess::Running)
        if (!m_ffmpeg.waitForBytesWritten(-1))
            break;
    if (m_ffmpeg.bytesToWrite() == 0 && m_ffmpeg.state() == QProcess::Running)
        return true;
    error = failure();
    return false;
}

bool Movie::end(QString& error)
{
    m_ffmpeg.closeWriteChannel();
    m_ffmpeg.waitForFinished(-1);
    if (m_ffmpeg.exitStatus() != QProcess::NormalExit || m_ffmpeg.exitCode() != 0) {
        error = failure();
        return false;
    }
    QFile::remove(m_path);
    if (QFile::rename(m_written, m_path)) {
        m_written.clear();
        return true;
    }
    error = QStringLiteral("The movie %1 can't be written.").arg(m_path);
    return false;
}

Movie::~Movie()
{
    if (m_ffmpeg.state() != QProcess::NotRunning) {
        m_ffmpeg.kill();
        m_ffmpeg.waitForFinished(-1);
    }
    if (!m_written.isEmpty())
        QFile::remove(m_written);
}

QString Movie::failure()
{
    m_ffmpeg.waitForFinished(1000);
    const QString reason = QString::fromLocal8Bit(m_ffmpeg.readAllStandardError()).simplified();
    return QStringLiteral("The movie %1 can't be written: ffmpeg failed%2.")
        .arg(m_path, reason.isEmpty() ? QString() : QStringLiteral(" with \"%1\"").arg(reason));
}

} // namespace app
