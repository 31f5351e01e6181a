#include "core/host/em_commands.h"
#include "engine/elements/elementmanager.h"
#include "engine/folder/projectfolder.h"
#include "tests/engine/folder/foldertest.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <random>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace brindle::engine;

/// A project on disk, and short ways to its elements and their files.
class ElementFilesTest : public FolderTest {
public:
    std::unique_ptr<Project> opened;
    int element = -1;

    void SetUp() override
    {
        ASSERT_EQ(createError(path(), project()), QString());
        opened = open(path());
        element = create("Arm");
    }

    ElementManager& elements() { return *engineElements(opened->projectCommon()->elementManager()); }
    bool run(CO_Command* command) { return opened->history().execute(command, "Change"); }
    void undo(unsigned int count = 1) { opened->history().unexecute(count); }
    void redo(unsigned int count = 1) { opened->history().reexecute(count); }
    void save() { FolderTest::save(path(), *opened); }
    void reopen()
    {
        opened.reset();
        opened = open(path());
    }
    QString saveError() { return writeError(path(), *opened); }

    int create(const QString& name, int vectorType = TUElement::kNoVector)
    {
        const int id = elements().createElement(name, 0, 12, 0, vectorType, false).id();
        run(new EM_Commands::FakeAddElementsCmd(&elements(), {id}, true, true, 0));
        return id;
    }
    EM_DrawingId id(const QString& name) { return elements().getDrawingId(element, name, false); }
    bool setContent(const QString& name, const QByteArray& bytes)
    {
        return run(new SetDrawingContentCmd(&elements(), CA_CelKeyElement(element, id(name)), bytes));
    }
    void draw(const QString& name, const QByteArray& bytes)
    {
        run(EM_Commands::NewDrawingCmd::Create(&elements(), element, name, false, false));
        setContent(name, bytes);
    }
    bool rename(const QString& name, const QString& to)
    {
        return run(new RenameDrawingCmd(&elements(), element, id(name), to));
    }
    bool remove(const QString& name) { return run(new EM_Commands::DeleteDrawingCmd(&elements(), element, id(name))); }
    bool removeElement(int id, bool withFiles)
    {
        return run(RemoveElementsCmd::BuildCmd(&elements(), {id}, withFiles, 0));
    }
    bool duplicate(const QString& name, const QString& to)
    {
        return run(DuplicateDrawingCmd::Create(&elements(), CA_CelKeyElement(element, id(name)),
                                               CA_CelKeyElement(element), to));
    }
    bool setVersion(const QString& name, int version)
    {
        return run(new SetDrawingVersionCmd(&elements(), element, id(name), version));
    }
    QByteArray content(const QString& name)
    {
        const auto there = elements().find(element)->drawings().named(name)->content(EM_DefaultLayerId);
        return there ? there->bytes() : QByteArray();
    }

    /// The files of drawings, by their paths in "elements".
    Files drawingFiles()
    {
        Files files;
        const Files all = filesOf(path());
        for (auto file = all.begin(); file != all.end(); ++file) {
            if (file.key().startsWith("elements/") && !file.key().endsWith('/'))
                files.insert(file.key().mid(9), file.value());
        }
        return files;
    }
    QStringList removedFiles() { return QDir(path(".") + "/project/.brindle-removed").entryList(QDir::Files); }
};

using Drawings = QMap<QString, QByteArray>;

/// Copies a folder with all that is in it.
void copyFolder(const QString& from, const QString& to)
{
    ASSERT_EQ(std::system(("cp -r '" + from + "' '" + to + "'").toLocal8Bit().constData()), 0);
}

} // namespace

TEST_F(ElementFilesTest, FilesFollowASaveAndNothingElse)
{
    const auto before = filesOf(path());
    draw("1", "one");
    EXPECT_EQ(filesOf(path()), before);
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/1.png", "one"}}));
    draw("2", "two");
    rename("1", "first");
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/1.png", "one"}}));
    EXPECT_TRUE(elements().find(element)->isDrawingRenamed(id("first")));
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/first.png", "one"}, {"Arm/2.png", "two"}}));
    EXPECT_FALSE(elements().find(element)->isDrawingRenamed(id("first")));
    undo();
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/1.png", "one"}, {"Arm/2.png", "two"}}));
    reopen();
    EXPECT_EQ(content("1"), "one");
    EXPECT_EQ(content("2"), "two");
}

