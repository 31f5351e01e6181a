#pragma once

#include "core/frame/baseobject.h"

namespace OMC {

/// A position in space, in whatever units the operation that takes or gives it names.
///
/// A value: it leads to no engine object, is always valid, and travels inside a QVariant by copy.
class BRINDLE_CORE_EXPORT Point3d : public BaseObject {
    Q_OBJECT

public:
    explicit Point3d(double x = 0.0, double y = 0.0, double z = 0.0);
    Point3d(const Point3d& other);
    Point3d& operator=(const Point3d& other);

    BaseObject* copy() const override;
    std::string __str__() const override;

    bool operator==(const Point3d& other) const { return x == other.x && y == other.y && z == other.z; }

    /// Reads a position strictly: a node's coordinates, a point, a QPoint or QPointF, a list of numbers, or a single
    /// number, which is written to x alone. What the value doesn't tell keeps what the caller put there. Throws for
    /// anything else, a node included; what was read up to there stays written.
    static void ConvertQVariant(const QVariant& value, double& x, double& y, double& z);

    double x;
    double y;
    double z;
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::Point3d)
