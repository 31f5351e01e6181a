#include "engine/folder/foldertransaction.h"

#include "engine/folder/folderrecovery.h"
#include "tests/engine/folder/foldertest.h"

#include <QDir>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

using brindle::engine::Folder;
using brindle::engine::FolderFailure;
using brindle::engine::FolderTransaction;
namespace folder_recovery = brindle::engine::folder_recovery;

class FolderTransactionTest : public FolderTest {
public:
    FolderTransactionTest() { QDir().mkpath(folder()); }

    QString folder() const { return path(); }
    QString stage() const { return folder() + "/.brindle-save"; }

    /// The reason of a commit or a recovery that fails; empty when it works.
    template <typename Action>
    static QString failure(Action action)
    {
        try {
            action();
            return {};
        } catch (const FolderFailure& failure) {
            return failure.reason;
        }
    }

    /// Puts one of two states in place of the other: each has files that change, one that is new and one that goes.
    void write(bool first)
    {
        const Folder opened(folder());
        FolderTransaction change(opened);
        change.write("project.json", first ? "project 1" : "project 2");
        change.write("scenes/a.json", first ? QByteArray(9000, 'a') : "short");
        change.write(first ? "scenes/b.json" : "other/of/c.json", "only here");
        change.write("scenes/same.json", "same");
        change.remove(first ? "other/of/c.json" : "scenes/b.json");
        if (QFile::exists(folder() + "/moved.png") == first)
            change.move(first ? "moved.png" : "art/drawing.png", first ? "art/drawing.png" : "moved.png");
        change.commit();
    }
    /// Both states need something to move.
    void writeFirst()
    {
        put(folder() + "/moved.png", QByteArray("\x89PNG\0", 5));
        write(true);
    }
    void recover() const
    {
        EXPECT_EQ(failure([this] { folder_recovery::recover(Folder(folder())); }).toStdString(), "");
    }

    /// The files without folders, which may stay empty when a process is killed.
    Files contents() const
    {
        Files files = filesOf(folder());
        files.removeIf([](const auto& file) { return file.key().endsWith('/'); });
        return files;
    }
};

TEST_F(FolderTransactionTest, ReplacesMakesMovesAndRemovesFiles)
{
    writeFirst();
    EXPECT_EQ(filesOf(folder()).keys(), QStringList({"art/", "art/drawing.png", "project.json", "scenes/",
                                                     "scenes/a.json", "scenes/b.json", "scenes/same.json"}));
    write(false);
    EXPECT_EQ(contents(), Files({{"project.json", "project 2"},
                                 {"scenes/a.json", "short"},
                                 {"other/of/c.json", "only here"},
                                 {"moved.png", QByteArray("\x89PNG\0", 5)},
                                 {"scenes/same.json", "same"}}));
}

TEST_F(FolderTransactionTest, NothingToChangeIsDoneWithoutTouchingTheDisk)
{
    writeFirst();
    const auto before = QFileInfo(folder()).lastModified();
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    const Folder opened(folder());
    FolderTransaction(opened).commit();
    FolderTransaction change(opened);
    change.write("project.json", "project 1");
    change.write("scenes/b.json", "something else");
    change.write("scenes/b.json", "only here");
    change.remove("scenes/not-there.json");
    change.move("scenes/a.json", "scenes/a.json");
    change.commit();
    EXPECT_EQ(QFileInfo(folder()).lastModified(), before);
}

TEST_F(FolderTransactionTest, FilesMayChangePlacesAndBeWrittenAnew)
{
    put(folder() + "/a", "was a");
    put(folder() + "/b", "was b");
    put(folder() + "/c", "was c");
    const Folder opened(folder());
    FolderTransaction change(opened);
    change.move("a", "b");
    change.move("b", "a");
    change.move("c", "deep/in/d");
    change.write("c", "new c");
    change.remove("c");
    change.commit();
    EXPECT_EQ(contents(), Files({{"a", "was b"}, {"b", "was a"}, {"c", "new c"}, {"deep/in/d", "was c"}}));
    FolderTransaction missing(opened);
    missing.move("none", "e");
    EXPECT_EQ(failure([&] { missing.commit(); }), "\"" + folder() + "/none\" is missing");
}

