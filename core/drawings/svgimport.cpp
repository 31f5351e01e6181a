#include "core/drawings/svgfile.h"

#include "core/drawings/drawingedit.h"
#include "core/drawings/drawingvectorartlayer.h"
#include "core/drawings/strokepath.h"
#include "core/drawings/svgpicture.h"
#include "core/frame/found.h"
#include "core/frame/global.h"
#include "core/frame/undo.h"
#include "core/host/sc_session.h"
#include "core/palettes/palette.h"

#include <algorithm>

namespace OMC::svg {

namespace {

/// The colours that a picture needs, each once, as entries for a palette.
class Colours {
public:
    /// The identity of a paint's colour or gradient; one that names nothing for no paint.
    CM_ColorId_t idOf(const Paint& paint)
    {
        if (paint.kind == Paint::None)
            return {};
        for (const auto& entry : m_entries) {
            const auto& colour = static_cast<const CM_Color&>(*entry);
            if (colour.GetColorType() == typeOf(paint) && isEqual(colour.gradientDataCol(), paint.markers))
                return entry->GetID();
        }
        auto colour = std::make_shared<CM_Color>(typeOf(paint), nameOf(paint));
        colour->setGradientDataCol(paint.markers);
        m_entries.push_back(colour);
        return colour->GetID();
    }

    const std::vector<CM_Palette::Entry>& entries() const { return m_entries; }

private:
    static CM_Color::Type typeOf(const Paint& paint)
    {
        switch (paint.kind) {
        case Paint::Linear:
            return CM_Color::kLinearGradient;
        case Paint::Radial:
            return CM_Color::kRadialGradient;
        default:
            return CM_Color::kSolid;
        }
    }

    static bool isEqual(const CM_GradientDataCol& left, const CM_GradientDataCol& right)
    {
        return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                          [](const auto& a, const auto& b) { return a.position == b.position && a.rgba == b.rgba; });
    }

    QString nameOf(const Paint& paint)
    {
        if (paint.kind != Paint::Solid)
            return QStringLiteral("Gradient %1").arg(++m_gradients);
        const CM_Rgba& rgba = paint.markers.front().rgba;
        const QColor colour(rgba.red(), rgba.green(), rgba.blue(), rgba.alpha());
        return colour.name(rgba.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
    }

    std::vector<CM_Palette::Entry> m_entries;
    int m_gradients = 0;
};

/// How often the area of the outlines, all but one, winds round a point.
int windingWithout(const std::vector<GR_BezierPath2d>& outlines, std::size_t without, const Math::Point2d& point)
{
    int winding = 0;
    for (std::size_t i = 0; i < outlines.size(); ++i)
        if (i != without && outlines[i].IsContaining(point, Math::Constants::NonZero))
            winding += outlines[i].GetArea() > 0 ? 1 : -1;
    return winding;
}

/// Strokes for a picture's shapes.
class Strokes {
public:
    explicit Strokes(Colours& colours) : m_colours(colours) {}

    std::vector<GR_StrokeData> of(const Shape& shape)
    {
        std::vector<GR_StrokeData> strokes;
        GR_LineStyle line;
        if (shape.line.kind != Paint::None)
            line = GR_LineStyle(GR_LineStyle::kThick, m_colours.idOf(lineOf(shape.line)), shape.lineWidth);
        GR_ColorPtr fill;
        if (shape.fill.kind != Paint::None)
            fill = GR_Color::CreateWith(m_colours.idOf(shape.fill), shape.fill.matrix);

        std::vector<GR_BezierPath2d> closed = shape.outlines;
        for (GR_BezierPath2d& outline : closed)
            outline.ClosePath();
        for (std::size_t i = 0; i < shape.outlines.size(); ++i) {
            GR_StrokeData stroke(strokepath::cubic(shape.outlines[i]));
            stroke.SetLineStyle(line);
            stroke.setTipType(GR_StrokeEnd::From, shape.tip);
            stroke.setTipType(GR_StrokeEnd::To, shape.tip);
            const bool hasArea = fill && closed[i].GetArea() != 0;
            if (hasArea)
                paint(stroke, closed, i, shape.isEvenOdd, fill);
            strokes.push_back(stroke);
            if (hasArea && !shape.outlines[i].IsClosed()) {
                // The area is closed by a line that isn't drawn.
                GR_BezierPath2d rest;
                rest.Append(closed[i].GetBezier(closed[i].GetNumBezier() - 1));
                stroke.SetPath(strokepath::cubic(rest));
                stroke.SetLineStyle({});
                strokes.push_back(stroke);
            }
        }
        return strokes;
    }

