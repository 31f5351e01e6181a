#pragma once

#include "core/frame/baseobject.h"
#include "core/host/math_point.h"

#include <optional>

namespace OMC {

/// A position in space, in the units of the operation that takes or gives it. One value is read as for Point2d; in a
/// list, a matrix transforms what stands ahead of it.
///
/// A value: it leads to no engine object, is always valid, and travels inside a QVariant by copy. Its two readers,
/// `fromQVariant` and `ConvertQVariant`, are those of Point2d with one coordinate more.
class BRINDLE_CORE_EXPORT Point3d : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(Point3d)

public:
    explicit Point3d(double x = 0.0, double y = 0.0, double z = 0.0);
    Point3d(const Point3d& other);
    /// Reads every form that `fromQVariant` takes.
    explicit Point3d(const QVariant& value);
    Point3d& operator=(const Point3d& other);

    std::string __str__() const override;

    bool operator==(const Point3d& other) const { return x == other.x && y == other.y && z == other.z; }

    /// Moves it by a vector, a point, a list of numbers and of those, or a number for all coordinates.
    void translate(const QVariant& vector);

    /// A new point: the origin of a matrix, a point or vector as it is, a column's value at a
    /// frame, where a node stands (without its z), a number for all three coordinates. A list is added up from (0, 0,
    /// 0): points and vectors as they are, the numbers to x, y and z in turn, and a matrix transforms what is there by
    /// then; anything else in it is passed over, lists too. (0, 0, 0) for everything else. Throws for a node that is
    /// gone.
    static Point3d* fromQVariant(const QVariant& value);
    /// The same without a new object.
    static Math::Point3d valueOf(const QVariant& value);
    /// The coordinates of an object that is a point or a vector, z being 0 in the plane; nothing for other objects.
    static std::optional<Math::Vector3d> coordinatesOf(const QObject* object);
    /// Reads a position strictly: a node's coordinates, a point, a QPoint or QPointF, a list of numbers, or a single
    /// number, which tells x alone. What the value doesn't tell stays as given. Fails for anything else, a node
    /// included.
    ///
    /// After a failure, the coordinates that were read before it stay written.
    static void ConvertQVariant(const QVariant& value, double& x, double& y, double& z);

    double x; ///< To the right.
    double y; ///< Upwards, unless the operation says else.
    double z; ///< The depth.
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::Point3d)
