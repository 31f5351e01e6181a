#include "bench/render/shapes.h"
#include "render/workers.h"

#include <QPainter>

#include <benchmark/benchmark.h>

// What Qt's raster engine takes for the same shapes, from paths that are made already, on a thread of the same kind.

namespace {

void floorShapes(benchmark::State& state)
{
    const bench::Shapes shapes;
    std::vector<QPainterPath> paths;
    for (const GR_BezierPath2d& shape : shapes.paths()) {
        const auto at = [&](unsigned int index) {
            const Math::Point2d& point = shape.GetPoint(index);
            return QPointF(point.x, point.y);
        };
        QPainterPath path(at(0));
        for (unsigned int index = 1; index + 2 < shape.GetNumPoints(); index += 3)
            path.cubicTo(at(index), at(index + 1), at(index + 2));
        paths.push_back(path);
    }
    brindle::render::onWorker([&] {
        for (auto _ : state) {
            QImage image(bench::pictureSize, QImage::Format_RGBA64_Premultiplied);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            for (std::size_t index = 0; index < paths.size(); ++index) {
                painter.setBrush(shapes.colour(index));
                painter.drawPath(paths[index]);
            }
            painter.end();
            benchmark::DoNotOptimize(image);
        }
    });
}

BENCHMARK(floorShapes)->Unit(benchmark::kMillisecond);

} // namespace
