#include "engine/history/commandmanager.h"

#include <gtest/gtest.h>

namespace {

class Nothing final : public CO_Command {
public:
    Status execute() override { return kOk; }
    Status unexecute() override { return kOk; }
};

class LastChangeTest : public testing::Test {
protected:
    void change(const QString& label) { manager.execute(new Nothing, label); }

    brindle::engine::CommandManager manager;
};

} // namespace

TEST_F(LastChangeTest, IsTheLastEntryThatIsDone)
{
    EXPECT_EQ(manager.lastChange(), QString());
    change("One");
    change("Two");
    EXPECT_EQ(manager.lastChange(), "Two");
    manager.unexecute(1);
    EXPECT_EQ(manager.lastChange(), "One");
    manager.unexecute(1);
    EXPECT_EQ(manager.lastChange(), QString());
    manager.reexecute(2);
    EXPECT_EQ(manager.lastChange(), "Two");
    manager.unexecute(1);
    change("Three");
    EXPECT_EQ(manager.lastChange(), "Three");
}

TEST_F(LastChangeTest, AheadOfAllEntriesIsTheOneThatWasGiven)
{
    manager.setChangeBefore("Yesterday");
    EXPECT_EQ(manager.lastChange(), "Yesterday");
    EXPECT_EQ(manager.historySize(), 0);
    change("One");
    EXPECT_EQ(manager.lastChange(), "One");
    manager.unexecute(1);
    EXPECT_EQ(manager.lastChange(), "Yesterday");
}

TEST_F(LastChangeTest, StaysWhenTheEntriesAreForgotten)
{
    change("One");
    change("Two");
    manager.unexecute(1);
    manager.clearHistory();
    EXPECT_EQ(manager.lastChange(), "One");
    manager.clearHistory();
    EXPECT_EQ(manager.lastChange(), "One");
}

TEST_F(LastChangeTest, StaysWhenTheListIsAtItsLimit)
{
    manager.setHistoryMaxSize(2);
    for (const char* label : {"One", "Two", "Three"})
        change(label);
    manager.unexecute(5);
    EXPECT_EQ(manager.lastChange(), "One") << "what can't be undone any more";
    manager.setHistoryMaxSize(0);
    change("Four");
    EXPECT_EQ(manager.historySize(), 0);
    EXPECT_EQ(manager.lastChange(), "Four");
}

TEST_F(LastChangeTest, OfAnOpenScopeIsItsLabelOnceItHasContent)
{
    change("One");
    {
        CO_CommandAccumScope outer(&manager, "Walk", nullptr, {});
        EXPECT_EQ(manager.lastChange(), "One");
        const CO_CommandAccumScope inner(&manager, "Step", nullptr, {});
        change("");
        EXPECT_EQ(manager.lastChange(), "Walk");
    }
    EXPECT_EQ(manager.lastChange(), "Walk");
    CO_CommandAccumScope cancelled(&manager, "Run", nullptr, {});
    change("");
    cancelled.cancel();
    EXPECT_EQ(manager.lastChange(), "Walk");
}
