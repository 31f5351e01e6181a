#pragma once

#include "core/frame/engineview.h"
#include "core/frame/obj.h"

#include <QString>
#include <QVariant>

class SC_SceneMetrics;
class TUScene;

namespace OMC {

/// Converts between the two coordinate systems of a scene: the units of its field chart, in which people think, and
/// OpenGL units, in which the picture is drawn.
///
/// It reads the scene's metrics at each call, on whatever thread, and is invalid once the scene is gone.
class BRINDLE_CORE_EXPORT SceneUnitConverter : public UnguardedView<TUScene> {
    Q_OBJECT
    BRINDLE_COPYABLE(SceneUnitConverter)

public:
    explicit SceneUnitConverter(TUScene* scene);

    std::string __str__() const override;

    /// A point, or the coordinate of an axis "x", "y" or "z" in any case of letters, from OpenGL units to fields. A
    /// Point2d gives a Point2d; a Point3d, a list of numbers and points, or a number gives a Point3d. Vectors and other
    /// objects fail.
    QVariant toField(const QVariant& point);
    double toField(double value, const QString& axis);
    /// A point, or the coordinate of an axis "x", "y" or "z" in any case of letters, from fields to OpenGL units. A
    /// Point2d gives a Point2d; a Point3d, a list of numbers and points, or a number gives a Point3d. Vectors and other
    /// objects fail.
    QVariant toOgl(const QVariant& point);
    double toOgl(double value, const QString& axis);

private:
    const SC_SceneMetrics& metrics() const; ///< Validates.
};

} // namespace OMC
