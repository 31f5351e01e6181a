#include "engine/folder/folder.h"

#include "engine/engine.h"
#include "tests/engine/folder/foldertest.h"

#include <QDir>
#include <QFileInfo>

#include <csignal>

#include <sys/resource.h>

using brindle::engine::FileKind;
using brindle::engine::Folder;
using brindle::engine::FolderFailure;
using brindle::engine::FolderLock;
namespace folder_io = brindle::engine::folder_io;

class FolderIoTest : public FolderTest {
public:
    template <typename Action>
    static std::string failure(Action action)
    {
        try {
            action();
            return {};
        } catch (const FolderFailure& failure) {
            return failure.reason.toStdString();
        }
    }
    std::string named(const char* name, const char* reason) const
    {
        return (brindle::engine::quoted(path(name)) + ' ' + reason).toStdString();
    }
};

TEST_F(FolderIoTest, TellsWhatStandsAtAPath)
{
    put(path("file"), "x");
    QFile::link(path("file"), path("link"));
    EXPECT_EQ(folder_io::kindOf(path("file")), FileKind::File);
    EXPECT_EQ(folder_io::kindOf(path("link")), FileKind::File);
    EXPECT_EQ(folder_io::kindOf(path(".")), FileKind::Folder);
    EXPECT_EQ(folder_io::kindOf(path("none")), FileKind::Nothing);
    EXPECT_EQ(folder_io::kindOf(path("file/none")), FileKind::Nothing);
    EXPECT_EQ(folder_io::kindOf("/dev/null"), FileKind::Other);
}

TEST_F(FolderIoTest, ATextFromOutsideIsShownAsOneReadableLine)
{
    EXPECT_EQ(brindle::engine::shown("Jörg's \"腕\" 🦴 %1"), "Jörg's \"腕\" 🦴 %1");
    EXPECT_EQ(brindle::engine::shown(QString("a\nb\r\t\x1b[31m") + QChar(0) + QChar(0x2028) + QChar(0x9b)),
              "a\\nb\\u000d\\u0009\\u001b[31m\\u0000\\u2028\\u009b");
    EXPECT_EQ(brindle::engine::quoted("/p/a\nb"), "\"/p/a\\nb\"");
    EXPECT_EQ(brindle::engine::shown(QString(5000, 'x')), QString(5000, 'x'));
    EXPECT_EQ(brindle::engine::shown('<' + QString(10'000'000, 'x') + '>'),
              '<' + QString(2499, 'x') + " ... " + QString(2499, 'x') + '>');
}

TEST_F(FolderIoTest, AMissingFileIsToldInTheWayThatWasAskedFor)
{
    bool missing = false;
    EXPECT_EQ(folder_io::read(path("none"), &missing), QByteArray());
    EXPECT_TRUE(missing);
    EXPECT_EQ(failure([&] { folder_io::read(path("none")); }),
              named("none", "cannot be read: no such file or directory"));
}

TEST_F(FolderIoTest, WaitingForWhatIsNotThereIsTold)
{
    put(path("file"), "x");
    const Folder folder(path("."));
    EXPECT_EQ(failure([&] {
                  folder.syncFile("file", "shown");
                  folder.syncDisk();
                  folder.sync(QString());
              }),
              std::string());
    EXPECT_EQ(failure([&] { folder.syncFile("none", "shown"); }),
              named("./shown", "cannot be written: no such file or directory"));
    EXPECT_EQ(failure([&] { folder.sync("none"); }), named("./none", "cannot be written: no such file or directory"));
    EXPECT_EQ(failure([&] { Folder(path("none")); }), named("none", "cannot be read: no such file or directory"));
    EXPECT_EQ(failure([&] { Folder(path("file")); }), named("file", "cannot be read: not a directory"));
}

