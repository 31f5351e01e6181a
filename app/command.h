#pragma once

#include <QString>
#include <QStringList>

/// The commands of the command line. Each takes the arguments behind its name and gives the process's exit code:
/// 0 when it is done, 1 when it failed, 2 when its arguments don't fit. A failure is one line on standard error.
namespace app {

int runScript(const QStringList& arguments);
int newProject(const QStringList& arguments);
int projectInfo(const QStringList& arguments);
int openDesk(const QStringList& arguments);

constexpr int done = 0;
constexpr int failed = 1;
constexpr int misused = 2;

/// Writes "brindle: <sentence>" to standard error and gives the code.
int fail(const QString& sentence, int code);
void print(const QString& text);

} // namespace app
