#include "app/command.h"

#include <QCoreApplication>
#include <QFile>

#include <unistd.h>
#include <cerrno>
#include <cstring>
#include <vector>

namespace app {

/// The windows are a program of their own beside this one: what draws them costs the other commands nothing. It takes
/// this process over, and gives its exit code.
int openDesk(const QList<QByteArray>& arguments)
{
    const QByteArray program = QFile::encodeName(QCoreApplication::applicationDirPath() + "/brindle-desk");
    QList<QByteArray> texts = {program};
    texts += arguments;
    std::vector<char*> pointers;
    for (QByteArray& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    execv(program.constData(), pointers.data());
    return fail(QString("Cannot start \"%1\": %2.").arg(QFile::decodeName(program), std::strerror(errno)), failed);
}

} // namespace app
