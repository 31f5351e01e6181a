#include "render/raster/rasteriser.h"
#include "tests/render/support/pictures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace brindle::render;
using pictures::at;
using pictures::Pixel;

namespace {

constexpr QSize size(40, 30);
constexpr Pixel nothing{};
constexpr Pixel red{65535, 0, 0, 65535};
const Paint redPaint = SolidPaint{QRgba64::fromRgba(255, 0, 0, 255)};

GR_BezierPath2d rectangle(double left, double bottom, double right, double top)
{
    GR_BezierPath2d path;
    for (const Math::Point2d& point : {Math::Point2d{left, bottom}, {right, bottom}, {right, top}, {left, top}})
        path.Append(point, true);
    path.ClosePath();
    return path;
}

StrokePieces polygons(const std::vector<std::vector<Math::Point2d>>& polygons)
{
    StrokePieces pieces;
    for (const auto& polygon : polygons)
        pieces.add(polygon);
    return pieces;
}

Picture faceDrawn(const std::vector<GR_BezierPath2d>& bounds, const Paint& paint,
                  Rasteriser::Faces how = Rasteriser::Faces::Partition, const QTransform& place = {})
{
    const auto rasteriser = Rasteriser::make();
    rasteriser->beginLayer(size, place);
    const Face face{bounds, &paint};
    rasteriser->addFaces({&face, 1}, how);
    return rasteriser->endLayer();
}

Picture strokeDrawn(const StrokePieces& pieces, const Paint& paint = redPaint)
{
    const auto rasteriser = Rasteriser::make();
    rasteriser->beginLayer(size, {});
    const Stroke stroke{&pieces, &paint};
    rasteriser->addStrokes({&stroke, 1});
    return rasteriser->endLayer();
}

} // namespace

TEST(RasteriserTest, AFaceCoversItsPixelsAndNoOthers)
{
    const Picture drawn = faceDrawn({rectangle(10, 5, 20, 15)}, redPaint);
    EXPECT_EQ(at(drawn, 10, 5), red);
    EXPECT_EQ(at(drawn, 19, 14), red);
    EXPECT_EQ(at(drawn, 9, 5), nothing);
    EXPECT_EQ(at(drawn, 20, 14), nothing);
    EXPECT_EQ(drawn.size(), size);
    EXPECT_TRUE(QRect(9, 4, 12, 12).contains(drawn.box())) << "the box is that of what was drawn";
}

TEST(RasteriserTest, AnEdgeWithinAPixelCoversItsShare)
{
    const Picture drawn = faceDrawn({rectangle(10.25, 5, 20, 15)}, redPaint);
    EXPECT_NEAR(at(drawn, 10, 7)[3], 0.75 * 65535, 65535 / 200.0);
    EXPECT_EQ(at(drawn, 10, 7)[0], at(drawn, 10, 7)[3]);
}

TEST(RasteriserTest, EveryByteOfAColourComesOutAsItWentIn)
{
    for (const auto how : {Rasteriser::Faces::Partition, Rasteriser::Faces::Over}) {
        for (int byte = 0; byte < 256; ++byte) {
            const Paint paint = SolidPaint{QRgba64::fromRgba(quint8(byte), quint8(255 - byte), 7, 255)};
            const Picture drawn = faceDrawn({rectangle(0, 0, 4, 4)}, paint, how);
            const CEL_PixmapPtr bytes = drawn.area()->converted(CEL_Representation::PIXMAP_RGBA8);
            const uchar* pixel = bytes->image().constScanLine(1) + 4;
            ASSERT_EQ((std::array{int(pixel[0]), int(pixel[1]), int(pixel[2]), int(pixel[3])}),
                      (std::array{byte, 255 - byte, 7, 255}));
        }
    }
}

TEST(RasteriserTest, AHoleStaysEmpty)
{
    const Picture drawn = faceDrawn({rectangle(0, 0, 20, 20), rectangle(5, 5, 15, 15)}, redPaint);
    EXPECT_EQ(at(drawn, 2, 10), red);
    EXPECT_EQ(at(drawn, 10, 10), nothing);
}

