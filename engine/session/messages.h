#pragma once

#include "core/host/msg_scope.h"

#include <QByteArray>
#include <QString>

namespace engine {

/// What a message is on standard error, where the open engine keeps its log: "Error: " ahead of an error, "Debug: "
/// ahead of a debug message, a plain line else. Debug messages are written only while the environment variable
/// BRINDLE_DEBUG is set to something; the text is empty then.
QByteArray messageLine(const QString& message, MSG_Scope::Action action);

} // namespace engine
