#include "engine/geometry2d/piecefit.h"

#include <algorithm>
#include <cmath>

namespace brindle::engine {

namespace {

struct Weights {
    double b0, b1, b2, b3;
};

Weights bernstein(double t)
{
    const double s = 1 - t;
    return {s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t};
}

/// The part of a point that the handles have to make up: the point without the share of the two ends.
Math::Vector2d remainder(const Math::Point2d& point, const Weights& b, const Math::Point2d& from,
                         const Math::Point2d& to)
{
    return (point - Math::Point2d{}) - (from - Math::Point2d{}) * (b.b0 + b.b1) -
           (to - Math::Point2d{}) * (b.b2 + b.b3);
}

/// The sums of the normal equations: of the weights' products, and of what is left times each weight.
struct FreeHandles {
    Math::Vector2d start, end; ///< From the ends of the piece.
    bool found = false;
};

FreeHandles freeHandles(std::span<const Math::Point2d> points, std::span<const double> parameters)
{
    double c11 = 0;
    double c12 = 0;
    double c22 = 0;
    Math::Vector2d x1;
    Math::Vector2d x2;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Weights b = bernstein(parameters[i]);
        const Math::Vector2d rest = remainder(points[i], b, points.front(), points.back());
        c11 += b.b1 * b.b1;
        c12 += b.b1 * b.b2;
        c22 += b.b2 * b.b2;
        x1 = x1 + rest * b.b1;
        x2 = x2 + rest * b.b2;
    }
    const double determinant = c11 * c22 - c12 * c12;
    constexpr double singular = 1e-12;
    if (determinant <= singular * c11 * c22)
        return {};
    return {(x1 * c22 - x2 * c12) * (1 / determinant), (x2 * c11 - x1 * c12) * (1 / determinant), true};
}

struct HandleLengths {
    double start, end;
    bool found = false;
};

HandleLengths handleLengths(std::span<const Math::Point2d> points, std::span<const double> parameters,
                            const EndTangents& tangents)
{
    double c11 = 0;
    double c12 = 0;
    double c22 = 0;
    double x1 = 0;
    double x2 = 0;
    const double between = tangents.start.dot(tangents.end);
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Weights b = bernstein(parameters[i]);
        const Math::Vector2d rest = remainder(points[i], b, points.front(), points.back());
        c11 += b.b1 * b.b1;
        c12 += b.b1 * b.b2 * between;
        c22 += b.b2 * b.b2;
        x1 += b.b1 * tangents.start.dot(rest);
        x2 += b.b2 * tangents.end.dot(rest);
    }
    const double determinant = c11 * c22 - c12 * c12;
    constexpr double singular = 1e-12;
    if (determinant <= singular * c11 * c22)
        return {};
    return {(x1 * c22 - x2 * c12) / determinant, (x2 * c11 - x1 * c12) / determinant, true};
}

/// The length of the way along the points.
double wayAlong(std::span<const Math::Point2d> points)
{
    double sum = 0;
    for (std::size_t i = 1; i < points.size(); ++i)
        sum += (points[i] - points[i - 1]).length();
    return sum;
}

} // namespace

std::vector<double> pieceParameters(std::span<const Math::Point2d> points,
                                    GR_BezierPath2dFitterOptions::Parametrization parametrization)
{
    std::vector<double> parameters(points.size(), 0.0);
    for (std::size_t i = 1; i < points.size(); ++i) {
        const double distance = (points[i] - points[i - 1]).length();
        double step = 1;
        if (parametrization == GR_BezierPath2dFitterOptions::ChordLength)
            step = distance;
        else if (parametrization == GR_BezierPath2dFitterOptions::Centripetal)
            step = std::sqrt(distance);
        parameters[i] = parameters[i - 1] + step;
    }
    const double whole = parameters.back();
    for (std::size_t i = 1; i < points.size(); ++i)
        parameters[i] =
            whole > 0 ? parameters[i] / whole : static_cast<double>(i) / static_cast<double>(points.size() - 1);
    parameters.back() = points.size() > 1 ? 1 : 0;
    return parameters;
}

