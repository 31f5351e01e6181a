#include "engine/session/projectmanager.h"

#include "core/host/mo_node.h"
#include "core/host/mo_port.h"
#include "core/host/sc_scene.h"
#include "core/host/tu_node.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

class ProjectManagerTest : public testing::Test {
protected:
    QString path(const QString& name) const { return m_folder.filePath(name); }
    TUScene* scene() const { return dynamic_cast<TUScene*>(manager->project()->sceneAt(0)); }
    CO_CommandManager* history() const { return manager->project()->projectCommon()->commandManager(); }
    MO_Node* node(const QString& path) const
    {
        return node_util::getNodeFromQualifiedName_optimized(scene()->sceneCommon(), path);
    }
    bool rename(const QString& name)
    {
        return history()->execute(new tu_node::SetInstanceNameCmd(scene()->getRootGroup()->subNode(0u), name),
                                  "Rename");
    }

    QTemporaryDir m_folder;
    std::unique_ptr<SC_SessionContext> session = SC_SessionContext::create();
    SC_ProjectManager* manager = session->projectManager();
    QString error;
};

} // namespace

TEST_F(ProjectManagerTest, ASessionIsTheOneThatIsGivenUntilItGoes)
{
    EXPECT_EQ(PLUG_Services::getSessionContext(), session.get());
    session.reset();
    EXPECT_EQ(PLUG_Services::getSessionContext(), nullptr);
    session = SC_SessionContext::create();
    const auto later = SC_SessionContext::create();
    session.reset();
    EXPECT_EQ(PLUG_Services::getSessionContext(), later.get());
}

TEST_F(ProjectManagerTest, ASessionWithoutAProjectHasNothing)
{
    EXPECT_EQ(manager->project(), nullptr);
    EXPECT_EQ(session->projectCommon(), nullptr);
    EXPECT_EQ(session->commandManager(), nullptr);
    EXPECT_EQ(session->changeManager(), nullptr);
    EXPECT_EQ(session->pythonEngine(), nullptr);
    EXPECT_EQ(manager->findProject(SC_Id(1)), nullptr);
    EXPECT_FALSE(manager->saveProject(error));
    EXPECT_EQ(error, "Cannot save the project: no project is open.");
    EXPECT_FALSE(manager->saveProjectAs(path("p"), error));
    EXPECT_EQ(error, "Cannot save the project: no project is open.");
    manager->closeProject();
}

TEST_F(ProjectManagerTest, ANewProjectIsOpenAndOnDisk)
{
    SC_Project* project = manager->createProject(path("p"), error);
    ASSERT_TRUE(project) << error.toStdString();
    EXPECT_EQ(manager->project(), project);
    EXPECT_EQ(project->path(), path("p"));
    EXPECT_EQ(project->sceneCount(), 1);
    EXPECT_EQ(manager->findProject(project->id()), project);
    EXPECT_EQ(manager->findProject(SC_Id(0)), nullptr);
    EXPECT_EQ(session->projectCommon(), project->projectCommon());
    EXPECT_EQ(session->commandManager(), history());
    EXPECT_EQ(session->changeManager(), scene()->changeManager());
    EXPECT_FALSE(history()->isDirty());
    EXPECT_TRUE(QDir(path("p")).exists());
}

TEST_F(ProjectManagerTest, ASavedProjectIsOpenedAsItWas)
{
    ASSERT_TRUE(manager->createProject(path("p"), error));
    ASSERT_TRUE(rename("Screen"));
    EXPECT_TRUE(history()->isDirty());
    ASSERT_TRUE(manager->saveProject(error)) << error.toStdString();
    EXPECT_FALSE(history()->isDirty());
    EXPECT_EQ(history()->historySize(), 1) << "saving keeps the undo list";
    manager->closeProject();
    EXPECT_EQ(manager->project(), nullptr);
    ASSERT_TRUE(manager->openProject(path("p"), error)) << error.toStdString();
    EXPECT_EQ(scene()->getRootGroup()->subNode(0u)->instanceName(), "Screen");
    EXPECT_EQ(node("Top/Screen")->inPort(0)->srcPort(), node("Top/Composite")->outPort(0));
    EXPECT_EQ(history()->historySize(), 0);
    EXPECT_FALSE(history()->isDirty());
}

