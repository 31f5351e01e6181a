#pragma once

#include "core/frame/baseobject.h"

namespace OMC {

/// A position in the plane, in whatever units the operation that takes or gives it names.
///
/// A value: it leads to no engine object, is always valid, and travels inside a QVariant by copy.
class BRINDLE_CORE_EXPORT Point2d : public BaseObject {
    Q_OBJECT

public:
    explicit Point2d(double x = 0.0, double y = 0.0);
    Point2d(const Point2d& other);
    Point2d& operator=(const Point2d& other);

    BaseObject* copy() const override;
    std::string __str__() const override;

    bool operator==(const Point2d& other) const { return x == other.x && y == other.y; }

    /// Reads a position strictly: a node or its coordinates, a point, a QPoint or QPointF, a list of numbers, or a
    /// single number, which is written to x alone. What the value doesn't tell keeps what the caller put there. Throws
    /// for anything else; what was read up to there stays written.
    static void ConvertQVariant(const QVariant& value, double& x, double& y);

    double x;
    double y;
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::Point2d)
