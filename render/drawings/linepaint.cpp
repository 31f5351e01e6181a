#include "render/drawings/linepaint.h"

#include "render/pixelrows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace brindle::render {

namespace {

using Pixel = std::array<std::uint16_t, channelCount>;

constexpr double kMargin = 1.5;  ///< How far colours reach beyond a line's edges, in pixels: smoothed edges need them.
constexpr double kFarAway = 1e6; ///< The limit of coordinates, in pixels, far outside of any picture.

bool isFinite(const Math::Vector2d& vector)
{
    return std::isfinite(vector.x) && std::isfinite(vector.y);
}

Pixel multiplied(const QRgba64& colour)
{
    const auto times = [&](quint16 channel) { return shareOf(channel, colour.alpha()); };
    return {times(colour.red()), times(colour.green()), times(colour.blue()), colour.alpha()};
}

/// Mixes two pixels; `share` is that of the other one, 0 to 1.
Pixel between(const Pixel& one, const Pixel& other, double share)
{
    const auto part = static_cast<float>(share);
    Pixel result;
    for (std::size_t c = 0; c < result.size(); ++c)
        result[c] = static_cast<std::uint16_t>(float(one[c]) + (float(other[c]) - float(one[c])) * part + 0.5f);
    return result;
}

/// The colours of a gradient, in steps too small to be seen.
class GradientTable {
public:
    explicit GradientTable(const GradientPaint& gradient) : m_isLinear(gradient.form == GradientPaint::Linear)
    {
        auto next = gradient.stops.begin();
        for (std::size_t i = 0; i < m_colours.size(); ++i) {
            const double position = static_cast<double>(i) / static_cast<double>(m_colours.size() - 1);
            while (next != gradient.stops.end() && next->position < position)
                ++next;
            if (next == gradient.stops.end())
                m_colours[i] = multiplied(gradient.stops.back().colour);
            else if (next == gradient.stops.begin())
                m_colours[i] = multiplied(next->colour);
            else
                m_colours[i] =
                    between(multiplied(std::prev(next)->colour), multiplied(next->colour),
                            (position - std::prev(next)->position) / (next->position - std::prev(next)->position));
        }
    }

    /// `along` and `across` from 0 to 1.
    Pixel at(double along, double across) const
    {
        const double position = m_isLinear ? along : std::abs(2 * across - 1);
        return m_colours[static_cast<std::size_t>(std::lround(position * double(m_colours.size() - 1)))];
    }

private:
    bool m_isLinear;
    std::array<Pixel, 1024> m_colours;
};

/// A texture at the size at which it is seen, so that its pixels are neither skipped nor counted twice.
class TextureMap {
public:
    /// `length` and `width` are those of the line, in units, and `scale` pixels of the result on a unit.
    TextureMap(const LineTexture& texture, double length, double width, double scale)
        : m_scaling(texture.scaling),
          m_offset(texture.offset),
          m_isTiled(texture.isTiled)
    {
        const QSize own = texture.picture.size();
        if (texture.isTiled)
            length = own.isEmpty() ? 0 : width * own.width() / own.height();
        m_length = length * std::abs(m_scaling.x);
        const double seen = width * std::abs(m_scaling.y);
        if (own.isEmpty() || !isFinite(m_scaling) || !isFinite(m_offset) || !(m_length > 0) || !(seen > 0))
            return;
        const auto side = [&](double units, int pixels) {
            return static_cast<int>(std::clamp(std::ceil(units * scale), 1.0, static_cast<double>(pixels)));
        };
        m_picture = texture.picture
                        .scaled(side(m_length, own.width()), side(seen, own.height()), Qt::IgnoreAspectRatio,
                                Qt::SmoothTransformation)
                        .convertToFormat(QImage::Format_RGBA64_Premultiplied);
    }

