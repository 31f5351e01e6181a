#include "app/command.h"

#include <QGuiApplication>

#include <algorithm>
#include <clocale>
#include <iterator>
#include <memory>

namespace app {

namespace {

struct Command {
    const Usage& usage;
    int (*run)(const QList<QByteArray>&);
    const char* drawing = nullptr; ///< The option with which it draws text, which needs fonts, and so Qt's platform.
};

constexpr Command commands[] = {{runUsage, &runScript},
                                {deskUsage, &openDesk},
                                {newUsage, &newProject},
                                {infoUsage, &projectInfo},
                                {paletteUsage, &showPalette, "--out"},
                                {drawingUsage, &drawing},
                                {renderUsage, &render},
                                {preferencesUsage, &preferences}};

const Command* commandNamed(const QByteArray& name)
{
    const auto* found = std::find_if(std::begin(commands), std::end(commands),
                                     [&name](const Command& command) { return name == command.usage.name; });
    return found == std::end(commands) ? nullptr : found;
}

std::unique_ptr<QCoreApplication> applicationFor(const QList<QByteArray>& arguments, int& count, char** values)
{
    const Command* command = arguments.isEmpty() ? nullptr : commandNamed(arguments.first());
    if (!command || !command->drawing || !arguments.contains(command->drawing))
        return std::make_unique<QCoreApplication>(count, values);
    // A platform without a screen. What it says of the person's desktop is of no interest here.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const auto handler = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    auto application = std::make_unique<QGuiApplication>(count, values);
    qInstallMessageHandler(handler);
    return application;
}

QString help()
{
    QString text = "Usage: brindle COMMAND ...\n\nScripts a 2D animation project.\n\nCommands:\n";
    for (const Command& command : commands)
        text +=
            QString("  brindle %1 %2\n      %3\n").arg(command.usage.name, command.usage.arguments, command.usage.text);
    return text + "\nbrindle COMMAND --help tells more of a command.\n\n"
                  "Options:\n  --help      Shows this text.\n  --version   Shows the version.\n\n"
                  "Exit codes: 0 done, 1 failed, 2 wrong arguments; run and desk give a script's own.\n";
}

int execute(QList<QByteArray> arguments)
{
    if (arguments.isEmpty())
        return fail("A command is missing; brindle --help lists them.", misused);
    const QByteArray name = arguments.takeFirst();
    if (name == "--help" || name == "-h" || name == "help") {
        print(help());
        return done;
    }
    if (name == "--version") {
        print("brindle " BRINDLE_VERSION "\n");
        return done;
    }
    if (const Command* command = commandNamed(name))
        return command->run(arguments);
    return fail(QString("There is no command \"%1\"; brindle --help lists them.").arg(QString::fromUtf8(name)),
                misused);
}

} // namespace

} // namespace app

int main(int count, char** arguments)
{
    // The arguments are all our own: Qt would take some of them for itself.
    int own = std::min(count, 1);
    const QList<QByteArray> given(arguments + own, arguments + count);
    const auto application = app::applicationFor(given, own, arguments);
    // Qt takes on the person's locale for all; numbers in texts and scripts keep their ".".
    std::setlocale(LC_NUMERIC, "C");
    return app::execute(given);
}
