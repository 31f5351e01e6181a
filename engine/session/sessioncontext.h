#pragma once

#include "core/host/sc_session.h"
#include "core/host/scp_pythonengine.h"
#include "engine/session/actionmanager.h"
#include "engine/session/colorspaces.h"
#include "engine/session/projectmanager.h"
#include "engine/session/projectresponder.h"
#include "engine/stage/stage.h"

#include <memory>

namespace brindle::engine {

/// A run of the open engine. While it lives it is the session that PLUG_Services gives, unless another was made after
/// it. With a Python engine the application's thread rules hold in it; without one, as in a plain interpreter, none do.
class SessionContext final : public SC_SessionContext {
public:
    explicit SessionContext(std::unique_ptr<SCP_PythonEngine> python = nullptr);
    SessionContext(const SessionContext&) = delete;
    SessionContext& operator=(const SessionContext&) = delete;
    ~SessionContext() override;

    SC_ProjectManager* projectManager() const override { return const_cast<ProjectManager*>(&m_projects); }
    SC_ProjectCommon* projectCommon() const override;
    CO_CommandManager* commandManager() const override;
    TUSceneChangeManager* changeManager() const override;
    SCP_PythonEngine* pythonEngine() const override { return m_python.get(); }
    CEL_ColorSpaceManager* colorSpaceManager() const override;
    AC_Manager* actionManager() const override { return const_cast<ActionManager*>(&m_actions); }
    PLUG_StageInterface* stage() const override { return const_cast<Stage*>(&m_stage); }
    PLUG_CurrentFrameInterface* currentFrames() const override { return const_cast<Stage*>(&m_stage); }

private:
    Stage m_stage{*this};
    ProjectManager m_projects{[this] { m_stage.projectGone(); }};
    ColorSpaceManager m_colorSpaces; ///< Those without a project.
    std::unique_ptr<SCP_PythonEngine> m_python;
    ProjectResponder m_projectResponder{*this};
    ActionManager m_actions{m_projectResponder};
};

} // namespace brindle::engine
