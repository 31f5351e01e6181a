#include "render/raster/rasteriser.h"
#include "tests/render/support/pictures.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace brindle::render;
using pictures::at;

namespace {

constexpr int cells = 12;
constexpr double side = 48.0;
constexpr int picture = 600;

/// Curved cells that share their edges, as a drawing without gaps has them.
class Partition {
public:
    explicit Partition(QRgba64 colour) : m_paint(SolidPaint{colour})
    {
        for (int row = 0; row < cells; ++row) {
            for (int column = 0; column < cells; ++column) {
                GR_BezierPath2d path;
                path.Append(corner(column, row), true);
                edge(path, column, row, column + 1, row);
                edge(path, column + 1, row, column + 1, row + 1);
                edge(path, column + 1, row + 1, column, row + 1);
                edge(path, column, row + 1, column, row);
                m_paths.push_back(path);
            }
        }
        for (const GR_BezierPath2d& path : m_paths)
            m_faces.push_back({{&path, 1}, &m_paint});
    }

    Picture drawn(Rasteriser::Faces how) const
    {
        const auto rasteriser = Rasteriser::make();
        rasteriser->beginLayer(QSize(picture, picture), QTransform());
        rasteriser->addFaces(m_faces, how);
        return rasteriser->endLayer();
    }

private:
    static Math::Point2d corner(int column, int row)
    {
        // Nowhere on a pixel's edge, and wound, so that every kind of edge is met.
        const double wave = std::sin(0.9 * column + 1.7 * row);
        return {11.3 + side * column + 7 * wave, 9.7 + side * row + 6 * std::cos(1.3 * column - row)};
    }

    /// The same curve from either end.
    static void edge(GR_BezierPath2d& path, int fromColumn, int fromRow, int toColumn, int toRow)
    {
        const bool turned = fromColumn > toColumn || fromRow > toRow;
        const Math::Point2d from = corner(fromColumn, fromRow);
        const Math::Point2d to = corner(toColumn, toRow);
        const Math::Point2d bend = turned ? Math::Point2d{-9, 7} : Math::Point2d{9, -7};
        path.Append({from.x + (to.x - from.x) / 3 + bend.x, from.y + (to.y - from.y) / 3 + bend.y}, false);
        path.Append({to.x + (from.x - to.x) / 3 - bend.x, to.y + (from.y - to.y) / 3 - bend.y}, false);
        path.Append(to, true);
    }

    Paint m_paint;
    std::vector<GR_BezierPath2d> m_paths;
    std::vector<Face> m_faces;
};

/// How many pixels well inside of the cells differ from the colour by more than 2 of 255, and by how much the worst.
struct Difference {
    int pixels = 0;
    int worst = 0;
};

Difference differenceFrom(const Picture& drawn, const pictures::Pixel& expected)
{
    Difference difference;
    for (int y = 30; y < 560; ++y) {
        for (int x = 30; x < 560; ++x) {
            int worst = 0;
            for (std::size_t c = 0; c < 4; ++c)
                worst = std::max(worst, std::abs(int(at(drawn, x, y)[c]) - int(expected[c])));
            difference.pixels += worst > 2 * 257;
            difference.worst = std::max(difference.worst, worst);
        }
    }
    return difference;
}

} // namespace

TEST(SeamsTest, NeighboursOfAPartitionHaveNone)
{
    const Partition partition(QRgba64::fromRgba(40, 160, 90, 255));
    const Difference difference =
        differenceFrom(partition.drawn(Rasteriser::Faces::Partition), {40 * 257, 160 * 257, 90 * 257, 65535});
    EXPECT_EQ(difference.pixels, 0) << "worst " << difference.worst;
}

TEST(SeamsTest, TranslucentNeighboursHaveNone)
{
    const Partition partition(QRgba64::fromRgba(40, 160, 90, 156));
    const double share = 156.0 / 255.0 * 257.0;
    const Difference difference =
        differenceFrom(partition.drawn(Rasteriser::Faces::Partition),
                       {std::uint16_t(40 * share), std::uint16_t(160 * share), std::uint16_t(90 * share), 156 * 257});
    EXPECT_EQ(difference.pixels, 0) << "worst " << difference.worst;
}

TEST(SeamsTest, LaidOverOneAnotherTheyShowTheGround)
{
    const Partition partition(QRgba64::fromRgba(40, 160, 90, 255));
    const Difference difference =
        differenceFrom(partition.drawn(Rasteriser::Faces::Over), {40 * 257, 160 * 257, 90 * 257, 65535});
    EXPECT_GT(difference.pixels, 5000) << "else the test above proves nothing";
}
