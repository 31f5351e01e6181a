#include "engine/drawings/drawingfile.h"
#include "engine/folder/folderio.h"

#include <QBuffer>
#include <QImage>
#include <QtEndian>

#include <bit>
#include <tuple>
#include <unordered_map>

namespace brindle::engine {

namespace {

/// Bytes that grow.
class BodyWriter {
public:
    explicit BodyWriter(qsizetype expected) { m_bytes.reserve(expected); }

    void byte(unsigned int value) { m_bytes.append(static_cast<char>(value)); }
    void count(quint64 value)
    {
        for (; value >= 0x80; value >>= 7)
            byte(static_cast<unsigned int>(value & 0x7f) | 0x80U);
        byte(static_cast<unsigned int>(value));
    }
    void whole(qint64 value) { count(value < 0 ? 2 * quint64(-(value + 1)) + 1 : 2 * quint64(value)); }
    void number(double value) { fixed(std::bit_cast<quint64>(value)); }
    /// All points of a path, which are most of a drawing, at once.
    void points(const GR_BezierPath2d& path)
    {
        const unsigned int count = path.GetNumPoints();
        const qsizetype start = m_bytes.size();
        m_bytes.resize(start + qsizetype(count) * 2 * qsizetype(sizeof(double)));
        char* place = m_bytes.data() + start;
        for (unsigned int index = 0; index < count; ++index) {
            const Math::Point2d& point = path.GetPoint(index);
            for (const double number : {point.x, point.y}) {
                qToLittleEndian(std::bit_cast<quint64>(number), place);
                place += sizeof(double);
            }
        }
    }
    void id(const CM_ColorId_t& id) { fixed(id.value()); }
    void point(const Math::Point2d& point)
    {
        number(point.x);
        number(point.y);
    }
    void vector(const Math::Vector2d& vector)
    {
        number(vector.x);
        number(vector.y);
    }
    void matrix(const Math::Matrix2x3& matrix)
    {
        vector(matrix.xAxis());
        vector(matrix.yAxis());
        point(matrix.origin());
    }
    void bytes(const QByteArray& bytes)
    {
        count(static_cast<quint64>(bytes.size()));
        m_bytes.append(bytes);
    }
    void text(const QString& text) { bytes(text.toUtf8()); }
    void append(const BodyWriter& other) { m_bytes.append(other.m_bytes); }

    const QByteArray& all() const { return m_bytes; }

private:
    void fixed(quint64 value)
    {
        const quint64 little = qToLittleEndian(value);
        m_bytes.append(reinterpret_cast<const char*>(&little), sizeof little);
    }

    QByteArray m_bytes;
};

/// Values that others name by an index: each once, in the order in which they were met.
template <typename Value>
class Table {
public:
    explicit Table(std::size_t (*hash)(const Value&)) : m_indices(16, hash) {}

    quint64 indexOf(const Value& value)
    {
        // Neighbours are alike.
        if (m_last != m_indices.end() && m_last->first == value)
            return m_last->second;
        bool isNew = false;
        std::tie(m_last, isNew) = m_indices.try_emplace(value, m_values.size());
        if (isNew)
            m_values.push_back(&m_last->first);
        return m_last->second;
    }
    const std::vector<const Value*>& values() const { return m_values; }

private:
    using Indices = std::unordered_map<Value, quint64, std::size_t (*)(const Value&)>;

    Indices m_indices;
    typename Indices::iterator m_last = m_indices.end();
    std::vector<const Value*> m_values;
};

std::size_t hashOf(const GR_Color& colour)
{
    return std::hash<UT_Id>()(colour.GetColorID()) ^ std::hash<double>()(colour.GetMatrix().origin().x);
}

std::size_t hashOf(const GR_LineStyle& style)
{
    return std::hash<UT_Id>()(style.GetColorID()) ^ std::hash<double>()(style.GetThickness());
}

std::size_t hashOf(const GR_ThicknessPathPtr& path)
{
    return std::hash<const void*>()(path.get());
}

void write(BodyWriter& body, const GR_Color& colour)
{
    body.id(colour.GetColorID());
    body.matrix(colour.GetMatrix());
    body.id(colour.GetTextureID());
    body.matrix(colour.GetTextureMatrix());
}

void write(BodyWriter& body, const GR_LineStyle& style)
{
    body.count(static_cast<quint64>(style.GetType()));
    body.byte((style.isTextureTiled() ? 1U : 0U) | (style.isOpacityTextureTiled() ? 2U : 0U) |
              (style.isTextureWrapAtTip() ? 4U : 0U));
    body.number(style.GetThickness());
    body.id(style.GetColorID());
    body.id(style.GetOpacityColorID());
    body.vector(style.getTextureScaling());
    body.vector(style.getTextureOffset());
    body.vector(style.getOpacityTextureScaling());
    body.vector(style.getOpacityTextureOffset());
}

void write(BodyWriter& body, const GR_Bezier2d& tip)
{
    body.count(tip.GetDegree());
    for (unsigned int index = 0; index <= tip.GetDegree(); ++index)
        body.point(tip.GetPoint(index));
}

void write(BodyWriter& body, const GR_ThicknessPathPtr& path)
{
    body.byte(path->isClosed() ? 1 : 0);
    write(body, path->tipFromBezier());
    write(body, path->tipToBezier());
    body.count(path->thicknessKeys().size());
    for (const GR_ThicknessPath::ThicknessKey& key : path->thicknessKeys()) {
        body.number(key.position);
        for (const GR_ThicknessPath::Side* side : {&key.left, &key.right}) {
            body.number(side->thickness);
            body.number(side->fromControl);
            body.number(side->fromControlPosition);
            body.number(side->toControl);
            body.number(side->toControlPosition);
        }
    }
}

template <typename Value>
void write(BodyWriter& body, const Table<Value>& table)
{
    body.count(table.values().size());
    for (const Value* value : table.values())
        write(body, *value);
}

QByteArray pngOf(const GR_BitmapLayer::Data& bitmap)
{
    if (bitmap.pixels.isEmpty())
        return {};
    const QImage image(reinterpret_cast<const uchar*>(bitmap.pixels.constData()), bitmap.width, bitmap.height,
                       4 * bitmap.width, QImage::Format_RGBA8888);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    constexpr int quality = 80; // Of the file's size: the pixels are the same.
    image.save(&buffer, "PNG", quality);
    return buffer.data();
}

/// The art layers, and the tables that they refer to.
class ArtWriter {
public:
    explicit ArtWriter(const DrawingValue& drawing) : m_quantum(drawing.info.pointQuantum)
    {
        for (const ArtPointer& art : drawing.arts) {
            m_body.byte(art ? 1 : 0);
            if (!art)
                continue;
            m_body.count(art->layers.size());
            for (const LayerPointer& layer : art->layers)
                write(*layer);
        }
    }

