#include "engine/folder/folderrecovery.h"

#include "engine/folder/foldertransaction.h"
#include "tests/engine/folder/foldertest.h"

#include <QDir>

#include <csignal>

#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

using brindle::engine::Checksum;
using brindle::engine::Folder;
using brindle::engine::FolderFailure;
using brindle::engine::FolderTransaction;
using brindle::engine::SaveJournal;
namespace folder_recovery = brindle::engine::folder_recovery;

namespace {

constexpr char first[] = R"({"format": "brindle-journal", "version": 1,
    "replace": ["project.json", "scenes/a.json"], "remove": ["scenes/b.json"]})";

class FolderRecoveryTest : public FolderTest {
public:
    FolderRecoveryTest() { start(); }

    /// Puts the old files there, and nothing else.
    void start()
    {
        QDir(folder()).removeRecursively();
        QDir().mkpath(folder() + "/scenes");
        put(folder() + "/project.json", "{}");
        put(folder() + "/scenes/a.json", "{ }");
        put(folder() + "/scenes/b.json", "{  }");
        m_old = files();
    }

    QString folder() const { return path(); }
    QString stage(const QString& name = {}) const { return folder() + "/.brindle-save/" + name; }
    QString aside() const { return folder() + "/.brindle-save-damaged"; }
    const Files& old() const { return m_old; }

    /// The files of the project, without what is hidden.
    Files files() const
    {
        Files files = filesOf(folder());
        files.removeIf([](const auto& file) { return file.key().endsWith('/') || file.key().startsWith('.'); });
        return files;
    }
    static Files changed() { return {{"project.json", "[1]"}, {"scenes/a.json", "[2, 22]"}, {"scenes/c.json", "[3]"}}; }

    /// Leaves a change behind as a process that is killed ahead of its move number `moves`.
    void interrupt(int moves = 0)
    {
        const pid_t child = ::fork();
        if (child == 0) {
            ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
            ::raise(SIGSTOP);
            const Folder opened(folder());
            FolderTransaction change(opened);
            const Files files = changed();
            for (auto file = files.begin(); file != files.end(); ++file)
                change.write(file.key(), file.value());
            change.remove("scenes/b.json");
            change.commit();
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        while (WIFSTOPPED(status)) {
            if (QFile::exists(stage("journal.json")) && QDir(stage()).entryList({"?"}, QDir::Files).size() == 3 - moves)
                ::kill(child, SIGKILL);
            ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
            ::waitpid(child, &status, 0);
        }
        ASSERT_TRUE(WIFSIGNALED(status)) << "it was to be killed";
    }

    /// The reason of a recovery that fails; empty when it works.
    QString recovery() const
    {
        try {
            folder_recovery::recover(Folder(folder()));
            return {};
        } catch (const FolderFailure& failure) {
            return failure.reason;
        }
    }
    QString damaged(const QString& what, bool isOldWhole = true) const
    {
        return "the save that was interrupted there is damaged (" + what + "); its remains are kept in \"" + aside() +
               "\"" + (isOldWhole ? ", and the project is as it was before that save" : "");
    }
    QString damagedFile(const QString& name, const QString& what) const
    {
        return damaged("\"" + stage(name) + "\" " + what);
    }

    /// Keeps the folder as it is, to put it back before each of many damages.
    void keep() { m_kept = filesOf(folder()); }
    void putBack()
    {
        QDir(folder()).removeRecursively();
        QDir().mkpath(folder());
        for (auto file = m_kept.begin(); file != m_kept.end(); ++file) {
            if (file.key().endsWith('/'))
                QDir().mkpath(folder() + '/' + file.key());
            else
                put(folder() + '/' + file.key(), file.value());
        }
    }

    void leaveFirstVersion(const QByteArray& journal = first)
    {
        QDir().mkpath(stage());
        put(stage("0"), "{\"a\": 1}");
        put(stage("1"), "{\"a\": 22}");
        put(stage("journal.json"), journal);
    }

private:
    Files m_old;
    Files m_kept;
};

} // namespace