TEST(RasteriserTest, APlaceTurnsTheYAxis)
{
    const Picture drawn =
        faceDrawn({rectangle(0, 0, 4, 2)}, redPaint, Rasteriser::Faces::Over, QTransform(2, 0, 0, -2, 0, 30));
    EXPECT_EQ(at(drawn, 7, 29), red);
    EXPECT_EQ(at(drawn, 7, 26), red);
    EXPECT_EQ(at(drawn, 7, 25), nothing);
}

TEST(RasteriserTest, FacesAddedLaterLieAbove)
{
    const std::vector<GR_BezierPath2d> first{rectangle(0, 0, 20, 20)};
    const std::vector<GR_BezierPath2d> second{rectangle(10, 0, 30, 20)};
    const Paint green = SolidPaint{QRgba64::fromRgba(0, 255, 0, 255)};
    const auto rasteriser = Rasteriser::make();
    rasteriser->beginLayer(size, {});
    const Face faces[] = {{first, &redPaint}, {second, &green}};
    rasteriser->addFaces({faces, 1}, Rasteriser::Faces::Partition);
    rasteriser->addFaces({faces + 1, 1}, Rasteriser::Faces::Partition);
    const Picture drawn = rasteriser->endLayer();
    EXPECT_EQ(at(drawn, 5, 5), red);
    EXPECT_EQ(at(drawn, 15, 5), (Pixel{0, 65535, 0, 65535}));
    EXPECT_EQ(at(drawn, 25, 5), (Pixel{0, 65535, 0, 65535}));
}

TEST(RasteriserTest, PiecesOfAStrokeShowNoSeamAndNoOverlap)
{
    const Paint half = SolidPaint{QRgba64::fromRgba(255, 0, 0, 128)};
    // Two share an edge inside of a pixel, the third lies over both.
    const Picture drawn = strokeDrawn(polygons({{{2, 2}, {10.5, 2}, {10.5, 12}, {2, 12}},
                                                {{10.5, 2}, {20, 2}, {20, 12}, {10.5, 12}},
                                                {{5, 4}, {15, 4}, {15, 8}, {5, 8}}}),
                                      half);
    for (int x = 2; x < 20; ++x)
        EXPECT_EQ(at(drawn, x, 6), at(drawn, 3, 3)) << x;
    EXPECT_NEAR(at(drawn, 3, 3)[3], 128 * 257, 257);
}

TEST(RasteriserTest, AStrokeThatCrossesItselfHasNoHole)
{
    const StrokePieces pieces =
        polygons({{{0, 10}, {30, 10}, {30, 14}, {0, 14}}, {{10, 0}, {14, 0}, {14, 30}, {10, 30}}});
    EXPECT_EQ(at(strokeDrawn(pieces), 12, 12), red);
}

TEST(RasteriserTest, PiecesThatFollowOneAnotherCoverWhatTheyCoverApart)
{
    // A ribbon that bends back over itself, once with a piece of three points in between and once with all in one
    // order.
    const std::vector<std::vector<Math::Point2d>> ribbon = {
        {{2, 4}, {20, 4}, {20, 10}, {2, 10}},
        {{20, 4}, {28, 2}, {30, 16}, {20, 10}},
        {{28, 2}, {34, 20}, {26, 24}, {30, 16}},
        {{34, 20}, {8, 22}, {8, 6}, {26, 24}},
    };
    const Paint half = SolidPaint{QRgba64::fromRgba(10, 200, 90, 128)};
    StrokePieces apart = polygons({ribbon[0], ribbon[2], ribbon[1], ribbon[3]});
    const Picture joined = strokeDrawn(polygons(ribbon), half);
    const Picture single = strokeDrawn(apart, half);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            for (std::size_t c = 0; c < 4; ++c)
                EXPECT_NEAR(at(joined, x, y)[c], at(single, x, y)[c], 2 * 257) << x << ' ' << y;
        }
    }
}

