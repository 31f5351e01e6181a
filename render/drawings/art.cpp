#include "render/drawings/art.h"

#include "core/host/cm_color.h"
#include "render/raster/placing.h"
#include "render/workers.h"

#include <QImage>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace brindle::render {

namespace {

constexpr double kTolerance = 0.05; ///< Of outlines, in pixels.

/// Scales within a factor of sqrt(2) share their outlines, made for the largest of them.
int bucketOf(double scale)
{
    return static_cast<int>(std::ceil(2 * std::log2(scale)));
}

double scaleOf(const QTransform& place)
{
    return std::sqrt(std::abs(place.m11() * place.m22() - place.m12() * place.m21()));
}

bool isHair(const GR_StrokeData& stroke)
{
    return stroke.GetLineStyle().GetType() == GR_LineStyle::kHair;
}

/// A hair line as a thick line of one pixel; `scale` is pixels a unit.
GR_StrokeData hairLine(GR_StrokeData stroke, double scale)
{
    GR_LineStyle style = stroke.GetLineStyle();
    style.SetType(GR_LineStyle::kThick);
    style.SetThickness(1 / scale);
    stroke.SetLineStyle(style);
    stroke.CopyThicknessBinder(GR_ThicknessBinder());
    return stroke;
}

} // namespace

Art::Art(const GR_CompositeVectorDrawingObj& drawing, PalettePaints& palettes, QStringList& remarks,
         std::weak_ptr<Memory> memory)
    : m_box(drawing.GetVisibleWorldBBox()),
      m_palettes(&palettes),
      m_memory(std::move(memory))
{
    for (int art = 0; art < GR_CompositeVectorDrawingObj::kArtCount; ++art)
        if (const auto* vectors = dynamic_cast<const GR_VectorDrawingObj*>(drawing.GetArt(art)))
            addArt(*vectors, remarks);
    std::erase_if(m_layers, [](const Layer& layer) { return layer.groups.empty() && layer.lines.empty(); });
    m_palettes = nullptr;
    m_isLight = findLight();
}

Art::~Art()
{
    if (const auto memory = m_memory.lock())
        memory->forget(this);
}

void Art::addArt(const GR_VectorDrawingObj& art, QStringList& remarks)
{
    const UT_Node* node = art.GetRootnode();
    while ((node = node->GetNextLeaf())) {
        m_layers.emplace_back();
        if (const auto* layer = dynamic_cast<const GR_LayerNode*>(node))
            addStrokes(*layer->GetLayer(), remarks);
        else if (const auto* text = dynamic_cast<const GR_TextNode*>(node))
            addText(*text->GetLayer(), remarks);
        else if (const auto* bitmap = dynamic_cast<const GR_BitmapNode*>(node))
            addBitmap(*bitmap->GetLayer());
    }
}

qint64 Art::bytes() const
{
    constexpr std::size_t bytesPerPoint = sizeof(Math::Point2d) + sizeof(int);
    std::size_t bytes = sizeof *this;
    for (const Layer& layer : m_layers) {
        bytes += layer.lines.size() * sizeof(Line);
        for (const Group& group : layer.groups) {
            for (const Area& area : group.areas) {
                bytes += sizeof area + area.bounds.size() * sizeof(GR_BezierPath2d);
                for (const GR_BezierPath2d& bound : area.bounds)
                    bytes += bound.GetNumPoints() * bytesPerPoint;
                if (const auto* texture = std::get_if<TexturePaint>(area.paint.get()))
                    bytes += static_cast<std::size_t>(texture->picture.sizeInBytes());
            }
        }
    }
    return static_cast<qint64>(bytes);
}

/// Areas that don't overlap, in groups of those whose boxes meet; only within a group two may share an edge.
std::vector<std::vector<Art::Found>> Art::neighbours(std::vector<Found> areas)
{
    std::vector<std::size_t> order(areas.size());
    std::vector<std::size_t> first(areas.size()); // Leads to the first area of the group.
    std::iota(order.begin(), order.end(), 0);
    std::iota(first.begin(), first.end(), 0);
    const auto groupOf = [&first](std::size_t area) {
        while (first[area] != area)
            area = first[area] = first[first[area]];
        return area;
    };
    std::sort(order.begin(), order.end(), [&areas](std::size_t left, std::size_t right) {
        return areas[left].box.minX() < areas[right].box.minX();
    });
    std::vector<std::size_t> open; // Those that reach beyond the left side of the next one.
    for (const std::size_t next : order) {
        const Math::Box2d& box = areas[next].box;
        std::erase_if(open, [&](std::size_t area) { return areas[area].box.maxX() < box.minX(); });
        for (const std::size_t area : open) {
            if (areas[area].box.minY() > box.maxY() || areas[area].box.maxY() < box.minY())
                continue;
            const std::size_t group = groupOf(area);
            const std::size_t other = groupOf(next);
            first[std::max(group, other)] = std::min(group, other);
        }
        open.push_back(next);
    }
    std::vector<std::vector<Found>> groups;
    std::vector<std::size_t> places(areas.size());
    for (std::size_t area = 0; area < areas.size(); ++area) {
        const std::size_t group = groupOf(area);
        if (group == area) {
            places[area] = groups.size();
            groups.emplace_back();
        }
        groups[places[group]].push_back(std::move(areas[area]));
    }
    return groups;
}

