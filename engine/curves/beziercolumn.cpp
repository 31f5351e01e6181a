#include "engine/curves/beziercolumn.h"

namespace brindle::engine {

namespace {

constexpr const char* bezierContinuities[] = {"CORNER", "STRAIGHT", "SMOOTH"};

} // namespace

constinit const ColumnKind bezierKind{TUTimedValue::kBezier, "BEZIER", BezierColumn::fieldNames,
                                      &makeColumn<BezierColumn>};

template class CurveColumn<TUBezierTimedValue, Curve, BezierPointFormat>;

BezierCtrlPt BezierPointFormat::shown(const CurvePoint& point)
{
    return {point.frame,          point.value,        point.leftX,      point.leftHandleY(), point.rightX,
            point.rightHandleY(), point.constSegment, point.continuity, point.identity};
}

CurvePoint BezierPointFormat::kept(const BezierCtrlPt& point)
{
    return {point.frame,  point.value,  point.value,    point.leftX,        point.leftY,
            point.rightX, point.rightY, point.identity, point.constSegment, point.continuity};
}

void BezierPointFormat::write(JsonWriter& json, const CurvePoint& point)
{
    for (const double number :
         {point.frame, point.value, point.leftX, point.leftHandleY(), point.rightX, point.rightHandleY()})
        json.number(number);
    json.text(bezierContinuities[point.continuity]);
}

BezierCtrlPt BezierPointFormat::read(const JsonPlace& place, int& index)
{
    BezierCtrlPt point;
    for (double* number : {&point.frame, &point.value, &point.leftX, &point.leftY, &point.rightX, &point.rightY})
        *number = place.item(index++).number();
    point.continuity = place.item(index++).oneOf(bezierContinuities);
    return point;
}

} // namespace brindle::engine
