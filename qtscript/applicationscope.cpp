#include "qtscript/applicationscope.h"

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
