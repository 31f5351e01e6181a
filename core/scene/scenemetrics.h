#pragma once

#include "core/frame/engineview.h"

class TUScene;

namespace OMC {

/// The shape of a scene's unit: how wide and high the picture is, measured in units of the field chart.
///
/// A live view, like the two below: it keeps no value, reads the engine at each call, on whatever thread, and is
/// invalid once the scene is gone. What it writes counts for the whole project.
class BRINDLE_CORE_EXPORT SceneAspect : public UnguardedView<TUScene> {
    Q_OBJECT
    BRINDLE_COPYABLE(SceneAspect)
    Q_PROPERTY(double x READ getX WRITE setX)
    Q_PROPERTY(double y READ getY WRITE setY)

public:
    explicit SceneAspect(TUScene* scene);

    std::string __str__() const override;

    /// The engine keeps whole numbers: what the value makes of the chart's units loses its fraction.
    virtual void setX(double x);
    virtual double getX() const;
    virtual void setY(double y);
    virtual double getY() const;
};

/// The number of units of the field chart: from edge to edge to the right and up, and in depth.
class BRINDLE_CORE_EXPORT SceneUnits : public UnguardedView<TUScene> {
    Q_OBJECT
    BRINDLE_COPYABLE(SceneUnits)
    Q_PROPERTY(int x READ getX WRITE setX)
    Q_PROPERTY(int y READ getY WRITE setY)
    Q_PROPERTY(int z READ getZ WRITE setZ)

public:
    explicit SceneUnits(TUScene* scene);

    std::string __str__() const override;

    virtual void setX(int units);
    virtual int getX() const;
    virtual void setY(int units);
    virtual int getY() const;
    virtual void setZ(int units);
    virtual int getZ() const;
};

/// The coordinates that stand at the centre of the picture.
class BRINDLE_CORE_EXPORT SceneCenter : public UnguardedView<TUScene> {
    Q_OBJECT
    BRINDLE_COPYABLE(SceneCenter)
    Q_PROPERTY(int x READ getX WRITE setX)
    Q_PROPERTY(int y READ getY WRITE setY)

public:
    explicit SceneCenter(TUScene* scene);

    std::string __str__() const override;

    virtual void setX(int x);
    virtual int getX() const;
    virtual void setY(int y);
    virtual int getY() const;
};

} // namespace OMC
