#pragma once

#include "core/host/scriptconsole.h"

#include <QObject>

namespace app::desk {

/// Runs scripts for the window, one at a time, and tells it when one begins and ends: while it runs the window handles
/// events, but nothing that begins there may get between the script's steps. On the main thread.
class ScriptRunner final : public QObject {
    Q_OBJECT

public:
    using Outcome = BAPP_ScriptConsole::Outcome;

    explicit ScriptRunner(BAPP_ScriptConsole& console) : m_console(console) {}

    bool isRunning() const { return m_running; }

    /// Each does nothing, and gives Done, while a script runs.
    Outcome push(const QString& line);
    Outcome pushBlock(const QString& text);
    Outcome runFile(const QByteArray& path, const QList<QByteArray>& arguments = {});
    void discard();

    void interrupt();
    int exitCode() const { return m_console.exitCode(); } ///< The code of the last script that asked to leave.
    BAPP_ScriptConsole::Completion complete(const QString& line);
    void setPrinter(BAPP_ScriptConsole::Printer printer) { m_console.setPrinter(std::move(printer)); }

Q_SIGNALS:
    void started();
    void ended();

private:
    template <typename Call>
    Outcome run(Call call);

    BAPP_ScriptConsole& m_console;
    bool m_running = false;
};

} // namespace app::desk