void Art::addStrokes(const GR_Layer& layer, QStringList& remarks)
{
    Layer& to = m_layers.back();
    std::vector<Found> parted;
    std::vector<Found> crossed;
    for (const GR_Contour* contour : layer.GetContours()) {
        const GR_ColorPtr colour = contour->GetFillColor();
        const PaintPointer paint = colour ? paintFor(*colour) : nullptr;
        if (!paint)
            continue;
        if (std::vector<GR_BezierPath2d> bounds = contour->GetArea(); !bounds.empty()) {
            const double size = std::abs(bounds.front().GetArea());
            (contour->IsCrossed() ? crossed : parted).push_back({{std::move(bounds), paint}, contour->GetBox(), size});
        }
    }
    std::vector<std::vector<Found>> groups = neighbours(std::move(parted));
    for (Found& area : crossed)
        groups.push_back({std::move(area)});
    // Where areas overlap, a small one must not vanish below a large one.
    if (!crossed.empty()) {
        const auto largest = [](const std::vector<Found>& group) {
            return std::max_element(group.begin(), group.end(),
                                    [](const Found& left, const Found& right) { return left.size < right.size; })
                ->size;
        };
        std::stable_sort(groups.begin(), groups.end(),
                         [&](const auto& left, const auto& right) { return largest(left) > largest(right); });
    }
    for (std::vector<Found>& group : groups) {
        // One area alone has no neighbours to leave a seam with.
        const bool isAlone = group.size() == 1;
        const bool joins = isAlone && !to.groups.empty() && to.groups.back().how == Rasteriser::Faces::Over;
        if (!joins)
            to.groups.push_back({{}, isAlone ? Rasteriser::Faces::Over : Rasteriser::Faces::Partition});
        for (Found& area : group)
            to.groups.back().areas.push_back(std::move(area.area));
    }
    for (auto next = layer.GetStrokeBegin(); next != layer.GetStrokeEnd(); ++next) {
        const GR_StrokeData& stroke = (*next)->GetStrokeData();
        if (!stroke.GetLineStyle().IsVisible())
            continue;
        const GR_LineStyle& style = stroke.GetLineStyle();
        const CM_Palette::Entry opacity = style.isOpacityTextured() ? look(style.GetOpacityColorID()) : nullptr;
        if (opacity && !CM_CastToTexture(opacity))
            remarks.append(QStringLiteral("The colour \"%1\" is no texture; no line is thinned by it.")
                               .arg(opacity->GetColorName()));
        const std::optional<LinePaint> paint = m_palettes->linePaint(style, look(style.GetColorID()), opacity);
        if (!paint)
            continue;
        const auto* solid = std::get_if<SolidPaint>(&paint->colour);
        if (solid && !paint->opacity)
            to.lines.push_back({stroke, std::make_shared<Paint>(*solid), nullptr});
        else
            to.lines.push_back({stroke, nullptr, std::make_shared<LinePaint>(*paint)});
        m_hasHair |= isHair(stroke);
    }
}

void Art::addFilled(std::vector<GR_BezierPath2d> bounds, PaintPointer paint)
{
    m_layers.back().groups.push_back({{{std::move(bounds), std::move(paint)}}, Rasteriser::Faces::Over});
}

void Art::addText(const GR_TextLayer& text, QStringList& remarks)
{
    const GR_ColorPtr& colour = text.GetData().colour;
    const PaintPointer paint = colour ? paintFor(*colour) : nullptr;
    if (!paint)
        return;
    try {
        std::vector<GR_BezierPath2d> outlines = text.GetOutlines();
        if (!outlines.empty())
            addFilled(std::move(outlines), paint);
    } catch (const std::runtime_error& error) {
        remarks.append(QString::fromUtf8(error.what()));
    }
}

