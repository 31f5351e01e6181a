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
    explicit AddCommand(int& number, Status status = kOk, Status undo = kOk)
        : m_number(number),
          m_status(status),
          m_undo(undo)
    {}
    Status execute() override
    {
        if (m_status == kOk)
            ++m_number;
        return m_status;
    }
    Status unexecute() override
    {
        if (m_undo == kOk && m_status == kOk)
            --m_number;
        return m_undo == kOk ? m_status : m_undo;
    }

private:
    int& m_number;
    Status m_status;
    Status m_undo;
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

TEST_F(UndoTest, AScopeThatCantBeTakenBackSaysSoAndIsOnTheList)
{
    const auto step = [this] { return new AddCommand(number, CO_Command::kOk, CO_Command::kFail); };
    testing::internal::CaptureStderr();
    EXPECT_EQ(failureOf([&] {
                  OMC::undo::Scope scope(manager(), QStringLiteral("Add One"));
                  manager().execute(step(), QString());
                  scope.cancel();
              }),
              "Failed to take back \"Add One\"; what is left of it is on the undo list.");
    EXPECT_EQ(failureOf([&] {
                  const OMC::undo::Scope scope(manager(), QStringLiteral("Add Two"));
                  manager().execute(step(), QString());
                  throw OMC::Exception(QStringLiteral("In the middle."));
              }),
              "In the middle.");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Error: Failed to take back \"Add One\"; what is left of it is on the undo list.\n"
              "Error: Failed to take back \"Add Two\"; what is left of it is on the undo list.\n");
    EXPECT_EQ(number, 2);
    EXPECT_EQ(labels(), QStringList({"Add One", "Add Two"}));
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
