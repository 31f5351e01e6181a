#include "render/pixelrows.h"
#include "render/raster/rasteriser.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace brindle::render {

namespace {

bool isFinite(const Math::Point2d& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y);
}

/// A point in pixels. Far outside of a picture Qt's whole numbers end; there a point is as good as one that is nearer.
QPointF inPixels(const Math::Point2d& point, const QTransform& place)
{
    constexpr double farAway = 1e6;
    const QPointF pixel = place.map(QPointF(point.x, point.y));
    return {std::clamp(pixel.x(), -farAway, farAway), std::clamp(pixel.y(), -farAway, farAway)};
}

/// A point of a curve of degree 2 or 3.
QPointF pointOf(std::span<const QPointF> curve, double t)
{
    std::array<QPointF, 4> points;
    std::copy(curve.begin(), curve.end(), points.begin());
    for (std::size_t count = curve.size(); count > 1; --count) {
        for (std::size_t i = 0; i + 1 < count; ++i)
            points[i] = points[i] * (1 - t) + points[i + 1] * t;
    }
    return points[0];
}

/// How many lines keep within a distance of a curve (Wang's bound on its second differences).
int linesOf(std::span<const QPointF> curve)
{
    constexpr double distance = 0.03;
    constexpr double most = 1000;
    double bend = 0;
    for (std::size_t i = 0; i + 2 < curve.size(); ++i) {
        const QPointF second = curve[i] - 2 * curve[i + 1] + curve[i + 2];
        bend = std::max(bend, std::hypot(second.x(), second.y()));
    }
    const double degree = double(curve.size()) - 1;
    return int(std::clamp(std::ceil(std::sqrt(degree * (degree - 1) / 8 * bend / distance)), 1.0, most));
}

/// A curve of a path as lines, behind the point at which it starts. Both faces at a common edge get the same points,
/// whichever way they go along it, so that what each covers of a pixel adds up to all of it.
void addCurve(QPainterPath& to, std::span<QPointF> curve)
{
    const QPointF from = curve.front();
    const QPointF end = curve.back();
    const bool isTurned = std::pair(end.x(), end.y()) < std::pair(from.x(), from.y());
    if (isTurned)
        std::reverse(curve.begin(), curve.end());
    const int count = curve.size() > 2 ? linesOf(curve) : 1;
    for (int i = 1; i < count; ++i)
        to.lineTo(pointOf(curve, double(isTurned ? count - i : i) / count));
    to.lineTo(end);
}

/// Adds a path in pixels; one with a number that isn't finite is left out.
void addPath(QPainterPath& to, const GR_BezierPath2d& path, const QTransform& place)
{
    for (unsigned int index = 0; index < path.GetNumPoints(); ++index) {
        if (!isFinite(path.GetPoint(index)))
            return;
    }
    if (path.GetNumBezier() == 0)
        return;
    std::array<QPointF, 4> curve{inPixels(path.GetPoint(0), place)};
    to.moveTo(curve[0]);
    std::size_t count = 1;
    for (unsigned int index = 1; index < path.GetNumPoints(); ++index) {
        const QPointF point = inPixels(path.GetPoint(index), place);
        curve[count++] = point;
        if (!path.IsOnCurve(index))
            continue;
        addCurve(to, std::span(curve).first(count));
        curve[0] = point;
        count = 1;
    }
    to.closeSubpath();
}

QPainterPath pathOf(const Face& face, const QTransform& place)
{
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    for (const GR_BezierPath2d& bound : face.bounds)
        addPath(path, bound, place);
    return path;
}

void addPolygon(QPainterPath& to, std::span<const Math::Point2d> points, const QTransform& place)
{
    to.moveTo(inPixels(points.front(), place));
    for (const Math::Point2d& point : points.subspan(1))
        to.lineTo(inPixels(point, place));
    to.closeSubpath();
}

