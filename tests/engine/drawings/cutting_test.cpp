#include "engine/drawings/cutting.h"

#include "engine/drawings/jointgrid.h"
#include "tests/engine/drawings/randomdrawings.h"
#include "tests/engine/geometry2d/randomcurves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace {

using brindle::engine::crossedComponents;
using brindle::engine::cutPieces;
using brindle::engine::JointGrid;
using brindle::engine::StrokePiece;
using curves::circle;
using curves::polyline;
using drawings::PlanarMap;
using drawings::Strokes;

constexpr double reach = JointGrid::defaultReach;

/// The strokes as they are after cutting.
Strokes afterCutting(const Strokes& before)
{
    Strokes after;
    const auto pieces = cutPieces(before.strokes(), reach);
    for (std::size_t i = 0; i < before.strokes().size(); ++i) {
        bool isCut = false;
        for (const StrokePiece& piece : pieces) {
            if (piece.stroke == static_cast<int>(i)) {
                after.add(piece.path);
                isCut = true;
            }
        }
        if (!isCut)
            after.add(*before.strokes()[i].path);
    }
    return after;
}

void expectWithoutCrossings(const Strokes& strokes)
{
    const PlanarMap map = strokes.map();
    const auto crossed = crossedComponents(map, reach);
    EXPECT_EQ(std::ranges::count(crossed, true), 0);
    int edges = 0;
    for (int stroke = 0; stroke < map.strokeCount(); ++stroke)
        edges += !map.isDegenerateStroke(stroke);
    EXPECT_EQ(map.jointCount() - edges + map.contourCount(), 2 * map.componentCount());
}

