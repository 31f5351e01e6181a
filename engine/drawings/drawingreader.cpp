#include "engine/drawings/drawingfile.h"
#include "engine/drawings/strokechecks.h"
#include "engine/folder/folderio.h"

#include <QImage>
#include <QStringDecoder>
#include <QtEndian>

#include <bit>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <unordered_set>

namespace brindle::engine {

namespace {

/// What is wrong with a body, as the end of a sentence.
struct Damage {
    const char* what;
};

void expect(bool isGood, const char* what)
{
    if (!isGood)
        throw Damage{what};
}

/// Reads a body from its beginning to its end. Throws `Damage` for what isn't there.
class BodyReader {
public:
    explicit BodyReader(QByteArrayView bytes) : m_bytes(bytes) {}

    bool isAtEnd() const { return m_bytes.isEmpty(); }

    unsigned int byte() { return static_cast<unsigned char>(take(1)[0]); }
    quint64 count()
    {
        quint64 value = 0;
        for (int shift = 0; shift < 63; shift += 7) {
            const unsigned int next = byte();
            value |= quint64(next & 0x7fU) << shift;
            if (!(next & 0x80U)) {
                expect(next != 0 || shift == 0, "a count is written with more bytes than it needs");
                return value;
            }
        }
        throw Damage{"a count is too large"};
    }
    quint64 countUpTo(quint64 highest, const char* what)
    {
        const quint64 value = count();
        expect(value <= highest, what);
        return value;
    }
    /// A count of records that have this many bytes at least, as many as can follow.
    std::size_t countOf(qsizetype least, const char* what)
    {
        return static_cast<std::size_t>(countUpTo(static_cast<quint64>(m_bytes.size() / least), what));
    }
    int whole()
    {
        constexpr quint64 highest = quint64(std::numeric_limits<int>::max());
        const quint64 value = countUpTo(2 * highest + 1, "a number is too large");
        return value % 2 == 0 ? static_cast<int>(value / 2) : -static_cast<int>(value / 2) - 1;
    }
    double number()
    {
        const double value = std::bit_cast<double>(fixed());
        expect(std::isfinite(value), "a number is not finite");
        return value;
    }
    CM_ColorId_t id() { return CM_ColorId_t(fixed()); }
    Math::Point2d point()
    {
        const double x = number();
        return {x, number()};
    }
    Math::Vector2d vector()
    {
        const double x = number();
        return {x, number()};
    }
    Math::Matrix2x3 matrix()
    {
        const Math::Vector2d xAxis = vector();
        const Math::Vector2d yAxis = vector();
        return {xAxis, yAxis, point()};
    }
    QByteArrayView bytes() { return take(static_cast<qsizetype>(countOf(1, "a text is cut off"))); }
    QString text()
    {
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        QString text = decoder.decode(bytes());
        expect(!decoder.hasError(), "a text is not in UTF-8");
        return text;
    }

private:
    QByteArrayView take(qsizetype size)
    {
        expect(size <= m_bytes.size(), "it ends too early");
        const QByteArrayView taken = m_bytes.first(size);
        m_bytes = m_bytes.sliced(size);
        return taken;
    }
    quint64 fixed() { return qFromLittleEndian<quint64>(take(sizeof(quint64)).data()); }