/// Joins quadrilaterals that follow one another along a line, each beginning with the edge across it that the one
/// before ended with. That edge runs in both directions and counts for nothing, so the polygon about them covers the
/// same, with half of the edges.
class Strip {
public:
    Strip(QPainterPath& path, const QTransform& place) : m_path(path), m_place(place) {}
    void add(std::span<const Math::Point2d> piece)
    {
        if (piece.size() != 4) {
            addPolygon(m_path, piece, m_place);
            return;
        }
        if (m_right.empty() || !(m_right.back() == piece[0]) || !(m_left.back() == piece[3])) {
            end();
            m_right.push_back(piece[0]);
            m_left.push_back(piece[3]);
        }
        m_right.push_back(piece[1]);
        m_left.push_back(piece[2]);
    }

    void end()
    {
        if (m_right.empty())
            return;
        m_right.insert(m_right.end(), m_left.rbegin(), m_left.rend());
        addPolygon(m_path, m_right, m_place);
        m_right.clear();
        m_left.clear();
    }

private:
    QPainterPath& m_path;
    const QTransform& m_place;
    std::vector<Math::Point2d> m_right; ///< The edges along the line.
    std::vector<Math::Point2d> m_left;
};

QPainterPath pathOf(const StrokePieces& pieces, const QTransform& place)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.reserve(int(pieces.points.size() + pieces.ends.size()));
    Strip strip(path, place);
    int first = 0;
    for (const int end : pieces.ends) {
        const auto piece = std::span(pieces.points).subspan(std::size_t(first), std::size_t(end - first));
        first = end;
        if (piece.size() >= 3 && std::all_of(piece.begin(), piece.end(), isFinite))
            strip.add(piece);
    }
    strip.end();
    return path;
}

/// Half of a share, rounded up, so that twice the half of all is all.
constexpr quint16 halfOf(quint16 share)
{
    return static_cast<quint16>((share + 1u) / 2u);
}

QRgba64 atHalf(QRgba64 colour)
{
    return QRgba64::fromRgba64(colour.red(), colour.green(), colour.blue(), halfOf(colour.alpha()));
}

/// Makes Qt's brushes of paints.
struct BrushMaker {
    const QTransform& place;
    bool isHalf; ///< At half of their intensity.

    QColor colourOf(QRgba64 colour) const { return QColor(isHalf ? atHalf(colour) : colour); }

    QBrush operator()(const SolidPaint& paint) const { return QBrush(colourOf(paint.colour)); }

    QBrush operator()(const GradientPaint& paint) const
    {
        QGradientStops stops;
        for (const GradientStop& stop : paint.stops) {
            if (std::isfinite(stop.position))
                stops.append({std::clamp(stop.position, 0.0, 1.0), colourOf(stop.colour)});
        }
        QBrush brush;
        if (paint.form == GradientPaint::Linear) {
            QLinearGradient gradient(0, 0, 1, 0);
            gradient.setStops(stops);
            brush = QBrush(gradient);
        } else {
            QRadialGradient gradient(0, 0, 1);
            gradient.setStops(stops);
            brush = QBrush(gradient);
        }
        brush.setTransform(paint.place * place);
        return brush;
    }

    QBrush operator()(const TexturePaint& paint) const
    {
        QImage picture = CEL_PixmapArea(paint.picture, QPoint(), paint.picture.size()).image();
        for (int y = 0; isHalf && y < picture.height(); ++y) {
            std::uint16_t* const row = rowOf(picture, 0, y);
            std::transform(row, row + channelCount * picture.width(), row, halfOf);
        }
        QBrush brush(picture);
        brush.setTransform(paint.place * place);
        return brush;
    }
};

/// The area of a texture that isn't repeated, in pixels; nothing for any other paint.
std::optional<QPainterPath> reachOf(const Paint& paint, const QTransform& place)
{
    const auto* texture = std::get_if<TexturePaint>(&paint);
    if (!texture || texture->isTiled)
        return std::nullopt;
    QPainterPath reach;
    reach.addPolygon((texture->place * place).map(QPolygonF(QRectF(texture->picture.rect()))));
    return reach;
}

