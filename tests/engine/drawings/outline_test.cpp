#include "engine/drawings/outline.h"

#include "tests/engine/drawings/randomdrawings.h"
#include "tests/engine/geometry2d/randomcurves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <stdexcept>

namespace {

using brindle::engine::LineForm;
using brindle::engine::LineSection;
using brindle::engine::LineSections;
using brindle::engine::Outline;
using brindle::engine::outlineBox;
using brindle::engine::outlineOf;
using curves::polyline;

LineForm evenLine(const GR_BezierPath2d& path, double halfWidth, GR_TipType tip = kRoundTip)
{
    return {&path, {}, halfWidth, {tip, tip}};
}

LineForm keyedLine(const GR_BezierPath2d& path, const std::vector<GR_ThicknessPath::ThicknessKey>& keys,
                   GR_TipType tip = kFlatTip)
{
    return {&path, GR_ThicknessBinder(GR_ThicknessPath::CreateWith(keys)), 0, {tip, tip}};
}

/// How far a place lies inside a convex piece; below 0, outside.
double depthIn(std::span<const Math::Point2d> piece, const Math::Point2d& place)
{
    double depth = 1e300;
    for (std::size_t i = 0; i < piece.size(); ++i) {
        const Math::Vector2d way = piece[(i + 1) % piece.size()] - piece[i];
        depth = std::min(depth, way.cross(place - piece[i]) / way.length());
    }
    return depth;
}

double depthIn(const Outline& outline, const Math::Point2d& place)
{
    double depth = -1e300;
    for (std::size_t i = 0; i < outline.pieceCount(); ++i)
        depth = std::max(depth, depthIn(outline.piece(i), place));
    return depth;
}

double areaOfPiece(std::span<const Math::Point2d> piece)
{
    return drawings::polygonArea({piece.begin(), piece.end()});
}

double areaOfPieces(const Outline& outline)
{
    double area = 0;
    for (std::size_t i = 0; i < outline.pieceCount(); ++i)
        area += areaOfPiece(outline.piece(i));
    return area;
}

void expectConvexPieces(const Outline& outline)
{
    const std::size_t step = outline.pieceCount() / 1000 + 1; // all of them but for the largest outlines
    for (std::size_t i = 0; i < outline.pieceCount(); i += step) {
        const auto piece = outline.piece(i);
        ASSERT_GE(piece.size(), 3u);
        EXPECT_GT(areaOfPiece(piece), 0);
        double size = 0;
        double angle = 0;
        for (std::size_t j = 0; j < piece.size(); ++j) {
            const Math::Vector2d in = piece[(j + 1) % piece.size()] - piece[j];
            const Math::Vector2d out = piece[(j + 2) % piece.size()] - piece[(j + 1) % piece.size()];
            size = std::max(size, in.length());
            EXPECT_GE(in.cross(out), -1e-9 * size * size);
            angle += std::atan2(in.cross(out), in.dot(out));
        }
        EXPECT_NEAR(angle, 2 * std::numbers::pi, 1e-3);
    }
}

TEST(Outline, AnEvenRoundLineIsWhatADiscSweeps)
{
    curves::RandomCurves random(1);
    for (int round = 0; round < 60; ++round) {
        GR_BezierPath2d path = random.path(1 + random.below(4));
        if (random.below(4) == 0)
            path.ClosePath();
        const double halfWidth = std::exp(random.number(-2, 4));
        const double tolerance = halfWidth * 1e-2;
        const LineForm form = evenLine(path, halfWidth);
        const Outline outline = outlineOf(form, tolerance);
        expectConvexPieces(outline);
        const Math::Box2d box = outlineBox(form);
        for (int i = 0; i < 60; ++i) {
            const Math::Point2d place{random.number(box.minX(), box.maxX()), random.number(box.minY(), box.maxY())};
            double square = 1e300;
            double parameter = 0;
            ASSERT_TRUE(path.GetClosestPoint(place, square, parameter));
            const double away = std::sqrt(square);
            const double depth = depthIn(outline, place);
            if (away < halfWidth - 2 * tolerance) {
                EXPECT_GE(depth, -1e-9 * halfWidth) << "round " << round;
            } else if (away > halfWidth + 2 * tolerance) {
                EXPECT_LT(depth, 0) << "round " << round;
            }
        }
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
}

std::vector<GR_ThicknessPath::ThicknessKey> randomKeys(curves::RandomCurves& random)
{
    std::vector<GR_ThicknessPath::ThicknessKey> keys;
    for (unsigned int count = 1 + random.below(5); count > 0; --count) {
        GR_ThicknessPath::ThicknessKey key(random.number(-0.2, 1.2), random.number(0, 20), random.number(0, 20));
        if (random.below(2) == 0) {
            key.left.toControlPosition += 0.1;
            key.left.toControl = random.number(0, 30);
            key.right.fromControlPosition -= 0.1;
            key.right.fromControl = random.number(0, 30);
        }
        keys.push_back(key);
    }
    return keys;
}

TEST(Outline, ALineOfVaryingWidthCoversItsSectionsAndNoMore)
{
    curves::RandomCurves random(2);
    for (int round = 0; round < 60; ++round) {
        const GR_BezierPath2d path = random.path(1 + random.below(3));
        const LineForm form = keyedLine(path, randomKeys(random));
        constexpr double tolerance = 0.05;
        const Outline outline = outlineOf(form, tolerance);
        expectConvexPieces(outline);
        const LineSections sections(form);
        std::vector<std::pair<Math::Point2d, double>> discs; // whose union holds the line
        for (int span = 0; span < sections.spanCount(); ++span) {
            for (int i = 0; i <= 64; ++i) {
                const LineSection section = sections.at(span, i / 64.0);
                discs.emplace_back(section.place, std::max(section.widths.left, section.widths.right));
                const double across = random.number(0, 1);
                const Math::Point2d place = section.left() + (section.right() - section.left()) * across;
                if ((section.right() - section.left()).length() > 4 * tolerance) {
                    EXPECT_GE(depthIn(outline, place), -3 * tolerance) << "round " << round;
                }
            }
        }
        for (std::size_t i = 0; i < outline.pieceCount(); i += 7) {
            for (const Math::Point2d& point : outline.piece(i)) {
                const bool isHeld = std::ranges::any_of(
                    discs, [&](const auto& disc) { return (point - disc.first).length() <= disc.second + 4; });
                EXPECT_TRUE(isHeld) << "round " << round;
            }
        }
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
}

TEST(Outline, BoxesAreThoseOfManySections)
{
    curves::RandomCurves random(3);
    for (int round = 0; round < 80; ++round) {
        const GR_BezierPath2d path = random.path(1 + random.below(3));
        const LineForm form = random.below(2) == 0 ? evenLine(path, random.number(0.1, 60), kFlatTip)
                                                   : keyedLine(path, randomKeys(random));
        const Math::Box2d box = outlineBox(form);
        const double width = form.largestHalfWidth();
        // Sections, and discs at corners, by sampling.
        Math::Box2d sampled;
        const LineSections sections(form);
        for (int span = 0; span < sections.spanCount(); ++span) {
            for (int i = 0; i <= 2000; ++i) {
                const LineSection section = sections.at(span, i / 2000.0);
                sampled.AddClosed(section.left());
                sampled.AddClosed(section.right());
            }
        }
        const Outline fine = outlineOf(form, width * 1e-5);
        for (std::size_t i = 0; i < fine.pieceCount(); ++i) {
            for (const Math::Point2d& point : fine.piece(i))
                sampled.AddClosed(point);
        }
        const double near = 1e-4 * (width + box.width());
        EXPECT_LE(box.minX(), sampled.minX() + 1e-6 * width) << round;
        EXPECT_LE(box.minY(), sampled.minY() + 1e-6 * width) << round;
        EXPECT_GE(box.maxX(), sampled.maxX() - 1e-6 * width) << round;
        EXPECT_GE(box.maxY(), sampled.maxY() - 1e-6 * width) << round;
        EXPECT_NEAR(box.minX(), sampled.minX(), near) << round;
        EXPECT_NEAR(box.minY(), sampled.minY(), near) << round;
        EXPECT_NEAR(box.maxX(), sampled.maxX(), near) << round;
        EXPECT_NEAR(box.maxY(), sampled.maxY(), near) << round;
    }
}

TEST(Outline, TipsOfAStraightLine)
{
    const GR_BezierPath2d path = polyline({{0, 0}, {100, 0}});
    struct Row {
        const char* name;
        GR_TipType tip;
        double area;
        Math::Box2d box;
    };
    const double pi = std::numbers::pi;
    const Row rows[] = {
        {"flat", kFlatTip, 2000, {{0, -10}, {100, 10}}},
        {"round", kRoundTip, 2000 + 100 * pi, {{-10, -10}, {110, 10}}},
        {"bevel", kBevelTip, 2000 + 2 * 175, {{-10, -10}, {110, 10}}},
    };
    for (const Row& row : rows) {
        const LineForm form = evenLine(path, 10, row.tip);
        EXPECT_NEAR(areaOfPieces(outlineOf(form, 1e-3)), row.area, 1) << row.name;
        const Math::Box2d box = outlineBox(form);
        EXPECT_NEAR(box.minX(), row.box.minX(), 1e-9) << row.name;
        EXPECT_NEAR(box.maxX(), row.box.maxX(), 1e-9) << row.name;
        EXPECT_NEAR(box.minY(), row.box.minY(), 1e-9) << row.name;
        EXPECT_NEAR(box.maxY(), row.box.maxY(), 1e-9) << row.name;
    }
}

TEST(Outline, LeftAndRightAreThoseOfTheStroke)
{
    const GR_BezierPath2d path = polyline({{0, 0}, {100, 0}});
    const LineForm form = keyedLine(path, {{0, 1, 0}, {0.5, 3, 5}, {1, 1, 0}});
    const Math::Box2d box = outlineBox(form);
    EXPECT_NEAR(box.maxY(), 3, 1e-9);
    EXPECT_NEAR(box.minY(), -5, 1e-9);
    EXPECT_NEAR(areaOfPieces(outlineOf(form, 1e-3)), 200 + 250, 1e-6);
}

TEST(Outline, WidthsFollowTheLengthOfThePath)
{
    // A tenth of the way is one tenth of the length, wherever the points of the path stand.
    GR_BezierPath2d path = polyline({{0, 0}, {1, 0}, {2, 0}, {100, 0}});
    const LineForm form = keyedLine(path, {{0, 0, 0}, {0.1, 8, 8}, {0.2, 0, 0}, {1, 0, 0}});
    const Outline outline = outlineOf(form, 1e-3);
    EXPECT_NEAR(depthIn(outline, {10, 0}), 0, 1e-6); // where two pieces meet at the widest place
    EXPECT_LT(depthIn(outline, {10, 8.01}), 0);
    EXPECT_GE(depthIn(outline, {10, 7.99}), -1e-9);
    EXPECT_LT(depthIn(outline, {25, 0.01}), 0);
    EXPECT_NEAR(outlineBox(form).maxY(), 8, 1e-9);
}

TEST(Outline, ACurveMayShapeTheTip)
{
    const GR_BezierPath2d path = polyline({{0, 0}, {100, 0}});
    // An arrow with barbs: its polygon is not convex.
    GR_Bezier2d arrow = curves::curve({{-1, 3}, {5, 1}, {5, -1}, {-1, -3}});
    auto thickness = std::make_shared<GR_ThicknessPath>(2.0);
    thickness->setTipToBezier(arrow);
    const LineForm form{&path, GR_ThicknessBinder(thickness), 0, {kFlatTip, kFlatTip}};
    const Outline outline = outlineOf(form, 1e-3);
    expectConvexPieces(outline);
    EXPECT_NEAR(outlineBox(form).maxX(), 100 + 2 * 3.5, 1e-9);
    EXPECT_NEAR(outlineBox(form).maxY(), 6, 1e-9);
    EXPECT_GT(depthIn(outline, {104, 0}), 0);
    EXPECT_LT(depthIn(outline, {90, 5}), 0);
}

TEST(Outline, APathInOnePlaceIsADotWithRoundTips)
{
    for (const GR_BezierPath2d& path : {polyline({{3, 4}}), polyline({{3, 4}, {3, 4}})}) {
        const LineForm dot = evenLine(path, 2);
        EXPECT_NEAR(areaOfPieces(outlineOf(dot, 1e-4)), 4 * std::numbers::pi, 1e-2);
        EXPECT_NEAR(outlineBox(dot).minX(), 1, 1e-9);
        EXPECT_NEAR(outlineBox(dot).maxY(), 6, 1e-9);
        EXPECT_EQ(outlineOf(evenLine(path, 2, kFlatTip), 1e-4).pieceCount(), 0u);
    }
}

TEST(Outline, NoWidthGivesNothing)
{
    const GR_BezierPath2d path = curves::circle({0, 0}, 10);
    const GR_BezierPath2d empty;
    EXPECT_EQ(outlineOf(evenLine(path, 0), 0.1).pieceCount(), 0u);
    EXPECT_TRUE(outlineBox(evenLine(path, 0)).isEmpty());
    EXPECT_EQ(outlineOf(keyedLine(path, {{0.5, 0, 0}}), 0.1).pieceCount(), 0u);
    EXPECT_EQ(outlineOf(evenLine(empty, 1), 0.1).pieceCount(), 0u);
    EXPECT_TRUE(outlineBox(evenLine(empty, 1)).isEmpty());
}

TEST(Outline, AClosedPathIsJoinedUnlessItsThicknessIsOpen)
{
    const GR_BezierPath2d square = polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}});
    const LineForm even = evenLine(square, 1, kFlatTip);
    EXPECT_GT(depthIn(outlineOf(even, 1e-3), {-0.6, -0.6}), 0);
    const LineForm open = keyedLine(square, {{0, 1, 1}, {1, 1, 1}});
    EXPECT_LT(depthIn(outlineOf(open, 1e-3), {-0.6, -0.6}), 0);
    auto thickness = std::make_shared<GR_ThicknessPath>(1.0);
    thickness->setClosed(true);
    const LineForm closed{&square, GR_ThicknessBinder(thickness), 0, {kFlatTip, kFlatTip}};
    EXPECT_GT(depthIn(outlineOf(closed, 1e-3), {-0.6, -0.6}), 0);
}

