#include "engine/curves/beziercolumn.h"

namespace {

using brindle::engine::BezierColumn;
using brindle::engine::Curve;
using brindle::engine::CurveLog;

/// Stands for a command on a column of another engine, or on none.
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

} // namespace

namespace tu_timedvalue::bezier {

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

} // namespace tu_timedvalue::bezier