TEST_F(FolderIoTest, AFolderStaysTheSameWhereverItIs)
{
    QDir().mkpath(path("one"));
    QDir().mkpath(path("two"));
    put(path("one/file"), "x");
    const Folder one(path("one"));
    const Folder again(one);
    Folder other(path("two"));
    EXPECT_TRUE(one.isSameAs(again) && !one.isSameAs(other));
    QDir().rename(path("one"), path("three"));
    QDir().rename(path("two"), path("one"));
    EXPECT_EQ(one.read("file"), "x");
    EXPECT_EQ(one.kindOf(QString()), FileKind::Folder);
    EXPECT_EQ(one.entries(QString()), QStringList("file"));
    EXPECT_EQ(one.place(), path("three"));
    EXPECT_EQ(other.place(), path("one"));
    EXPECT_TRUE(one.isSameAs(Folder(path("three"))) && !one.isSameAs(Folder(path("one"))));
    other = one;
    EXPECT_TRUE(other.isSameAs(one));
    EXPECT_EQ(failure([&] { one.read("none"); }), named("one/none", "cannot be read: no such file or directory"))
        << "under the name that it was opened by";
}

TEST_F(FolderIoTest, AFileGetsASecondName)
{
    put(path("file"), "x");
    const Folder folder(path("."));
    folder.link("file", "other", "shown");
    EXPECT_EQ(get(path("other")), "x");
    EXPECT_EQ(failure([&] { folder.link("file", "other", "shown"); }),
              named("./shown", "cannot be written: file exists"));
    EXPECT_EQ(failure([&] { folder.link("none", "third", "shown"); }),
              named("./shown", "cannot be written: no such file or directory"));
}

TEST_F(FolderIoTest, AFileThatCannotBeWrittenWholeIsNotThere)
{
    const Folder folder(path("."));
    EXPECT_EQ(failure([&] { folder.writeNew("a/b", "x", "shown", 0666); }),
              named("./shown", "cannot be written: no such file or directory"));
    put(path("file"), "x");
    EXPECT_EQ(failure([&] { folder.writeNew("file", "y", "shown", 0666); }),
              named("./shown", "cannot be written: file exists"));
    EXPECT_EQ(get(path("file")), "x");
    const int code = inChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{100, 100};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const std::string told = failure([&] { folder.writeNew("new", QByteArray(200, 'x'), "new", 0666); });
        return told == named("./new", "cannot be written: file too large") ? 0 : 1;
    });
    EXPECT_EQ(code, 0);
    EXPECT_FALSE(QFileInfo::exists(path("new")));
}

TEST_F(FolderIoTest, RemovingWhatIsNotThereIsDone)
{
    const Folder folder(path("."));
    EXPECT_EQ(failure([&] {
                  folder.remove("none");
                  folder.removeFolder("none");
              }),
              "");
    QDir().mkpath(path("full/of"));
    EXPECT_EQ(failure([&] { folder.removeFolder("full"); }), named("./full", "cannot be removed: directory not empty"));
    EXPECT_EQ(failure([&] { folder.remove("full"); }), named("./full", "cannot be removed: is a directory"));
}

TEST_F(FolderIoTest, AnotherDiskCannotTakeAFileOfTheFolder)
{
    QDir().mkpath(path());
    ASSERT_TRUE(QFile::link("/proc/self", path() + "/scenes"));
    EXPECT_EQ(failure([&] { Folder(path()).requireReplaceable("scenes/a.json"); }),
              named("project/scenes/a.json", "cannot be written: invalid cross-device link"));
}

TEST_F(FolderIoTest, ReadersShareALockAndAWriterHasItAlone)
{
    const auto lock = [&](FolderLock::Purpose purpose) {
        return failure([&] { const FolderLock lock(Folder(path(".")), purpose, std::chrono::milliseconds(20)); });
    };
    const std::string refused = named(".", "is in use by another program");
    {
        const FolderLock reader(Folder(path(".")), FolderLock::Reading);
        EXPECT_EQ(lock(FolderLock::Reading), "");
        EXPECT_EQ(lock(FolderLock::Writing), refused);
    }
    {
        const FolderLock writer(Folder(path(".")), FolderLock::Writing);
        EXPECT_EQ(lock(FolderLock::Reading), refused);
        EXPECT_EQ(lock(FolderLock::Writing), refused);
    }
    EXPECT_EQ(lock(FolderLock::Writing), "");
    EXPECT_EQ(filesOf(path(".")), Files());
}
