#include "engine/folder/projectfolder.h"
#include "tests/engine/folder/foldertest.h"
#include "tests/engine/folder/randomproject.h"

#include <QDir>
#include <QFileInfo>

#include <csignal>
#include <random>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

using InterruptedSaveTest = FolderTest;

TEST_F(InterruptedSaveTest, AProjectWhoseSaveIsKilledIsTheOldOrTheNewOneToTheByte)
{
    MemoryProject made[2];
    for (unsigned int which = 0; which < 2; ++which) {
        RandomProject(made[which], 40 + which).change(400);
        ASSERT_GT(made[which].project().sceneCount(), 2);
    }
    ASSERT_EQ(createError(path(), made[0].project()), QString());
    const Files first = filesOf(path());
    save(path(), made[1].project());
    const Files second = filesOf(path());
    ASSERT_NE(first, second);

    int seen[2] = {};
    std::mt19937 random(12);
    for (int round = 0; round < 250; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (unsigned int which = 0;; which = 1 - which)
                writeError(path(), made[which].project());
        }
        std::this_thread::sleep_for(std::chrono::microseconds(std::uniform_int_distribution<int>(0, 20000)(random)));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        {
            const auto opened = open(path());
            save(path(), *opened);
        }
        const Files now = filesOf(path());
        ASSERT_TRUE(now == first || now == second) << round;
        ++seen[now == second];
    }
    EXPECT_GT(seen[0], 20);
    EXPECT_GT(seen[1], 20);
}

TEST_F(InterruptedSaveTest, AnInterruptedSaveIsReadAsItHappenedByWhoMayNotEndIt)
{
    saved();
    run(new tu_node::SetInstanceNameCmd(node("Top/Display"), "Monitor"));
    saved("other");
    QDir().mkpath(path() + "/.brindle-save");
    put(path() + "/.brindle-save/0", get(path("other") + "/scenes/Scene-1.json"));
    put(path() + "/.brindle-save/journal.json", R"({"format": "brindle-journal", "version": 1,
        "replace": ["scenes/Scene-1.json"], "remove": []})");
    const Files before = filesOf(path());
    engine::Project read(path());
    QString error;
    ASSERT_TRUE(engine::ProjectFolder(path()).readOnly(read, error)) << error.toStdString();
    EXPECT_NE(read.scenes().front()->getRootGroup()->subNode("Monitor"), nullptr);
    EXPECT_EQ(filesOf(path()), before);
    const auto opened = open(path());
    EXPECT_NE(opened->scenes().front()->getRootGroup()->subNode("Monitor"), nullptr);
    EXPECT_FALSE(QFileInfo::exists(path() + "/.brindle-save"));
}
