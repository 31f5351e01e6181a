#pragma once

#include "core/frame/application.h"
#include "core/frame/weakhandle.h"
#include "core/host/sc_session.h"

namespace brindle {

/// The application with its open project: where a script begins. As a context manager it closes the project at the end
/// and saves nothing by itself.
///
/// When that project closes, or another one is opened in its place, its root objects are no longer valid.
class ServiceApplication : public OMC::Application {
    Q_OBJECT

    Q_PROPERTY(OMC::Obj project READ getProject)
    Q_PROPERTY(OMC::Obj scenes READ getScenes)
    Q_PROPERTY(OMC::Obj scene READ getScene)
    Q_PROPERTY(OMC::Obj elements READ getElements)

public:
    explicit ServiceApplication(SC_SessionContext* session);
    ServiceApplication(const ServiceApplication& other) = default;

    OMC::BaseObject* copy() const override;

    OMC::Obj getProject() const override; ///< The open project, a Project.
    OMC::Obj getScenes() const override;  ///< The project's scenes, a SceneList.
    OMC::Obj getScene() const;            ///< The project's first scene.

    OMC::Obj getElements() const; ///< The project's elements.

    /// The manager of the project, which is still the one that this application was made for; throws otherwise.
    SC_ProjectManager& projectManager() const;
    bool isOpen() const { return m_project.get(); }

private:
    SC_ProjectCommon* project() const;

    OMC::WeakHandle<SC_ProjectCommon> m_project;
};

} // namespace brindle