TEST_F(FolderRecoveryTest, AChangeThatCouldNotBeTakenBackGoesBackAtTheNextAttempt)
{
    interrupt(2);
    const Folder opened(folder());
    const QByteArray text = opened.read(QStringLiteral(".brindle-save/journal.json"));
    const SaveJournal journal = SaveJournal::read(stage("journal.json"), text);
    QFile::remove(folder() + "/scenes/a.json");
    QDir().mkpath(folder() + "/scenes/a.json/in the way");
    EXPECT_THROW(folder_recovery::takeBack(opened, journal), FolderFailure);
    EXPECT_TRUE(folder_recovery::isCommitted(opened));

    QDir(folder() + "/scenes/a.json").removeRecursively();
    EXPECT_EQ(recovery(), "");
    EXPECT_EQ(files(), old());
    EXPECT_FALSE(folder_recovery::isInterrupted(opened));

    interrupt(2);
    EXPECT_EQ(recovery(), "") << "which another process left";
    EXPECT_EQ(files(), changed());
}

TEST_F(FolderRecoveryTest, WithoutAJournalNothingHasHappened)
{
    QDir().mkpath(stage());
    put(stage("0"), "new project");
    put(stage("journal.new"), "{\"format");
    EXPECT_TRUE(folder_recovery::isInterrupted(Folder(folder())));
    EXPECT_FALSE(folder_recovery::isCommitted(Folder(folder())));
    EXPECT_EQ(recovery(), QString());
    EXPECT_EQ(files(), old());
    EXPECT_FALSE(folder_recovery::isInterrupted(Folder(folder())));
}

TEST_F(FolderRecoveryTest, AChangeIsEndedWhereverItWasInterrupted)
{
    for (int moves = 0; moves < 3; ++moves) {
        start();
        interrupt(moves);
        EXPECT_TRUE(folder_recovery::isCommitted(Folder(folder())));
        const QHash<QString, QString> waiting = folder_recovery::waiting(Folder(folder()));
        EXPECT_EQ(waiting.size(), 3 - moves);
        for (auto file = waiting.begin(); file != waiting.end(); ++file)
            EXPECT_EQ(get(folder() + '/' + file.value()), changed().value(file.key()));
        EXPECT_EQ(recovery(), QString());
        EXPECT_EQ(files(), changed()) << moves;
        EXPECT_FALSE(QDir(stage()).exists());
    }
}

TEST_F(FolderRecoveryTest, APartThatIsCutShortChangedOrMissingGivesTheOldFilesBack)
{
    const auto expectOld = [this](const QString& part, const char* what) {
        testing::internal::CaptureStderr();
        const QHash<QString, QString> waiting = folder_recovery::waiting(Folder(folder()));
        EXPECT_NE(testing::internal::GetCapturedStderr().find("is damaged"), std::string::npos);
        for (auto file = old().begin(); file != old().end(); ++file)
            EXPECT_EQ(get(folder() + '/' + waiting.value(file.key(), file.key())), file.value());
        EXPECT_EQ(recovery(), damagedFile(part, what));
        EXPECT_EQ(files(), old());
        EXPECT_TRUE(QDir(aside()).exists() && !QDir(stage()).exists());
        EXPECT_EQ(recovery(), QString()) << "there is nothing left to do";
    };
    for (int moves = 0; moves < 3; ++moves) {
        start();
        interrupt(moves);
        keep();
        const QString part = QString::number(moves);
        const QByteArray content = get(stage(part));
        ASSERT_TRUE(QFile::remove(stage(part)));
        expectOld(part, "is missing");
        for (qsizetype length = 0; length < content.size(); ++length) {
            putBack();
            put(stage(part), content.left(length));
            expectOld(part, "is not whole");
        }
        putBack();
        put(stage(part), QByteArray(content.size(), 'x'));
        expectOld(part, "is not whole");
    }
}

