#pragma once

#include "core/host/sc_session.h"
#include "core/host/sl_selection.h"
#include "engine/elements/elementfiles.h"
#include "engine/elements/elementmanager.h"
#include "engine/history/commandmanager.h"
#include "engine/palettes/palettestore.h"
#include "engine/session/colorspaces.h"
#include "engine/session/colourfiles.h"
#include "engine/session/metrics.h"
#include "engine/session/projectsettings.h"
#include "engine/session/resolutions.h"
#include "engine/session/scenemanager.h"

namespace brindle::engine {

/// An id that no project and no scene of the process has had: what a script holds of one never finds another one.
SC_Id newId();

/// The part of a project that its scenes share. The undo list is destroyed before the scenes and elements that it
/// refers to.
class ProjectCommon final : public SC_ProjectCommon {
public:
    ProjectCommon(const SC_Id& id, const QString& path) : m_id(id), m_path(path) {}
    ~ProjectCommon() override { expireWeakPointers(); }

    const QString& path() const { return m_path; } ///< The absolute path of the project's folder.
    void setPath(const QString& path) { m_path = path; }

    SceneManager& scenes() { return m_scenes; }
    const SceneManager& scenes() const { return m_scenes; }
    PaletteStore& palettes() { return m_palettes; }
    CommandManager& history() { return m_history; }
    const CommandManager& history() const { return m_history; }
    ElementManager& elements() { return m_elements; }
    const ElementManager& elements() const { return m_elements; }
    ElementFiles& elementFiles() { return m_elementFiles; }
    ColourFiles& colourFiles() { return m_colourFiles; }

    const ProjectSettings& settings() const { return m_settings; }
    /// At once and not undoable: commands call it, with settings that are acceptable.
    void setSettings(const ProjectSettings& settings);

    SC_Id id() const override { return m_id; }
    CO_CommandManager* commandManager() const override { return const_cast<CommandManager*>(&m_history); }
    SC_SceneManager* sceneManager() const override { return const_cast<SceneManager*>(&m_scenes); }
    TUDbSceneData* dbSceneData() const override { return const_cast<DbSceneData*>(&m_dbSceneData); }
    TUElementMgr* elementManager() const override { return const_cast<ElementManager*>(&m_elements); }
    SL_Selection* getSelection() const override { return const_cast<SL_Selection*>(&m_selection); }

    UT_FrameRate frameRate() const override;
    const SC_Resolution* resolution() const override { return &m_settings.picture.resolution; }
    double defaultFov() const override { return m_settings.picture.fov; }
    const SC_SceneMetrics* metrics() const override { return &m_metrics; }
    CEL_ColorSpaceManager* colorSpaceManager() const override { return const_cast<ColorSpaceManager*>(&m_colorSpaces); }
    QString projectColorSpace() const override { return m_settings.colorSpace; }
    const SC_AdvancedFlags& advancedFlags() const override { return m_settings.advancedFlags; }

private:
    SC_Id m_id;
    QString m_path;
    ProjectSettings m_settings;
    Metrics m_metrics{m_settings};
    ColorSpaceManager m_colorSpaces{&m_path};
    ElementManager m_elements{*this};
    ElementFiles m_elementFiles{m_elements};
    ColourFiles m_colourFiles{m_elements.contents()};
    PaletteStore m_palettes;
    SceneManager m_scenes;
    DbSceneData m_dbSceneData{m_palettes, m_scenes, m_path};
    SL_Selection m_selection{nullptr};
    CommandManager m_history;
};

/// The engine's project behind what its scenes see of it, or null for null and for a project that is not the engine's.
ProjectCommon* engineProjectCommon(SC_ProjectCommon* project);

} // namespace brindle::engine
