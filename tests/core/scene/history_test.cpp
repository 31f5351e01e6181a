#include "core/scene/history.h"

#include "tests/core/support/failure.h"
#include "tests/core/support/openproject.h"
#include "tests/core/support/otherthread.h"
#include "tests/core/support/refusingmanager.h"
#include "tests/core/support/standins.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using OMC::History;

/// Adds to a number.
class AddCommand : public CO_Command {
public:
    explicit AddCommand(int& number) : m_number(number) {}
    Status execute() override
    {
        ++m_number;
        return kOk;
    }
    Status unexecute() override
    {
        --m_number;
        return kOk;
    }

private:
    int& m_number;
};

/// A manager whose scopes can't be cancelled.
class BrokenManager : public RefusingManager {
protected:
    bool cancelScope() override { throw std::runtime_error("broken"); }
};

/// A manager that counts one entry more as done than there are.
class MiscountingManager : public RefusingManager {
public:
    int executedHistorySize() const override { return 1; }
};

class HistoryTest : public ProjectTest {
protected:
    HistoryTest() : history(projectCommon()) {}
    // A bracket belongs to the process: none is left to the next test.
    ~HistoryTest() override
    {
        failureOf([] { History(nullptr).size(); });
    }

    void add(const char* label) { manager().execute(new AddCommand(number), QString::fromLatin1(label)); }
    QVariant attribute(const char* name)
    {
        bool found = false;
        return history.getAttr(name, found);
    }

    int number = 0;
    History history;
};

TEST_F(HistoryTest, ANewProjectHasNoHistory)
{
    EXPECT_EQ(history.size(), 0U);
    EXPECT_EQ(history.list(), QStringList());
    EXPECT_TRUE(history.__atend__());
    EXPECT_EQ(history.__str__(), "Brindle Application History");
}

TEST_F(HistoryTest, SizesCountWhatIsDoneAndUndone)
{
    for (const char* label : {"One", "Two", "Three"})
        add(label);
    history.undo(1);
    EXPECT_EQ(history.size(), 2U);
    EXPECT_EQ(attribute("size_total"), QVariant::fromValue<size_t>(3));
    EXPECT_EQ(attribute("size_executed"), QVariant::fromValue<size_t>(2));
    EXPECT_EQ(attribute("size_unexecuted"), QVariant::fromValue<size_t>(1));
    EXPECT_EQ(attribute("size_max"), QVariant::fromValue(static_cast<size_t>(manager().historyMaxSize())));
}

TEST_F(HistoryTest, TheNumberThatCanBeRedoneIsCutTo32Bits)
{
    MiscountingManager miscounting;
    StandInProjectCommon project;
    project.commands = &miscounting;
    EXPECT_EQ(History(&project).getSizeUnexecuted(), 4294967295U);
}

TEST_F(HistoryTest, TheThreadIsAskedForAheadOfTheProject)
{
    const History gone(nullptr);
    history.begin(QStringLiteral("A"));
    EXPECT_EQ(failuresOnOtherThread({[&] { history.size(); }, [&] { history.undo(1); }, [&] { history.end(); },
                                     [&] { history.cancel(); }, [&] { history.getCurrent(); }, [&] { gone.size(); }}),
              std::vector<std::string>(
                  6, "Unable to access Object Model from another thread -- application must be locked."));
    EXPECT_EQ(history.getCurrent(), QStringLiteral("A"));
}

TEST_F(HistoryTest, ThePropertiesStandInTheirOrder)
{
    bool extendNative = false;
    bool filter = false;
    EXPECT_EQ(history.getDir(extendNative, filter),
              (std::vector<std::string>{"objectName", "current", "active", "size_total", "size_unexecuted",
                                        "size_executed", "size_max"}));
}

TEST_F(HistoryTest, NamesAreThoseThatCanBeUndoneOldestFirst)
{
    for (const char* label : {"One", "Two", "Three"})
        add(label);
    history.undo(1);
    EXPECT_EQ(history.list(), (QStringList{"One", "Two"}));
    EXPECT_EQ(history.get(0), QStringLiteral("One"));
    EXPECT_EQ(history.get(1), QStringLiteral("Two"));
    for (const unsigned int index : {2U, 3U, 4294967295U})
        EXPECT_EQ(failureOf([&] { history.get(index); }), "History item out of range.");
    EXPECT_TRUE(history.contains(QStringLiteral("Two")));
    EXPECT_FALSE(history.contains(QStringLiteral("two")));
    EXPECT_FALSE(history.contains(QStringLiteral("Three")));
    EXPECT_FALSE(history.contains(QString()));
}

