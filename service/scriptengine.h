#pragma once

#include "core/host/application.h"
#include "service/scriptconsole.h"

#include <QByteArray>
#include <QList>

#include <memory>

namespace brindle {

/// Python inside the application: an interpreter with the module `brindle` at hand, whose main thread is the
/// application's. One a process. The process must have loaded Python's library.
///
/// While the main thread runs a script it counts as being inside Python. When the script has ended but threads of it
/// still work, the main thread goes on with events until they are done, so that they may call functions on it.
class ScriptEngine final : public BAPP_ScriptEngine {
public:
    ScriptEngine() = default;
    ScriptEngine(const ScriptEngine&) = delete;
    ScriptEngine& operator=(const ScriptEngine&) = delete;
    ~ScriptEngine() override; ///< Ends an interpreter that was started.

    int run(const QList<QByteArray>& arguments, std::function<void()> ended) override;
    bool start(QString& error) override;
    bool execute(const QString& statements) override;
    BAPP_ScriptConsole* console() override;

private:
    bool m_started = false;
    std::unique_ptr<ScriptConsole> m_console;
};

} // namespace brindle