TEST(Outline, APathThatTurnsBackEndsInASemicircle)
{
    const GR_BezierPath2d path = polyline({{0, 0}, {10, 0}, {5, 0}});
    const LineForm form = keyedLine(path, {{0, 1, 2}, {1, 1, 2}});
    EXPECT_NEAR(outlineBox(form).maxX(), 12, 1e-9);
    EXPECT_GT(depthIn(outlineOf(form, 1e-3), {11.9, 0.1}), 0);
}

TEST(Outline, ThePiecesOfAHostileLineAreBounded)
{
    const GR_BezierPath2d loop = curves::circle({0, 0}, 1e6);
    const Outline outline = outlineOf(evenLine(loop, 1e6), 1e-300);
    EXPECT_GT(outline.pieceCount(), 1000u);
    EXPECT_LE(outline.pieceCount(), brindle::engine::mostOutlinePieces + 64);
    expectConvexPieces(outline);

    GR_BezierPath2d zigzag;
    for (int i = 0; i < 70000; ++i)
        zigzag.Append({i * 0.1, i % 2 * 10.0}, true);
    EXPECT_LT(outlineOf(evenLine(zigzag, 3), 1e-3).pieceCount(), 200000u);

    auto dense = std::make_shared<GR_ThicknessPath>(3.0);
    dense->setClosed(true);
    GR_ThicknessBinder binder(dense);
    binder.stopPosition = 1e12;
    EXPECT_GT(outlineOf({&loop, binder, 0, {kFlatTip, kFlatTip}}, 1e5).pieceCount(), 3u);
}

TEST(Outline, NumbersThatCannotBeUsedAreRefused)
{
    const GR_BezierPath2d path = polyline({{0, 0}, {1, 0}});
    for (const double bad : {0.0, -1.0, std::numeric_limits<double>::infinity(), std::nan("")})
        EXPECT_THROW(outlineOf(evenLine(path, 1), bad), std::invalid_argument);
    const GR_BezierPath2d endless = polyline({{0, 0}, {std::numeric_limits<double>::infinity(), 0}});
    EXPECT_THROW(outlineOf(evenLine(endless, 1), 1), std::domain_error);
    EXPECT_THROW(outlineBox(evenLine(endless, 1)), std::domain_error);
    const GR_BezierPath2d huge = polyline({{-1e308, 0}, {1e308, 1e308}, {0, -1e308}});
    expectConvexPieces(outlineOf(evenLine(huge, 1e307), 1));
    EXPECT_THROW(outlineBox(evenLine(huge, 1.7e308)), std::domain_error); // its tips reach further than a double
}

} // namespace
