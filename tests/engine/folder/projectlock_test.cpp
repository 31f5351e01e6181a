#include "engine/folder/projectlock.h"

#include "tests/engine/folder/foldertest.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSysInfo>

#include <csignal>
#include <thread>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using brindle::engine::Folder;
using brindle::engine::FolderFailure;
using brindle::engine::ProjectLock;

class ProjectLockTest : public FolderTest {
public:
    ProjectLockTest() { QDir().mkpath(path()); }

    QString file(const QString& folder = QStringLiteral("project")) const { return path(folder) + "/.brindle-lock"; }

    /// Why the lock is refused; empty when it is held now.
    static QString refusal(ProjectLock& lock, const QString& folder)
    {
        try {
            lock.require(Folder(folder));
            return {};
        } catch (const FolderFailure& failure) {
            return failure.reason;
        }
    }

    QString inUse(const QString& program, const QString& host, qint64 process) const
    {
        return QString("\"%1\" is in use by %2 on %3 (%4, process %5)")
            .arg(path(), QFileInfo(path()).owner(), host, program)
            .arg(process);
    }

    /// A lock file as another process would have left it.
    void leave(qint64 process, const QByteArray& program, const QByteArray& host, const QByteArray& machine)
    {
        put(file(), QByteArray::number(process) + '\n' + program + '\n' + host + '\n' + machine + '\n' +
                        QSysInfo::bootUniqueId() + '\n');
    }

    static QByteArray thisHost() { return QSysInfo::machineHostName().toUtf8(); }
    static QByteArray thisProgram() { return QFileInfo(QFile::symLinkTarget("/proc/self/exe")).fileName().toUtf8(); }
};

namespace {

/// A process that takes the lock of a folder and keeps it until it is killed.
class HoldingProcess {
public:
    explicit HoldingProcess(const QString& folder)
    {
        int ends[2];
        EXPECT_EQ(::pipe(ends), 0);
        m_process = ::fork();
        if (m_process == 0) {
            ProjectLock lock;
            lock.require(Folder(folder));
            static_cast<void>(::write(ends[1], "x", 1));
            for (;;)
                ::pause();
        }
        char taken = 0;
        EXPECT_EQ(::read(ends[0], &taken, 1), 1);
        ::close(ends[0]);
        ::close(ends[1]);
    }
    HoldingProcess(const HoldingProcess&) = delete;
    HoldingProcess& operator=(const HoldingProcess&) = delete;
    ~HoldingProcess() { end(); }

    pid_t process() const { return m_process; }
    void end()
    {
        if (m_process > 0) {
            ::kill(m_process, SIGKILL);
            ::waitpid(m_process, nullptr, 0);
        }
        m_process = 0;
    }

private:
    pid_t m_process = 0;
};

} // namespace

TEST_F(ProjectLockTest, ALockStandsInItsFolderUntilItIsLetGo)
{
    ProjectLock lock;
    EXPECT_FALSE(lock.isHeld());
    EXPECT_FALSE(lock.isOn(path()));
    EXPECT_EQ(refusal(lock, path()), QString());
    EXPECT_TRUE(lock.isHeld() && lock.isOn(path()) && QFile::exists(file()));
    EXPECT_FALSE(lock.isOn(path("other")));
    EXPECT_EQ(refusal(lock, path()), QString()) << "it is held already";
    lock.release();
    EXPECT_FALSE(lock.isHeld() || QFile::exists(file()));
    lock.release();
    EXPECT_EQ(refusal(lock, path()), QString());
}

