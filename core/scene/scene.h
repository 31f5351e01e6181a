#pragma once

#include "core/frame/obj.h"
#include "core/frame/weakhandle.h"

#include <QString>

#include <vector>

class SC_SceneCommon;
class TUScene;

namespace OMC {

/// A scene of the project: its timing, and the way to its nodes. Frames count from 1. Invalid once the scene is gone.
class BRINDLE_CORE_EXPORT Scene : public BaseObject {
    Q_OBJECT
    Q_PROPERTY(QString name READ getName WRITE setName)
    Q_PROPERTY(double framerate READ getFramerate WRITE setFramerate)
    Q_PROPERTY(int frame_count READ getFrameCount WRITE setFrameCount)
    Q_PROPERTY(int frame_start READ getFrameStart WRITE setFrameStart)
    Q_PROPERTY(int frame_stop READ getFrameStop WRITE setFrameStop)
    Q_PROPERTY(std::vector<OMC::Obj> sounds READ getSounds)
    Q_PROPERTY(OMC::Obj top READ getTop)
    Q_PROPERTY(OMC::Obj nodes READ getNodes)
    Q_PROPERTY(OMC::Obj compositions READ getCompositions)

public:
    /// Null gives an object that is invalid at its first call.
    explicit Scene(TUScene* scene);

    BaseObject* copy() const override;
    std::string __str__() const override;

    virtual void setName(const QString& name); ///< Always throws: a scene can't be renamed.
    virtual QString getName() const;
    virtual void setFramerate(double framesPerSecond);
    virtual double getFramerate() const;
    /// Adds frames at the end, or takes them from there; at least 1.
    virtual void setFrameCount(int count);
    virtual int getFrameCount() const;
    virtual void setFrameStart(int frame);
    virtual int getFrameStart() const;
    virtual void setFrameStop(int frame);
    virtual int getFrameStop() const;
    virtual std::vector<Obj> getSounds() const; ///< Always throws.
    virtual Obj getTop() const;                 ///< The root group.
    virtual Obj getNodes() const;               ///< All nodes.
    virtual Obj getCompositions() const;        ///< Always throws.

    TUScene* scene() const; ///< Null once it is gone.
    /// Whether both are of one scene; true also after it is gone.
    bool operator==(const Scene* other) const;

protected:
    void validate() const override;

private:
    SC_SceneCommon& sceneCommon() const;

    WeakHandle<TUScene> m_scene;
};

} // namespace OMC
