#pragma once

#include "core/frame/engineview.h"
#include "core/frame/obj.h"

#include <QString>
#include <QStringList>
#include <QVariant>

#include <vector>

class CO_CommandManager;
class SC_AdvancedFlags;
class SC_ProjectCommon;
class SC_SceneCommon;
class TUDisplayModule;
class TUScene;

namespace OMC {

class FrameOptions;
class GroupNode;
class NodeList;

/// A scene of the project: its timing, what it is seen through, the settings that it shares with the project, and the
/// way to its nodes. Frames count from 1. Invalid once the scene is gone.
class BRINDLE_CORE_EXPORT Scene : public EngineView<TUScene> {
    Q_OBJECT
    BRINDLE_COPYABLE(Scene)
    Q_PROPERTY(OMC::Obj aspect READ getAspect)
    Q_PROPERTY(OMC::Obj units READ getUnits)
    Q_PROPERTY(OMC::Obj center READ getCenter)
    Q_PROPERTY(QString name READ getName WRITE setName)
    Q_PROPERTY(double framerate READ getFramerate WRITE setFramerate)
    Q_PROPERTY(double vector_texture_pixel_density READ getVectorTexturePixelDensity WRITE setVectorTexturePixelDensity)
    Q_PROPERTY(double bitmap_texture_pixel_density READ getBitmapTexturePixelDensity WRITE setBitmapTexturePixelDensity)
    Q_PROPERTY(int frame_count READ getFrameCount WRITE setFrameCount)
    Q_PROPERTY(int frame_start READ getFrameStart WRITE setFrameStart)
    Q_PROPERTY(int frame_stop READ getFrameStop WRITE setFrameStop)
    Q_PROPERTY(QString colorspace READ getColorspace WRITE setColorspace)
    Q_PROPERTY(QStringList colorspaces READ getColorspaces)
    Q_PROPERTY(QVariant camera READ getCamera WRITE setCamera)
    Q_PROPERTY(QVariant camera_path READ getCameraPath WRITE setCameraPath)
    Q_PROPERTY(OMC::Obj unit_converter READ getUnitConverter)
    Q_PROPERTY(std::vector<OMC::Obj> sounds READ getSounds)
    Q_PROPERTY(OMC::Obj top READ getTop)
    Q_PROPERTY(OMC::Obj nodes READ getNodes)
    Q_PROPERTY(OMC::Obj compositions READ getCompositions)
    Q_PROPERTY(QVariant display READ getDisplay WRITE setDisplay)
    Q_PROPERTY(QVariant display_name READ getDisplayName WRITE setDisplayName)
    Q_PROPERTY(QVariantList displays READ getDisplays)
    Q_PROPERTY(QStringList display_names READ getDisplayNames)

public:
    /// Null gives an object that is invalid at its first call.
    explicit Scene(TUScene* scene);

    std::string __str__() const override;

    virtual Obj getAspect() const;             ///< A SceneAspect.
    virtual Obj getUnits() const;              ///< A SceneUnits.
    virtual Obj getCenter() const;             ///< A SceneCenter.
    virtual void setName(const QString& name); ///< Always throws: a scene can't be renamed.
    virtual QString getName() const;
    virtual void setFramerate(double framesPerSecond);
    virtual double getFramerate() const;

    /// How finely new drawings are stored as textures, in pixels for each model unit. A density that the project
    /// doesn't take changes nothing.
    virtual void setVectorTexturePixelDensity(double pixels);
    virtual double getVectorTexturePixelDensity() const;
    virtual void setBitmapTexturePixelDensity(double pixels);
    virtual double getBitmapTexturePixelDensity() const;

    /// Adds frames at the end, or takes them from there; at least 1.
    virtual void setFrameCount(int count);
    virtual int getFrameCount() const;
    virtual void setFrameStart(int frame);
    virtual int getFrameStart() const;
    virtual void setFrameStop(int frame);
    virtual int getFrameStop() const;

    virtual void setColorspace(const QString& name); ///< One of `getColorspaces`, for the whole project.
    virtual QString getColorspace() const;
    virtual QStringList getColorspaces() const;

    /// A camera in any form of NodeList::nodesFromQVariant. What is no truth (null, an empty text, a zero, false)
    /// unsets it.
    virtual void setCamera(const QVariant& camera);
    /// A CameraNode as a plain pointer, which the receiver takes; a null pointer while none is set.
    virtual QVariant getCamera() const;
    virtual void setCameraPath(const QVariant& camera); ///< As `setCamera`.
    virtual QVariant getCameraPath() const;             ///< "NONE" while none is set.

    virtual Obj getUnitConverter() const;       ///< A SceneUnitConverter.
    virtual std::vector<Obj> getSounds() const; ///< Always throws.
    virtual Obj getTop() const;                 ///< The root group.
    GroupNode* newTop() const;                  ///< The same, for a caller that takes the wrapper itself.
    virtual Obj getNodes() const;               ///< All nodes.
    NodeList* newNodes() const;
    virtual Obj getCompositions() const; ///< Always throws.

    virtual QVariant getDisplay() const;              ///< A DisplayNode; a null pointer while no display is set.
    virtual void setDisplay(const QVariant& display); ///< In the forms of `setCamera`.
    /// A null text while the scene has no display, a null pointer while it shows none of those that it has.
    virtual QVariant getDisplayName() const;
    virtual void setDisplayName(const QVariant& display); ///< As `setDisplay`.
    virtual QVariantList getDisplays() const;             ///< The wrappers of all display nodes.
    virtual QStringList getDisplayNames() const;

    /// Inserts frames behind a frame, with all that lies behind it moving along. False for a negative count. Without
    /// options the preferences "RIPPLE_SCENE_MARKERS" and "EXTEND_DRAWING_EXPOSURE" hold.
    bool frameInsert(int at, int count);
    bool frameInsert(int at, int count, const FrameOptions* options);
    /// Removes the frames behind a frame with all that lies on them. False for a negative count.
    bool frameRemove(int at, int count);
    bool frameRemove(int at, int count, const FrameOptions* options);

    TUScene* scene() const; ///< Null once it is gone.
    /// Whether both are of one scene; true also after it is gone.
    bool operator==(const Scene* other) const;

protected:
    void validate() const override;

private:
    SC_SceneCommon& sceneCommon() const;
    SC_ProjectCommon& projectCommon() const;
    CO_CommandManager& commandManager() const;
    void setFlags(const SC_AdvancedFlags& flags, const QString& label);
    void announce() const;
    TUDisplayModule* shownDisplay() const;
};

} // namespace OMC
