#include "engine/session/messages.h"

#include "engine/engine.h"

#include <atomic>
#include <cstdio>
#include <mutex>

namespace brindle::engine {

namespace {

std::atomic<bool> verbose = false;

/// A sink may log itself, so the lock is one that its thread may take again.
struct Log {
    std::recursive_mutex mutex;
    LogSink sink;
};

/// Never destroyed: lines are written until the process ends.
Log& theLog()
{
    static auto* log = new Log;
    return *log;
}

bool writesDebugLines()
{
    return verbose.load(std::memory_order_relaxed) || !qEnvironmentVariableIsEmpty("BRINDLE_DEBUG");
}

} // namespace

void setLogSink(LogSink sink)
{
    Log& log = theLog();
    const std::lock_guard guard(log.mutex);
    log.sink = std::move(sink);
}

void setLogVerbose(bool on)
{
    verbose.store(on, std::memory_order_relaxed);
}

QByteArray messageLine(const QString& message, MSG_Scope::Action action)
{
    switch (action) {
    case MSG_Scope::kError:
        return "Error: " + message.toUtf8() + '\n';
    case MSG_Scope::kDebug:
        return writesDebugLines() ? "Debug: " + message.toUtf8() + '\n' : QByteArray();
    case MSG_Scope::kLog:
        break;
    }
    return message.toUtf8() + '\n';
}

} // namespace brindle::engine

MSG_Scope::MSG_Scope(const QString& message, Action action)
{
    brindle::engine::Log& log = brindle::engine::theLog();
    {
        const std::lock_guard guard(log.mutex);
        // A copy: the sink may put another one in its place.
        if (const brindle::engine::LogSink sink = log.sink) {
            sink(action, message);
            return;
        }
    }
    // One call a line, so that lines of several threads don't mix.
    const QByteArray line = brindle::engine::messageLine(message, action);
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
}

MSG_Scope::MSG_Scope(const char* context, const char* message, Action action, int)
    : MSG_Scope(QString::fromUtf8(context) + ": " + QString::fromUtf8(message), action)
{}
