#include "engine/curves/beziercolumn.h"

namespace {

using brindle::engine::BezierColumn;
using brindle::engine::Curve;
using brindle::engine::CurveLog;

/// What a command on a column of another engine, or on none, comes to.
class RefusedCommand final : public CO_Command {
public:
    Status execute() override { return kFail; }
    Status unexecute() override { return kNoop; }
};

template <typename Edit>
std::unique_ptr<CO_Command> editOwn(BezierColumn* column, Edit function)
{
    if (column)
        return column->editCommand(std::move(function));
    return std::make_unique<RefusedCommand>();
}

template <typename Edit>
std::unique_ptr<CO_Command> edit(TUBezierTimedValue* column, Edit function)
{
    return editOwn(dynamic_cast<BezierColumn*>(column), std::move(function));
}

std::unique_ptr<CO_Command> spliceCommand(TUBezierTimedValue* column, double frame, bool makeKey, bool constantSegment)
{
    auto* own = dynamic_cast<BezierColumn*>(column);
    return editOwn(own, [own, frame, makeKey, constantSegment](Curve& curve, CurveLog& log) {
        return makeKey ? own->splice(curve, frame, constantSegment, log) : Curve::Edit::Nothing;
    });
}

/// Sets one of the hold values, and the old one when it is undone.
class HoldCommand final : public CO_Command {
public:
    using Get = int (BezierColumn::*)() const;
    using Set = bool (BezierColumn::*)(int);

    HoldCommand(TUFnc2DTimedValue* column, Get get, Set set, int value)
        : m_column(dynamic_cast<BezierColumn*>(column)),
          m_get(get),
          m_set(set),
          m_value(value)
    {}

    Status execute() override
    {
        if (!m_column)
            return kFail;
        m_before = (m_column->*m_get)();
        if (m_before == m_value)
            return kNoop;
        return change(m_value);
    }
    Status unexecute() override { return change(m_before); }

private:
    Status change(int value)
    {
        if (!(m_column->*m_set)(value))
            return kFail;
        m_column->tellLinked();
        return kOk;
    }

    BezierColumn* m_column;
    Get m_get;
    Set m_set;
    int m_value;
    int m_before = 0;
};

} // namespace

namespace tu_timedvalue {

namespace bezier {

SpliceCmd::SpliceCmd(TUBezierTimedValue* column, double frame, bool makeKey, bool constantSegment)
    : CO_EngineCommand(spliceCommand(column, frame, makeKey, constantSegment))
{}

RemovePointCmd::RemovePointCmd(TUBezierTimedValue* column, double frame)
    : CO_EngineCommand(edit(column, [frame](Curve& curve, CurveLog& log) { return curve.erase(frame, log); }))
{}

SetPointCmd2::SetPointCmd2(TUBezierTimedValue* column, double frame, double newFrame, double value)
    : CO_EngineCommand(edit(column, [frame, newFrame, value](Curve& curve, CurveLog& log) {
          return curve.move(frame, newFrame, value, log);
      }))
{}

SetLeftHandleGlobalCmd::SetLeftHandleGlobalCmd(TUBezierTimedValue* column, double frame, double x, double y)
    : CO_EngineCommand(
          edit(column, [frame, x, y](Curve& curve, CurveLog& log) { return curve.setLeftHandle(frame, x, y, log); }))
{}

SetRightHandleGlobalCmd::SetRightHandleGlobalCmd(TUBezierTimedValue* column, double frame, double x, double y)
    : CO_EngineCommand(
          edit(column, [frame, x, y](Curve& curve, CurveLog& log) { return curve.setRightHandle(frame, x, y, log); }))
{}

SetConstSegCmd::SetConstSegCmd(TUBezierTimedValue* column, double frame, bool constantSegment)
    : CO_EngineCommand(edit(column, [frame, constantSegment](Curve& curve, CurveLog& log) {
          return curve.setConstSegment(frame, constantSegment, log);
      }))
{}

SetContinuityCmd::SetContinuityCmd(TUBezierTimedValue* column, double frame, int continuity, int)
    : CO_EngineCommand(edit(column, [frame, continuity](Curve& curve, CurveLog& log) {
          return curve.setContinuity(frame, continuity, log);
      }))
{}

} // namespace bezier

namespace fnc2d {

SetStartCmd::SetStartCmd(TUFnc2DTimedValue* column, int frame)
    : CO_EngineCommand(std::make_unique<HoldCommand>(column, &BezierColumn::start, &BezierColumn::setStart, frame))
{}

SetStopCmd::SetStopCmd(TUFnc2DTimedValue* column, int frame)
    : CO_EngineCommand(std::make_unique<HoldCommand>(column, &BezierColumn::stop, &BezierColumn::setStop, frame))
{}

SetStepCmd::SetStepCmd(TUFnc2DTimedValue* column, int step)
    : CO_EngineCommand(std::make_unique<HoldCommand>(column, &BezierColumn::step, &BezierColumn::setStep, step))
{}

} // namespace fnc2d

} // namespace tu_timedvalue
