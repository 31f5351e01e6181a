#include "qtscript/applicationscope.h"

#include <QThreadPool>

#include <clocale>

namespace {

int argumentCount = 1;
char programName[] = "qtscript";
char* programArguments[] = {programName, nullptr};

} // namespace

ApplicationScope::ApplicationScope()
{
    if (QCoreApplication::instance())
        return;
    // Qt doesn't make its thread pool any more after an application has ended, and others in the process need the pool.
    QThreadPool::globalInstance();
    m_locale = std::setlocale(LC_ALL, nullptr);
    m_own.emplace(argumentCount, programArguments);
    std::setlocale(LC_ALL, m_locale.c_str());
}

ApplicationScope::~ApplicationScope()
{
    end();
}

void ApplicationScope::end()
{
    m_own.reset();
}
