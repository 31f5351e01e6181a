#include "engine/curves/beziercolumn.h"
#include "engine/curves/curveedit.h"

namespace {

using brindle::engine::BezierColumn;
using brindle::engine::Curve;
using brindle::engine::CurveLog;

template <typename Edit>
std::unique_ptr<CO_Command> edit(TUBezierTimedValue* column, Edit function)
{
    return brindle::engine::editCommandOn<BezierColumn>(column, std::move(function));
}

} // namespace

namespace tu_timedvalue::bezier {

SpliceCmd::SpliceCmd(TUBezierTimedValue* column, double frame, bool makeKey, bool constantSegment)
    : CO_EngineCommand(brindle::engine::spliceCommandOn<BezierColumn>(column, frame, makeKey, constantSegment))
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