TEST_F(ProjectLockTest, WhileSomebodyLooksForTheLockItIsNotTakenAway)
{
    auto looking = std::make_unique<brindle::engine::FolderLock>(Folder(path()), brindle::engine::FolderLock::Writing);
    ProjectLock lock;
    lock.require(Folder(path()));
    std::thread leaving([&lock] { lock.release(); });
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    EXPECT_TRUE(QFile::exists(file()));
    ProjectLock other;
    EXPECT_FALSE(refusal(other, path()).isEmpty()) << "it is still held";
    looking.reset();
    leaving.join();
    EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(ProjectLockTest, AProgramThatKeepsTheFolderForLongKeepsNobodysLock)
{
    const brindle::engine::FolderLock kept(Folder(path()), brindle::engine::FolderLock::Reading);
    ProjectLock lock;
    lock.require(Folder(path()));
    lock.release();
    EXPECT_FALSE(lock.isHeld() || QFile::exists(file()));
}

TEST_F(ProjectLockTest, ItGoesWithItsObject)
{
    {
        ProjectLock lock;
        lock.require(Folder(path()));
    }
    EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(ProjectLockTest, AFolderThatIsNamedInAnotherWayIsTheSame)
{
    QFile::link(path(), path("link"));
    ProjectLock lock;
    lock.require(Folder(path()));
    EXPECT_TRUE(lock.isOn(path("link")));
    EXPECT_EQ(refusal(lock, path("link")), QString());
}

TEST_F(ProjectLockTest, AnotherProcessIsToldWhoHasTheProject)
{
    HoldingProcess other(path());
    ProjectLock lock;
    EXPECT_EQ(refusal(lock, path()), inUse(thisProgram(), thisHost(), other.process()));
    EXPECT_FALSE(lock.isHeld());
    EXPECT_TRUE(QFile::exists(file()));
}

TEST_F(ProjectLockTest, TheSameProcessIsRefusedASecondTime)
{
    ProjectLock first;
    first.require(Folder(path()));
    ProjectLock second;
    EXPECT_EQ(refusal(second, path()), inUse(thisProgram(), thisHost(), ::getpid()));
    second.release();
    EXPECT_TRUE(first.isOn(path()));
}

TEST_F(ProjectLockTest, TheLockOfAKilledProcessIsTakenOver)
{
    HoldingProcess other(path());
    other.end();
    EXPECT_TRUE(QFile::exists(file()));
    ProjectLock lock;
    EXPECT_EQ(refusal(lock, path()), QString());
    EXPECT_TRUE(lock.isOn(path()));
}

TEST_F(ProjectLockTest, ADeadProcessWhoseNumberALivingOneHasIsTakenOver)
{
    leave(::getpid(), thisProgram(), thisHost(), QSysInfo::machineUniqueId());
    ProjectLock lock;
    EXPECT_EQ(refusal(lock, path()), QString());
    EXPECT_TRUE(lock.isOn(path()));
}

TEST_F(ProjectLockTest, ALockFileThatWasNeverCompletedIsTakenOver)
{
    for (const QByteArray content : {"", "12", "x\ny\nz\n"}) {
        put(file(), content);
        ProjectLock lock;
        EXPECT_EQ(refusal(lock, path()), QString()) << content.toStdString();
        EXPECT_TRUE(lock.isOn(path()));
    }
}

TEST_F(ProjectLockTest, WhatIsNoLockFileIsToldAndStays)
{
    put(path("precious"), "x");
    const std::function<bool()> ways[] = {
        [this] { return ::mkfifo(qPrintable(file()), 0600) == 0; },
        [this] { return QDir().mkdir(file()); },
        [this] { return QFile::link(path("precious"), file()); },
        [this] { return QFile::link(path("nowhere"), file()); },
        [this] { return QFile::link(file(), file()); },
    };
    for (const auto& make : ways) {
        ASSERT_TRUE(make());
        ProjectLock lock;
        EXPECT_EQ(refusal(lock, path()), brindle::engine::quoted(file()) + " is in the way: it is not a file");
        EXPECT_FALSE(lock.isHeld());
        EXPECT_TRUE(::rmdir(qPrintable(file())) == 0 || ::unlink(qPrintable(file())) == 0);
    }
    EXPECT_EQ(get(path("precious")), "x");
    EXPECT_FALSE(QFile::exists(path("nowhere")));
}

TEST_F(ProjectLockTest, ADiskThatHasNoRoomForALockIsTold)
{
    const int code = inChild([this] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{0, 0};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ProjectLock lock;
        return refusal(lock, path()) == brindle::engine::quoted(file()) + " cannot be written: file too large" ? 0 : 1;
    });
    EXPECT_EQ(code, 0);
    EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(ProjectLockTest, WhatALockFileSaysIsToldOnOneLine)
{
    put(file(), QByteArray("12\npy\0th\x1bon\nelse\twhere\n", 23));
    ProjectLock lock;
    EXPECT_EQ(refusal(lock, path()), inUse("py\\u0000th\\u001bon", "else\\u0009where", 12));
}

TEST_F(ProjectLockTest, ALockWhoseFolderIsGoneIsLetGoWithoutAWord)
{
    static QStringList lines;
    lines.clear();
    const QtMessageHandler before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& message) { lines.append(message); });
    {
        ProjectLock lock;
        lock.require(Folder(path()));
        QDir(path()).removeRecursively();
    }
    qWarning("still told");
    qInstallMessageHandler(before);
    EXPECT_EQ(lines, QStringList("still told"));
}

