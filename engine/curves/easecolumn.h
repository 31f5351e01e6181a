#pragma once

#include "engine/curves/curvecolumn.h"
#include "engine/curves/easecurve.h"

namespace brindle::engine {

extern const ColumnKind easeKind;

/// A point in a file: [frame, value, ease in, slope in, ease out, slope out, "CORNER" or "STRAIGHT"], with "CONSTANT"
/// behind it when the segment is; eases in frames, slopes in values for a frame.
struct EasePointFormat {
    static EaseCtrlPt shown(const EasePoint& point) { return point; }
    static EasePoint kept(const EaseCtrlPt& point) { return {point}; }
    static void write(JsonWriter& json, const EasePoint& point);
    static EaseCtrlPt read(const JsonPlace& place, int& index); ///< `index`: of the first item that it leaves.
};

extern template class CurveColumn<TUEaseTimedValue, EaseCurve, EasePointFormat>;

/// An ease column of the open engine. Its eases reach as far as they say: the tension is 0. A key that is made within a
/// segment is straight (the slopes of both sides are the same), another one a corner.
class EaseColumn final : public CurveColumn<TUEaseTimedValue, EaseCurve, EasePointFormat> {
public:
    explicit EaseColumn(const QString& name, bool anonymous = false) : CurveColumn(easeKind, name, anonymous) {}

    double tension() const override { return 0; }
};

} // namespace brindle::engine
