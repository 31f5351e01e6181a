#include "app/arguments.h"
#include "app/desk/desk.h"
#include "app/desk/interrupthelper.h"

#include <QApplication>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <optional>
#include <utility>

namespace {

constexpr char noDisplay[] = "There is no display to open a window on";

bool hasDisplay()
{
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(name))
            return true;
    }
    return false;
}

/// Qt aborts the process where it can't reach a display. What it says about that is kept for our own sentence.
class Start {
public:
    Start() { qInstallMessageHandler(&note); }
    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;
    ~Start()
    {
        qInstallMessageHandler(nullptr);
        for (const QString& text : std::exchange(s_noted, {}))
            qWarning("%s", qUtf8Printable(text));
    }

private:
    static void note(QtMsgType type, const QMessageLogContext&, const QString& text)
    {
        if (type == QtFatalMsg)
            std::_Exit(app::fail(QString("%1: %2.").arg(noDisplay, s_noted.value(0, text)), app::failed));
        s_noted.append(text);
    }

    static inline QStringList s_noted;
};

} // namespace

int main(int count, char** arguments)
{
    std::setlocale(LC_ALL, "");
    int own = std::min(count, 1);
    const app::desk::Options options = app::desk::optionsFrom({arguments + own, arguments + count});
    if (options.help) {
        app::print(app::helpOf(app::deskUsage));
        return app::done;
    }
    if (!options.error.isEmpty())
        return app::fail(options.error, app::misused);
    if (!hasDisplay())
        return app::fail(QString(noDisplay) + u'.', app::failed);

    // The arguments are all our own: Qt would take some of them for itself.
    std::optional<Start> start(std::in_place);
    const QApplication application(own, arguments);
    start.reset();
    QApplication::setApplicationName("brindle");
    QApplication::setApplicationDisplayName("Brindle");
    // Qt takes on the person's locale for all; numbers in texts and scripts keep their ".".
    std::setlocale(LC_NUMERIC, "C");
    return options.interrupter ? app::desk::offerInterrupt() : app::desk::run(options);
}
