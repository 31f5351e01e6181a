#pragma once

#include "core/host/tu_seqtimedvalue.h"
#include "engine/curves/columnkinds.h"
#include "engine/curves/hostcolumn.h"
#include "engine/exposure/exposures.h"

#include <optional>
#include <span>
#include <vector>

class TUElementMgr;

namespace brindle::engine {

extern const ColumnKind drawingKind;
extern const ColumnKind timingKind;

/// The part of a column of exposures that doesn't depend on its host class.
class ExposureSheet {
public:
    virtual ~ExposureSheet() = default;

    /// Null for null and for a column of another engine.
    static const ExposureSheet* of(const Column& column) { return dynamic_cast<const ExposureSheet*>(&column); }
    static ExposureSheet* of(TUSeqTimedValue* column) { return dynamic_cast<ExposureSheet*>(column); }

    const Exposures& exposures() const { return m_exposures; }
    Exposures& exposures() { return m_exposures; }
    virtual Column& column() = 0;

    /// Gives the change that an edit makes to the present exposures; nothing where it is refused.
    using Edit = std::function<std::optional<Exposures::Change>(const Exposures&)>;
    /// The command that makes an edit, which is worked out at its first execution.
    std::unique_ptr<CO_Command> editCommand(Edit edit);
    /// The same for an edit that is worked out already; null for one that changes nothing.
    std::unique_ptr<CO_Command> changeCommand(Exposures::Change change);

    virtual QString freeName() const = 0; ///< The number behind the highest one that is a name.
    virtual bool hasName(const QString& name) const = 0;
    /// Adds the commands that make the drawings which the element lacks.
    virtual void addMissingDrawings(const QStringList& names, CO_AndCommand& commands) const = 0;

protected:
    Exposures m_exposures;
};

/// The frame of the cell that a frame lies in, or 0 where there is no cell.
int cellAt(double frame);

/// A column of exposures of the open engine: what is said of Exposures, in cells of the exposure sheet.
///
/// - A cell shows the name of its drawing; the empty text empties it.
/// - Frames that come into the scene show nothing, unless the preference "EXTEND_DRAWING_EXPOSURE" lets the exposure
/// ahead
///   hold on over them.
///
/// The field of a file: "exposures", a list with [frame, "drawing"] for each exposure, [frame] for an empty one.
template <typename Host>
class ExposureColumn : public HostColumn<Host>, public ExposureSheet {
public:
    using HostColumn<Host>::HostColumn;

    Column& column() final { return *this; }

    void getValueForXsheet(double frame, int subColumn, QString* text, bool& isKey, bool& isHeld, bool& isBlank,
                           bool& isLocked) const final;
    int setValuesFromXsheet(double frame, int count, const QString& text, int subColumn) final;
    void scale(double, int, CO_Command** command) final { *command = nullptr; }
    bool takesValues() const final { return true; }
    CO_Command* spliceCommand(double frame, bool constantSegment) final;
    std::unique_ptr<TUCellMemo> remember(double frame) final;

    SC_ProjectCommon* projectCommon() const final;
    int nFrames() const final;
    QString getTiming(double frame) const final { return m_exposures.at(cellAt(frame)); }
    std::unique_ptr<TUSequence> seqAt(double frame) const final;
    void getDrawingTimings(QStringList& timings) const final { timings += m_exposures.drawings(); }
    void generateValues(double frame, bool byFrame, QStringList& names) const final;
    void createSetValueCmd(void*, double frame, const QStringList& names, int, CO_AndCommand& commands) final;
    void clear(double start, int count, bool ripple, CO_Command** command) final;

    NumberValues* numbers() final { return nullptr; }
    std::unique_ptr<CO_Command> shiftFramesCommand(const FrameShift& shift) final;
    std::unique_ptr<CO_Command> clearFramesCommand(int at, int count) final;
    /// Drawings are taken by their names.
    std::unique_ptr<CO_Command> pasteCommand(const Column& source, const FramePaste& paste) final;
    void keepFrames(int first, int count) final { m_exposures = m_exposures.kept(first, count); }
    void write(JsonWriter& json) const override;
    void read(const JsonPlace& place) override;

private:
    class Memo;
    int sceneLength() const;
};

extern template class ExposureColumn<TUElementTimedValue>;
extern template class ExposureColumn<TUTimingTimedValue>;

/// A column that shows the drawings of an element. The field "element" of a file is the element's id, left out where
/// there is none.
class DrawingColumn final : public ExposureColumn<TUElementTimedValue> {
public:
    explicit DrawingColumn(const QString& name, bool anonymous = false) : ExposureColumn(drawingKind, name, anonymous)
    {}

    int elementId() const override { return m_element; }
    void setElementId(int id) { m_element = id; } ///< Tells nobody: commands, and who reads a project, call it.
    int nextKeyExposure(double frame) const override { return exposures().nextKey(cellAt(frame)); }
    int nextKeyExposure(double frame, const std::set<EM_MarkType>& marks) const override;

    bool fits(const AttributeMeta& attribute) const override;
    bool showsDrawing(const QString& drawing) const override { return exposures().shows(drawing); }
    std::unique_ptr<CO_Command> renameDrawingCommand(const QString& from, const QString& to) override;
    QString freeName() const override;
    bool hasName(const QString& name) const override;
    void addMissingDrawings(const QStringList& names, CO_AndCommand& commands) const override;

    std::unique_ptr<Column> copy(const QString& name, bool anonymous) const override;
    void write(JsonWriter& json) const override;
    void read(const JsonPlace& place) override;

private:
    const EM_ElementInfo* element() const; ///< Null without one.

    int m_element = -1;
};

/// A column of drawing names alone.
class TimingColumn final : public ExposureColumn<TUTimingTimedValue> {
public:
    explicit TimingColumn(const QString& name, bool anonymous = false) : ExposureColumn(timingKind, name, anonymous) {}

    bool fits(const AttributeMeta& attribute) const override;
    QString freeName() const override;
    bool hasName(const QString& name) const override { return exposures().shows(name); }
    void addMissingDrawings(const QStringList&, CO_AndCommand&) const override {}

    std::unique_ptr<Column> copy(const QString& name, bool anonymous) const override;
};

} // namespace brindle::engine
