#include "tests/engine/geometry2d/randomcurves.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace curves {

GR_Bezier2d RandomCurves::curve(unsigned int degree)
{
    GR_Bezier2d made(degree, Math::Constants::Closed, Math::Constants::Closed);
    for (unsigned int i = 0; i <= degree; ++i)
        made.SetPoint(i, point());
    return made;
}

GR_BezierPath2d RandomCurves::path(unsigned int count)
{
    GR_BezierPath2d made;
    made.Append(point(), true);
    for (unsigned int i = 0; i < count; ++i) {
        for (unsigned int handles = below(3); handles > 0; --handles)
            made.Append(point(), false);
        made.Append(point(), true);
    }
    return made;
}

GR_BezierPath2dFitterOptions RandomCurves::fitterOptions()
{
    using Options = GR_BezierPath2dFitterOptions;
    Options options;
    options.method = static_cast<Options::Method>(below(2));
    options.parametrization = static_cast<Options::Parametrization>(below(3));
    options.cornerDetection = static_cast<Options::CornerDetection>(below(2));
    options.linearInterpolation = static_cast<Options::LinearInterpolation>(below(3));
    options.tangentOptimization = static_cast<Options::TangentOptimization>(below(2));
    return options;
}

GR_Bezier2d curve(std::initializer_list<Math::Point2d> points)
{
    GR_Bezier2d made(static_cast<unsigned int>(points.size()) - 1, Math::Constants::Closed, Math::Constants::Closed);
    unsigned int index = 0;
    for (const auto& point : points)
        made.SetPoint(index++, point);
    return made;
}

GR_BezierPath2d polyline(std::initializer_list<Math::Point2d> points)
{
    GR_BezierPath2d made;
    for (const auto& point : points)
        made.Append(point, true);
    return made;
}

GR_BezierPath2d circle(const Math::Point2d& centre, double radius)
{
    constexpr double handle = 0.5522847498307936; // 4/3 tan(pi / 8)
    const std::array<Math::Vector2d, 5> ways{{{0, 1}, {1, 0}, {0, -1}, {-1, 0}, {0, 1}}};
    GR_BezierPath2d made;
    made.Append(centre + ways[0] * radius, true);
    for (std::size_t i = 1; i < ways.size(); ++i) {
        made.Append(centre + (ways[i - 1] + ways[i] * handle) * radius, false);
        made.Append(centre + (ways[i] + ways[i - 1] * handle) * radius, false);
        made.Append(centre + ways[i] * radius, true);
    }
    return made;
}

double distance(const Math::Point2d& one, const Math::Point2d& other)
{
    return (one - other).length();
}

Math::Point2d reference(const GR_Bezier2d& curve, double t)
{
    std::array<long double, 4> x{};
    std::array<long double, 4> y{};
    for (unsigned int i = 0; i <= curve.GetDegree(); ++i) {
        x[i] = curve.GetPoint(i).x;
        y[i] = curve.GetPoint(i).y;
    }
    for (unsigned int level = curve.GetDegree(); level > 0; --level) {
        for (unsigned int i = 0; i < level; ++i) {
            x[i] += (x[i + 1] - x[i]) * t;
            y[i] += (y[i + 1] - y[i]) * t;
        }
    }
    return {static_cast<double>(x[0]), static_cast<double>(y[0])};
}

double referenceLength(const GR_Bezier2d& curve, int places)
{
    const auto polygon = [&curve](int count) {
        double sum = 0;
        Math::Point2d last = reference(curve, 0);
        for (int i = 1; i <= count; ++i) {
            const Math::Point2d next = reference(curve, static_cast<double>(i) / count);
            sum += distance(last, next);
            last = next;
        }
        return sum;
    };
    return (4 * polygon(places) - polygon(places / 2)) / 3;
}

double referenceDistance(const GR_Bezier2d& curve, const Math::Point2d& point, int places)
{
    const auto away = [&](double t) { return distance(reference(curve, t), point); };
    double best = 0;
    for (int i = 1; i <= places; ++i) {
        const double t = static_cast<double>(i) / places;
        if (away(t) < away(best))
            best = t;
    }
    double low = std::max(0.0, best - 1.0 / places);
    double high = std::min(1.0, best + 1.0 / places);
    for (int step = 0; step < 60; ++step) {
        const double left = low + (high - low) / 3;
        const double right = high - (high - low) / 3;
        (away(left) < away(right) ? high : low) = away(left) < away(right) ? right : left;
    }
    return std::min(away(best), away((low + high) / 2));
}

} // namespace curves