TEST_F(FolderRecoveryTest, AJournalThatEndsAnywhereIsPutAside)
{
    interrupt();
    keep();
    const QByteArray journal = get(stage("journal.json"));
    for (qsizetype length = 0; length < journal.size() - 1; ++length) {
        putBack();
        put(stage("journal.json"), journal.left(length));
        const QString told = recovery();
        EXPECT_TRUE(
            told.startsWith("the save that was interrupted there is damaged (\"" + stage("journal.json") + "\" is "))
            << told.toStdString();
        EXPECT_TRUE(told.endsWith("; its remains are kept in \"" + aside() + "\"")) << told.toStdString();
        EXPECT_EQ(files(), old()) << length;
        EXPECT_EQ(get(aside() + "/journal.json"), journal.left(length));
    }
}

TEST_F(FolderRecoveryTest, RemainsAreKeptUnderANameOfTheirOwn)
{
    for (const char* name : {"", "-2", "-3"}) {
        interrupt();
        ASSERT_TRUE(QFile::remove(stage("1")));
        EXPECT_EQ(recovery(), damagedFile("1", "is missing").replace(aside(), aside() + name));
        EXPECT_EQ(get(aside() + name + "/0"), "[1]");
    }
}

TEST_F(FolderRecoveryTest, WhatBothLackIsToldAndMovesNothing)
{
    interrupt(1);
    ASSERT_TRUE(QFile::remove(stage("1")) && QFile::remove(stage("0.old")));
    const Files before = files();
    EXPECT_EQ(recovery(), damaged("\"" + stage("1") + "\" is missing", false));
    EXPECT_EQ(files(), before);
}