TEST_F(HistoryTest, SettingIsRefusedBeforeAnyTest)
{
    add("One");
    for (const unsigned int index : {0U, 1U})
        EXPECT_EQ(failureOf([&] { history.set(index, "x"); }), "Unable to set a value in the history.");
    close();
    EXPECT_EQ(failureOf([&] { history.set(0, "x"); }), "Unable to set a value in the history.");
}

TEST_F(HistoryTest, UndoAndRedoGoByCount)
{
    for (const char* label : {"One", "Two", "Three"})
        add(label);
    history.undo(2);
    EXPECT_EQ(number, 1);
    EXPECT_EQ(history.list(), QStringList{"One"});
    history.redo(1);
    EXPECT_EQ(number, 2);
    history.undo(0);
    history.redo(0);
    EXPECT_EQ(number, 2);
    history.undo(4294967295U);
    EXPECT_EQ(number, 0);
    history.redo(4294967295U);
    EXPECT_EQ(number, 3);
    EXPECT_EQ(history.size(), 3U);
}

TEST_F(HistoryTest, ClearingForgetsWithoutUndoing)
{
    add("One");
    add("Two");
    history.undo(1);
    history.clear();
    EXPECT_EQ(history.size(), 0U);
    EXPECT_EQ(history.getSizeTotal(), 0U);
    EXPECT_EQ(number, 1);
}

TEST_F(HistoryTest, IteratingGivesTheNamesOnAPositionOfItsOwn)
{
    for (const char* label : {"One", "Two", "Three"})
        add(label);
    ++history;
    const OMC::Obj first = history.__iter__();
    const OMC::Obj second = history.__iter__();
    auto& loop = *OMC::objectIn<History>(first);
    auto& other = *OMC::objectIn<History>(second);
    QStringList names;
    for (; !loop.__atend__(); ++loop)
        names.append(loop.__iterItem__());
    EXPECT_EQ(names, (QStringList{"One", "Two", "Three"}));
    EXPECT_EQ(other.__iterItem__(), QStringLiteral("One"));
    EXPECT_EQ(history.__iterItem__(), QStringLiteral("Two"));

    ++loop;
    EXPECT_EQ(failureOf([&] { loop.__iterItem__(); }), "History item out of range.");
    --loop;
    EXPECT_EQ(loop.__iterItem__(), QStringLiteral("Three"));
    for (int i = 0; i < 5; ++i)
        --loop;
    EXPECT_EQ(loop.__iterItem__(), QStringLiteral("One"));
}

TEST_F(HistoryTest, ALoopEndsEarlyWhenTheListShrinks)
{
    for (const char* label : {"One", "Two", "Three"})
        add(label);
    const OMC::Obj handle = history.__iter__();
    auto& loop = *OMC::objectIn<History>(handle);
    ++loop;
    history.undo(2);
    EXPECT_TRUE(loop.__atend__());
    ++loop;
    history.redo(2);
    EXPECT_EQ(loop.__iterItem__(), QStringLiteral("Two"));
}

TEST_F(HistoryTest, ABracketMakesOneEntryOfWhatIsDoneInIt)
{
    history.begin(QStringLiteral("A"));
    EXPECT_EQ(attribute("current"), QVariant(QStringLiteral("A")));
    add("One");
    add("Two");
    history.end();
    EXPECT_EQ(attribute("current"), QVariant(QStringLiteral("NONE")));
    EXPECT_EQ(labels(), QStringList{"A"});
    history.undo(1);
    EXPECT_EQ(number, 0);
    history.redo(1);
    EXPECT_EQ(number, 2);
}

TEST_F(HistoryTest, ANestedBracketIsCountedAndItsNameDropped)
{
    history.begin(QStringLiteral("A"));
    add("One");
    history.begin(QStringLiteral("B"));
    EXPECT_EQ(history.getCurrent(), QStringLiteral("A"));
    add("Two");
    history.end();
    EXPECT_EQ(history.getCurrent(), QStringLiteral("A"));
    EXPECT_EQ(labels(), QStringList());
    history.end();
    EXPECT_EQ(labels(), QStringList{"A"});
    EXPECT_EQ(number, 2);
}

