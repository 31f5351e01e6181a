#include "engine/history/commandmanager.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <stdexcept>

namespace {

/// Sets a number, or refuses, or throws.
class SetNumber final : public CO_Command {
public:
    SetNumber(int& target, int value) : m_target(target), m_value(value) {}

    Status execute() override
    {
        m_before = m_target;
        m_target = m_value;
        return kOk;
    }
    Status unexecute() override
    {
        m_target = m_before;
        return kOk;
    }

private:
    int& m_target;
    int m_value;
    int m_before = 0;
};

class Answer final : public CO_Command {
public:
    explicit Answer(Status execute, Status unexecute = kOk) : m_execute(execute), m_unexecute(unexecute) {}
    Status execute() override { return m_execute; }
    Status unexecute() override { return m_unexecute; }

private:
    Status m_execute;
    Status m_unexecute;
};

class Thrower final : public CO_Command {
public:
    explicit Thrower(bool whenUndone = false) : m_whenUndone(whenUndone) {}
    Status execute() override
    {
        if (!m_whenUndone)
            throw std::runtime_error("execute");
        return kOk;
    }
    Status unexecute() override { throw std::runtime_error("unexecute"); }

private:
    bool m_whenUndone;
};

class CommandManagerTest : public testing::Test {
protected:
    bool set(int value, const QString& label = QStringLiteral("Set"))
    {
        return manager->execute(new SetNumber(number, value), label);
    }
    QStringList done() const { return manager->collectExecutedNames(); }
    QStringList undone() const { return manager->collectUnexecutedNames(); }

    int number = 0;
    std::unique_ptr<CO_CommandManager> manager = std::make_unique<brindle::engine::CommandManager>();
};

using Scope = CO_CommandAccumScope;

} // namespace

