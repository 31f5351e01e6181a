#include "engine/geometry2d/intersection.h"

#include "tests/engine/geometry2d/randomcurves.h"

#include <gtest/gtest.h>

#include <2geom/basic-intersection.h>

#include <algorithm>
#include <cmath>

namespace {

using curves::curve;
using curves::distance;
using Math::Constants::Closed;
using Math::Constants::Open;

double distanceTo(const GR_Bezier2d& made, const Math::Point2d& point)
{
    double radiusSquared = 1e300;
    double parameter = 0;
    return made.GetClosestPoint(point, radiusSquared, parameter) ? std::sqrt(radiusSquared) : 1e300;
}

/// How often polylines through samples of two curves cross, and whether any come too near to each other to tell.
struct Crossings {
    int count = 0;
    bool doubtful = false;
};

Crossings sampledCrossings(const GR_Bezier2d& one, const GR_Bezier2d& other)
{
    constexpr int places = 150;
    std::vector<Math::Point2d> first;
    std::vector<Math::Point2d> second;
    for (int i = 0; i <= places; ++i) {
        first.push_back(one.Evaluate(i / double{places}));
        second.push_back(other.Evaluate(i / double{places}));
    }
    const auto side = [](const Math::Point2d& from, const Math::Point2d& to, const Math::Point2d& point) {
        return (to - from).cross(point - from) / (to - from).length();
    };
    Crossings crossings;
    for (int i = 0; i < places; ++i) {
        for (int j = 0; j < places; ++j) {
            const auto& [a, b] = std::tie(first[i], first[i + 1]);
            const auto& [c, d] = std::tie(second[j], second[j + 1]);
            if (std::max(a.x, b.x) < std::min(c.x, d.x) - 1 || std::max(c.x, d.x) < std::min(a.x, b.x) - 1 ||
                std::max(a.y, b.y) < std::min(c.y, d.y) - 1 || std::max(c.y, d.y) < std::min(a.y, b.y) - 1)
                continue;
            const bool crosses = side(a, b, c) * side(a, b, d) < 0 && side(c, d, a) * side(c, d, b) < 0;
            crossings.count += crosses ? 1 : 0;
            // Nearly parallel pieces are where a sample more or less decides.
            const double sine = std::abs((b - a).cross(d - c)) / ((b - a).length() * (d - c).length());
            crossings.doubtful = crossings.doubtful || (sine < 0.1 && std::abs(side(a, b, c)) < 0.5);
        }
    }
    return crossings;
}

TEST(Intersection, IntersectionsOfRandomCurvesLieOnBothAndNoneIsMissed)
{
    curves::RandomCurves random(31);
    int found = 0;
    int compared = 0;
    for (int round = 0; round < 10000; ++round) {
        const GR_Bezier2d one = random.curve();
        const GR_Bezier2d other = random.curve();
        const auto places = one.GetIntersections(other);
        ASSERT_EQ(one.IsIntersecting(other), !places.empty());
        for (const auto& place : places) {
            ASSERT_LT(distanceTo(one, place), 1e-9) << round;
            ASSERT_LT(distanceTo(other, place), 5e-7) << round;
        }
        ASSERT_EQ(other.GetIntersections(one).size(), places.size()) << round;
        found += static_cast<int>(places.size());
        if (round % 10 == 0 && one.GetDegree() > 0 && other.GetDegree() > 0) {
            const Crossings crossings = sampledCrossings(one, other);
            if (!crossings.doubtful) {
                ASSERT_EQ(static_cast<int>(places.size()), crossings.count) << round;
                ++compared;
            }
        }
    }
    EXPECT_GT(found, 2000);
    EXPECT_GT(compared, 100);
}

std::vector<Geom::Point> controlPoints(const GR_Bezier2d& made)
{
    std::vector<Geom::Point> points;
    for (unsigned int i = 0; i <= made.GetDegree(); ++i)
        points.emplace_back(made.GetPoint(i).x, made.GetPoint(i).y);
    return points;
}

TEST(Intersection, WhatAnotherImplementationFindsOnTenThousandRandomPairsIsFound)
{
    curves::RandomCurves random(33, 1);
    std::size_t expected = 0;
    std::size_t found = 0;
    for (int round = 0; round < 10000; ++round) {
        const GR_Bezier2d one = random.curve(2 + random.below(2));
        const GR_Bezier2d other = random.curve(2 + random.below(2));
        std::vector<std::pair<double, double>> references;
        Geom::find_intersections_bezier_clipping(references, controlPoints(one), controlPoints(other), 1e-9);
        const auto places = one.GetIntersections(other);
        for (const auto& reference : references) {
            const Math::Point2d place = one.Evaluate(reference.first);
            ASSERT_TRUE(std::ranges::any_of(places, [&](const auto& at) { return distance(at, place) < 1e-4; }))
                << round;
        }
        expected += references.size();
        found += places.size();
    }
    EXPECT_NEAR(static_cast<double>(found), static_cast<double>(expected), 2);
    EXPECT_GT(found, 5000u);
}

TEST(Intersection, CurvesOnAGridMeetAsOftenWhenTheyAreTurned)
{
    curves::RandomCurves random(34);
    std::size_t found = 0;
    for (int round = 0; round < 5000; ++round) {
        const auto onGrid = [&random] {
            GR_Bezier2d made = random.curve(1 + random.below(3));
            for (unsigned int i = 0; i <= made.GetDegree(); ++i)
                made.SetPoint(i, {random.below(7) - 3.0, random.below(7) - 3.0});
            return made;
        };
        GR_Bezier2d one = onGrid();
        GR_Bezier2d other = onGrid();
        const std::size_t count = one.GetIntersections(other).size();
        found += count;
        const double angle = random.number(0, 6);
        const Math::Matrix2x3 turn({std::cos(angle), std::sin(angle)}, {-std::sin(angle), std::cos(angle)}, {0, 0});
        one *= turn;
        other *= turn;
        other.Reverse();
        ASSERT_EQ(one.GetIntersections(other).size(), count) << round;
        ASSERT_EQ(other.GetIntersections(one).size(), count) << round;
    }
    EXPECT_GT(found, 2000u);
}

TEST(Intersection, KnownPairs)
{
    struct Row {
        const char* name;
        GR_Bezier2d one, other;
        std::vector<Math::Point2d> places;
    };
    const GR_Bezier2d arch = curve({{0, 0}, {0, 4}, {4, 4}, {4, 0}});
    const Row rows[] = {
        {"lines that cross", curve({{0, 0}, {2, 2}}), curve({{0, 2}, {2, 0}}), {{1, 1}}},
        {"lines that would cross further on", curve({{0, 0}, {1, 1}}), curve({{0, 4}, {4, 0}}), {}},
        {"lines that share an end", curve({{0, 0}, {1, 1}}), curve({{1, 1}, {2, 0}}), {{1, 1}}},
        {"a line that ends on another", curve({{0, 0}, {2, 0}}), curve({{1, 0}, {1, 5}}), {{1, 0}}},
        {"parallel lines", curve({{0, 0}, {2, 0}}), curve({{0, 1}, {2, 1}}), {}},
        {"lines that overlap", curve({{0, 0}, {2, 0}}), curve({{1, 0}, {3, 0}}), {{1, 0}, {2, 0}}},
        {"a line within another", curve({{0, 0}, {4, 4}}), curve({{3, 3}, {1, 1}}), {{1, 1}, {3, 3}}},
        {"lines of one line, apart", curve({{0, 0}, {1, 1}}), curve({{2, 2}, {3, 3}}), {}},
        {"lines of one falling line", curve({{0, 3}, {2, 1}}), curve({{1, 2}, {3, 0}}), {{1, 2}, {2, 1}}},
        {"a line across an arch", arch, curve({{-1, 1.5}, {5, 1.5}}), {{0.25 * 4 * 0.6, 1.5}, {0, 0}}},
        {"a line that touches the top", arch, curve({{-1, 3}, {5, 3}}), {{2, 3}}},
        {"a line above the top", arch, curve({{-1, 3.001}, {5, 3.001}}), {}},
        {"arches that touch", arch, curve({{0, 6}, {0, 2}, {4, 2}, {4, 6}}), {{2, 3}}},
        {"the same arch", arch, arch, {{0, 0}, {4, 0}}},
        {"the same arch backwards", arch, curve({{4, 0}, {4, 4}, {0, 4}, {0, 0}}), {{0, 0}, {4, 0}}},
        {"its left half", arch, arch.Split(0.5).first, {{0, 0}, {2, 3}}},
        {"its right half", arch, arch.Split(0.5).second, {{2, 3}, {4, 0}}},
        {"halves of it", arch.Split(0.5).first, arch.Split(0.5).second, {{2, 3}}},
        {"a point on a line", curve({{1, 1}}), curve({{0, 0}, {2, 2}}), {{1, 1}}},
        {"a point on an arch", arch, curve({{2, 3}}), {{2, 3}}},
        {"a point off it", arch, curve({{2, 2}}), {}},
        {"one point and another", curve({{2, 2}}), curve({{2, 2}}), {{2, 2}}},
        {"curves of no length", curve({{2, 2}, {2, 2}, {2, 2}}), curve({{2, 2}, {2, 2}}), {{2, 2}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        auto places = row.one.GetIntersections(row.other);
        if (std::string_view(row.name) == "a line across an arch") {
            ASSERT_EQ(places.size(), 2u);
            EXPECT_NEAR(places[0].y, 1.5, 1e-12);
            EXPECT_NEAR(places[0].x + places[1].x, 4, 1e-12);
            continue;
        }
        ASSERT_EQ(places.size(), row.places.size());
        for (std::size_t i = 0; i < places.size(); ++i)
            EXPECT_LT(distance(places[i], row.places[i]), 1e-7);
    }
}

/// Chebyshev's polynomial of degree 3, and the same with x and y exchanged: they meet at 9 places.
std::pair<GR_Bezier2d, GR_Bezier2d> chebyshev(double size, double shift)
{
    const auto at = [&](double x, double y) { return Math::Point2d{(x + shift) * size, (y + shift) * size}; };
    return {curve({at(-1, -1), at(-1.0 / 3, 5), at(1.0 / 3, -5), at(1, 1)}),
            curve({at(-1, -1), at(5, -1.0 / 3), at(-5, 1.0 / 3), at(1, 1)})};
}

TEST(Intersection, TwoCubicsMeetAtNinePlaces)
{
    const auto [one, other] = chebyshev(1, 0);
    const auto places = one.GetIntersections(other);
    ASSERT_EQ(places.size(), 9u);
    for (const auto& place : places) {
        EXPECT_NEAR(place.y, 4 * std::pow(place.x, 3) - 3 * place.x, 1e-12);
        EXPECT_NEAR(place.x, 4 * std::pow(place.y, 3) - 3 * place.y, 1e-12);
    }
}

TEST(Intersection, LinesThatShareAShortStretchMeetAtBothOfItsEnds)
{
    for (const double shared : {50.0, 1.0, 0.5, 0.001}) {
        SCOPED_TRACE(shared);
        const auto places = curve({{0, 0}, {100, 0}}).GetIntersections(curve({{100 - shared, 0}, {200, 0}}));
        ASSERT_EQ(places.size(), 2u);
        EXPECT_NEAR(places[0].x, 100 - shared, 1e-12);
        EXPECT_EQ(places[1].x, 100);
    }
}

TEST(Intersection, CurvesThatTouchAtACommonEndMeetThereOnce)
{
    const GR_Bezier2d arc = curve({{0, 0}, {0, 1}, {1, 1}});
    const GR_Bezier2d leaf = curve({{0, 0}, {1, 0}, {0, 1}, {0, 0}});
    for (const double size : {1e-6, 1.0, 1e6}) {
        SCOPED_TRACE(size);
        const auto scaled = [size](GR_Bezier2d made) { return made *= Math::Matrix2x3().Scale({size, size}); };
        for (const auto& places :
             {scaled(arc).GetIntersections(scaled(leaf)), scaled(leaf).GetIntersections(scaled(arc))}) {
            ASSERT_EQ(places.size(), 1u);
            EXPECT_EQ(places[0], Math::Point2d{});
        }
    }
}

TEST(Intersection, WhicheverCurveIsAskedTheNumberOfPlacesIsTheSame)
{
    // On a small grid, curves share ends, tangents, stretches and points.
    curves::RandomCurves random(33);
    const auto made = [&random] {
        GR_Bezier2d grid(random.below(4), Closed, Closed);
        for (unsigned int i = 0; i <= grid.GetDegree(); ++i)
            grid.SetPoint(i, {double(random.below(4)), double(random.below(4))});
        return grid;
    };
    for (int round = 0; round < 20000; ++round) {
        const GR_Bezier2d one = made();
        const GR_Bezier2d other = made();
        ASSERT_EQ(one.GetIntersections(other).size(), other.GetIntersections(one).size()) << round;
    }
}

TEST(Intersection, AnOpenEndDoesntMeet)
{
    GR_Bezier2d one = curve({{0, 0}, {1, 1}});
    GR_Bezier2d other = curve({{1, 1}, {2, 0}});
    EXPECT_TRUE(one.IsIntersecting(other));
    one.SetToBoundary(Open);
    EXPECT_FALSE(one.IsIntersecting(other));
    EXPECT_FALSE(other.IsIntersecting(one));
    one.SetToBoundary(Closed);
    other.SetFromBoundary(Open);
    EXPECT_FALSE(one.IsIntersecting(other));
    other.SetFromBoundary(Closed);
    other.SetToBoundary(Open);
    EXPECT_TRUE(one.IsIntersecting(other));
}

TEST(Intersection, ALoopCrossesItselfOnce)
{
    const GR_Bezier2d loop = curve({{0, 0}, {3, 2}, {-2, 2}, {1, 0}});
    const auto places = loop.GetIntersections();
    ASSERT_EQ(places.size(), 1u);
    EXPECT_NEAR(places[0].x, 0.5, 1e-12);
    const auto at = brindle::engine::selfMeetings(brindle::engine::planeCurve(loop));
    ASSERT_EQ(at.size(), 1u);
    EXPECT_LT(at[0].first, at[0].second);
    EXPECT_LT(distance(loop.Evaluate(at[0].first), loop.Evaluate(at[0].second)), 1e-12);
}

TEST(Intersection, WhatHasNoCrossingDoesntMeetItself)
{
    const GR_Bezier2d none[] = {
        curve({{0, 0}}),
        curve({{0, 0}, {1, 1}}),
        curve({{0, 0}, {1, 1}, {2, 0}}),
        curve({{0, 0}, {1, 0}, {0, 0}}),
        curve({{0, 0}, {0, 1}, {1, 1}, {1, 0}}),
        curve({{0, 0}, {1, 1}, {0, 1}, {1, 0}}),   // a cusp
        curve({{0, 0}, {5, 5}, {-4, 5}, {0, 0}}),  // a loop of its ends
        curve({{0, 0}, {5, 5}, {-2, -2}, {1, 1}}), // on one line
        curve({{2, 2}, {2, 2}, {2, 2}, {2, 2}}),
    };
    for (const GR_Bezier2d& made : none) {
        EXPECT_FALSE(made.IsIntersecting());
        EXPECT_TRUE(made.GetIntersections().empty());
    }
}

TEST(Intersection, SelfIntersectionsOfRandomCurvesAreThoseOfTheirParts)
{
    curves::RandomCurves random(32);
    int loops = 0;
    for (int round = 0; round < 3000; ++round) {
        const GR_Bezier2d made = random.curve(3);
        const auto at = brindle::engine::selfMeetings(brindle::engine::planeCurve(made));
        for (const auto& meeting : at) {
            ASSERT_LT(distance(made.Evaluate(meeting.first), made.Evaluate(meeting.second)), 1e-8) << round;
            const double cut = (meeting.first + meeting.second) / 2;
            const auto [before, behind] = made.Split(cut);
            const auto places = before.GetIntersections(behind);
            ASSERT_TRUE(std::ranges::any_of(places, [&](const Math::Point2d& place) {
                return distance(place, made.Evaluate(meeting.first)) < 1e-6;
            })) << round;
            ++loops;
        }
    }
    EXPECT_GT(loops, 100);
}

TEST(Intersection, SizeAndPlaceMakeNoDifference)
{
    for (const double size : {1e-200, 1e-9, 1e9, 1e200, 1e300}) {
        for (const double shift : {0.0, 1.0, 1000.0}) {
            const auto [one, other] = chebyshev(size, shift);
            EXPECT_EQ(one.GetIntersections(other).size(), 9u) << size << " " << shift;
        }
    }
}

} // namespace
