#pragma once

#include "core/host/export.h"

#include <QString>
#include <QVariant>

#include <vector>

/// A mark on a stretch of a column's cells, with values under keys. A repeated zone and its repeater are marked so.
class BRINDLE_HOST_EXPORT AT_ColumnMarker {
public:
    virtual ~AT_ColumnMarker() = default;
    virtual bool getValue(const QString& key, QVariant& value) const = 0; ///< False when it has no such key.
    virtual int getStart() const = 0;                                     ///< Its first frame.
    virtual int getLength() const = 0;                                    ///< In frames.
};

/// The markers of one column, by id.
class BRINDLE_HOST_EXPORT AT_ColumnMarkerManager {
public:
    virtual ~AT_ColumnMarkerManager() = default;
    /// Appends the ids of the markers that cover a frame.
    virtual void overlappingMarkers(int frame, std::vector<int>& ids) const = 0;
    virtual AT_ColumnMarker* marker(unsigned int id) const = 0; ///< Null when there is none.
};
