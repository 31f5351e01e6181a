#include "engine/folder/projectfolder.h"
#include "tests/engine/folder/foldertest.h"
#include "tests/engine/folder/randomproject.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <chrono>
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
        RandomProject program(made[which], 40 + which);
        do
            program.change(400);
        while (made[which].project().sceneCount() <= 2);
    }
    ASSERT_EQ(createError(path(), made[0].project()), QString());
    const Files first = filesOf(path());
    const auto begin = std::chrono::steady_clock::now();
    save(path(), made[1].project());
    const std::chrono::duration<double, std::micro> oneSave = std::chrono::steady_clock::now() - begin;
    const Files second = filesOf(path());
    ASSERT_NE(first, second);

    int seen[2] = {};
    std::uniform_real_distribution<double> moment(0, std::clamp(2.5 * oneSave.count(), 1000.0, 40000.0));
    std::mt19937 random(12);
    for (int round = 0; round < 250; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (unsigned int which = 0;; which = 1 - which)
                writeError(path(), made[which].project());
        }
        std::this_thread::sleep_for(std::chrono::duration<double, std::micro>(moment(random)));
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
    EXPECT_GT(seen[0], 5);
    EXPECT_GT(seen[1], 5);
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
    brindle::engine::Project read(path());
    QString error;
    ASSERT_TRUE(brindle::engine::ProjectFolder(path()).readOnly(read, error)) << error.toStdString();
    EXPECT_NE(read.scenes().front()->getRootGroup()->subNode("Monitor"), nullptr);
    EXPECT_EQ(filesOf(path()), before);
    const auto opened = open(path());
    EXPECT_NE(opened->scenes().front()->getRootGroup()->subNode("Monitor"), nullptr);
    EXPECT_FALSE(QFileInfo::exists(path() + "/.brindle-save"));
}