TEST_F(ElementFilesTest, AProjectWithoutElementsHasNoFileOfThem)
{
    undo();
    save();
    EXPECT_FALSE(QFileInfo::exists(path() + "/elements.json"));
    redo();
    save();
    EXPECT_TRUE(QFileInfo::exists(path() + "/elements.json"));
    EXPECT_FALSE(QFileInfo::exists(path() + "/elements")) << "a folder comes with its first file";
    undo();
    save();
    EXPECT_FALSE(QFileInfo::exists(path() + "/elements.json"));
}

TEST_F(ElementFilesTest, WhatIsRemovedComesBackWithAnUndoAlsoAfterASave)
{
    draw("1", "one");
    draw("2", "two");
    save();
    const auto whole = filesOf(path());
    remove("1");
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/2.png", "two"}}));
    EXPECT_EQ(removedFiles().size(), 1);
    undo();
    save();
    EXPECT_EQ(filesOf(path()), whole);
    redo();
    removeElement(element, true);
    save();
    EXPECT_FALSE(QFileInfo::exists(path() + "/elements")) << "its folder goes with the last file";
    EXPECT_EQ(removedFiles().size(), 2);
    undo(2);
    save();
    EXPECT_EQ(filesOf(path()), whole);
}

TEST_F(ElementFilesTest, WhatCannotBeUndoneAnyMoreIsGone)
{
    draw("1", "one");
    save();
    remove("1");
    save();
    ASSERT_EQ(removedFiles().size(), 1);
    opened->history().clearHistory();
    EXPECT_EQ(removedFiles().size(), 0);

    draw("2", "two");
    save();
    remove("2");
    opened->history().clearHistory();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/2.png", "two"}})) << "a file goes with a save";
    save();
    EXPECT_EQ(drawingFiles(), Drawings());

    draw("3", "three");
    save();
    remove("3");
    save();
    opened.reset();
    EXPECT_FALSE(QFileInfo::exists(path() + "/.brindle-removed"));
}

TEST_F(ElementFilesTest, WhatAKilledProcessLeftWaitingGoesWithTheNextOpening)
{
    opened.reset();
    ASSERT_TRUE(QDir().mkdir(path() + "/.brindle-removed"));
    put(path() + "/.brindle-removed/1", "one");
    Project read(path());
    QString error;
    ASSERT_TRUE(ProjectFolder(path()).readOnly(read, error));
    EXPECT_EQ(removedFiles().size(), 1) << "who only reads changes nothing";
    reopen();
    EXPECT_FALSE(QFileInfo::exists(path() + "/.brindle-removed"));
}

TEST_F(ElementFilesTest, AProjectThatIsClosedUnsavedIsWhatWasSaved)
{
    draw("1", "one");
    save();
    const auto whole = filesOf(path());
    setContent("1", "other");
    remove("1");
    removeElement(element, true);
    opened.reset();
    EXPECT_EQ(filesOf(path()), whole);
}

TEST_F(ElementFilesTest, ANewContentReplacesAFileAndAnUndoBringsTheOldOneBack)
{
    draw("1", "one");
    save();
    setContent("1", "other");
    EXPECT_EQ(content("1"), "other");
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/1.png", "other"}}));
    undo();
    EXPECT_EQ(content("1"), "one");
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/1.png", "one"}}));
    redo();
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/1.png", "other"}}));
}

TEST_F(ElementFilesTest, NamesThatDrawingsExchangeAreExchangedOnDisk)
{
    draw("1", "one");
    draw("2", "two");
    save();
    rename("1", "x");
    rename("2", "1");
    rename("x", "2");
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/1.png", "two"}, {"Arm/2.png", "one"}}));
    undo(3);
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/1.png", "one"}, {"Arm/2.png", "two"}}));
}

