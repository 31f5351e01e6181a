#include "app/command.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>

#include <vector>

namespace app {

namespace {

using RunScript = int (*)(int count, char** arguments, const char* project);

/// The service library's way to run a script; null, with the reason, when it can't be loaded. Both libraries stay.
RunScript loadService(QString& error)
{
    QLibrary python(BRINDLE_PYTHON_LIBRARY);
    python.setLoadHints(QLibrary::ExportExternalSymbolsHint);
    QLibrary service(QCoreApplication::applicationDirPath() + "/../lib/libBrindleObjectModelServiceLib.so");
    if (!python.load() || !service.load()) {
        error = python.isLoaded() ? service.errorString() : python.errorString();
        return nullptr;
    }
    const auto run = reinterpret_cast<RunScript>(service.resolve("brindle_run_script"));
    if (!run)
        error = service.errorString();
    return run;
}

} // namespace

int runScript(const QStringList& arguments)
{
    QStringList rest = arguments;
    QString project;
    if (rest.value(0) == "--project") {
        if (rest.size() < 2)
            return fail("--project needs a folder.", misused);
        project = rest.at(1);
        rest.remove(0, 2);
    }
    if (rest.isEmpty() || rest.first().startsWith("--"))
        return fail("Usage: brindle run [--project DIR] SCRIPT [ARGUMENT...]", misused);
    if (!QFileInfo(rest.first()).isFile())
        return fail(QString("There is no script \"%1\".").arg(rest.first()), failed);

    QString error;
    const RunScript run = loadService(error);
    if (!run)
        return fail(QString("Scripting can't be loaded: %1").arg(error), failed);
    QList<QByteArray> texts;
    std::vector<char*> pointers;
    for (const QString& argument : rest)
        texts.append(argument.toLocal8Bit());
    for (QByteArray& text : texts)
        pointers.push_back(text.data());
    const QByteArray folder = project.toUtf8();
    return run(static_cast<int>(pointers.size()), pointers.data(), project.isEmpty() ? nullptr : folder.constData());
}

} // namespace app
