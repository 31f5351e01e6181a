#include "core/bridges/javascriptbackend.h"

#include "core/host/application.h"

#include <QFile>

#include <dlfcn.h>

namespace OMC {

JavascriptInterrupter::~JavascriptInterrupter() = default;
JavascriptBackend::~JavascriptBackend() = default;

std::unique_ptr<JavascriptInterrupter>& JavascriptInterrupter::installed()
{
    // Never destroyed: a script may run while the process ends.
    static auto* interrupter = new std::unique_ptr<JavascriptInterrupter>;
    return *interrupter;
}

JavascriptBackend& JavascriptBackend::instance()
{
    using Give = JavascriptBackend* (*)();
    static const Give give = [] {
        const QByteArray path = QFile::encodeName(oswUtil::getBinDir() + QStringLiteral("/libBrindleJavascript.so"));
        void* library = dlopen(path.constData(), RTLD_NOW);
        void* function = library ? dlsym(library, "brindleJavascriptBackend") : nullptr;
        if (!function)
            throw Exception(QStringLiteral("Javascript can't be loaded: %1").arg(QString::fromLocal8Bit(dlerror())));
        return reinterpret_cast<Give>(function);
    }();
    return *give();
}

} // namespace OMC
