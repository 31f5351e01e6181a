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
    Q_PROPERTY(OMC::Obj clipboard READ getClipboard)
    Q_PROPERTY(OMC::Obj javascript READ getJavascript)
    Q_PROPERTY(OMC::Obj preferences READ getPreferences)
    Q_PROPERTY(OMC::Obj actions READ getActions)
    Q_PROPERTY(OMC::Obj about READ getAbout)
    Q_PROPERTY(OMC::Obj metrics READ getMetrics)
    Q_PROPERTY(OMC::Obj views READ getViews)
    Q_PROPERTY(OMC::Obj tools READ getTools)
    Q_PROPERTY(OMC::Obj selection READ getSelection)

public:
    explicit ServiceApplication(SC_SessionContext* session);
    ServiceApplication(const ServiceApplication& other) = default;

    OMC::BaseObject* copy() const override;

    OMC::Obj getProject() const override; ///< The open project, a Project.
    OMC::Obj getScenes() const override;  ///< The project's scenes, a SceneList.
    OMC::Obj getScene() const;            ///< The project's first scene.

    OMC::Obj getElements() const;    ///< The project's elements.
    OMC::Obj getClipboard() const;   ///< The clipboard of the project's first scene.
    OMC::Obj getJavascript() const;  ///< The Javascript of the application.
    OMC::Obj getPreferences() const; ///< The preferences of the person. On the main thread alone.
    OMC::Obj getActions() const;     ///< The actions of menus and toolbars. On the main thread alone.
    OMC::Obj getAbout() const;       ///< What the script runs in.
    OMC::Obj getMetrics() const;     ///< Measures how fast the scene is shown.
    OMC::Obj getViews() const;       ///< The kinds of views, by name.
    OMC::Obj getTools() const;       ///< The tools; there are none yet.
    OMC::Obj getSelection() const;   ///< The selection, which holds nothing yet.

    /// The manager of the project, which is still the one that this application was made for; throws otherwise.
    SC_ProjectManager& projectManager() const;
    bool isOpen() const { return m_project.get(); }

private:
    SC_ProjectCommon* project() const;

    OMC::WeakHandle<SC_ProjectCommon> m_project;
};

} // namespace brindle
