#include "javascript/enginerun.h"

#include "core/bridges/javascriptobject.h"
#include "javascript/functions.h"
#include "javascript/released.h"

#include <atomic>
#include <thread>

namespace brindle::javascript {

namespace {

std::atomic<std::thread::id> owner;
std::atomic<QScriptEngine*> running = nullptr;

void abortRun()
{
    if (QScriptEngine* engine = running)
        engine->abortEvaluation();
}

} // namespace

EngineRun::EngineRun(QScriptEngine& engine) : m_engine(engine), m_isOutermost(owner.load() == std::thread::id())
{
    const std::thread::id self = std::this_thread::get_id();
    if (m_isOutermost) {
        owner = self;
        running = &engine;
        if (const auto& interrupter = OMC::JavascriptInterrupter::installed())
            interrupter->runBegins(&abortRun);
    } else if (owner.load() != self) {
        throw OMC::Exception(OMC::JavascriptObject::tr("Javascript is running on another thread."));
    }
}

EngineRun::~EngineRun()
{
    end();
}

void EngineRun::end()
{
    if (!m_isOutermost || std::exchange(m_isOver, true))
        return;
    if (const auto& interrupter = OMC::JavascriptInterrupter::installed())
        interrupter->runEnds();
    running = nullptr;
    owner = std::thread::id();
    dropReleased();
}

void EngineRun::report(const QScriptValue& result)
{
    if (m_engine.hasUncaughtException()) {
        const QScriptValue exception = m_engine.uncaughtException();
        const QStringList backtrace = m_engine.uncaughtExceptionBacktrace();
        m_engine.clearExceptions();
        const auto& interrupter = OMC::JavascriptInterrupter::installed();
        if (m_isOutermost && m_engine.wasAborted() && interrupter) {
            end();
            interrupter->throwInterrupted();
        }
        fail(exception, backtrace);
    }
    if (result.isError())
        fail(result, {});
}

void EngineRun::fail(const QScriptValue& error, const QStringList& backtrace)
{
    static const QString sentence =
        OMC::JavascriptObject::tr("Uncaught exception running script file %1 at line %2: %3");
    const QScriptValue file = error.property(QStringLiteral("fileName"));
    const double line = error.property(QStringLiteral("lineNumber")).toInteger();
    QString text = sentence.arg(file.isString() ? file.toString() : QStringLiteral("memory"),
                                QString::number(static_cast<int>(line)), error.toString());
    if (!backtrace.isEmpty())
        text += u'\n' + backtrace.join(u'\n');
    m_engine.clearExceptions();
    throw OMC::JavascriptError(text, causeOf(error), backtrace);
}

} // namespace brindle::javascript