TEST_F(ElementFilesTest, DuplicatesAndVersionsGetFilesOfTheirOwn)
{
    draw("1", "one");
    duplicate("1", "2");
    setVersion("1", 2);
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/1.png", "one"}, {"Arm/1@2.png", "one"}, {"Arm/2.png", "one"}}));
    setContent("1", "second");
    duplicate("2", "3");
    save();
    EXPECT_EQ(drawingFiles(),
              Drawings({{"Arm/1.png", "one"}, {"Arm/1@2.png", "second"}, {"Arm/2.png", "one"}, {"Arm/3.png", "one"}}));
    put(path() + "/elements/Arm/3.png", "painted over");
    EXPECT_EQ(get(path() + "/elements/Arm/2.png"), "one") << "no two names of one file";
    remove("1");
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/2.png", "one"}, {"Arm/3.png", "painted over"}}));
    undo();
    save();
    reopen();
    EXPECT_EQ(elements().getDrawingVersion(element, id("1")), 2);
    EXPECT_EQ(content("1"), "second");
    setVersion("1", 1);
    EXPECT_EQ(content("1"), "one");
}

TEST_F(ElementFilesTest, ADeletedElementKeepsItsFiles)
{
    draw("1", "one");
    removeElement(element, false);
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/1.png", "one"}}));
    reopen();
    EXPECT_TRUE(elements().isElementDeleted(element));
    EXPECT_EQ(content("1"), "one");
    element = create("Arm");
    draw("1", "new one");
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm-2/1.png", "new one"}, {"Arm/1.png", "one"}}));
}

TEST_F(ElementFilesTest, AFileThatIsThereAlreadyIsTakenAsItIs)
{
    ASSERT_TRUE(QDir().mkpath(path() + "/elements/Arm"));
    put(path() + "/elements/Arm/1.png", "scan");
    const auto takeFile = [&](const QString& name, bool check) {
        return run(EM_Commands::NewDrawingCmd::Create(&elements(), element, name, true, check));
    };
    EXPECT_TRUE(takeFile("1", true));
    EXPECT_EQ(content("1"), "scan");
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/1.png", "scan"}}));
    EXPECT_FALSE(takeFile("2", true));
    EXPECT_TRUE(takeFile("2", false));
    EXPECT_EQ(saveError(), "Cannot save the project: \"" + path() + "/elements/Arm/2.png\" is missing.");
    undo();
    save();
    undo();
    save();
    EXPECT_EQ(drawingFiles(), Drawings()) << "it became the project's";
    redo();
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/1.png", "scan"}}));
}

TEST_F(ElementFilesTest, AFileOfSomebodyElseIsInTheWay)
{
    draw("1", "one");
    ASSERT_TRUE(QDir().mkpath(path() + "/elements/Arm"));
    put(path() + "/elements/Arm/1.png", "somebody's");
    const auto before = filesOf(path());
    EXPECT_EQ(saveError(), "Cannot save the project: \"" + path() +
                               "/elements/Arm/1.png\" is in the way: it is not a file of the project.");
    EXPECT_EQ(filesOf(path()), before);
    rename("1", "2");
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/1.png", "somebody's"}, {"Arm/2.png", "one"}}));
    removeElement(element, true);
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/1.png", "somebody's"}}));
}

TEST_F(ElementFilesTest, AnElementsJsonOfSomebodyElseIsInTheWay)
{
    put(path() + "/elements.json", "{}");
    EXPECT_EQ(saveError(), "Cannot save the project: \"" + path() +
                               "/elements.json\" is in the way: it is not a file of the project.");
    undo();
    EXPECT_EQ(saveError(), QString());
    EXPECT_EQ(get(path() + "/elements.json"), "{}");
}

