#include "engine/curves/beziercolumn.h"
#include "engine/curves/curveedit.h"

namespace tu_timedvalue::bezier {

using brindle::engine::BezierColumn;
using brindle::engine::Curve;
using brindle::engine::editCommandOn;

SpliceCmd::SpliceCmd(TUBezierTimedValue* column, double frame, bool makeKey, bool constantSegment)
    : CO_EngineCommand(brindle::engine::spliceCommandOn<BezierColumn>(column, frame, makeKey, constantSegment))
{}

RemovePointCmd::RemovePointCmd(TUBezierTimedValue* column, double frame)
    : CO_EngineCommand(editCommandOn<BezierColumn>(column, &Curve::erase, frame))
{}

SetPointCmd2::SetPointCmd2(TUBezierTimedValue* column, double frame, double newFrame, double value)
    : CO_EngineCommand(editCommandOn<BezierColumn>(column, &Curve::move, frame, newFrame, value))
{}

SetLeftHandleGlobalCmd::SetLeftHandleGlobalCmd(TUBezierTimedValue* column, double frame, double x, double y)
    : CO_EngineCommand(editCommandOn<BezierColumn>(column, &Curve::setLeftHandle, frame, x, y))
{}

SetRightHandleGlobalCmd::SetRightHandleGlobalCmd(TUBezierTimedValue* column, double frame, double x, double y)
    : CO_EngineCommand(editCommandOn<BezierColumn>(column, &Curve::setRightHandle, frame, x, y))
{}

SetConstSegCmd::SetConstSegCmd(TUBezierTimedValue* column, double frame, bool constantSegment)
    : CO_EngineCommand(editCommandOn<BezierColumn>(column, &Curve::setConstSegment, frame, constantSegment))
{}

SetContinuityCmd::SetContinuityCmd(TUBezierTimedValue* column, double frame, int continuity, int)
    : CO_EngineCommand(editCommandOn<BezierColumn>(column, &Curve::setContinuity, frame, continuity))
{}

} // namespace tu_timedvalue::bezier
