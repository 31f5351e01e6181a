#pragma once

#include "engine/curves/column.h"
#include "engine/curves/curve.h"

#include <unordered_map>

namespace brindle::engine {

/// A bezier column of the open engine: a curve, the frames over which its value is held, and what every column has.
///
/// - Keyframes and control points are one and the same. A key that is made within a segment is straight (its handles
/// lie
///   in one line), another one a corner. Continuity is what an editor's handles follow; no command here moves a handle
///   that it isn't given.
/// - Hold: with a step of n frames, the frames from start to stop show the value of start, start + n, start + 2n, ...
///   A new column starts and stops at 1 with a step of 1, which is no hold. The three are at least 1.
/// - A column that only drives switches (attributes that are on or off) makes keys that hold their value up to the next
///   one: a switch has nothing in between.
/// - The exposure sheet shows the value in the fewest digits that give it back, and takes numbers written as in C. The
///   empty text takes a key away.
class BezierColumn final : public TUBezierTimedValue, public Column {
public:
    explicit BezierColumn(const QString& name, bool anonymous = false);

    timedValueType type() const override { return kBezier; }
    QString getName() const override { return name(); }
    QString getDisplayName() const override { return displayName(); }
    bool isAnonymous() const override { return anonymous(); }
    SC_SceneCommon* sceneCommon() const override { return scene(); }
    void accept(AT_TimedValueVisitor& visitor) override { visitor.visit(static_cast<TUBezierTimedValue&>(*this)); }

    void getValueForXsheet(double frame, int subColumn, QString* text, bool& isKey, bool& isHeld, bool& isBlank,
                           bool& isLocked) const override;
    int setValuesFromXsheet(double frame, int count, const QString& text, int subColumn) override;

    unsigned int getNumLinks() const override { return static_cast<unsigned int>(linkCount()); }
    AT_Attr* linkedAttr(unsigned int index) const override { return linkedAttribute(index); }
    std::vector<MO_Node*> linkedNodes() const override { return nodes(); }

    /// About the value 0. The second argument means nothing to a curve of values.
    void scale(double factor, int second, CO_Command** command) override;
    void endModif(double frame) override;

    double evaluate(double frame) const override;
    int pointCount() const override { return m_curve.points().size(); }
    bool isKey(double frame) const override { return m_curve.points().find(frame); }
    std::vector<int> keyframes() const override;
    /// Keys at `first`, `first` + 1, ... up to `last`; a key that stands there stays. No command for a frame that is
    /// not a finite number, and for more than a million frames.
    void createKeyframes(double first, double last, CO_Command** command) override;
    void removeKeyframes(double first, double last, CO_Command** command) override;
    bool addControlPoint(double frame) override;
    /// Right after addControlPoint it brings the neighbours' handles back as they were: a neighbour that is as the new
    /// point left it gets what it had before.
    bool eraseControlPoint(double frame) override;

    int start() const override { return m_start; }
    int stop() const override { return m_stop; }
    int step() const override { return m_step; }
    bool setStart(int frame);
    bool setStop(int frame);
    bool setStep(int step);
    void adjustColumn(double frame, double value, CO_BaseOrCommand& commands) override;

    BezierCtrlPt point(int index) const override;
    bool pointAt(double frame, BezierCtrlPt& point) const override;
    bool pointBefore(double frame, BezierCtrlPt& point) const override;
    bool pointAfter(double frame, BezierCtrlPt& point) const override;
    bool restorePoint(const BezierCtrlPt& point) override;
    /// The same where no point stands yet, as a project is read. False when a number is not finite or out of bounds.
    bool putPoint(const BezierCtrlPt& point);

    bool fits(const AttributeMeta& attribute) const override;
    bool hasValues() const override { return !m_curve.points().isEmpty(); }
    double valueAt(double frame) const override { return evaluate(frame); }
    bool setValueAt(double frame, double value, bool constantSegment) override;
    std::unique_ptr<CO_Command> setValueCommand(double frame, double value) override;
    /// The frames over which the value is held move along, too.
    std::unique_ptr<CO_Command> shiftFramesCommand(const FrameShift& shift) override;
    std::unique_ptr<CO_Command> clearFramesCommand(int at, int count) override;

    /// The command that makes an edit of the curve, `Curve::Edit edit(Curve&, CurveLog&)`, tells what depends on it,
    /// and takes exactly this edit back.
    template <typename Edit>
    std::unique_ptr<CO_Command> editCommand(Edit edit);
    Curve::Edit splice(Curve& curve, double frame, bool constantSegment, CurveLog& log) const;

private:
    class EditCommand;
    template <typename Edit>
    class EditBy;
    class HoldCommand;
    struct Added {
        CurvePoint before, after; ///< A neighbour without and with the new point.
    };

    double heldFrame(double frame) const;

    Curve m_curve;
    int m_start = 1;
    int m_stop = 1;
    int m_step = 1;
    std::unordered_map<double, std::vector<std::vector<Added>>> m_added; // by frame, the newest point last
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