    QByteArrayView m_bytes;
};

GR_Color readColour(BodyReader& body)
{
    const CM_ColorId_t id = body.id();
    const Math::Matrix2x3 matrix = body.matrix();
    const CM_ColorId_t texture = body.id();
    const Math::Matrix2x3 textureMatrix = body.matrix();
    const GR_Color colour(id, matrix);
    if (texture.IsValid())
        return *colour.CopyWithTexture(texture, textureMatrix);
    return textureMatrix == Math::Matrix2x3() ? colour : *colour.CopyWithDifferentTextureMatrix(textureMatrix);
}

GR_LineStyle readStyle(BodyReader& body)
{
    const auto type = static_cast<int>(body.countUpTo(255, "there is no such type of lines"));
    expect(GR_LineStyle::IsType(type), "there is no such type of lines");
    GR_LineStyle style(static_cast<GR_LineStyle::Type>(type));
    const unsigned int flags = body.byte();
    expect(flags < 8, "a line style has unknown flags");
    style.setTextureTiled(flags & 1U);
    style.setOpacityTextureTiled(flags & 2U);
    style.setTextureWrapAtTip(flags & 4U);
    style.SetThickness(body.number());
    style.SetColorID(body.id());
    style.SetOpacityColorID(body.id());
    style.setTextureScaling(body.vector());
    style.setTextureOffset(body.vector());
    style.setOpacityTextureScaling(body.vector());
    style.setOpacityTextureOffset(body.vector());
    requireLineStyle(style);
    return style;
}

GR_Bezier2d readTip(BodyReader& body)
{
    const auto degree = static_cast<unsigned int>(body.countUpTo(GR_Bezier2d::maxDegree, "a tip has no such degree"));
    GR_Bezier2d tip(degree, Math::Constants::Closed, Math::Constants::Closed);
    for (unsigned int index = 0; index <= degree; ++index)
        tip.SetPoint(index, body.point());
    return tip;
}

GR_ThicknessPathPtr readThicknessPath(BodyReader& body)
{
    constexpr qsizetype keySize = 11 * sizeof(double);
    const unsigned int flags = body.byte();
    expect(flags < 2, "a thickness path has unknown flags");
    const GR_Bezier2d tipFrom = readTip(body);
    const GR_Bezier2d tipTo = readTip(body);
    std::vector<GR_ThicknessPath::ThicknessKey> keys(body.countOf(keySize, "a thickness path is cut off"));
    for (GR_ThicknessPath::ThicknessKey& key : keys) {
        key.position = body.number();
        for (GR_ThicknessPath::Side* side : {&key.left, &key.right}) {
            side->thickness = body.number();
            side->fromControl = body.number();
            side->fromControlPosition = body.number();
            side->toControl = body.number();
            side->toControlPosition = body.number();
        }
    }
    auto path = GR_ThicknessPath::CreateWith(keys);
    path->setClosed(flags & 1U);
    path->setTipFromBezier(tipFrom);
    path->setTipToBezier(tipTo);
    return path;
}

/// Whether the chunks of a PNG have their checksums (ISO/IEC 15948): libpng prints a line of its own for one that has
/// not.
bool isWhole(QByteArrayView png)
{
    constexpr qsizetype aroundData = 12; // length, name and checksum
    for (qsizetype chunk = 8; chunk + aroundData <= png.size();) {
        const qsizetype length = qFromBigEndian<quint32>(png.data() + chunk);
        if (length > png.size() - chunk - aroundData)
            return false;
        const QByteArrayView checked = png.sliced(chunk + 4, length + 4);
        const Checksum checksum = Checksum::of(QByteArray::fromRawData(checked.data(), checked.size()));
        if (checksum.crc != qFromBigEndian<quint32>(checked.data() + checked.size()))
            return false;
        chunk += aroundData + length;
        if (checked.startsWith("IEND"))
            return chunk == png.size();
    }
    return false;
}

/// The picture of a PNG; what it decodes to is held against what its bytes can stand for.
QByteArray readPixels(QByteArrayView png, GR_BitmapLayer::Data& bitmap)
{
    constexpr qsizetype headSize = 33; // signature and first chunk
    constexpr qsizetype widthPlace = 16;
    constexpr qsizetype heightPlace = 20;
    constexpr qint64 deflateLimit = 1032; // The most bytes that zlib makes of one.
    expect(png.size() >= headSize && png.first(8) == QByteArrayView("\x89PNG\r\n\x1a\n", 8), "a picture is no PNG");
    expect(isWhole(png), "a picture is damaged");
    const qint64 width = qFromBigEndian<quint32>(png.data() + widthPlace);
    const qint64 height = qFromBigEndian<quint32>(png.data() + heightPlace);
    expect(width > 0 && width <= largestBitmapSide && height > 0 && height <= largestBitmapSide &&
               width * height / 8 <= deflateLimit * png.size(),
           "a picture is too large");
    QImage image = QImage::fromData(reinterpret_cast<const uchar*>(png.data()), static_cast<int>(png.size()), "PNG");
    expect(image.width() == width && image.height() == height, "a picture can't be read");
    image.convertTo(QImage::Format_RGBA8888);
    bitmap.width = image.width();
    bitmap.height = image.height();
    return QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
}

/// Reads a drawing, and checks what it refers to.
class DrawingReader {
public:
    explicit DrawingReader(QByteArrayView body) : m_body(body) {}

