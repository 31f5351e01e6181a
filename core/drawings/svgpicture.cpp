#include "core/drawings/svgpicture.h"

#include "core/frame/exception.h"
#include "core/host/application.h"

#include <QFile>

#include <dlfcn.h>

namespace OMC::svg {

Picture read(const QByteArray& text)
{
    using Read = void (*)(const QByteArray&, Picture&);
    static const Read readText = [] {
        const QByteArray path = QFile::encodeName(oswUtil::getBinDir() + QStringLiteral("/libBrindleSvg.so"));
        void* library = dlopen(path.constData(), RTLD_NOW);
        void* function = library ? dlsym(library, "brindleReadSvg") : nullptr;
        if (!function)
            throw Exception(QStringLiteral("SVG can't be read: %1").arg(QString::fromLocal8Bit(dlerror())));
        return reinterpret_cast<Read>(function);
    }();
    Picture picture;
    readText(text, picture);
    return picture;
}

Picture readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Exception(QStringLiteral("\"%1\" can't be read: %2.").arg(path, file.errorString()));
    try {
        return read(file.readAll());
    } catch (const Exception& failure) {
        throw Exception(QStringLiteral("\"%1\": %2").arg(path, QString::fromStdString(failure.message())));
    }
}

} // namespace OMC::svg