    /// `distance` is in units, from the beginning of the line; `across` from 0 at its right edge to 1 at its left one.
    Pixel at(double distance, double across) const
    {
        double x = distance / m_length - m_offset.x;
        double y = 0.5 - (across - 0.5) / std::abs(m_scaling.y) + m_offset.y; // Down the picture.
        constexpr double slack = 1e-6;
        if (m_picture.isNull() || !std::isfinite(x) || !std::isfinite(y))
            return {};
        if (m_isTiled) {
            x -= std::floor(x);
            y -= std::abs(y - 0.5) <= 0.5 + slack ? 0 : std::floor(y);
        } else if (std::min(x, y) < -slack || std::max(x, y) > 1 + slack) {
            return {};
        }
        if (m_scaling.x < 0)
            x = 1 - x;
        if (m_scaling.y < 0)
            y = 1 - y;
        return smoothed(x * m_picture.width() - 0.5, y * m_picture.height() - 0.5);
    }

private:
    /// The colour between the middles of four pixels, by bilinear interpolation; `x` and `y` are in pixels.
    Pixel smoothed(double x, double y) const
    {
        const double left = std::floor(x);
        const double top = std::floor(y);
        const auto row = [&](double number) {
            const std::uint16_t* pixels = rowOf(m_picture, 0, placed(number, m_picture.height(), false));
            const auto pixel = [&](double column) {
                const std::uint16_t* from = pixels + channelCount * placed(column, m_picture.width(), m_isTiled);
                return Pixel{from[0], from[1], from[2], from[3]};
            };
            return between(pixel(left), pixel(left + 1), x - left);
        };
        return between(row(top), row(top + 1), y - top);
    }

    static int placed(double number, int count, bool repeats)
    {
        const int place = static_cast<int>(number);
        if (repeats)
            return (place % count + count) % count;
        return std::clamp(place, 0, count - 1);
    }

    Math::Vector2d m_scaling;
    Math::Vector2d m_offset;
    bool m_isTiled;
    double m_length = 0; ///< Of one picture, in units.
    QImage m_picture;    ///< Null where nothing is seen of it.
};

/// The columns of each row of a box that a quadrilateral may cover.
class Rows {
public:
    Rows(const std::array<QPointF, 4>& corners, double margin, const QRect& box) : m_corners(corners), m_margin(margin)
    {
        const auto [least, most] =
            std::minmax_element(corners.begin(), corners.end(),
                                [](const QPointF& one, const QPointF& other) { return one.y() < other.y(); });
        m_box = box;
        m_top = limited(least->y() - margin, box.top(), box.bottom() + 1);
        m_end = limited(most->y() + margin + 1, box.top(), box.bottom() + 1);
    }

    int top() const { return m_top; }
    int end() const { return m_end; }

    /// The first column of a row, and the one behind the last.
    std::pair<int, int> columns(int row) const
    {
        double least = std::numeric_limits<double>::max();
        double most = std::numeric_limits<double>::lowest();
        for (std::size_t i = 0; i < m_corners.size(); ++i) {
            const QPointF& from = m_corners[i];
            const QPointF& to = m_corners[(i + 1) % m_corners.size()];
            const double low = std::max(std::min(from.y(), to.y()), row - m_margin);
            const double high = std::min(std::max(from.y(), to.y()), row + 1 + m_margin);
            if (low > high)
                continue;
            const double rise = to.y() - from.y();
            for (const double share :
                 {rise != 0 ? (low - from.y()) / rise : 0, rise != 0 ? (high - from.y()) / rise : 1}) {
                const double x = std::lerp(from.x(), to.x(), share);
                least = std::min(least, x);
                most = std::max(most, x);
            }
        }
        if (least > most)
            return {0, 0};
        return {limited(least - m_margin, m_box.left(), m_box.right() + 1),
                limited(most + m_margin + 1, m_box.left(), m_box.right() + 1)};
    }

private:
    static int limited(double number, int least, int most)
    {
        return static_cast<int>(std::clamp(std::floor(number), double(least), double(most)));
    }

    const std::array<QPointF, 4>& m_corners;
    double m_margin;
    QRect m_box;
    int m_top;
    int m_end;
};

/// Where a point lies between two cuts.
struct Place {
    double along = 0;                                        ///< 0 on the first cut, 1 on the second one.
    double across = 0;                                       ///< 0 on the right edge, 1 on the left one.
    double beyond = std::numeric_limits<double>::infinity(); ///< How far outside, in units; 0 inside.
};

/// The part of a line between two cuts: all points on straight ways from edge to edge.
class Part {
public:
    Part(const GR_LineCuts::Cut& from, const GR_LineCuts::Cut& to)
        : m_corner(from.right),
          m_side(to.right - from.right),
          m_across(from.left - from.right),
          m_turn((to.left - to.right) - m_across),
          m_length(std::max((to.right - from.right).length(), (to.left - from.left).length()))
    {}