TEST_F(CommandManagerTest, ANewListIsEmptyAndClean)
{
    EXPECT_EQ(manager->historySize(), 0);
    EXPECT_EQ(manager->executedHistorySize(), 0);
    EXPECT_EQ(manager->historyMaxSize(), 100'000);
    EXPECT_TRUE(done().isEmpty());
    EXPECT_FALSE(manager->isDirty());
}

TEST_F(CommandManagerTest, ACommandIsRunAndRecordedUnderItsLabel)
{
    EXPECT_TRUE(set(1, "One"));
    EXPECT_TRUE(set(2, "Two"));
    EXPECT_EQ(number, 2);
    EXPECT_EQ(done(), QStringList({"One", "Two"}));
    EXPECT_EQ(manager->historySize(), 2);
}

TEST_F(CommandManagerTest, UndoAndRedoByCountStopAtTheEndOfTheList)
{
    set(1, "One");
    set(2, "Two");
    set(3, "Three");
    manager->unexecute(2);
    EXPECT_EQ(number, 1);
    EXPECT_EQ(done(), QStringList({"One"}));
    EXPECT_EQ(undone(), QStringList({"Two", "Three"}));
    manager->unexecute(100);
    EXPECT_EQ(number, 0);
    manager->reexecute(1);
    EXPECT_EQ(number, 1);
    manager->reexecute(100);
    EXPECT_EQ(number, 3);
    EXPECT_TRUE(undone().isEmpty());
    EXPECT_EQ(manager->historySize(), 3);
}

TEST_F(CommandManagerTest, AFailingCommandLeavesTheListWithWhatStandsToBeRedone)
{
    set(1, "One");
    set(2, "Two");
    manager->unexecute(1);
    EXPECT_FALSE(manager->execute(new Answer(CO_Command::kFail), "No"));
    EXPECT_FALSE(manager->execute(nullptr, "Null"));
    EXPECT_EQ(done(), QStringList({"One"}));
    EXPECT_EQ(undone(), QStringList({"Two"}));
    manager->reexecute(1);
    EXPECT_EQ(number, 2);
}

TEST_F(CommandManagerTest, AThrowingCommandLeavesTheList)
{
    set(1, "One");
    EXPECT_THROW(manager->execute(new Thrower, "Throw"), std::runtime_error);
    EXPECT_EQ(done(), QStringList({"One"}));
    EXPECT_TRUE(manager->execute(new Thrower(true), "Throw when undone"));
    EXPECT_THROW(manager->unexecute(2), std::runtime_error);
    EXPECT_EQ(manager->executedHistorySize(), 2);
    EXPECT_EQ(number, 1);
    EXPECT_TRUE(set(5)) << "the list works on after an exception";
}

TEST_F(CommandManagerTest, ACommandThatHadNothingToDoIsRecorded)
{
    EXPECT_TRUE(manager->execute(new Answer(CO_Command::kNoop), "Nothing"));
    EXPECT_EQ(done(), QStringList({"Nothing"}));
}

TEST_F(CommandManagerTest, ARecordedCommandDropsWhatStoodToBeRedone)
{
    set(1, "One");
    set(2, "Two");
    manager->unexecute(1);
    set(3, "Three");
    EXPECT_EQ(done(), QStringList({"One", "Three"}));
    EXPECT_TRUE(undone().isEmpty());
}

TEST_F(CommandManagerTest, AnEntryThatCantBeUndoneStaysAndEndsTheUndo)
{
    set(1, "One");
    manager->execute(new Answer(CO_Command::kOk, CO_Command::kFail), "Stuck");
    set(2, "Two");
    manager->unexecute(3);
    EXPECT_EQ(number, 1);
    EXPECT_EQ(done(), QStringList({"One", "Stuck"}));
    EXPECT_EQ(undone(), QStringList({"Two"}));
}

TEST_F(CommandManagerTest, AScopeBecomesOneEntryUnderItsLabel)
{
    {
        Scope scope(manager.get(), "Both", nullptr, Scope::kDefault);
        EXPECT_EQ(scope.sessionName(), "Both");
        set(1, "One");
        set(2, "Two");
        EXPECT_TRUE(done().isEmpty());
    }
    EXPECT_EQ(done(), QStringList({"Both"}));
    manager->unexecute(1);
    EXPECT_EQ(number, 0);
    manager->reexecute(1);
    EXPECT_EQ(number, 2);
}

TEST_F(CommandManagerTest, AnEmptyScopeLeavesNoEntryAndKeepsWhatStandsToBeRedone)
{
    set(1, "One");
    manager->unexecute(1);
    {
        const Scope scope(manager.get(), "Nothing", nullptr, Scope::kDefault);
        EXPECT_FALSE(manager->execute(new Answer(CO_Command::kFail), "No"));
    }
    EXPECT_EQ(undone(), QStringList({"One"}));
    EXPECT_EQ(manager->historySize(), 1);
}

TEST_F(CommandManagerTest, AnInnerScopeBecomesPartOfTheOuter)
{
    {
        const Scope outer(manager.get(), "Outer", nullptr, Scope::kDefault);
        set(1);
        {
            const Scope inner(manager.get(), "Inner", nullptr, Scope::kDefault);
            set(2);
            set(3);
        }
        set(4);
    }
    EXPECT_EQ(done(), QStringList({"Outer"}));
    manager->unexecute(1);
    EXPECT_EQ(number, 0);
    manager->reexecute(1);
    EXPECT_EQ(number, 4);
}

TEST_F(CommandManagerTest, ACancelledScopeIsUndoneAndKeepsWhatStandsToBeRedone)
{
    set(1, "One");
    set(2, "Two");
    manager->unexecute(1);
    {
        Scope scope(manager.get(), "Cancelled", nullptr, Scope::kDefault);
        set(7);
        {
            const Scope inner(manager.get(), "Inner", nullptr, Scope::kDefault);
            set(8);
        }
        scope.cancel();
        EXPECT_EQ(number, 1);
        scope.cancel();
    }
    EXPECT_EQ(done(), QStringList({"One"}));
    EXPECT_EQ(undone(), QStringList({"Two"}));
    manager->reexecute(1);
    EXPECT_EQ(number, 2);
}

TEST_F(CommandManagerTest, AStepThatRefusesToBeTakenBackStaysOnTheList)
{
    const std::function<CO_Command*()> steps[] = {[] { return new Answer(CO_Command::kOk, CO_Command::kFail); },
                                                  [] { return new Thrower(true); }};
    for (const auto& step : steps) {
        manager = std::make_unique<brindle::engine::CommandManager>();
        number = 0;
        set(1, "Before");
        testing::internal::CaptureStderr();
        {
            Scope scope(manager.get(), "Cancelled", nullptr, Scope::kDefault);
            set(2);
            manager->execute(step(), "Step");
            set(3);
            EXPECT_FALSE(scope.cancel());
            EXPECT_EQ(number, 2) << "what was done behind the step is taken back, what was done before it is not";
            EXPECT_TRUE(scope.cancel()) << "there is nothing left to cancel";
        }
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "Error: Failed to take back \"Cancelled\"; what is left of it is on the undo list.\n");
        EXPECT_EQ(done(), QStringList({"Before", "Cancelled"}));
        EXPECT_EQ(undone(), QStringList());
        EXPECT_TRUE(manager->isDirty());
    }
}

