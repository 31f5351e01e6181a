#pragma once

#include "core/host/msg_scope.h"

#include <QByteArray>
#include <QString>

namespace brindle::engine {

/// The form of a message on standard error, where the log goes unless the program sets another sink: "Error: " ahead
/// of an error, "Debug: " ahead of a debug message, a plain line else. Debug messages are written only in a verbose log
/// (engine/engine.h); the text is empty then.
QByteArray messageLine(const QString& message, MSG_Scope::Action action);

} // namespace brindle::engine
