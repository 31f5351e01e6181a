#include "core/host/gr_bezier.h"
#include "core/host/gr_bezierfitter.h"
#include "core/host/gr_bezierpath.h"

#include <2geom/basic-intersection.h>
#include <2geom/bezier-curve.h>
#include <2geom/bezier-utils.h>

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <random>
#include <vector>

// The cost of plane curves, beside the same by lib2geom.

namespace {

constexpr std::size_t count = 256;

std::vector<GR_Bezier2d> randomCurves()
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> number(-100, 100);
    std::vector<GR_Bezier2d> curves(count, GR_Bezier2d(3, Math::Constants::Closed, Math::Constants::Closed));
    for (GR_Bezier2d& curve : curves) {
        for (unsigned int i = 0; i < 4; ++i) {
            const double x = number(random);
            curve.SetPoint(i, {x, number(random)});
        }
    }
    return curves;
}

std::vector<Geom::CubicBezier> sameCurves(const std::vector<GR_Bezier2d>& curves)
{
    std::vector<Geom::CubicBezier> same;
    for (const GR_Bezier2d& curve : curves) {
        std::vector<Geom::Point> points;
        for (unsigned int i = 0; i < 4; ++i)
            points.emplace_back(curve.GetPoint(i).x, curve.GetPoint(i).y);
        same.emplace_back(points);
    }
    return same;
}

/// A line drawn by hand: a wave with noise.
GR_BezierPath2d drawnPoints(int points)
{
    std::mt19937 random(2);
    std::uniform_real_distribution<double> noise(-0.5, 0.5);
    GR_BezierPath2d path;
    for (int i = 0; i < points; ++i) {
        const double t = 10.0 * i / points;
        path.Append({100 * t, 200 * std::sin(t) + 50 * std::sin(2.3 * t) + noise(random)}, true);
    }
    return path;
}

void evaluateCubic(benchmark::State& state)
{
    const auto curves = randomCurves();
    std::size_t i = 0;
    for (auto _ : state) {
        ++i;
        benchmark::DoNotOptimize(curves[i % count].Evaluate(static_cast<double>(i % 1000) / 1000));
    }
}

void floorEvaluateCubic(benchmark::State& state)
{
    const auto curves = sameCurves(randomCurves());
    std::size_t i = 0;
    for (auto _ : state) {
        ++i;
        benchmark::DoNotOptimize(curves[i % count].pointAt(static_cast<double>(i % 1000) / 1000));
    }
}

void nearestOfCubic(benchmark::State& state)
{
    const auto curves = randomCurves();
    std::size_t i = 0;
    for (auto _ : state) {
        ++i;
        double radiusSquared = 1e6;
        double parameter = 0;
        curves[i % count].GetClosestPoint({static_cast<double>(i % 101), 7}, radiusSquared, parameter);
        benchmark::DoNotOptimize(parameter);
    }
}

void floorNearestOfCubic(benchmark::State& state)
{
    const auto curves = sameCurves(randomCurves());
    std::size_t i = 0;
    for (auto _ : state) {
        ++i;
        benchmark::DoNotOptimize(curves[i % count].nearestTime({static_cast<double>(i % 101), 7}));
    }
}

void intersectCubics(benchmark::State& state)
{
    const auto curves = randomCurves();
    std::size_t i = 0;
    for (auto _ : state) {
        ++i;
        benchmark::DoNotOptimize(curves[i % count].GetIntersections(curves[i * 7 % count]));
    }
}

void floorIntersectCubics(benchmark::State& state)
{
    const auto curves = sameCurves(randomCurves());
    std::size_t i = 0;
    for (auto _ : state) {
        ++i;
        std::vector<std::pair<double, double>> found;
        Geom::find_intersections_bezier_clipping(found, curves[i % count].controlPoints(),
                                                 curves[i * 7 % count].controlPoints(), 1e-9);
        benchmark::DoNotOptimize(found);
    }
}

void lengthOfCubic(benchmark::State& state)
{
    const auto curves = randomCurves();
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(curves[++i % count].GetLength());
}

void floorLengthOfCubic(benchmark::State& state)
{
    const auto curves = sameCurves(randomCurves());
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(curves[++i % count].length(1e-8));
}

void boxOfCubic(benchmark::State& state)
{
    auto curves = randomCurves();
    std::size_t i = 0;
    for (auto _ : state) {
        GR_Bezier2d& curve = curves[++i % count];
        curve.Reverse(); // the box that is known is found anew
        benchmark::DoNotOptimize(curve.GetBoxRef());
    }
}

void floorBoxOfCubic(benchmark::State& state)
{
    const auto curves = sameCurves(randomCurves());
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(curves[++i % count].boundsExact());
}

void fitPoints(benchmark::State& state)
{
    const GR_BezierPath2d points = drawnPoints(static_cast<int>(state.range(0)));
    const GR_BezierPath2dFitter fitter(GR_BezierPath2dFitterOptions{});
    for (auto _ : state)
        benchmark::DoNotOptimize(fitter.Fit(points));
    state.SetComplexityN(state.range(0));
}

void floorFitPoints(benchmark::State& state)
{
    const GR_BezierPath2d path = drawnPoints(static_cast<int>(state.range(0)));
    std::vector<Geom::Point> points;
    for (unsigned int i = 0; i < path.GetNumPoints(); ++i)
        points.emplace_back(path.GetPoint(i).x, path.GetPoint(i).y);
    constexpr unsigned int most = 1000;
    std::vector<Geom::Point> fitted(std::size_t{4} * most);
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            Geom::bezier_fit_cubic_r(fitted.data(), points.data(), static_cast<int>(points.size()), 1.0, most));
    }
}

void meetOfPaths(benchmark::State& state)
{
    const auto size = static_cast<int>(state.range(0));
    const GR_BezierPath2d wave = GR_BezierPath2dFitter(GR_BezierPath2dFitterOptions{}).Fit(drawnPoints(1000));
    GR_BezierPath2d line;
    for (int i = 0; i <= size; ++i)
        line.Append({1000.0 * i / size, 10}, true);
    for (auto _ : state)
        benchmark::DoNotOptimize(line.GetIntersections(wave));
    state.SetComplexityN(size);
}

BENCHMARK(evaluateCubic);
BENCHMARK(floorEvaluateCubic);
BENCHMARK(nearestOfCubic);
BENCHMARK(floorNearestOfCubic);
BENCHMARK(intersectCubics);
BENCHMARK(floorIntersectCubics);
BENCHMARK(lengthOfCubic);
BENCHMARK(floorLengthOfCubic);
BENCHMARK(boxOfCubic);
BENCHMARK(floorBoxOfCubic);
BENCHMARK(fitPoints)->Arg(1000)->Arg(10000);
BENCHMARK(floorFitPoints)->Arg(1000);
BENCHMARK(meetOfPaths)->RangeMultiplier(10)->Range(100, 10000)->Complexity(benchmark::oN);

} // namespace