TEST_F(ProjectManagerTest, AProjectGoesOnInAnotherFolder)
{
    ASSERT_TRUE(manager->createProject(path("p"), error));
    rename("Screen");
    ASSERT_TRUE(manager->saveProjectAs(path("q"), error)) << error.toStdString();
    EXPECT_EQ(manager->project()->path(), path("q"));
    EXPECT_FALSE(history()->isDirty());
    ASSERT_TRUE(manager->openProject(path("p"), error));
    EXPECT_EQ(node("Top/Screen"), nullptr) << "the first folder is as it was";
    ASSERT_TRUE(manager->openProject(path("q"), error));
    EXPECT_NE(node("Top/Screen"), nullptr);
}

TEST_F(ProjectManagerTest, AFailureLeavesTheOpenProjectOpen)
{
    SC_Project* open = manager->createProject(path("p"), error);
    ASSERT_TRUE(open);
    rename("Screen");
    EXPECT_EQ(manager->openProject(path("none"), error), nullptr);
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(manager->project(), open);
    EXPECT_NE(node("Top/Screen"), nullptr);

    error.clear();
    EXPECT_EQ(manager->createProject(path("p"), error), nullptr) << "the folder holds a project";
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(manager->project(), open);

    error.clear();
    EXPECT_FALSE(manager->saveProjectAs(path("p"), error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(manager->project()->path(), path("p"));
    EXPECT_TRUE(history()->isDirty());
}

TEST_F(ProjectManagerTest, EverythingIsGoneAfterClosing)
{
    ASSERT_TRUE(manager->createProject(path("p"), error));
    rename("Screen");
    UT_SharedWeakPtrBase handles[5];
    handles[0].assign(manager->project()->projectCommon());
    handles[1].assign(scene());
    handles[2].assign(node("Top"));
    handles[3].assign(node("Top/Screen"));
    handles[4].assign(history());
    for (const auto& handle : handles)
        EXPECT_NE(handle.get(), nullptr);
    ASSERT_TRUE(manager->createProject(path("q"), error)) << "it closes the first";
    for (const auto& handle : handles)
        EXPECT_EQ(handle.get(), nullptr);
}

TEST_F(ProjectManagerTest, AnOpenProjectIsLockedUntilItIsClosed)
{
    const auto isLocked = [this](const QString& name) { return QFile::exists(path(name) + "/.brindle-lock"); };
    ASSERT_TRUE(manager->createProject(path("p"), error));
    EXPECT_TRUE(isLocked("p"));
    EXPECT_FALSE(manager->project()->isReadOnly());
    ASSERT_TRUE(manager->openProject(path("p"), error)) << "the project that is open is opened anew";
    EXPECT_TRUE(isLocked("p"));
    ASSERT_TRUE(manager->saveProject(error));
    ASSERT_TRUE(manager->saveProjectAs(path("q"), error));
    EXPECT_TRUE(isLocked("q") && !isLocked("p"));
    ASSERT_TRUE(manager->openProject(path("p"), error));
    EXPECT_TRUE(isLocked("p") && !isLocked("q"));
    ASSERT_TRUE(manager->createProject(path("r"), error));
    EXPECT_TRUE(isLocked("r") && !isLocked("p"));
    manager->closeProject();
    EXPECT_FALSE(isLocked("r"));
    ASSERT_TRUE(manager->openProject(path("r"), error));
    session.reset();
    EXPECT_FALSE(isLocked("r"));
}

TEST_F(ProjectManagerTest, AProjectThatSomebodyHasOpenIsRefusedAndReadOnlyOpened)
{
    ASSERT_TRUE(manager->createProject(path("p"), error));
    ASSERT_TRUE(rename("Screen"));
    ASSERT_TRUE(manager->saveProject(error));

    const auto second = SC_SessionContext::create();
    SC_ProjectManager* other = second->projectManager();
    EXPECT_EQ(other->openProject(path("p"), error), nullptr);
    EXPECT_TRUE(error.startsWith("Cannot open the project: \"" + path("p") + "\" is in use by "))
        << error.toStdString();
    EXPECT_TRUE(error.endsWith("); it can be opened read-only.")) << error.toStdString();
    EXPECT_EQ(other->project(), nullptr);

    error.clear();
    SC_Project* opened = other->openProjectReadOnly(path("p"), error);
    ASSERT_TRUE(opened) << error.toStdString();
    EXPECT_TRUE(opened->isReadOnly());
    EXPECT_EQ(opened->lastChange(), "Rename");
    EXPECT_FALSE(other->saveProject(error));
    EXPECT_EQ(error,
              "Cannot save the project: \"" + path("p") + "\" is open read-only; it can be saved in another folder.");
    EXPECT_TRUE(manager->saveProject(error)) << "who has it can go on";

    ASSERT_TRUE(other->saveProjectAs(path("q"), error)) << error.toStdString();
    EXPECT_FALSE(opened->isReadOnly());
    EXPECT_TRUE(other->saveProject(error)) << error.toStdString();
    EXPECT_EQ(manager->openProject(path("q"), error), nullptr) << "the lock went along";
    other->closeProject();
    EXPECT_TRUE(manager->openProject(path("q"), error));
}

TEST_F(ProjectManagerTest, AReadOnlyProjectMayReplaceTheSameOneAndTheOtherWayRound)
{
    ASSERT_TRUE(manager->createProject(path("p"), error));
    ASSERT_TRUE(manager->openProjectReadOnly(path("p"), error));
    EXPECT_FALSE(QFile::exists(path("p") + "/.brindle-lock"));
    ASSERT_TRUE(manager->openProject(path("p"), error));
    EXPECT_FALSE(manager->project()->isReadOnly());
    EXPECT_TRUE(manager->saveProject(error));
}

TEST_F(ProjectManagerTest, AFailedOpeningOfTheOpenProjectKeepsItsLock)
{
    SC_Project* open = manager->createProject(path("p"), error);
    QFile file(path("p") + "/project.json");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    file.close();
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    EXPECT_EQ(manager->openProject(path("p"), error), nullptr);
    EXPECT_EQ(manager->project(), open);
    EXPECT_TRUE(QFile::exists(path("p") + "/.brindle-lock"));
    ASSERT_TRUE(manager->saveProject(error)) << error.toStdString();
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), content);
}