    Place placeOf(const Math::Point2d& point) const
    {
        // On the right way across, (way - m_side * along) x (m_across + m_turn * along) = 0: a quadratic for `along`.
        const Math::Vector2d way = point - m_corner;
        const double a = -m_side.cross(m_turn);
        const double b = way.cross(m_turn) - m_side.cross(m_across);
        const double c = way.cross(m_across);
        Place best;
        const auto consider = [&](double along) {
            if (const Place place = placeAt(way, along); place.beyond < best.beyond)
                best = place;
        };
        const double square = b * b - 4 * a * c;
        if (square < 0)
            return best;
        // Both roots without cancellation; a is 0 where the edges are parallel.
        const double sum = -0.5 * (b + std::copysign(std::sqrt(square), b));
        if (sum != 0)
            consider(c / sum);
        if (a != 0)
            consider(sum / a);
        return best;
    }

private:
    Place placeAt(const Math::Vector2d& way, double along) const
    {
        if (!std::isfinite(along))
            return {};
        const double held = std::clamp(along, 0.0, 1.0);
        const Math::Vector2d across = m_across + m_turn * held;
        const double square = across.dot(across);
        const Math::Vector2d rest = way - m_side * held;
        const double place = square > 0 ? rest.dot(across) / square : 0.5;
        const double outside = square > 0 ? std::max({0.0, -place, place - 1}) * std::sqrt(square) : rest.length();
        return {held, std::clamp(place, 0.0, 1.0), std::max(outside, std::abs(along - held) * m_length)};
    }

    Math::Point2d m_corner;
    Math::Vector2d m_side;
    Math::Vector2d m_across;
    Math::Vector2d m_turn;
    double m_length;
};

QPointF pointOf(const Math::Point2d& point)
{
    return {point.x, point.y};
}

std::array<QPointF, 4> cornersOf(const GR_LineCuts::Cut& from, const GR_LineCuts::Cut& to, const QTransform& place)
{
    std::array<QPointF, 4> corners{place.map(pointOf(from.right)), place.map(pointOf(to.right)),
                                   place.map(pointOf(to.left)), place.map(pointOf(from.left))};
    // In a perspective, points in the plane of the camera have no place in the picture.
    const auto held = [](double side) { return std::isnan(side) ? 0 : std::clamp(side, -kFarAway, kFarAway); };
    for (QPointF& corner : corners)
        corner = {held(corner.x()), held(corner.y())};
    return corners;
}

/// The pixels a unit of a line is long in the picture, near a point.
double scaleAt(const QTransform& place, const Math::Point2d& point)
{
    const QPointF at = pointOf(point);
    const QPointF middle = place.map(at);
    const QPointF right = place.map(at + QPointF(1, 0)) - middle;
    const QPointF up = place.map(at + QPointF(0, 1)) - middle;
    return std::sqrt(std::abs(right.x() * up.y() - right.y() * up.x()));
}

/// The colour at each place of a line, premultiplied.
class Colours {
public:
    Colours(const GR_LineCuts& line, const LinePaint& paint, double scale)
        : m_from(paint.coversTips ? line.cuts.front().distance : 0),
          m_length((paint.coversTips ? line.cuts.back().distance : line.length) - m_from)
    {
        if (const auto* solid = std::get_if<SolidPaint>(&paint.colour))
            m_solid = multiplied(solid->colour);
        else if (const auto* gradient = std::get_if<GradientPaint>(&paint.colour))
            m_gradient.emplace(*gradient);
        else
            m_texture.emplace(std::get<LineTexture>(paint.colour), m_length, line.width, scale);
        if (paint.opacity)
            m_opacity.emplace(*paint.opacity, m_length, line.width, scale);
    }

