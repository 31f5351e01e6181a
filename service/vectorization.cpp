#include "service/vectorization.h"

#include <QPointF>

#include <algorithm>
#include <array>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace brindle {

namespace {

/// How dark each pixel is, with a white frame of one pixel around the picture, so that every outline closes.
class Darkness {
public:
    explicit Darkness(const QImage& picture) : m_width(picture.width() + 2), m_height(picture.height() + 2)
    {
        m_values.resize(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height));
        const QImage pixels = picture.convertToFormat(QImage::Format_ARGB32);
        for (int y = 0; y < picture.height(); ++y) {
            const auto* line = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
            for (int x = 0; x < picture.width(); ++x)
                m_values[index(x + 1, y + 1)] = (255 - qGray(line[x])) * qAlpha(line[x]) / 255;
        }
    }

    int width() const { return m_width; }
    int height() const { return m_height; }
    int at(int x, int y) const { return m_values[index(x, y)]; }

private:
    std::size_t index(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) + static_cast<std::size_t>(x);
    }

    int m_width;
    int m_height;
    std::vector<int> m_values;
};

/// The sides of the square between four pixels.
enum Side { Top, Right, Bottom, Left };

struct Segment {
    Side from;
    Side to;
};

/// The ways through a square, by which of its corners are dark: 1 top left, 2 top right, 4 bottom right, 8 bottom left.
/// The dark corners lie on the right hand. In the last two, opposite corners are dark and joined.
constexpr std::array<std::array<Segment, 2>, 18> ways = {{
    {},
    {{{Top, Left}}},
    {{{Right, Top}}},
    {{{Right, Left}}},
    {{{Bottom, Right}}},
    {{{Top, Left}, {Bottom, Right}}},
    {{{Bottom, Top}}},
    {{{Bottom, Left}}},
    {{{Left, Bottom}}},
    {{{Top, Bottom}}},
    {{{Right, Top}, {Left, Bottom}}},
    {{{Right, Bottom}}},
    {{{Left, Right}}},
    {{{Top, Right}}},
    {{{Left, Top}}},
    {},
    {{{Top, Right}, {Bottom, Left}}},
    {{{Left, Top}, {Right, Bottom}}},
}};

class Tracer {
public:
    Tracer(const Darkness& darkness, int threshold) : m_darkness(darkness), m_threshold(threshold)
    {
        for (int y = 0; y + 1 < darkness.height(); ++y) {
            for (int x = 0; x + 1 < darkness.width(); ++x)
                cross(x, y);
        }
    }

    QList<QPolygonF> outlines()
    {
        QList<QPolygonF> result;
        for (const std::int64_t start : m_starts) {
            QPolygonF outline;
            // Each step is taken once, and the way leads back to where it began.
            std::int64_t edge = start;
            for (auto step = m_next.find(edge); step != m_next.end(); step = m_next.find(edge)) {
                outline.append(pointOn(edge));
                edge = step->second;
                m_next.erase(step);
            }
            if (outline.isEmpty())
                continue;
            outline.append(outline.first());
            result.append(outline);
        }
        return result;
    }

private:
    bool isDark(int x, int y) const { return m_darkness.at(x, y) >= m_threshold; }

    /// The number of a side of the square at x, y: neighbours share theirs. Even ones lie level.
    std::int64_t edgeOf(int x, int y, Side side) const
    {
        const int column = x + (side == Right);
        const int row = y + (side == Bottom);
        const bool upright = side == Left || side == Right;
        return 2 * (static_cast<std::int64_t>(row) * m_darkness.width() + column) + upright;
    }

    void cross(int x, int y)
    {
        std::size_t corners = isDark(x, y) + 2 * isDark(x + 1, y) + 4 * isDark(x + 1, y + 1) + 8 * isDark(x, y + 1);
        if (corners == 5 || corners == 10) {
            const int sum =
                m_darkness.at(x, y) + m_darkness.at(x + 1, y) + m_darkness.at(x + 1, y + 1) + m_darkness.at(x, y + 1);
            if (sum >= 4 * m_threshold)
                corners = corners == 5 ? 16 : 17;
        }
        for (const Segment& way : ways[corners]) {
            if (way.from == way.to)
                continue;
            const std::int64_t from = edgeOf(x, y, way.from);
            m_next.emplace(from, edgeOf(x, y, way.to));
            m_starts.push_back(from);
        }
    }

    /// The crossing of the threshold between two pixels. A pixel's value counts at its centre; a border of one pixel
    /// surrounds the picture.
    QPointF pointOn(std::int64_t edge) const
    {
        const bool upright = edge % 2;
        const auto x = static_cast<int>(edge / 2 % m_darkness.width());
        const auto y = static_cast<int>(edge / 2 / m_darkness.width());
        const double first = m_darkness.at(x, y);
        const double second = upright ? m_darkness.at(x, y + 1) : m_darkness.at(x + 1, y);
        const double part = std::clamp((m_threshold - 0.5 - first) / (second - first), 0.0, 1.0);
        return QPointF(x - 0.5 + (upright ? 0.0 : part), y - 0.5 + (upright ? part : 0.0));
    }

    const Darkness& m_darkness;
    int m_threshold;
    std::vector<std::int64_t> m_starts;
    std::unordered_map<std::int64_t, std::int64_t> m_next;
};

} // namespace

Vectorization::Vectorization(BAPP_ScriptHost* host)
{
    host->setVectorizationInterface(this);
}

QList<QPolygonF> Vectorization::outlines(const QImage& picture, int threshold) const
{
    if (picture.isNull())
        return {};
    const Darkness darkness(picture);
    return Tracer(darkness, std::max(threshold, 1)).outlines();
}

} // namespace brindle
