#pragma once

#include "engine/curves/curvepoints.h"
#include "engine/curves/pointcurve.h"

namespace brindle::engine {

using CurveLog = PointCurve<CurvePoint>::Log;
using CurveChange = PointChange<CurvePoint>;

/// A function of the frame through control points: a cubic Bezier curve between them, constant before the first one and
/// after the last one. It knows nothing of scenes and commands; the column that owns it does.
class Curve : public PointCurve<CurvePoint> {
public:
    static constexpr std::size_t changesOfSplice = 3; ///< At most: the new point, and those beside it.

    double evaluate(double frame) const; ///< 0 while there is no point.

    /// Makes a point on the curve, whose shape stays. In a segment the handles around it become those of the two parts;
    /// the same split of a constant segment gives two constant ones. Outside the range the curve goes on flat, with
    /// handles at one third of the gap. The first point of all has no handles: they are where it is.
    Edit splice(double frame, bool constantSegment, CurveLog& log);
    /// Moves a point; its handles stay where they are, held within its new neighbours, and so do those that face it.
    Edit move(double frame, double newFrame, double value, CurveLog& log);
    /// Sets a point's value; its handles move up or down with it.
    Edit setValue(double frame, double value, CurveLog& log);
    /// Sets a handle, its x held between the point and its neighbour on that side.
    Edit setLeftHandle(double frame, double x, double y, CurveLog& log);
    Edit setRightHandle(double frame, double x, double y, CurveLog& log);
    /// As PointCurve has it; handles that would reach beyond their new neighbours are drawn back.
    Edit shift(int at, int delta, CurveLog& log);
    Edit replace(double first, double last, const std::vector<CurvePoint>& points, CurveLog& log);

private:
    void hold(double frame, CurveLog& log);
    void spliceInto(CurvePoint& point, const CurvePoint& before, const CurvePoint& after, CurveLog& log);
};

} // namespace brindle::engine
