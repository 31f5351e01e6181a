#include "core/columns/repeatzone.h"

#include "core/host/at_columnmarker.h"
#include "core/host/tu_timedvalue.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace OMC {

namespace {

/// The first marker of a type that covers a frame, or null.
const AT_ColumnMarker* markerOfType(const AT_ColumnMarkerManager& markers, int frame, QLatin1String type)
{
    std::vector<int> ids;
    markers.overlappingMarkers(frame, ids);
    for (const int id : ids) {
        const AT_ColumnMarker* marker = markers.marker(static_cast<unsigned int>(id));
        QVariant value;
        if (marker && marker->getValue(QStringLiteral("type"), value) && value.toString() == type)
            return marker;
    }
    return nullptr;
}

int lastFrame(const AT_ColumnMarker& marker)
{
    const long long last = static_cast<long long>(marker.getStart()) + marker.getLength() - 1;
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<long long>(last, Limits::min(), Limits::max() - 1));
}

} // namespace

bool RepeatZone::find(TUTimedValue& column, int frame, RepeatZone& zone)
{
    const AT_ColumnMarkerManager* markers = column.createOrGetColumnMarkerManager();
    if (!markers)
        return false;
    const auto* repeated = markerOfType(*markers, frame, QLatin1String("com.brindle.timesheet.repeatedzone"));
    if (!repeated)
        return false;
    zone.start = repeated->getStart();
    zone.end = lastFrame(*repeated);
    const auto* repeater = markerOfType(*markers, zone.end, QLatin1String("com.brindle.timesheet.repeater"));
    if (!repeater)
        return false;
    zone.repeaterStart = repeater->getStart();
    return true;
}

void RepeatZone::repeat(TUTimedValue& column, const std::function<QString(int)>& entryAt) const
{
    QStringList pattern;
    for (int frame = start; frame < repeaterStart; ++frame)
        pattern.append(entryAt(frame));
    // A repeater that begins at the zone's start or before has nothing to repeat.
    if (pattern.isEmpty())
        return;
    qsizetype index = 0;
    for (int frame = repeaterStart; frame <= end; ++frame, ++index) {
        if (index == pattern.size())
            index = 0;
        // Required: always sub-column 1, and a cell that refuses stays as it is.
        if (entryAt(frame) != pattern[index])
            column.setValuesFromXsheet(frame, 1, pattern[index], 1);
    }
}

} // namespace OMC