    bool hasLineOfGradient() const { return m_hasLineOfGradient; }

private:
    /// A line style has no matrix for a gradient: its first colour stands for it.
    Paint lineOf(const Paint& paint)
    {
        if (paint.kind == Paint::Solid)
            return paint;
        m_hasLineOfGradient = true;
        Paint solid;
        solid.kind = Paint::Solid;
        solid.markers = {{0, paint.markers.front().rgba}};
        return solid;
    }

    /// Sets the colour at the sides at which the shape's area lies.
    static void paint(GR_StrokeData& stroke, const std::vector<GR_BezierPath2d>& closed, std::size_t index,
                      bool isEvenOdd, const GR_ColorPtr& fill)
    {
        const bool isCounterclockwise = closed[index].GetArea() > 0;
        const int around = windingWithout(closed, index, closed[index].Evaluate(0.5));
        const int left = around + (isCounterclockwise ? 1 : 0);
        const int right = around + (isCounterclockwise ? 0 : -1);
        const auto isFilled = [isEvenOdd](int winding) { return isEvenOdd ? winding % 2 != 0 : winding != 0; };
        if (isFilled(left))
            stroke.SetColor(fill, static_cast<int>(GR_StrokeSide::Left));
        if (isFilled(right))
            stroke.SetColor(fill, static_cast<int>(GR_StrokeSide::Right));
    }

    Colours& m_colours;
    bool m_hasLineOfGradient = false;
};

/// The strokes of each new layer.
using Layers = std::vector<std::vector<GR_StrokeData>>;

Math::Box2d boxOf(const Shape& shape)
{
    Math::Box2d box;
    for (const GR_BezierPath2d& outline : shape.outlines)
        box.AddClosed(outline.GetBox());
    return box;
}

bool overlap(const Math::Box2d& left, const Math::Box2d& right)
{
    return left.minX() <= right.maxX() && right.minX() <= left.maxX() && left.minY() <= right.maxY() &&
           right.minY() <= left.maxY();
}

/// Shapes share a layer while they lie apart: in one layer, the areas of those that meet would be one another's.
Layers layersOf(const Picture& picture, Strokes& strokes)
{
    Layers layers;
    for (const Layer& group : picture.layers) {
        std::vector<Math::Box2d> boxes;
        layers.emplace_back();
        for (const Shape& shape : group) {
            const Math::Box2d box = boxOf(shape);
            if (std::any_of(boxes.begin(), boxes.end(),
                            [&](const Math::Box2d& other) { return overlap(box, other); })) {
                boxes.clear();
                layers.emplace_back();
            }
            boxes.push_back(box);
            for (GR_StrokeData& stroke : strokes.of(shape))
                layers.back().push_back(std::move(stroke));
        }
    }
    return layers;
}

} // namespace

QStringList draw(const Picture& picture, const QVariant& artLayer, const QVariant& palette)
{
    const auto* target = objectFrom<DrawingVectorArtLayer>(artLayer);
    if (!target)
        throw Exception(QStringLiteral("Unexpected argument - a valid art-layer was not provided."));
    const auto* colours = objectFrom<Palette>(palette);
    if (!colours)
        throw Exception(QStringLiteral("Unexpected argument - a valid palette was not provided."));
    GR_VectorDrawingObj* drawing = target->getVectorDrawing();

    Colours needed;
    Strokes strokes(needed);
    const Layers layers = layersOf(picture, strokes);
    QStringList notCarried = picture.notCarried;
    if (strokes.hasLineOfGradient())
        notCarried.append(QStringLiteral("Lines painted with a gradient have its first colour."));

    const SC_SessionContext& session = found(Global::sessionContext(), &BaseObject::throwUnexpected);
    CO_CommandManager& commands = found(session.commandManager(), &BaseObject::throwUnexpected);
    const undo::Scope scope(commands, QStringLiteral("Import SVG"));
    colours->appendEntries(needed.entries());
    drawingedit::run(drawing, target->getKey(), [&](GR_DrawingAccess& access) {
        for (const std::vector<GR_StrokeData>& layer : layers)
            access.Insert(layer, access.CreateLayerAbove(GR_Layer::kPen, nullptr));
    });
    return notCarried;
}

QStringList importFile(const QString& path, const QVariant& artLayer, const QVariant& palette)
{
    return draw(readFile(path), artLayer, palette);
}

} // namespace OMC::svg