void Art::addBitmap(const GR_BitmapLayer& bitmap)
{
    const GR_BitmapLayer::Data& data = bitmap.GetData();
    if (data.width <= 0 || data.height <= 0)
        return;
    const QImage pixels = QImage(reinterpret_cast<const uchar*>(data.pixels.constData()), data.width, data.height,
                                 4 * data.width, QImage::Format_RGBA8888)
                              .copy();
    const QTransform upright(1, 0, 0, -1, 0, data.height);
    addFilled({rectanglePath(data.width, data.height, data.matrix)},
              std::make_shared<Paint>(TexturePaint{pixels, false, upright * transformOf(data.matrix)}));
}

Art::PaintPointer Art::paintFor(const GR_Color& colour)
{
    const CM_Palette::Entry texture = colour.HasTexture() ? look(colour.GetTextureID()) : nullptr;
    return m_palettes->areaPaint(colour, look(colour.GetColorID()), texture);
}

CM_Palette::Entry Art::look(const CM_ColorId_t& id)
{
    const CM_Palette::Entry entry = m_palettes->find(id);
    if (std::none_of(m_looks.begin(), m_looks.end(), [&](const Look& known) { return known.id == id; }))
        m_looks.push_back(lookOf(id, entry));
    return entry;
}

Art::Look Art::lookOf(const CM_ColorId_t& id, const CM_Palette::Entry& entry)
{
    Look look{.id = id};
    if (const auto colour = CM_CastToColor(entry)) {
        look.type = colour->GetColorType();
        look.markers = colour->gradientDataCol();
    } else if (const auto texture = CM_CastToTexture(entry)) {
        look.bitmap = texture->GetBitmap();
        look.isTiled = texture->IsTile();
    }
    return look;
}

bool Art::isUpToDate(PalettePaints& palettes) const
{
    const auto sameMarker = [](const CM_GradientData& left, const CM_GradientData& right) {
        return left.position == right.position && left.rgba == right.rgba;
    };
    return std::all_of(m_looks.begin(), m_looks.end(), [&](const Look& was) {
        const Look is = lookOf(was.id, palettes.find(was.id));
        return is.type == was.type && is.bitmap == was.bitmap && is.isTiled == was.isTiled &&
               std::equal(is.markers.begin(), is.markers.end(), was.markers.begin(), was.markers.end(), sameMarker);
    });
}

Art::Outline Art::outlineOf(const Line& line, double tolerance)
{
    GR_OutlinePieces pieces = line.stroke.GetOutline(tolerance);
    return {{std::move(pieces.points), std::move(pieces.ends)},
            line.along ? line.stroke.GetCuts(tolerance) : GR_LineCuts()};
}

std::shared_ptr<const Art::Outlines> Art::outlinesAt(double scale) const
{
    const int bucket = bucketOf(scale);
    const auto memory = m_memory.lock();
    if (memory)
        if (auto known = memory->find<Outlines>(this, bucket))
            return known;
    // Two threads may make them at once; the first one's are remembered.
    const double tolerance = kTolerance / std::exp2(bucket / 2.0);
    auto outlines = std::make_shared<Outlines>();
    qint64 bytes = 0;
    for (const Layer& layer : m_layers) {
        std::vector<Outline>& lines = outlines->emplace_back();
        for (const Line& line : layer.lines) {
            lines.push_back(isHair(line.stroke) ? Outline() : outlineOf(line, tolerance));
            bytes += lines.back().bytes();
        }
    }
    if (memory && bytes > 0)
        memory->remember(this, bucket, outlines, bytes);
    return outlines;
}

bool Art::findLight() const
{
    constexpr unsigned int mostPoints = 1000;
    constexpr std::size_t mostLines = 24;
    unsigned int points = 0;
    std::size_t lines = 0;
    for (const Layer& layer : m_layers) {
        lines += layer.lines.size();
        if (std::any_of(layer.lines.begin(), layer.lines.end(), [](const Line& line) { return line.along != nullptr; }))
            return false;
        for (const Group& group : layer.groups) {
            for (const Area& area : group.areas) {
                if (std::holds_alternative<TexturePaint>(*area.paint))
                    return false;
                for (const GR_BezierPath2d& bound : area.bounds)
                    points += bound.GetNumPoints();
            }
        }
    }
    return points <= mostPoints && lines <= mostLines;
}

/// The pixels of a picture that the drawing may cover.
QRect Art::reach(const QSize& size, const QTransform& place) const
{
    const double scale = scaleOf(place);
    if (m_layers.empty() || m_box.isEmpty() || !(scale > 1e-12) || !std::isfinite(scale))
        return {};
    const QRectF units(m_box.minX(), m_box.minY(), m_box.width(), m_box.height());
    const double margin = m_hasHair ? 2 : 1; // Half a pixel of a hair line, and the edge of what is smoothed.
    const QRectF covered = place.mapRect(units).adjusted(-margin, -margin, margin, margin) & QRectF({}, QSizeF(size));
    return covered.toAlignedRect() & QRect({}, size);
}

