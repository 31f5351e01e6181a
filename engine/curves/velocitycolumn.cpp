#include "engine/curves/velocitycolumn.h"

#include "engine/curves/curveedit.h"

namespace brindle::engine {

constinit const ColumnKind velocityKind{TUTimedValue::kVeloBased, "VELOBASED", VelocityColumn::fieldNames,
                                        &makeColumn<VelocityColumn>};

template class CurveColumn<TUVeloBasedTimedValue, VelocityCurve, VelocityPointFormat>;

void VelocityPointFormat::write(JsonWriter& json, const VelocityPoint& point)
{
    json.number(point.frame);
    json.number(point.value);
}

VeloBasedCtrlPt VelocityPointFormat::read(const JsonPlace& place, int& index)
{
    VeloBasedCtrlPt point;
    point.frame = place.item(index++).number();
    point.value = place.item(index++).number();
    return point;
}

} // namespace brindle::engine

namespace tu_timedvalue::velobased {

using brindle::engine::editCommandOn;
using brindle::engine::VelocityColumn;
using brindle::engine::VelocityCurve;

SpliceCmd::SpliceCmd(TUVeloBasedTimedValue* column, double frame, bool makeKey)
    : CO_EngineCommand(brindle::engine::spliceCommandOn<VelocityColumn>(column, frame, makeKey, false))
{}

RemovePointCmd::RemovePointCmd(TUVeloBasedTimedValue* column, double frame)
    : CO_EngineCommand(editCommandOn<VelocityColumn>(column, &VelocityCurve::erase, frame))
{}

SetPointCmd2::SetPointCmd2(TUVeloBasedTimedValue* column, double frame, double newFrame, double value)
    : CO_EngineCommand(editCommandOn<VelocityColumn>(column, &VelocityCurve::move, frame, newFrame, value))
{}

} // namespace tu_timedvalue::velobased

namespace tu_timedvalue::path3d {

using brindle::engine::VelocityColumn;
using brindle::engine::VelocityCurve;

SetConstSegFrameCmd::SetConstSegFrameCmd(TUVeloBasedTimedValue* velocity, double frame, bool constantSegment)
    : CO_EngineCommand(brindle::engine::editCommandOn<VelocityColumn>(velocity, &VelocityCurve::setConstSegment, frame,
                                                                      constantSegment))
{}

} // namespace tu_timedvalue::path3d
