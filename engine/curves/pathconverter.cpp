#include "core/host/at_fnc3dtimedvalue.h"
#include "core/host/sc_scene.h"
#include "engine/curves/beziercolumn.h"
#include "engine/curves/framefit.h"

namespace {

using brindle::engine::BezierColumn;

/// The frames over which a path moves, from the first keyframe to the last, wherever they lie: at least one frame, and
/// no more than a million from the first on.
std::pair<int, int> framesOf(const AT_Fnc3dTimedValue& path)
{
    constexpr double mostFrames = 1'000'000;
    const TUVeloBasedTimedValue* velocity = path.velocity();
    if (!velocity || velocity->pointCount() == 0)
        return {1, 1};
    const double first = std::floor(velocity->point(0).frame);
    const double last = std::ceil(velocity->point(velocity->pointCount() - 1).frame);
    return {static_cast<int>(first), static_cast<int>(std::min(last, first + mostFrames - 1))};
}

/// A name that no column of a scene has: the text, with a number where it is taken.
QString freeName(const SC_SceneCommon* scene, const QString& text)
{
    const SC_TimedValueListInterface* columns = scene ? scene->timedValues() : nullptr;
    QString name = text;
    for (int number = 1; columns && columns->findTimedValue(name, 0); ++number)
        name = text + QLatin1Char(' ') + QString::number(number);
    return name;
}

} // namespace

std::array<TUBezierTimedValue*, 3> AT_Fnc3dConverter::convertToSeparate(const AT_Fnc3dTimedValue& path, Mode mode)
{
    constexpr double tolerance = 0.005;
    const auto [first, last] = framesOf(path);
    std::array<std::vector<double>, 3> values;
    for (int frame = first; frame <= last; ++frame) {
        double x = 0;
        double y = 0;
        double z = 0;
        path.getValue(frame, x, y, z);
        values[0].push_back(x);
        values[1].push_back(y);
        values[2].push_back(z);
    }
    constexpr const char* axes[] = {" X", " Y", " Z"};
    std::array<TUBezierTimedValue*, 3> columns;
    for (std::size_t axis = 0; axis < columns.size(); ++axis) {
        auto column =
            std::make_unique<BezierColumn>(freeName(path.sceneCommon(), path.getName() + QLatin1String(axes[axis])));
        for (const BezierCtrlPt& point : mode == TransformMatrix
                                             ? brindle::engine::curveThrough(values[axis], first)
                                             : brindle::engine::curveNear(values[axis], first, tolerance))
            column->putPoint(point);
        columns[axis] = column.release();
    }
    return columns;
}
