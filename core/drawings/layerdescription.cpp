#include "core/drawings/layerdescription.h"

#include "core/drawings/drawingaccessimpl.h"
#include "core/drawings/drawinglayer.h"
#include "core/drawings/drawingvectorcolour.h"
#include "core/drawings/drawingvectorlinestyle.h"
#include "core/drawings/drawingvectorstroke.h"
#include "core/drawings/sessiontarget.h"
#include "core/drawings/strokepath.h"
#include "core/frame/found.h"

#include <QCoreApplication>

namespace OMC::layerdescription {

namespace {

QString text(const char* sentence)
{
    return QCoreApplication::translate("OMC::DrawingAccess", sentence);
}

[[noreturn]] void throwUnknownKey(const QString& key)
{
    throw Exception(text("The description has an unknown key \"%1\".").arg(key));
}

const QVariantMap mapIn(const QVariant& value, const char* what)
{
    if (value.typeId() != QMetaType::QVariantMap)
        throw Exception(text("The description of %1 is no map.").arg(QLatin1String(what)));
    return value.toMap();
}

QVariantList listIn(const QVariant& value)
{
    if (value.typeId() == QMetaType::QVariantList || value.typeId() == QMetaType::QStringList)
        return value.toList();
    return {value};
}

GR_BezierPath2d pathIn(const QVariant& value)
{
    auto path = strokepath::read(value);
    if (!path)
        throw Exception(text("Invalid bezier path specified."));
    return *std::move(path);
}

GR_ColorPtr colourIn(const QVariant& value)
{
    auto colour = DrawingVectorColour::colourFrom(value);
    if (!colour)
        throw Exception(text("Invalid vector colour specified."));
    return colour;
}

/// The side of a closed path at which its area lies, and the other one.
struct Sides {
    GR_StrokeSide inside;
    GR_StrokeSide outside;
};

Sides sidesOf(const GR_BezierPath2d& path)
{
    if (path.GetArea() < 0)
        return {GR_StrokeSide::Right, GR_StrokeSide::Left};
    return {GR_StrokeSide::Left, GR_StrokeSide::Right};
}

/// Reads one map.
class Reader {
public:
    explicit Reader(std::vector<Layer>& layers) : m_layers(layers) {}

    void read(const QVariantMap& description)
    {
        for (auto entry = description.begin(); entry != description.end(); ++entry) {
            if (entry.key() == QLatin1String("under"))
                m_under = entry->toBool();
            else if (entry.key() == QLatin1String("reference_layer"))
                m_reference = referenceIn(*entry);
            else if (entry.key() != QLatin1String("strokes") && entry.key() != QLatin1String("masks"))
                throwUnknownKey(entry.key());
        }
        if (const auto strokes = description.find(QStringLiteral("strokes")); strokes != description.end()) {
            for (const QVariant& stroke : listIn(*strokes))
                readStroke(stroke);
        }
        if (const auto masks = description.find(QStringLiteral("masks")); masks != description.end()) {
            for (const QVariant& mask : listIn(*masks))
                readMask(mapIn(mask, "a mask"));
        }
    }

private:
    static DrawingLayerImplShared::Pointer referenceIn(const QVariant& value)
    {
        const auto* layer = objectFrom<DrawingLayer>(value);
        if (!layer || !sessiontarget::isOfSession(*layer->record()))
            throw Exception(text("Invalid target layer specified."));
        return layer->record();
    }

    Layer& addLayer(GR_Layer::LayerType type, bool under)
    {
        m_layers.push_back({type, under, m_count++ == 0, m_reference, {}});
        return m_layers.back();
    }

    Layer& currentLayer() { return m_count == 0 ? addLayer(GR_Layer::kUndefined, m_under) : m_layers.back(); }

    void readStroke(const QVariant& value)
    {
        if (value.typeId() != QMetaType::QVariantMap) {
            const auto strokes = DrawingVectorStroke::getDrawingVectorStrokeFromQVariant(value);
            if (strokes.empty())
                throw Exception(text("Invalid stroke specified."));
            for (const DrawingVectorStroke& stroke : strokes) {
                if (!stroke.validateStroke())
                    throw Exception(text("Invalid stroke specified."));
                currentLayer().items.emplace_back(stroke);
            }
            return;
        }
        const QVariantMap stroke = value.toMap();
        GR_StrokeData data = strokeData(stroke);
        const auto type = layerType(stroke);
        Layer& layer = type ? addLayer(*type, m_under) : currentLayer();
        layer.items.emplace_back(std::move(data));
    }