TEST_F(FolderTransactionTest, ItWorksOnTheFolderWhereverThatIsByNow)
{
    put(folder() + "/project.json", "first");
    const Folder opened(folder());
    QDir().rename(folder(), path("moved"));
    QDir().mkpath(folder());
    FolderTransaction change(opened);
    change.write("project.json", "second");
    change.write("scenes/a.json", "a");
    change.commit();
    EXPECT_EQ(filesOf(folder()), Files());
    EXPECT_EQ(get(path("moved") + "/project.json"), "second");
    EXPECT_EQ(opened.place(), path("moved"));
    QDir(path("moved")).removeRecursively();
    EXPECT_EQ(opened.place(), QString());
}

TEST_F(FolderTransactionTest, AFileThatCannotBeMovedAtTheLastMomentTakesAllBack)
{
    writeFirst();
    const Files files = filesOf(folder());
    const int code = inChild([&] {
        // The second of the moves is refused, as by a disk that fails.
        const pid_t child = ::fork();
        if (child != 0) {
            int moves = 0;
            int status = 0;
            ::waitpid(child, &status, 0);
            for (bool isEntry = false; WIFSTOPPED(status); isEntry = !isEntry) {
                user_regs_struct registers = {};
                ::ptrace(PTRACE_GETREGS, child, nullptr, &registers);
                if (isEntry && registers.orig_rax == SYS_renameat && ++moves == 3) {
                    registers.orig_rax = static_cast<unsigned long long>(-1);
                    ::ptrace(PTRACE_SETREGS, child, nullptr, &registers);
                }
                ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
                ::waitpid(child, &status, 0);
            }
            return moves > 3 ? WEXITSTATUS(status) : 3;
        }
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        ::raise(SIGSTOP);
        ::_exit(failure([this] { write(false); }).isEmpty() ? 1 : 0);
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(filesOf(folder()), files);
}

TEST_F(FolderTransactionTest, AProcessKilledAtAnySystemCallLeavesOneOfTheTwoStates)
{
    writeFirst();
    write(false);
    const Files second = contents();
    write(true);
    const Files first = contents();

    int seenFirst = 0;
    int seenSecond = 0;
    bool finished = false;
    for (int calls = 1; !finished; ++calls) {
        const pid_t child = ::fork();
        if (child == 0) {
            ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
            ::raise(SIGSTOP);
            write(false);
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        if (!WIFSTOPPED(status))
            GTEST_SKIP() << "no process can be traced here";
        // Each call stops the child twice: as it begins and as it ends.
        for (int stop = 0; stop < 2 * calls && !finished; ++stop) {
            ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
            ::waitpid(child, &status, 0);
            finished = WIFEXITED(status);
        }
        if (!finished) {
            ::kill(child, SIGKILL);
            ::waitpid(child, &status, 0);
        }
        ASSERT_LT(calls, 5000);

        recover();
        const Files now = contents();
        ASSERT_TRUE(now == first || now == second)
            << "killed at call " << calls << ": " << now.keys().join(' ').toStdString();
        ASSERT_FALSE(QFileInfo::exists(stage()));
        ++(now == first ? seenFirst : seenSecond);
        write(true);
        ASSERT_EQ(contents(), first);
    }
    EXPECT_GT(seenFirst, 10);
    EXPECT_GT(seenSecond, 10);
}

TEST_F(FolderTransactionTest, AProcessKilledWhileItSavesInALoopLeavesOneOfTheTwoStates)
{
    writeFirst();
    write(false);
    const Files second = contents();
    write(true);
    const Files first = contents();
    std::mt19937 random(5);
    for (int round = 0; round < 150; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (bool state = false;; state = !state)
                write(state);
        }
        std::this_thread::sleep_for(std::chrono::microseconds(std::uniform_int_distribution<int>(0, 8000)(random)));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        recover();
        const Files now = contents();
        ASSERT_TRUE(now == first || now == second) << round;
        ASSERT_FALSE(QFileInfo::exists(stage()));
    }
}

TEST_F(FolderTransactionTest, AFileThatCannotBeReplacedLeavesAllAsTheyWere)
{
    writeFirst();
    QDir().mkpath(folder() + "/scenes/z.json");
    const Files files = filesOf(folder());
    const Folder opened(folder());
    FolderTransaction change(opened);
    change.write("project.json", "new");
    change.write("fresh/and/deep/a.json", "new");
    change.write("scenes/z.json", "new");
    EXPECT_EQ(failure([&] { change.commit(); }),
              "\"" + folder() + "/scenes/z.json\" cannot be written: is a directory");
    EXPECT_EQ(filesOf(folder()), files);
}