TEST_F(FolderRecoveryTest, ARecoveryThatIsKilledIsEndedByTheNextOne)
{
    interrupt();
    keep();
    for (int calls = 1;; ++calls) {
        putBack();
        const pid_t child = ::fork();
        if (child == 0) {
            ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
            ::raise(SIGSTOP);
            ::_exit(recovery().isEmpty() ? 0 : 1);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        for (int stop = 0; stop < calls && WIFSTOPPED(status); ++stop) {
            ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
            ::waitpid(child, &status, 0);
        }
        if (WIFSTOPPED(status)) {
            ::kill(child, SIGKILL);
            ::waitpid(child, &status, 0);
        }
        EXPECT_EQ(recovery(), QString());
        ASSERT_EQ(files(), changed()) << calls;
        ASSERT_FALSE(QDir(stage()).exists());
        if (WIFEXITED(status))
            break;
        calls += 4;
    }
}

TEST_F(FolderRecoveryTest, AChangeOfTheFirstVersionIsEndedWhereItIsWhole)
{
    const Files wanted = {{"project.json", "{\"a\": 1}"}, {"scenes/a.json", "{\"a\": 22}"}};
    leaveFirstVersion();
    EXPECT_EQ(folder_recovery::waiting(Folder(folder())).size(), 2);
    EXPECT_EQ(recovery(), QString());
    EXPECT_EQ(files(), wanted);
    // As if the process had been killed behind the first file, and behind the last.
    leaveFirstVersion();
    QFile::remove(folder() + "/project.json");
    QFile::rename(stage("0"), folder() + "/project.json");
    EXPECT_EQ(recovery(), QString());
    EXPECT_EQ(files(), wanted);
    leaveFirstVersion();
    QFile::remove(stage("0"));
    QFile::remove(stage("1"));
    EXPECT_EQ(recovery(), QString());
    EXPECT_EQ(files(), wanted);
}

TEST_F(FolderRecoveryTest, AChangeOfTheFirstVersionThatIsCutShortIsPutAside)
{
    leaveFirstVersion();
    keep();
    for (const QString part : {"0", "1"}) {
        putBack();
        const QByteArray content = get(stage(part));
        for (qsizetype length = 0; length < content.size(); ++length) {
            putBack();
            put(stage(part), content.left(length));
            EXPECT_TRUE(recovery().startsWith("the save that was interrupted there is damaged (\"" + stage(part)));
            EXPECT_EQ(files(), old()) << part.toStdString() << ' ' << length;
        }
    }
    putBack();
    QFile::remove(stage("1"));
    EXPECT_EQ(recovery(), damagedFile("1", "is missing"));
    EXPECT_EQ(files(), old());
}

TEST_F(FolderRecoveryTest, AJournalThatIsDamagedOrLeadsOutIsPutAside)
{
    struct Case {
        const char* journal;
        const char* reason;
    };
    constexpr Case cases[] = {
        {"", "is empty"},
        {"{", "is damaged at line 1, column 2: unterminated object"},
        {R"({"format": "brindle-journal", "version": 1, "replace": ["../project.json"], "remove": []})",
         "is damaged at line 1: replace[0] is no file of the project"},
        {R"({"format": "brindle-journal", "version": 1, "replace": ["/etc/passwd"], "remove": []})",
         "is damaged at line 1: replace[0] is no file of the project"},
        {R"({"format": "brindle-journal", "version": 1, "replace": ["a/b/c"], "remove": []})",
         "is damaged at line 1: replace[0] is no file of the project"},
        {R"({"format": "brindle-journal", "version": 1, "replace": ["project.json"], "remove": ["scenes/../../x"]})",
         "is damaged at line 1: remove[0] is no file of the project"},
        {R"({"format": "brindle-journal", "version": 1, "replace": ["project.json"], "remove": [".."]})",
         "is damaged at line 1: remove[0] is no file of the project"},
        {R"({"format": "brindle-journal", "version": 1, "replace": ["project.json"], "remove": [""]})",
         "is damaged at line 1: remove[0] is no file of the project"},
        {R"({"format": "brindle-journal", "version": 1, "replace": ["project.json"], "replace": [], "remove": []})",
         "is damaged at line 1, column 74: the field \"replace\" is there twice"},
        {R"({"format": "brindle-journal", "version": 2, "files": [{"path": "a/../b"}]})",
         "is damaged at line 1: files[0].path is no file of the project"},
        {R"({"format": "brindle-journal", "version": 2, "files": [{"path": ".brindle-save/0"}]})",
         "is damaged at line 1: files[0].path is no file of the project"},
        {R"({"format": "brindle-journal", "version": 2, "files": [{"path": "a", "after": [1]}]})",
         "is damaged at line 1: files[0].after has 1 items, not 2"},
        {R"({"format": "brindle-journal", "version": 2, "files": [{"path": "a", "before": [-1, 2]}]})",
         "is damaged at line 1: files[0].before is no size and checksum"},
        {R"({"format": "brindle-journal", "version": 2, "files": [{"path": "a", "before": [1, 4294967296]}]})",
         "is damaged at line 1: files[0].before is no size and checksum"},
    };
    leaveFirstVersion();
    keep();
    for (const auto& [journal, reason] : cases) {
        putBack();
        put(stage("journal.json"), journal);
        EXPECT_EQ(recovery().toStdString(),
                  damaged("\"" + stage("journal.json") + "\" " + reason, false).toStdString());
        EXPECT_EQ(files(), old());
    }
}

TEST_F(FolderRecoveryTest, AJournalOfANewerVersionStaysForThat)
{
    leaveFirstVersion(R"({"format": "brindle-journal", "version": 3, "parts": []})");
    const Files before = filesOf(folder());
    EXPECT_EQ(recovery(), "\"" + stage("journal.json") +
                              "\" has format version 3, and this version of the application reads versions up to 2");
    EXPECT_EQ(filesOf(folder()), before);
}

TEST_F(FolderRecoveryTest, AChecksumIsTheOneThatOthersKnow)
{
    EXPECT_EQ(Checksum::of("123456789"), (Checksum{9, 0xcbf43926U}));
    put(path("large"), QByteArray(1'000'000, 'x'));
    EXPECT_EQ(Folder(path(".")).checksum("large"), Checksum::of(QByteArray(1'000'000, 'x')));
    EXPECT_EQ(Folder(path(".")).checksum("none"), std::nullopt);
    EXPECT_EQ(Folder(path(".")).checksum("project"), std::nullopt);
}