PieceFit fitPiece(std::span<const Math::Point2d> points, std::span<const double> parameters,
                  const EndTangents& tangents)
{
    const Math::Point2d from = points.front();
    const Math::Point2d to = points.back();
    const double chord = (to - from).length();
    // On a piece that comes back to where it started, the way along the points stands for the chord.
    const double size = chord > 0 ? chord : wayAlong(points);

    EndTangents along = tangents;
    const bool anyFree = along.start == Math::Vector2d{} || along.end == Math::Vector2d{};
    const FreeHandles handles = anyFree ? freeHandles(points, parameters) : FreeHandles{};
    const auto chosen = [](const Math::Vector2d& handle, const Math::Point2d& end, const Math::Point2d& neighbour) {
        const Math::Vector2d way = direction({}, {handle.x, handle.y});
        return way == Math::Vector2d{} ? direction(end, neighbour) : way;
    };
    if (along.start == Math::Vector2d{})
        along.start = chosen(handles.start, from, points[1]);
    if (along.end == Math::Vector2d{})
        along.end = chosen(handles.end, to, points[points.size() - 2]);

    HandleLengths lengths;
    if (points.size() > 2)
        lengths = handleLengths(points, parameters, along);
    const double tooShort = 1e-6 * size;
    const double tooLong = 10 * wayAlong(points);
    if (!lengths.found || !(lengths.start > tooShort) || !(lengths.end > tooShort) || lengths.start > tooLong ||
        lengths.end > tooLong)
        lengths = {size / 3, size / 3, true};

    PieceFit fit;
    fit.curve.degree = 3;
    fit.curve.points = {from, from + along.start * lengths.start, to + along.end * lengths.end, to};
    for (std::size_t i = 1; i + 1 < points.size(); ++i) {
        const double distance = distanceSquared(fit.curve.at(parameters[i]), points[i]);
        if (distance > fit.worstSquared) {
            fit.worstSquared = distance;
            fit.worst = i;
        }
    }
    return fit;
}

void improveParameters(std::span<const Math::Point2d> points, const PlaneCurve& curve, std::span<double> parameters)
{
    const PlaneCurve slopes = curve.derivative();
    const PlaneCurve bends = slopes.derivative();
    for (std::size_t i = 1; i + 1 < points.size(); ++i) {
        const double t = parameters[i];
        const Math::Vector2d way = curve.at(t) - points[i];
        const Math::Vector2d slope = slopes.at(t) - Math::Point2d{};
        const Math::Vector2d bend = bends.at(t) - Math::Point2d{};
        const double denominator = slope.dot(slope) + way.dot(bend);
        if (denominator > 0)
            parameters[i] = std::clamp(t - way.dot(slope) / denominator, 0.0, 1.0);
    }
}

PieceFit improvedFit(std::span<const Math::Point2d> points, const EndTangents& tangents, double tolerance,
                     const GR_BezierPath2dFitterOptions& options)
{
    std::vector<double> parameters = pieceParameters(points, options.parametrization);
    PieceFit best = fitPiece(points, parameters, tangents);
    PieceFit current = best;
    const double wanted = tolerance * tolerance;
    for (int i = 0; i < options.iterations && best.worstSquared > wanted; ++i) {
        improveParameters(points, current.curve, parameters);
        const double before = current.worstSquared;
        current = fitPiece(points, parameters, tangents);
        if (current.worstSquared < best.worstSquared)
            best = current;
        // At this rate the iterations that are left don't reach the tolerance: the piece has to be divided.
        const double rate = current.worstSquared / before;
        if (wanted > 0 && current.worstSquared * std::pow(rate, options.iterations - 1 - i) > wanted)
            break;
    }
    return best;
}

} // namespace brindle::engine
