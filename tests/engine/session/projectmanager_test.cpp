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
