#pragma once

#include "core/host/export.h"
#include "core/host/ut_sharedweak.h"

#include <QString>

#include <memory>

class AC_Manager;
class CEL_ColorSpaceManager;
class CO_CommandManager;
class MO_Node;
class PLUG_CurrentFrameInterface;
class PLUG_NetworkViewInterface;
class PLUG_ScriptingInterface;
class PLUG_StageInterface;
class SC_AdvancedFlags;
class SC_Project;
class SC_ProjectCommon;
class SC_ProjectManager;
class SC_Resolution;
class SC_SceneBase;
class SC_SceneManager;
class SC_SceneMetrics;
class SC_SessionContext;
class SCP_PythonEngine;
class SL_Selection;
class TUDbAccess;
class TUDbSceneData;
class TUElementMgr;
class TUScene;
class TUSceneChangeManager;
class UT_FrameRate;
struct TURect;

/// The way to the host's session from anywhere.
class BRINDLE_HOST_EXPORT PLUG_Services {
public:
    /// The host's session, or null when there is none.
    static SC_SessionContext* getSessionContext();
    /// Makes a session, which stays its owner's, the one that is given; null for none. A host that brings a session of
    /// its own installs it here.
    static void setSessionContext(SC_SessionContext* session);
    /// The host's Javascript, of the session; null where there is no session, or no Javascript.
    static PLUG_ScriptingInterface* getScriptingInterface();
    /// What the session shows; null where there is no session, or it shows nothing.
    static PLUG_StageInterface* getStageInterface();
    static PLUG_CurrentFrameInterface* getCurrentFrameInterface(); ///< Null where the one above is.

    /// The view that draws nodes, or null while there is none. An application that has one installs it here, and takes
    /// it away again before it goes.
    static PLUG_NetworkViewInterface* getNetworkViewInterface();
    static void setNetworkViewInterface(PLUG_NetworkViewInterface* view);
};

/// A view that draws the node graph.
class BRINDLE_HOST_EXPORT PLUG_NetworkViewInterface {
public:
    virtual ~PLUG_NetworkViewInterface() = default;
    virtual void showNode(MO_Node* node) = 0; ///< Brings the node into view.
    /// Fills in the box that the node is drawn in; it is left alone for a node that isn't drawn. The second argument is
    /// always 0.
    virtual void getNodeRect(const MO_Node* node, unsigned int, TURect& rect) const = 0;
};

/// The identity of a project or scene within a session.
class BRINDLE_HOST_EXPORT SC_Id {
public:
    explicit SC_Id(unsigned int value = 0) : m_value(value) {}
    unsigned int value() const { return m_value; }
    bool operator==(const SC_Id& other) const { return m_value == other.m_value; }

private:
    unsigned int m_value;
};

/// A run of the application: at most one project is open in it at a time.
class BRINDLE_HOST_EXPORT SC_SessionContext {
public:
    virtual ~SC_SessionContext() = default;

    /// A new session of the open engine without a Python engine of its own, as a plain interpreter uses it. It becomes
    /// the one that PLUG_Services gives, until it is destroyed.
    static std::unique_ptr<SC_SessionContext> create();

    virtual SC_ProjectManager* projectManager() const = 0;
    virtual SC_ProjectCommon* projectCommon() const = 0;     ///< The open project's, or null.
    virtual CO_CommandManager* commandManager() const = 0;   ///< The open project's, or null.
    virtual TUSceneChangeManager* changeManager() const = 0; ///< That of the open project's first scene, or null.
    virtual SCP_PythonEngine* pythonEngine() const = 0;      ///< Null in a plain interpreter.
    /// Those of the open project, else those that a new one would have; null where the host has none.
    virtual CEL_ColorSpaceManager* colorSpaceManager() const { return nullptr; }
    virtual AC_Manager* actionManager() const { return nullptr; }  ///< Null where the host has no actions.
    virtual PLUG_StageInterface* stage() const { return nullptr; } ///< Null where the host shows no scenes.
    virtual PLUG_CurrentFrameInterface* currentFrames() const { return nullptr; } ///< Null where the host has no stage.
};

/// Makes, opens, saves and closes project folders. A failure is one sentence in `error` that names the file and, in a
/// damaged file, the place; the open project and what is on disk are then as before.
class BRINDLE_HOST_EXPORT SC_ProjectManager {
public:
    virtual ~SC_ProjectManager() = default;