    DrawingPointer read()
    {
        const unsigned int flags = m_body.byte();
        expect(flags < 2, "it has unknown flags");
        if (flags & 1U)
            m_drawing->info.SetPivotPoint(m_body.point());
        m_drawing->info.fieldSize = m_body.whole();
        m_drawing->info.pointQuantum = m_body.number();
        expect(m_drawing->info.pointQuantum >= 0, "the point quantum is negative");
        m_drawing->lastLayerId = readId(highestId);
        m_drawing->lastStrokeId = readId(highestId);
        readTable(m_colours, colourSize, [this] { return std::make_shared<const GR_Color>(readColour(m_body)); });
        readTable(m_styles, styleSize, [this] { return readStyle(m_body); });
        readTable(m_paths, pathSize, [this] { return readThicknessPath(m_body); });
        for (const GR_ColorPtr& colour : m_colours)
            requireColour(colour);
        for (ArtPointer& art : m_drawing->arts)
            art = readArt();
        expect(m_body.isAtEnd(), "it has more than a drawing");
        return m_drawing;
    }

private:
    static constexpr quint64 highestId = std::numeric_limits<quint32>::max() / 2;
    // The least sizes of records.
    static constexpr qsizetype colourSize = 14 * 8;
    static constexpr qsizetype styleSize = 13 * 8;
    static constexpr qsizetype pathSize = 36;
    static constexpr qsizetype layerSize = 3;
    static constexpr qsizetype strokeSize = 25;

    template <typename Values, typename Read>
    void readTable(Values& values, qsizetype least, Read read)
    {
        const std::size_t count = m_body.countOf(least, "a table is cut off");
        values.reserve(count);
        while (values.size() < count)
            values.push_back(read());
    }

    quint32 readId(quint64 highest) { return static_cast<quint32>(m_body.countUpTo(highest, "an id is too large")); }

    ArtPointer readArt()
    {
        const unsigned int isThere = m_body.byte();
        expect(isThere < 2, "an art layer has unknown flags");
        if (!isThere)
            return nullptr;
        auto art = std::make_shared<ArtValue>();
        readTable(art->layers, layerSize, [this] { return readLayer(); });
        return art;
    }

    LayerPointer readLayer()
    {
        auto layer = std::make_shared<LayerValue>();
        layer->id = readId(m_drawing->lastLayerId);
        expect(layer->id > 0 && m_layerIds.insert(layer->id).second, "two layers have one id");
        const auto type = static_cast<int>(m_body.countUpTo(GR_Layer::kText, "there is no such type of layers"));
        requireLayerType(type);
        layer->type = static_cast<GR_Layer::LayerType>(type);
        if (type == GR_Layer::kText)
            layer->text = readText();
        else if (type == GR_Layer::kBitmap)
            layer->bitmap = readBitmap();
        else
            readStrokes(layer->strokes);
        return layer;
    }

    void readStrokes(StrokeSequence& strokes)
    {
        for (std::size_t left = m_body.countOf(strokeSize, "the strokes are cut off"); left > 0; --left)
            strokes.append(readStroke());
    }

    StrokePointer readStroke()
    {
        auto stroke = std::make_shared<StrokeRecord>();
        stroke->id = readId(m_drawing->lastStrokeId);
        expect(stroke->id > 0 && m_strokeIds.insert(stroke->id).second, "two strokes have one id");
        GR_StrokeData& data = stroke->data;
        const unsigned int flags = m_body.byte();
        expect(flags < 8, "a stroke has unknown flags");
        data.setCut(GR_StrokeEnd::From, flags & 1U);
        data.setCut(GR_StrokeEnd::To, flags & 2U);
        for (const GR_StrokeEnd end : {GR_StrokeEnd::From, GR_StrokeEnd::To})
            data.setTipType(end, static_cast<GR_TipType>(m_body.countUpTo(255, "there is no such type of tips")));
        for (const int side : {0, 1})
            data.SetColor(one(m_colours), side);
        const quint64 style = m_body.count();
        expect(style < m_styles.size(), "there is no such line style");
        data.SetLineStyle(m_styles[static_cast<std::size_t>(style)]);
        GR_ThicknessBinder binder(one(m_paths));
        if (flags & 4U) {
            for (double* number : {&binder.startPosition, &binder.stopPosition, &binder.startTangentLeft,
                                   &binder.startTangentRight, &binder.stopTangentLeft, &binder.stopTangentRight})
                *number = m_body.number();
            requireThickness(binder);
        }
        data.CopyThicknessBinder(binder);
        data.SetPath(readPath());
        return stroke;
    }

    GR_BezierPath2d readPath()
    {
        constexpr qsizetype curveSize = 6 * sizeof(double);
        const std::size_t points = 3 * m_body.countOf(curveSize, "a path is cut off") + 1;
        expect(points <= GR_BezierPath2d::maxPoints, "a path is too long");
        GR_BezierPath2d path;
        for (std::size_t index = 0; index < points; ++index)
            path.Append(m_body.point(), index % 3 == 0);
        requirePath(path);
        return path;
    }

