#include "core/columns/beziercolumnvalue.h"

#include "core/columns/curvecolumnvalue_p.h"

namespace OMC {

namespace beziercmd = tu_timedvalue::bezier;

template <>
constexpr CurveValueRules curveValueRules<TUBezierTimedValue>{
    .description = QT_TRANSLATE_NOOP("OMC::BezierColumnValue", "BezierColumnValue(\"%1\", %2)"),
    .valueLabel = QT_TRANSLATE_NOOP("OMC::BezierColumnValue", "Set Bezier Point "),
    .keyLabel = QT_TRANSLATE_NOOP("OMC::BezierColumnValue", "Set Bezier Point "),
    .removalLabel = QT_TRANSLATE_NOOP("OMC::BezierColumnValue", "Remove Bezier Point "),
    .continuityCount = continuitywords::bezierCount,
    .continuities = "STRAIGHT, CORNER, SMOOTH"};

template <>
struct CurveCommands<TUBezierTimedValue> {
    using Splice = beziercmd::SpliceCmd;
    using Remove = beziercmd::RemovePointCmd;
    using SetPoint = beziercmd::SetPointCmd2;
    using SetConstSegment = beziercmd::SetConstSegCmd;
    using SetContinuity = beziercmd::SetContinuityCmd;

    /// Moves the handles along with their point.
    static void carryHandles(ColumnEdit& edit, TUBezierTimedValue& column, double frame, double delta)
    {
        const BezierCtrlPt point = pointAt(column, frame);
        edit.run(new beziercmd::SetLeftHandleGlobalCmd(&column, frame, point.leftX, point.leftY + delta));
        edit.run(new beziercmd::SetRightHandleGlobalCmd(&column, frame, point.rightX, point.rightY + delta));
    }
};

template class CurveColumnValue<BezierColumnValue, TUBezierTimedValue>;
template class SegmentColumnValue<BezierColumnValue, TUBezierTimedValue>;

double BezierColumnValue::getHandleLeftX() const
{
    return governingPoint().leftX;
}

void BezierColumnValue::setHandleLeftX(double x)
{
    const Place key = segmentPlace();
    requireFinite(x, 0);
    if (x != key.point.leftX)
        setLeftHandle(key, x, key.point.leftY);
}

double BezierColumnValue::getHandleLeftY() const
{
    return governingPoint().leftY;
}

void BezierColumnValue::setHandleLeftY(double y)
{
    const Place key = segmentPlace();
    requireFinite(y, 0);
    if (y != key.point.leftY)
        setLeftHandle(key, key.point.leftX, y);
}

double BezierColumnValue::getHandleRightX() const
{
    return governingPoint().rightX;
}

void BezierColumnValue::setHandleRightX(double x)
{
    const Place key = segmentPlace();
    requireFinite(x, 0);
    if (x != key.point.rightX)
        setRightHandle(key, x, key.point.rightY);
}

double BezierColumnValue::getHandleRightY() const
{
    return governingPoint().rightY;
}

void BezierColumnValue::setHandleRightY(double y)
{
    const Place key = segmentPlace();
    requireFinite(y, 0);
    if (y != key.point.rightY)
        setRightHandle(key, key.point.rightX, y);
}

void BezierColumnValue::setLeftHandle(const Place& key, double x, double y)
{
    ColumnEdit edit(key.column, tr("Set left handle on ") + key.column.getDisplayName());
    edit.run(new beziercmd::SetLeftHandleGlobalCmd(&key.column, frame(), x, y));
}

void BezierColumnValue::setRightHandle(const Place& key, double x, double y)
{
    ColumnEdit edit(key.column, tr("Set right handle on ") + key.column.getDisplayName());
    edit.run(new beziercmd::SetRightHandleGlobalCmd(&key.column, frame(), x, y));
}

} // namespace OMC