TEST_F(ProjectManagerTest, ALockThatAnotherSessionGotMeanwhileStopsTheSave)
{
    ASSERT_TRUE(manager->createProject(path("p"), error));
    ASSERT_TRUE(QFile::remove(path("p") + "/.brindle-lock"));
    const auto second = SC_SessionContext::create();
    ASSERT_TRUE(second->projectManager()->openProject(path("p"), error));
    rename("Screen");
    EXPECT_FALSE(manager->saveProject(error));
    EXPECT_TRUE(error.startsWith("Cannot save the project: \"" + path("p") + "\" is in use by "))
        << error.toStdString();
    EXPECT_TRUE(history()->isDirty());
    second->projectManager()->closeProject();
    EXPECT_TRUE(manager->saveProject(error)) << "with the lock taken anew";
    EXPECT_TRUE(QFile::exists(path("p") + "/.brindle-lock"));
}

TEST_F(ProjectManagerTest, AnotherProjectInThePlaceOfTheOpenOneIsLeftAlone)
{
    ASSERT_TRUE(manager->createProject(path("p"), error));
    rename("Screen");
    ASSERT_TRUE(QDir().rename(path("p"), path("moved")));
    const auto second = SC_SessionContext::create();
    ASSERT_TRUE(second->projectManager()->createProject(path("p"), error));
    second->projectManager()->closeProject();
    const auto contents = [this](const QString& name) {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    const QByteArray before = contents("p/scenes/Scene-1.json");
    ASSERT_FALSE(before.isEmpty());
    EXPECT_FALSE(manager->saveProject(error));
    EXPECT_EQ(error, "Cannot save the project: \"" + path("p") +
                         "\" is another folder by now; that of the open project has moved to \"" + path("moved") +
                         "\".");
    EXPECT_EQ(contents("p/scenes/Scene-1.json"), before);
    EXPECT_TRUE(history()->isDirty());
    EXPECT_FALSE(QFile::exists(path("p/.brindle-lock")));

    ASSERT_TRUE(manager->saveProjectAs(path("moved"), error)) << error.toStdString();
    EXPECT_FALSE(history()->isDirty());
    EXPECT_EQ(manager->project()->path(), path("moved")) << "it goes on where it is";
    EXPECT_NE(contents("moved/scenes/Scene-1.json"), before);
    EXPECT_TRUE(manager->saveProject(error));
    manager->closeProject();
    EXPECT_FALSE(QFile::exists(path("moved/.brindle-lock")));
    EXPECT_TRUE(second->projectManager()->openProject(path("moved"), error)) << error.toStdString();
}

TEST_F(ProjectManagerTest, ARemovedFolderInWhosePlaceAnotherStandsIsTold)
{
    ASSERT_TRUE(manager->createProject(path("p"), error));
    QDir(path("p")).removeRecursively();
    QDir().mkpath(path("p"));
    EXPECT_FALSE(manager->saveProject(error));
    EXPECT_EQ(error, "Cannot save the project: \"" + path("p") +
                         "\" is another folder by now; that of the open project was removed.");
    EXPECT_EQ(QDir(path("p")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
    EXPECT_TRUE(manager->saveProjectAs(path("p"), error)) << error.toStdString();
    EXPECT_TRUE(manager->saveProject(error));
}

TEST_F(ProjectManagerTest, UnsavedChangesAreDroppedOrRefusedAsItIsAskedFor)
{
    ASSERT_TRUE(manager->createProject(path("other"), error));
    SC_Project* open = manager->createProject(path("p\n"), error, "never needed");
    ASSERT_TRUE(open) << "there is nothing to drop";
    rename("Screen");
    const QString reason =
        "\"" + path("p\\n") + "\" has unsaved changes; save or close it first, or discard them with ";
    EXPECT_EQ(manager->createProject(path("new"), error, "a word"), nullptr);
    EXPECT_EQ(error, "Cannot create the project: " + reason + "a word.");
    EXPECT_FALSE(QFile::exists(path("new")));
    EXPECT_EQ(manager->openProject(path("other"), error, "two words"), nullptr);
    EXPECT_EQ(error, "Cannot open the project: " + reason + "two words.");
    EXPECT_FALSE(QFile::exists(path("other/.brindle-lock")));
    EXPECT_EQ(manager->openProjectReadOnly(path("other"), error, "a word"), nullptr);
    EXPECT_EQ(manager->openProject(path("p\n"), error, "a word"), nullptr) << "it would be read anew";
    EXPECT_EQ(error, "Cannot open the project: " + reason + "a word.");
    EXPECT_EQ(manager->project(), open);
    EXPECT_TRUE(history()->isDirty());
    EXPECT_TRUE(QFile::exists(path("p\n/.brindle-lock")));

    EXPECT_EQ(manager->openProject(path("none"), error, "a word"), nullptr);
    EXPECT_EQ(error, "Cannot open the project: \"" + path("none") + "\" does not exist.") << "which is told first";
    error.clear();
    EXPECT_NE(manager->openProject(path("other"), error, {}), nullptr) << error.toStdString();
}

TEST_F(ProjectManagerTest, AReadOnlyOpeningTakesNothingAndLeavesNothing)
{
    ASSERT_TRUE(manager->createProject(path("p"), error));
    manager->closeProject();
    const QStringList before = QDir(path("p")).entryList(QDir::AllEntries | QDir::Hidden);
    ASSERT_TRUE(manager->openProjectReadOnly(path("p"), error));
    EXPECT_EQ(QDir(path("p")).entryList(QDir::AllEntries | QDir::Hidden), before);
    rename("Screen");
    EXPECT_TRUE(history()->isDirty()) << "it can be changed";
    EXPECT_EQ(manager->openProjectReadOnly(path("none"), error), nullptr);
    EXPECT_EQ(error, "Cannot open the project: \"" + path("none") + "\" does not exist.");
    EXPECT_TRUE(history()->isDirty()) << "and is still open";
}
