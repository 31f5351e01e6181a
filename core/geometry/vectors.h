#pragma once

#include "core/geometry/point2d.h"
#include "core/geometry/point3d.h"

namespace OMC {

/// A displacement in the plane; nearly every operation that takes a point takes a vector too. The constructor from one
/// value reads the forms of Point2d.
class BRINDLE_CORE_EXPORT Vector2d : public Point2d {
    Q_OBJECT
    BRINDLE_COPYABLE(Vector2d)

public:
    explicit Vector2d(double x = 0.0, double y = 0.0);
    Vector2d(const Vector2d& other);
    explicit Vector2d(const Math::Vector2d& vector);
    /// Reads every form that `fromQVariant` takes.
    explicit Vector2d(const QVariant& value);
    Vector2d& operator=(const Vector2d& other);

    std::string __str__() const override;

    /// A new vector of whatever Vector2d(value) takes.
    ///
    /// The caller owns it.
    static Vector2d* fromQVariant(const QVariant& value);
};

/// A displacement in space; nearly every operation that takes a point takes a vector too. The constructor from one
/// value reads the forms of Point3d.
class BRINDLE_CORE_EXPORT Vector3d : public Point3d {
    Q_OBJECT
    BRINDLE_COPYABLE(Vector3d)

public:
    explicit Vector3d(double x = 0.0, double y = 0.0, double z = 0.0);
    Vector3d(const Vector3d& other);
    /// Reads every form that `fromQVariant` takes.
    explicit Vector3d(const QVariant& value);
    Vector3d& operator=(const Vector3d& other);

    std::string __str__() const override;

    /// A new vector of whatever Vector3d(value) takes.
    ///
    /// The caller owns it.
    static Vector3d* fromQVariant(const QVariant& value);
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::Vector2d)
Q_DECLARE_METATYPE(OMC::Vector3d)
