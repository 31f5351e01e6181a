#include "engine/session/messages.h"

#include <cstdio>

namespace engine {

QByteArray messageLine(const QString& message, MSG_Scope::Action action)
{
    switch (action) {
    case MSG_Scope::kError:
        return "Error: " + message.toUtf8() + '\n';
    case MSG_Scope::kDebug:
        return qEnvironmentVariableIsEmpty("BRINDLE_DEBUG") ? QByteArray() : "Debug: " + message.toUtf8() + '\n';
    case MSG_Scope::kLog:
        break;
    }
    return message.toUtf8() + '\n';
}

} // namespace engine

MSG_Scope::MSG_Scope(const QString& message, Action action)
{
    // One call a line, so that lines of several threads don't mix.
    const QByteArray line = engine::messageLine(message, action);
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
}

MSG_Scope::MSG_Scope(const char* context, const char* message, Action action, int)
    : MSG_Scope(QString::fromUtf8(context) + ": " + QString::fromUtf8(message), action)
{}
