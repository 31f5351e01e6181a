#pragma once

#include "core/host/co_command.h"

#include <QString>

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <vector>

namespace brindle::engine {

/// The undo list of a project. It belongs to the project and goes before the scenes that its commands refer to.
///
/// Entries that stand to be redone are dropped when an entry is really pushed: by a command outside every scope, or by
/// the outermost scope that closes with content. A command that fails, a scope that is cancelled and an empty scope
/// leave them alone.
///
/// Commands that are executed after `cancelScope` belong to the scope around the cancelled one, or to no scope. A step
/// that refuses to be taken back, or throws, stays done: the scope is then closed with what is left in it, and the log
/// says so.
///
/// The project is dirty while its state is another than the saved one: another place on the list, another content of
/// the open scopes, edits of a session whose step is on no list yet, or any place once the saved one can't be reached
/// again.
///
/// An entry whose undo (or redo) fails or throws stays where it is, and ends the call. While entries are undone or
/// redone, nothing is executed and the list takes no other request.
class CommandManager final : public CO_CommandManager {
public:
    static constexpr int defaultHistoryMaxSize = 100'000;

    CommandManager() = default;
    ~CommandManager() override;

    bool execute(CO_Command* command, const QString& label) override;
    void unexecute(unsigned int count) override;
    void reexecute(unsigned int count) override;
    /// Forgets all entries; what an open scope holds stays with it.
    void clearHistory() override;

    int historySize() const override { return static_cast<int>(m_entries.size()); }
    int executedHistorySize() const override { return static_cast<int>(m_done); }
    int historyMaxSize() const override { return static_cast<int>(m_maxSize); }
    /// A negative size counts as 0: nothing can be undone then.
    void setHistoryMaxSize(int size) override;

    QStringList collectExecutedNames() const override;
    QString executedName(int index) const override { return m_entries[static_cast<std::size_t>(index)].label; }
    QStringList collectUnexecutedNames() const override;

    bool isDirty() const override { return m_saved != current(); }
    void setClean() override;

    /// Something was changed by a session whose step comes when it ends, for the first time since it was opened or the
    /// project was saved.
    void noteEdit();
    /// The session has ended. Gives whether its last state is the saved one, for `stepIsSaved`; where nothing differs
    /// from its beginning there is no step.
    bool endEdits(bool differs);
    /// The session went without a step for what differs: the saved state can't be reached any more.
    void loseEdits();
    /// To be called when the session's step is executed: the entry that it becomes leads to the saved state.
    void stepIsSaved() { m_isStepSaved = true; }

    /// The label of the change that led to the present state: of an open scope with content, else of the last entry
    /// that is done, also when it left the list at its beginning; of a project that was just opened, what it was given.
    QString lastChange() const;
    void setChangeBefore(const QString& label)
    {
        m_changeBefore = label;
    } ///< The label of the change ahead of all entries.

protected:
    void openScope(const QString& label) override;
    void closeScope() override;
    bool cancelScope() override;

private:
    using CommandPointer = std::unique_ptr<CO_Command>;

    struct Entry {
        QString label;
        CommandPointer command;
    };
    struct Scope {
        QString label;
        std::vector<CommandPointer> commands;
    };
    /// A state of the project: how many entries led to it since the project was opened, how many commands of open
    /// scopes, and how many edits that no command has yet.
    struct Place {
        std::uint64_t entries = 0;
        std::size_t pending = 0;
        std::size_t edits = 0; ///< Of a session that is open.
        bool operator==(const Place&) const = default;
    };

    Place current() const { return {m_forgotten + m_done, m_pending, m_edits}; }
    void push(CommandPointer command, const QString& label);
    void dropRedo();
    void dropBeyondLimit();
    void popScope();
    bool takesBack(CO_Command& command);

    std::deque<Entry> m_entries;
    std::size_t m_done = 0;        ///< The entries before this place are done, those behind it undone.
    std::uint64_t m_forgotten = 0; ///< Entries that left the list at its beginning.
    QString m_changeBefore;        ///< The label of the last of them.
    std::size_t m_maxSize = defaultHistoryMaxSize;
    std::vector<Scope> m_scopes; ///< Outermost first.
    std::size_t m_pending = 0;   ///< Commands of all open scopes.
    std::size_t m_edits = 0;
    bool m_isStepSaved = false;
    std::optional<Place> m_saved = Place();
    bool m_stepping = false; ///< Something is being undone or redone.
};

} // namespace brindle::engine
