#include "core/drawings/svgfile.h"

#include "core/drawings/drawing.h"
#include "core/frame/exception.h"
#include "core/host/cm_palettemanager.h"

#include <QBuffer>
#include <QImage>
#include <QLocale>
#include <QSaveFile>
#include <QXmlStreamWriter>

#include <cmath>

namespace OMC::svg {

namespace {

constexpr double kFieldChartWidth = 3200;
constexpr double kFieldChartHeight = 2400;
/// Of the polygons that stand for a line of varying thickness, in units of the drawing.
constexpr double kTolerance = 0.25;
constexpr const char* kArtNames[GR_CompositeVectorDrawingObj::kArtCount] = {"underlay", "colour", "line", "overlay"};

QString number(double value)
{
    // As short as it can be written and read back exactly; -0 is 0.
    return QString::number(value == 0 ? 0.0 : value, 'g', QLocale::FloatingPointShortest);
}

QString pointText(const Math::Point2d& point)
{
    return number(point.x) + u' ' + number(point.y);
}

QString pathText(const GR_BezierPath2d& path)
{
    if (path.GetNumPoints() == 0)
        return {};
    QString text = u'M' + pointText(path.GetPoint(0));
    for (unsigned int i = 0; i < path.GetNumBezier(); ++i) {
        const GR_Bezier2d curve = path.GetBezier(i);
        static constexpr char16_t kCommands[] = {u'L', u'L', u'Q', u'C'};
        text += kCommands[curve.GetDegree()];
        for (unsigned int point = 1; point <= curve.GetDegree(); ++point)
            text += (point > 1 ? QStringLiteral(" ") : QString()) + pointText(curve.GetPoint(point));
    }
    return path.IsClosed() ? text + u'Z' : text;
}

QString pathsText(const std::vector<GR_BezierPath2d>& paths)
{
    QString text;
    for (const GR_BezierPath2d& path : paths)
        text += pathText(path);
    return text;
}

std::vector<GR_BezierPath2d> polygonsOf(const GR_OutlinePieces& outline)
{
    std::vector<GR_BezierPath2d> polygons;
    int first = 0;
    for (const int end : outline.ends) {
        GR_BezierPath2d& polygon = polygons.emplace_back();
        while (first < end)
            polygon.Append(outline.points[static_cast<std::size_t>(first++)], true);
        polygon.ClosePath();
    }
    return polygons;
}

QString matrixText(const Math::Matrix2x3& matrix)
{
    return QStringLiteral("matrix(%1 %2 %3 %4 %5 %6)")
        .arg(number(matrix.xAxis().x), number(matrix.xAxis().y), number(matrix.yAxis().x), number(matrix.yAxis().y),
             number(matrix.origin().x), number(matrix.origin().y));
}

/// Writes one drawing.
class Writer {
public:
    explicit Writer(QIODevice* device) : m_xml(device)
    {
        m_xml.setAutoFormatting(true);
        m_xml.setAutoFormattingIndent(1);
    }

    void write(const GR_CompositeVectorDrawingObj& drawing)
    {
        // The field chart, or as much more about its middle as the drawing takes.
        const Math::Box2d box = drawing.GetVisibleWorldBBox();
        double scale = 1;
        if (!box.isEmpty()) {
            const double x = std::max(std::abs(box.minX()), std::abs(box.maxX()));
            const double y = std::max(std::abs(box.minY()), std::abs(box.maxY()));
            scale = std::max({1.0, 2 * x / kFieldChartWidth, 2 * y / kFieldChartHeight});
        }
        const double width = kFieldChartWidth * scale;
        const double height = kFieldChartHeight * scale;
        m_xml.writeStartDocument();
        m_xml.writeStartElement(QStringLiteral("svg"));
        m_xml.writeDefaultNamespace(QStringLiteral("http://www.w3.org/2000/svg"));
        attribute(
            "viewBox",
            QStringLiteral("%1 %2 %3 %4").arg(number(-width / 2), number(-height / 2), number(width), number(height)));
        // SVG has y downwards.
        m_xml.writeStartElement(QStringLiteral("g"));
        attribute("transform", QStringLiteral("scale(1 -1)"));
        for (int art = 0; art < GR_CompositeVectorDrawingObj::kArtCount; ++art)
            if (const auto* vectors = dynamic_cast<const GR_VectorDrawingObj*>(drawing.GetArt(art)))
                if (!vectors->IsEmpty())
                    writeArt(*vectors, kArtNames[art]);
        m_xml.writeEndDocument();
    }

    const QStringList& notCarried() const { return m_notCarried; }

private:
    struct Fill {
        QString paint;
        double opacity = 1;
    };

