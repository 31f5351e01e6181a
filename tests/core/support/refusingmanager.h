#pragma once

#include "core/host/co_command.h"

/// A command manager that refuses every command, as one of a locked project would. Its list stays empty.
class RefusingManager : public CO_CommandManager {
public:
    bool execute(CO_Command* command, const QString& label) override
    {
        delete command;
        refusedLabels.append(label);
        return false;
    }
    void unexecute(unsigned int) override {}
    void reexecute(unsigned int) override {}
    void clearHistory() override {}
    int historySize() const override { return 0; }
    int executedHistorySize() const override { return 0; }
    int historyMaxSize() const override { return 0; }
    void setHistoryMaxSize(int) override {}
    QStringList collectExecutedNames() const override { return {}; }
    QString executedName(int) const override { return {}; }
    QStringList collectUnexecutedNames() const override { return {}; }
    bool isDirty() const override { return false; }
    void setClean() override {}

    QStringList refusedLabels; ///< The labels of the commands that were asked for.
    int openScopes = 0;
    int cancelledScopes = 0;

protected:
    void openScope(const QString&) override { ++openScopes; }
    void closeScope() override { --openScopes; }
    bool cancelScope() override
    {
        --openScopes;
        ++cancelledScopes;
        return true;
    }
};
