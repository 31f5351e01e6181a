#include "tests/app/desk/support/process.h"

#include <cstdio>
#include <cstdlib>

namespace {

std::unique_ptr<Process>& theProcess()
{
    static std::unique_ptr<Process> process;
    return process;
}

} // namespace

Process& Process::instance()
{
    if (!theProcess())
        theProcess() = std::make_unique<Process>();
    if (!theProcess()->m_scripting.console()) {
        std::fprintf(stderr, "%s\n", qPrintable(theProcess()->m_scripting.error()));
        std::abort();
    }
    return *theProcess();
}

void Process::end()
{
    theProcess().reset();
}