TEST_F(CommandManagerTest, WhatRefusesInAnInnerScopeGoesToTheOuterOne)
{
    testing::internal::CaptureStderr();
    {
        const Scope outer(manager.get(), "Outer", nullptr, Scope::kDefault);
        Scope inner(manager.get(), "Inner", nullptr, Scope::kDefault);
        set(1);
        manager->execute(new Answer(CO_Command::kOk, CO_Command::kFail), "Step");
        EXPECT_FALSE(inner.cancel());
    }
    EXPECT_NE(testing::internal::GetCapturedStderr().find("take back \"Inner\";"), std::string::npos);
    EXPECT_EQ(done(), QStringList({"Outer"}));
    EXPECT_EQ(number, 1);
}

TEST_F(CommandManagerTest, NothingIsExecutedWhileAScopeIsTakenBack)
{
    /// Executes another command while it is undone.
    class Meddler final : public CO_Command {
    public:
        Meddler(CO_CommandManager& manager, int& number) : m_manager(manager), m_number(number) {}
        Status execute() override { return kOk; }
        Status unexecute() override { return m_manager.execute(new SetNumber(m_number, 9), QString()) ? kFail : kOk; }

    private:
        CO_CommandManager& m_manager;
        int& m_number;
    };
    Scope scope(manager.get(), "Cancelled", nullptr, Scope::kDefault);
    manager->execute(new Meddler(*manager, number), "Meddle");
    EXPECT_TRUE(scope.cancel());
    EXPECT_EQ(number, 0);
    EXPECT_TRUE(set(5)) << "afterwards it takes commands again";
}

TEST_F(CommandManagerTest, WhatIsExecutedAfterACancelGoesToTheScopeAround)
{
    {
        const Scope outer(manager.get(), "Outer", nullptr, Scope::kDefault);
        set(1);
        {
            Scope inner(manager.get(), "Inner", nullptr, Scope::kDefault);
            set(2);
            inner.cancel();
            EXPECT_EQ(number, 1);
            set(3);
        }
        set(4);
    }
    EXPECT_EQ(done(), QStringList({"Outer"}));
    manager->unexecute(1);
    EXPECT_EQ(number, 0);
}

TEST_F(CommandManagerTest, WhatIsExecutedAfterTheOutermostIsCancelledIsAnEntryOfItsOwn)
{
    {
        Scope scope(manager.get(), "Cancelled", nullptr, Scope::kDefault);
        set(1);
        scope.cancel();
        set(2, "After");
    }
    EXPECT_EQ(done(), QStringList({"After"}));
    EXPECT_EQ(number, 2);
}

TEST_F(CommandManagerTest, UndoAndRedoDoNothingWhileAScopeIsOpen)
{
    set(1);
    set(2);
    manager->unexecute(1);
    const Scope scope(manager.get(), "Open", nullptr, Scope::kDefault);
    manager->unexecute(1);
    manager->reexecute(1);
    EXPECT_EQ(number, 1);
    EXPECT_EQ(manager->executedHistorySize(), 1);
}