    void attribute(const char* name, const QString& value) { m_xml.writeAttribute(QString::fromLatin1(name), value); }

    void note(const QString& line)
    {
        if (!m_notCarried.contains(line))
            m_notCarried.append(line);
    }

    void writeArt(const GR_VectorDrawingObj& art, const char* name)
    {
        m_xml.writeStartElement(QStringLiteral("g"));
        attribute("id", QString::fromLatin1(name));
        const UT_Node* node = art.GetRootnode();
        while ((node = node->GetNextLeaf())) {
            m_xml.writeStartElement(QStringLiteral("g"));
            if (const auto* layer = dynamic_cast<const GR_LayerNode*>(node))
                writeLayer(*layer->GetLayer());
            else if (const auto* text = dynamic_cast<const GR_TextNode*>(node))
                writeText(*text->GetLayer());
            else if (const auto* bitmap = dynamic_cast<const GR_BitmapNode*>(node))
                writeBitmap(*bitmap->GetLayer());
            m_xml.writeEndElement();
        }
        m_xml.writeEndElement();
    }

    void writeLayer(const GR_Layer& layer)
    {
        for (const GR_Contour* contour : layer.GetContours())
            if (const GR_ColorPtr colour = contour->GetFillColor())
                if (const std::vector<GR_BezierPath2d> area = contour->GetArea(); !area.empty())
                    writeArea(area, fillOf(*colour), "evenodd");
        for (auto stroke = layer.GetStrokeBegin(); stroke != layer.GetStrokeEnd(); ++stroke)
            if ((*stroke)->GetStrokeData().GetLineStyle().IsVisible())
                writeLine(**stroke);
    }

    void writeArea(const std::vector<GR_BezierPath2d>& area, const Fill& fill, const char* rule)
    {
        m_xml.writeEmptyElement(QStringLiteral("path"));
        attribute("d", pathsText(area));
        attribute("fill", fill.paint);
        if (fill.opacity < 1)
            attribute("fill-opacity", number(fill.opacity));
        attribute("fill-rule", QString::fromLatin1(rule));
    }

    void writeLine(const GR_VectorStroke& stroke)
    {
        const GR_StrokeData& data = stroke.GetStrokeData();
        const GR_LineStyle& style = data.GetLineStyle();
        const Fill fill = lineFillOf(style.GetColorID());
        if (style.isOpacityTextured())
            note(QStringLiteral("Opacity textures of lines are left out."));
        const GR_ThicknessPathPtr& widths = data.GetThicknessBinder().thicknessPath();
        const bool isHair = style.GetType() == GR_LineStyle::kHair;
        const bool sameTips = data.tipType(GR_StrokeEnd::From) == data.tipType(GR_StrokeEnd::To);
        const bool isEven = !widths && (sameTips || data.GetPath().IsClosed());
        if (!isHair && (!isEven || data.tipType(GR_StrokeEnd::From) == kBevelTip)) {
            writeArea(polygonsOf(data.GetOutline(kTolerance)), fill, "nonzero");
            return;
        }
        m_xml.writeEmptyElement(QStringLiteral("path"));
        attribute("d", pathText(data.GetPath()));
        attribute("fill", QStringLiteral("none"));
        attribute("stroke", fill.paint);
        if (fill.opacity < 1)
            attribute("stroke-opacity", number(fill.opacity));
        attribute("stroke-width", number(isHair ? 1 : style.GetThickness()));
        if (isHair)
            attribute("vector-effect", QStringLiteral("non-scaling-stroke"));
        attribute("stroke-linejoin", QStringLiteral("round"));
        attribute("stroke-linecap",
                  data.tipType(GR_StrokeEnd::From) == kRoundTip ? QStringLiteral("round") : QStringLiteral("butt"));
    }

    void writeText(const GR_TextLayer& text)
    {
        if (const GR_ColorPtr& colour = text.GetData().colour)
            if (const std::vector<GR_BezierPath2d> outlines = text.GetOutlines(); !outlines.empty())
                writeArea(outlines, fillOf(*colour), "nonzero");
    }

    void writeBitmap(const GR_BitmapLayer& layer)
    {
        const GR_BitmapLayer::Data& data = layer.GetData();
        const QImage image(reinterpret_cast<const uchar*>(data.pixels.constData()), data.width, data.height,
                           4 * data.width, QImage::Format_RGBA8888);
        QByteArray png;
        QBuffer buffer(&png);
        if (image.isNull() || !image.save(&buffer, "PNG")) {
            note(QStringLiteral("A picture without pixels is left out."));
            return;
        }
        m_xml.writeEmptyElement(QStringLiteral("image"));
        attribute("width", QString::number(data.width));
        attribute("height", QString::number(data.height));
        // The picture's rows run downwards from its upper edge.
        const Math::Matrix2x3 upright({1, 0}, {0, -1}, {0, static_cast<double>(data.height)});
        attribute("transform", matrixText(data.matrix * upright));
        attribute("href", QStringLiteral("data:image/png;base64,") + QString::fromLatin1(png.toBase64()));
    }

