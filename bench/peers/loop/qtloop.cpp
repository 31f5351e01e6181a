#include "bench/peers/loop/qtloop.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <atomic>
#include <stdexcept>
#include <thread>

namespace peers {

namespace {

QPainterPath painterPath(const Path& path)
{
    const auto at = [](const Point& point) { return QPointF(point.x, point.y); };
    QPainterPath result;
    result.setFillRule(Qt::WindingFill);
    for (const Segment& segment : path) {
        switch (segment.kind) {
        case Segment::Move:
            result.moveTo(at(segment.points[0]));
            break;
        case Segment::Line:
            result.lineTo(at(segment.points[0]));
            break;
        case Segment::Cubic:
            result.cubicTo(at(segment.points[0]), at(segment.points[1]), at(segment.points[2]));
            break;
        case Segment::Close:
            result.closeSubpath();
            break;
        }
    }
    return result;
}

} // namespace

void drawByQt(const Scene& scene, int bits, int threads, const QString& folder)
{
    std::vector<QPainterPath> paths;
    for (const Path& path : scene.paths)
        paths.push_back(painterPath(path));
    for (const std::vector<Step>& frame : scene.frames) {
        if (frame.size() != 1)
            throw std::runtime_error("a frame needs more than fills");
    }
    std::atomic<std::size_t> next = 0;
    std::atomic<bool> failed = false;
    const auto work = [&] {
        for (std::size_t number = next++; number < scene.frames.size(); number = next++) {
            QImage image(scene.width, scene.height,
                         bits == 16 ? QImage::Format_RGBA64_Premultiplied : QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            for (const Fill& fill : scene.frames[number].front().fills) {
                const auto& [a, b, c, d, e, f] = fill.matrix;
                const auto& [red, green, blue, alpha] = fill.colour;
                painter.setTransform(QTransform(a, b, c, d, e, f));
                painter.setBrush(QColor(red, green, blue, alpha));
                painter.drawPath(paths[fill.path]);
            }
            painter.end();
            if (!folder.isEmpty() && !image.save(QString("%1/%2.png").arg(folder).arg(number + 1)))
                failed = true;
        }
    };
    std::vector<std::thread> others;
    for (int thread = 1; thread < threads; ++thread)
        others.emplace_back(work);
    work();
    for (std::thread& other : others)
        other.join();
    if (failed)
        throw std::runtime_error("a picture can't be written");
}

} // namespace peers
