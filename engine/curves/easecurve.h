#pragma once

#include "core/host/tu_easetimedvalue.h"
#include "engine/curves/pointcurve.h"

namespace brindle::engine {

/// A control point of an ease curve.
struct EasePoint : EaseCtrlPt {
    bool operator==(const EasePoint& other) const;
    bool isSound() const; ///< Eases are 0 or more.
    void shift(double) {}
    void scale(double factor);
};

/// A function of the frame through control points with eases. The way from one point to the next is a cubic Bezier
/// curve, whose handles lie on the slopes, as far from the points as the eases reach; so it leaves and comes in along
/// the slopes, and without eases it is straight. Eases that reach so far that the curve would run back count up to the
/// next point. It is constant before the first point and after the last one.
class EaseCurve : public PointCurve<EasePoint> {
public:
    static constexpr std::size_t changesOfSplice = 3; ///< At most: the new point, and those beside it.

    double evaluate(double frame) const; ///< 0 while there is no point.

    /// Makes a point on the curve, whose shape stays: the eases around it become those of the two parts. Outside the
    /// range the curve goes on flat, with eases of one third of the gap.
    Edit splice(double frame, bool constantSegment, Log& log);
    Edit move(double frame, double newFrame, double value, Log& log);
    Edit setValue(double frame, double value, Log& log);
    Edit setEaseIn(double frame, double ease, Log& log); ///< At least 0 is kept.
    Edit setEaseOut(double frame, double ease, Log& log);
    Edit setSlopeIn(double frame, double slope, Log& log);
    Edit setSlopeOut(double frame, double slope, Log& log);
};

} // namespace brindle::engine
