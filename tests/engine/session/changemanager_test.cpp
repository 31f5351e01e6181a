#include "engine/session/changemanager.h"

#include "tests/engine/support/memoryproject.h"

#include <QCoreApplication>

#include <thread>

namespace {

class CountingObserver final : public brindle::engine::SceneObserver {
public:
    void sceneChanged() override
    {
        ++scenes;
        if (leaves)
            leaves->removeObserver(*this);
    }
    void nodeChanged(MO_Node& node) override { nodes.append(node.instanceName()); }

    int scenes = 0;
    QStringList nodes;
    brindle::engine::ChangeManager* leaves = nullptr; ///< Left at the first call.
};

class ChangeManagerTest : public GraphTest {
protected:
    void SetUp() override { scene().changes().addObserver(observer); }
    void TearDown() override { scene().changes().removeObserver(observer); }

    CountingObserver observer;
};

} // namespace

TEST_F(ChangeManagerTest, EveryChangeCountsAndIsTold)
{
    const auto revision = scene().changes().revision();
    MO_Node* peg = add("PEG", "Peg");
    EXPECT_EQ(observer.scenes, 1);
    run(new tu_node::SetXYCmd(peg, 1, 2));
    EXPECT_EQ(observer.nodes, QStringList("Peg"));
    undo();
    EXPECT_EQ(observer.nodes.size(), 2);
    peg->setDirty();
    EXPECT_EQ(observer.nodes.size(), 3);
    scene().changes().emitNodeChanged(nullptr);
    EXPECT_EQ(scene().changes().revision(), revision + 4);
}

TEST_F(ChangeManagerTest, WhatChangedWhileAnnouncingWasDisabledIsToldAsOneChange)
{
    auto& changes = scene().changes();
    EXPECT_TRUE(changes.isNotifyEnabled());
    changes.setNotifyEnabled(false);
    EXPECT_FALSE(changes.isNotifyEnabled());
    const auto revision = changes.revision();
    changes.notify();
    changes.emitNodeChanged(node("Top/Display"));
    EXPECT_EQ(observer.scenes, 0);
    EXPECT_EQ(changes.revision(), revision + 2);
    changes.setNotifyEnabled(true);
    EXPECT_EQ(observer.scenes, 1);
    changes.setNotifyEnabled(true);
    EXPECT_EQ(observer.scenes, 1);
}

TEST_F(ChangeManagerTest, AnObserverMayLeaveWhileItIsTold)
{
    auto& changes = scene().changes();
    CountingObserver leaver;
    leaver.leaves = &changes;
    changes.addObserver(leaver);
    changes.notify();
    changes.notify();
    EXPECT_EQ(leaver.scenes, 1);
    EXPECT_EQ(observer.scenes, 2);
}

namespace {

/// With an event loop, whose thread is the main thread.
class ChangesOfAnotherThreadTest : public ChangeManagerTest {
protected:
    /// Runs a change on another thread.
    template <typename Change>
    void elsewhere(Change change)
    {
        std::thread(change).join();
    }

    int count = 1;
    char name[8] = "changes";
    char* arguments[2] = {name, nullptr};
    QCoreApplication application{count, arguments};
};

} // namespace

TEST_F(ChangesOfAnotherThreadTest, AreToldAsOneChangeByTheMainThread)
{
    auto& changes = scene().changes();
    const auto revision = changes.revision();
    elsewhere([&] {
        changes.notify();
        changes.emitNodeChanged(node("Top/Display"));
    });
    EXPECT_EQ(changes.revision(), revision + 2);
    EXPECT_EQ(observer.scenes, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(observer.scenes, 1);
    EXPECT_TRUE(observer.nodes.isEmpty());
    elsewhere([&] { changes.notify(); });
    QCoreApplication::processEvents();
    EXPECT_EQ(observer.scenes, 2);
}

TEST_F(ChangesOfAnotherThreadTest, AreToldByTheMainThreadWhenAnnouncingIsEnabledAgain)
{
    auto& changes = scene().changes();
    elsewhere([&] {
        changes.setNotifyEnabled(false);
        changes.notify();
        changes.setNotifyEnabled(true);
    });
    EXPECT_EQ(observer.scenes, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(observer.scenes, 1);
}

TEST_F(ChangesOfAnotherThreadTest, WaitWhileAnnouncingIsDisabledWhenTheMainThreadComesToThem)
{
    auto& changes = scene().changes();
    elsewhere([&] { changes.notify(); });
    changes.setNotifyEnabled(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(observer.scenes, 0);
    changes.setNotifyEnabled(true);
    EXPECT_EQ(observer.scenes, 1);
}

TEST_F(ChangesOfAnotherThreadTest, AreNotToldOfASceneThatHasGone)
{
    CountingObserver watcher;
    {
        auto changes = std::make_unique<brindle::engine::ChangeManager>();
        changes->addObserver(watcher);
        elsewhere([&] { changes->notify(); });
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(watcher.scenes, 0);
}
