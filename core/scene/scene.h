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

class Clipboard;
class ColumnList;
class FrameOptions;
class GroupNode;
class MetaDataHandler;
class NodeList;

/// A scene of the project: its timing, what it is seen through, the settings that it shares with the project, and its
/// nodes. Frames count from 1. Invalid once the scene is gone.
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
    Q_PROPERTY(OMC::Obj metadata READ getMetadata)
    Q_PROPERTY(std::vector<OMC::Obj> sounds READ getSounds)
    Q_PROPERTY(OMC::Obj top READ getTop)
    Q_PROPERTY(OMC::Obj nodes READ getNodes)
    Q_PROPERTY(OMC::Obj compositions READ getCompositions)
    Q_PROPERTY(OMC::Obj columns READ getColumns)
    Q_PROPERTY(QVariant display READ getDisplay WRITE setDisplay)
    Q_PROPERTY(QVariant display_name READ getDisplayName WRITE setDisplayName)
    Q_PROPERTY(QVariantList displays READ getDisplays)
    Q_PROPERTY(QStringList display_names READ getDisplayNames)
    Q_PROPERTY(OMC::Obj clipboard READ getClipboard)

public:
    /// Null gives an object that is invalid at its first call.
    explicit Scene(TUScene* scene);

    std::string __str__() const override;

    virtual Obj getAspect() const; ///< The shape of the field chart's units.
    virtual Obj getUnits() const;  ///< The number of the field chart's units.
    virtual Obj getCenter() const; ///< The coordinates at the centre of the picture.
    virtual void setName(const QString& name);
    virtual QString getName() const; ///< The scene's name; writing it always fails.
    virtual void setFramerate(double framesPerSecond);
    virtual double getFramerate() const; ///< Frames per second.

    virtual void setVectorTexturePixelDensity(double pixels);
    /// Pixels for each model unit in new vector drawings' textures; a density that the project doesn't take changes
    /// nothing.
    virtual double getVectorTexturePixelDensity() const;
    virtual void setBitmapTexturePixelDensity(double pixels);
    /// Pixels for each model unit in new bitmap drawings' textures; a density that the project doesn't take changes
    /// nothing.
    virtual double getBitmapTexturePixelDensity() const;

    virtual void setFrameCount(int count);
    virtual int getFrameCount() const; ///< The number of frames, from 1; writing it adds or removes frames at the end.
    virtual void setFrameStart(int frame);
    virtual int getFrameStart() const; ///< The first frame of the range that is played.
    virtual void setFrameStop(int frame);
    virtual int getFrameStop() const; ///< The last frame of the range that is played.

    virtual void setColorspace(const QString& name);
    /// The name of the colour space that the whole project works in, one of `getColorspaces`.
    virtual QString getColorspace() const;
    virtual QStringList getColorspaces() const; ///< The names of all colour spaces.

    virtual void setCamera(const QVariant& camera);
    /// The default camera, or null; written with a node in any form, or null to unset it.
    ///
    /// It is a plain pointer in the variant, which the receiver takes. What is no truth (an empty text, a zero, false)
    /// unsets it, too.
    virtual QVariant getCamera() const;
    virtual void setCameraPath(const QVariant& camera);
    virtual QVariant getCameraPath() const; ///< The default camera's path, "NONE" without one; written as `getCamera`.

    virtual Obj getUnitConverter() const; ///< The way between fields and OpenGL units.
    virtual Obj getMetadata() const;      ///< The named values that the scene carries along.
    MetaDataHandler* newMetadata() const;
    virtual std::vector<Obj> getSounds() const; ///< Not supported: reading it always fails.
    virtual Obj getTop() const;                 ///< The root group.
    GroupNode* newTop() const;                  ///< The same, for a caller that takes the wrapper itself.
    virtual Obj getNodes() const;               ///< All nodes of the scene, at any depth.
    NodeList* newNodes() const;
    virtual Obj getCompositions() const; ///< Not supported: reading it always fails.
    virtual Obj getColumns() const;      ///< The columns of the scene.
    ColumnList* newColumns() const;

    /// The default display, or null; written with a node in any form, or null to unset it.
    virtual QVariant getDisplay() const;
    virtual void setDisplay(const QVariant& display);
    /// The default display's name, null when none is set, "" when the scene has no display; written as `getDisplay`.
    virtual QVariant getDisplayName() const;
    virtual void setDisplayName(const QVariant& display);
    virtual QVariantList getDisplays() const;    ///< All display nodes.
    virtual QStringList getDisplayNames() const; ///< The names of all display nodes.

    Obj getClipboard() const; ///< What copies nodes of the scene, and pastes into it.
    Clipboard* newClipboard() const;

    /// Inserts frames behind frame `at`, 0 for the very front; what lies behind moves along. False for a negative
    /// count. Without options the preferences "RIPPLE_SCENE_MARKERS" and "EXTEND_DRAWING_EXPOSURE" hold.
    bool frameInsert(int at, int count);
    bool frameInsert(int at, int count, const FrameOptions* options);
    /// Removes the frames behind frame `at` with all that lies on them; false for a negative count.
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
