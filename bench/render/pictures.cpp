#include "bench/render/shapes.h"
#include "engine/cels/renderlibrary.h"
#include "render/operations/blend.h"
#include "render/operations/blur.h"
#include "render/operations/shade.h"
#include "render/workers.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include <stdexcept>

// Pictures of 1920 x 1080 pixels on one thread, of those that frames are drawn on.

extern "C" const brindle::engine::RenderLibrary* brindleRenderLibrary();

namespace {

using namespace brindle::render;

/// Times what a rasteriser draws.
template <typename Draw>
void drawn(benchmark::State& state, const Draw& draw)
{
    onWorker([&] {
        const auto rasteriser = Rasteriser::make();
        for (auto _ : state) {
            rasteriser->beginLayer(bench::pictureSize, QTransform());
            draw(*rasteriser);
            benchmark::DoNotOptimize(rasteriser->endLayer());
        }
    });
}

void pictureShapes(benchmark::State& state)
{
    const bench::Shapes shapes;
    drawn(state, [&](Rasteriser& rasteriser) { rasteriser.addFaces(shapes.faces(), Rasteriser::Faces::Over); });
}

/// 40 x 25 cells that share their edges, each added to the others.
void picturePartition(benchmark::State& state)
{
    std::vector<GR_BezierPath2d> paths;
    std::vector<Paint> paints;
    std::vector<Face> faces;
    constexpr double width = 48;
    constexpr double height = 43.2;
    for (int cell = 0; cell < 1000; ++cell) {
        const double x = cell % 40 * width;
        const double y = cell / 40 * height;
        GR_BezierPath2d path;
        for (const Math::Point2d& point :
             {Math::Point2d{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}})
            path.Append(point, true);
        path.ClosePath();
        paths.push_back(path);
        paints.emplace_back(SolidPaint{QRgba64::fromRgba(quint8(cell), quint8(cell / 4), 90, 255)});
    }
    for (std::size_t cell = 0; cell < paths.size(); ++cell)
        faces.push_back({{&paths[cell], 1}, &paints[cell]});
    drawn(state, [&](Rasteriser& rasteriser) { rasteriser.addFaces(faces, Rasteriser::Faces::Partition); });
}

/// 500 lines of 96 pieces each, which meet in common edges.
void pictureLines(benchmark::State& state)
{
    std::mt19937 random(7);
    const auto between = [&](double least, double most) {
        return least + (most - least) * double(random()) / double(std::mt19937::max());
    };
    std::vector<StrokePieces> lines(500);
    const Paint black = SolidPaint{QRgba64::fromRgba(20, 20, 20, 255)};
    std::vector<Stroke> strokes;
    for (StrokePieces& line : lines) {
        Math::Point2d at{between(0, 1920), between(0, 1080)};
        double direction = between(0, 6);
        Math::Point2d left = at;
        Math::Point2d right = at;
        for (int piece = 0; piece < 96; ++piece) {
            direction += between(-0.2, 0.2);
            at = {at.x + 4 * std::cos(direction), at.y + 4 * std::sin(direction)};
            const double half = between(1, 4);
            const Math::Vector2d side{-half * std::sin(direction), half * std::cos(direction)};
            const Math::Point2d nextRight{at.x - side.x, at.y - side.y};
            const Math::Point2d nextLeft{at.x + side.x, at.y + side.y};
            const Math::Point2d corners[] = {right, nextRight, nextLeft, left};
            line.add(corners);
            right = nextRight;
            left = nextLeft;
        }
        strokes.push_back({&line, &black});
    }
    drawn(state, [&](Rasteriser& rasteriser) { rasteriser.addStrokes(strokes); });
}

void pictureBlend(benchmark::State& state)
{
    const Picture above = bench::Shapes().drawn();
    Picture below = colourCard(bench::pictureSize, QRgba64::fromRgba(200, 100, 50, 255));
    for (auto _ : state)
        blend(below, above, BlendMode(state.range(0)));
}

void pictureBlur(benchmark::State& state)
{
    const Picture drawn = bench::Shapes().drawn();
    for (auto _ : state) {
        Picture picture = drawn;
        blur(picture, 8, 8);
        benchmark::DoNotOptimize(picture.pixels());
    }
}

void write(benchmark::State& state, const char* key, CEL_Representation::CelFormat format)
{
    const QTemporaryDir folder;
    const CEL_PixmapPtr picture = bench::Shapes().drawn().area()->converted(format);
    for (auto _ : state) {
        QString error;
        if (!brindleRenderLibrary()->write(*picture, {folder.filePath("p.img"), {}, {}, nullptr, {}}, key, error))
            throw std::runtime_error(error.toStdString());
    }
}

void pictureToBytes(benchmark::State& state)
{
    const CEL_PixmapAreaPtr area = bench::Shapes().drawn().area();
    for (auto _ : state)
        benchmark::DoNotOptimize(area->converted(CEL_Representation::PIXMAP_RGBA8));
}

void picturePng(benchmark::State& state)
{
    write(state, "PNG", CEL_Representation::PIXMAP_RGBA8);
}

void pictureExr(benchmark::State& state)
{
    write(state, "OPENEXR", CEL_Representation::PIXMAP_RGBA_FLOAT);
}

BENCHMARK(pictureShapes)->Unit(benchmark::kMillisecond);
BENCHMARK(picturePartition)->Unit(benchmark::kMillisecond);
BENCHMARK(pictureLines)->Unit(benchmark::kMillisecond);
BENCHMARK(pictureBlend)->Unit(benchmark::kMillisecond)->Arg(int(BlendMode::Normal))->Arg(int(BlendMode::Multiply));
BENCHMARK(pictureBlur)->Unit(benchmark::kMillisecond);
BENCHMARK(pictureToBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(picturePng)->Unit(benchmark::kMillisecond);
BENCHMARK(pictureExr)->Unit(benchmark::kMillisecond);

} // namespace
