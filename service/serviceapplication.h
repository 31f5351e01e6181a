#pragma once

#include "core/frame/application.h"
#include "core/frame/weakhandle.h"
#include "core/host/sc_session.h"

namespace brindle {

/// The application of a script's process, with one open project.
///
/// When that project closes, or another one is opened in its place, its root objects are no longer valid.
class ServiceApplication : public OMC::Application {
    Q_OBJECT

    Q_PROPERTY(OMC::Obj project READ getProject)
    Q_PROPERTY(OMC::Obj scenes READ getScenes)
    Q_PROPERTY(OMC::Obj scene READ getScene)

public:
    explicit ServiceApplication(SC_SessionContext* session);
    ServiceApplication(const ServiceApplication& other) = default;

    OMC::BaseObject* copy() const override;

    OMC::Obj getProject() const override;
    OMC::Obj getScenes() const override;
    OMC::Obj getScene() const;

    /// The manager of the project, which is still the one that this application was made for; throws otherwise.
    SC_ProjectManager& projectManager() const;
    bool isOpen() const { return m_project.get(); }

private:
    SC_ProjectCommon* project() const;

    OMC::WeakHandle<SC_ProjectCommon> m_project;
};

} // namespace brindle
