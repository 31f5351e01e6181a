#pragma once

#include "core/host/application.h"
#include "core/host/sc_advancedflags.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"

#include <QString>

#include <tuple>
#include <vector>

// Stand-ins for what the open engine can't be made to lack or refuse. Every field may be set; null is a missing part.

class StandInChangeManager : public TUSceneChangeManager {
public:
    bool isNotifyEnabled() const override { return enabled; }
    void setNotifyEnabled(bool on) override { enabled = on; }
    void notify() override { ++notices; }
    void emitNodeChanged(MO_Node*) override { ++notices; }

    bool enabled = true;
    int notices = 0;
};

/// A session that is the one of the process while it lives; the one before it comes back afterwards.
class StandInSession : public SC_SessionContext {
public:
    StandInSession() : m_before(PLUG_Services::getSessionContext()) { PLUG_Services::setSessionContext(this); }
    ~StandInSession() override { PLUG_Services::setSessionContext(m_before); }

    SC_ProjectManager* projectManager() const override { return projects; }
    SC_ProjectCommon* projectCommon() const override { return common; }
    CO_CommandManager* commandManager() const override { return commands; }
    TUSceneChangeManager* changeManager() const override { return changes; }
    SCP_PythonEngine* pythonEngine() const override { return python; }
    AC_Manager* actionManager() const override { return actions; }

    SC_ProjectManager* projects = nullptr;
    SC_ProjectCommon* common = nullptr;
    CO_CommandManager* commands = nullptr;
    TUSceneChangeManager* changes = nullptr;
    SCP_PythonEngine* python = nullptr;
    AC_Manager* actions = nullptr;

private:
    SC_SessionContext* m_before;
};

class StandInSceneManager : public SC_SceneManager {
public:
    void forAllScenes(SC_AbstractSceneVisitor& visitor) override
    {
        for (SC_SceneBase* scene : scenes)
            visitor.visit(*scene);
    }
    SC_SceneBase* find(const SC_Id& id) const override
    {
        asked.push_back(id.value());
        for (SC_SceneBase* scene : scenes) {
            if (scene->id() == id)
                return scene;
        }
        return nullptr;
    }
    int sceneCount() const override { return static_cast<int>(scenes.size()); }

    std::vector<SC_SceneBase*> scenes;
    mutable std::vector<unsigned int> asked; ///< The identifiers that were looked for.
};

/// A project with its own scene manager.
class StandInProjectCommon : public SC_ProjectCommon {
public:
    SC_Id id() const override { return SC_Id(7); }
    CO_CommandManager* commandManager() const override { return commands; }
    SC_SceneManager* sceneManager() const override { return scenes; }
    TUDbSceneData* dbSceneData() const override { return sceneData; }
    UT_FrameRate frameRate() const override { return UT_FrameRate(); }
    const SC_Resolution* resolution() const override { return picture; }
    double defaultFov() const override { return fov; }
    const SC_SceneMetrics* metrics() const override { return measures; }
    CEL_ColorSpaceManager* colorSpaceManager() const override { return colorSpaces; }
    QString projectColorSpace() const override { return colorSpace; }
    const SC_AdvancedFlags& advancedFlags() const override { return flags; }

    CO_CommandManager* commands = nullptr;
    SC_SceneManager* scenes = nullptr;
    TUDbSceneData* sceneData = nullptr;
    const SC_Resolution* picture = nullptr;
    double fov = 41.112;
    const SC_SceneMetrics* measures = nullptr;
    CEL_ColorSpaceManager* colorSpaces = nullptr;
    QString colorSpace;
    SC_AdvancedFlags flags;
};

class StandInProject : public SC_Project {
public:
    SC_Id id() const override { return SC_Id(7); }
    QString path() const override { return {}; }
    bool isReadOnly() const override { return false; }
    SC_ProjectCommon* projectCommon() const override { return common; }
    SC_SceneBase* sceneAt(int index) const override { return index == 0 ? first : nullptr; }
    int sceneCount() const override { return first ? 1 : 0; }
    QString lastChange() const override { return {}; }

    SC_ProjectCommon* common = nullptr;
    SC_SceneBase* first = nullptr;
};

class StandInProjectManager : public SC_ProjectManager {
public:
    SC_Project* createProject(const QString&, QString&, const QString&) override { return nullptr; }
    SC_Project* openProject(const QString&, QString&, const QString&) override { return nullptr; }
    SC_Project* openProjectReadOnly(const QString&, QString&, const QString&) override { return nullptr; }
    bool saveProject(QString&) override { return false; }
    bool saveProjectAs(const QString&, QString&) override { return false; }
    void closeProject() override { opened = nullptr; }
    SC_Project* project() const override { return opened; }
    SC_Project* findProject(const SC_Id& id) const override { return opened && opened->id() == id ? opened : nullptr; }

    SC_Project* opened = nullptr;
};

/// A scene of 60 frames that lacks everything and takes no change of its frames.
class StandInScene : public TUScene {
public:
    explicit StandInScene(unsigned int id = 1, const QString& name = {}) : m_id(id), m_name(name) {}

    SC_Id id() const override { return SC_Id(m_id); }
    QString name() const override { return m_name; }
    SC_SceneCommon* sceneCommon() const override { return common; }
    SC_ProjectCommon* projectCommon() const override { return project; }
    CO_CommandManager* commandManager() const override { return commands; }
    TUSceneChangeManager* changeManager() const override { return changes; }
    TUGroup* getRootGroup() const override { return nullptr; }
    const SC_SceneMetrics* metrics() const override { return measures; }
    TUDisplayModule* findDefaultDisplay() const override { return shownBy; }
    UT_FrameRate frameRate() const override { return UT_FrameRate(24.0); }
    int getNumberOfFrames() const override { return 60; }
    void setNumberOfFrames(int at, int delta, bool rippleMarkers, bool last) override
    {
        frameChanges.emplace_back(at, delta, rippleMarkers, last);
    }
    bool setStartFrame(int) override { return false; }
    bool setStopFrame(int) override { return false; }
    Iterator timedValuesBegin() const override { return nullptr; }
    Iterator timedValuesEnd() const override { return nullptr; }
    TUTimedValue* findTimedValue(const QString&, int) const override { return nullptr; }

    SC_SceneCommon* common = nullptr;
    SC_ProjectCommon* project = nullptr;
    CO_CommandManager* commands = nullptr;
    TUSceneChangeManager* changes = nullptr;
    const SC_SceneMetrics* measures = nullptr;
    TUDisplayModule* shownBy = nullptr;
    std::vector<std::tuple<int, int, bool, bool>> frameChanges; ///< The requests, argument by argument.

private:
    unsigned int m_id;
    QString m_name;
};
