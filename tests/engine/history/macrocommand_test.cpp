#include "core/host/co_command.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

/// Writes down what is done with it: "a" for done, "A" for undone, "f" for a refusal.
class Noted final : public CO_Command {
public:
    enum Way { Works, HasNothingToDo, Refuses, RefusesUndo, Throws };

    Noted(std::string& notes, char name, Way way = Works) : m_notes(notes), m_name(name), m_way(way) {}
    ~Noted() override { m_notes += "~"; }

    Status execute() override
    {
        if (m_way == Throws)
            throw std::runtime_error("execute");
        if (m_way == Refuses) {
            m_notes += 'f';
            return kFail;
        }
        m_notes += m_name;
        return m_way == HasNothingToDo ? kNoop : kOk;
    }
    Status unexecute() override
    {
        if (m_way == RefusesUndo)
            return kFail;
        m_notes += static_cast<char>(m_name - 'a' + 'A');
        return kOk;
    }

private:
    std::string& m_notes;
    char m_name;
    Way m_way;
};

class MacroCommandTest : public testing::Test {
protected:
    std::string notes;
    std::string taken() { return std::exchange(notes, {}); }
};

} // namespace

TEST_F(MacroCommandTest, AllChildrenOfAnAndAreDoneInOrderAndUndoneAgainstIt)
{
    CO_AndCommand macro;
    macro.add(new Noted(notes, 'a'));
    macro.add(nullptr);
    macro.add(new Noted(notes, 'b', Noted::HasNothingToDo));
    macro.add(new Noted(notes, 'c'));
    EXPECT_EQ(macro.size(), 3);
    EXPECT_EQ(macro.execute(), CO_Command::kOk);
    EXPECT_EQ(taken(), "abc");
    EXPECT_EQ(macro.unexecute(), CO_Command::kOk);
    EXPECT_EQ(taken(), "CBA");
    EXPECT_EQ(macro.execute(), CO_Command::kOk);
    EXPECT_EQ(taken(), "abc");
}

TEST_F(MacroCommandTest, AChildThatRefusesToBeTakenBackIsToldAndKeepsThoseBeforeIt)
{
    CO_AndCommand all;
    CO_OrCommand any(true);
    for (CO_MacroCommand* macro : std::initializer_list<CO_MacroCommand*>{&all, &any}) {
        macro->add(new Noted(notes, 'a'));
        macro->add(new Noted(notes, 'b', Noted::RefusesUndo));
        macro->add(new Noted(notes, 'c'));
        macro->add(new Noted(notes, 'd', Noted::Throws));
        testing::internal::CaptureStderr();
        EXPECT_THROW(macro->execute(), std::runtime_error);
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "Error: A change that failed could not be taken back: a part of it is left.\n");
        EXPECT_EQ(taken().substr(0, 4), "abcC");
    }
}

TEST_F(MacroCommandTest, TheFirstChildThatFailsUndoesThoseBeforeIt)
{
    CO_AndCommand macro;
    macro.add(new Noted(notes, 'a'));
    macro.add(new Noted(notes, 'b'));
    macro.add(new Noted(notes, 'c', Noted::Refuses));
    macro.add(new Noted(notes, 'd'));
    EXPECT_EQ(macro.execute(), CO_Command::kFail);
    EXPECT_EQ(taken(), "abfBA");
}

TEST_F(MacroCommandTest, AChildThatThrowsUndoesThoseBeforeIt)
{
    CO_AndCommand macro;
    macro.add(new Noted(notes, 'a'));
    macro.add(new Noted(notes, 'b', Noted::Throws));
    EXPECT_THROW(macro.execute(), std::runtime_error);
    EXPECT_EQ(taken(), "aA");
}

TEST_F(MacroCommandTest, AnAndWithNothingToDoSaysSo)
{
    CO_AndCommand macro;
    EXPECT_EQ(macro.execute(), CO_Command::kNoop);
    macro.add(new Noted(notes, 'a', Noted::HasNothingToDo));
    EXPECT_EQ(macro.execute(), CO_Command::kNoop);
}

TEST_F(MacroCommandTest, AnUndoThatFailsDoesAgainWhatWasUndone)
{
    CO_AndCommand macro;
    macro.add(new Noted(notes, 'a'));
    macro.add(new Noted(notes, 'b', Noted::RefusesUndo));
    macro.add(new Noted(notes, 'c'));
    macro.execute();
    taken();
    EXPECT_EQ(macro.unexecute(), CO_Command::kFail);
    EXPECT_EQ(taken(), "Cc");
}

TEST_F(MacroCommandTest, AnOrThatKeepsGoingDoesWhatCanBeDone)
{
    CO_OrCommand macro(true);
    macro.add(new Noted(notes, 'a', Noted::Refuses));
    macro.add(new Noted(notes, 'b'));
    macro.add(new Noted(notes, 'c', Noted::Refuses));
    macro.add(new Noted(notes, 'd'));
    EXPECT_EQ(macro.execute(), CO_Command::kOk);
    EXPECT_EQ(macro.size(), 2);
    EXPECT_EQ(taken(), "fbfd~~");
    macro.unexecute();
    EXPECT_EQ(taken(), "DB");
    EXPECT_EQ(macro.execute(), CO_Command::kOk);
    EXPECT_EQ(taken(), "bd");
}

TEST_F(MacroCommandTest, AnOrThatDoesntKeepGoingStopsAtTheFirstThatFails)
{
    CO_OrCommand macro(false);
    macro.add(new Noted(notes, 'a'));
    macro.add(new Noted(notes, 'b', Noted::Refuses));
    macro.add(new Noted(notes, 'c'));
    EXPECT_EQ(macro.execute(), CO_Command::kOk);
    EXPECT_EQ(taken(), "af~~");
    macro.unexecute();
    EXPECT_EQ(taken(), "A");
}

TEST_F(MacroCommandTest, AnOrFailsOnlyWhenEveryChildFailed)
{
    for (const bool keepGoing : {true, false}) {
        CO_OrCommand macro(keepGoing);
        macro.add(new Noted(notes, 'a', Noted::Refuses));
        macro.add(new Noted(notes, 'b', Noted::Refuses));
        EXPECT_EQ(macro.execute(), CO_Command::kFail);
    }
    EXPECT_EQ(CO_OrCommand(true).execute(), CO_Command::kNoop);
}

TEST_F(MacroCommandTest, AChildOfAnOrThatThrowsUndoesThoseBeforeIt)
{
    CO_OrCommand macro(true);
    macro.add(new Noted(notes, 'a'));
    macro.add(new Noted(notes, 'b', Noted::Throws));
    EXPECT_THROW(macro.execute(), std::runtime_error);
    EXPECT_EQ(taken(), "aA~~");
}
