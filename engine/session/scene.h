#pragma once

#include "core/host/sc_scene.h"
#include "engine/curves/columnlist.h"
#include "engine/graph/scenegraph.h"
#include "engine/session/changemanager.h"
#include "engine/session/scenemarkers.h"
#include "engine/session/scenemetadata.h"
#include "engine/session/scenetiming.h"

namespace brindle::engine {

class ProjectCommon;

/// A scene of a project, which it belongs to: timing, markers, metadata, node graph, columns, and the nodes that
/// it is seen through.
///
/// The setters change it at once and record nothing: commands, and who reads a project, call them.
class Scene final : public TUScene, public SC_SceneCommon, public ColumnListOwner {
public:
    Scene(ProjectCommon& project, const SC_Id& id, const QString& name, const SceneTiming& timing);
    ~Scene() override;

    SceneGraph& graph() { return m_graph; }
    ColumnList& columnList() override { return m_columns; }
    ChangeManager& changes() { return m_changes; }
    MetadataList& metadataList() { return m_metadata; }
    const MetadataList& metadataList() const { return m_metadata; }
    const SceneTiming& timing() const { return m_timing; }
    void setTiming(const SceneTiming& timing);

    const SceneMarkers& sceneMarkers() const override { return m_markers; }
    void insertMarker(int place, const SC_SceneMarker& marker);
    SC_SceneMarker takeMarker(int place);
    SceneMarkers setMarkers(SceneMarkers markers); ///< Gives those that were there.
    /// Sets the markers of a scene that is read; false, and nothing changes, for a list that the scene can't have.
    bool restoreMarkers(SceneMarkers markers);

    /// A node of this scene, or null for none.
    TUCameraModule* defaultCamera() const { return m_camera; }
    void setDefaultCamera(TUCameraModule* camera);
    TUDisplayModule* defaultDisplay() const override { return m_display; }
    void setDefaultDisplay(TUDisplayModule* display);

    /// Makes all weak pointers to the scene, and to what is in it, read null: it leaves the project.
    void expireAll();

    SC_Id id() const override { return m_id; }
    QString name() const override { return m_name; }

    Iterator timedValuesBegin() const override { return m_columns.begin(); }
    Iterator timedValuesEnd() const override { return m_columns.end(); }
    TUTimedValue* findTimedValue(const QString& name, int) const override { return m_columns.find(name); }

    TUTimedValue* createTimedValue(const TUSceneCreateTimedValueParams& request) override;

    SC_SceneCommon* sceneCommon() const override { return const_cast<Scene*>(this); }
    SC_ProjectCommon* projectCommon() const override;
    CO_CommandManager* commandManager() const override;
    TUSceneChangeManager* changeManager() const override { return const_cast<ChangeManager*>(&m_changes); }
    TUGroup* getRootGroup() const override { return rootGroup(); }
    const SC_SceneMetrics* metrics() const override;
    TUDisplayModule* findDefaultDisplay() const override;
    UT_FrameRate frameRate() const override { return UT_FrameRate(m_timing.rate); }
    PIO_Metadatas* metadatas() const override { return const_cast<MetadataList*>(&m_metadata); }

    int getNumberOfFrames() const override { return m_timing.count; }
    void setNumberOfFrames(int at, int delta, bool rippleMarkers, bool) override;
    bool setStartFrame(int frame) override;
    bool setStopFrame(int frame) override;

    SC_TimedValueListInterface* timedValues() const override { return const_cast<Scene*>(this); }
    TUElementMgr* elementManager() const override;
    TUGroup* rootGroup() const override { return &const_cast<SceneGraph&>(m_graph).root(); }
    TUCameraModule* camera(bool) const override { return m_camera; }
    int getStartFrame() const override { return m_timing.start; }
    int getStopFrame() const override { return m_timing.stop; }
    QString generateNodeName(const QString& base, const TUGroup* group) const override;

private:
    ProjectCommon& m_project;
    SC_Id m_id;
    QString m_name;
    SceneTiming m_timing;
    SceneMarkers m_markers;
    ChangeManager m_changes;
    MetadataList m_metadata{m_changes};
    TUCameraModule* m_camera = nullptr;
    TUDisplayModule* m_display = nullptr;
    std::unique_ptr<TUDisplayModule> m_unconnectedDisplay;
    ColumnList m_columns;
    SceneGraph m_graph;
};

/// A scene for a project, in no list of scenes yet, with an empty root group.
std::unique_ptr<Scene> newScene(ProjectCommon& project, const QString& name, const SceneTiming& timing);
/// Adds what a new scene holds: the display "Top/Display", which is the default one, and the composite "Top/Composite",
/// which feeds it.
void fillNewScene(Scene& scene);

/// The engine's scene behind what its nodes see of it, or null for null and for a scene that is not the engine's.
Scene* engineScene(SC_SceneCommon* scene);

} // namespace brindle::engine
