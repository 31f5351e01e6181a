#include "core/host/gr_bezierfitter.h"

#include "tests/engine/geometry2d/randomcurves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <numbers>
#include <stdexcept>

namespace {

using curves::distance;
using curves::polyline;
using Options = GR_BezierPath2dFitterOptions;

double distanceTo(const GR_BezierPath2d& path, const Math::Point2d& point)
{
    double radiusSquared = 1e300;
    double parameter = 0;
    return path.GetClosestPoint(point, radiusSquared, parameter) ? std::sqrt(radiusSquared) : 1e300;
}

double worstDistance(const GR_BezierPath2d& path, const GR_BezierPath2d& points)
{
    double worst = 0;
    for (unsigned int i = 0; i < points.GetNumPoints(); ++i)
        worst = std::max(worst, distanceTo(path, points.GetPoint(i)));
    return worst;
}

GR_BezierPath2d pointsOnCircle(int count, double radius)
{
    GR_BezierPath2d points;
    for (int i = 0; i < count; ++i) {
        const double angle = 2 * std::numbers::pi * i / count;
        points.Append({radius * std::cos(angle), radius * std::sin(angle)}, true);
    }
    return points;
}

/// A square with `count` points on each side, from a corner.
GR_BezierPath2d pointsOnSquare(int count, double side)
{
    const Math::Point2d corners[] = {{0, 0}, {side, 0}, {side, side}, {0, side}, {0, 0}};
    GR_BezierPath2d points;
    for (int edge = 0; edge < 4; ++edge)
        for (int i = 0; i < count; ++i)
            points.Append(corners[edge] + (corners[edge + 1] - corners[edge]) * (static_cast<double>(i) / count), true);
    return points;
}

/// A line drawn by hand: it wanders smoothly, with noise.
GR_BezierPath2d drawnPoints(curves::RandomCurves& random, int count, double noise)
{
    const double phase = random.number(0, 6);
    GR_BezierPath2d points;
    for (int i = 0; i < count; ++i) {
        const double t = 10.0 * i / count;
        points.Append({100 * t + random.number(-noise, noise),
                       200 * std::sin(t + phase) + 50 * std::sin(2.3 * t) + random.number(-noise, noise)},
                      true);
    }
    return points;
}

TEST(Fitter, EachPointIsWithinTheToleranceWhateverTheOptions)
{
    curves::RandomCurves random(91);
    for (int round = 0; round < 120; ++round) {
        GR_BezierPath2dFitterOptions options = random.fitterOptions();
        options.tolerance = std::pow(10, random.number(-3, 1.5));
        options.iterations = static_cast<int>(random.below(8));
        options.neighbours = 1 + static_cast<int>(random.below(6));
        const GR_BezierPath2dFitter fitter(options);
        const GR_BezierPath2d points = round % 2 == 0 ? drawnPoints(random, 100, 2) : [&] {
            GR_BezierPath2d scattered;
            for (int i = 0; i < 30; ++i)
                scattered.Append(random.point(), true);
            return scattered;
        }();
        const GR_BezierPath2d open = fitter.Fit(points);
        ASSERT_LE(worstDistance(open, points), options.tolerance * (1 + 1e-9) + 1e-9) << round;
        ASSERT_EQ(open.GetFromPoint(), points.GetFromPoint());
        ASSERT_EQ(open.GetToPoint(), points.GetToPoint());
        const GR_BezierPath2d closed = fitter.FitClosed(points);
        ASSERT_LE(worstDistance(closed, points), options.tolerance * (1 + 1e-9) + 1e-9) << round;
        ASSERT_TRUE(closed.IsClosed());
    }
}

TEST(Fitter, FewCurvesAreEnoughForASmoothLine)
{
    curves::RandomCurves random(92);
    const GR_BezierPath2d points = drawnPoints(random, 1000, 0);
    const GR_BezierPath2d path = GR_BezierPath2dFitter(Options{}).Fit(points);
    EXPECT_LE(path.GetNumBezier(), 15u);
    EXPECT_LE(worstDistance(path, points), 1.0);
    // No two neighbours could be one: a piece that has been divided badly isn't left that way.
    GR_BezierPath2d wave;
    for (int i = 0; i <= 200; ++i)
        wave.Append({i * 2.0, 60 * std::sin(i / 20.0)}, true);
    EXPECT_LE(GR_BezierPath2dFitter(Options{}).Fit(wave).GetNumBezier(), 4u);
}

TEST(Fitter, ATremblingHandNeedsHardlyMoreCurves)
{
    // Points that lie closer than they tremble turn sharply everywhere, and yet the line has no corner.
    curves::RandomCurves random(93);
    for (const double spacing : {1.0, 0.3, 0.1, 0.03}) {
        SCOPED_TRACE(spacing);
        GR_BezierPath2d drawn;
        for (double x = 0; x < 400; x += spacing)
            drawn.Append({x, 60 * std::sin(x / 40) + random.number(-0.3, 0.3)}, true);
        const GR_BezierPath2d path = GR_BezierPath2dFitter(Options{}).Fit(drawn);
        EXPECT_LE(path.GetNumBezier(), 8u);
        EXPECT_LE(worstDistance(path, drawn), 1.0);
    }
}

TEST(Fitter, ACornerStaysWhereItIsHoweverCloseThePointsLie)
{
    for (const int count : {20, 100, 1000, 5000}) {
        SCOPED_TRACE(count);
        const GR_BezierPath2d path = GR_BezierPath2dFitter(Options{}).FitClosed(pointsOnSquare(count, 100));
        EXPECT_EQ(path, polyline({{0, 0}, {100, 0}, {100, 100}, {0, 100}, {0, 0}}));
    }
    GR_BezierPath2d back;
    for (int i = 0; i <= 400; ++i)
        back.Append({200.0 - std::abs(i - 200), 0}, true);
    EXPECT_EQ(GR_BezierPath2dFitter(Options{}).Fit(back), polyline({{0, 0}, {200, 0}, {0, 0}}));
}

TEST(Fitter, PointsOfOneCubicCurveGiveACurveNearIt)
{
    GR_BezierPath2d original;
    original.Append(curves::curve({{0, 0}, {30, 90}, {80, 60}, {100, 0}}));
    GR_BezierPath2d points;
    for (int i = 0; i <= 50; ++i)
        points.Append(original.Evaluate(i / 50.0), true);
    Options options;
    options.iterations = 1000;
    options.tangentOptimization = Options::OptimizeEndTangents;
    const GR_BezierPath2d path = GR_BezierPath2dFitter(options).FitOneBezier(points);
    ASSERT_EQ(path.GetNumBezier(), 1u);
    EXPECT_LT(worstDistance(path, points), 0.1);
}

TEST(Fitter, AClosedFitOfACircleIsSmoothEverywhere)
{
    const GR_BezierPath2d points = pointsOnCircle(200, 100);
    const GR_BezierPath2d path = GR_BezierPath2dFitter(Options{}).FitClosed(points);
    ASSERT_TRUE(path.IsClosed());
    EXPECT_LE(path.GetNumBezier(), 8u);
    EXPECT_LE(worstDistance(path, points), 1.0);
    EXPECT_NEAR(path.GetArea(), 10000 * std::numbers::pi, 400);
    for (unsigned int i = 0; i < path.GetNumBezier(); ++i) {
        const Math::Vector2d before = path.GetBezier(i).GetToTangent();
        const Math::Vector2d behind = path.GetBezier((i + 1) % path.GetNumBezier()).GetFromTangent();
        EXPECT_NEAR(before.dot(behind), 1, 1e-9) << i;
    }
}

TEST(Fitter, ASquareKeepsItsCornersAndItsSidesAreLines)
{
    for (const int count : {1, 2, 10, 250}) {
        SCOPED_TRACE(count);
        const GR_BezierPath2d path = GR_BezierPath2dFitter(Options{}).FitClosed(pointsOnSquare(count, 100));
        EXPECT_EQ(path, polyline({{0, 0}, {100, 0}, {100, 100}, {0, 100}, {0, 0}}));
    }
}

TEST(Fitter, ACornerElsewhereThanAtTheStartLeavesTheStartSmooth)
{
    GR_BezierPath2d points;
    for (int i = 0; i < 100; ++i) { // a drop, whose tip is halfway
        const double angle = 2 * std::numbers::pi * i / 100;
        points.Append(
            {-100 * std::cos(angle), 50 * std::sin(angle) * std::pow(std::sin(angle / 2 + std::numbers::pi / 2), 2)},
            true);
    }
    const GR_BezierPath2d path = GR_BezierPath2dFitter(Options{}).FitClosed(points);
    EXPECT_LE(worstDistance(path, points), 1.0);
    EXPECT_NEAR(path.GetFromTangent().dot(path.GetToTangent()), 1, 1e-9);
}

TEST(Fitter, TheCornerAngleDecidesWhatIsACorner)
{
    const GR_BezierPath2d points = pointsOnSquare(20, 100);
    Options options;
    options.cornerAngle = 80;
    EXPECT_FALSE(GR_BezierPath2dFitter(options).FitClosed(points).IsPolyline());
    options.cornerAngle = 100;
    EXPECT_TRUE(GR_BezierPath2dFitter(options).FitClosed(points).IsPolyline());
    options.cornerDetection = Options::NoCorners;
    EXPECT_FALSE(GR_BezierPath2dFitter(options).FitClosed(points).IsPolyline());
}

TEST(Fitter, StepsSmallerThanTheToleranceAreNoCorners)
{
    GR_BezierPath2d stairs;
    for (int i = 0; i < 100; ++i) {
        stairs.Append({i * 0.5, i * 0.5}, true);
        stairs.Append({i * 0.5 + 0.5, i * 0.5}, true);
    }
    EXPECT_LE(GR_BezierPath2dFitter(Options{}).Fit(stairs).GetNumBezier(), 4u);

    GR_BezierPath2d zigzag;
    for (int i = 0; i < 10; ++i)
        zigzag.Append({i * 100.0, i % 2 == 0 ? 0.0 : 100.0}, true);
    EXPECT_EQ(GR_BezierPath2dFitter(Options{}).Fit(zigzag), zigzag);
}

TEST(Fitter, LinesAreMadeAsTheOptionsSay)
{
    GR_BezierPath2d bent = polyline({{0, 0}, {50, 0.5}, {100, 0}});
    const auto degree = [&bent](Options::LinearInterpolation lines) {
        Options options;
        options.linearInterpolation = lines;
        return GR_BezierPath2dFitter(options).Fit(bent).GetDegree(0);
    };
    EXPECT_EQ(degree(Options::NoLines), 3u);
    EXPECT_EQ(degree(Options::LinesWithinTolerance), 1u);
    EXPECT_EQ(degree(Options::LinesBetweenCorners), 3u);
    bent.SetPoint(1, {50, 0});
    EXPECT_EQ(degree(Options::NoLines), 3u);
    EXPECT_EQ(degree(Options::LinesBetweenCorners), 1u);
}

TEST(Fitter, InterpolationPassesThroughEachPoint)
{
    curves::RandomCurves random(93);
    Options options;
    options.method = Options::Interpolation;
    options.cornerDetection = Options::NoCorners;
    for (const auto parametrization : {Options::Uniform, Options::ChordLength, Options::Centripetal}) {
        options.parametrization = parametrization;
        const GR_BezierPath2d points = drawnPoints(random, 30, 5);
        const GR_BezierPath2d path = GR_BezierPath2dFitter(options).Fit(points);
        ASSERT_EQ(path.GetNumBezier(), 29u);
        for (unsigned int i = 0; i < 30; ++i)
            EXPECT_EQ(path.Evaluate(i), points.GetPoint(i));
        for (unsigned int i = 1; i < 29; ++i)
            EXPECT_NEAR(path.GetBezier(i - 1).GetToTangent().dot(path.GetBezier(i).GetFromTangent()), 1, 1e-9);
    }
}

TEST(Fitter, OneBezierIsOneCurveFromTheFirstPointToTheLast)
{
    curves::RandomCurves random(94);
    const GR_BezierPath2d points = drawnPoints(random, 200, 3);
    const GR_BezierPath2d path = GR_BezierPath2dFitter(Options{}).FitOneBezier(points);
    ASSERT_EQ(path.GetNumBezier(), 1u);
    EXPECT_EQ(path.GetDegree(0), 3u);
    EXPECT_EQ(path.GetFromPoint(), points.GetFromPoint());
    EXPECT_EQ(path.GetToPoint(), points.GetToPoint());

    GR_BezierPath2d ring = pointsOnCircle(50, 10);
    ring.ClosePath();
    const GR_BezierPath2d loop = GR_BezierPath2dFitter(Options{}).FitOneBezier(ring);
    EXPECT_EQ(loop.GetNumBezier(), 1u);
    EXPECT_TRUE(loop.IsClosed());
    EXPECT_GT(std::abs(loop.GetArea()), 100);
}

TEST(Fitter, MoreIterationsComeNearer)
{
    GR_BezierPath2d points;
    for (int i = 0; i <= 60; ++i)
        points.Append({100 * std::cos(i * 0.04), 60 * std::sin(i * 0.04)}, true);
    Options options;
    options.iterations = 0;
    const double without = worstDistance(GR_BezierPath2dFitter(options).FitOneBezier(points), points);
    options.iterations = 20;
    const double with = worstDistance(GR_BezierPath2dFitter(options).FitOneBezier(points), points);
    EXPECT_LT(with, without);
}

TEST(Fitter, FewPointsGiveThePathOfThem)
{
    const GR_BezierPath2dFitter fitter(Options{});
    EXPECT_TRUE(fitter.Fit({}).IsEmpty());
    EXPECT_TRUE(fitter.FitOneBezier({}).IsEmpty());
    EXPECT_TRUE(fitter.FitClosed({}).IsEmpty());
    const GR_BezierPath2d same = polyline({{1, 2}, {1, 2}, {1, 2}});
    EXPECT_EQ(fitter.Fit(same), polyline({{1, 2}}));
    EXPECT_EQ(fitter.FitOneBezier(same), polyline({{1, 2}}));
    EXPECT_EQ(fitter.FitClosed(same), polyline({{1, 2}}));
    EXPECT_EQ(fitter.Fit(polyline({{0, 0}, {5, 5}})), polyline({{0, 0}, {5, 5}}));
    EXPECT_EQ(fitter.FitClosed(polyline({{0, 0}, {50, 50}})), polyline({{0, 0}, {50, 50}, {0, 0}}));
}

TEST(Fitter, AClosedFitTakesALastPointThatIsTheFirstAsThatPoint)
{
    const GR_BezierPath2d open = pointsOnCircle(40, 50);
    GR_BezierPath2d closed = open;
    closed.ClosePath();
    const GR_BezierPath2dFitter fitter(Options{});
    EXPECT_EQ(fitter.FitClosed(open), fitter.FitClosed(closed));
}

TEST(Fitter, HandlesOfTheGivenPathAreNoPoints)
{
    GR_BezierPath2d path;
    path.Append({0, 0}, true);
    path.Append({50, 500}, false);
    path.Append({100, 0}, true);
    EXPECT_EQ(GR_BezierPath2dFitter(Options{}).Fit(path), polyline({{0, 0}, {100, 0}}));
}

TEST(Fitter, OptionsOutOfRangeAreRefused)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const auto refused = [](auto change) {
        Options options;
        change(options);
        EXPECT_THROW(GR_BezierPath2dFitter{options}, std::invalid_argument);
    };
    for (const double tolerance : {0.0, -1.0, nan, std::numeric_limits<double>::infinity()})
        refused([=](Options& options) { options.tolerance = tolerance; });
    for (const int iterations : {-1, 1001})
        refused([=](Options& options) { options.iterations = iterations; });
    for (const int neighbours : {0, -5, 1001})
        refused([=](Options& options) { options.neighbours = neighbours; });
    for (const double angle : {-1.0, 181.0, nan})
        refused([=](Options& options) { options.cornerAngle = angle; });
}

TEST(Fitter, PointsThatAreNotFiniteAreRefused)
{
    const GR_BezierPath2dFitter fitter(Options{});
    const GR_BezierPath2d odd = polyline({{0, 0}, {std::numeric_limits<double>::quiet_NaN(), 1}, {2, 2}});
    EXPECT_THROW(fitter.Fit(odd), std::domain_error);
    EXPECT_THROW(fitter.FitOneBezier(odd), std::domain_error);
    EXPECT_THROW(fitter.FitClosed(odd), std::domain_error);
}

TEST(Fitter, ManyScatteredPointsAreFittedSoon)
{
    curves::RandomCurves random(95);
    GR_BezierPath2d points;
    for (int i = 0; i < 20000; ++i)
        points.Append(random.point(), true);
    Options options;
    options.cornerDetection = Options::NoCorners;
    const auto start = std::chrono::steady_clock::now();
    const GR_BezierPath2d path = GR_BezierPath2dFitter(options).Fit(points);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    EXPECT_GT(path.GetNumBezier(), 1000u);
}

} // namespace
