#include "engine/session/scripting.h"

#include "core/host/application.h"
#include "core/host/msg_scope.h"
#include "core/host/sc_session.h"

#include <QFile>

#include <dlfcn.h>

namespace {

/// The library that has Javascript, which is loaded when a session first asks for it.
struct ScriptingLibrary {
    PLUG_ScriptingInterface* (*interface)() = nullptr;
    void (*end)() = nullptr;
};

ScriptingLibrary scripting;
bool isLoaded = false;

void load()
{
    const QByteArray path = QFile::encodeName(oswUtil::getBinDir() + QStringLiteral("/libBrindleJavascript.so"));
    void* library = dlopen(path.constData(), RTLD_NOW);
    if (library) {
        scripting.interface =
            reinterpret_cast<PLUG_ScriptingInterface* (*)()>(dlsym(library, "brindleScriptingInterface"));
        scripting.end = reinterpret_cast<void (*)()>(dlsym(library, "brindleEndScripting"));
    }
    if (!scripting.interface || !scripting.end) {
        scripting = {};
        MSG_Scope(QStringLiteral("Javascript can't be loaded: %1").arg(QString::fromLocal8Bit(dlerror())),
                  MSG_Scope::kError);
    }
}

} // namespace

PLUG_ScriptingInterface* PLUG_Services::getScriptingInterface()
{
    if (!getSessionContext())
        return nullptr;
    if (!std::exchange(isLoaded, true))
        load();
    return scripting.interface ? scripting.interface() : nullptr;
}

void brindle::engine::endScripting()
{
    if (scripting.end)
        scripting.end();
}
