#include "engine/curves/easecolumn.h"

#include "engine/curves/curveedit.h"

namespace brindle::engine {

namespace {

constexpr const char* easeContinuities[] = {"CORNER", "STRAIGHT"};

} // namespace

constinit const ColumnKind easeKind{TUTimedValue::kEase, "EASE", EaseColumn::fieldNames, &makeColumn<EaseColumn>};

template class CurveColumn<TUEaseTimedValue, EaseCurve, EasePointFormat>;

void EasePointFormat::write(JsonWriter& json, const EasePoint& point)
{
    for (const double number : {point.frame, point.value, point.easeIn, point.slopeIn, point.easeOut, point.slopeOut})
        json.number(number);
    json.text(easeContinuities[point.continuity]);
}

EaseCtrlPt EasePointFormat::read(const JsonPlace& place, int& index)
{
    EaseCtrlPt point;
    for (double* number : {&point.frame, &point.value, &point.easeIn, &point.slopeIn, &point.easeOut, &point.slopeOut})
        *number = place.item(index++).number();
    point.continuity = place.item(index++).oneOf(easeContinuities);
    return point;
}

} // namespace brindle::engine

namespace tu_timedvalue::ease {

using brindle::engine::EaseColumn;
using brindle::engine::EaseCurve;
using brindle::engine::editCommandOn;
using brindle::engine::spliceCommandOn;

SpliceCmd::SpliceCmd(TUEaseTimedValue* column, double frame, bool makeKey)
    : CO_EngineCommand(spliceCommandOn<EaseColumn>(column, frame, makeKey, false))
{}

RemovePointCmd::RemovePointCmd(TUEaseTimedValue* column, double frame)
    : CO_EngineCommand(editCommandOn<EaseColumn>(column, &EaseCurve::erase, frame))
{}

SetPointCmd2::SetPointCmd2(TUEaseTimedValue* column, double frame, double newFrame, double value)
    : CO_EngineCommand(editCommandOn<EaseColumn>(column, &EaseCurve::move, frame, newFrame, value))
{}

SetEaseInCmd::SetEaseInCmd(TUEaseTimedValue* column, double frame, double ease)
    : CO_EngineCommand(editCommandOn<EaseColumn>(column, &EaseCurve::setEaseIn, frame, ease))
{}

SetEaseOutCmd::SetEaseOutCmd(TUEaseTimedValue* column, double frame, double ease)
    : CO_EngineCommand(editCommandOn<EaseColumn>(column, &EaseCurve::setEaseOut, frame, ease))
{}

SetSlopeInCmd::SetSlopeInCmd(TUEaseTimedValue* column, double frame, double slope)
    : CO_EngineCommand(editCommandOn<EaseColumn>(column, &EaseCurve::setSlopeIn, frame, slope))
{}

SetSlopeOutCmd::SetSlopeOutCmd(TUEaseTimedValue* column, double frame, double slope)
    : CO_EngineCommand(editCommandOn<EaseColumn>(column, &EaseCurve::setSlopeOut, frame, slope))
{}

SetConstSegCmd::SetConstSegCmd(TUEaseTimedValue* column, double frame, bool constantSegment)
    : CO_EngineCommand(editCommandOn<EaseColumn>(column, &EaseCurve::setConstSegment, frame, constantSegment))
{}

SetContinuityCmd::SetContinuityCmd(TUEaseTimedValue* column, double frame, int continuity, int)
    : CO_EngineCommand(editCommandOn<EaseColumn>(column, &EaseCurve::setContinuity, frame, continuity))
{}

} // namespace tu_timedvalue::ease
