#pragma once

#include "core/host/scriptconsole.h"
#include "service/python/pyref.h"

#include <memory>

namespace brindle {

/// The conversation with the interpreter of a script engine, which it belongs to. The statements, the completion and
/// the streams of scripts are those of the module `brindle._console`; here is what leads there: into the interpreter
/// and out of it, and the events that the main thread handles meanwhile.
class ScriptConsole final : public BAPP_ScriptConsole {
public:
    /// Needs a started interpreter. Null where the module can't be loaded; standard error then says why.
    static std::unique_ptr<ScriptConsole> create();
    ScriptConsole(const ScriptConsole&) = delete;
    ScriptConsole& operator=(const ScriptConsole&) = delete;
    ~ScriptConsole() override;

    void setPrinter(Printer printer) override;
    Outcome push(const QString& line) override;
    Outcome pushBlock(const QString& text) override;
    void discard() override;
    Outcome runFile(const QByteArray& path, const QList<QByteArray>& arguments) override;
    int exitCode() const override { return m_exitCode; }
    void interrupt() override;
    void setWatcher(Watcher watcher) override;
    Completion complete(const QString& line) override;

private:
    explicit ScriptConsole(python::Ref console);

    template <typename... Values>
    Outcome run(const char* method, const Values&... values);

    python::Ref m_console;
    int m_exitCode = 0;
};

} // namespace brindle
