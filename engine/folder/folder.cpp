#include "engine/folder/folder.h"

#include "engine/folder/filelocation.h"

#include <QFile>

#include <cerrno>
#include <memory>
#include <thread>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brindle::engine {

namespace {

QString parentOf(const QString& name)
{
    return name.left(std::max<qsizetype>(name.lastIndexOf(u'/'), 0));
}

} // namespace

Folder::Folder(const QString& path)
    : m_descriptor(::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
      m_path(path)
{
    if (m_descriptor < 0)
        FileLocation::at(path).fail("cannot be read", errno);
}

Folder::Folder(const Folder& other)
    : m_descriptor(::openat(other.m_descriptor, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
      m_path(other.m_path)
{
    if (m_descriptor < 0)
        FileLocation::at(m_path).fail("cannot be read", errno);
}

Folder::Folder(Folder&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1)),
      m_path(std::move(other.m_path))
{}

Folder& Folder::operator=(Folder other) noexcept
{
    std::swap(m_descriptor, other.m_descriptor);
    std::swap(m_path, other.m_path);
    return *this;
}

Folder::~Folder()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

QString Folder::pathOf(const QString& name) const
{
    return name.isEmpty() ? m_path : m_path + u'/' + name;
}

bool Folder::isSameAs(const Folder& other) const
{
    struct stat own = {};
    struct stat others = {};
    return ::fstat(m_descriptor, &own) == 0 && ::fstat(other.m_descriptor, &others) == 0 &&
           own.st_dev == others.st_dev && own.st_ino == others.st_ino;
}

QString Folder::place() const
{
    struct stat info = {};
    if (::fstat(m_descriptor, &info) != 0 || info.st_nlink == 0)
        return {};
    return QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(m_descriptor));
}

FileLocation Folder::in(const QString& name, const QString& shownAs) const
{
    return {m_descriptor, name.isEmpty() ? QByteArray(".") : QFile::encodeName(name), pathOf(shownAs)};
}

FileLocation Folder::in(const QString& name) const
{
    return in(name, name);
}

FileKind Folder::kindOf(const QString& name) const
{
    return in(name).kind();
}

QByteArray Folder::read(const QString& name, bool* missing) const
{
    return in(name).read(missing);
}

std::optional<Checksum> Folder::checksum(const QString& name) const
{
    return in(name).checksum();
}

QStringList Folder::entries(const QString& name) const
{
    const FileLocation location = in(name);
    const int descriptor = ::openat(location.folder, location.name.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    DIR* opened = descriptor >= 0 ? ::fdopendir(descriptor) : nullptr;
    if (!opened)
        location.fail("cannot be read", errno);
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(opened, &::closedir);
    QStringList names;
    while (const dirent* entry = ::readdir(listing.get())) {
        const QString found = QFile::decodeName(entry->d_name);
        if (found != QLatin1String(".") && found != QLatin1String(".."))
            names.append(found);
    }
    return names;
}

void Folder::writeNew(const QString& name, const QByteArray& content, const QString& shownAs, unsigned int mode) const
{
    in(name, shownAs).write(content, mode);
}

void Folder::link(const QString& from, const QString& to, const QString& shownAs) const
{
    if (::linkat(m_descriptor, QFile::encodeName(from).constData(), m_descriptor, QFile::encodeName(to).constData(),
                 0) == 0)
        return;
    if (errno != EPERM && errno != EOPNOTSUPP && errno != ENOSYS && errno != EMLINK && errno != EXDEV)
        in(to, shownAs).fail("cannot be written", errno);
    writeNew(to, read(from), shownAs, modeOf(from));
}

void Folder::rename(const QString& from, const QString& to) const
{
    in(from).moveTo(in(to));
}

void Folder::remove(const QString& name) const
{
    const FileLocation file = in(name);
    if (::unlinkat(file.folder, file.name.constData(), 0) != 0 && errno != ENOENT)
        file.fail("cannot be removed", errno);
}

void Folder::makeFolder(const QString& name) const
{
    in(name).makeFolder();
}

void Folder::removeFolder(const QString& name) const
{
    const FileLocation folder = in(name);
    if (::unlinkat(folder.folder, folder.name.constData(), AT_REMOVEDIR) != 0 && errno != ENOENT)
        folder.fail("cannot be removed", errno);
}

void Folder::syncFile(const QString& name, const QString& shownAs) const
{
    in(name, shownAs).sync();
}

void Folder::sync(const QString& name) const
{
    in(name).syncFolder();
}

void Folder::syncDisk() const
{
    if (::syncfs(m_descriptor) != 0)
        throw FolderFailure::ofSystem(m_path, "cannot be written", errno);
}

void Folder::requireReplaceable(const QString& name) const
{
    const FileLocation file = in(name);
    const QByteArray parentName = in(parentOf(name)).name;
    const auto refuse = [&file](int error) { file.fail("cannot be written", error); };

    struct stat root = {};
    struct stat parent = {};
    if (::fstat(m_descriptor, &root) != 0 || ::fstatat(m_descriptor, parentName.constData(), &parent, 0) != 0)
        refuse(errno);
    if (parent.st_dev != root.st_dev)
        refuse(EXDEV);
    if (::faccessat(m_descriptor, parentName.constData(), W_OK | X_OK, AT_EACCESS) != 0)
        refuse(errno);

    struct stat info = {};
    if (::fstatat(m_descriptor, file.name.constData(), &info, AT_SYMLINK_NOFOLLOW) != 0) {
        if (errno != ENOENT)
            refuse(errno);
        return;
    }
    if (S_ISDIR(info.st_mode))
        refuse(EISDIR);
    if (S_ISREG(info.st_mode) && ::faccessat(m_descriptor, file.name.constData(), W_OK, AT_EACCESS) != 0)
        refuse(errno);
    // In a folder like /tmp only the owner of a file, or of the folder, may put another one in its place.
    const uid_t user = ::geteuid();
    if ((parent.st_mode & S_ISVTX) != 0 && user != 0 && user != info.st_uid && user != parent.st_uid)
        refuse(EPERM);
}

unsigned int Folder::modeOf(const QString& name) const
{
    struct stat info = {};
    return ::fstatat(m_descriptor, QFile::encodeName(name).constData(), &info, 0) == 0 ? info.st_mode & 0777 : 0666;
}

FolderLock::FolderLock(const Folder& folder, Purpose purpose, std::chrono::milliseconds patience) : m_folder(folder)
{
    const int operation = (purpose == Writing ? LOCK_EX : LOCK_SH) | LOCK_NB;
    const auto end = std::chrono::steady_clock::now() + patience;
    while (::flock(m_folder.descriptor(), operation) != 0) {
        if (errno == EWOULDBLOCK && std::chrono::steady_clock::now() >= end)
            throw FolderFailure{quoted(folder.path()) + " is in use by another program"};
        if (errno != EWOULDBLOCK && errno != EINTR)
            break;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

FolderLock::~FolderLock()
{
    // Closing it would not be enough: a process that was forked off meanwhile has it open as well.
    ::flock(m_folder.descriptor(), LOCK_UN);
}

} // namespace brindle::engine
