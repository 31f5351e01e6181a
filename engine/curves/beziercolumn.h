#pragma once

#include "engine/curves/curve.h"
#include "engine/curves/curvecolumn.h"

namespace brindle::engine {

extern const ColumnKind bezierKind;

/// A point in a file: [frame, value, left x, left y, right x, right y, "CORNER", "STRAIGHT" or "SMOOTH"], with
/// "CONSTANT" behind it when the segment is; handles in global coordinates.
struct BezierPointFormat {
    static BezierCtrlPt shown(const CurvePoint& point);
    static CurvePoint kept(const BezierCtrlPt& point);
    static void write(JsonWriter& json, const CurvePoint& point);
    static BezierCtrlPt read(const JsonPlace& place, int& index); ///< `index`: of the first item that it leaves.
};

extern template class CurveColumn<TUBezierTimedValue, Curve, BezierPointFormat>;

/// A bezier column of the open engine.
///
/// A key that is made within a segment is straight (its handles lie in one line), another one a corner. Continuity is
/// what an editor's handles follow; no command here moves a handle that it isn't given.
class BezierColumn final : public CurveColumn<TUBezierTimedValue, Curve, BezierPointFormat> {
public:
    explicit BezierColumn(const QString& name, bool anonymous = false) : CurveColumn(bezierKind, name, anonymous) {}
};

} // namespace brindle::engine