    std::shared_ptr<const GR_TextLayer::Data> readText()
    {
        auto text = std::make_shared<GR_TextLayer::Data>();
        text->text = m_body.text();
        text->font = m_body.text();
        text->size = m_body.number();
        text->colour = one(m_colours);
        text->matrix = m_body.matrix();
        text->width = m_body.number();
        text->fixedWidth = m_body.number();
        text->alignment = static_cast<GR_TextLayer::Alignment>(
            m_body.countUpTo(GR_TextLayer::kJustify, "there is no such alignment of texts"));
        for (int* length : {&text->marginLeft, &text->marginRight, &text->indent, &text->lineSpace})
            *length = m_body.whole();
        for (int* end : {&text->selectionFrom, &text->selectionTo})
            *end = static_cast<int>(
                m_body.countUpTo(static_cast<quint64>(text->text.size()), "a selection is outside of its text"));
        requireText(*text);
        return text;
    }

    std::shared_ptr<const GR_BitmapLayer::Data> readBitmap()
    {
        auto bitmap = std::make_shared<GR_BitmapLayer::Data>();
        bitmap->matrix = m_body.matrix();
        const QByteArrayView png = m_body.bytes();
        if (!png.isEmpty())
            bitmap->pixels = readPixels(png, *bitmap);
        requireBitmap(*bitmap);
        return bitmap;
    }

    /// An entry of a table by one more than its index; null for 0.
    template <typename Pointer>
    Pointer one(const std::vector<Pointer>& table)
    {
        const quint64 number = m_body.count();
        expect(number <= table.size(), "it refers to what isn't there");
        return number == 0 ? Pointer() : table[static_cast<std::size_t>(number - 1)];
    }

    BodyReader m_body;
    std::shared_ptr<DrawingValue> m_drawing = std::make_shared<DrawingValue>();
    std::vector<GR_ColorPtr> m_colours;
    std::vector<GR_LineStyle> m_styles;
    std::vector<GR_ThicknessPathPtr> m_paths;
    std::unordered_set<quint32> m_layerIds;
    std::unordered_set<quint32> m_strokeIds;
};

QString nameOf(const QString& path)
{
    return path.isEmpty() ? QStringLiteral("its content") : quoted(path);
}

/// The body of a file whose line, size and checksum are right.
QByteArrayView bodyOf(const QString& path, const QByteArray& bytes)
{
    constexpr QByteArrayView name("brindle-drawing ");
    constexpr qsizetype longestLine = 32;
    const qsizetype lineEnd = bytes.first(std::min(bytes.size(), longestLine)).indexOf('\n');
    if (!bytes.startsWith(name) || lineEnd < 0)
        throw FolderFailure{nameOf(path) + " is no drawing"};
    bool isNumber = false;
    const QByteArrayView digits = QByteArrayView(bytes).first(lineEnd).sliced(name.size());
    const int version = digits.toInt(&isNumber);
    if (!isNumber || version < 1 || digits != QByteArray::number(version))
        throw FolderFailure{nameOf(path) + " is no drawing"};
    if (version > drawingFileVersion)
        throw FolderFailure::ofNewerVersion(path, version, drawingFileVersion);

    const QByteArrayView rest = QByteArrayView(bytes).sliced(lineEnd + 1);
    constexpr qsizetype headSize = 12;
    expect(rest.size() >= headSize, "it ends too early");
    const QByteArrayView body = rest.sliced(headSize);
    expect(qFromLittleEndian<quint64>(rest.data()) == static_cast<quint64>(body.size()),
           "it has not the size that it tells");
    const Checksum checksum = Checksum::of(QByteArray::fromRawData(body.data(), body.size()));
    expect(qFromLittleEndian<quint32>(rest.data() + 8) == checksum.crc, "its checksum is wrong");
    return body;
}

} // namespace

DrawingPointer readDrawingFile(const QString& path, const QByteArray& bytes)
{
    try {
        return DrawingReader(bodyOf(path, bytes)).read();
    } catch (const Damage& damage) {
        throw FolderFailure{nameOf(path) + " is damaged: " + QLatin1String(damage.what)};
    } catch (const std::invalid_argument& error) { // What no drawing can have; a sentence of its own.
        QString sentence = QString::fromUtf8(error.what());
        sentence.chop(sentence.endsWith(u'.') ? 1 : 0);
        sentence.front() = sentence.front().toLower();
        throw FolderFailure{nameOf(path) + " is damaged: " + sentence};
    }
}

} // namespace brindle::engine