    Fill fillOf(const GR_Color& colour)
    {
        if (colour.HasTexture())
            note(QStringLiteral("Textures of areas are left out."));
        const std::shared_ptr<CM_Color> entry = entryOf(colour.GetColorID());
        if (entry && entry->GetColorType() != CM_Color::kSolid)
            return {QStringLiteral("url(#%1)").arg(writeGradient(*entry, colour.GetMatrix())), 1};
        return plainFillOf(entry);
    }

    /// SVG has no gradient that follows a line, so a line takes the gradient's first colour.
    Fill lineFillOf(const CM_ColorId_t& id)
    {
        const std::shared_ptr<CM_Color> entry = entryOf(id);
        if (entry && entry->GetColorType() != CM_Color::kSolid)
            note(QStringLiteral("A line takes the first colour of the gradient \"%1\" alone.")
                     .arg(entry->GetColorName()));
        return plainFillOf(entry);
    }

    /// Black for no colour.
    static Fill plainFillOf(const std::shared_ptr<CM_Color>& colour)
    {
        if (!colour)
            return {QStringLiteral("#000000"), 1};
        const CM_Rgba rgba = colour->GetColorMarker(0).rgba;
        return {nameOf(rgba), rgba.alpha() / 255.0};
    }

    static QString nameOf(const CM_Rgba& rgba) { return QColor(rgba.red(), rgba.green(), rgba.blue()).name(); }

    /// The colour of an identity; null where it can't be told in SVG.
    std::shared_ptr<CM_Color> entryOf(const CM_ColorId_t& id)
    {
        const CM_Palette::Entry entry = CM_PaletteManager::GetInstance()->GetColor(id);
        if (!entry)
            note(QStringLiteral("The colour %1, which no palette has, is black.").arg(id.AsString()));
        else if (CM_CastToTexture(entry))
            note(QStringLiteral("The texture \"%1\" becomes black.").arg(entry->GetColorName()));
        const std::shared_ptr<CM_Color> colour = CM_CastToColor(entry);
        return colour && colour->Size() > 0 ? colour : nullptr;
    }

    /// Gives the gradient's name in the file.
    QString writeGradient(const CM_Color& entry, const Math::Matrix2x3& matrix)
    {
        const bool isLinear = entry.GetColorType() == CM_Color::kLinearGradient;
        const QString name = QStringLiteral("gradient%1").arg(++m_gradients);
        m_xml.writeStartElement(isLinear ? QStringLiteral("linearGradient") : QStringLiteral("radialGradient"));
        attribute("id", name);
        attribute("gradientUnits", QStringLiteral("userSpaceOnUse"));
        attribute("gradientTransform", matrixText(matrix));
        if (isLinear) {
            for (const char* zero : {"x1", "y1", "y2"})
                attribute(zero, QStringLiteral("0"));
            attribute("x2", QStringLiteral("1"));
        } else {
            attribute("cx", QStringLiteral("0"));
            attribute("cy", QStringLiteral("0"));
            attribute("r", QStringLiteral("1"));
        }
        for (const CM_GradientData& marker : entry.gradientDataCol()) {
            m_xml.writeEmptyElement(QStringLiteral("stop"));
            attribute("offset", number(marker.position));
            attribute("stop-color", nameOf(marker.rgba));
            if (marker.rgba.alpha() < 255)
                attribute("stop-opacity", number(marker.rgba.alpha() / 255.0));
        }
        m_xml.writeEndElement();
        return name;
    }

    QXmlStreamWriter m_xml;
    QStringList m_notCarried;
    int m_gradients = 0;
};

} // namespace

QStringList exportFile(const QString& path, const QVariant& drawing)
{
    const auto* source = objectFrom<Drawing>(drawing);
    if (!source)
        throw Exception(QStringLiteral("Unexpected argument - a valid drawing was not provided."));
    QSaveFile file(path);
    const auto fail = [&] {
        throw Exception(QStringLiteral("\"%1\" can't be written: %2.").arg(path, file.errorString()));
    };
    if (!file.open(QIODevice::WriteOnly))
        fail();
    Writer writer(&file);
    writer.write(source->composite());
    // commit() replaces the file also where its own flush fails.
    if (!file.flush() || !file.commit())
        fail();
    return writer.notCarried();
}

} // namespace OMC::svg