TEST_F(ProjectLockTest, TheLockOfAnotherMachineStays)
{
    leave(1, "brindle", "elsewhere", "0123456789abcdef0123456789abcdef");
    const QByteArray content = get(file());
    ProjectLock lock;
    EXPECT_EQ(refusal(lock, path()), inUse("brindle", "elsewhere", 1));
    EXPECT_EQ(get(file()), content);
}

TEST_F(ProjectLockTest, AnotherFolderTakesThePlaceOfTheFirst)
{
    QDir().mkpath(path("other"));
    ProjectLock lock;
    lock.require(Folder(path()));
    lock.require(Folder(path("other")));
    EXPECT_FALSE(QFile::exists(file()));
    EXPECT_TRUE(lock.isOn(path("other")));
}

TEST_F(ProjectLockTest, ARefusalLeavesWhatIsHeld)
{
    QDir().mkpath(path("other"));
    HoldingProcess other(path("other"));
    ProjectLock lock;
    lock.require(Folder(path()));
    EXPECT_FALSE(refusal(lock, path("other")).isEmpty());
    EXPECT_EQ(refusal(lock, path("missing")), "\"" + path("missing") + "\" cannot be read: no such file or directory");
    EXPECT_TRUE(lock.isOn(path()));
}

TEST_F(ProjectLockTest, ALockIsHandedOn)
{
    ProjectLock first;
    first.require(Folder(path()));
    ProjectLock second(std::move(first));
    EXPECT_TRUE(second.isOn(path()));
    ProjectLock third;
    third = std::move(second);
    EXPECT_TRUE(third.isOn(path()));
    EXPECT_EQ(refusal(third, path()), QString());
    QDir().mkpath(path("other"));
    ProjectLock fourth;
    fourth.require(Folder(path("other")));
    third = std::move(fourth);
    EXPECT_FALSE(QFile::exists(file()));
    EXPECT_TRUE(third.isOn(path("other")));
}

TEST_F(ProjectLockTest, ALockWhoseFileWasRemovedIsTakenAnew)
{
    ProjectLock lock;
    lock.require(Folder(path()));
    QFile::remove(file());
    EXPECT_FALSE(lock.isOn(path()));
    EXPECT_EQ(refusal(lock, path()), QString());
    EXPECT_TRUE(lock.isOn(path()));
}

TEST_F(ProjectLockTest, ALockThatAnotherProcessGotMeanwhileIsNotRemoved)
{
    ProjectLock lock;
    lock.require(Folder(path()));
    QFile::remove(file());
    HoldingProcess other(path());
    EXPECT_EQ(refusal(lock, path()), inUse(thisProgram(), thisHost(), other.process()));
    lock.release();
    EXPECT_TRUE(QFile::exists(file()));
}

