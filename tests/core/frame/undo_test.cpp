#include "core/frame/undo.h"

#include "core/frame/exception.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/openproject.h"
#include "tests/core/support/refusingmanager.h"

#include <gtest/gtest.h>

namespace {

/// Adds to a number, or refuses.
class AddCommand : public CO_Command {
public:
    explicit AddCommand(int& number, Status status = kOk) : m_number(number), m_status(status) {}
    Status execute() override
    {
        if (m_status == kOk)
            ++m_number;
        return m_status;
    }
    Status unexecute() override
    {
        if (m_status == kOk)
            --m_number;
        return m_status;
    }

private:
    int& m_number;
    Status m_status;
};

class UndoTest : public ProjectTest {
protected:
    int number = 0;
};

TEST_F(UndoTest, TheManagerOfASceneIsFoundOrTheSentenceThrown)
{
    EXPECT_EQ(&OMC::undo::manager(sceneCommon(), QStringLiteral("Gone.")), &manager());
    EXPECT_EQ(failureOf([] { OMC::undo::manager(nullptr, QStringLiteral("Gone.")); }), "Gone.");
}

TEST_F(UndoTest, ACommandThatRunsStandsUnderItsLabel)
{
    OMC::undo::run(manager(), new AddCommand(number), QStringLiteral("Add One"), QStringLiteral("Failed."));
    EXPECT_EQ(number, 1);
    EXPECT_EQ(labels(), QStringList{QStringLiteral("Add One")});
    undo();
    EXPECT_EQ(number, 0);
    EXPECT_EQ(redoLabels(), QStringList{QStringLiteral("Add One")});
    redo();
    EXPECT_EQ(number, 1);
}

TEST_F(UndoTest, ACommandThatHasNothingToDoCountsAsDone)
{
    OMC::undo::run(manager(), new AddCommand(number, CO_Command::kNoop), QStringLiteral("Nothing"),
                   QStringLiteral("Failed."));
    EXPECT_EQ(labels(), QStringList{QStringLiteral("Nothing")});
}

TEST_F(UndoTest, ACommandThatFailsThrowsTheSentenceAndLeavesNoTrace)
{
    OMC::undo::run(manager(), new AddCommand(number), QStringLiteral("Add One"), QStringLiteral("Failed."));
    undo();
    EXPECT_EQ(failureOf([&] {
                  OMC::undo::run(manager(), new AddCommand(number, CO_Command::kFail), QStringLiteral("Label"),
                                 QStringLiteral("Failed."));
              }),
              "Failed.");
    EXPECT_EQ(labels(), QStringList());
    EXPECT_EQ(redoLabels(), QStringList{QStringLiteral("Add One")});

    RefusingManager refusing;
    EXPECT_EQ(failureOf([&] {
                  OMC::undo::run(refusing, new AddCommand(number), QStringLiteral("Label"), QStringLiteral("Failed."));
              }),
              "Failed.");
    EXPECT_EQ(refusing.refusedLabels, QStringList{QStringLiteral("Label")});
    EXPECT_EQ(number, 0);
}

TEST_F(UndoTest, AScopeMakesOneEntryOfItsCommands)
{
    {
        const OMC::undo::Scope scope(manager(), QStringLiteral("Add Two"));
        manager().execute(new AddCommand(number), QString());
        manager().execute(new AddCommand(number), QString());
    }
    EXPECT_EQ(labels(), QStringList{QStringLiteral("Add Two")});
    undo();
    EXPECT_EQ(number, 0);
    redo();
    EXPECT_EQ(number, 2);
}

TEST_F(UndoTest, AnExceptionThatLeavesAScopeTakesItsCommandsBack)
{
    EXPECT_EQ(failureOf([&] {
                  const OMC::undo::Scope scope(manager(), QStringLiteral("Add Two"));
                  manager().execute(new AddCommand(number), QString());
                  throw OMC::Exception(QStringLiteral("In the middle."));
              }),
              "In the middle.");
    EXPECT_EQ(number, 0);
    EXPECT_EQ(labels(), QStringList());
    EXPECT_EQ(redoLabels(), QStringList());
}

TEST_F(UndoTest, AScopeInsideTheHandlingOfAnExceptionClosesAsUsual)
{
    try {
        throw OMC::Exception(QStringLiteral("Earlier."));
    } catch (const OMC::Exception&) {
        const OMC::undo::Scope scope(manager(), QStringLiteral("Add One"));
        manager().execute(new AddCommand(number), QString());
    }
    EXPECT_EQ(number, 1);
    EXPECT_EQ(labels(), QStringList{QStringLiteral("Add One")});
}

TEST_F(UndoTest, ACancelledScopeLeavesNoEntry)
{
    {
        OMC::undo::Scope scope(manager(), QStringLiteral("Add One"));
        manager().execute(new AddCommand(number), QString());
        scope.cancel();
    }
    EXPECT_EQ(number, 0);
    EXPECT_EQ(labels(), QStringList());
}

TEST_F(UndoTest, AScopeOutlivesItsManager)
{
    OMC::undo::Scope kept(manager(), QStringLiteral("Add One"));
    OMC::undo::Scope cancelled(manager(), QStringLiteral("Add Two"));
    manager().execute(new AddCommand(number), QString());
    close();
    cancelled.cancel();
    EXPECT_EQ(number, 1);
}

} // namespace
