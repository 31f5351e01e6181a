#include "core/frame/undo.h"

#include "core/frame/exception.h"
#include "core/host/sc_scene.h"

#include <exception>

namespace OMC::undo {

namespace {

CO_CommandManager* managerOf(const SC_SceneCommon* scene)
{
    return scene ? scene->commandManager() : nullptr;
}

} // namespace

CO_CommandManager& manager(const SC_SceneCommon* scene, const QString& failure)
{
    CO_CommandManager* manager = managerOf(scene);
    if (!manager)
        throw Exception(failure);
    return *manager;
}

CO_CommandManager& manager(const SC_SceneCommon* scene, unexpected::Sentence failure)
{
    CO_CommandManager* manager = managerOf(scene);
    if (!manager)
        unexpected::fail(failure);
    return *manager;
}

void run(CO_CommandManager& manager, CO_Command* command, const QString& label, const QString& failure)
{
    if (!manager.execute(command, label))
        throw Exception(failure);
}

Scope::Scope(CO_CommandManager& manager, const QString& label)
    : m_scope(&manager, label, nullptr, CO_CommandAccumScope::kDefault),
      m_exceptions(std::uncaught_exceptions())
{}

Scope::~Scope()
{
    if (std::uncaught_exceptions() > m_exceptions)
        m_scope.cancel();
}

} // namespace OMC::undo
