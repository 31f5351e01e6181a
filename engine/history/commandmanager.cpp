#include "engine/history/commandmanager.h"

#include "core/host/msg_scope.h"
#include "engine/session/sessionwatch.h"

#include <utility>

namespace brindle::engine {

namespace {

/// Sets a flag while it lives.
class Flagged {
public:
    explicit Flagged(bool& flag) : m_flag(flag), m_before(std::exchange(flag, true)) {}
    Flagged(const Flagged&) = delete;
    Flagged& operator=(const Flagged&) = delete;
    ~Flagged() { m_flag = m_before; }

private:
    bool& m_flag;
    bool m_before;
};

} // namespace

CommandManager::~CommandManager()
{
    expireWeakPointers();
    // The last one first: a later command may refer to what an earlier one owns.
    while (!m_scopes.empty())
        popScope();
    while (!m_entries.empty())
        m_entries.pop_back();
}

bool CommandManager::execute(CO_Command* command, const QString& label)
{
    CommandPointer owned(command);
    m_isStepSaved = false;
    if (!owned || m_stepping || owned->execute() == CO_Command::kFail)
        return false;
    if (m_scopes.empty()) {
        push(std::move(owned), label);
    } else {
        m_scopes.back().commands.push_back(std::move(owned));
        ++m_pending;
    }
    if (std::exchange(m_isStepSaved, false))
        m_saved = current();
    announceSessionChange();
    return true;
}

void CommandManager::unexecute(unsigned int count)
{
    if (!m_scopes.empty() || m_stepping)
        return;
    const Flagged stepping(m_stepping);
    announceSessionChange();
    for (; count > 0 && m_done > 0; --count) {
        if (m_entries[m_done - 1].command->unexecute() == CO_Command::kFail)
            return;
        --m_done;
    }
}

void CommandManager::reexecute(unsigned int count)
{
    if (!m_scopes.empty() || m_stepping)
        return;
    const Flagged stepping(m_stepping);
    announceSessionChange();
    for (; count > 0 && m_done < m_entries.size(); --count) {
        if (m_entries[m_done].command->execute() == CO_Command::kFail)
            return;
        ++m_done;
    }
}

void CommandManager::clearHistory()
{
    if (m_stepping)
        return;
    announceSessionChange();
    dropRedo();
    if (m_done > 0)
        m_changeBefore = m_entries.back().label;
    m_forgotten += m_done;
    m_done = 0;
    while (!m_entries.empty())
        m_entries.pop_back();
}

void CommandManager::setHistoryMaxSize(int size)
{
    if (m_stepping)
        return;
    announceSessionChange();
    m_maxSize = size > 0 ? static_cast<std::size_t>(size) : 0;
    dropBeyondLimit();
}

QStringList CommandManager::collectExecutedNames() const
{
    QStringList names;
    names.reserve(static_cast<qsizetype>(m_done));
    for (std::size_t i = 0; i < m_done; ++i)
        names.append(m_entries[i].label);
    return names;
}

QStringList CommandManager::collectUnexecutedNames() const
{
    QStringList names;
    names.reserve(static_cast<qsizetype>(m_entries.size() - m_done));
    for (std::size_t i = m_done; i < m_entries.size(); ++i)
        names.append(m_entries[i].label);
    return names;
}

void CommandManager::setClean()
{
    m_saved = current();
    announceSessionChange();
}

void CommandManager::noteEdit()
{
    ++m_edits;
    announceSessionChange();
}

bool CommandManager::endEdits(bool differs)
{
    const bool isSaved = !isDirty();
    m_edits = 0;
    if (m_saved && m_saved->edits > 0)
        m_saved.reset();
    if (isSaved && !differs)
        m_saved = current();
    return isSaved;
}

void CommandManager::loseEdits()
{
    m_edits = 0;
    m_saved.reset();
}

QString CommandManager::lastChange() const
{
    if (m_pending > 0)
        return m_scopes.front().label;
    return m_done > 0 ? m_entries[m_done - 1].label : m_changeBefore;
}

void CommandManager::openScope(const QString& label)
{
    m_scopes.push_back({label, {}});
}

void CommandManager::closeScope()
{
    if (m_scopes.empty())
        return;
    Scope closed = std::move(m_scopes.back());
    m_scopes.pop_back();
    if (closed.commands.empty())
        return;
    announceSessionChange();

    if (!m_scopes.empty()) {
        auto& outer = m_scopes.back().commands;
        for (auto& command : closed.commands)
            outer.push_back(std::move(command));
        return;
    }

    const bool clean = !isDirty();
    m_pending = 0;
    if (closed.commands.size() == 1) {
        push(std::move(closed.commands.front()), closed.label);
    } else {
        auto macro = std::make_unique<CO_AndCommand>();
        for (auto& command : closed.commands)
            macro->add(command.release());
        push(std::move(macro), closed.label);
    }
    // A state that was saved inside the scope is the one that the new entry leads to, or can't be reached any more.
    if (clean)
        setClean();
    else if (m_saved && m_saved->pending > 0)
        m_saved.reset();
}

bool CommandManager::cancelScope()
{
    if (m_scopes.empty())
        return true;
    auto& commands = m_scopes.back().commands;
    while (!commands.empty() && takesBack(*commands.back())) {
        commands.pop_back();
        --m_pending;
    }
    if (m_saved && m_saved->pending > m_pending)
        m_saved.reset();
    if (!commands.empty()) {
        MSG_Scope(QStringLiteral("Failed to take back \"%1\"; what is left of it is on the undo list.")
                      .arg(m_scopes.back().label),
                  MSG_Scope::kError);
        closeScope();
        return false;
    }
    m_scopes.pop_back();
    announceSessionChange();
    return true;
}

/// Nothing else is executed meanwhile. An exception counts as a refusal: scopes are cancelled while another one is on
/// its way.
bool CommandManager::takesBack(CO_Command& command)
{
    const Flagged stepping(m_stepping);
    try {
        return command.unexecute() != CO_Command::kFail;
    } catch (...) {
        return false;
    }
}

void CommandManager::push(CommandPointer command, const QString& label)
{
    dropRedo();
    // A run of entries of one name shares its text.
    const bool isRun = !m_entries.empty() && m_entries.back().label == label;
    m_entries.push_back({isRun ? m_entries.back().label : label, std::move(command)});
    ++m_done;
    dropBeyondLimit();
}

void CommandManager::dropRedo()
{
    if (m_saved && m_saved->entries > m_forgotten + m_done)
        m_saved.reset();
    while (m_entries.size() > m_done)
        m_entries.pop_back();
}

void CommandManager::dropBeyondLimit()
{
    while (m_entries.size() > m_maxSize && m_done > 0) {
        m_changeBefore = m_entries.front().label;
        m_entries.pop_front();
        --m_done;
        ++m_forgotten;
    }
    if (m_entries.size() > m_maxSize) {
        if (m_saved && m_saved->entries > m_forgotten + m_maxSize)
            m_saved.reset();
        while (m_entries.size() > m_maxSize)
            m_entries.pop_back();
    }
    if (m_saved && m_saved->entries < m_forgotten)
        m_saved.reset();
}

void CommandManager::popScope()
{
    auto& commands = m_scopes.back().commands;
    while (!commands.empty())
        commands.pop_back();
    m_scopes.pop_back();
}

} // namespace brindle::engine
