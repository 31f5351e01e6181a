#include "core/host/co_command.h"
#include "core/host/msg_scope.h"

namespace {

/// Runs a step that may throw, and undoes what came before it when it does.
template <typename Step, typename Rollback>
CO_Command::Status guarded(Step step, Rollback rollback)
{
    try {
        return step();
    } catch (...) {
        rollback();
        throw;
    }
}

/// Undoes the last of the steps that were done of a change that fails as a whole. False where it refuses: those before
/// it then stay done as well.
bool takesBack(CO_Command& command)
{
    if (command.unexecute() != CO_Command::kFail)
        return true;
    MSG_Scope(QStringLiteral("A change that failed could not be taken back: a part of it is left."), MSG_Scope::kError);
    return false;
}

} // namespace

CO_MacroCommand::CO_MacroCommand() = default;

CO_MacroCommand::~CO_MacroCommand()
{
    // The last one first: a later command may refer to what an earlier one owns.
    while (!m_commands.empty())
        m_commands.pop_back();
}

void CO_MacroCommand::add(CO_Command* command)
{
    if (!command)
        return;
    // Most composites are small, and room for a few costs no more than room for one.
    if (m_commands.empty())
        m_commands.reserve(3);
    m_commands.emplace_back(command);
}

CO_Command::Status CO_MacroCommand::unexecute()
{
    std::size_t left = m_commands.size();
    const auto redoTheUndone = [&] {
        for (std::size_t i = left; i < m_commands.size(); ++i)
            m_commands[i]->execute();
    };
    while (left > 0) {
        const Status status = guarded([&] { return m_commands[left - 1]->unexecute(); }, redoTheUndone);
        if (status == kFail) {
            redoTheUndone();
            return kFail;
        }
        --left;
    }
    return kOk;
}

CO_AndCommand::CO_AndCommand() = default;

CO_Command::Status CO_AndCommand::execute()
{
    Status result = kNoop;
    std::size_t done = 0;
    const auto undoTheDone = [&] {
        while (done > 0 && takesBack(*m_commands[done - 1]))
            --done;
    };
    while (done < m_commands.size()) {
        const Status status = guarded([&] { return m_commands[done]->execute(); }, undoTheDone);
        if (status == kFail) {
            undoTheDone();
            return kFail;
        }
        if (status == kOk)
            result = kOk;
        ++done;
    }
    return result;
}

CO_BaseOrCommand::CO_BaseOrCommand(bool keepGoing) : m_keepGoing(keepGoing) {}

CO_Command::Status CO_BaseOrCommand::execute()
{
    std::vector<std::unique_ptr<CO_Command>> given = std::move(m_commands);
    m_commands.clear();
    m_commands.reserve(given.size());

    const bool empty = given.empty();
    Status result = kNoop;
    const auto undoTheDone = [&] {
        while (!m_commands.empty() && takesBack(*m_commands.back()))
            m_commands.pop_back();
    };
    for (auto& command : given) {
        const Status status = guarded([&] { return command->execute(); }, undoTheDone);
        if (status == kFail) {
            if (!m_keepGoing)
                break;
            continue;
        }
        if (status == kOk)
            result = kOk;
        m_commands.push_back(std::move(command));
    }
    return m_commands.empty() && !empty ? kFail : result;
}

CO_OrCommand::CO_OrCommand(bool keepGoing) : CO_BaseOrCommand(keepGoing) {}
