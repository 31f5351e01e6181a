#include "app/desk/scriptrunner.h"

namespace app::desk {

template <typename Call>
ScriptRunner::Outcome ScriptRunner::run(Call call)
{
    if (m_running)
        return Outcome::Done;
    m_running = true;
    Q_EMIT started();
    const Outcome outcome = call();
    m_running = false;
    Q_EMIT ended();
    return outcome;
}

ScriptRunner::Outcome ScriptRunner::push(const QString& line)
{
    return run([&] { return m_console.push(line); });
}

ScriptRunner::Outcome ScriptRunner::pushBlock(const QString& text)
{
    return run([&] { return m_console.pushBlock(text); });
}

ScriptRunner::Outcome ScriptRunner::runFile(const QByteArray& path, const QList<QByteArray>& arguments)
{
    return run([&] { return m_console.runFile(path, arguments); });
}

void ScriptRunner::discard()
{
    if (!m_running)
        m_console.discard();
}

void ScriptRunner::interrupt()
{
    m_console.interrupt();
}

BAPP_ScriptConsole::Completion ScriptRunner::complete(const QString& line)
{
    return m_running ? BAPP_ScriptConsole::Completion() : m_console.complete(line);
}

} // namespace app::desk
