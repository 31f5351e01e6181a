#include "app/command.h"

#include <QCoreApplication>

#include <clocale>

namespace app {

namespace {

struct Command {
    const char* name;
    const char* arguments;
    const char* text;
    int (*run)(const QStringList&);
};

constexpr Command commands[] = {
    {"run", "[--project DIR [--read-only]] [--verbose] SCRIPT [--] [ARGUMENT...]",
     "Runs a Python script with the module brindle at hand.", &runScript},
    {"desk", "[--new | --read-only] [--verbose] DIR [--run SCRIPT [ARGUMENT...]]",
     "Opens a project in a window with a script console and the log.", &openDesk},
    {"new", "DIR", "Makes a new project folder.", &newProject},
    {"info", "DIR", "Tells what is in a project, also in one that another process has open.", &projectInfo},
};

QString help()
{
    QString text = "Usage: brindle COMMAND ...\n\nScripts a 2D animation project.\n\nCommands:\n";
    for (const Command& command : commands)
        text += QString("  brindle %1 %2\n      %3\n").arg(command.name, command.arguments, command.text);
    return text + "\nOptions:\n  --help      Shows this text.\n  --version   Shows the version.\n\n"
                  "Exit codes: 0 done, 1 failed, 2 wrong arguments; run and desk give a script's own.\n";
}

int execute(QStringList arguments)
{
    if (arguments.isEmpty())
        return fail("A command is missing; brindle --help lists them.", misused);
    const QString name = arguments.takeFirst();
    if (name == "--help" || name == "-h" || name == "help") {
        print(help());
        return done;
    }
    if (name == "--version") {
        print("brindle " BRINDLE_VERSION "\n");
        return done;
    }
    for (const Command& command : commands) {
        if (name == command.name)
            return command.run(arguments);
    }
    return fail(QString("There is no command \"%1\"; brindle --help lists them.").arg(name), misused);
}

} // namespace

} // namespace app

int main(int count, char** arguments)
{
    const QCoreApplication application(count, arguments);
    // Qt takes on the person's locale for all; numbers in texts and scripts keep their ".".
    std::setlocale(LC_NUMERIC, "C");
    return app::execute(QCoreApplication::arguments().mid(1));
}
