#pragma once

#include "core/columns/framedvalue.h"

namespace OMC {

/// The place of a 3D path at one frame: x, y and z, which can be read anywhere on the path. Setting one of them makes a
/// keyframe.
class BRINDLE_CORE_EXPORT Path3DXYZColumnValue : public FramedValue<AT_Fnc3dTimedValue> {
    Q_OBJECT
    BRINDLE_COPYABLE(Path3DXYZColumnValue)
    Q_PROPERTY(double x READ getX WRITE setX)
    Q_PROPERTY(double y READ getY WRITE setY)
    Q_PROPERTY(double z READ getZ WRITE setZ)

public:
    using FramedValue::FramedValue;

    std::string __str__() const override;
    /// Leaves out the frame and the value: to scripts it is a plain object of three coordinates.
    bool filterDir(std::string& name) const override;

    double getFrame() const override;
    /// The position as a point; takes a position in any form.
    QVariant getValue() const override;
    void setValue(const QVariant& value) override;

    double getX() const; ///< In fields; an angle in degrees of a path of rotations.
    void setX(double x);
    double getY() const; ///< In fields; an angle in degrees of a path of rotations.
    void setY(double y);
    double getZ() const; ///< In fields; an angle in degrees of a path of rotations.
    void setZ(double z);

private:
    struct Position {
        double x, y, z;
    };
    Position position() const;
    void setAxis(double value, int axis);
};

} // namespace OMC
