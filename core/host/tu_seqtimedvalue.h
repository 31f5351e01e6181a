#pragma once

#include "core/host/em_elementinfo.h"
#include "core/host/tu_timedvalue.h"

#include <QStringList>

#include <memory>
#include <set>
#include <vector>

class SC_ProjectCommon;

/// What a cell of the exposure sheet shows.
class BRINDLE_HOST_EXPORT TUSequence {
public:
    virtual ~TUSequence() = default;
};

/// A drawing, by its name.
class BRINDLE_HOST_EXPORT TUDrawingSequence : public TUSequence {
public:
    explicit TUDrawingSequence(const QString& name) : m_name(name) {}
    QString name() const { return m_name; }

private:
    QString m_name;
};

/// A column whose cells show drawings, by their names. A drawing is exposed from its frame up to the next exposure,
/// which may be an empty one. A frame at which an exposure begins is a key exposure. A fractional frame is the cell
/// that it lies in.
class BRINDLE_HOST_EXPORT TUSeqTimedValue : public TUTimedValue {
public:
    virtual SC_ProjectCommon* projectCommon() const = 0; ///< Null while the column is in no scene.

    /// The number of frames from the first one to the last that shows a drawing. The last exposure holds up to the end
    /// of the scene.
    virtual int nFrames() const = 0;
    virtual QString getTiming(double frame) const = 0;                 ///< Null where nothing is shown.
    virtual std::unique_ptr<TUSequence> seqAt(double frame) const = 0; ///< Null where nothing is shown.
    virtual void getDrawingTimings(QStringList& timings) const = 0;    ///< Each name once, in the order of the sheet.
    /// A name that no drawing has yet, for one at the frame: the next free number or, `byFrame`, the frame's.
    virtual void generateValues(double frame, bool byFrame, QStringList& names) const = 0;

    /// Adds the commands that expose drawings at a frame and those behind it, a name each; an empty one shows nothing.
    /// The last one holds up to the next exposure. A drawing that the column's element lacks is made. The commands fail
    /// for frames that the column can't have and for names that no drawing can have. The first argument is always null,
    /// the fourth 0.
    virtual void createSetValueCmd(void*, double frame, const QStringList& names, int, CO_AndCommand& commands) = 0;
    /// Leaves the command that empties cells. With `ripple` the frames are cut out: what lies behind moves up. Null for
    /// frames that the column can't have.
    virtual void clear(double start, int count, bool ripple, CO_Command** command) = 0;
};

/// A column that shows the drawings of an element.
class BRINDLE_HOST_EXPORT TUElementTimedValue : public TUSeqTimedValue {
public:
    virtual int elementId() const = 0; ///< Negative for none.
    /// The first key exposure behind a frame, or 0 where there is none; of those whose drawings have one of the marks.
    virtual int nextKeyExposure(double frame) const = 0;
    virtual int nextKeyExposure(double frame, const std::set<EM_MarkType>& marks) const = 0;
};

/// A column of drawing names alone, for an attribute that has its element elsewhere.
class BRINDLE_HOST_EXPORT TUTimingTimedValue : public TUSeqTimedValue {};

namespace tu_timedvalue::element {

/// Lets a column show the drawings of another element, by the names that its cells have; a negative id is none. Fails
/// for an id that no element has.
class BRINDLE_HOST_EXPORT SetElementIdCmd final : public CO_EngineCommand {
public:
    SetElementIdCmd(TUElementTimedValue* timedValue, int id);
};

} // namespace tu_timedvalue::element

/// What an animator does to drawings and exposures over ranges of frames. Each is one undo entry, and false, with
/// nothing changed, where it has no range or is refused.
namespace DR_DrawingCommands {

/// The frames of a column from `first` up to `end`, which is not included.
struct FrameRange {
    TUSeqTimedValue* timedValue = nullptr;
    int first = 0;
    int end = 0;

    bool operator==(const FrameRange&) const = default;
};
using FrameRanges = std::vector<FrameRange>;

/// Removes the drawings that the frames show: from their element, and from all cells of the project that show them. In
/// a column without an element the cells are all that goes. Fails where the frames show no drawing.
BRINDLE_HOST_EXPORT bool deleteDrawings(SC_ProjectCommon* project, const FrameRanges& ranges);
/// Makes each frame that shows a drawing a key exposure; what is shown stays.
BRINDLE_HOST_EXPORT bool addKeyExposures(SC_ProjectCommon* project, const FrameRanges& ranges);
/// Takes the key exposures in the ranges away: what is exposed ahead of them holds on. With `duplicatesOnly` just those
/// that show the same drawing as the frame ahead, so that nothing looks otherwise.
BRINDLE_HOST_EXPORT bool removeKeyExposures(SC_ProjectCommon* project, const FrameRanges& ranges, bool duplicatesOnly);
/// Lets the drawing ahead of each empty cell hold on over it; cells ahead of the first drawing stay empty.
BRINDLE_HOST_EXPORT bool fillWithHeldFrames(SC_ProjectCommon* project, const FrameRanges& ranges);

} // namespace DR_DrawingCommands
