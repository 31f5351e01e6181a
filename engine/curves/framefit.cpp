#include "engine/curves/framefit.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace brindle::engine {

namespace {

BezierCtrlPt pointAt(double frame, double value)
{
    return {frame, value, frame, value, frame, value};
}

/// The values of the handles of a cubic piece between two ends, which stand at one third and two thirds of it.
struct InnerValues {
    double near, far;
};

/// The piece from one value to another one that comes within the tolerance of those between; nothing where there is
/// none.
std::optional<InnerValues> pieceBetween(const std::vector<double>& values, std::size_t from, std::size_t to,
                                        double tolerance)
{
    // Two unknowns: the normal equations of the two inner Bernstein polynomials.
    const double count = static_cast<double>(to - from);
    const double start = values[from];
    const double end = values[to];
    double nearNear = 0;
    double nearFar = 0;
    double farFar = 0;
    double nearRest = 0;
    double farRest = 0;
    for (std::size_t at = from + 1; at < to; ++at) {
        const double t = static_cast<double>(at - from) / count;
        const double u = 1 - t;
        const double near = 3 * u * u * t;
        const double far = 3 * u * t * t;
        const double rest = values[at] - (u * u * (u + 3 * t) * start + t * t * (t + 3 * u) * end);
        nearNear += near * near;
        nearFar += near * far;
        farFar += far * far;
        nearRest += near * rest;
        farRest += far * rest;
    }
    // With one value between the ends there are many such pieces; the damping takes the one nearest to flat ends.
    nearNear += 1e-12;
    farFar += 1e-12;
    const double determinant = nearNear * farFar - nearFar * nearFar;
    const double onNear = (nearRest * farFar - farRest * nearFar) / determinant;
    const double onFar = (farRest * nearNear - nearRest * nearFar) / determinant;
    const InnerValues piece{start + onNear, end + onFar};
    for (std::size_t at = from + 1; at < to; ++at) {
        const double t = static_cast<double>(at - from) / count;
        const double u = 1 - t;
        const double value =
            u * u * u * start + 3 * u * u * t * piece.near + 3 * u * t * t * piece.far + t * t * t * end;
        if (!(std::abs(value - values[at]) <= tolerance))
            return std::nullopt;
    }
    return piece;
}

/// A straight piece where nothing lies between the ends.
InnerValues straight(double start, double end)
{
    return {std::lerp(start, end, 1.0 / 3), std::lerp(start, end, 2.0 / 3)};
}

} // namespace

std::vector<BezierCtrlPt> curveThrough(const std::vector<double>& values, int first)
{
    std::vector<BezierCtrlPt> points;
    points.reserve(values.size());
    for (std::size_t at = 0; at < values.size(); ++at) {
        const double value = values[at];
        BezierCtrlPt point = pointAt(first + static_cast<double>(at), value);
        const double before = values[at > 0 ? at - 1 : at];
        const double after = values[at + 1 < values.size() ? at + 1 : at];
        const bool isEnd = at == 0 || at + 1 == values.size();
        const double slope = isEnd ? after - before : before == value || after == value ? 0 : (after - before) / 2;
        const double third = 1.0 / 3;
        point.leftX -= third;
        point.rightX += third;
        point.continuity = 1;
        if (std::isfinite(value - slope / 3) && std::isfinite(value + slope / 3)) {
            point.leftY -= slope / 3;
            point.rightY += slope / 3;
        }
        points.push_back(point);
    }
    return points;
}

std::vector<BezierCtrlPt> curveNear(const std::vector<double>& values, int first, double tolerance)
{
    std::vector<BezierCtrlPt> points;
    if (values.empty())
        return points;
    points.push_back(pointAt(first, values.front()));
    const std::size_t last = values.size() - 1;
    for (std::size_t from = 0; from < last;) {
        // The reach doubles while it fits, and is then found by halves.
        std::size_t to = from + 1;
        InnerValues piece = straight(values[from], values[to]);
        std::size_t refused = last + 1;
        for (std::size_t step = 2; to < last && refused > to + 1;) {
            const std::size_t next = refused > last ? std::min(from + step, last) : to + (refused - to) / 2;
            const auto fitted = pieceBetween(values, from, next, tolerance);
            if (fitted) {
                to = next;
                piece = *fitted;
                step *= 2;
            } else {
                refused = next;
            }
        }
        const double third = static_cast<double>(to - from) / 3;
        points.back().rightX += third;
        points.back().rightY = piece.near;
        points.push_back(pointAt(first + static_cast<double>(to), values[to]));
        points.back().leftX -= third;
        points.back().leftY = piece.far;
        from = to;
    }
    return points;
}

} // namespace brindle::engine
