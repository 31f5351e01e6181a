#include "engine/drawings/planarmap.h"

#include "tests/engine/drawings/randomdrawings.h"
#include "tests/engine/geometry2d/randomcurves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <numeric>
#include <stdexcept>

namespace {

using curves::circle;
using curves::polyline;
using drawings::bow;
using drawings::contourNames;
using drawings::PlanarMap;
using drawings::Strokes;

constexpr int none = PlanarMap::none;

int leftOf(int stroke)
{
    return PlanarMap::halfEdge(stroke, PlanarMap::Left);
}

int rightOf(int stroke)
{
    return PlanarMap::halfEdge(stroke, PlanarMap::Right);
}

/// What holds for every map, whether strokes cross or not.
void expectWhole(const PlanarMap& map)
{
    std::vector<int> followed(static_cast<std::size_t>(map.halfEdgeCount()), 0);
    std::vector<int> onContours = followed;
    for (int edge = 0; edge < map.halfEdgeCount(); ++edge) {
        EXPECT_EQ(PlanarMap::twin(PlanarMap::twin(edge)), edge);
        if (map.isDegenerateStroke(PlanarMap::strokeOf(edge))) {
            EXPECT_EQ(map.next(edge), none);
            EXPECT_EQ(map.contourOf(edge), none);
            continue;
        }
        ++followed[static_cast<std::size_t>(map.next(edge))];
        EXPECT_EQ(map.origin(map.next(edge)), map.origin(PlanarMap::twin(edge)));
        EXPECT_EQ(map.contourOf(map.next(edge)), map.contourOf(edge));
        EXPECT_EQ(map.rightNeighbour(map.leftNeighbour(edge)), edge);
        EXPECT_NEAR(map.tangent(edge).length(), 1, 1e-12);
    }
    for (int contour = 0; contour < map.contourCount(); ++contour) {
        for (const int edge : map.halfEdges(contour)) {
            ++onContours[static_cast<std::size_t>(edge)];
            EXPECT_EQ(map.contourOf(edge), contour);
        }
        EXPECT_EQ(map.relation(contour, contour), PlanarMap::Same);
    }
    int ends = 0;
    for (int joint = 0; joint < map.jointCount(); ++joint)
        ends += map.degree(joint);
    int edges = 0;
    for (int stroke = 0; stroke < map.strokeCount(); ++stroke) {
        const int expected = map.isDegenerateStroke(stroke) ? 0 : 1;
        edges += expected;
        for (const int edge : {leftOf(stroke), rightOf(stroke)}) {
            EXPECT_EQ(followed[static_cast<std::size_t>(edge)], expected);
            EXPECT_EQ(onContours[static_cast<std::size_t>(edge)], expected);
        }
    }
    EXPECT_EQ(ends, 2 * edges);
    // With crossings, components have handles: each takes two contours away.
    const int defect = 2 * map.componentCount() - (map.jointCount() - edges + map.contourCount());
    EXPECT_GE(defect, 0);
    EXPECT_EQ(defect % 2, 0);

    std::vector<double> sums(static_cast<std::size_t>(map.componentCount()), 0);
    std::vector<double> sizes = sums;
    for (int contour = 0; contour < map.contourCount(); ++contour) {
        const auto component = static_cast<std::size_t>(map.componentOf(contour));
        sums[component] += map.area(contour);
        const double size = map.box(contour).width() + map.box(contour).height();
        sizes[component] = std::max(sizes[component], size);
    }
    for (std::size_t component = 0; component < sums.size(); ++component)
        EXPECT_NEAR(sums[component], 0, 1e-10 * sizes[component] * sizes[component]);
}

void expectPlanar(const PlanarMap& map)
{
    EXPECT_EQ(map.jointCount() - map.strokeCount() + map.contourCount(), 2 * map.componentCount());
    for (int contour = 0; contour < map.contourCount(); ++contour) {
        EXPECT_EQ(map.isClockwise(contour), map.isOuter(contour) && !map.isDegenerate(contour));
        EXPECT_TRUE(map.isOuter(contour) || !map.isDegenerate(contour));
    }
}

TEST(PlanarMap, HoldsWhatPlanarMapsHoldForRandomDrawings)
{
    curves::RandomCurves random(1);
    for (int round = 0; round < 300; ++round) {
        const Strokes drawing = drawings::randomPlanarDrawing(random);
        const PlanarMap map = drawing.map();
        expectWhole(map);
        expectPlanar(map);
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
}

TEST(PlanarMap, HoldsWhatHoldsWithCrossingsForRandomTangles)
{
    curves::RandomCurves random(2);
    for (int round = 0; round < 1000; ++round) {
        const Strokes drawing = drawings::randomTangle(random, random.below(20));
        expectWhole(drawing.map());
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
}

TEST(PlanarMap, ReversingStrokesSwapsTheirSidesAndChangesNothingElse)
{
    curves::RandomCurves random(3);
    for (int round = 0; round < 400; ++round) {
        Strokes drawing = round % 4 == 0 ? drawings::randomPlanarDrawing(random) : drawings::randomTangle(random, 8);
        const auto before = contourNames(drawing.map());
        std::set<unsigned int> reversed;
        for (const auto& stroke : drawing.strokes()) {
            // One that is the same either way has no sides to swap.
            if (random.below(2) == 0 && !stroke.path->isReverseEqual(*stroke.path))
                reversed.insert(stroke.id);
        }
        for (std::size_t i = 0; i < drawing.size(); ++i) {
            if (reversed.contains(static_cast<unsigned int>(i + 1)))
                drawing.path(i).Reverse();
        }
        ASSERT_EQ(contourNames(drawing.map(), reversed), before) << "round " << round;
    }
}

TEST(PlanarMap, NewIdsChangeTheNamesOnly)
{
    curves::RandomCurves random(4);
    for (int round = 0; round < 100; ++round) {
        Strokes drawing = drawings::randomPlanarDrawing(random);
        const auto before = contourNames(drawing.map());
        std::vector<unsigned int> ids(drawing.size());
        std::iota(ids.begin(), ids.end(), 1001);
        for (std::size_t i = ids.size(); i > 1; --i)
            std::swap(ids[i - 1], ids[random.below(static_cast<unsigned int>(i))]);
        drawings::Names expected;
        for (const auto& sides : before) {
            std::set<std::pair<unsigned int, int>> renamed;
            for (const auto& [id, side] : sides)
                renamed.emplace(ids[id - 1], side);
            expected.insert(renamed);
        }
        for (std::size_t i = 0; i < ids.size(); ++i)
            drawing.setId(i, ids[i]);
        ASSERT_EQ(contourNames(drawing.map()), expected) << "round " << round;
    }
}

TEST(PlanarMap, TheOrderOfTheStrokesChangesNoNumberOfAContourOrJoint)
{
    curves::RandomCurves random(5);
    for (int round = 0; round < 50; ++round) {
        Strokes drawing = round % 2 == 0 ? drawings::randomPlanarDrawing(random) : drawings::randomTangle(random, 12);
        const PlanarMap before = drawing.map();
        drawing.shuffle(random);
        const PlanarMap after = drawing.map();
        ASSERT_EQ(after.contourCount(), before.contourCount());
        for (int contour = 0; contour < before.contourCount(); ++contour) {
            EXPECT_EQ(after.area(contour), before.area(contour));
            EXPECT_EQ(after.parent(contour), before.parent(contour));
            ASSERT_EQ(after.halfEdges(contour).size(), before.halfEdges(contour).size());
            for (std::size_t i = 0; i < before.halfEdges(contour).size(); ++i) {
                const int was = before.halfEdges(contour)[i];
                const int is = after.halfEdges(contour)[i];
                EXPECT_EQ(after.idOf(PlanarMap::strokeOf(is)), before.idOf(PlanarMap::strokeOf(was)));
                EXPECT_EQ(PlanarMap::sideOf(is), PlanarMap::sideOf(was));
            }
        }
        ASSERT_EQ(after.jointCount(), before.jointCount());
        for (int joint = 0; joint < before.jointCount(); ++joint)
            EXPECT_EQ(after.position(joint), before.position(joint));
    }
}

TEST(PlanarMap, AreasBoxesAndParentsAreThoseOfFlattenedContours)
{
    curves::RandomCurves random(6);
    int nested = 0;
    for (int round = 0; round < 60; ++round) {
        const Strokes drawing = drawings::randomPlanarDrawing(random);
        const PlanarMap map = drawing.map();
        std::vector<std::vector<Math::Point2d>> polygons;
        for (int contour = 0; contour < map.contourCount(); ++contour) {
            polygons.push_back(drawings::flattened(map, contour, 64));
            const double size = map.box(contour).width() + map.box(contour).height();
            EXPECT_NEAR(map.area(contour), drawings::polygonArea(polygons.back()), 1e-4 * size * size);
            Math::Box2d box;
            for (const Math::Point2d& place : polygons.back())
                box.AddClosed(place);
            EXPECT_NEAR(map.box(contour).minX(), box.minX(), 1e-3 * size);
            EXPECT_NEAR(map.box(contour).maxY(), box.maxY(), 1e-3 * size);
        }
        for (int contour = 0; contour < map.contourCount(); ++contour) {
            int parent = none;
            for (int other = 0; other < map.contourCount(); ++other) {
                if (map.componentOf(other) != map.componentOf(contour) && !map.isDegenerate(other) &&
                    map.area(other) > 0 &&
                    drawings::polygonRunsAround(polygons[static_cast<std::size_t>(other)],
                                                polygons[static_cast<std::size_t>(contour)].front()) &&
                    (parent == none || map.area(other) < map.area(parent)))
                    parent = other;
            }
            ASSERT_EQ(map.parent(contour), parent) << "round " << round;
            if (parent == none)
                continue;
            ++nested;
            EXPECT_EQ(map.relation(parent, contour), PlanarMap::Contains);
            EXPECT_EQ(map.relation(contour, parent), PlanarMap::ContainedIn);
            EXPECT_EQ(std::ranges::count(map.children(parent), contour), 1);
        }
    }
    EXPECT_GT(nested, 100);
}

TEST(PlanarMap, ContoursAroundAPlaceAreThoseOfFlattenedContours)
{
    curves::RandomCurves random(7);
    for (int round = 0; round < 30; ++round) {
        const Strokes drawing = drawings::randomPlanarDrawing(random);
        const PlanarMap map = drawing.map();
        for (int i = 0; i < 20 && map.contourCount() > 0; ++i) {
            const Math::Box2d& box = map.box(static_cast<int>(random.below(map.contourCount())));
            const Math::Point2d place{random.number(box.minX(), box.maxX()), random.number(box.minY(), box.maxY())};
            std::vector<int> expected;
            for (int contour = 0; contour < map.contourCount(); ++contour) {
                if (map.area(contour) > 0 && !map.isDegenerate(contour) &&
                    drawings::polygonRunsAround(drawings::flattened(map, contour, 64), place))
                    expected.push_back(contour);
            }
            std::ranges::stable_sort(expected, {}, [&map](int contour) { return map.area(contour); });
            EXPECT_EQ(map.contoursAround(place), expected);
        }
    }
}

TEST(PlanarMap, AClosedStrokeHasAnInnerContourOnOneSideAndTheOuterOneOnTheOther)
{
    Strokes drawing;
    drawing.add(circle({0, 0}, 10)); // clockwise: the area is on the right
    const PlanarMap map = drawing.map();
    ASSERT_EQ(map.contourCount(), 2);
    EXPECT_EQ(map.jointCount(), 1);
    EXPECT_EQ(map.degree(0), 2);
    const int inner = map.contourOf(rightOf(0));
    const int outer = map.contourOf(leftOf(0));
    EXPECT_NEAR(map.area(inner), 314.159, 0.1);
    EXPECT_EQ(map.area(outer), -map.area(inner));
    EXPECT_TRUE(map.isOuter(outer) && map.isClockwise(outer) && map.isTopLevel(outer));
    EXPECT_TRUE(!map.isOuter(inner) && !map.isClockwise(inner) && map.isTopLevel(inner));
    EXPECT_EQ(map.relation(inner, outer), PlanarMap::NotRelated);
    EXPECT_EQ(map.contoursAround({1, 2}), std::vector<int>{inner});
    EXPECT_TRUE(map.contoursAround({11, 2}).empty());
}

TEST(PlanarMap, NestedCirclesContainOneAnother)
{
    Strokes drawing;
    for (int i = 0; i < 5; ++i)
        drawing.add(circle({0, 0}, 10.0 * (i + 1)));
    drawing.add(circle({100, 0}, 5));
    const PlanarMap map = drawing.map();
    const auto inner = [&map](int stroke) { return map.contourOf(rightOf(stroke)); };
    const auto outer = [&map](int stroke) { return map.contourOf(leftOf(stroke)); };
    EXPECT_EQ(map.parent(inner(0)), inner(1));
    EXPECT_EQ(map.parent(outer(0)), inner(1));
    EXPECT_EQ(map.relation(inner(4), inner(0)), PlanarMap::Contains);
    EXPECT_EQ(map.relation(outer(0), inner(3)), PlanarMap::ContainedIn);
    EXPECT_EQ(map.relation(outer(4), inner(0)), PlanarMap::NotRelated);
    EXPECT_EQ(map.relation(inner(5), inner(0)), PlanarMap::NotRelated);
    EXPECT_EQ(map.strokesInside(inner(3)), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(map.strokesOfChildren(inner(3)), std::vector<int>{2});
    EXPECT_TRUE(map.strokesInside(outer(3)).empty());
    EXPECT_EQ(map.contoursAround({0, 0}), (std::vector<int>{inner(0), inner(1), inner(2), inner(3), inner(4)}));
}

TEST(PlanarMap, LinesThatEndInAnAreaAreInsideIt)
{
    Strokes drawing;
    drawing.add(polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}));
    drawing.add(polyline({{0, 0}, {5, 5}}));   // ends inside
    drawing.add(polyline({{0, 0}, {-5, -5}})); // ends outside
    drawing.add(polyline({{7, 7}, {8, 8}}));   // on its own
    const PlanarMap map = drawing.map();
    const int inner = map.contourOf(leftOf(0));
    const int outer = map.contourOf(rightOf(0));
    EXPECT_EQ(map.area(inner), 100);
    EXPECT_EQ(map.strokes(inner), (std::vector<int>{0, 1}));
    EXPECT_EQ(map.endingStrokes(inner), std::vector<int>{1});
    EXPECT_EQ(map.strokesInside(inner), (std::vector<int>{1, 3}));
    EXPECT_EQ(map.strokes(outer), (std::vector<int>{0, 2}));
    EXPECT_EQ(map.endingStrokes(outer), std::vector<int>{2});
    EXPECT_TRUE(map.strokesInside(outer).empty());
    const int alone = map.contourOf(leftOf(3));
    EXPECT_EQ(alone, map.contourOf(rightOf(3)));
    EXPECT_TRUE(map.isDegenerate(alone) && map.isOuter(alone) && !map.isClockwise(alone));
    EXPECT_EQ(map.parent(alone), inner);
    EXPECT_EQ(map.degree(map.origin(leftOf(3))), 1);
    EXPECT_EQ(map.leftNeighbour(leftOf(3)), leftOf(3));
}

TEST(PlanarMap, DegenerateStrokesAreThereAndInNoRing)
{
    Strokes drawing;
    drawing.add(polyline({{0, 0}, {1, 0}}));
    drawing.add(polyline({{1, 0}, {1, 0}, {1, 0}}));
    drawing.add(polyline({{1, 0}}));
    drawing.add({});
    const PlanarMap map = drawing.map();
    expectWhole(map);
    EXPECT_EQ(map.strokeCount(), 4);
    EXPECT_EQ(map.degree(map.origin(rightOf(0))), 1);
    for (const int stroke : {1, 2, 3}) {
        EXPECT_TRUE(map.isDegenerateStroke(stroke));
        EXPECT_EQ(map.contourOf(leftOf(stroke)), none);
        EXPECT_EQ(map.origin(leftOf(stroke)), none);
        EXPECT_FALSE(map.isContinuous(stroke, 0));
    }
    EXPECT_EQ(map.strokeBox(1), Math::Box2d({1, 0}, {1, 0}));
    EXPECT_TRUE(map.strokeBox(3).isEmpty());
    EXPECT_EQ(PlanarMap().contourCount(), 0);
}

TEST(PlanarMap, EndsMeetWhereTheyAreEqualAndOnlyThere)
{
    Strokes drawing;
    drawing.add(polyline({{0, 0}, {1, 0}}));
    drawing.add(polyline({{1, -0.0}, {1, 1}}));
    drawing.add(polyline({{std::nextafter(1.0, 2.0), 0}, {2, 0}}));
    const PlanarMap map = drawing.map();
    EXPECT_EQ(map.origin(rightOf(0)), map.origin(leftOf(1)));
    EXPECT_NE(map.origin(rightOf(0)), map.origin(leftOf(2)));
    EXPECT_EQ(map.componentCount(), 2);
}

TEST(PlanarMap, StrokesGoOnInOneDirection)
{
    Strokes drawing;
    drawing.add(polyline({{0, 0}, {1, 1}}));
    drawing.add(polyline({{2, 2}, {1, 1}}));
    drawing.add(polyline({{1, 1}, {1, 2}}));
    drawing.add(polyline({{0, 0}, {-1, -1.001}}));
    const PlanarMap map = drawing.map();
    EXPECT_TRUE(map.isContinuous(0, 1));
    EXPECT_TRUE(map.isContinuous(1, 0));
    EXPECT_FALSE(map.isContinuous(0, 2));
    EXPECT_FALSE(map.isContinuous(0, 3));
    EXPECT_FALSE(map.isContinuous(0, 0));
}

TEST(PlanarMap, StrokesAreFoundByTheirIds)
{
    Strokes drawing;
    for (const unsigned int id : {7u, 3u, 4000000000u})
        drawing.addWithId(id, polyline({{0, 0}, {static_cast<double>(id), 0}}));
    const PlanarMap map = drawing.map();
    EXPECT_EQ(map.strokeWithId(3), 1);
    EXPECT_EQ(map.strokeWithId(4000000000u), 2);
    EXPECT_EQ(map.strokeWithId(5), none);
    EXPECT_EQ(map.idOf(PlanarMap::strokeOf(map.halfEdges(0).front())), 3u);
}

TEST(PlanarMap, SizesOfAllKindsHaveTheSameMap)
{
    for (const double size : {1e-300, 1e-200, 1e-80, 1.0, 1e80, 1e200, 1e307}) {
        Strokes drawing;
        drawing.add(bow({0, 0}, {size, 0}, 0.2));
        drawing.add(bow({0, 0}, {size, 0}, -0.2));
        drawing.add(bow({size, 0}, {0, size}, 0));
        drawing.add(bow({0, size}, {0, 0}, 0));
        drawing.add(polyline({{0.1 * size, 0.3 * size}, {0.2 * size, 0.3 * size}}));
        const PlanarMap map = drawing.map();
        expectPlanar(map);
        EXPECT_EQ(map.contourCount(), 4) << size;
        EXPECT_EQ(map.parent(map.contourOf(leftOf(4))), map.contourOf(leftOf(0))) << size;
    }
}

TEST(PlanarMap, NumbersThatAreNotFiniteAreRefused)
{
    for (const double bad : {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        Strokes drawing;
        drawing.add(polyline({{0, 0}, {bad, 1}}));
        EXPECT_THROW(drawing.map(), std::domain_error);
        EXPECT_THROW(PlanarMap().contoursAround({0, bad}), std::domain_error);
    }
}

} // namespace
