#pragma once

#include "core/host/export.h"

#include <QByteArray>
#include <QString>

class CO_Command;
class CO_CommandManager;

/// An undoable change of palettes. It is executed once, then undone and executed again in turn, always on the state
/// that it left.
class BRINDLE_HOST_EXPORT UT_Command {
public:
    UT_Command() = default;
    UT_Command(const UT_Command&) = delete;
    UT_Command& operator=(const UT_Command&) = delete;
    virtual ~UT_Command() = default;

    /// False, or an exception: refused, and nothing changed.
    virtual bool Execute() = 0;
    virtual bool Undo() = 0;
};

/// A command that carries objects in their serialised form, so that it shares none with the project.
class BRINDLE_HOST_EXPORT UT_StreamCommand : public UT_Command {
public:
    explicit UT_StreamCommand(QByteArray stream) : m_stream(std::move(stream)) {}

protected:
    const QByteArray& stream() const { return m_stream; }

private:
    QByteArray m_stream;
};

/// Runs UT_Commands as entries of a project's undo list.
class BRINDLE_HOST_EXPORT UT_UndoRedoManager {
public:
    /// The undo list that the next commands go to. Null: they run and can't be undone.
    void SetStageCommandManager(CO_CommandManager* manager) { m_manager = manager; }

    /// Takes the command and runs it once. False: it was refused, and neither the palettes nor the undo list changed.
    /// An exception of the command leaves this call as itself.
    bool ExecuteCommand(UT_Command* command, const QString& label);
    /// Takes a command whose work is done already, as its first execute() knows: the first one does nothing. Without an
    /// undo list it goes.
    void AddUndo(CO_Command* done, const QString& label);

private:
    CO_CommandManager* m_manager = nullptr;
};
