#pragma once

#include "core/host/export.h"
#include "core/host/gr_bezierpath.h"

/// How a path is fitted to points. The defaults are those of a fit that a script asks for.
struct BRINDLE_HOST_EXPORT GR_BezierPath2dFitterOptions {
    enum Method {
        Interpolation = 0, ///< Smooth pieces through each of the points (Catmull and Rom).
        LeastSquares = 1   ///< As few pieces as come within the tolerance of all points (Schneider).
    };
    /// How far apart on a piece neighbouring points are taken to be, at first.
    enum Parametrization {
        Uniform = 0,     ///< Equally far.
        ChordLength = 1, ///< By their distance.
        Centripetal = 2  ///< By the root of their distance.
    };
    enum CornerDetection {
        NoCorners = 0,      ///< The path is smooth at all points between the ends.
        CornersByAngle = 1, ///< Sharp where the path turns to less than the corner angle.
    };
    enum LinearInterpolation {
        NoLines = 0,              ///< Each piece is a cubic curve.
        LinesWithinTolerance = 1, ///< A piece whose points lie within the tolerance of its chord is a straight line.
        LinesBetweenCorners = 2   ///< Straight from one corner or end to the next where no point leaves the line.
    };
    enum TangentOptimization {
        NoOptimization = 0, ///< The tangents at the ends of a piece are those estimated from the points.
        OptimizeEndTangents =
            1 ///< At corners and ends, where nothing needs to be smooth, the fit is free to turn them.
    };

    double tolerance = 1.0; ///< The greatest distance of a point from the path, in the points' unit; above 0.
    int iterations = 3;     ///< How often a piece's parameters are improved before it is divided; 0 to 1000.
    Method method = LeastSquares;
    Parametrization parametrization = ChordLength;
    CornerDetection cornerDetection = CornersByAngle;
    LinearInterpolation linearInterpolation = LinesBetweenCorners;
    TangentOptimization tangentOptimization = NoOptimization;
    int neighbours = 3;         ///< How many points on each side a corner, and at least a tangent, tells; 1 to 1000.
    double cornerAngle = 100.0; ///< In degrees, between the two arms of a corner; 180 is straight on. 0 to 180.
};

/// Fits a path to points, piece by piece between the corners. The points are those on the curve of a path; of points
/// that repeat, the first counts. The first and the last point stay where they are. Fewer than two different points
/// give the path of them.
///
/// Least squares after P. J. Schneider, "An Algorithm for Automatically Fitting Digitized Curves", Graphics Gems, 1990.
/// Throws std::domain_error when a point is not finite or so large that a distance isn't.
class BRINDLE_HOST_EXPORT GR_BezierPath2dFitterBase {
public:
    /// std::invalid_argument for an option out of its range.
    explicit GR_BezierPath2dFitterBase(const GR_BezierPath2dFitterOptions& options);

    const GR_BezierPath2dFitterOptions& options() const { return m_options; }

    GR_BezierPath2d Fit(const GR_BezierPath2d& points) const;

private:
    GR_BezierPath2dFitterOptions m_options;
};

class BRINDLE_HOST_EXPORT GR_BezierPath2dFitter : public GR_BezierPath2dFitterBase {
public:
    using GR_BezierPath2dFitterBase::GR_BezierPath2dFitterBase;

    /// One cubic curve from the first point to the last, as near to the points as it gets, whatever the tolerance.
    GR_BezierPath2d FitOneBezier(const GR_BezierPath2d& points) const;
    /// A closed path, smooth also at the first point unless a corner is there. A last point equal to the first is the
    /// same point.
    GR_BezierPath2d FitClosed(const GR_BezierPath2d& points) const;
};