bool isDrawable(const Paint& paint)
{
    const auto* gradient = std::get_if<GradientPaint>(&paint);
    const auto* texture = std::get_if<TexturePaint>(&paint);
    const QTransform* place = gradient ? &gradient->place : texture ? &texture->place : nullptr;
    if ((gradient && gradient->stops.empty()) || (texture && texture->picture.isNull()))
        return false;
    return !place || place->isInvertible();
}

/// The one alpha that a paint has everywhere; nothing for one that differs from place to place.
std::optional<quint16> alphaOf(const Paint& paint)
{
    if (const auto* solid = std::get_if<SolidPaint>(&paint))
        return solid->colour.alpha();
    if (const auto* gradient = std::get_if<GradientPaint>(&paint)) {
        const auto differs = [&](const GradientStop& stop) {
            return stop.colour.alpha() != gradient->stops.front().colour.alpha();
        };
        const bool isOne = std::none_of(gradient->stops.begin(), gradient->stops.end(), differs);
        return isOne && !gradient->stops.empty() ? std::optional(gradient->stops.front().colour.alpha()) : std::nullopt;
    }
    const auto& texture = std::get<TexturePaint>(paint);
    return texture.isTiled && !texture.picture.hasAlphaChannel() ? std::optional(fullShare) : std::nullopt;
}

/// The one alpha of all faces; 0 where they differ.
quint16 alphaOf(std::span<const Face> faces)
{
    std::optional<quint16> common;
    for (const Face& face : faces) {
        const auto alpha = alphaOf(*face.paint);
        if (!alpha || (common && alpha != common))
            return 0;
        common = alpha;
    }
    return common.value_or(0);
}

/// Doubles the pixels of a box; what goes beyond all is all. Qt rounds what a face covers of a pixel to 1/256, so where
/// up to four of them meet their sum may be as many too low or too high: where all faces have one alpha, such pixels
/// are brought to it.
void doublePixels(QImage& pixels, const QRect& box, quint32 alpha)
{
    const quint32 slack = alpha * 5 / 256;
    for (int y = box.top(); y <= box.bottom(); ++y) {
        std::uint16_t* pixel = rowOf(pixels, box.left(), y);
        for (int x = 0; x < box.width(); ++x, pixel += channelCount) {
            const quint32 sum = pixel[3] * 2u;
            const bool isOff = sum != alpha && sum + slack > alpha && sum < alpha + slack;
            for (int c = 0; c < channelCount; ++c) {
                const quint32 twice = pixel[c] * 2u;
                pixel[c] = std::uint16_t(
                    std::min<quint32>(isOff ? (twice * quint64(alpha) + sum / 2) / sum : twice, fullShare));
            }
        }
    }
}

/// Qt's raster engine.
class QtRasteriser final : public Rasteriser {
public:
    void beginLayer(const QSize& picture, const QTransform& place) override
    {
        m_pixels = clearPixels(picture);
        m_place = place;
        m_part = m_pixels.rect();
        m_drawn = QRect();
    }

    void beginAbove(QImage pixels, const QTransform& place, const QRect& part) override
    {
        m_pixels = std::move(pixels);
        m_place = place;
        m_part = part & m_pixels.rect();
        m_drawn = m_pixels.rect();
    }

    void addFaces(std::span<const Face> faces, Faces how) override
    {
        if (how == Faces::Over)
            drawFaces(m_pixels, faces, false);
        else if (m_drawn.isEmpty())
            addPartition(m_pixels, faces);
        else
            addPartitionAbove(faces);
    }

    void addStrokes(std::span<const Stroke> strokes) override
    {
        QPainter painter(&m_pixels);
        begin(painter, QPainter::CompositionMode_SourceOver);
        for (const Stroke& stroke : strokes)
            fill(painter, pathOf(*stroke.pieces, m_place), *stroke.paint, false);
    }

    Picture endLayer() override
    {
        const QRect drawn = m_drawn & m_pixels.rect();
        const Picture result = Picture(m_pixels.size(), QPoint(), m_pixels).cropped(drawn);
        m_pixels = QImage();
        return result;
    }

private:
    void begin(QPainter& painter, QPainter::CompositionMode mode) const
    {
        if (m_part != m_pixels.rect())
            painter.setClipRect(m_part);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        painter.setPen(Qt::NoPen);
        painter.setCompositionMode(mode);
    }

