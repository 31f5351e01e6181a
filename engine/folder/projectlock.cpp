#include "engine/folder/projectlock.h"

#include "engine/engine.h"

#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brindle::engine {

namespace {

constexpr char fileName[] = ".brindle-lock";

/// 0 or the error.
int whyNotWritable(const Folder& folder)
{
    return ::faccessat(folder.descriptor(), ".", W_OK | X_OK, AT_EACCESS) == 0 ? 0 : errno;
}

bool isSameFile(const struct stat& one, const struct stat& other)
{
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// Whether this open file is the one that stands in the folder.
bool stands(int file, const Folder& folder)
{
    struct stat own = {};
    struct stat there = {};
    return ::fstat(file, &own) == 0 && ::fstatat(folder.descriptor(), fileName, &there, AT_SYMLINK_NOFOLLOW) == 0 &&
           isSameFile(own, there);
}

QString userName(unsigned int id)
{
    passwd record = {};
    passwd* user = nullptr;
    char texts[4096];
    ::getpwuid_r(id, &record, texts, sizeof texts, &user);
    return user ? QString::fromLocal8Bit(user->pw_name) : QStringLiteral("user %1").arg(id);
}

/// The content of a lock's file: its holder.
QByteArray ownRecord()
{
    const QString program = QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).fileName();
    return QByteArray::number(qlonglong(::getpid())) + '\n' + program.toUtf8() + '\n' +
           QSysInfo::machineHostName().toUtf8() + '\n' + QSysInfo::machineUniqueId() + '\n' + QSysInfo::bootUniqueId() +
           '\n';
}

/// The holder of a lock, as its file tells.
struct Holder {
    Holder(const Folder& folder, int file)
    {
        const QList<QByteArray> lines = folder.read(fileName).split('\n');
        process = lines.value(0).toLongLong();
        program = QString::fromUtf8(lines.value(1));
        host = QString::fromUtf8(lines.value(2));
        struct stat info = {};
        if (::fstat(file, &info) == 0)
            user = userName(info.st_uid);
    }

    bool isKnown() const { return process > 0 && !host.isEmpty(); }
    bool isOnThisMachine() const { return host == QSysInfo::machineHostName(); }
    QString text() const
    {
        return isKnown() ? shown(user + " on " + host + " (" + program + ", process " + QString::number(process) + ')')
                         : QStringLiteral("another program");
    }

    qint64 process = 0;
    QString host;
    QString program;
    QString user;
};

/// Makes the file of a lock; no file where one is there already.
Descriptor make(const Folder& folder)
{
    Descriptor file(::openat(folder.descriptor(), fileName, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0644));
    if (file < 0) {
        if (errno == EEXIST)
            return file;
        if (const int error = whyNotWritable(folder))
            throw FolderFailure::ofSystem(folder.path(), "cannot be written", error);
        throw FolderFailure::ofSystem(folder.pathOf(fileName), "cannot be written", errno);
    }
    // A file system without locks tells of the holder all the same.
    ::flock(file, LOCK_EX | LOCK_NB);
    const QByteArray record = ownRecord();
    if (::write(file, record.constData(), std::size_t(record.size())) != record.size()) {
        const int error = errno;
        ::unlinkat(folder.descriptor(), fileName, 0);
        throw FolderFailure::ofSystem(folder.pathOf(fileName), "cannot be written", error);
    }
    return file;
}

/// Removes the file of a lock whose process has died; throws where that lives. Also a process number that another
/// process has by now, or a file that was never completed, is a dead one's: the system tells whether the file is still
/// held. It can't tell for other machines.
void removeStale(const Folder& folder)
{
    struct stat info = {};
    if (::fstatat(folder.descriptor(), fileName, &info, AT_SYMLINK_NOFOLLOW) != 0)
        return;
    // Opening a pipe would wait, and a link would lead somewhere else.
    if (!S_ISREG(info.st_mode))
        throw FolderFailure{quoted(folder.pathOf(fileName)) + " is in the way: it is not a file"};
    constexpr int flags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    // Some file systems lock only what may be written.
    Descriptor file(::openat(folder.descriptor(), fileName, O_RDWR | flags));
    if (file < 0)
        file = Descriptor(::openat(folder.descriptor(), fileName, O_RDONLY | flags));
    if (file < 0)
        throw FolderFailure::ofSystem(folder.pathOf(fileName), "cannot be read", errno);
    const Holder holder(folder, file);
    const bool isDead = (!holder.isKnown() || holder.isOnThisMachine()) && ::flock(file, LOCK_EX | LOCK_NB) == 0;
    if (!isDead)
        throw FolderFailure{quoted(folder.path()) + " is in use by " + holder.text()};
    if (stands(file, folder) && ::unlinkat(folder.descriptor(), fileName, 0) != 0)
        throw FolderFailure::ofSystem(folder.path(), "cannot be written", errno);
}

} // namespace

ProjectLock::ProjectLock() = default;

ProjectLock::ProjectLock(ProjectLock&& other) noexcept
    : m_folder(std::exchange(other.m_folder, std::nullopt)),
      m_file(std::move(other.m_file)),
      m_process(other.m_process)
{}

ProjectLock& ProjectLock::operator=(ProjectLock&& other) noexcept
{
    release();
    m_folder = std::exchange(other.m_folder, std::nullopt);
    m_file = std::move(other.m_file);
    m_process = other.m_process;
    return *this;
}

ProjectLock::~ProjectLock()
{
    release();
}

void ProjectLock::require(const Folder& folder)
{
    if (isThere() && m_folder->isSameAs(folder))
        return;
    Descriptor file = make(folder);
    if (file < 0) {
        removeStale(folder);
        file = make(folder);
    }
    if (file < 0)
        throw FolderFailure{quoted(folder.path()) + " is in use by another program"};
    Folder kept = folder;
    release();
    m_folder = std::move(kept);
    m_file = std::move(file);
    m_process = ::getpid();
}

void ProjectLock::release()
{
    if (!m_folder)
        return;
    // Another process that looks for the lock at this moment would report a holder that is just leaving: it is waited
    // for. In a process that was forked off, and where somebody else's file is there by now, nothing is removed.
    if (isThere()) {
        std::optional<FolderLock> alone;
        try {
            alone.emplace(*m_folder, FolderLock::Writing, std::chrono::seconds(2));
        } catch (const FolderFailure&) { // A process that is in there for so long no longer looks for the lock.
        }
        if (isThere())
            ::unlinkat(m_folder->descriptor(), fileName, 0);
    }
    m_file = Descriptor();
    m_folder.reset();
}

bool ProjectLock::isHeld() const
{
    return m_folder && m_process == ::getpid();
}

bool ProjectLock::isOn(const QString& path) const
{
    try {
        return isThere() && m_folder->isSameAs(Folder(path));
    } catch (const FolderFailure&) {
        return false;
    }
}

bool ProjectLock::isThere() const
{
    return isHeld() && stands(m_file, *m_folder);
}

} // namespace brindle::engine
