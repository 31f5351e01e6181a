#include "app/command.h"
#include "app/desk/desk.h"

#include <QApplication>
#include <QFile>

#include <clocale>

namespace {

/// Qt ends the process with a crash report where it finds no display.
bool hasDisplay()
{
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(name))
            return true;
    }
    return false;
}

} // namespace

int main(int count, char** arguments)
{
    std::setlocale(LC_ALL, "");
    QStringList texts;
    for (int i = 1; i < count; ++i)
        texts.append(QFile::decodeName(arguments[i]));
    const app::desk::Options options = app::desk::optionsFrom(texts);
    if (!options.error.isEmpty())
        return app::fail(options.error, app::misused);
    if (!hasDisplay())
        return app::fail("There is no display to open a window on.", app::failed);

    // The arguments are all our own.
    int own = 1;
    const QApplication application(own, arguments);
    QApplication::setApplicationName("brindle");
    QApplication::setApplicationDisplayName("Brindle");
    // Qt takes on the person's locale for all; numbers in texts and scripts keep their ".".
    std::setlocale(LC_NUMERIC, "C");
    return app::desk::run(options);
}
