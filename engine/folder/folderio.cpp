#include "engine/folder/folderio.h"

#include "engine/engine.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstring>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brindle::engine {

namespace {

constexpr qint64 largestFile = qint64(1) << 30;

/// An open file that is closed at the end of the scope.
class Descriptor {
public:
    explicit Descriptor(int value) : m_value(value) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (m_value >= 0)
            ::close(m_value);
    }
    operator int() const { return m_value; }

    /// 0 or the error; some file systems tell of a failed write only here.
    int close() { return ::close(std::exchange(m_value, -1)) == 0 ? 0 : errno; }

private:
    int m_value;
};

QString folderOf(const QString& path)
{
    const qsizetype slash = path.lastIndexOf(u'/');
    return slash > 0 ? path.left(slash) : QStringLiteral("/");
}

/// 0 or the error.
int writeAll(int file, const QByteArray& content)
{
    const char* data = content.constData();
    for (qsizetype left = content.size(); left > 0;) {
        const ssize_t written = ::write(file, data, size_t(left));
        if (written < 0 && errno != EINTR)
            return errno;
        if (written > 0) {
            data += written;
            left -= written;
        }
    }
    return 0;
}

} // namespace

QString shown(const QString& text)
{
    constexpr qsizetype longest = 5000; // Longer than any path.
    if (text.size() > longest)
        return shown(text.left(longest / 2)) + QStringLiteral(" ... ") + shown(text.right(longest / 2));
    QString line;
    line.reserve(text.size());
    for (const QChar character : text) {
        const bool breaks = character.category() == QChar::Other_Control ||
                            character.category() == QChar::Separator_Line ||
                            character.category() == QChar::Separator_Paragraph;
        if (character == u'\n')
            line += QStringLiteral("\\n");
        else if (breaks)
            line += QStringLiteral("\\u%1").arg(int(character.unicode()), 4, 16, QChar(u'0'));
        else
            line += character;
    }
    return line;
}

QString quoted(const QString& path)
{
    return u'"' + shown(path) + u'"';
}

FolderFailure FolderFailure::ofSystem(const QString& path, const char* what, int error)
{
    QString text = QString::fromLocal8Bit(std::strerror(error));
    if (text.size() > 1 && text.at(1).isLower())
        text[0] = text.at(0).toLower();
    return {quoted(path) + u' ' + QLatin1String(what) + ": " + text};
}

FolderFailure FolderFailure::ofNewerVersion(const QString& path, int found, int newest)
{
    const QString known = newest == 1 ? QStringLiteral("version 1") : QStringLiteral("versions up to %1").arg(newest);
    return {quoted(path) + " has format version " + QString::number(found) +
            ", and this version of the application reads " + known};
}

namespace folder_io {

FileKind kindOf(const QString& path)
{
    struct stat info = {};
    if (::stat(QFile::encodeName(path).constData(), &info) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            return FileKind::Nothing;
        throw FolderFailure::ofSystem(path, "cannot be read", errno);
    }
    if (S_ISDIR(info.st_mode))
        return FileKind::Folder;
    return S_ISREG(info.st_mode) ? FileKind::File : FileKind::Other;
}

QByteArray read(const QString& path, bool* missing)
{
    // Without O_NONBLOCK, a pipe in place of the file would keep the process waiting for ever.
    Descriptor file(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file < 0) {
        if (missing && (errno == ENOENT || errno == ENOTDIR)) {
            *missing = true;
            return {};
        }
        throw FolderFailure::ofSystem(path, "cannot be read", errno);
    }
    struct stat info = {};
    if (::fstat(file, &info) != 0)
        throw FolderFailure::ofSystem(path, "cannot be read", errno);
    if (!S_ISREG(info.st_mode))
        throw FolderFailure{quoted(path) + " is not a file"};
    if (info.st_size > largestFile)
        throw FolderFailure{quoted(path) + " is too large"};

    QByteArray content(qsizetype(info.st_size), Qt::Uninitialized);
    qsizetype filled = 0;
    while (filled < content.size()) {
        const ssize_t got = ::read(file, content.data() + filled, size_t(content.size() - filled));
        if (got < 0 && errno != EINTR)
            throw FolderFailure::ofSystem(path, "cannot be read", errno);
        if (got == 0)
            break;
        if (got > 0)
            filled += got;
    }
    content.truncate(filled);
    return content;
}

void writeNew(const QString& path, const QByteArray& content, const QString& shownAs, unsigned int mode)
{
    const QByteArray name = QFile::encodeName(path);
    Descriptor file(::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode_t(mode)));
    if (file < 0)
        throw FolderFailure::ofSystem(shownAs, "cannot be written", errno);
    int error = writeAll(file, content);
    const int closing = file.close();
    if (error == 0)
        error = closing;
    if (error != 0) {
        ::unlink(name.constData());
        throw FolderFailure::ofSystem(shownAs, "cannot be written", error);
    }
}

