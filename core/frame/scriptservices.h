#pragma once

#include "core/host/application.h"

#include <QString>

#include <cstdio>

namespace OMC {

/// The place where the application registers script services, or null.
inline BAPP_ScriptHost* scriptHost()
{
    const BAPP_Application* application = BAPP_Application::instance();
    return application ? application->scriptHost() : nullptr;
}

/// Writes a loader's failure to standard error as it is, without a line end of its own.
inline void reportScriptFailure(const QString& text)
{
    std::fprintf(stderr, "%s", text.toLocal8Bit().constData());
}

} // namespace OMC
