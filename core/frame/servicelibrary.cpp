#include "core/frame/servicelibrary.h"

#include "core/host/application.h"
#include "core/host/msg_scope.h"

#include <QDir>
#include <QFile>

#include <dlfcn.h>

namespace OMC {

namespace {

constexpr const char* fileName = "/libBrindleObjectModelServiceLib.so";

void* libraryHandle = nullptr;

} // namespace

void loadServiceLibrary()
{
    if (libraryHandle)
        return;
    const QString before = QDir::currentPath();
    const QString bin = oswUtil::getBinDir();
    QDir::setCurrent(bin);
    libraryHandle = dlopen(QFile::encodeName(bin + fileName).constData(), RTLD_NOW);
    if (!libraryHandle)
        MSG_Scope(QString::fromLocal8Bit(dlerror()), MSG_Scope::kDebug);
    QDir::setCurrent(before);
}

} // namespace OMC
