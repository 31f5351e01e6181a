#pragma once

#include "core/host/msg_scope.h"

#include <QByteArray>
#include <QString>

namespace brindle::engine {

/// What a message is on standard error, where the log goes while the program gives it no other place: "Error: " ahead
/// of an error, "Debug: " ahead of a debug message, a plain line else. Debug messages are written only in a verbose log
/// (engine/engine.h); the text is empty then.
QByteArray messageLine(const QString& message, MSG_Scope::Action action);

} // namespace brindle::engine
