#include "svg/shapedevice.h"

#include "svg/paints.h"

#include <QPainterPath>

#include <climits>
#include <cmath>

namespace brindle::svg {

namespace {

Math::Point2d pointOf(const QPainterPath::Element& element, const QTransform& transform)
{
    const QPointF point = transform.map(QPointF(element.x, element.y));
    return {point.x(), point.y()};
}

/// The parts of a path, each a chain of lines and cubic curves. Parts of a single point are left out.
std::vector<GR_BezierPath2d> outlinesOf(const QPainterPath& path, const QTransform& transform)
{
    std::vector<GR_BezierPath2d> outlines;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        const Math::Point2d point = pointOf(element, transform);
        if (element.isMoveTo()) {
            outlines.emplace_back();
            outlines.back().Append(point, true);
        } else if (element.isLineTo()) {
            if (point != outlines.back().GetToPoint())
                outlines.back().Append(point, true);
        } else if (element.isCurveTo() && i + 2 < path.elementCount()) {
            outlines.back().Append(point, false);
            outlines.back().Append(pointOf(path.elementAt(i + 1), transform), false);
            outlines.back().Append(pointOf(path.elementAt(i + 2), transform), true);
            i += 2;
        }
    }
    std::erase_if(outlines, [](const GR_BezierPath2d& outline) { return outline.GetNumBezier() == 0; });
    return outlines;
}

bool isFinite(const QPainterPath& path, const QTransform& transform)
{
    const QRectF box = transform.mapRect(path.controlPointRect());
    constexpr double kLimit = 1e9; // Far beyond any picture, and squares of it are numbers.
    return std::abs(box.left()) < kLimit && std::abs(box.right()) < kLimit && std::abs(box.top()) < kLimit &&
           std::abs(box.bottom()) < kLimit;
}

} // namespace

class ShapeDevice::Engine final : public QPaintEngine {
public:
    explicit Engine(const QTransform& toDrawing) : QPaintEngine(AllFeatures), m_toDrawing(toDrawing) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }

    void updateState(const QPaintEngineState& state) override
    {
        const DirtyFlags changed = state.state();
        if (changed & DirtyTransform)
            m_transform = state.transform();
        if (changed & DirtyPen)
            m_pen = state.pen();
        if (changed & DirtyBrush)
            m_brush = state.brush();
        if (changed & DirtyOpacity)
            m_opacity = state.opacity();
    }

    void drawPath(const QPainterPath& path) override { add(path, m_brush.style() != Qt::NoBrush); }
    void drawRects(const QRectF* rectangles, int count) override
    {
        for (int i = 0; i < count; ++i) {
            QPainterPath path;
            path.addRect(rectangles[i]);
            add(path, m_brush.style() != Qt::NoBrush);
        }
    }
    void drawEllipse(const QRectF& rectangle) override
    {
        QPainterPath path;
        path.addEllipse(rectangle);
        add(path, m_brush.style() != Qt::NoBrush);
    }
    void drawLines(const QLineF* lines, int count) override
    {
        for (int i = 0; i < count; ++i) {
            QPainterPath path(lines[i].p1());
            path.lineTo(lines[i].p2());
            add(path, false);
        }
    }
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override
    {
        if (count == 0)
            return;
        QPainterPath path(points[0]);
        for (int i = 1; i < count; ++i)
            path.lineTo(points[i]);
        if (mode != PolylineMode)
            path.closeSubpath();
        path.setFillRule(mode == WindingMode ? Qt::WindingFill : Qt::OddEvenFill);
        add(path, mode != PolylineMode && m_brush.style() != Qt::NoBrush);
    }
    void drawPoints(const QPointF*, int) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {}
    void drawTextItem(const QPointF&, const QTextItem&) override {}

    std::vector<OMC::svg::Shape> shapes;
    QStringList notCarried;

private:
    void add(const QPainterPath& path, bool isFilled)
    {
        const QTransform transform = m_transform * m_toDrawing;
        if (!isFinite(path, transform)) {
            notCarried.append(QStringLiteral("Shapes beyond 1,000,000,000 units are left out."));
            return;
        }
        OMC::svg::Shape shape;
        shape.outlines = outlinesOf(path, transform);
        if (shape.outlines.empty())
            return;
        shape.isEvenOdd = path.fillRule() == Qt::OddEvenFill;
        if (isFilled)
            shape.fill = paintOf(m_brush, path.boundingRect(), transform, m_opacity, notCarried);
        if (m_pen.style() != Qt::NoPen) {
            shape.line = paintOf(m_pen.brush(), path.boundingRect(), transform, m_opacity, notCarried);
            const double scale = std::sqrt(std::abs(transform.determinant()));
            shape.lineWidth = (m_pen.isCosmetic() ? 1 : m_pen.widthF()) * scale;
            shape.tip = m_pen.capStyle() == Qt::RoundCap ? kRoundTip : kFlatTip;
            if (m_pen.capStyle() == Qt::SquareCap)
                notCarried.append(QStringLiteral("Square ends of lines are flat."));
        }
        // A shape that is filled and drawn comes in two, one after the other.
        using OMC::svg::Paint;
        if (!shapes.empty() && shape.fill.kind == Paint::None && shapes.back().line.kind == Paint::None &&
            shapes.back().outlines == shape.outlines) {
            shapes.back().line = std::move(shape.line);
            shapes.back().lineWidth = shape.lineWidth;
            shapes.back().tip = shape.tip;
        } else if (shape.fill.kind != Paint::None || shape.line.kind != Paint::None) {
            shapes.push_back(std::move(shape));
        }
    }

    QTransform m_toDrawing;
    QTransform m_transform;
    QPen m_pen;
    QBrush m_brush;
    double m_opacity = 1;
};

ShapeDevice::ShapeDevice(const QRectF& view) : m_view(view)
{
    constexpr double kHeight = 2400;
    const double scale = kHeight / view.height();
    m_engine = std::make_unique<Engine>(QTransform(scale, 0, 0, -scale, -scale * (view.x() + view.width() / 2),
                                                   scale * (view.y() + view.height() / 2)));
}

ShapeDevice::~ShapeDevice() = default;

QPaintEngine* ShapeDevice::paintEngine() const
{
    return m_engine.get();
}

std::vector<OMC::svg::Shape> ShapeDevice::takeShapes()
{
    return std::move(m_engine->shapes);
}

const QStringList& ShapeDevice::notCarried() const
{
    return m_engine->notCarried;
}

int ShapeDevice::metric(PaintDeviceMetric metric) const
{
    constexpr int kDotsPerInch = 96; // That of a pixel in CSS.
    switch (metric) {
    case PdmWidth:
        return std::max(1, static_cast<int>(std::min(m_view.width(), 1e6)));
    case PdmHeight:
        return std::max(1, static_cast<int>(std::min(m_view.height(), 1e6)));
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return kDotsPerInch;
    case PdmWidthMM:
    case PdmHeightMM:
        return static_cast<int>(this->metric(metric == PdmWidthMM ? PdmWidth : PdmHeight) * 25.4 / kDotsPerInch);
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
    case PdmNumColors:
        return INT_MAX;
    case PdmDepth:
        return 32;
    default:
        return QPaintDevice::metric(metric);
    }
}

} // namespace brindle::svg