/// Draws the lines of a layer that lie in a box of the picture; `place` leads to its pixels.
void Art::drawLines(Rasteriser& rasteriser, const Layer& layer, std::span<const Outline> outlines, const QRect& box,
                    const QTransform& place)
{
    const double scale = scaleOf(place);
    std::vector<Outline> hairs;
    hairs.reserve(layer.lines.size());
    std::vector<Stroke> strokes;
    const auto addStrokes = [&] {
        if (!strokes.empty())
            rasteriser.addStrokes(strokes);
        strokes.clear();
    };
    for (std::size_t number = 0; number < layer.lines.size(); ++number) {
        const Line& line = layer.lines[number];
        const Outline* outline = &outlines[number];
        if (isHair(line.stroke))
            outline = &hairs.emplace_back(
                outlineOf({hairLine(line.stroke, scale), line.paint, line.along}, kTolerance / scale));
        if (outline->pieces.isEmpty())
            continue;
        if (line.paint) {
            strokes.push_back({&outline->pieces, line.paint.get()});
        } else if (auto colours = paintAlong(outline->cuts, *line.along, box, place)) {
            // Drawn at once, so that the pixels of only one line are in memory.
            const Paint paint = std::move(*colours);
            strokes.push_back({&outline->pieces, &paint});
            addStrokes();
        }
    }
    addStrokes();
}

/// Draws all that lies in a box of the picture; `place` leads to its pixels.
void Art::drawOn(Rasteriser& rasteriser, const QRect& box, const QTransform& place) const
{
    const std::shared_ptr<const Outlines> outlines = outlinesAt(scaleOf(place));
    const auto facesOf = [](const std::vector<Area>& areas) {
        std::vector<Face> faces;
        faces.reserve(areas.size());
        for (const Area& area : areas)
            faces.push_back({area.bounds, area.paint.get()});
        return faces;
    };
    for (std::size_t i = 0; i < m_layers.size(); ++i) {
        const Layer& layer = m_layers[i];
        for (const Group& group : layer.groups)
            rasteriser.addFaces(facesOf(group.areas), group.how);
        drawLines(rasteriser, layer, (*outlines)[i], box, place);
    }
}

Picture Art::draw(const QSize& size, const QTransform& place) const
{
    const QRect box = reach(size, place);
    return drawnInBox(size, box, place, [&](Rasteriser& rasteriser) { drawOn(rasteriser, box, place); });
}

Picture Art::drawOver(Picture below, std::span<const PlacedArt> drawings, int threads)
{
    const QSize size = below.size();
    QRect box;
    std::vector<QRect> reaches;
    for (const PlacedArt& drawing : drawings)
        box |= reaches.emplace_back(drawing.art->reach(size, drawing.place));
    if (box.isEmpty())
        return below;
    // It grows to the whole picture at once: what comes next finds room there.
    if (!below.box().contains(box))
        below = below.grown(QRect({}, size));
    const QPoint corner = below.box().topLeft();
    const QTransform toPixels = QTransform::fromTranslate(-corner.x(), -corner.y());
    QImage& pixels = below.pixels();
    uchar* const bytes = pixels.bits(); // Detaches: no other picture shares the pixels that threads write now.

    constexpr int leastRows = 64;
    const int parts = std::clamp(threads, 1, std::max(1, box.height() / leastRows));
    shareOut(static_cast<std::size_t>(parts), threads, [&](std::size_t part) {
        const int first = box.top() + box.height() * static_cast<int>(part) / parts;
        const int end = box.top() + box.height() * (static_cast<int>(part) + 1) / parts;
        const QRect rows(box.left(), first, box.width(), end - first);
        const std::unique_ptr<Rasteriser> rasteriser = Rasteriser::make();
        for (std::size_t i = 0; i < drawings.size(); ++i) {
            if (!reaches[i].intersects(rows))
                continue;
            rasteriser->beginAbove(
                QImage(bytes, pixels.width(), pixels.height(), pixels.bytesPerLine(), pixels.format()),
                drawings[i].place * toPixels, rows.translated(-corner));
            drawings[i].art->drawOn(*rasteriser, reaches[i] & rows, drawings[i].place);
            rasteriser->endLayer();
        }
    });
    return below;
}

} // namespace brindle::render
