#pragma once

#include "core/columns/controlpoint.h"
#include "core/frame/weakhandle.h"
#include "core/host/at_fnc3dtimedvalue.h"
#include "core/host/math_point.h"

namespace OMC {

/// Which control point of a path it is, wherever on the path the point is by now; the path is held weakly.
class Path3DPointHandle {
public:
    Path3DPointHandle(AT_Fnc3dTimedValue& path, const CatmullCtrlPt& point);

    AT_Fnc3dTimedValue& path() const; ///< Throws when it is gone.
    CatmullCtrlPt point() const;      ///< Throws when it is gone.
    void run(CO_Command* command, const QString& label) const;
    void move(const Math::Point3d& position, const QString& label) const;
    /// Moves along one axis: 0, 1 or 2.
    void moveAxis(double coordinate, int axis) const;

private:
    WeakHandle<TUTimedValue> m_path;
    mutable int m_index; ///< The point's last known place.
    unsigned long long m_identity;
};

/// A control point of a 3D path; invalid once the point is gone. It is found wherever on the path it is by now; its
/// frame is the one that it had when it was asked for.
class BRINDLE_CORE_EXPORT Path3DControlPoint : public ControlPoint {
    Q_OBJECT
    BRINDLE_COPYABLE(Path3DControlPoint)
    Q_PROPERTY(bool const_segment READ getConstSegment WRITE setConstSegment)
    Q_PROPERTY(double continuity READ getContinuity)
    Q_PROPERTY(double x READ getX WRITE setX)
    Q_PROPERTY(double y READ getY WRITE setY)
    Q_PROPERTY(double z READ getZ WRITE setZ)
    Q_PROPERTY(double tension READ getTension WRITE setTension)
    Q_PROPERTY(double bias READ getBias WRITE setBias)
    Q_PROPERTY(bool keyframe READ getKeyframe)

public:
    Path3DControlPoint(AT_Fnc3dTimedValue& timedValue, const CatmullCtrlPt& point);

    /// A new object for the point at a place, or for the one nearest to a frame, less than 0.1 away; null where there
    /// is none.
    static Path3DControlPoint* at(AT_Fnc3dTimedValue& timedValue, quint64 index);
    static Path3DControlPoint* at(AT_Fnc3dTimedValue& timedValue, double frame);

    std::string __str__() const override;

    /// The position, as an object with x, y and z; takes a position in any form, that of another point included.
    QVariant getValue() const override;
    void setValue(const QVariant& value) override;

    /// Whether the path stays there up to the next keyframe; it is set on keyframes alone.
    bool getConstSegment() const;
    void setConstSegment(bool constSegment);
    double getContinuity() const;          ///< From -1 to 1.
    void setContinuity(double continuity); ///< Sets the continuity, from -1 to 1.
    double getX() const;                   ///< In fields; an angle in degrees of a path of rotations.
    void setX(double x);
    double getY() const; ///< In fields; an angle in degrees of a path of rotations.
    void setY(double y);
    double getZ() const; ///< In fields; an angle in degrees of a path of rotations.
    void setZ(double z);
    double getTension() const; ///< From -1 to 1.
    void setTension(double tension);
    double getBias() const; ///< From -1 to 1.
    void setBias(double bias);
    bool getKeyframe() const; ///< Whether the path is there at a frame of its own.

protected:
    void validate() const override;

private:
    void setParameters(double tension, double continuity, double bias, const QString& label);

    Path3DPointHandle m_handle;
};

/// The position of a control point of a 3D path. Setting a coordinate moves the point.
class BRINDLE_CORE_EXPORT Path3DControlPointValue : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(Path3DControlPointValue)
    Q_PROPERTY(double x READ getX WRITE setX)
    Q_PROPERTY(double y READ getY WRITE setY)
    Q_PROPERTY(double z READ getZ WRITE setZ)

public:
    explicit Path3DControlPointValue(const Path3DPointHandle& handle);

    std::string __str__() const override;

    double getX() const; ///< In fields; an angle in degrees of a path of rotations.
    void setX(double x);
    double getY() const; ///< In fields; an angle in degrees of a path of rotations.
    void setY(double y);
    double getZ() const; ///< In fields; an angle in degrees of a path of rotations.
    void setZ(double z);

private:
    Path3DPointHandle m_handle;
};

} // namespace OMC
