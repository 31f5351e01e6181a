#include "core/frame/undo.h"

#include "core/frame/exception.h"
#include "core/host/sc_scene.h"

#include <QCoreApplication>

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

void cancel(CO_CommandAccumScope& scope)
{
    if (!scope.cancel())
        throw Exception(QCoreApplication::translate("OMC::undo", "Failed to take back \"%1\"; what is left of it is on "
                                                                 "the undo list.")
                            .arg(scope.sessionName()));
}

Scope::Scope(CO_CommandManager& manager, const QString& label)
    : m_scope(&manager, label, nullptr, CO_CommandAccumScope::kDefault),
      m_exceptions(std::uncaught_exceptions())
{}

Scope::~Scope()
{
    // The exception that is on its way says why; the log tells where a step refuses to be taken back.
    if (std::uncaught_exceptions() > m_exceptions)
        m_scope.cancel();
}

} // namespace OMC::undo