TEST_F(ElementFilesTest, AFileThatVanishedIsNamedByWhatNeedsIt)
{
    draw("1", "one");
    draw("2", "two");
    save();
    const QString missing = path() + "/elements/Arm/1.png";
    ASSERT_TRUE(QFile::remove(missing));
    EXPECT_FALSE(elements().find(element)->drawingFileExists(id("1"), EM_DefaultLayerId));
    try {
        content("1");
        ADD_FAILURE();
    } catch (const FolderFailure& failure) {
        EXPECT_EQ(failure.reason, '"' + missing + "\" is missing");
    }
    save();
    const QString sentence = "Cannot save the project: \"" + missing + "\" is missing.";
    rename("1", "3");
    EXPECT_EQ(saveError(), sentence);
    undo();
    duplicate("1", "3");
    EXPECT_EQ(saveError(), sentence);
    undo();
    remove("1");
    EXPECT_EQ(saveError(), QString()) << "what goes need not be there";
    undo();
    EXPECT_EQ(saveError(), QString());
    EXPECT_EQ(content("2"), "two");
}

TEST_F(ElementFilesTest, AProjectThatGoesOnElsewhereTakesItsFilesAlong)
{
    draw("1", "one");
    save();
    draw("2", "two");
    remove("1");
    save();
    QString error;
    ASSERT_TRUE(ProjectFolder(path("other"))
                    .createForSave(opened->record(), opened->scenes(), opened->lock(), error, opened->files()))
        << error.toStdString();
    opened->setPath(path("other"));
    EXPECT_EQ(get(path("other") + "/elements/Arm/2.png"), "two");
    EXPECT_FALSE(QFileInfo::exists(path() + "/.brindle-removed"));
    EXPECT_TRUE(QFileInfo::exists(path() + "/elements/Arm/2.png")) << "the old one stays as it was saved";
    undo();
    FolderTest::save(path("other"), *opened);
    EXPECT_EQ(get(path("other") + "/elements/Arm/1.png"), "one");
    opened.reset();
    opened = open(path());
    EXPECT_EQ(content("2"), "two");
}

TEST_F(ElementFilesTest, AReadOnlyProjectIsSavedElsewhereWithItsFiles)
{
    draw("1", "one");
    save();
    Project read(path());
    QString error;
    ASSERT_TRUE(ProjectFolder(path()).readOnly(read, error));
    EXPECT_FALSE(
        read.projectCommon()->elementManager()->getLock(read.projectCommon()->elementManager()->elementById(element)));
    ASSERT_TRUE(
        ProjectFolder(path("copy")).createForSave(read.record(), read.scenes(), read.lock(), error, read.files()));
    EXPECT_EQ(get(path("copy") + "/elements/Arm/1.png"), "one");
}

TEST_F(ElementFilesTest, AFileInPlaceOfAFolderIsToldAndLeavesAllAsItWas)
{
    put(path() + "/elements", "no folder");
    draw("1", "one");
    const auto before = filesOf(path());
    EXPECT_TRUE(saveError().startsWith("Cannot save the project: \"" + path() + "/elements"))
        << saveError().toStdString();
    EXPECT_EQ(filesOf(path()), before);
    ASSERT_TRUE(QFile::remove(path() + "/elements"));
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/1.png", "one"}}));
}

TEST_F(ElementFilesTest, AProcessThatWasForkedOffLeavesWhatWaits)
{
    draw("1", "one");
    save();
    remove("1");
    save();
    ASSERT_EQ(removedFiles().size(), 1);
    EXPECT_EQ(inChild([this] {
                  opened.reset();
                  return 0;
              }),
              0);
    EXPECT_EQ(removedFiles().size(), 1);
    undo();
    save();
    EXPECT_EQ(drawingFiles(), Drawings({{"Arm/1.png", "one"}}));
}

