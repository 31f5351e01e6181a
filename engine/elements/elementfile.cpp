#include "engine/elements/elementfile.h"

#include "engine/elements/elementmanager.h"
#include "engine/elements/names.h"
#include "engine/elements/pixmapformats.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"
#include "engine/folder/safenames.h"

#include <limits>

namespace brindle::engine {

namespace {

/// In the order of the host's numbers.
constexpr const char* scanTypes[] = {"COLOR", "GRAY_SCALE", "BW"};
/// From TUElement::kPnt on.
constexpr const char* vectorTypes[] = {"PNT", "BVG"};
/// From kMarkKey on.
constexpr const char* marks[] = {"KEY", "BREAKDOWN", "INBETWEEN"};

void writeDrawing(JsonWriter& json, const Drawing& drawing)
{
    json.beginObject(JsonWriter::Inline);
    json.key("name").text(drawing.name());
    if (drawing.stem() != safe_names::made(drawing.name()))
        json.key("file").text(drawing.stem());
    if (drawing.version != 1)
        json.key("version").integer(drawing.version);
    if (drawing.type != kMarkNone)
        json.key("type").text(marks[drawing.type - kMarkKey]);
    if (drawing.scaleFactor != 1.0)
        json.key("scale").number(drawing.scaleFactor);
    if (!drawing.files().empty()) {
        json.key("files").beginArray(JsonWriter::Inline);
        for (const DrawingFile& file : drawing.files()) {
            if (file.layer == EM_DefaultLayerId) {
                json.integer(file.version);
                continue;
            }
            json.beginArray(JsonWriter::Inline);
            json.integer(file.version);
            json.integer(file.layer);
            json.endArray();
        }
        json.endArray();
    }
    json.endObject();
}

void writeElement(JsonWriter& json, const Element& element)
{
    const ElementFields& fields = element.fields();
    json.beginObject();
    json.key("id").integer(element.id());
    json.key("name").text(fields.name);
    json.key("folder").text(element.physicalName());
    json.key("scanType").text(scanTypes[fields.scanType]);
    json.key("fieldChart").number(fields.fieldChart);
    json.key("pixmapFormat").text(pixmapFormatOf(fields.pixmapFormat)->name());
    if (fields.vectorType != TUElement::kNoVector)
        json.key("vectorType").text(vectorTypes[fields.vectorType - TUElement::kPnt]);
    if (fields.opacity != ElementFields().opacity)
        json.key("opacity").integer(fields.opacity);
    if (fields.isDeleted)
        json.key("deleted").flag(true);
    if (!element.layers().empty()) {
        json.key("layers").beginArray();
        for (const EM_LayerInfo& layer : element.layers()) {
            json.beginArray(JsonWriter::Inline);
            json.integer(layer.id);
            json.text(layer.name);
            json.endArray();
        }
        json.endArray();
    }
    const DrawingList& drawings = element.drawings();
    if (drawings.size() > 0) {
        json.key("drawings").beginArray();
        for (std::size_t place = 0; place < drawings.size(); ++place)
            writeDrawing(json, drawings.at(place));
        json.endArray();
    }
    json.endObject();
}

QString readName(const JsonPlace& place)
{
    const QString name = place.text();
    if (!isElementName(name))
        place.fail(QStringLiteral("is no name that it can have"));
    return name;
}

/// The name of a folder or a file, which leads nowhere else.
QString readFileName(const JsonPlace& place)
{
    const QString name = place.text();
    if (!safe_names::isSafe(name))
        place.fail(QStringLiteral("is no name of a file"));
    return name;
}

int readLayerId(const JsonPlace& place)
{
    return place.integer(EM_DefaultLayerId + 1);
}

void readLayers(const JsonPlace& place, Element& element)
{
    for (int i = 0; i < place.size(); ++i) {
        const JsonPlace item = place.item(i);
        item.requireSize(2);
        const EM_LayerInfo layer{readLayerId(item.item(0)), readName(item.item(1))};
        if (element.findLayer(layer.id) || element.findLayer(layer.name))
            item.fail(QStringLiteral("is another layer's"));
        element.addLayer(layer);
    }
}

/// The layer and version of a file.
DrawingFile readFile(const JsonPlace& place, const Element& element)
{
    constexpr int highest = 9999;
    if (!place.isList())
        return {EM_DefaultLayerId, place.integer(1, highest), nullptr};
    place.requireSize(2);
    const DrawingFile file{readLayerId(place.item(1)), place.item(0).integer(1, highest), nullptr};
    if (!element.findLayer(file.layer))
        place.item(1).fail(QStringLiteral("is no layer of the element"));
    return file;
}

void readDrawing(const JsonPlace& place, Element& element, ContentStore& contents)
{
    constexpr int highest = 9999;
    place.requireOnly({"name", "file", "version", "type", "scale", "files"});
    const JsonPlace name = place.field("name");
    auto drawing = std::make_unique<Drawing>(readName(name));
    if (element.drawings().named(drawing->name()))
        name.fail(QStringLiteral("is the name of another drawing"));
    const auto file = place.ifField("file");
    const QString stem = file ? readFileName(*file) : safe_names::made(drawing->name());
    if (!element.drawings().isFreeStem(stem))
        place.fail(QStringLiteral("has the file of another drawing"));
    if (const auto version = place.ifField("version"))
        drawing->version = version->integer(1, highest);
    if (const auto type = place.ifField("type"))
        drawing->type = static_cast<EM_MarkType>(kMarkKey + type->oneOf(marks));
    if (const auto scale = place.ifField("scale")) {
        drawing->scaleFactor = scale->number();
        if (drawing->scaleFactor <= 0)
            scale->fail(QStringLiteral("is not above 0"));
    }
    Drawing& added = element.drawings().insert(std::move(drawing), stem);
    const auto files = place.ifField("files");
    for (int i = 0; files && i < files->size(); ++i) {
        const JsonPlace item = files->item(i);
        const DrawingFile key = readFile(item, element);
        if (added.content(key.layer, key.version))
            item.fail(QStringLiteral("is there twice"));
        added.setContent(key.layer, key.version, contents.fromFile(element.fileName(added, key.layer, key.version)));
    }
}

ElementFields readFields(const JsonPlace& place)
{
    ElementFields fields;
    fields.name = readName(place.field("name"));
    fields.scanType = place.field("scanType").oneOf(scanTypes);
    const JsonPlace chart = place.field("fieldChart");
    fields.fieldChart = chart.number();
    if (fields.fieldChart <= 0)
        chart.fail(QStringLiteral("is not above 0"));
    const JsonPlace format = place.field("pixmapFormat");
    fields.pixmapFormat = pixmapFormatNamed(format.text());
    if (fields.pixmapFormat < 0)
        format.fail(QStringLiteral("is no format of pictures"));
    if (const auto type = place.ifField("vectorType"))
        fields.vectorType = TUElement::kPnt + type->oneOf(vectorTypes);
    if (const auto opacity = place.ifField("opacity"))
        fields.opacity = opacity->integer(0, 100);
    if (const auto deleted = place.ifField("deleted"))
        fields.isDeleted = deleted->flag();
    return fields;
}

void readElement(const JsonPlace& place, ElementManager& elements)
{
    place.requireOnly({"id", "name", "folder", "scanType", "fieldChart", "pixmapFormat", "vectorType", "opacity",
                       "deleted", "layers", "drawings"});
    constexpr int highest = std::numeric_limits<int>::max() / 2;
    const JsonPlace id = place.field("id");
    const ElementFields fields = readFields(place);
    auto made = std::make_unique<Element>(elements, id.integer(1, highest), fields);
    if (elements.find(made->id()))
        id.fail(QStringLiteral("is the id of another element"));
    if (!fields.isDeleted && !elements.isFreeName(fields.name, nullptr))
        place.field("name").fail(QStringLiteral("is the name of another element"));
    const JsonPlace folder = place.field("folder");
    made->setPhysicalName(readFileName(folder));
    if (!elements.isFreeFolder(made->physicalName()))
        folder.fail(QStringLiteral("is the folder of another element"));
    Element& element = elements.insert(std::move(made));
    if (const auto layers = place.ifField("layers"))
        readLayers(*layers, element);
    const auto drawings = place.ifField("drawings");
    for (int i = 0; drawings && i < drawings->size(); ++i)
        readDrawing(drawings->item(i), element, elements.contents());
}

} // namespace

QByteArray elementFileText(const ElementManager& elements)
{
    JsonWriter json;
    json.beginObject();
    json.key("format").text(elementFormat);
    json.key("version").integer(elementVersion);
    json.key("elements").beginArray();
    for (const TUElement* element : elements.elements())
        writeElement(json, static_cast<const Element&>(*element));
    json.endArray();
    json.endObject();
    return json.result();
}

void readElements(const JsonFile& file, ElementManager& elements)
{
    const JsonPlace root = file.root();
    root.requireFormat(elementFormat, elementVersion);
    root.requireOnly({"format", "version", "elements"});
    const JsonPlace list = root.field("elements");
    for (int i = 0; i < list.size(); ++i)
        readElement(list.item(i), elements);
}

} // namespace brindle::engine
