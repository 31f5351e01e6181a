#include "engine/folder/columntext.h"

#include "engine/curves/beziercolumn.h"
#include "engine/curves/columnlist.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <optional>

namespace brindle::engine {

namespace {

constexpr int largest = std::numeric_limits<int>::max();
constexpr const char* continuities[] = {"CORNER", "STRAIGHT", "SMOOTH"};

void writePoint(JsonWriter& json, const BezierCtrlPt& point)
{
    json.beginArray(JsonWriter::Inline);
    for (const double number : {point.frame, point.value, point.leftX, point.leftY, point.rightX, point.rightY})
        json.number(number);
    json.text(continuities[point.continuity]);
    if (point.constSegment)
        json.text("CONSTANT");
    json.endArray();
}

BezierCtrlPt readPoint(const JsonPlace& place)
{
    BezierCtrlPt point;
    double* const numbers[] = {&point.frame, &point.value, &point.leftX, &point.leftY, &point.rightX, &point.rightY};
    int index = 0;
    for (double* number : numbers)
        *number = place.item(index++).number();
    point.continuity = place.item(index++).oneOf({continuities[0], continuities[1], continuities[2]});
    if (place.size() > index)
        point.constSegment = place.item(index++).oneOf({"CONSTANT"}) == 0;
    place.requireSize(index);
    return point;
}

} // namespace

void writeColumn(JsonWriter& json, const TUTimedValue& column, const DrivenAttributes& driven)
{
    json.beginObject();
    json.key("name").text(column.getName());
    json.key("type").text("BEZIER");
    if (column.isAnonymous())
        json.key("anonymous").flag(true);
    const auto& bezier = dynamic_cast<const BezierColumn&>(column);
    json.key("hold").beginArray(JsonWriter::Inline);
    json.integer(bezier.start());
    json.integer(bezier.stop());
    json.integer(bezier.step());
    json.endArray();
    json.key("points").beginArray();
    for (int i = 0; i < bezier.pointCount(); ++i)
        writePoint(json, bezier.point(i));
    json.endArray();

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
    place.requireOnly({"name", "type", "anonymous", "hold", "points", "order"});
    const JsonPlace name = place.field("name");
    place.field("type").oneOf({"BEZIER"});
    auto column =
        std::make_unique<BezierColumn>(name.text(), place.has("anonymous") && place.field("anonymous").flag());

    const JsonPlace hold = place.field("hold");
    column->setStart(hold.item(0).integer(1, largest));
    column->setStop(hold.item(1).integer(1, largest));
    column->setStep(hold.item(2).integer(1, largest));
    hold.requireSize(3);

    const JsonPlace points = place.field("points");
    std::optional<double> last;
    for (int i = 0; i < points.size(); ++i) {
        const JsonPlace pointPlace = points.item(i);
        const BezierCtrlPt point = readPoint(pointPlace);
        if (last && !(point.frame > *last))
            pointPlace.fail(QStringLiteral("is not behind the point ahead of it"));
        if (!column->putPoint(point))
            pointPlace.fail(QStringLiteral("is out of range"));
        last = point.frame;
    }
    std::unique_ptr<TUTimedValue> given = std::move(column);
    if (!columns.insert(given, -1))
        name.fail(name.text().isEmpty() ? QStringLiteral("is empty") : QStringLiteral("is the name of another column"));
}

void linkColumn(const JsonPlace& place, TUTimedValue& column, const DrivenAttributes& driven)
{
    const auto found = driven.find(&column);
    const int count = found == driven.end() ? 0 : static_cast<int>(found->second.size());
    std::vector<int> order(static_cast<std::size_t>(count));
    std::iota(order.begin(), order.end(), 0);
    if (place.has("order")) {
        const JsonPlace places = place.field("order");
        places.requireSize(count);
        std::vector<bool> seen(order.size());
        for (int i = 0; i < count; ++i) {
            const JsonPlace at = places.item(i);
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
