#include "engine/folder/projectfolder.h"

#include "core/host/at_attr.h"
#include "engine/folder/scenefile.h"
#include "tests/engine/folder/foldertest.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using brindle::engine::ProjectFolder;

class ProjectFolderTest : public FolderTest {
public:
    QString sceneFile() const { return path() + "/scenes/Scene-1.json"; }
    void rename(const QString& name) { run(new tu_node::SetInstanceNameCmd(node("Top/Display"), name)); }
    static ino_t inodeOf(const QString& file)
    {
        struct stat info = {};
        EXPECT_EQ(::stat(qPrintable(file), &info), 0);
        return info.st_ino;
    }
};

namespace {

/// Runs a function as a user without rights, in a process of its own, and another one there before that; true when
/// both give true.
bool asNobody(
    const std::function<bool()>& function, const std::function<bool()>& before = [] { return true; })
{
    return inChild([&] {
               constexpr uid_t nobody = 65534;
               return before() && ::setgid(nobody) == 0 && ::setuid(nobody) == 0 && function() ? 0 : 1;
           }) == 0;
}

bool isRoot()
{
    return ::geteuid() == 0;
}

} // namespace

// --- Making --------------------------------------------------------------------------------------------------------

TEST_F(ProjectFolderTest, MissingFoldersAreMade)
{
    EXPECT_EQ(createError(path("a/b/c"), project()), QString());
    EXPECT_EQ(filesOf(path("a/b/c")).keys(), QStringList({"project.json", "scenes/", "scenes/Scene-1.json"}));
}

TEST_F(ProjectFolderTest, AFolderWithOtherFilesTakesAProject)
{
    QDir().mkpath(path());
    put(path() + "/notes.txt", "walk");
    EXPECT_EQ(createError(path(), project()), QString());
    EXPECT_EQ(get(path() + "/notes.txt"), "walk");
}

TEST_F(ProjectFolderTest, AFolderThatHoldsAProjectIsRefused)
{
    const Files files = saved();
    rename("Monitor");
    EXPECT_EQ(createError(path(), project()), "Cannot create the project: \"" + path() + "\" already holds a project.");
    QString error;
    brindle::engine::ProjectLock lock;
    EXPECT_FALSE(ProjectFolder(path()).createForSave(project().record(), project().scenes(), lock, error));
    EXPECT_FALSE(lock.isHeld());
    EXPECT_EQ(error, "Cannot save the project: \"" + path() + "\" already holds a project.");
    EXPECT_EQ(filesOf(path()), files);
}

TEST_F(ProjectFolderTest, AFileOnThePathIsRefused)
{
    put(path(), "x");
    EXPECT_EQ(createError(path(), project()), "Cannot create the project: \"" + path() + "\" is a file, not a folder.");
    EXPECT_EQ(createError(path("project/a/b"), project()),
              "Cannot create the project: \"" + path() + "\" is a file, not a folder.");
    EXPECT_EQ(get(path()), "x");
}

TEST_F(ProjectFolderTest, ASceneFileThatIsThereAlreadyIsLeftAlone)
{
    QDir().mkpath(path() + "/scenes");
    put(sceneFile(), "mine");
    EXPECT_EQ(createError(path(), project()),
              "Cannot create the project: \"" + sceneFile() + "\" is in the way: it is not a file of the project.");
    EXPECT_EQ(filesOf(path()), Files({{"scenes/", {}}, {"scenes/Scene-1.json", "mine"}}));
}

TEST_F(ProjectFolderTest, APlaceWhereNothingCanBeMadeIsToldAndNothingStays)
{
    EXPECT_EQ(createError("/proc/brindle/project", project()),
              QString("Cannot create the project: \"/proc/brindle\" cannot be made: no such file or directory."));
    EXPECT_EQ(createError(path(QString(300, 'x')), project()).section(": ", -1), QString("file name too long."));
    EXPECT_EQ(filesOf(path(".")), Files());
}

