#include "app/desk/interrupthelper.h"

#include "app/desk/interruptwindow.h"

#include <QApplication>

#include <spawn.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>

namespace app::desk {

void InterruptHelper::begin()
{
    if (m_process != 0)
        return;
    char option[] = "--interrupter";
    char* const arguments[] = {m_program.data(), option, nullptr};
    if (posix_spawn(&m_process, m_program.constData(), nullptr, nullptr, arguments, environ) != 0)
        m_process = 0;
}

void InterruptHelper::end()
{
    if (m_process == 0)
        return;
    kill(m_process, SIGTERM);
    waitpid(m_process, nullptr, 0);
    m_process = 0;
}

int offerInterrupt()
{
    const pid_t desk = getppid();
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (getppid() != desk)
        return 0;
    InterruptWindow window([desk] { kill(desk, SIGINT); });
    window.show();
    return QApplication::exec();
}

} // namespace app::desk