TEST_F(ProjectLockTest, AProcessThatIsForkedOffLeavesTheLockToItsParent)
{
    ProjectLock lock;
    lock.require(Folder(path()));
    const QString expected = inUse(thisProgram(), thisHost(), ::getpid());
    const int code = inChild([&] {
        const bool refused = !lock.isHeld() && refusal(lock, path()) == expected;
        lock.release();
        return refused && QFile::exists(file()) ? 0 : 1;
    });
    EXPECT_EQ(code, 0);
    EXPECT_TRUE(lock.isOn(path()));
}

TEST_F(ProjectLockTest, AFolderThatMovedCanBeLockedAtItsNewPlace)
{
    ProjectLock lock;
    lock.require(Folder(path()));
    QDir().rename(path(), path("moved"));
    EXPECT_FALSE(lock.isOn(path()));
    EXPECT_TRUE(lock.isOn(path("moved")));
    lock.release();
    EXPECT_EQ(refusal(lock, path("moved")), QString());
}

TEST_F(ProjectLockTest, ALockThatMovedWithItsFolderIsTakenAnewThere)
{
    ProjectLock lock;
    lock.require(Folder(path()));
    QDir().rename(path(), path("moved"));
    EXPECT_EQ(refusal(lock, path("moved")), QString());
    EXPECT_TRUE(lock.isOn(path("moved")));
    lock.release();
    EXPECT_FALSE(QFile::exists(file("moved")));
}

TEST_F(ProjectLockTest, ALockOfAFolderThatMovedIsLetGoThoughAnotherHasItsPlace)
{
    ProjectLock lock;
    lock.require(Folder(path()));
    QDir().rename(path(), path("moved"));
    QDir().mkpath(path());
    ProjectLock other;
    EXPECT_EQ(refusal(other, path()), QString());
    EXPECT_FALSE(lock.isOn(path()));
    EXPECT_EQ(lock.folder()->place(), path("moved"));
    lock.release();
    EXPECT_FALSE(QFile::exists(file("moved")));
    EXPECT_TRUE(QFile::exists(file()) && other.isOn(path()));
    EXPECT_EQ(refusal(lock, path("moved")), QString());
}

TEST_F(ProjectLockTest, AProcessThatIsForkedOffAndEndsLeavesTheLockHeld)
{
    ProjectLock lock;
    lock.require(Folder(path()));
    EXPECT_EQ(inChild([&] {
                  lock.release();
                  return 0;
              }),
              0);
    EXPECT_EQ(inChild([&] {
                  ProjectLock other;
                  return refusal(other, path()).isEmpty() ? 1 : 0;
              }),
              0);
}

TEST_F(ProjectLockTest, TheFileTellsItsHolderInTheFormOfQLockFile)
{
    ProjectLock lock;
    lock.require(Folder(path()));
    QLockFile other(file());
    other.setStaleLockTime(0);
    qint64 process = 0;
    QString host;
    QString program;
    EXPECT_TRUE(other.getLockInfo(&process, &host, &program));
    EXPECT_EQ(process, ::getpid());
    EXPECT_EQ(host.toUtf8(), thisHost());
    EXPECT_EQ(program.toUtf8(), thisProgram());
    EXPECT_FALSE(other.tryLock() || other.removeStaleLockFile());
    lock.release();
    ASSERT_TRUE(other.tryLock());
    EXPECT_FALSE(refusal(lock, path()).isEmpty());
    other.unlock();
    EXPECT_EQ(refusal(lock, path()), QString());
}

TEST_F(ProjectLockTest, WhoMayNotWriteIsTold)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "becomes another user, which only root can";
    ::chmod(qPrintable(path(".")), 0755);
    const auto asNobody = [this](const std::function<bool()>& function) {
        return inChild([&] { return ::setgid(65534) == 0 && ::setuid(65534) == 0 && function() ? 0 : 1; }) == 0;
    };
    const QString expected = "\"" + path() + "\" cannot be written: permission denied";
    EXPECT_TRUE(asNobody([&] {
        ProjectLock lock;
        return refusal(lock, path()) == expected && !lock.isHeld();
    }));
    EXPECT_FALSE(QFile::exists(file()));
}
