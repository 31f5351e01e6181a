#pragma once

#include "engine/curves/columnkinds.h"
#include "engine/curves/curve.h"
#include "engine/curves/hostcolumn.h"

namespace brindle::engine {

extern const ColumnKind bezierKind;

/// A bezier column of the open engine: a curve, the frames over which its value is held, and what every column has.
///
/// - Keyframes and control points are one and the same. A key that is made within a segment is straight (its handles
///   lie in one line), another one a corner. Continuity is what an editor's handles follow; no command here moves a
///   handle that it isn't given.
/// - A column that only drives switches (attributes that are on or off) makes keys that hold their value up to the next
///   one: a switch has nothing in between.
/// - The exposure sheet shows the value in the fewest digits that give it back, and takes numbers written as in C. The
///   empty text takes a key away.
///
/// Its fields in a file:
///
///     hold               [start, stop, step]
///     points             [frame, value, left x, left y, right x, right y, "CORNER", "STRAIGHT" or "SMOOTH"], with
///                        "CONSTANT" behind it when the segment is; handles in global coordinates
class BezierColumn final : public HeldColumn<TUBezierTimedValue>, public NumberValues {
public:
    explicit BezierColumn(const QString& name, bool anonymous = false);

    void getValueForXsheet(double frame, int subColumn, QString* text, bool& isKey, bool& isHeld, bool& isBlank,
                           bool& isLocked) const override;
    int setValuesFromXsheet(double frame, int count, const QString& text, int subColumn) override;

    /// About the value 0. The second argument means nothing to a curve of values.
    void scale(double factor, int second, CO_Command** command) override;
    bool takesValues() const override { return true; }
    CO_Command* spliceCommand(double frame, bool constantSegment) override;
    std::unique_ptr<TUCellMemo> remember(double frame) override;

    double evaluate(double frame) const override;
    int pointCount() const override { return m_curve.points().size(); }
    bool isKey(double frame) const override { return m_curve.points().find(frame); }
    std::vector<int> keyframes() const override;
    CO_Command* createKeyframes(const std::vector<double>& frames, std::vector<double>& refused) override;
    void removeKeyframes(double first, double last, CO_Command** command) override;
    bool addControlPoint(double frame) override;
    TUFnc2DPoint curvePoint(int index) const override;
    bool isConstantAt(double frame) const override;
    void adjustColumn(double frame, double value, CO_BaseOrCommand& commands) override;

    BezierCtrlPt point(int index) const override;
    bool pointAt(double frame, BezierCtrlPt& point) const override;
    bool pointBefore(double frame, BezierCtrlPt& point) const override;
    bool pointAfter(double frame, BezierCtrlPt& point) const override;
    /// Writes a point as it is given (its identity apart), in place of one at its frame, and leaves its neighbours
    /// alone: how a project is read. False when a number is not finite or out of bounds.
    bool putPoint(const BezierCtrlPt& point);

    bool fits(const AttributeMeta& attribute) const override;
    NumberValues* numbers() override { return this; }
    bool valueAt(double frame, double& value) const override;
    bool setValueAt(double frame, double value, bool constantSegment) override;
    std::unique_ptr<CO_Command> setValueCommand(double frame, double value) override;
    /// The frames over which the value is held move along, too.
    std::unique_ptr<CO_Command> shiftFramesCommand(const FrameShift& shift) override;
    std::unique_ptr<CO_Command> clearFramesCommand(int at, int count) override;
    std::unique_ptr<Column> copy(const QString& name, bool anonymous) const override;
    void write(JsonWriter& json) const override;
    void read(const JsonPlace& place) override;

    /// The command that makes an edit of the curve, `Curve::Edit edit(Curve&, CurveLog&)`, tells what depends on it,
    /// and takes exactly this edit back.
    template <typename Edit>
    std::unique_ptr<CO_Command> editCommand(Edit edit);
    Curve::Edit splice(Curve& curve, double frame, bool constantSegment, CurveLog& log) const;

private:
    class EditCommand;
    template <typename Edit>
    class EditBy;
    class Memo;

    Curve m_curve;
};

class BezierColumn::EditCommand : public CO_Command {
public:
    explicit EditCommand(BezierColumn& column) : m_column(column) {}

    Status execute() final;
    Status unexecute() final;

private:
    virtual Curve::Edit edit(Curve& curve, CurveLog& log) = 0;

    BezierColumn& m_column;
    CurveLog m_log;
};

/// Keeps the edit itself: a long undo list has many of them.
template <typename Edit>
class BezierColumn::EditBy final : public EditCommand {
public:
    EditBy(BezierColumn& column, Edit edit) : EditCommand(column), m_edit(std::move(edit)) {}

private:
    Curve::Edit edit(Curve& curve, CurveLog& log) override { return m_edit(curve, log); }

    Edit m_edit;
};

template <typename Edit>
std::unique_ptr<CO_Command> BezierColumn::editCommand(Edit edit)
{
    return std::make_unique<EditBy<Edit>>(*this, std::move(edit));
}

} // namespace brindle::engine
