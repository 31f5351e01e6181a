#pragma once

#include "core/host/sc_scene.h"
#include "engine/curves/columnlist.h"
#include "engine/graph/scenegraph.h"
#include "engine/session/changemanager.h"

namespace engine {

class ProjectCommon;

/// The frames of a scene: 1 to count, played from start to stop.
struct SceneTiming {
    int count = 60;
    int start = 1;
    int stop = 60;
    double rate = 24.0;
    bool operator==(const SceneTiming&) const = default;

    static constexpr int maxCount = 1'000'000;
    /// 1 <= start <= stop <= count <= maxCount, and a rate that is a positive, finite number.
    bool isValid() const;
};

/// A scene of a project, which it belongs to: timing, node graph and columns.
///
/// The stop frame follows the last frame where it stands on it; else the range is held within the frames there are.
class Scene final : public TUScene, public SC_SceneCommon, public ColumnListOwner {
public:
    Scene(ProjectCommon& project, const SC_Id& id, const QString& name, const SceneTiming& timing);
    ~Scene() override;

    SceneGraph& graph() { return m_graph; }
    ColumnList& columnList() override { return m_columns; }
    ChangeManager& changes() { return m_changes; }
    const SceneTiming& timing() const { return m_timing; }
    void setTiming(const SceneTiming& timing); ///< At once and not undoable: commands call it.

    SC_Id id() const override { return m_id; }
    QString name() const override { return m_name; }

    Iterator timedValuesBegin() const override { return m_columns.begin(); }
    Iterator timedValuesEnd() const override { return m_columns.end(); }
    TUTimedValue* findTimedValue(const QString& name, int) const override { return m_columns.find(name); }

    SC_SceneCommon* sceneCommon() const override { return const_cast<Scene*>(this); }
    SC_ProjectCommon* projectCommon() const override;
    CO_CommandManager* commandManager() const override;
    TUSceneChangeManager* changeManager() const override { return const_cast<ChangeManager*>(&m_changes); }
    TUGroup* getRootGroup() const override { return rootGroup(); }
    UT_FrameRate frameRate() const override { return UT_FrameRate(m_timing.rate); }

    int getNumberOfFrames() const override { return m_timing.count; }
    /// A change that reaches beyond the last frame, leaves no frame or makes more than the most is left out.
    void setNumberOfFrames(int at, int delta, bool rippleMarkers, bool) override;
    bool setStartFrame(int frame) override;
    bool setStopFrame(int frame) override;

    SC_TimedValueListInterface* timedValues() const override { return const_cast<Scene*>(this); }
    TUGroup* rootGroup() const override { return &const_cast<SceneGraph&>(m_graph).root(); }
    int getStartFrame() const override { return m_timing.start; }
    int getStopFrame() const override { return m_timing.stop; }
    QString generateNodeName(const QString& base, const TUGroup* group) const override;

private:
    ProjectCommon& m_project;
    SC_Id m_id;
    QString m_name;
    SceneTiming m_timing;
    ChangeManager m_changes;
    ColumnList m_columns;
    SceneGraph m_graph;
};

/// The engine's scene behind what its nodes see of it, or null for null and for a scene that is not the engine's.
Scene* engineScene(SC_SceneCommon* scene);

} // namespace engine