void syncFile(const QString& path, const QString& shownAs)
{
    const Descriptor file(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC));
    if (file < 0 || ::fsync(file) != 0)
        throw FolderFailure::ofSystem(shownAs, "cannot be written", errno);
}

void syncDisk(const QString& folder)
{
    const Descriptor file(::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (file < 0 || ::syncfs(file) != 0)
        throw FolderFailure::ofSystem(folder, "cannot be written", errno);
}

void rename(const QString& from, const QString& to)
{
    if (::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        throw FolderFailure::ofSystem(to, "cannot be written", errno);
}

void remove(const QString& path)
{
    if (::unlink(QFile::encodeName(path).constData()) != 0 && errno != ENOENT)
        throw FolderFailure::ofSystem(path, "cannot be removed", errno);
}

void makeFolder(const QString& path)
{
    if (::mkdir(QFile::encodeName(path).constData(), 0777) != 0)
        throw FolderFailure::ofSystem(path, "cannot be made", errno);
}

void removeFolder(const QString& path)
{
    if (::rmdir(QFile::encodeName(path).constData()) != 0 && errno != ENOENT)
        throw FolderFailure::ofSystem(path, "cannot be removed", errno);
}

void tryRemoveFolder(const QString& path) noexcept
{
    ::rmdir(QFile::encodeName(path).constData());
}

void sync(const QString& folder)
{
    const Descriptor file(::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // EINVAL: a file system that has no such thing as syncing a folder.
    if (file < 0 || (::fsync(file) != 0 && errno != EINVAL))
        throw FolderFailure::ofSystem(folder, "cannot be written", errno);
}

QStringList entries(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

void requireReplaceable(const QString& folder, const QString& path)
{
    const QString file = folder + u'/' + path;
    const QByteArray name = QFile::encodeName(file);
    const QByteArray parentName = QFile::encodeName(folderOf(file));
    const auto refuse = [&file](int error) { throw FolderFailure::ofSystem(file, "cannot be written", error); };

    struct stat root = {};
    struct stat parent = {};
    if (::stat(QFile::encodeName(folder).constData(), &root) != 0 || ::stat(parentName.constData(), &parent) != 0)
        refuse(errno);
    if (parent.st_dev != root.st_dev)
        refuse(EXDEV);
    if (::faccessat(AT_FDCWD, parentName.constData(), W_OK | X_OK, AT_EACCESS) != 0)
        refuse(errno);

    struct stat info = {};
    if (::lstat(name.constData(), &info) != 0) {
        if (errno != ENOENT)
            refuse(errno);
        return;
    }
    if (S_ISDIR(info.st_mode))
        refuse(EISDIR);
    if (S_ISREG(info.st_mode) && ::faccessat(AT_FDCWD, name.constData(), W_OK, AT_EACCESS) != 0)
        refuse(errno);
    // In a folder like /tmp only the owner of a file, or of the folder, may put another one in its place.
    const uid_t user = ::geteuid();
    if ((parent.st_mode & S_ISVTX) != 0 && user != 0 && user != info.st_uid && user != parent.st_uid)
        refuse(EPERM);
}

unsigned int modeOf(const QString& path)
{
    struct stat info = {};
    return ::stat(QFile::encodeName(path).constData(), &info) == 0 ? info.st_mode & 0777 : 0666;
}

} // namespace folder_io

FolderLock::FolderLock(const QString& folder, Purpose purpose, std::chrono::milliseconds patience)
    : m_descriptor(::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (m_descriptor < 0)
        throw FolderFailure::ofSystem(folder, "cannot be read", errno);
    const int operation = (purpose == Writing ? LOCK_EX : LOCK_SH) | LOCK_NB;
    const auto end = std::chrono::steady_clock::now() + patience;
    while (::flock(m_descriptor, operation) != 0) {
        if (errno == EWOULDBLOCK && std::chrono::steady_clock::now() >= end) {
            ::close(m_descriptor);
            throw FolderFailure{quoted(folder) + " is in use by another program"};
        }
        if (errno != EWOULDBLOCK && errno != EINTR)
            break;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

FolderLock::~FolderLock()
{
    // Closing it would not be enough: a process that was forked off meanwhile has it open as well.
    ::flock(m_descriptor, LOCK_UN);
    ::close(m_descriptor);
}

} // namespace brindle::engine