TEST_F(HistoryTest, CancellingTakesBackTheWholeBracketWhateverTheNesting)
{
    history.begin(QStringLiteral("A"));
    add("One");
    history.begin(QStringLiteral("B"));
    add("Two");
    history.cancel();
    EXPECT_EQ(number, 0);
    EXPECT_EQ(labels(), QStringList());
    EXPECT_EQ(history.getCurrent(), QStringLiteral("NONE"));
    history.end();
    add("Three");
    EXPECT_EQ(labels(), QStringList{"Three"});
}

TEST_F(HistoryTest, ABracketThatCantBeTakenBackSaysSoAndIsOnTheList)
{
    /// Stays done.
    class Stubborn final : public CO_Command {
    public:
        Status execute() override { return kOk; }
        Status unexecute() override { return kFail; }
    };
    history.begin(QStringLiteral("A"));
    manager().execute(new Stubborn, QString());
    add("Two");
    testing::internal::CaptureStderr();
    EXPECT_EQ(failureOf([&] { history.cancel(); }),
              "Failed to take back \"A\"; what is left of it is on the undo list.");
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(number, 0);
    EXPECT_EQ(labels(), QStringList{"A"});
    EXPECT_EQ(history.getCurrent(), QStringLiteral("NONE"));
}

TEST_F(HistoryTest, EndAndCancelWithoutABracketDoNothing)
{
    add("One");
    history.end();
    history.cancel();
    EXPECT_EQ(labels(), QStringList{"One"});
    EXPECT_EQ(number, 1);
    history.begin(QStringLiteral("A"));
    add("Two");
    history.end();
    EXPECT_EQ(labels(), (QStringList{"One", "A"}));
}

TEST_F(HistoryTest, AnEmptyBracketLeavesNoEntry)
{
    history.begin(QStringLiteral("A"));
    history.end();
    EXPECT_EQ(labels(), QStringList());
}

TEST_F(HistoryTest, TheNameOfABracketIsTakenAsItIs)
{
    for (const QString& name :
         {QString(), QStringLiteral("Größe — 大"), QStringLiteral("%1 %n"), QString(5000, u'x')}) {
        history.begin(name);
        EXPECT_EQ(history.getCurrent(), name);
        add("step");
        history.end();
        EXPECT_EQ(labels().constLast(), name);
    }
}

TEST_F(HistoryTest, ABracketBelongsToTheProcessAndNotToTheObject)
{
    History(projectCommon()).begin(QStringLiteral("A"));
    add("One");
    EXPECT_EQ(history.getCurrent(), QStringLiteral("A"));
    const OMC::Obj copy(history.copy());
    OMC::objectIn<History>(copy)->end();
    EXPECT_EQ(labels(), QStringList{"A"});
}

TEST_F(HistoryTest, ActiveIsFalseInsideABracketToo)
{
    EXPECT_EQ(attribute("active"), QVariant(false));
    history.begin(QStringLiteral("A"));
    EXPECT_EQ(attribute("active"), QVariant(false));
}

TEST_F(HistoryTest, InsideABracketUndoAndRedoDoNothing)
{
    add("One");
    history.begin(QStringLiteral("A"));
    add("Two");
    history.undo(1);
    EXPECT_EQ(number, 2);
    history.end();
    EXPECT_EQ(labels(), (QStringList{"One", "A"}));
}

TEST_F(HistoryTest, OnceTheProjectIsClosedEveryOperationSaysSo)
{
    History iterating(projectCommon());
    close();
    const std::pair<const char*, std::function<void()>> calls[] = {
        {"size", [&] { history.size(); }},
        {"size_total", [&] { history.getSizeTotal(); }},
        {"size_unexecuted", [&] { history.getSizeUnexecuted(); }},
        {"size_executed", [&] { history.getSizeExecuted(); }},
        {"size_max", [&] { history.getSizeMax(); }},
        {"get", [&] { history.get(0); }},
        {"contains", [&] { history.contains(QString()); }},
        {"list", [&] { history.list(); }},
        {"undo", [&] { history.undo(1); }},
        {"redo", [&] { history.redo(1); }},
        {"clear", [&] { history.clear(); }},
        {"begin", [&] { history.begin(QStringLiteral("A")); }},
        {"end", [&] { history.end(); }},
        {"cancel", [&] { history.cancel(); }},
        {"current", [&] { history.getCurrent(); }},
        {"active", [&] { history.getActive(); }},
        {"__str__", [&] { history.__str__(); }},
        {"__iterItem__", [&] { iterating.__iterItem__(); }},
        {"__atend__", [&] { iterating.__atend__(); }},
    };
    for (const auto& [name, call] : calls)
        EXPECT_EQ(failureOf(call), objectGone) << name;
    EXPECT_NE(history.__iter__().get(), nullptr);
}