TEST_F(ElementFilesTest, AnElementIsLockedAgainstOtherProcesses)
{
    const TUElement& arm = elements().elementById(element);
    EXPECT_FALSE(elements().hasLock(element));
    ASSERT_TRUE(elements().getLock(arm));
    EXPECT_TRUE(elements().getLock(arm)) << "it is held already";
    EXPECT_TRUE(elements().hasLock(element));
    EXPECT_TRUE(QFileInfo::exists(path() + "/elements/Arm/.brindle-lock"));
    draw("1", "one");
    save();
    EXPECT_TRUE(elements().hasLock(element));
    EXPECT_TRUE(elements().releaseLock(arm));
    EXPECT_FALSE(elements().releaseLock(arm));
    EXPECT_FALSE(elements().hasLock(element));
    EXPECT_FALSE(QFileInfo::exists(path() + "/elements/Arm/.brindle-lock"));
    ASSERT_TRUE(elements().getLock(arm));
    opened.reset();
    EXPECT_FALSE(QFileInfo::exists(path() + "/elements/Arm/.brindle-lock"));
}

TEST_F(ElementFilesTest, AFolderThatWasMadeForALockGoesWithIt)
{
    ASSERT_TRUE(elements().getLock(elements().elementById(element)));
    elements().releaseLock(elements().elementById(element));
    EXPECT_FALSE(QFileInfo::exists(path() + "/elements/Arm"));
}

TEST_F(ElementFilesTest, ASaveOfDrawingsThatIsKilledLeavesTheOldOrTheNewFilesToTheByte)
{
    for (const char* name : {"1", "2", "3", "4", "5", "6"})
        draw(name, QByteArray(name) + QByteArray(3000, 'x'));
    element = create("Leg");
    draw("1", "leg");
    element = elements().elementByName("Arm", 0).id();
    save();
    opened.reset();
    copyFolder(path(), path("first"));
    const Files first = filesOf(path());

    const auto change = [this] {
        opened = open(path());
        rename("1", "x");
        rename("2", "1");
        rename("x", "2");
        remove("3");
        setContent("4", "painted");
        setVersion("5", 2);
        duplicate("6", "7");
        draw("8", "new");
        removeElement(elements().elementByName("Leg", 0).id(), true);
    };
    change();
    const auto begin = std::chrono::steady_clock::now();
    save();
    const std::chrono::duration<double, std::micro> oneSave = std::chrono::steady_clock::now() - begin;
    opened.reset();
    const Files second = filesOf(path());
    ASSERT_NE(first, second);
    EXPECT_EQ(drawingFiles().keys(), QStringList({"Arm/1.png", "Arm/2.png", "Arm/4.png", "Arm/5.png", "Arm/5@2.png",
                                                  "Arm/6.png", "Arm/7.png", "Arm/8.png"}));

    int seen[2] = {};
    std::uniform_real_distribution<double> moment(0, std::clamp(1.5 * oneSave.count(), 1000.0, 40000.0));
    std::mt19937 random(5);
    for (int round = 0; round < 40; ++round) {
        QDir(path()).removeRecursively();
        copyFolder(path("first"), path());
        int ready[2];
        ASSERT_EQ(::pipe(ready), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            change();
            ::close(ready[1]);
            save();
            ::pause();
        }
        ::close(ready[1]);
        char end = 0;
        static_cast<void>(::read(ready[0], &end, 1)); // Until the child is about to save.
        ::close(ready[0]);
        std::this_thread::sleep_for(std::chrono::duration<double, std::micro>(moment(random)));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        {
            const auto recovered = open(path());
            FolderTest::save(path(), *recovered);
        }
        const Files now = filesOf(path());
        ASSERT_TRUE(now == first || now == second) << round;
        ++seen[now == second];
    }
    EXPECT_GT(seen[0], 3);
    EXPECT_GT(seen[1], 3);
}

TEST_F(ElementFilesTest, ASaveThatFailsOnItsWayPutsFilesAndFoldersBack)
{
    draw("1", "one");
    save();
    const auto whole = filesOf(path());
    removeElement(element, true);
    ASSERT_TRUE(QDir().mkpath(path() + "/.brindle-removed/1"));
    EXPECT_NE(saveError(), QString());
    QDir(path() + "/.brindle-removed").removeRecursively();
    EXPECT_EQ(filesOf(path()), whole);
    save();
    EXPECT_EQ(drawingFiles(), Drawings());
}
