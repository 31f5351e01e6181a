#include "app/command.h"

#include <QCoreApplication>

#include <algorithm>
#include <clocale>

namespace app {

namespace {

struct Command {
    const Usage& usage;
    int (*run)(const QList<QByteArray>&);
};

constexpr Command commands[] = {
    {runUsage, &runScript}, {deskUsage, &openDesk}, {newUsage, &newProject}, {infoUsage, &projectInfo}};

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
    for (const Command& command : commands) {
        if (name == command.usage.name)
            return command.run(arguments);
    }
    return fail(QString("There is no command \"%1\"; brindle --help lists them.").arg(QString::fromUtf8(name)),
                misused);
}

} // namespace

} // namespace app

int main(int count, char** arguments)
{
    // The arguments are all our own: Qt would take some of them for itself.
    int own = std::min(count, 1);
    const QCoreApplication application(own, arguments);
    // Qt takes on the person's locale for all; numbers in texts and scripts keep their ".".
    std::setlocale(LC_NUMERIC, "C");
    return app::execute(QList<QByteArray>(arguments + own, arguments + count));
}
