#pragma once

#include "core/frame/baseobject.h"
#include "core/host/math_point.h"

#include <memory>
#include <vector>

namespace OMC {

/// A position in the plane, in the units of the operation that takes or gives it. Made of one value it is a point, a
/// vector, a matrix's origin, a node's place, a column's value at a frame, a number for all coordinates, or the sum of
/// a list; (0, 0) of anything else.
///
/// A value: it leads to no engine object, is always valid, and travels inside a QVariant by copy.
///
/// Two readers turn a script's argument into a position. `fromQVariant` is lenient: it takes everything, adds up what a
/// list holds, and gives (0, 0) for what it doesn't know. `ConvertQVariant` is strict: it takes fewer forms, writes
/// what they tell, and throws for the rest.
class BRINDLE_CORE_EXPORT Point2d : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(Point2d)

public:
    explicit Point2d(double x = 0.0, double y = 0.0);
    Point2d(const Point2d& other);
    explicit Point2d(const Math::Point2d& point);
    /// Reads every form that `fromQVariant` takes.
    explicit Point2d(const QVariant& value);
    Point2d& operator=(const Point2d& other);

    std::string __str__() const override;

    bool operator==(const Point2d& other) const { return x == other.x && y == other.y; }

    /// Moves it by a vector, a point, a list of numbers and of those, or a number for both coordinates.
    void translate(const QVariant& vector);

    /// A new point of whatever Point2d(value) takes.
    ///
    /// The caller owns it.
    static Point2d* fromQVariant(const QVariant& value);
    /// Reads a position strictly: a node or its coordinates, a point, a QPoint or QPointF, a list of numbers, or a
    /// single number, which tells x alone. What the value doesn't tell stays as given. Fails for anything else.
    ///
    /// After a failure, the coordinates that were read before it stay written.
    static void ConvertQVariant(const QVariant& value, double& x, double& y);
    /// Appends to a list of points the position that a value tells strictly, or all of those in a list, lists in it
    /// included. A list whose first item is a number is one position; an empty one is none.
    static void fromQVariant(const QVariant& value, std::vector<std::unique_ptr<Math::Point2d>>& points);
    static void fromQVariant(const QVariant& value, std::vector<Point2d>& points);

    double x; ///< To the right.
    double y; ///< Upwards, unless the operation says else.
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::Point2d)