    Pixel at(double distance, double across) const
    {
        distance = std::clamp(distance - m_from, 0.0, m_length);
        Pixel colour = m_texture    ? m_texture->at(distance, across)
                       : m_gradient ? m_gradient->at(m_length > 0 ? distance / m_length : 0, across)
                                    : m_solid;
        if (m_opacity) {
            const std::uint16_t alpha = m_opacity->at(distance, across)[3];
            for (std::uint16_t& channel : colour)
                channel = shareOf(channel, alpha);
        }
        return colour;
    }

private:
    double m_from;
    double m_length;
    Pixel m_solid{};
    std::optional<GradientTable> m_gradient;
    std::optional<TextureMap> m_texture;
    std::optional<TextureMap> m_opacity;
};

/// How far the colours between two cuts reach beyond them, in pixels; `scale` is pixels a unit.
double marginOf(const GR_LineCuts::Cut& from, const GR_LineCuts::Cut& to, double scale)
{
    return kMargin + std::min(std::max(from.overhang, to.overhang) * scale, kFarAway);
}

/// The box that the colours of a line reach, in pixels.
QRect reachOf(const GR_LineCuts& line, const QTransform& place, double scale)
{
    QRectF reach;
    double margin = 0;
    for (std::size_t i = 1; i < line.cuts.size(); ++i) {
        for (const QPointF& corner : cornersOf(line.cuts[i - 1], line.cuts[i], place))
            reach |= QRectF(corner, QSizeF(1, 1));
        margin = std::max(margin, marginOf(line.cuts[i - 1], line.cuts[i], scale));
    }
    return reach.adjusted(-margin, -margin, margin, margin).toAlignedRect();
}

} // namespace

std::optional<TexturePaint> paintAlong(const GR_LineCuts& line, const LinePaint& paint, const QRect& box,
                                       const QTransform& place)
{
    const std::size_t count = line.cuts.size();
    bool isInvertible = false;
    const QTransform back = place.inverted(&isInvertible);
    if (count < 2 || !isInvertible)
        return std::nullopt;
    const double scale = scaleAt(place, line.cuts[count / 2].right);
    if (!(scale > 0) || !std::isfinite(scale))
        return std::nullopt;

    const QRect covered = reachOf(line, place, scale) & box;
    if (covered.isEmpty())
        return std::nullopt;

    const Colours colours(line, paint, scale);
    QImage pixels = clearPixels(covered.size());
    // How far outside of the line each pixel was when it got its colour.
    std::vector<float> beyond(std::size_t(covered.width()) * std::size_t(covered.height()),
                              std::numeric_limits<float>::infinity());
    const bool isAffine = back.isAffine();
    const auto unitsOf = [&](double x, double y) -> Math::Point2d {
        if (isAffine)
            return {back.m11() * x + back.m21() * y + back.dx(), back.m12() * x + back.m22() * y + back.dy()};
        const QPointF point = back.map(QPointF(x, y));
        return {point.x(), point.y()};
    };
    const auto paintPart = [&](const GR_LineCuts::Cut& from, const GR_LineCuts::Cut& to) {
        const double around = marginOf(from, to, scale);
        const std::array<QPointF, 4> corners = cornersOf(from, to, place);
        const Part part(from, to);
        const Rows rows(corners, around, covered);
        for (int y = rows.top(); y < rows.end(); ++y) {
            const auto [first, end] = rows.columns(y);
            for (int x = first; x < end; ++x) {
                const Place at = part.placeOf(unitsOf(x + 0.5, y + 0.5));
                float& before = beyond[std::size_t(y - covered.top()) * std::size_t(covered.width()) +
                                       std::size_t(x - covered.left())];
                if (at.beyond > before || at.beyond * scale > around)
                    continue;
                before = static_cast<float>(at.beyond);
                const Pixel colour = colours.at(from.distance + (to.distance - from.distance) * at.along, at.across);
                std::copy(colour.begin(), colour.end(), rowOf(pixels, x - covered.left(), y - covered.top()));
            }
        }
    };
    for (std::size_t i = 1; i < count; ++i)
        paintPart(line.cuts[i - 1], line.cuts[i]);
    return TexturePaint{pixels, true, QTransform::fromTranslate(covered.x(), covered.y()) * back};
}

} // namespace brindle::render
