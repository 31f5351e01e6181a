#pragma once

#include "core/frame/engineview.h"

class TUScene;

namespace OMC {

/// The sides of the project's aspect ratio (4 x 3), divided by the units of the field chart along them.
///
/// A live view, like the two below: it keeps no value, reads the engine at each call, on whatever thread, and is
/// invalid once the scene is gone.
class BRINDLE_CORE_EXPORT SceneAspect : public UnguardedView<TUScene> {
    Q_OBJECT
    BRINDLE_COPYABLE(SceneAspect)
    Q_PROPERTY(double x READ getX WRITE setX)
    Q_PROPERTY(double y READ getY WRITE setY)

public:
    explicit SceneAspect(TUScene* scene);

    std::string __str__() const override;

    virtual void setX(double x);
    /// The ratio's width for each unit across. Writing it makes the width a whole number: the value times the units,
    /// without its fraction.
    virtual double getX() const;
    virtual void setY(double y);
    /// The ratio's height for each unit up. Writing it makes the height a whole number: the value times the units,
    /// without its fraction.
    virtual double getY() const;
};

/// The number of units of the field chart, of the whole project.
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
    virtual int getX() const; ///< Units from the left border to the right one.
    virtual void setY(int units);
    virtual int getY() const; ///< Units from the bottom to the top.
    virtual void setZ(int units);
    virtual int getZ() const; ///< Units in depth.
};

/// The coordinates that stand at the centre of the picture, of the whole project.
class BRINDLE_CORE_EXPORT SceneCenter : public UnguardedView<TUScene> {
    Q_OBJECT
    BRINDLE_COPYABLE(SceneCenter)
    Q_PROPERTY(int x READ getX WRITE setX)
    Q_PROPERTY(int y READ getY WRITE setY)

public:
    explicit SceneCenter(TUScene* scene);

    std::string __str__() const override;

    virtual void setX(int x);
    virtual int getX() const; ///< The coordinate to the right.
    virtual void setY(int y);
    virtual int getY() const; ///< The coordinate upwards.
};

} // namespace OMC
