#pragma once

#include "core/host/co_command.h"
#include "core/host/export.h"
#include "core/host/sc_session.h"
#include "core/host/ut_sharedweak.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

class CA_CelKey;
class MO_Node;
class PIO_Metadatas;
class SC_SceneCommon;
class SC_SceneMetrics;
class TUCameraModule;
class TUDisplayModule;
class TUElementMgr;
class TUSceneCreateTimedValueParams;
class TUGroup;
class TUScene;
class TUTimedValue;
struct SC_SceneMarker;

/// Frames per second.
class BRINDLE_HOST_EXPORT UT_FrameRate {
public:
    explicit UT_FrameRate(double fps = 24.0) : m_fps(fps) {}
    double fps() const { return m_fps; }
    bool operator==(const UT_FrameRate& other) const { return m_fps == other.m_fps; }

private:
    double m_fps;
};

/// Announces changes of a scene to whoever shows it.
class BRINDLE_HOST_EXPORT TUSceneChangeManager {
public:
    virtual ~TUSceneChangeManager() = default;

    virtual bool isNotifyEnabled() const = 0;
    virtual void setNotifyEnabled(bool enabled) = 0;
    virtual void notify() = 0;                       ///< The scene changed.
    virtual void emitNodeChanged(MO_Node* node) = 0; ///< A value of the node changed.

    /// Edits of drawings, in this order: pictures of the drawing are out of date; a drawing changed; views in which a
    /// person draws may show it at once.
    virtual void emitDrawingsDirty(const CA_CelKey&) {}
    virtual void emitDrawingChanged() {}
    virtual void notifyInteractive() {}

    /// Views are to show another scene, which they do the next time they are told of a change.
    virtual void emitCurrentSceneChanged(TUScene*) {}
    virtual void forceNotify() {}          ///< Tells of all changes that weren't told yet.
    virtual void viewCacheInvalidated() {} ///< Pictures that views keep are out of date.
    /// Calls a function whenever the scene is shown at another frame, for as long as the result lives; that may outlive
    /// the scene.
    [[nodiscard]] virtual std::shared_ptr<void> onCurrentFrameChanged(std::function<void()>) { return nullptr; }
};

/// A scene of a project, as the project lists it.
class BRINDLE_HOST_EXPORT SC_SceneBase : public UT_SharedWeakBase {
public:
    virtual SC_Id id() const = 0;
    virtual QString name() const = 0;
};

/// The columns of a scene, in the order of the exposure sheet.
class BRINDLE_HOST_EXPORT SC_TimedValueListInterface {
public:
    virtual ~SC_TimedValueListInterface() = default;

    using Iterator = TUTimedValue* const*;
    virtual Iterator timedValuesBegin() const = 0;
    virtual Iterator timedValuesEnd() const = 0;
    int timedValueCount() const { return static_cast<int>(timedValuesEnd() - timedValuesBegin()); }

    /// The column of that name, or null. The second argument is always 0.
    virtual TUTimedValue* findTimedValue(const QString& name, int) const = 0;

    /// Makes a new column at the end, with its element and its node where the request says so; one undo entry. Null,
    /// and nothing changes, for a kind that the scene can't have, and for a name that is taken.
    virtual TUTimedValue* createTimedValue(const TUSceneCreateTimedValueParams&) { return nullptr; }
};

/// A scene: its timing, its node graph and its columns. Frames count from 1.
class BRINDLE_HOST_EXPORT TUScene : public SC_SceneBase, public SC_TimedValueListInterface {
public:
    virtual SC_SceneCommon* sceneCommon() const = 0;
    virtual SC_ProjectCommon* projectCommon() const = 0;
    virtual CO_CommandManager* commandManager() const = 0;
    virtual TUSceneChangeManager* changeManager() const = 0;
    virtual TUGroup* getRootGroup() const = 0;
    virtual const SC_SceneMetrics* metrics() const = 0; ///< Those of the project.
    /// The default display; the placeholder (MO_UnconnectedDisplayModule) while none is set though the scene has
    /// displays; null while it has none.
    virtual TUDisplayModule* findDefaultDisplay() const = 0;
    virtual UT_FrameRate frameRate() const = 0;
    virtual PIO_Metadatas* metadatas() const { return nullptr; } ///< Null for a scene that keeps none.

    virtual int getNumberOfFrames() const = 0;
    /// Inserts `delta` frames before frame `at` + 1, or removes -`delta` frames that begin there when it is negative
    /// (at the end of the scene, the last ones), with everything that lies on them. Start and stop frame move along,
    /// but a scene that plays from its first frame or up to its last one still does. One undo entry. `rippleMarkers`
    /// moves the scene markers along; without it they stay at their frames, and those behind the new last frame go. The
    /// last argument is always true. A change that the scene can't take is left out.
    virtual void setNumberOfFrames(int at, int delta, bool rippleMarkers, bool) = 0;

    /// False when the frame lies outside the scene, or start beyond stop. One undo entry otherwise.
    virtual bool setStartFrame(int frame) = 0;
    virtual bool setStopFrame(int frame) = 0;
};

/// The part of a scene that its nodes reach.
class BRINDLE_HOST_EXPORT SC_SceneCommon {
public:
    virtual ~SC_SceneCommon() = default;

    virtual CO_CommandManager* commandManager() const = 0;
    virtual TUSceneChangeManager* changeManager() const = 0;
    virtual SC_TimedValueListInterface* timedValues() const = 0;     ///< The TUScene itself.
    virtual TUElementMgr* elementManager() const { return nullptr; } ///< That of the project.
    virtual TUGroup* rootGroup() const = 0;
    virtual const SC_SceneMetrics* metrics() const = 0; ///< Those of the project.
    /// The camera through which the scene is seen, or null while none is set. The flag is always false.
    virtual TUCameraModule* camera(bool) const = 0;
    /// The display that shows the scene, or null while none is set. A node that leaves the scene is unset, too.
    virtual TUDisplayModule* defaultDisplay() const = 0;
    virtual const std::vector<SC_SceneMarker>& sceneMarkers() const = 0; ///< By their first frames.
    virtual int getNumberOfFrames() const = 0;
    virtual int getStartFrame() const = 0;
    virtual int getStopFrame() const = 0;
    /// A name for a node of this base name that nothing in the group has.
    virtual QString generateNodeName(const QString& base, const TUGroup* group) const = 0;
};

namespace SC_SceneCmds {

/// Sets the frame rate. Fails for a rate that is not a positive, finite number.
class BRINDLE_HOST_EXPORT SetFrameRateCmd final : public CO_EngineCommand {
public:
    SetFrameRateCmd(SC_SceneCommon* scene, const UT_FrameRate& rate);
};

/// Set what the scene is seen through and what shows it; null unsets it. Fail for a node that is not in the scene.
class BRINDLE_HOST_EXPORT SetDefaultCameraCmd final : public CO_EngineCommand {
public:
    SetDefaultCameraCmd(SC_SceneCommon* scene, TUCameraModule* camera);
};

class BRINDLE_HOST_EXPORT SetDefaultDisplayCmd final : public CO_EngineCommand {
public:
    SetDefaultDisplayCmd(SC_SceneCommon* scene, TUDisplayModule* display);
};

/// Adds a new column, which it takes, at places in the scene's list and its view; -1 is the end. Fails when the scene
/// has a column of that name.
class BRINDLE_HOST_EXPORT AddTimedValueCmd final : public CO_EngineCommand {
public:
    AddTimedValueCmd(SC_SceneCommon* scene, TUTimedValue* timedValue, int position, int viewPosition);
};

} // namespace SC_SceneCmds
