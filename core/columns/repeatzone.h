#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class TUTimedValue;

namespace OMC {

/// A stretch of cells that repeats its head up to its end: frames `start` to `repeaterStart` - 1 are the pattern, the
/// frames from `repeaterStart` to `end` repeat it.
struct RepeatZone {
    int start = 0;
    int repeaterStart = 0;
    int end = 0;

    /// The zone of a column that covers a frame and has a repeater at its end; false when there is none.
    static bool find(TUTimedValue& column, int frame, RepeatZone& zone);

    /// Writes the pattern into the cells that repeat it, where their text differs. `entryAt` reads a cell.
    void repeat(TUTimedValue& column, const std::function<QString(int)>& entryAt) const;
};

} // namespace OMC
