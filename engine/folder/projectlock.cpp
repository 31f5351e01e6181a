#include "engine/folder/projectlock.h"

#include "engine/engine.h"
#include "engine/folder/folderio.h"

#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSysInfo>

#include <cerrno>
#include <optional>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brindle::engine {

namespace {

constexpr QLatin1String fileName(".brindle-lock");

QString lockPath(const QString& folder)
{
    return folder + u'/' + fileName;
}

/// 0 or the error.
int whyNotWritable(const QString& folder)
{
    return ::faccessat(AT_FDCWD, QFile::encodeName(folder).constData(), W_OK | X_OK, AT_EACCESS) == 0 ? 0 : errno;
}

/// Who has a lock, as its file tells.
struct Holder {
    explicit Holder(const QLockFile& file)
    {
        file.getLockInfo(&process, &host, &program);
        const QFileInfo info(file.fileName());
        user = info.owner().isEmpty() ? QStringLiteral("user %1").arg(info.ownerId()) : info.owner();
    }

    bool isKnown() const { return process != 0; }
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

/// What stands in the place of a lock file and is none would be waited for (a pipe), or lead somewhere else (a link).
void requireNothingElse(const QString& path)
{
    struct stat info = {};
    if (::lstat(QFile::encodeName(path).constData(), &info) == 0 && !S_ISREG(info.st_mode))
        throw FolderFailure{quoted(path) + " is in the way: it is not a file"};
}

/// Why a lock file can't be made: QLockFile doesn't tell, a file in its place does.
[[noreturn]] void throwNotLockable(const QString& folder)
{
    folder_io::writeNew(lockPath(folder), QByteArray(200, ' '), lockPath(folder), 0644);
    folder_io::remove(lockPath(folder));
    throw FolderFailure{quoted(folder) + " cannot be locked"};
}

/// Lets a lock go whose file is gone, without Qt's line about it on standard error.
void letGoOfGone(std::unique_ptr<QLockFile> file)
{
    static QtMessageHandler before = nullptr;
    before = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& context, const QString& message) {
        if (!message.startsWith(QLatin1String("Could not remove our own lock file")))
            before(type, context, message);
    });
    file.reset();
    qInstallMessageHandler(before);
}

/// Not destroyed with the process either: that would remove what stands at the path.
void keepForEver(std::unique_ptr<QLockFile> file)
{
    static auto& kept = *new std::vector<QLockFile*>;
    kept.push_back(file.release());
}

bool lock(QLockFile& file)
{
    file.setStaleLockTime(0); // However long a person works on the project, the lock stays theirs.
    if (file.tryLock())
        return true;
    if (file.error() != QLockFile::LockFailedError)
        return false;
    // Also a process number that another process has by now, or a file that was never completed, is a dead one's: the
    // system tells whether the file is still held. It can't tell for other machines.
    if (const Holder holder(file); !holder.isKnown() || holder.isOnThisMachine())
        file.removeStaleLockFile();
    return file.tryLock();
}

} // namespace

ProjectLock::ProjectLock() = default;

ProjectLock::ProjectLock(ProjectLock&& other) noexcept
    : m_file(std::move(other.m_file)),
      m_process(other.m_process),
      m_device(other.m_device),
      m_inode(other.m_inode)
{}

ProjectLock& ProjectLock::operator=(ProjectLock&& other) noexcept
{
    release();
    m_file = std::move(other.m_file);
    m_process = other.m_process;
    m_device = other.m_device;
    m_inode = other.m_inode;
    return *this;
}

ProjectLock::~ProjectLock()
{
    release();
}

void ProjectLock::require(const QString& folder)
{
    if (isOn(folder) && QFileInfo::exists(m_file->fileName()))
        return;
    if (isOn(folder)) // The folder has moved with the file, which is taken anew where it is now.
        release();
    requireNothingElse(lockPath(folder));
    auto file = std::make_unique<QLockFile>(lockPath(folder));
    if (!lock(*file)) {
        if (const int error = whyNotWritable(folder))
            throw FolderFailure::ofSystem(folder, "cannot be written", error);
        if (file->error() == QLockFile::LockFailedError)
            throw FolderFailure{quoted(folder) + " is in use by " + Holder(*file).text()};
        throwNotLockable(folder);
    }
    struct stat info = {};
    if (::stat(QFile::encodeName(file->fileName()).constData(), &info) != 0)
        throw FolderFailure::ofSystem(folder, "cannot be locked", errno);
    release();
    m_file = std::move(file);
    m_process = ::getpid();
    m_device = info.st_dev;
    m_inode = info.st_ino;
}

void ProjectLock::release()
{
    if (!m_file)
        return;
    // Letting go removes what stands at the path. Where that is not ours to remove, only the end of the process lets
    // go: in one that was forked off, with rights that were given up, when somebody else's file is there by now.
    struct stat info = {};
    const QString folder = QFileInfo(m_file->fileName()).path();
    const bool isGone = ::stat(QFile::encodeName(m_file->fileName()).constData(), &info) != 0 && errno == ENOENT;
    if (isHeld() && isGone)
        letGoOfGone(std::move(m_file));
    else if (isHeld() && isOn(folder) && whyNotWritable(folder) == 0)
        removeFrom(folder);
    else
        keepForEver(std::move(m_file));
}

/// The file is let go first and then removed: who took it over in between would lose it again.
void ProjectLock::removeFrom(const QString& folder)
{
    std::optional<FolderLock> alone;
    try {
        alone.emplace(folder, FolderLock::Writing, std::chrono::seconds(2));
    } catch (const FolderFailure&) { // Who is in there for so long is past looking for the lock.
    }
    m_file.reset();
}

bool ProjectLock::isHeld() const
{
    return m_file && m_process == ::getpid();
}

bool ProjectLock::isOn(const QString& folder) const
{
    struct stat info = {};
    return isHeld() && ::stat(QFile::encodeName(lockPath(folder)).constData(), &info) == 0 && info.st_dev == m_device &&
           info.st_ino == m_inode;
}

} // namespace brindle::engine
