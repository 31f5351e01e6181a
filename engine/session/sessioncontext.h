#pragma once

#include "core/host/sc_session.h"
#include "engine/session/projectmanager.h"

namespace engine {

/// A run of the open engine. While it lives it is the session that PLUG_Services gives, unless another was made after
/// it. It has no Python engine: whoever runs Python in the process brings its own.
class SessionContext final : public SC_SessionContext {
public:
    SessionContext();
    SessionContext(const SessionContext&) = delete;
    SessionContext& operator=(const SessionContext&) = delete;
    ~SessionContext() override;

    SC_ProjectManager* projectManager() const override { return const_cast<ProjectManager*>(&m_projects); }
    SC_ProjectCommon* projectCommon() const override;
    CO_CommandManager* commandManager() const override;
    TUSceneChangeManager* changeManager() const override;
    SCP_PythonEngine* pythonEngine() const override { return nullptr; }

private:
    ProjectManager m_projects;
};

} // namespace engine