    /// Closes the open project, if any, and makes a new one in a folder that holds no project. Null on failure.
    ///
    /// Unsaved changes of the open project are dropped where `howToDiscard` is empty. Otherwise they are a failure,
    /// whose sentence says with this text how they can be dropped.
    virtual SC_Project* createProject(const QString& path, QString& error, const QString& howToDiscard = {}) = 0;
    /// Closes the open project, if any, and opens the one in the folder. Null on failure, as when another process has
    /// it open; the open one then stays open.
    virtual SC_Project* openProject(const QString& path, QString& error, const QString& howToDiscard = {}) = 0;
    /// The same for a project that another process may have open, or that stands where nothing can be written: it can
    /// be changed, but saved in another folder only.
    virtual SC_Project* openProjectReadOnly(const QString& path, QString& error, const QString& howToDiscard = {}) = 0;
    /// Writes the open project to its folder; the folder changes whole or not at all.
    virtual bool saveProject(QString& error) = 0;
    /// Writes the open project to another folder that holds no project, and goes on there. That may also be
    /// its own folder, where it has moved since the project was opened.
    virtual bool saveProjectAs(const QString& path, QString& error) = 0;
    virtual void closeProject() = 0;

    virtual SC_Project* project() const = 0; ///< The open project, or null.
    virtual SC_Project* findProject(const SC_Id& id) const = 0;
};

/// An open project and its scenes.
class BRINDLE_HOST_EXPORT SC_Project {
public:
    virtual ~SC_Project() = default;

    virtual SC_Id id() const = 0;
    virtual QString path() const = 0;    ///< The absolute path of the project's folder.
    virtual bool isReadOnly() const = 0; ///< Whether it can't be saved where it is.
    virtual SC_ProjectCommon* projectCommon() const = 0;
    virtual SC_SceneBase* sceneAt(int index) const = 0; ///< In the project's order; null beyond the end.
    virtual int sceneCount() const = 0;
    /// The label of the change that led to the present state, also of one that was made before the project was opened;
    /// empty when nothing was changed yet.
    virtual QString lastChange() const = 0;
};

/// The settings and managers that all scenes of a project share. SC_ProjectCmds changes the settings undoably.
class BRINDLE_HOST_EXPORT SC_ProjectCommon : public UT_SharedWeakBase {
public:
    virtual SC_Id id() const = 0;
    virtual CO_CommandManager* commandManager() const = 0;
    virtual SC_SceneManager* sceneManager() const = 0;
    virtual TUDbSceneData* dbSceneData() const = 0;
    virtual TUElementMgr* elementManager() const { return nullptr; } ///< Null for a project without elements.
    /// What a person, or a script, has selected in the project; null where the host has no selection.
    virtual SL_Selection* getSelection() const { return nullptr; }
    /// The database that the project lies in; null for a project in a folder, as all of the open engine's are.
    virtual TUDbAccess* dbAccessPriv() const { return nullptr; }

    virtual UT_FrameRate frameRate() const = 0;          ///< That of the first scene.
    virtual const SC_Resolution* resolution() const = 0; ///< The current one, or null.
    virtual double defaultFov() const = 0; ///< In degrees, over the side of the picture that the resolution fits.
    virtual const SC_SceneMetrics* metrics() const = 0;
    virtual CEL_ColorSpaceManager* colorSpaceManager() const = 0;
    virtual QString projectColorSpace() const = 0; ///< The name of the one that the project works in.
    virtual const SC_AdvancedFlags& advancedFlags() const = 0;
};

class BRINDLE_HOST_EXPORT SC_AbstractSceneVisitor {
public:
    virtual ~SC_AbstractSceneVisitor() = default;
    virtual void visit(SC_SceneBase& scene) = 0;
};

class BRINDLE_HOST_EXPORT SC_SceneManager {
public:
    virtual ~SC_SceneManager() = default;

    /// Calls the visitor once for each scene, in the project's order.
    virtual void forAllScenes(SC_AbstractSceneVisitor& visitor) = 0;
    virtual SC_SceneBase* find(const SC_Id& id) const = 0;
    virtual int sceneCount() const = 0;
};
