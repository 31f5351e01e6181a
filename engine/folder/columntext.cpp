#include "engine/folder/columntext.h"

#include "core/host/sc_scene.h"
#include "core/host/tu_elementmgr.h"
#include "engine/curves/column.h"
#include "engine/curves/columnkinds.h"
#include "engine/curves/columnlist.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"

#include <algorithm>
#include <numeric>

namespace brindle::engine {

void writeColumn(JsonWriter& json, const TUTimedValue& column, const DrivenAttributes& driven)
{
    json.beginObject();
    json.key("name").text(column.getName());
    const Column& own = *Column::of(&column);
    json.key("type").text(own.kind().word);
    if (column.isAnonymous())
        json.key("anonymous").flag(true);
    own.write(json);
    if (const auto found = driven.find(&column); found != driven.end()) {
        std::unordered_map<const AT_Attr*, int> places;
        for (const AT_Attr* attr : found->second)
            places.emplace(attr, static_cast<int>(places.size()));
        std::vector<int> order;
        for (unsigned int i = 0; i < column.getNumLinks(); ++i) {
            if (const auto place = places.find(column.linkedAttr(i)); place != places.end())
                order.push_back(place->second);
        }
        if (!std::is_sorted(order.begin(), order.end())) {
            json.key("order").beginArray(JsonWriter::Inline);
            for (const int at : order)
                json.integer(at);
            json.endArray();
        }
    }
    json.endObject();
}

void readColumn(const JsonPlace& place, ColumnList& columns)
{
    const ColumnKind& kind = columnKindAt(place.field("type"));
    place.requireOnly({"name", "type", "anonymous", "order"}, kind.fields);
    const JsonPlace name = place.field("name");
    const auto anonymous = place.ifField("anonymous");
    std::unique_ptr<Column> column = kind.make(name.text(), anonymous && anonymous->flag());
    column->read(place);
    const Column& own = *column;
    std::unique_ptr<TUTimedValue> given = Column::asTimedValue(std::move(column));
    if (!columns.insert(given, -1))
        name.fail(name.text().isEmpty() ? QStringLiteral("is empty") : QStringLiteral("is the name of another column"));
    const int element = own.elementId();
    const TUElementMgr* elements = own.scene()->elementManager();
    if (element >= 0 && (!elements || elements->elementById(element).id() < 0))
        place.field("element").fail(QStringLiteral("is not the id of an element"));
}

void linkColumn(const JsonPlace& place, TUTimedValue& column, const DrivenAttributes& driven)
{
    const auto found = driven.find(&column);
    const int count = found == driven.end() ? 0 : static_cast<int>(found->second.size());
    std::vector<int> order(static_cast<std::size_t>(count));
    std::iota(order.begin(), order.end(), 0);
    if (const auto places = place.ifField("order")) {
        places->requireSize(count);
        std::vector<bool> seen(order.size());
        for (int i = 0; i < count; ++i) {
            const JsonPlace at = places->item(i);
            order[i] = at.integer(0, count - 1);
            if (seen[order[i]])
                at.fail(QStringLiteral("is there twice"));
            seen[order[i]] = true;
        }
    }
    for (const int at : order) {
        AT_Attr* attr = found->second[at];
        if (tu_tv_socket::LinkCmd(attr->socket(), &column).execute() == CO_Command::kFail)
            place.fail(QStringLiteral("has values that an attribute which it drives can't have"));
    }
}

} // namespace brindle::engine
