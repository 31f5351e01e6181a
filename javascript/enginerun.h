#pragma once

#include "core/bridges/javascriptbackend.h"
#include "qtscript/qscriptengine.h"

namespace brindle::javascript {

/// A thread's use of an engine: while it lives, no other thread gets in, and the outermost one can be interrupted. A
/// script that calls Python lets other threads run in the middle of it; the engine is none for two of them.
class EngineRun {
public:
    /// Throws for a thread that comes while another one is inside.
    explicit EngineRun(QScriptEngine& engine);
    EngineRun(const EngineRun&) = delete;
    EngineRun& operator=(const EngineRun&) = delete;
    ~EngineRun();

    /// Throws what a script left uncaught, or a result that is an error, and leaves the engine without one.
    void report(const QScriptValue& result = QScriptValue());

private:
    [[noreturn]] void fail(const QScriptValue& error, const QStringList& backtrace);
    void end();

    QScriptEngine& m_engine;
    bool m_isOutermost;
    bool m_isOver = false;
};

} // namespace brindle::javascript
