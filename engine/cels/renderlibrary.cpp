#include "engine/cels/renderlibrary.h"

#include "core/host/application.h"

#include <QFile>

#include <dlfcn.h>

namespace brindle::engine {

namespace {

struct Loaded {
    const RenderLibrary* library = nullptr;
    QString error;
};

Loaded load()
{
    const QByteArray path = QFile::encodeName(oswUtil::getBinDir() + QStringLiteral("/libBrindleRender.so"));
    void* file = dlopen(path.constData(), RTLD_NOW);
    void* function = file ? dlsym(file, "brindleRenderLibrary") : nullptr;
    if (!function)
        return {nullptr, QStringLiteral("Pictures can't be loaded: %1").arg(QString::fromLocal8Bit(dlerror()))};
    return {reinterpret_cast<const RenderLibrary* (*)()>(function)(), {}};
}

} // namespace

const RenderLibrary* RenderLibrary::find(QString& error)
{
    static const Loaded loaded = load();
    if (!loaded.library)
        error = loaded.error;
    return loaded.library;
}

} // namespace brindle::engine

std::unique_ptr<CEL_Renderer> CEL_Renderer::create(QString& error)
{
    const auto* library = brindle::engine::RenderLibrary::find(error);
    return library ? library->renderer() : nullptr;
}