TEST(Cutting, RandomStrokesDontCrossAfterwards)
{
    curves::RandomCurves random(1);
    std::size_t most = 0;
    for (int round = 0; round < 200; ++round) {
        Strokes strokes;
        for (unsigned int count = 1 + random.below(6); count > 0; --count) {
            GR_BezierPath2d path = random.path(1 + random.below(3));
            if (random.below(3) == 0)
                path.ClosePath();
            strokes.add(path);
        }
        const auto pieces = cutPieces(strokes.strokes(), reach);
        most = std::max(most, pieces.size());
        const Strokes after = afterCutting(strokes);
        expectWithoutCrossings(after);
        EXPECT_TRUE(cutPieces(after.strokes(), reach).empty());
        const auto crossed = crossedComponents(strokes.map(), reach);
        EXPECT_EQ(std::ranges::count(crossed, true) > 0, !pieces.empty());
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
    EXPECT_GT(most, 50u);
}

TEST(Cutting, PiecesTogetherAreTheStroke)
{
    curves::RandomCurves random(2);
    for (int round = 0; round < 100; ++round) {
        Strokes strokes;
        for (int i = 0; i < 4; ++i)
            strokes.add(random.path(2));
        int stroke = -1;
        double length = 0;
        double share = 0;
        Math::Point2d last;
        const auto pieces = cutPieces(strokes.strokes(), reach);
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            const StrokePiece& piece = pieces[i];
            const GR_BezierPath2d& whole = *strokes.strokes()[static_cast<std::size_t>(piece.stroke)].path;
            const bool isFirst = piece.stroke != stroke;
            const bool isLast = i + 1 == pieces.size() || pieces[i + 1].stroke != piece.stroke;
            if (isFirst) {
                stroke = piece.stroke;
                length = share = 0;
                last = whole.GetFromPoint();
            }
            EXPECT_EQ(piece.tailCut, !isFirst);
            EXPECT_EQ(piece.headCut, !isLast);
            EXPECT_EQ(piece.path.GetFromPoint(), last);
            EXPECT_EQ(piece.from, share);
            EXPECT_LT(piece.from, piece.to);
            length += piece.path.GetLength();
            EXPECT_NEAR(piece.to, length / whole.GetLength(), 1e-6);
            for (const double at : {0.25, 0.75}) {
                double square = 1e300;
                double parameter = 0;
                whole.GetClosestPoint(piece.path.Evaluate(at * piece.path.GetNumBezier()), square, parameter);
                EXPECT_LT(std::sqrt(square), 1e-6);
            }
            last = piece.path.GetToPoint();
            share = piece.to;
            if (isLast) {
                EXPECT_EQ(piece.to, 1);
                EXPECT_EQ(last, whole.GetToPoint());
            }
        }
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
}

TEST(Cutting, KnownDrawingsAreCutIntoKnownNumbersOfPieces)
{
    struct Row {
        const char* name;
        std::vector<GR_BezierPath2d> paths;
        std::vector<int> pieces; ///< Of each stroke; 0: it is not cut.
        int joints;
    };
    const Row rows[] = {
        {"a cross", {polyline({{0, 0}, {2, 2}}), polyline({{0, 2}, {2, 0}})}, {2, 2}, 5},
        {"a T", {polyline({{0, 0}, {4, 0}}), polyline({{1, 0}, {1, 3}})}, {2, 0}, 4},
        {"a T at a point of the path", {polyline({{0, 0}, {1, 0}, {4, 0}}), polyline({{1, 0}, {1, 3}})}, {2, 0}, 4},
        {"an L", {polyline({{0, 0}, {4, 0}}), polyline({{0, 0}, {0, 3}})}, {0, 0}, 3},
        {"a star of three",
         {polyline({{-1, 0}, {1, 0}}), polyline({{-1, -1}, {1, 1}}), polyline({{-1, 1}, {1, -1}})},
         {2, 2, 2},
         7},
        {"a cross at points of both paths",
         {polyline({{0, 0}, {1, 1}, {2, 2}}), polyline({{0, 2}, {1, 1}, {2, 0}})},
         {2, 2},
         5},
        {"a loop of one stroke", {polyline({{0, 0}, {4, 0}, {4, 4}, {2, 4}, {2, -2}})}, {3}, 3},
        {"an eight", {polyline({{0, 0}, {4, 4}, {4, 0}, {0, 4}, {0, 0}})}, {3}, 2},
        {"a stroke through a closed one", {circle({0, 0}, 2), polyline({{-5, 0.5}, {5, 0.5}})}, {3, 3}, 5},
        {"circles that touch", {circle({0, 0}, 1), circle({2, 0}, 1)}, {2, 2}, 3},
        {"lines that coincide for a while", {polyline({{0, 0}, {3, 0}}), polyline({{2, 0}, {5, 0}})}, {2, 2}, 4},
        {"the same line twice", {polyline({{0, 0}, {3, 0}}), polyline({{0, 0}, {3, 0}})}, {0, 0}, 2},
        {"a crossing within reach of an end", {polyline({{0, 0}, {4, 0}}), polyline({{1, -1e-5}, {1, 3}})}, {2, 0}, 4},
        {"strokes side by side", {polyline({{0, 0}, {4, 0}}), polyline({{0, 1}, {4, 1}})}, {0, 0}, 4},
        {"a point on a line", {polyline({{0, 0}, {4, 0}}), polyline({{1, 0}})}, {0, 0}, 2},
        {"nothing", {{}}, {0}, 0},
    };
    for (const Row& row : rows) {
        Strokes strokes;
        for (const GR_BezierPath2d& path : row.paths)
            strokes.add(path);
        std::vector<int> pieces(row.paths.size(), 0);
        for (const StrokePiece& piece : cutPieces(strokes.strokes(), reach))
            ++pieces[static_cast<std::size_t>(piece.stroke)];
        EXPECT_EQ(pieces, row.pieces) << row.name;
        const Strokes after = afterCutting(strokes);
        EXPECT_EQ(after.map().jointCount(), row.joints) << row.name;
        expectWithoutCrossings(after);
        const auto crossed = crossedComponents(strokes.map(), reach);
        const bool isCut = std::ranges::any_of(pieces, [](int count) { return count > 0; });
        EXPECT_EQ(std::ranges::count(crossed, true) > 0, isCut) << row.name;
    }
}

TEST(Cutting, ComponentsThatCrossAreTold)
{
    Strokes strokes;
    strokes.add(circle({0, 0}, 5));
    strokes.add(circle({4, 0}, 5)); // crosses the first one
    strokes.add(circle({20, 0}, 2));
    strokes.add(polyline({{18, 0}, {30, 0}, {30, 5}, {25, -5}})); // crosses itself and the circle
    strokes.add(circle({50, 0}, 2));
    const PlanarMap map = strokes.map();
    const auto crossed = crossedComponents(map, reach);
    const auto isCrossed = [&](int stroke) {
        const int contour = map.contourOf(PlanarMap::halfEdge(stroke, PlanarMap::Left));
        return crossed[static_cast<std::size_t>(map.componentOf(contour))];
    };
    EXPECT_TRUE(isCrossed(0) && isCrossed(1) && isCrossed(2) && isCrossed(3));
    EXPECT_FALSE(isCrossed(4));
}

TEST(Cutting, DrawingsWithoutCrossingsAreLeftAlone)
{
    curves::RandomCurves random(3);
    for (int round = 0; round < 60; ++round) {
        const Strokes strokes = drawings::randomPlanarDrawing(random);
        EXPECT_TRUE(cutPieces(strokes.strokes(), 1e-6).empty()) << "round " << round;
        const auto crossed = crossedComponents(strokes.map(), 1e-6);
        EXPECT_EQ(std::ranges::count(crossed, true), 0) << "round " << round;
    }
}

TEST(Cutting, TanglesWithCoincidentStrokesAreCutInTheEnd)
{
    curves::RandomCurves random(4);
    for (int round = 0; round < 100; ++round) {
        Strokes strokes = drawings::randomTangle(random, 8);
        for (int again = 0; again < 4; ++again)
            strokes = afterCutting(strokes);
        EXPECT_TRUE(cutPieces(strokes.strokes(), reach).empty()) << "round " << round;
    }
}

TEST(Cutting, NumbersThatAreNotFiniteAreRefused)
{
    Strokes strokes;
    strokes.add(polyline({{0, 0}, {std::numeric_limits<double>::infinity(), 1}}));
    EXPECT_THROW(cutPieces(strokes.strokes(), reach), std::domain_error);
}

} // namespace
