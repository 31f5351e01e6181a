#pragma once

#include "core/columns/column.h"

class TUSeqTimedValue;

namespace OMC {

/// A timing column: the name of the drawing that is exposed at each frame, for an attribute that has its element
/// elsewhere.
///
/// Exposures hold as those of an ElementColumn do, and the size is that of one. A copy of a drawing is just a new name
/// here.
class BRINDLE_CORE_EXPORT DrawingTimingColumn : public Column {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingTimingColumn)

public:
    explicit DrawingTimingColumn(TUTimedValue* timedValue);

    std::string __str__() const override;

    /// The number of frames up to the last one that shows a drawing.
    unsigned int nFrames() const override;

    /// Removes the drawing that is exposed at a frame from all cells of the column that show it.
    virtual void drawingDelete(int frame);
    /// Exposes a new name from a frame on, the number behind the highest one of the column, and gives it.
    virtual QVariant drawingDuplicate(int frame);
    /// Lets the drawing ahead of each empty cell hold on over it, from frame `start` to `end`.
    virtual void fill_empty(int start, int end);
    virtual void keyExposureAdd(int frame); ///< Makes a frame that shows a drawing a key exposure.
    /// Takes the key exposure at a frame away: the drawing that is exposed ahead of it holds on. With `duplicatesOnly`
    /// that is done only where the frame ahead shows the same drawing.
    virtual void keyExposureRemove(int frame, bool duplicatesOnly);
    /// Exposes a drawing of its own on each frame from `start` to `end`: the prefix and a number, which counts them
    /// from 1 and passes over names that are taken. With `emptyOnly` frames that show a drawing keep it.
    virtual void lineTestFill(int start, int end, const QString& prefix, bool emptyOnly);
    /// Whether a cell shows this text, any text of a list, or the text form of an object.
    virtual bool contains(const QVariant& value) const;

private:
    TUSeqTimedValue& sequence() const;
};

} // namespace OMC
