#include "core/columns/framerangesargument.h"

#include "core/nodes/indexargument.h"

#include <limits>
#include <optional>
#include <vector>

namespace OMC {

namespace {

constexpr const char* startKeys[] = {"from", "start", "begin", "FROM", "START", "BEGIN"};
constexpr const char* endKeys[] = {"to", "end", "finish", "TO", "END", "FINISH"};

std::optional<int> frameFrom(const QVariant& value)
{
    bool read = false;
    const int frame = value.toInt(&read);
    return read && fitsIndex(value) ? std::optional(frame) : std::nullopt;
}

/// The first of the keys whose value is a frame.
template <std::size_t Count>
std::optional<int> frameAt(const QVariantMap& map, const char* const (&keys)[Count])
{
    for (const char* key : keys) {
        const auto found = map.constFind(QString::fromLatin1(key));
        if (found == map.constEnd())
            continue;
        if (const auto frame = frameFrom(*found))
            return frame;
    }
    return std::nullopt;
}

int behind(int frame)
{
    return frame == std::numeric_limits<int>::max() ? frame : frame + 1;
}

/// Adds the range of a value that is no list.
void addRange(TUSeqTimedValue* column, const QVariant& value, DR_DrawingCommands::FrameRanges& ranges)
{
    if (value.typeId() == QMetaType::QVariantMap) {
        const QVariantMap map = value.toMap();
        const auto start = frameAt(map, startKeys);
        const auto end = frameAt(map, endKeys);
        if (start && end)
            ranges.push_back({column, *start, behind(*end)});
    } else if (const auto frame = frameFrom(value)) {
        ranges.push_back({column, *frame, behind(*frame)});
    }
}

} // namespace

bool addFrameRanges(TUSeqTimedValue* column, const QVariant& value, DR_DrawingCommands::FrameRanges& ranges)
{
    const std::size_t before = ranges.size();
    // Not by recursion: a script decides how deep its lists lie inside each other.
    std::vector<QVariant> waiting{value};
    while (!waiting.empty()) {
        const QVariant next = std::move(waiting.back());
        waiting.pop_back();
        if (next.typeId() == QMetaType::QVariantList || next.typeId() == QMetaType::QStringList) {
            const QVariantList items = next.toList();
            waiting.insert(waiting.end(), items.rbegin(), items.rend());
        } else {
            addRange(column, next, ranges);
        }
    }
    return ranges.size() > before;
}

} // namespace OMC
