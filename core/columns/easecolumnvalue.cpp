#include "core/columns/easecolumnvalue.h"

#include "core/columns/curvecolumnvalue_p.h"

namespace OMC {

namespace easecmd = tu_timedvalue::ease;

template <>
constexpr CurveValueRules curveValueRules<TUEaseTimedValue>{
    .description = QT_TRANSLATE_NOOP("OMC::EaseColumnValue", "EaseColumnValue(\"%1\", %2)"),
    .valueLabel = QT_TRANSLATE_NOOP("OMC::EaseColumnValue", "Set Ease Point "),
    .keyLabel = QT_TRANSLATE_NOOP("OMC::EaseColumnValue", "Set Ease Point "),
    .removalLabel = QT_TRANSLATE_NOOP("OMC::EaseColumnValue", "Remove Ease Point "),
    .continuityCount = continuitywords::easeCount,
    .continuities = "STRAIGHT, CORNER"};

template <>
struct CurveCommands<TUEaseTimedValue> {
    using Splice = easecmd::SpliceCmd;
    using Remove = easecmd::RemovePointCmd;
    using SetPoint = easecmd::SetPointCmd2;
    using SetConstSegment = easecmd::SetConstSegCmd;
    using SetContinuity = easecmd::SetContinuityCmd;
};

template class CurveColumnValue<EaseColumnValue, TUEaseTimedValue>;
template class SegmentColumnValue<EaseColumnValue, TUEaseTimedValue>;

double EaseColumnValue::getEaseIn() const
{
    return governingPoint().easeIn;
}

void EaseColumnValue::setEaseIn(double ease)
{
    setNumber<easecmd::SetEaseInCmd>(ease, &EaseCtrlPt::easeIn, tr("Ease-in can only be set on a keyframe."),
                                     tr("Set ease-in on "));
}

// Required: the angles are the slopes as they are kept, though EaseColumn::createPoint takes degrees.
double EaseColumnValue::getEaseInAngle() const
{
    return governingPoint().slopeIn;
}

void EaseColumnValue::setEaseInAngle(double slope)
{
    setNumber<easecmd::SetSlopeInCmd>(slope, &EaseCtrlPt::slopeIn, tr("Angle Ease-in can only be set on a keyframe."),
                                      tr("Set angle ease-in on "));
}

double EaseColumnValue::getEaseOut() const
{
    return governingPoint().easeOut;
}

void EaseColumnValue::setEaseOut(double ease)
{
    setNumber<easecmd::SetEaseOutCmd>(ease, &EaseCtrlPt::easeOut, tr("Ease-out can only be set on a keyframe."),
                                      tr("Set ease-out on "));
}

double EaseColumnValue::getEaseOutAngle() const
{
    return governingPoint().slopeOut;
}

void EaseColumnValue::setEaseOutAngle(double slope)
{
    setNumber<easecmd::SetSlopeOutCmd>(slope, &EaseCtrlPt::slopeOut,
                                       tr("Angle Ease-out can only be set on a keyframe."),
                                       tr("Set angle ease-out on "));
}

template <typename Command>
void EaseColumnValue::setNumber(double number, double EaseCtrlPt::*field, const QString& keyOnly, const QString& label)
{
    const Place key = keyPlace(keyOnly);
    requireFinite(number, 0);
    if (number == key.point.*field)
        return;
    ColumnEdit edit(key.column, label + key.column.getDisplayName());
    edit.run(new Command(&key.column, frame(), number));
}

} // namespace OMC
