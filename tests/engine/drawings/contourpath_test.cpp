#include "engine/drawings/contourpath.h"

#include "tests/engine/drawings/randomdrawings.h"
#include "tests/engine/geometry2d/randomcurves.h"

#include <gtest/gtest.h>

#include <2geom/bezier-curve.h>
#include <2geom/path.h>
#include <2geom/pathvector.h>
#include <2geom/sbasis-geometric.h>

#include <cmath>

namespace {

using brindle::engine::contourIsContaining;
using brindle::engine::contourIsInside;
using brindle::engine::contourIsOutside;
using brindle::engine::contourPath;
using curves::circle;
using curves::polyline;
using drawings::PlanarMap;
using drawings::Strokes;
using Math::Constants::NonZero;

Geom::Path samePath(const GR_BezierPath2d& path)
{
    Geom::Path same;
    for (unsigned int i = 0; i < path.GetNumBezier(); ++i) {
        const GR_Bezier2d curve = path.GetBezier(i);
        std::vector<Geom::Point> points;
        for (unsigned int j = 0; j <= curve.GetDegree(); ++j)
            points.emplace_back(curve.GetPoint(j).x, curve.GetPoint(j).y);
        same.append(Geom::BezierCurve::create(points)->duplicate());
    }
    same.close();
    return same;
}

TEST(ContourPath, AreasBoxesLengthsAndInsidesAreThoseOfAnotherLibrary)
{
    curves::RandomCurves random(1);
    for (int round = 0; round < 40; ++round) {
        const Strokes drawing = drawings::randomPlanarDrawing(random);
        const PlanarMap map = drawing.map();
        for (int contour = 0; contour < map.contourCount(); ++contour) {
            const GR_BezierPath2d path = contourPath(map, contour);
            ASSERT_TRUE(path.IsClosed());
            const Geom::Path same = samePath(path);
            const Math::Box2d& box = map.box(contour);
            const double size = box.width() + box.height();
            const Geom::OptRect bounds = same.boundsExact();
            ASSERT_TRUE(bounds);
            EXPECT_NEAR(box.minX(), bounds->left(), 1e-9 * size);
            EXPECT_NEAR(box.maxX(), bounds->right(), 1e-9 * size);
            EXPECT_NEAR(box.minY(), bounds->top(), 1e-9 * size);
            EXPECT_NEAR(box.maxY(), bounds->bottom(), 1e-9 * size);
            double length = 0;
            for (const Geom::Curve& curve : same)
                length += curve.length(1e-6);
            EXPECT_NEAR(path.GetLength(), length, 1e-5 * length);
            Geom::Point centroid;
            double area = 0;
            Geom::centroid(paths_to_pw(Geom::PathVector(same)), centroid, area);
            EXPECT_NEAR(std::abs(map.area(contour)), std::abs(area), 1e-9 * size * size);
            for (int i = 0; i < 5 && map.area(contour) > 0; ++i) {
                const Math::Point2d place{random.number(box.minX(), box.maxX()), random.number(box.minY(), box.maxY())};
                const auto around = map.contoursAround(place);
                EXPECT_EQ(std::ranges::count(around, contour) == 1, same.winding({place.x, place.y}) != 0);
            }
        }
    }
}

TEST(ContourPath, ContoursAreComparedWithPaths)
{
    Strokes drawing;
    drawing.add(polyline({{0, 0}, {10, 0}, {10, 10}}));
    drawing.add(polyline({{0, 0}, {0, 10}, {10, 10}}));
    const PlanarMap map = drawing.map();
    const int square = map.contourOf(PlanarMap::halfEdge(0, PlanarMap::Left));
    EXPECT_EQ(map.innerBox(square), Math::Box2d({0, 0}, {10, 10}));
    struct Row {
        const char* name;
        GR_BezierPath2d path;
        bool inside, containing, outside;
    };
    const Row rows[] = {
        {"around it", circle({5, 5}, 20), true, false, false},
        {"in it", circle({5, 5}, 2), false, true, false},
        {"across its edge", circle({10, 5}, 2), false, false, false},
        {"beside it", circle({30, 5}, 2), false, false, true},
        {"the same", polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}), true, true, false},
        {"open, in it", polyline({{1, 1}, {9, 1}}), false, true, false},
        {"empty", {}, false, false, false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(contourIsInside(map, square, row.path, NonZero), row.inside) << row.name;
        EXPECT_EQ(contourIsContaining(map, square, row.path, NonZero), row.containing) << row.name;
        EXPECT_EQ(contourIsOutside(map, square, row.path, NonZero), row.outside) << row.name;
    }
}

TEST(ContourPath, LinesThatEndInTheAreaArePassedThereAndBack)
{
    Strokes drawing;
    drawing.add(polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}));
    drawing.add(polyline({{0, 0}, {5, 5}}));
    const PlanarMap map = drawing.map();
    const int inner = map.contourOf(PlanarMap::halfEdge(0, PlanarMap::Left));
    EXPECT_EQ(contourPath(map, inner), polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}, {5, 5}, {0, 0}}));
}

} // namespace