TEST_F(HistoryTest, ACheckedUseOfADeadHistoryEndsTheBracket)
{
    const History dead(nullptr);
    history.begin(QStringLiteral("A"));
    add("One");
    EXPECT_EQ(failureOf([&] { dead.size(); }), objectGone);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(history.getCurrent(), QStringLiteral("NONE"));
    history.end();
    EXPECT_EQ(labels(), QStringList());
}

TEST_F(HistoryTest, ABracketOutlivesItsProjectAndHarmsNothing)
{
    history.begin(QStringLiteral("A"));
    add("One");
    close();
    EXPECT_EQ(failureOf([&] { history.end(); }), objectGone);

    QString error;
    QTemporaryDir folder;
    ASSERT_NE(session().projectManager()->createProject(folder.filePath(QStringLiteral("second")), error), nullptr)
        << error.toStdString();
    History second(projectCommon());
    EXPECT_EQ(second.getCurrent(), QStringLiteral("NONE"));
    second.begin(QStringLiteral("B"));
    add("Two");
    second.end();
    EXPECT_EQ(labels(), QStringList{"B"});
    close();
}

TEST_F(HistoryTest, ABracketOfAClosedProjectIsClosedByTheNextEnd)
{
    history.begin(QStringLiteral("A"));
    close();
    QString error;
    QTemporaryDir folder;
    ASSERT_NE(session().projectManager()->createProject(folder.filePath(QStringLiteral("second")), error), nullptr)
        << error.toStdString();
    History second(projectCommon());
    EXPECT_EQ(second.getCurrent(), QStringLiteral("A"));
    second.end();
    EXPECT_EQ(second.getCurrent(), QStringLiteral("NONE"));
    close();
}

TEST_F(HistoryTest, AProjectWithoutAManagerFailsUnexpectedly)
{
    StandInProjectCommon project;
    History managerless(&project);
    const std::pair<const char*, std::function<void()>> calls[] = {
        {"size", [&] { managerless.size(); }},
        {"size_total", [&] { managerless.getSizeTotal(); }},
        {"size_unexecuted", [&] { managerless.getSizeUnexecuted(); }},
        {"size_max", [&] { managerless.getSizeMax(); }},
        {"get", [&] { managerless.get(0); }},
        {"list", [&] { managerless.list(); }},
        {"undo", [&] { managerless.undo(1); }},
        {"redo", [&] { managerless.redo(1); }},
        {"clear", [&] { managerless.clear(); }},
        {"size_executed", [&] { managerless.getSizeExecuted(); }},
        {"contains", [&] { managerless.contains(QString()); }},
        {"begin", [&] { managerless.begin(QStringLiteral("A")); }},
        {"active", [&] { managerless.getActive(); }},
        {"__str__", [&] { managerless.__str__(); }},
    };
    for (const auto& [name, call] : calls)
        EXPECT_EQ(failureOf(call), "An unexpected error occurred.") << name;
    // Operations on the bracket alone need none.
    EXPECT_EQ(managerless.getCurrent(), QStringLiteral("NONE"));
    managerless.end();
    managerless.cancel();
}

TEST_F(HistoryTest, AFailureOfTheEngineWhileTheBracketEndsIsReplaced)
{
    BrokenManager broken;
    StandInProjectCommon project;
    project.commands = &broken;
    History(&project).begin(QStringLiteral("A"));
    EXPECT_EQ(failureOf([] { History(nullptr).size(); }), "Unknown exception has occurred. Object no longer valid.");
    EXPECT_EQ(history.getCurrent(), QStringLiteral("NONE"));
}

} // namespace
