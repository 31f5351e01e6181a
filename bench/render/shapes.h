#pragma once

#include "render/raster/rasteriser.h"

#include <QPainterPath>

#include <numbers>
#include <random>

/// The scenes that renderers are compared on, made of one seed.
namespace bench {

constexpr QSize pictureSize(1920, 1080);

/// 200 closed shapes of 8 curves, 20 to 160 pixels in radius, of which every second is translucent, turned about their
/// centres: the picture at a frame.
class Shapes {
public:
    explicit Shapes(int frame = 1)
    {
        std::mt19937 random(7);
        const auto between = [&](double least, double most) {
            return least + (most - least) * double(random()) / double(std::mt19937::max());
        };
        constexpr int count = 200;
        for (int index = 0; index < count; ++index) {
            const Math::Point2d centre{between(0, 1920), between(0, 1080)};
            const double radius = between(20, 160);
            const double turn = frame * 3.6 * (index % 3 == 0 ? -1 : 1) * std::numbers::pi / 180;
            constexpr int curves = 8;
            constexpr double handle = 0.3;
            GR_BezierPath2d path;
            double reach[curves];
            for (double& one : reach)
                one = radius * between(0.6, 1.0);
            const auto at = [&](double part, double length) {
                const double angle = turn + 2 * std::numbers::pi * part / curves;
                return Math::Point2d{centre.x + length * std::cos(angle), centre.y + length * std::sin(angle)};
            };
            path.Append(at(0, reach[0]), true);
            for (int curve = 0; curve < curves; ++curve) {
                const double next = reach[(curve + 1) % curves];
                path.Append(at(curve + handle, reach[curve] * 1.05), false);
                path.Append(at(curve + 1 - handle, next * 1.05), false);
                path.Append(at(curve + 1, next), true);
            }
            m_paths.push_back(path);
            m_paints.emplace_back(brindle::render::SolidPaint{QRgba64::fromRgba(
                quint8(random() % 256), quint8(random() % 256), quint8(random() % 256), index % 2 ? 156 : 255)});
        }
        for (int index = 0; index < count; ++index)
            m_faces.push_back({{&m_paths[std::size_t(index)], 1}, &m_paints[std::size_t(index)]});
    }
    Shapes(const Shapes&) = delete;

    std::span<const brindle::render::Face> faces() const { return m_faces; }
    const std::vector<GR_BezierPath2d>& paths() const { return m_paths; }
    QColor colour(std::size_t index) const
    {
        return QColor(std::get<brindle::render::SolidPaint>(m_paints[index]).colour);
    }

    /// The picture as our rasteriser draws it.
    brindle::render::Picture drawn() const
    {
        const auto rasteriser = brindle::render::Rasteriser::make();
        rasteriser->beginLayer(pictureSize, QTransform());
        rasteriser->addFaces(m_faces, brindle::render::Rasteriser::Faces::Over);
        return rasteriser->endLayer();
    }

private:
    std::vector<GR_BezierPath2d> m_paths;
    std::vector<brindle::render::Paint> m_paints;
    std::vector<brindle::render::Face> m_faces;
};

} // namespace bench
