#include "engine/folder/holderlock.h"

#include "core/host/msg_scope.h"
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

/// 0 or the error.
int whyNotWritable(const Folder& folder)
{
    return ::faccessat(folder.descriptor(), ".", W_OK | X_OK, AT_EACCESS) == 0 ? 0 : errno;
}

bool isSameFile(const struct stat& one, const struct stat& other)
{
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// Whether this open file is the one that stands in the folder under a name.
bool stands(int file, const Folder& folder, const QString& name)
{
    struct stat own = {};
    struct stat there = {};
    return ::fstat(file, &own) == 0 &&
           ::fstatat(folder.descriptor(), QFile::encodeName(name), &there, AT_SYMLINK_NOFOLLOW) == 0 &&
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
    Holder(const Folder& folder, const QString& name, int file)
    {
        bool isGone = false; // Given back at this moment.
        const QList<QByteArray> lines = folder.read(name, &isGone).split('\n');
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

/// The file of a lock, opened to see whether its holder lives; no file where there is none.
Descriptor openedLock(const Folder& folder, const QString& name)
{
    const QByteArray file = QFile::encodeName(name);
    struct stat info = {};
    if (::fstatat(folder.descriptor(), file, &info, AT_SYMLINK_NOFOLLOW) != 0)
        return Descriptor();
    // Opening a pipe would wait, and a link would lead somewhere else.
    if (!S_ISREG(info.st_mode))
        throw FolderFailure{quoted(folder.pathOf(name)) + " is in the way: it is not a file"};
    constexpr int flags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    // Some file systems lock only what may be written.
    Descriptor opened(::openat(folder.descriptor(), file, O_RDWR | flags));
    if (opened < 0)
        opened = Descriptor(::openat(folder.descriptor(), file, O_RDONLY | flags));
    if (opened < 0 && errno != ENOENT)
        throw FolderFailure::ofSystem(folder.pathOf(name), "cannot be read", errno);
    return opened;
}

/// Throws where the process that holds an opened lock lives. Also a process number that another process has by now, or
/// a file that was never completed, is a dead one's: the system tells whether the file is still held. It can't tell for
/// other machines.
void requireDead(const Folder& folder, const QString& name, const QString& subject, int file)
{
    const Holder holder(folder, name, file);
    const bool isDead = (!holder.isKnown() || holder.isOnThisMachine()) && ::flock(file, LOCK_EX | LOCK_NB) == 0;
    if (!isDead)
        throw FolderFailure{subject + " is in use by " + holder.text()};
}

} // namespace

HolderLock::HolderLock(HolderLock&& other) noexcept
    : m_name(other.m_name),
      m_subject(other.m_subject),
      m_folder(std::exchange(other.m_folder, std::nullopt)),
      m_file(std::move(other.m_file)),
      m_process(other.m_process)
{}

HolderLock& HolderLock::operator=(HolderLock&& other) noexcept
{
    release();
    m_name = other.m_name;
    m_subject = other.m_subject;
    m_folder = std::exchange(other.m_folder, std::nullopt);
    m_file = std::move(other.m_file);
    m_process = other.m_process;
    return *this;
}

HolderLock::~HolderLock()
{
    release();
}

void HolderLock::require(const Folder& folder)
{
    if (isThere() && m_folder->isSameAs(folder))
        return;
    Descriptor file = make(folder);
    if (file < 0) {
        removeStale(folder);
        file = make(folder);
    }
    if (file < 0)
        throw FolderFailure{subjectIn(folder) + " is in use by another program"};
    Folder kept = folder;
    release();
    m_folder = std::move(kept);
    m_file = std::move(file);
    m_process = ::getpid();
}

void HolderLock::follow(const QString& path)
{
    if (!isHeld() || isOn(path))
        return;
    release();
    try {
        const Folder folder(path);
        const FolderLock alone(folder, FolderLock::Writing);
        require(folder);
    } catch (const FolderFailure& failure) {
        MSG_Scope(failure.reason + u'.', MSG_Scope::kError);
    }
}

void HolderLock::release()
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
            ::unlinkat(m_folder->descriptor(), QFile::encodeName(m_name), 0);
    }
    m_file = Descriptor();
    m_folder.reset();
}

bool HolderLock::isHeld() const
{
    return m_folder && m_process == ::getpid();
}

bool HolderLock::isOn(const QString& path) const
{
    try {
        return isThere() && m_folder->isSameAs(Folder(path));
    } catch (const FolderFailure&) {
        return false;
    }
}

void HolderLock::requireFree(const Folder& folder) const
{
    if (isThere() && m_folder->isSameAs(folder))
        return;
    if (const Descriptor file = openedLock(folder, m_name); file >= 0)
        requireDead(folder, m_name, subjectIn(folder), file);
}

void HolderLock::requireSame(const Folder& folder) const
{
    if (!m_folder || m_folder->isSameAs(folder))
        return;
    const QString place = m_folder->place();
    throw FolderFailure{quoted(folder.path()) + " is another folder by now; that of the open project " +
                        (place.isEmpty() ? QStringLiteral("was removed") : "has moved to " + quoted(place))};
}

/// Makes the file; no file where one is there already.
Descriptor HolderLock::make(const Folder& folder) const
{
    const QByteArray name = QFile::encodeName(m_name);
    Descriptor file(::openat(folder.descriptor(), name, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0644));
    if (file < 0) {
        if (errno == EEXIST)
            return file;
        if (const int error = whyNotWritable(folder))
            throw FolderFailure::ofSystem(folder.path(), "cannot be written", error);
        throw FolderFailure::ofSystem(folder.pathOf(m_name), "cannot be written", errno);
    }
    // A file system without locks tells of the holder all the same.
    ::flock(file, LOCK_EX | LOCK_NB);
    const QByteArray record = ownRecord();
    if (::write(file, record.constData(), std::size_t(record.size())) != record.size()) {
        const int error = errno;
        ::unlinkat(folder.descriptor(), name, 0);
        throw FolderFailure::ofSystem(folder.pathOf(m_name), "cannot be written", error);
    }
    return file;
}

/// Removes the file of a process that has died; throws where that lives.
void HolderLock::removeStale(const Folder& folder) const
{
    const Descriptor file = openedLock(folder, m_name);
    if (file < 0)
        return;
    requireDead(folder, m_name, subjectIn(folder), file);
    if (stands(file, folder, m_name) && ::unlinkat(folder.descriptor(), QFile::encodeName(m_name), 0) != 0)
        throw FolderFailure::ofSystem(folder.path(), "cannot be written", errno);
}

bool HolderLock::isThere() const
{
    return isHeld() && stands(m_file, *m_folder, m_name);
}

} // namespace brindle::engine
