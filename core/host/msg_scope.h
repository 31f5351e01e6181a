#pragma once

#include "core/host/export.h"

class QString;

/// Writes a line to the host's log when it is made. Any thread may, with or without a lock.
class BRINDLE_HOST_EXPORT MSG_Scope {
public:
    enum Action { kError = 2, kLog = 5, kDebug = 6 };

    MSG_Scope(const QString& message, Action action);
    /// A message of the engine, with the place that it comes from; `type` is 0.
    MSG_Scope(const char* context, const char* message, Action action, int type);
};