    void addTo(BodyWriter& body) const
    {
        engine::write(body, m_colours);
        engine::write(body, m_styles);
        engine::write(body, m_paths);
        body.append(m_body);
    }

private:
    void write(const LayerValue& layer)
    {
        m_body.count(layer.id);
        m_body.count(static_cast<quint64>(layer.type));
        if (layer.text) {
            write(*layer.text);
        } else if (layer.bitmap) {
            m_body.matrix(layer.bitmap->matrix);
            m_body.bytes(pngOf(*layer.bitmap));
        } else {
            m_body.count(layer.strokes.size());
            layer.strokes.forEach([this](const StrokePointer& stroke) { write(*stroke); });
        }
    }

    void write(const StrokeRecord& stroke)
    {
        const GR_StrokeData& data = stroke.data;
        const GR_ThicknessBinder& binder = data.GetThicknessBinder();
        const bool isPart = !(GR_ThicknessBinder(binder.thicknessPath()) == binder);
        m_body.count(stroke.id);
        m_body.byte((data.isCut(GR_StrokeEnd::From) ? 1U : 0U) | (data.isCut(GR_StrokeEnd::To) ? 2U : 0U) |
                    (isPart ? 4U : 0U));
        m_body.count(static_cast<quint64>(data.tipType(GR_StrokeEnd::From)));
        m_body.count(static_cast<quint64>(data.tipType(GR_StrokeEnd::To)));
        m_body.count(indexOf(data.GetColor(0)));
        m_body.count(indexOf(data.GetColor(1)));
        m_body.count(m_styles.indexOf(data.GetLineStyle()));
        m_body.count(binder.thicknessPath() ? m_paths.indexOf(binder.thicknessPath()) + 1 : 0);
        if (isPart) {
            for (const double number : {binder.startPosition, binder.stopPosition, binder.startTangentLeft,
                                        binder.startTangentRight, binder.stopTangentLeft, binder.stopTangentRight})
                m_body.number(number);
        }
        if (!(m_quantum > 0)) {
            write(data.GetPath());
            return;
        }
        GR_BezierPath2d rounded = data.GetPath();
        rounded.Round(m_quantum);
        write(rounded);
    }

    void write(const GR_BezierPath2d& path)
    {
        m_body.count(path.GetNumBezier());
        m_body.points(path);
    }

    void write(const GR_TextLayer::Data& text)
    {
        m_body.text(text.text);
        m_body.text(text.font);
        m_body.number(text.size);
        m_body.count(indexOf(text.colour));
        m_body.matrix(text.matrix);
        m_body.number(text.width);
        m_body.number(text.fixedWidth);
        m_body.count(static_cast<quint64>(text.alignment));
        for (const int length : {text.marginLeft, text.marginRight, text.indent, text.lineSpace})
            m_body.whole(length);
        m_body.count(static_cast<quint64>(text.selectionFrom));
        m_body.count(static_cast<quint64>(text.selectionTo));
    }

    quint64 indexOf(const GR_ColorPtr& colour) { return colour ? m_colours.indexOf(*colour) + 1 : 0; }

    double m_quantum;
    BodyWriter m_body{4096};
    Table<GR_Color> m_colours{hashOf};
    Table<GR_LineStyle> m_styles{hashOf};
    Table<GR_ThicknessPathPtr> m_paths{hashOf};
};

} // namespace

QByteArray drawingFileBytes(const DrawingValue& drawing)
{
    BodyWriter body(4096);
    const GR_CompositeDrawingInfo& info = drawing.info;
    body.byte(info.IsPivotPointDefined() ? 1 : 0);
    if (info.IsPivotPointDefined())
        body.point(info.GetPivotPoint());
    body.whole(info.fieldSize);
    body.number(info.pointQuantum);
    body.count(drawing.lastLayerId);
    body.count(drawing.lastStrokeId);
    ArtWriter(drawing).addTo(body);

    const Checksum checksum = Checksum::of(body.all());
    QByteArray file = "brindle-drawing " + QByteArray::number(drawingFileVersion) + '\n';
    file.reserve(file.size() + 12 + body.all().size());
    const quint64 size = qToLittleEndian(static_cast<quint64>(checksum.size));
    const quint32 crc = qToLittleEndian(checksum.crc);
    file.append(reinterpret_cast<const char*>(&size), sizeof size);
    file.append(reinterpret_cast<const char*>(&crc), sizeof crc);
    file.append(body.all());
    return file;
}

} // namespace brindle::engine
