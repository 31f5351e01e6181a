#include "engine/folder/backdroptext.h"

#include "engine/folder/colourtext.h"
#include "engine/graph/backdrops.h"
#include "engine/graph/group.h"

namespace brindle::engine {

namespace {

void writeText(JsonWriter& json, const char* name, const MO_BackdropText& text)
{
    json.key(name).beginObject();
    json.key("text").text(text.text);
    json.key("font").text(text.font);
    json.key("size").number(text.size);
    json.key("colour").text(colourText(text.colour.rgba()));
    json.endObject();
}

MO_BackdropText readText(const JsonPlace& place)
{
    place.requireOnly({"text", "font", "size", "colour"});
    MO_BackdropText text;
    text.text = place.field("text").text();
    text.font = place.field("font").text();
    text.size = place.field("size").number();
    text.colour = QColor::fromRgba(readColour(place.field("colour")));
    return text;
}

MO_BackdropProperties readProperties(const JsonPlace& place)
{
    place.requireOnly({"rect", "colour", "title", "description"});
    MO_BackdropProperties properties;
    const JsonPlace rect = place.field("rect");
    properties.rect = {rect.item(0).number(), rect.item(1).number(), rect.item(2).number(), rect.item(3).number()};
    rect.requireSize(4);
    properties.colour = QColor::fromRgba(readColour(place.field("colour")));
    properties.title = readText(place.field("title"));
    properties.description = readText(place.field("description"));
    if (!isBackdrop(properties))
        place.fail(QStringLiteral("has a font size that is not above 0"));
    return properties;
}

} // namespace

void writeBackdrops(JsonWriter& json, const Group& group)
{
    if (group.backdrops().empty())
        return;
    json.key("backdrops").beginArray();
    for (const std::shared_ptr<MO_Backdrop>& backdrop : group.backdrops()) {
        const MO_BackdropProperties& properties = backdrop->properties();
        json.beginObject();
        json.key("rect").beginArray(JsonWriter::Inline);
        for (double side : {properties.rect.left, properties.rect.top, properties.rect.right, properties.rect.bottom})
            json.number(side);
        json.endArray();
        json.key("colour").text(colourText(properties.colour.rgba()));
        writeText(json, "title", properties.title);
        writeText(json, "description", properties.description);
        json.endObject();
    }
    json.endArray();
}

void readBackdrops(const JsonPlace& place, Group& group)
{
    const auto list = place.ifField("backdrops");
    if (!list)
        return;
    for (int i = 0; i < list->size(); ++i) {
        auto backdrop = std::make_shared<MO_Backdrop>(&group, group.sceneCommon());
        backdrop->setProperties(readProperties(list->item(i)));
        group.backdropList().push_back(std::move(backdrop));
    }
}

} // namespace brindle::engine