TEST(RasteriserTest, GradientsRunFromStopToStop)
{
    GradientPaint linear;
    linear.stops = {{0, QRgba64::fromRgba(0, 0, 0, 255)}, {1, QRgba64::fromRgba(255, 255, 255, 255)}};
    linear.place = QTransform(40, 0, 0, 40, 0, 0);
    const Picture across = faceDrawn({rectangle(0, 0, 40, 30)}, linear);
    EXPECT_LT(at(across, 0, 5)[0], 0.03 * 65535);
    EXPECT_NEAR(at(across, 20, 5)[0], 0.5 * 65535, 0.03 * 65535);
    EXPECT_GT(at(across, 39, 5)[0], 0.97 * 65535);
    EXPECT_EQ(at(across, 20, 5), at(across, 20, 25));

    GradientPaint radial = linear;
    radial.form = GradientPaint::Radial;
    radial.place = QTransform(10, 0, 0, 10, 20, 15);
    const Picture around = faceDrawn({rectangle(0, 0, 40, 30)}, radial);
    EXPECT_LT(at(around, 20, 15)[0], 0.12 * 65535);
    EXPECT_EQ(at(around, 39, 15)[0], 65535) << "beyond the circle the last colour goes on";
}

TEST(RasteriserTest, ATextureIsRepeatedOrEndsAtItsEdge)
{
    QImage chequered(2, 1, QImage::Format_RGBA8888);
    chequered.setPixelColor(0, 0, QColor(255, 0, 0));
    chequered.setPixelColor(1, 0, QColor(0, 0, 255));
    for (const auto how : {Rasteriser::Faces::Partition, Rasteriser::Faces::Over}) {
        const Picture tiled = faceDrawn({rectangle(0, 0, 40, 30)}, TexturePaint{chequered, true, {}}, how);
        EXPECT_EQ(at(tiled, 30, 9), red);
        EXPECT_EQ(at(tiled, 31, 9), (Pixel{0, 0, 65535, 65535}));
        const Picture single = faceDrawn({rectangle(0, 0, 40, 30)}, TexturePaint{chequered, false, {}}, how);
        EXPECT_EQ(at(single, 0, 0), red);
        EXPECT_EQ(at(single, 1, 0), (Pixel{0, 0, 65535, 65535}));
        EXPECT_EQ(at(single, 2, 0), nothing);
        EXPECT_EQ(at(single, 0, 1), nothing);
    }
}

TEST(RasteriserTest, WhatIsNoNumberOrFarAwayIsPassedOver)
{
    const double none = std::numeric_limits<double>::quiet_NaN();
    const double far = 1e300;
    EXPECT_TRUE(faceDrawn({rectangle(none, 0, 10, 10)}, redPaint).isEmpty());
    EXPECT_TRUE(faceDrawn({rectangle(1000, 1000, 2000, 2000)}, redPaint).isEmpty());
    EXPECT_EQ(at(faceDrawn({rectangle(-far, -far, far, far)}, redPaint), 20, 15), red);
    EXPECT_TRUE(strokeDrawn(polygons({{{0, 0}, {none, 0}, {1, 1}}})).isEmpty());
    EXPECT_TRUE(strokeDrawn(polygons({{{0, 0}, {1, 1}}})).isEmpty()) << "two points bound nothing";
    GradientPaint noStops;
    EXPECT_TRUE(faceDrawn({rectangle(0, 0, 9, 9)}, noStops).isEmpty());
    EXPECT_TRUE(faceDrawn({rectangle(0, 0, 9, 9)}, TexturePaint{}).isEmpty());
    EXPECT_TRUE(faceDrawn({GR_BezierPath2d()}, redPaint).isEmpty());
}

TEST(RasteriserTest, ALayerLeavesNothingToTheNext)
{
    const auto rasteriser = Rasteriser::make();
    const std::vector<GR_BezierPath2d> bounds{rectangle(0, 0, 9, 9)};
    const Face face{bounds, &redPaint};
    rasteriser->beginLayer(size, {});
    rasteriser->addFaces({&face, 1}, Rasteriser::Faces::Partition);
    EXPECT_FALSE(rasteriser->endLayer().isEmpty());
    rasteriser->beginLayer(size, {});
    EXPECT_TRUE(rasteriser->endLayer().isEmpty());
}
