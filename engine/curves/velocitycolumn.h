#pragma once

#include "engine/curves/curvecolumn.h"
#include "engine/curves/velocitycurve.h"

namespace brindle::engine {

extern const ColumnKind velocityKind;

/// A point in a file: [frame, value], with "CONSTANT" behind it when the segment is.
struct VelocityPointFormat {
    static VeloBasedCtrlPt shown(const VelocityPoint& point) { return point; }
    static VelocityPoint kept(const VeloBasedCtrlPt& point) { return {point}; }
    static void write(JsonWriter& json, const VelocityPoint& point);
    static VeloBasedCtrlPt read(const JsonPlace& place, int& index); ///< `index`: of the first item that it leaves.
};

extern template class CurveColumn<TUVeloBasedTimedValue, VelocityCurve, VelocityPointFormat>;

/// A velocity column of the open engine: one of its own, or the part of a path that tells the place on it.
class VelocityColumn final : public CurveColumn<TUVeloBasedTimedValue, VelocityCurve, VelocityPointFormat> {
public:
    explicit VelocityColumn(const QString& name, bool anonymous = false) : CurveColumn(velocityKind, name, anonymous) {}
    explicit VelocityColumn(Column& path) : VelocityColumn(QString()) { setOwner(path); }

    VelocityCurve& curve() { return m_curve; }
};

} // namespace brindle::engine
