#include "qtscript/stacksizescope.h"

#include <QtGlobal>

#include <utility>

namespace {

struct Stack {
    const char* variable;
    int size; ///< In bytes, a multiple of a page.
};

constexpr Stack stacks[] = {
    {"QV4_JS_MAX_STACK_SIZE", 256 * 1024 * 1024}, // 32 million values.
    {"QV4_GC_MAX_STACK_SIZE", 128 * 1024 * 1024}, // 16 million objects.
};

} // namespace

StackSizeScope::StackSizeScope()
{
    for (std::size_t i = 0; i < m_isSet.size(); ++i) {
        m_isSet[i] = !qEnvironmentVariableIsSet(stacks[i].variable);
        if (m_isSet[i])
            qputenv(stacks[i].variable, QByteArray::number(stacks[i].size));
    }
}

void StackSizeScope::end()
{
    for (std::size_t i = 0; i < m_isSet.size(); ++i) {
        if (std::exchange(m_isSet[i], false))
            qunsetenv(stacks[i].variable);
    }
}
