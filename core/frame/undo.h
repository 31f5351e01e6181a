#pragma once

#include "core/frame/export.h"
#include "core/frame/unexpected.h"
#include "core/host/co_command.h"

#include <QString>

class SC_SceneCommon;

/// How a wrapper changes the project: one command, one label.
namespace OMC::undo {

/// The command manager of a scene; throws the sentence when the scene or its manager is missing.
BRINDLE_CORE_EXPORT CO_CommandManager& manager(const SC_SceneCommon* scene, const QString& failure);
/// The same with one of the sentences that name no cause, which is made only when it is needed.
BRINDLE_CORE_EXPORT CO_CommandManager& manager(const SC_SceneCommon* scene,
                                               unexpected::Sentence failure = unexpected::ErrorOccurred);

/// Runs a command, which the manager takes, under its label; throws the sentence when it fails.
BRINDLE_CORE_EXPORT void run(CO_CommandManager& manager, CO_Command* command, const QString& label,
                             const QString& failure);

/// Takes back what was done in a scope; throws where a step of it refuses, which is then on the undo list.
BRINDLE_CORE_EXPORT void cancel(CO_CommandAccumScope& scope);

/// Several commands as one undo entry; an exception that leaves the scope undoes them.
class BRINDLE_CORE_EXPORT Scope {
public:
    Scope(CO_CommandManager& manager, const QString& label);
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
    ~Scope();

    void cancel() { undo::cancel(m_scope); }

private:
    CO_CommandAccumScope m_scope;
    int m_exceptions;
};

} // namespace OMC::undo