    void fill(QPainter& painter, QPainterPath path, const Paint& paint, bool isHalf)
    {
        if (!isDrawable(paint))
            return;
        if (const auto reach = reachOf(paint, m_place))
            path = path.intersected(*reach);
        const QRectF bounds = path.controlPointRect();
        if (!bounds.intersects(QRectF(m_part)))
            return;
        painter.setBrush(std::visit(BrushMaker{m_place, isHalf}, paint));
        painter.drawPath(path);
        m_drawn |= bounds.toAlignedRect().adjusted(-1, -1, 1, 1) & m_part;
    }

    void drawFaces(QImage& pixels, std::span<const Face> faces, bool isHalf)
    {
        QPainter painter(&pixels);
        begin(painter, isHalf ? QPainter::CompositionMode_Plus : QPainter::CompositionMode_SourceOver);
        for (const Face& face : faces)
            fill(painter, pathOf(face, m_place), *face.paint, isHalf);
    }

    /// Adds up faces in empty pixels: at half of their intensity, because Qt cuts a sum off at all before it takes the
    /// share of it that a pixel is covered by.
    void addPartition(QImage& pixels, std::span<const Face> faces)
    {
        drawFaces(pixels, faces, true);
        doublePixels(pixels, m_drawn, alphaOf(faces));
    }

    /// Adds up faces beside the layer, and lays the sum over it.
    void addPartitionAbove(std::span<const Face> faces)
    {
        const QRect box = boxOf(faces);
        if (box.isEmpty())
            return;
        const qsizetype bytes = qsizetype(box.width()) * box.height() * bytesPerPixel;
        if (m_room.size() < bytes)
            m_room = QByteArray(bytes, Qt::Uninitialized);
        QtRasteriser above;
        above.m_pixels = QImage(reinterpret_cast<uchar*>(m_room.data()), box.width(), box.height(),
                                qsizetype(box.width()) * bytesPerPixel, m_pixels.format());
        above.m_place = m_place * QTransform::fromTranslate(-box.x(), -box.y());
        above.m_part = m_part.translated(-box.topLeft()) & above.m_pixels.rect();
        for (int y = above.m_part.top(); y <= above.m_part.bottom(); ++y)
            std::memset(above.m_pixels.scanLine(y), 0, std::size_t(bytesPerPixel) * std::size_t(box.width()));
        above.addPartition(above.m_pixels, faces);
        QPainter painter(&m_pixels);
        if (!above.m_drawn.isEmpty())
            painter.drawImage(box.topLeft() + above.m_drawn.topLeft(), above.m_pixels, above.m_drawn);
        m_drawn |= above.m_drawn.translated(box.topLeft());
    }

    /// The pixels that faces may reach.
    QRect boxOf(std::span<const Face> faces) const
    {
        QRectF box;
        for (const Face& face : faces)
            box |= pathOf(face, m_place).controlPointRect();
        return box.toAlignedRect().adjusted(-1, -1, 1, 1) & m_pixels.rect();
    }

    QByteArray m_room; ///< For pixels beside the layer, kept from one partition to the next.
    QImage m_pixels;
    QTransform m_place;
    QRect m_part;  ///< The only pixels that are read or written.
    QRect m_drawn; ///< All that isn't empty lies in there.
};

} // namespace

void StrokePieces::add(std::span<const Math::Point2d> piece)
{
    points.insert(points.end(), piece.begin(), piece.end());
    ends.push_back(int(points.size()));
}

void StrokePieces::add(const GR_BezierPath2d& polygon)
{
    for (unsigned int index = 0; index < polygon.GetNumPoints(); ++index) {
        if (polygon.IsOnCurve(index))
            points.push_back(polygon.GetPoint(index));
    }
    ends.push_back(int(points.size()));
}

std::unique_ptr<Rasteriser> Rasteriser::make()
{
    return std::make_unique<QtRasteriser>();
}

} // namespace brindle::render