TEST_F(ProjectFolderTest, PathsThatAreNoneAreRefused)
{
    EXPECT_EQ(createError("", project()), QString("Cannot create the project: the path is empty."));
    EXPECT_EQ(openError(""), QString("Cannot open the project: the path is empty."));
    const QString odd[] = {path("a") + QChar(0) + "b", path("a") + QChar(0xd800)};
    for (const QString& name : odd) {
        EXPECT_EQ(createError(name, project()),
                  QString("Cannot create the project: the path has a character that no path can have."));
        EXPECT_EQ(openError(name), QString("Cannot open the project: the path has a character that no path can have."));
    }
}

TEST_F(ProjectFolderTest, ThePathIsAbsoluteAndClean)
{
    EXPECT_EQ(ProjectFolder("walk/../run/").path(), QDir::currentPath() + "/run");
    EXPECT_EQ(ProjectFolder("/a//b/.").path(), QString("/a/b"));
}

TEST_F(ProjectFolderTest, ARelativePathWithoutAWorkingDirectoryIsTold)
{
    const int code = inChild([this] {
        if (!QDir().mkpath(path("gone")) || ::chdir(qPrintable(path("gone"))) != 0 || !QDir().rmdir(path("gone")))
            return 1;
        for (const char* name : {"walk", ".", "../walk"}) {
            const QString reason =
                QString(" the project: \"%1\" starts at the working directory, which is gone.").arg(name);
            if (createError(name, project()) != "Cannot create" + reason || openError(name) != "Cannot open" + reason)
                return 2;
        }
        return createError(path(), project()).isEmpty() ? 0 : 3;
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(filesOf(path(".")).keys(),
              QStringList({"project/", "project/project.json", "project/scenes/", "project/scenes/Scene-1.json"}));
}

TEST_F(ProjectFolderTest, NamesWithAnyCharacterInThePathWork)
{
    const QString odd = path("Jörg's \"腕\" 🦴\n%1 {}");
    EXPECT_EQ(createError(odd, project()), QString());
    EXPECT_EQ(openError(odd), QString());
    EXPECT_EQ(createError(odd, project()).count('\n'), 0) << "the sentence stays on one line";
    EXPECT_EQ(ProjectFolder(":walk").path(), QDir::currentPath() + "/:walk");
}

// --- Saving --------------------------------------------------------------------------------------------------------

TEST_F(ProjectFolderTest, OnlyFilesThatChangedAreWritten)
{
    project().addScene({"Scene-2", 60, 1, 60, 24});
    saved();
    const ino_t projectBefore = inodeOf(path() + "/project.json");
    const ino_t firstBefore = inodeOf(sceneFile());
    const ino_t secondBefore = inodeOf(path() + "/scenes/Scene-2.json");
    rename("Monitor");
    save(path(), project());
    EXPECT_NE(inodeOf(path() + "/project.json"), projectBefore) << "it tells the last change";
    EXPECT_NE(inodeOf(sceneFile()), firstBefore);
    EXPECT_EQ(inodeOf(path() + "/scenes/Scene-2.json"), secondBefore);
    EXPECT_EQ(filesOf(path()).size(), 4);
}

TEST_F(ProjectFolderTest, AFileKeepsItsPermissions)
{
    saved();
    ASSERT_EQ(::chmod(qPrintable(sceneFile()), 0640), 0);
    rename("Monitor");
    save(path(), project());
    struct stat info = {};
    ASSERT_EQ(::stat(qPrintable(sceneFile()), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0640U);
}

TEST_F(ProjectFolderTest, FilesOfScenesThatAreGoneGoAndOthersStay)
{
    brindle::engine::Project two(path());
    two.addScene({"Walk", 60, 1, 60, 24});
    two.addScene({"Run", 60, 1, 60, 24});
    EXPECT_EQ(createError(path(), two), QString());
    put(path() + "/scenes/notes.txt", "mine");
    put(path() + "/scenes/Walk-old.json", "mine");
    brindle::engine::Project one(path());
    one.addScene({"Run", 60, 1, 60, 24});
    save(path(), one);
    EXPECT_EQ(filesOf(path()).keys(),
              QStringList({"project.json", "scenes/", "scenes/Run.json", "scenes/Walk-old.json", "scenes/notes.txt"}));
}

TEST_F(ProjectFolderTest, SeveralScenesOfOddNamesComeBackInOrder)
{
    const QStringList names = {"b", "a", "A", "x/y", "..", "con\n", "腕", QString(400, 'n')};
    brindle::engine::Project made(path());
    for (const QString& name : names)
        made.addScene({name, 10, 2, 9, 29.97});
    EXPECT_EQ(createError(path(), made), QString());
    const Files files = filesOf(path());
    const auto opened = open(path());
    QStringList read;
    for (const TUScene* scene : opened->scenes()) {
        read.append(scene->name());
        EXPECT_EQ(scene->frameRate().fps(), 29.97);
        EXPECT_EQ(scene->sceneCommon()->getStopFrame(), 9);
    }
    EXPECT_EQ(read, names);
    save(path(), *opened);
    EXPECT_EQ(filesOf(path()), files);
}

TEST_F(ProjectFolderTest, AFolderThatIsGoneIsTold)
{
    EXPECT_EQ(writeError(path(), project()), "Cannot save the project: \"" + path() + "\" does not exist.");
    put(path(), "x");
    EXPECT_EQ(writeError(path(), project()), "Cannot save the project: \"" + path() + "\" is a file, not a folder.");
}

TEST_F(ProjectFolderTest, ASaveMendsAProjectThatWasDamagedOnDisk)
{
    const Files files = saved();
    put(path() + "/project.json", "{");
    put(sceneFile(), "");
    save(path(), project());
    EXPECT_EQ(filesOf(path()), files);
    QFile::remove(path() + "/project.json");
    save(path(), project());
    EXPECT_EQ(filesOf(path()), files);
}

TEST_F(ProjectFolderTest, ADiskThatIsFullLeavesTheProjectAsItWas)
{
    project().addScene({"Scene-2", 60, 1, 60, 24});
    const Files files = saved();
    rename("Monitor");
    for (int i = 0; i < 400; ++i)
        add("PEG", QString("A peg with a name %1").arg(i));
    const QString expected = "Cannot save the project: \"" + sceneFile() + "\" cannot be written: file too large.";
    const int code = inChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        return writeError(path(), project()) == expected ? 0 : 1;
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(filesOf(path()), files);
    save(path(), project());
    EXPECT_NE(filesOf(path()), files);
}

TEST_F(ProjectFolderTest, AFullDiskLeavesNothingOfANewProject)
{
    for (int i = 0; i < 400; ++i)
        add("PEG", QString("A peg with a name %1").arg(i));
    const QString expected =
        "Cannot create the project: \"" + path("a/b/scenes/Scene-1.json") + "\" cannot be written: file too large.";
    const int code = inChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        return createError(path("a/b"), project()) == expected ? 0 : 1;
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(filesOf(path(".")), Files());
}

TEST_F(ProjectFolderTest, WhatIsInTheWayIsToldAndNothingChanges)
{
    saved();
    rename("Monitor");
    QFile::remove(sceneFile());
    QDir(path()).rmdir("scenes");
    put(path() + "/scenes", "a file");
    Files files = filesOf(path());
    EXPECT_EQ(writeError(path(), project()),
              "Cannot save the project: \"" + path() + "/scenes\" cannot be made: file exists.");
    EXPECT_EQ(filesOf(path()), files);

    QFile::remove(path() + "/scenes");
    QDir().mkpath(sceneFile());
    files = filesOf(path());
    EXPECT_EQ(writeError(path(), project()),
              "Cannot save the project: \"" + sceneFile() + "\" cannot be written: is a directory.");
    EXPECT_EQ(filesOf(path()), files);

    QDir(path()).rmdir("scenes/Scene-1.json");
    put(path() + "/.brindle-save", "a file");
    files = filesOf(path());
    EXPECT_EQ(writeError(path(), project()),
              "Cannot save the project: \"" + path() + "/.brindle-save\" cannot be made: file exists.");
    EXPECT_EQ(filesOf(path()), files);
}

TEST_F(ProjectFolderTest, WithoutPermissionNothingChanges)
{
    if (!isRoot())
        GTEST_SKIP() << "becomes another user, which only root can";
    const Files files = saved();
    rename("Monitor");
    ::chmod(qPrintable(path(".")), 0755);
    const auto expectRefusal = [&](const QString& expected) {
        const auto opened = [&] {
            project().lock().require(brindle::engine::Folder(path()));
            return true;
        };
        EXPECT_TRUE(asNobody([&] { return writeError(path(), project()) == expected; }, opened))
            << expected.toStdString();
        EXPECT_EQ(filesOf(path()), files);
    };
    const QString file = "Cannot save the project: \"" + sceneFile() + "\" cannot be written: ";
    expectRefusal(file + "permission denied.");
    // Folders that all may change, with files that only their owner may.
    ::chmod(qPrintable(path()), 0777);
    ::chmod(qPrintable(path() + "/scenes"), 0777);
    expectRefusal(file + "permission denied.");
    // As in /tmp: everybody may change the folder, and only the owner may put another file in place of his.
    ::chmod(qPrintable(sceneFile()), 0666);
    ::chmod(qPrintable(path() + "/scenes"), 01777);
    expectRefusal(file + "operation not permitted.");
    ::chmod(qPrintable(path() + "/scenes"), 0777);
    ::chmod(qPrintable(path()), 0755);
    expectRefusal("Cannot save the project: \"" + path() + "/project.json\" cannot be written: permission denied.");
    EXPECT_TRUE(asNobody([&] {
        return createError(path("new/er"), project()) ==
               "Cannot create the project: \"" + path("new") + "\" cannot be made: permission denied.";
    }));
    EXPECT_TRUE(asNobody([&] {
        return openError(path()) == "Cannot open the project: \"" + path() +
                                        "\" cannot be written: permission denied; it can be opened read-only.";
    }));
    EXPECT_TRUE(asNobody([&] { return readOnlyError(path()).isEmpty(); }));
    ::chmod(qPrintable(sceneFile()), 0600);
    EXPECT_TRUE(asNobody([&] {
        return readOnlyError(path()) ==
               "Cannot open the project: \"" + sceneFile() + "\" cannot be read: permission denied.";
    }));
}

TEST_F(ProjectFolderTest, ASaveWaitsForAnotherProgramThatIsSaving)
{
    saved();
    rename("Monitor");
    const int folder = ::open(qPrintable(path()), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(::flock(folder, LOCK_EX), 0);
    std::atomic<bool> released = false;
    std::thread other([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(60));
        released = true;
        ::close(folder);
    });
    save(path(), project());
    EXPECT_TRUE(released);
    other.join();
}

// --- Opening -------------------------------------------------------------------------------------------------------

TEST_F(ProjectFolderTest, PlacesWithoutAProjectAreTold)
{
    EXPECT_EQ(openError(path()), "Cannot open the project: \"" + path() + "\" does not exist.");
    QDir().mkpath(path());
    EXPECT_EQ(openError(path()), "Cannot open the project: \"" + path() + "\" holds no project.");
    put(path("file"), "x");
    EXPECT_EQ(openError(path("file")), "Cannot open the project: \"" + path("file") + "\" is a file, not a folder.");
    EXPECT_EQ(openError(path("file/a")), "Cannot open the project: \"" + path("file/a") + "\" does not exist.");
    EXPECT_EQ(openError("/dev/null"), QString("Cannot open the project: \"/dev/null\" is a file, not a folder."));
}

TEST_F(ProjectFolderTest, DamageOfTheProjectFileIsTold)
{
    struct Case {
        const char* content;
        const char* reason;
    };
    constexpr Case cases[] = {
        {"", "is empty."},
        {"[]", "is damaged at line 1, column 1: it is not an object."},
        {"{", "is damaged at line 1, column 2: unterminated object."},
        {"PK\x03\x04", "is damaged at line 1, column 2: illegal value."},
        {"{}", "is damaged at line 1: the file has no field \"format\"."},
        {R"({"format": null})", "is damaged at line 1: format is not a text."},
        {R"({"format": "x"})", "is damaged at line 1: format is not \"brindle-project\"."},
        {R"({"format": "brindle-project", "version": 99, "scenes": 1})",
         "has format version 99, and this version of the application reads versions up to 3."},
        {R"({"format": "brindle-project", "version": 1})", "is damaged at line 1: the file has no field \"scenes\"."},
        {R"({"format": "brindle-project", "version": 1, "scenes": {}})", "is damaged at line 1: scenes is not a list."},
        {R"({"format": "brindle-project", "version": 1, "scenes": []})", "is damaged at line 1: scenes has no scene."},
        {"{\"format\": \"brindle-project\", \"version\": 1, \"scenes\":\n [4]}",
         "is damaged at line 2: scenes[0] is not a text."},
        {R"({"format": "brindle-project", "version": 1, "scenes": ["../x.json"]})",
         "is damaged at line 1: scenes[0] is no file of a scene."},
        {R"({"format": "brindle-project", "version": 1, "scenes": ["scenes/../../x.json"]})",
         "is damaged at line 1: scenes[0] is no file of a scene."},
        {R"({"format": "brindle-project", "version": 1, "scenes": ["/etc/passwd"]})",
         "is damaged at line 1: scenes[0] is no file of a scene."},
        {R"({"format": "brindle-project", "version": 1, "scenes": ["scenes/a.json", "scenes/a.json"]})",
         "is damaged at line 1: scenes[1] is the file of another scene."},
        {"{\"format\": \"brindle-project\",\n \"version\": 1,\n \"scenes\": [],\n \"scenes\": [\"scenes/a.json\"]}",
         "is damaged at line 4, column 2: the field \"scenes\" is there twice."},
    };
    saved();
    const QString file = path() + "/project.json";
    for (const auto& [content, reason] : cases) {
        put(file, content);
        EXPECT_EQ(openError(path()).toStdString(),
                  ("Cannot open the project: \"" + file + "\" ").toStdString() + reason);
    }
    QFile::remove(file);
    QDir().mkpath(file);
    EXPECT_EQ(openError(path()), "Cannot open the project: \"" + file + "\" is not a file.");
    QDir().rmdir(file);
    ASSERT_EQ(::mkfifo(qPrintable(file), 0666), 0);
    EXPECT_EQ(openError(path()), "Cannot open the project: \"" + file + "\" is not a file.");
}

TEST_F(ProjectFolderTest, ASceneFileThatIsMissingIsTold)
{
    saved();
    QFile::remove(sceneFile());
    EXPECT_EQ(openError(path()), "Cannot open the project: \"" + sceneFile() + "\" is missing.");
}

TEST_F(ProjectFolderTest, TwoFilesWithOneSceneNameAreTold)
{
    saved();
    QFile::copy(sceneFile(), path() + "/scenes/Copy.json");
    QByteArray text = get(path() + "/project.json");
    put(path() + "/project.json",
        text.replace("\"scenes/Scene-1.json\"", "\"scenes/Scene-1.json\", \"scenes/Copy.json\""));
    EXPECT_EQ(openError(path()), "Cannot open the project: \"" + path() +
                                     "/scenes/Copy.json\" is damaged at line 4: name is the name of another scene.");
}
