#include "core/host/ut_undoredo.h"

#include "core/host/co_command.h"

namespace {

/// A UT_Command as an entry of the undo list.
class Entry final : public CO_Command {
public:
    explicit Entry(UT_Command* command) : m_command(command) {}

    Status execute() override { return m_command->Execute() ? kOk : kFail; }
    Status unexecute() override { return m_command->Undo() ? kOk : kFail; }

private:
    std::unique_ptr<UT_Command> m_command;
};

} // namespace

bool UT_UndoRedoManager::ExecuteCommand(UT_Command* command, const QString& label)
{
    if (!command)
        return false;
    auto entry = std::make_unique<Entry>(command);
    if (m_manager)
        return m_manager->execute(entry.release(), label);
    return entry->execute() == CO_Command::kOk;
}

void UT_UndoRedoManager::AddUndo(CO_Command* done, const QString& label)
{
    std::unique_ptr<CO_Command> step(done);
    if (m_manager && step)
        m_manager->execute(step.release(), label);
}