TEST_F(CommandManagerTest, AScopeMayOutliveItsManager)
{
    auto scope = std::make_unique<Scope>(manager.get(), "Left open", nullptr, Scope::kDefault);
    set(1);
    manager.reset();
    scope->cancel();
    EXPECT_EQ(scope->sessionName(), "Left open");
    scope.reset();
    EXPECT_EQ(number, 1);
}

TEST_F(CommandManagerTest, AScopeWithoutAManagerDoesNothing)
{
    Scope scope(nullptr, "None", nullptr, Scope::kDefault);
    scope.cancel();
    EXPECT_EQ(scope.sessionName(), "None");
}

TEST_F(CommandManagerTest, TheOldestEntriesBeyondTheLimitAreDropped)
{
    manager->setHistoryMaxSize(2);
    set(1, "One");
    set(2, "Two");
    set(3, "Three");
    EXPECT_EQ(done(), QStringList({"Two", "Three"}));
    manager->unexecute(5);
    EXPECT_EQ(number, 1);
    manager->setHistoryMaxSize(1);
    EXPECT_EQ(undone(), QStringList({"Two"}));
    manager->setHistoryMaxSize(-3);
    EXPECT_EQ(manager->historyMaxSize(), 0);
    EXPECT_TRUE(set(9, "Nine"));
    EXPECT_EQ(number, 9);
    EXPECT_EQ(manager->historySize(), 0);
}

TEST_F(CommandManagerTest, AClearedListForgetsAllAndChangesNothing)
{
    set(1);
    set(2);
    manager->unexecute(1);
    manager->clearHistory();
    EXPECT_EQ(manager->historySize(), 0);
    EXPECT_EQ(number, 1);
    manager->unexecute(1);
    manager->reexecute(1);
    EXPECT_EQ(number, 1);
}

TEST_F(CommandManagerTest, AProjectIsDirtyWhereItDiffersFromTheSavedOne)
{
    set(1);
    EXPECT_TRUE(manager->isDirty());
    manager->setClean();
    EXPECT_FALSE(manager->isDirty());
    manager->unexecute(1);
    EXPECT_TRUE(manager->isDirty());
    manager->reexecute(1);
    EXPECT_FALSE(manager->isDirty());
    set(2);
    manager->unexecute(1);
    EXPECT_FALSE(manager->isDirty());
}

TEST_F(CommandManagerTest, AProjectStaysDirtyOnceTheSavedStateCantBeReached)
{
    set(1);
    manager->setClean();
    manager->unexecute(1);
    set(2);
    EXPECT_TRUE(manager->isDirty()) << "as many entries as when it was saved, but another one";
    manager->unexecute(1);
    EXPECT_TRUE(manager->isDirty());
}

TEST_F(CommandManagerTest, AClearedListKeepsWhetherTheProjectIsDirty)
{
    set(1);
    manager->setClean();
    manager->clearHistory();
    EXPECT_FALSE(manager->isDirty());
    set(2);
    manager->clearHistory();
    EXPECT_TRUE(manager->isDirty());
}

TEST_F(CommandManagerTest, ASavedStateBeforeTheOldestEntryIsNotReachedAgain)
{
    manager->setHistoryMaxSize(1);
    set(1);
    set(2);
    manager->unexecute(1);
    EXPECT_TRUE(manager->isDirty());
}

TEST_F(CommandManagerTest, AnOpenScopeWithContentIsDirty)
{
    {
        const Scope scope(manager.get(), "Open", nullptr, Scope::kDefault);
        EXPECT_FALSE(manager->isDirty());
        set(1);
        EXPECT_TRUE(manager->isDirty());
        manager->setClean();
        EXPECT_FALSE(manager->isDirty());
    }
    EXPECT_FALSE(manager->isDirty()) << "the entry leads to the state that was saved";
}

TEST_F(CommandManagerTest, AStateThatWasSavedInsideAScopeIsLostWhenTheScopeGoesOn)
{
    {
        const Scope scope(manager.get(), "Open", nullptr, Scope::kDefault);
        set(1);
        manager->setClean();
        set(2);
    }
    EXPECT_TRUE(manager->isDirty());
    manager->unexecute(1);
    EXPECT_TRUE(manager->isDirty());
}

