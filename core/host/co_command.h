#pragma once

#include "core/host/export.h"
#include "core/host/ut_sharedweak.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <utility>
#include <vector>

/// One undoable change of the project.
///
/// A command is executed once, then unexecuted and executed again in turn, always on the state that it left. A command
/// that fails leaves the state as it found it.
class BRINDLE_HOST_EXPORT CO_Command {
public:
    enum Status {
        kOk,   ///< Done.
        kFail, ///< Refused; nothing changed.
        kNoop  ///< Nothing had to change. It counts as done.
    };

    CO_Command() = default;
    CO_Command(const CO_Command&) = delete;
    CO_Command& operator=(const CO_Command&) = delete;
    virtual ~CO_Command() = default;

    virtual Status execute() = 0;
    virtual Status unexecute() = 0;
};

/// A command of the engine, whose work lies behind one private pointer.
class BRINDLE_HOST_EXPORT CO_EngineCommand : public CO_Command {
public:
    Status execute() override { return m_work->execute(); }
    Status unexecute() override { return m_work->unexecute(); }

protected:
    explicit CO_EngineCommand(std::unique_ptr<CO_Command> work) : m_work(std::move(work)) {}

private:
    std::unique_ptr<CO_Command> m_work;
};

/// A command made of commands, which it owns.
class BRINDLE_HOST_EXPORT CO_MacroCommand : public CO_Command {
public:
    ~CO_MacroCommand() override;

    /// Takes the command. Null is ignored.
    virtual void add(CO_Command* command);
    int size() const { return static_cast<int>(m_commands.size()); }

    /// Undoes the children in reverse order.
    Status unexecute() override;

protected:
    CO_MacroCommand();

    std::vector<std::unique_ptr<CO_Command>> m_commands;
};

/// All or nothing: the first child that fails undoes those before it.
class BRINDLE_HOST_EXPORT CO_AndCommand : public CO_MacroCommand {
public:
    CO_AndCommand();
    Status execute() override;
};

/// As much as possible: children that fail drop out, and the whole fails only when every child failed.
class BRINDLE_HOST_EXPORT CO_BaseOrCommand : public CO_MacroCommand {
public:
    Status execute() override;

protected:
    explicit CO_BaseOrCommand(bool keepGoing);

private:
    bool m_keepGoing;
};

class BRINDLE_HOST_EXPORT CO_OrCommand : public CO_BaseOrCommand {
public:
    /// `keepGoing` true runs every child whatever became of the earlier ones; false stops at the first that fails.
    explicit CO_OrCommand(bool keepGoing);
};

class CO_CommandAccumScope;

/// The undo list of a project.
///
/// `execute` records what was done under the label that the person sees; recording drops what stood to be redone. While
/// an accumulating scope is open, commands go to the scope, and `unexecute` and `reexecute` do nothing.
class BRINDLE_HOST_EXPORT CO_CommandManager : public UT_SharedWeakBase {
public:
    /// Takes the command and runs it. False: the command failed, and neither the project nor the undo list changed.
    virtual bool execute(CO_Command* command, const QString& label) = 0;

    /// Undoes, or does again, up to `count` entries: a count beyond the end does what is there.
    virtual void unexecute(unsigned int count) = 0;
    virtual void reexecute(unsigned int count) = 0;
    virtual void clearHistory() = 0;

    virtual int historySize() const = 0;         ///< Entries done and undone.
    virtual int executedHistorySize() const = 0; ///< Entries that can be undone.
    virtual int historyMaxSize() const = 0;      ///< The oldest entries beyond this number are dropped.
    virtual void setHistoryMaxSize(int size) = 0;

    /// Labels of the entries that can be undone, oldest first; and of those that can be redone, next first.
    virtual QStringList collectExecutedNames() const = 0;
    virtual QString executedName(int index) const = 0; ///< One of them; `index` below executedHistorySize().
    virtual QStringList collectUnexecutedNames() const = 0;

    /// Whether the project differs from what was last saved.
    virtual bool isDirty() const = 0;
    virtual void setClean() = 0;

protected:
    friend class CO_CommandAccumScope;

    /// The bracket behind CO_CommandAccumScope; calls nest.
    virtual void openScope(const QString& label) = 0;
    virtual void closeScope() = 0;
    virtual bool cancelScope() = 0;
};

/// While it lives, everything executed on the manager becomes one undo entry under its label. Scopes nest: an inner one
/// becomes part of the outer. A scope in which nothing was executed leaves no entry. A scope may outlive its manager (a
/// script's bracket whose project was closed): it then does nothing.
class BRINDLE_HOST_EXPORT CO_CommandAccumScope {
public:
    enum Mode { kDefault = 0 };

    /// The macro command is chosen by the manager: pass null and mode 0.
    CO_CommandAccumScope(CO_CommandManager* manager, const QString& label, CO_MacroCommand* macro, Mode mode);
    CO_CommandAccumScope(const CO_CommandAccumScope&) = delete;
    CO_CommandAccumScope& operator=(const CO_CommandAccumScope&) = delete;
    ~CO_CommandAccumScope();

    /// Undoes all that was done in the scope; it leaves no entry. False where a step refuses to be undone: that step
    /// and those before it stay done, and the scope is closed with them, so that the undo list tells what is there.
    bool cancel();
    QString sessionName() const { return m_label; }

private:
    UT_SharedWeakPtrBase m_manager; ///< A CO_CommandManager, or null once it is gone.
    QString m_label;
    bool m_open = true;
};
