#include "engine/folder/foldertransaction.h"

#include "engine/folder/folderio.h"
#include "tests/engine/folder/foldertest.h"

#include <QDir>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

using brindle::engine::FolderFailure;
using brindle::engine::FolderTransaction;

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
        FolderTransaction change(folder());
        change.replace("project.json", first ? "project 1" : "project 2");
        change.replace("scenes/a.json", first ? QByteArray(9000, 'a') : "short");
        change.replace(first ? "scenes/b.json" : "other/c.json", "only here");
        change.replace("scenes/same.json", "same");
        change.remove(first ? "other/c.json" : "scenes/b.json");
        change.commit();
    }

    /// The files without folders, which may stay empty when a process is killed.
    Files contents() const
    {
        Files files = filesOf(folder());
        files.removeIf([](const auto& file) { return file.key().endsWith('/'); });
        return files;
    }
};

TEST_F(FolderTransactionTest, ReplacesMakesAndRemovesFiles)
{
    write(true);
    EXPECT_EQ(filesOf(folder()).keys(),
              QStringList({"project.json", "scenes/", "scenes/a.json", "scenes/b.json", "scenes/same.json"}));
    write(false);
    EXPECT_EQ(contents(), Files({{"project.json", "project 2"},
                                 {"scenes/a.json", "short"},
                                 {"other/c.json", "only here"},
                                 {"scenes/same.json", "same"}}));
}

TEST_F(FolderTransactionTest, NothingToChangeIsDoneWithoutTouchingTheDisk)
{
    write(true);
    const auto before = QFileInfo(folder()).lastModified();
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    write(true);
    FolderTransaction(folder()).commit();
    FolderTransaction change(folder());
    change.remove("scenes/not-there.json");
    change.commit();
    EXPECT_EQ(QFileInfo(folder()).lastModified(), before);
}

TEST_F(FolderTransactionTest, AProcessKilledAtAnySystemCallLeavesOneOfTheTwoStates)
{
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

        FolderTransaction::recover(folder());
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
        FolderTransaction::recover(folder());
        const Files now = contents();
        ASSERT_TRUE(now == first || now == second) << round;
        ASSERT_FALSE(QFileInfo::exists(stage()));
    }
}

TEST_F(FolderTransactionTest, ARecoveryThatIsKilledIsEndedByTheNextOne)
{
    write(true);
    const Files first = contents();
    QDir().mkpath(stage());
    put(stage() + "/0", "new project");
    put(stage() + "/1", "new a");
    put(stage() + "/journal.json", R"({"format": "brindle-journal", "version": 1,
        "replace": ["project.json", "scenes/a.json"], "remove": ["scenes/b.json", "scenes/same.json"]})");
    // As if the process had been killed behind the first file.
    QFile::remove(folder() + "/project.json");
    QFile::rename(stage() + "/0", folder() + "/project.json");
    EXPECT_TRUE(FolderTransaction::isCommitted(folder()));
    FolderTransaction::recover(folder());
    EXPECT_EQ(contents(), Files({{"project.json", "new project"}, {"scenes/a.json", "new a"}}));
    EXPECT_FALSE(FolderTransaction::isInterrupted(folder()));
}

TEST_F(FolderTransactionTest, WithoutAJournalNothingHasHappened)
{
    write(true);
    const Files files = filesOf(folder());
    QDir().mkpath(stage());
    put(stage() + "/0", "new project");
    put(stage() + "/journal.new", "{\"format");
    EXPECT_TRUE(FolderTransaction::isInterrupted(folder()));
    EXPECT_FALSE(FolderTransaction::isCommitted(folder()));
    write(true);
    EXPECT_EQ(filesOf(folder()), files);
}

TEST_F(FolderTransactionTest, AJournalThatIsDamagedOrLeadsOutIsToldAndNothingChanges)
{
    struct Case {
        const char* journal;
        const char* reason;
    };
    constexpr Case cases[] = {
        {"", "is empty"},
        {"{", "is damaged at line 1, column 2: unterminated object"},
        {R"({"format": "brindle-journal", "version": 2})",
         "has format version 2, and this version of the application reads version 1"},
        {R"({"format": "brindle-journal", "version": 1, "replace": ["../project.json"], "remove": []})",
         "is damaged at line 1: replace[0] is no file of the project"},
        {R"({"format": "brindle-journal", "version": 1, "replace": ["/etc/passwd"], "remove": []})",
         "is damaged at line 1: replace[0] is no file of the project"},
        {R"({"format": "brindle-journal", "version": 1, "replace": ["project.json"], "remove": ["scenes/../../x"]})",
         "is damaged at line 1: remove[0] is no file of the project"},
        {R"({"format": "brindle-journal", "version": 1, "replace": ["project.json"], "remove": [".."]})",
         "is damaged at line 1: remove[0] is no file of the project"},
        {R"({"format": "brindle-journal", "version": 1, "replace": ["project.json"], "remove": [""]})",
         "is damaged at line 1: remove[0] is no file of the project"},
        {R"({"format": "brindle-journal", "version": 1, "replace": ["project.json"], "replace": [], "remove": []})",
         "is damaged at line 1, column 74: the field \"replace\" is there twice"},
    };
    write(true);
    QDir().mkpath(stage());
    put(stage() + "/0", "new project");
    for (const auto& [journal, reason] : cases) {
        put(stage() + "/journal.json", journal);
        const Files files = filesOf(folder());
        EXPECT_EQ(failure([&] { FolderTransaction::recover(folder()); }).toStdString(),
                  ("\"" + stage() + "/journal.json\" ").toStdString() + reason);
        EXPECT_EQ(filesOf(folder()), files);
    }
}

TEST_F(FolderTransactionTest, AJournalThatEndsAnywhereIsToldAndNothingChanges)
{
    const QByteArray journal =
        R"({"format": "brindle-journal", "version": 1, "replace": ["project.json"], "remove": []})";
    write(true);
    QDir().mkpath(stage());
    put(stage() + "/0", "new project");
    for (qsizetype length = 0; length < journal.size(); ++length) {
        put(stage() + "/journal.json", journal.left(length));
        const Files files = filesOf(folder());
        EXPECT_TRUE(
            failure([&] { FolderTransaction::recover(folder()); }).startsWith("\"" + stage() + "/journal.json\" is "));
        ASSERT_EQ(filesOf(folder()), files);
    }
}

TEST_F(FolderTransactionTest, AFileThatCannotBeReplacedLeavesAllAsTheyWere)
{
    write(true);
    QDir().mkpath(folder() + "/scenes/z.json");
    const Files files = filesOf(folder());
    FolderTransaction change(folder());
    change.replace("project.json", "new");
    change.replace("fresh/a.json", "new");
    change.replace("scenes/z.json", "new");
    EXPECT_EQ(failure([&] { change.commit(); }),
              "\"" + folder() + "/scenes/z.json\" cannot be written: is a directory");
    EXPECT_EQ(filesOf(folder()), files);
}
