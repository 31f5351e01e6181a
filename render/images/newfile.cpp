#include "render/images/newfile.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace brindle::render {

namespace {

/// Waits until a file is on the disk, which shows a disk that is full.
bool isOnDisk(const QByteArray& path)
{
    const int file = open(path.constData(), O_RDONLY | O_CLOEXEC);
    const bool isThere = file >= 0 && fsync(file) == 0;
    if (file >= 0)
        close(file);
    return isThere;
}

} // namespace

NewFile::NewFile(const QString& path) : m_path(path)
{
    // A link stays, and what it leads to is replaced.
    const QFileInfo target(path);
    if (target.isSymLink() && target.exists())
        m_path = target.canonicalFilePath();
    const QFileInfo place(m_path);
    const QString suffix = place.suffix().isEmpty() ? QString() : u'.' + place.suffix();
    QByteArray name = QFile::encodeName(place.path() + QStringLiteral("/.%1-XXXXXX").arg(place.completeBaseName()));
    const QByteArray ending = QFile::encodeName(suffix);
    name += ending;
    const int file = place.isDir() ? -1 : mkostemps(name.data(), int(ending.size()), O_CLOEXEC);
    if (file < 0) {
        m_error = place.isDir() ? QStringLiteral("It is a folder") : qt_error_string(errno);
        return;
    }
    // As any new file, not for the owner alone.
    const mode_t mask = umask(0);
    umask(mask);
    fchmod(file, 0666 & ~mask);
    close(file);
    m_written = QFile::decodeName(name);
}

NewFile::~NewFile()
{
    if (!m_written.isEmpty())
        unlink(QFile::encodeName(m_written).constData());
}

bool NewFile::commit(QString& error)
{
    const QByteArray written = QFile::encodeName(m_written);
    if (!isOnDisk(written) || std::rename(written.constData(), QFile::encodeName(m_path).constData()) != 0) {
        error = qt_error_string(errno);
        return false;
    }
    m_written.clear();
    return true;
}

} // namespace brindle::render
