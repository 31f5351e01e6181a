#include "core/host/co_command.h"

namespace {

CO_CommandManager* managerOf(const UT_SharedWeakPtrBase& handle)
{
    return static_cast<CO_CommandManager*>(handle.get());
}

} // namespace

CO_CommandAccumScope::CO_CommandAccumScope(CO_CommandManager* manager, const QString& label, CO_MacroCommand*, Mode)
    : m_label(label)
{
    m_manager.assign(manager);
    if (manager)
        manager->openScope(label);
}

CO_CommandAccumScope::~CO_CommandAccumScope()
{
    CO_CommandManager* manager = managerOf(m_manager);
    if (m_open && manager)
        manager->closeScope();
}

bool CO_CommandAccumScope::cancel()
{
    CO_CommandManager* manager = managerOf(m_manager);
    return !std::exchange(m_open, false) || !manager || manager->cancelScope();
}