    /// A mask is painted inside of its outline and outside of its holes, in the colour that stands for any.
    void readMask(const QVariantMap& mask)
    {
        for (auto entry = mask.begin(); entry != mask.end(); ++entry) {
            if (entry.key() != QLatin1String("path") && entry.key() != QLatin1String("holes"))
                throwUnknownKey(entry.key());
        }
        const auto painted = [](const QVariant& outline, bool isHole) {
            GR_BezierPath2d path = pathIn(outline);
            path.ClosePath();
            path = strokepath::cubic(path);
            const Sides sides = sidesOf(path);
            GR_StrokeData data(path);
            data.SetColor(GR_Color::CreateWith(GR_Color::autoId()),
                          static_cast<int>(isHole ? sides.outside : sides.inside));
            return data;
        };
        std::vector<Item> items;
        items.emplace_back(painted(mask.value(QStringLiteral("path")), false));
        if (const auto holes = mask.find(QStringLiteral("holes")); holes != mask.end()) {
            for (const QVariant& hole : listIn(*holes))
                items.emplace_back(painted(hole, true));
        }
        // Required: a mask goes above, whatever "under" says.
        addLayer(GR_Layer::kUndefined, false).items = std::move(items);
    }

    std::vector<Layer>& m_layers;
    bool m_under = false;
    DrawingLayerImplShared::Pointer m_reference;
    int m_count = 0;
};

void insert(GR_DrawingAccess& access, const std::vector<Item>& items, UT_Node* layer)
{
    std::vector<GR_StrokeData> run;
    const auto insertRun = [&] {
        if (!run.empty())
            access.Insert(run, layer);
        run.clear();
    };
    for (const Item& item : items) {
        if (const auto* data = std::get_if<GR_StrokeData>(&item)) {
            run.push_back(*data);
            continue;
        }
        insertRun();
        access.Copy(&found(std::get<DrawingVectorStroke>(item).validateStroke()), layer);
    }
    insertRun();
}

} // namespace

GR_StrokeData strokeData(const QVariantMap& stroke, const GR_StrokeData& defaults)
{
    GR_StrokeData data = defaults;
    bool hasPath = false;
    for (auto entry = stroke.begin(); entry != stroke.end(); ++entry) {
        const QString& key = entry.key();
        if (key == QLatin1String("path")) {
            data.SetPath(pathIn(*entry));
            hasPath = true;
        } else if (key == QLatin1String("line_style")) {
            const auto* style = objectFrom<DrawingVectorLineStyle>(*entry);
            if (!style)
                throw Exception(text("Invalid line style specified."));
            data.SetLineStyle(style->lineStyle());
        } else if (key == QLatin1String("colour_right")) {
            data.SetColor(colourIn(*entry), static_cast<int>(GR_StrokeSide::Right));
        } else if (key == QLatin1String("colour_left")) {
            data.SetColor(colourIn(*entry), static_cast<int>(GR_StrokeSide::Left));
        } else if (key != QLatin1String("type")) {
            throwUnknownKey(key);
        }
    }
    if (!hasPath)
        throw Exception(text("Invalid bezier path specified."));
    return data;
}

std::optional<GR_Layer::LayerType> layerType(const QVariantMap& stroke)
{
    const auto entry = stroke.find(QStringLiteral("type"));
    if (entry == stroke.end())
        return std::nullopt;
    const GR_Layer::LayerType type = DrawingAccessImpl::layerTypeFromQString(entry->toString());
    if (type == GR_Layer::kBitmap || type == GR_Layer::kText)
        throw Exception(text("A layer of the type \"%1\" has no strokes.").arg(entry->toString()));
    return type;
}

std::vector<Layer> layers(const QVariant& description)
{
    std::vector<Layer> layers;
    for (const QVariant& map : listIn(description))
        Reader(layers).read(mapIn(map, "layers"));
    return layers;
}

std::vector<UT_Node*> make(GR_DrawingAccess& access, const std::vector<Layer>& layers)
{
    std::vector<UT_Node*> made;
    UT_Node* anchor = nullptr;
    for (const Layer& layer : layers) {
        if (layer.first)
            anchor = layer.reference ? layer.reference->getLayer() : nullptr;
        UT_Node* leaf =
            layer.under ? access.CreateLayerUnder(layer.type, anchor) : access.CreateLayerAbove(layer.type, anchor);
        anchor = &found(leaf, &BaseObject::throwUnexpected);
        insert(access, layer.items, leaf);
        made.push_back(leaf);
    }
    return made;
}

} // namespace OMC::layerdescription