TEST_F(CommandManagerTest, AStateThatWasSavedInsideAScopeIsNotTakenForOneOfALaterScope)
{
    for (const bool cancelled : {true, false}) {
        {
            Scope scope(manager.get(), "Saved", nullptr, Scope::kDefault);
            set(1);
            manager->setClean();
            set(2);
            if (cancelled)
                scope.cancel();
        }
        manager->unexecute(1);
        const Scope later(manager.get(), "Later", nullptr, Scope::kDefault);
        set(3);
        EXPECT_TRUE(manager->isDirty()) << cancelled;
    }
}

TEST_F(CommandManagerTest, TenThousandChangesAreUndoneInOneCall)
{
    for (int i = 1; i <= 10'000; ++i)
        set(i);
    manager->unexecute(10'000);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(manager->executedHistorySize(), 0);
    EXPECT_EQ(undone().size(), 10'000);
}

namespace {

/// Asks its manager for things while the manager steps through the list.
class Meddler final : public CO_Command {
public:
    explicit Meddler(CO_CommandManager& manager) : m_manager(manager) {}
    Status execute() override { return kOk; }
    Status unexecute() override
    {
        m_manager.unexecute(1);
        m_manager.reexecute(1);
        m_manager.clearHistory();
        m_manager.setHistoryMaxSize(0);
        EXPECT_FALSE(m_manager.execute(new Answer(kOk), "Meddle"));
        return kOk;
    }

private:
    CO_CommandManager& m_manager;
};

} // namespace

TEST_F(CommandManagerTest, ACommandThatIsBeingUndoneCantChangeTheList)
{
    set(1, "One");
    manager->execute(new Meddler(*manager), "Meddler");
    manager->unexecute(1);
    EXPECT_EQ(number, 1);
    EXPECT_EQ(done(), QStringList({"One"}));
    EXPECT_EQ(undone(), QStringList({"Meddler"}));
    EXPECT_EQ(manager->historyMaxSize(), 100'000);
}

TEST_F(CommandManagerTest, ACountBeyondTheEndDoesWhatIsThere)
{
    constexpr unsigned int all = std::numeric_limits<unsigned int>::max();
    manager->unexecute(all);
    manager->reexecute(all);
    EXPECT_EQ(manager->historySize(), 0);
    for (const int value : {1, 2, 3})
        set(value);
    manager->unexecute(4);
    EXPECT_EQ(number, 0);
    manager->reexecute(all);
    EXPECT_EQ(number, 3);
    manager->unexecute(0);
    manager->reexecute(0);
    EXPECT_EQ(number, 3);
    manager->unexecute(all);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(manager->executedHistorySize(), 0);
    EXPECT_EQ(manager->historySize(), 3);
}

TEST_F(CommandManagerTest, AHundredThousandBracketsWithinABracketAreOneEntry)
{
    constexpr int count = 100'000;
    {
        const Scope outer(manager.get(), "All", nullptr, Scope::kDefault);
        for (int value = 1; value <= count; ++value) {
            const Scope inner(manager.get(), "One", nullptr, Scope::kDefault);
            set(value);
        }
    }
    EXPECT_EQ(manager->collectExecutedNames(), QStringList("All"));
    manager->unexecute(1);
    EXPECT_EQ(number, 0);
    manager->reexecute(1);
    EXPECT_EQ(number, count);
}

TEST_F(CommandManagerTest, AHundredThousandEntriesAreUndoneAndRedoneAndShareTheirLabel)
{
    constexpr int count = 100'000;
    for (int value = 1; value <= count; ++value)
        set(value, QStringLiteral("Set Number of ") + QStringLiteral("Frames"));
    EXPECT_EQ(manager->historySize(), count);
    const QStringList names = manager->collectExecutedNames();
    EXPECT_EQ(names.first().constData(), names.last().constData());
    manager->unexecute(count);
    EXPECT_EQ(number, 0);
    manager->reexecute(count);
    EXPECT_EQ(number, count);
}
