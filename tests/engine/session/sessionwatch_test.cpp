#include "engine/engine.h"

#include "tests/engine/support/memoryproject.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <optional>
#include <thread>

namespace {

class SessionWatchTest : public testing::Test {
protected:
    int told()
    {
        QCoreApplication::processEvents();
        return std::exchange(m_told, 0);
    }
    void watch()
    {
        m_watch.emplace([this] { ++m_told; });
    }

    int count = 1;
    char name[8] = "watch";
    char* arguments[2] = {name, nullptr};
    QCoreApplication application{count, arguments};
    QTemporaryDir folder;
    std::optional<brindle::engine::SessionWatch> m_watch;

private:
    int m_told = 0;
};

TEST_F(SessionWatchTest, EveryChangeOfTheUndoListIsTold)
{
    MemoryProject project;
    watch();
    EXPECT_EQ(told(), 0);
    project.add("PEG");
    EXPECT_EQ(told(), 1);
    project.undo();
    EXPECT_EQ(told(), 1);
    project.redo();
    EXPECT_EQ(told(), 1);
    project.manager().setClean();
    EXPECT_EQ(told(), 1);
    project.manager().clearHistory();
    EXPECT_EQ(told(), 1);
    project.manager().setHistoryMaxSize(3);
    EXPECT_EQ(told(), 1);
    EXPECT_FALSE(project.manager().execute(nullptr, "Nothing"));
    EXPECT_EQ(told(), 0);
}

TEST_F(SessionWatchTest, ABracketIsToldAsItFillsAndAsItEnds)
{
    MemoryProject project;
    watch();
    {
        CO_CommandAccumScope scope(&project.manager(), "All", nullptr, CO_CommandAccumScope::kDefault);
        EXPECT_EQ(told(), 0);
        project.add("PEG");
        EXPECT_EQ(told(), 1);
    }
    EXPECT_EQ(told(), 1);
    {
        CO_CommandAccumScope scope(&project.manager(), "None", nullptr, CO_CommandAccumScope::kDefault);
        project.add("PEG");
        scope.cancel();
    }
    EXPECT_EQ(told(), 1);
}

TEST_F(SessionWatchTest, ProjectsThatOpenCloseAndAreSavedAreTold)
{
    const auto session = SC_SessionContext::create();
    SC_ProjectManager& manager = *session->projectManager();
    QString error;
    watch();
    manager.createProject(folder.filePath("a"), error);
    EXPECT_EQ(told(), 1);
    manager.saveProject(error);
    EXPECT_EQ(told(), 1);
    manager.saveProjectAs(folder.filePath("b"), error);
    EXPECT_EQ(told(), 1);
    manager.openProject(folder.filePath("a"), error);
    EXPECT_EQ(told(), 1);
    manager.openProject(folder.filePath("nowhere"), error);
    EXPECT_EQ(told(), 0);
    manager.closeProject();
    EXPECT_EQ(told(), 1);
}

TEST_F(SessionWatchTest, ChangesOfAnyThreadAreToldOnceOnTheMainThread)
{
    MemoryProject project;
    std::thread::id teller;
    const brindle::engine::SessionWatch watching([&] { teller = std::this_thread::get_id(); });
    watch();
    std::thread([&] {
        for (int turn = 0; turn < 10; ++turn)
            project.add("PEG");
    }).join();
    EXPECT_EQ(told(), 1);
    EXPECT_EQ(teller, std::this_thread::get_id());
}

TEST_F(SessionWatchTest, NobodyIsToldAnyMoreWhoHasGone)
{
    MemoryProject project;
    watch();
    project.add("PEG");
    m_watch.reset();
    EXPECT_EQ(told(), 0);
    project.add("PEG");
    EXPECT_EQ(told(), 0);
}

} // namespace
