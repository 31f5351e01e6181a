#include "qtscript/stacksizescope.h"

#include <QtGlobal>

namespace {

constexpr char variable[] = "QV4_JS_MAX_STACK_SIZE";
constexpr int size = 256 * 1024 * 1024; // In bytes, a multiple of a page: 32 million values.

} // namespace

StackSizeScope::StackSizeScope() : m_isSet(!qEnvironmentVariableIsSet(variable))
{
    if (m_isSet)
        qputenv(variable, QByteArray::number(size));
}

void StackSizeScope::end()
{
    if (m_isSet)
        qunsetenv(variable);
    m_isSet = false;
}
