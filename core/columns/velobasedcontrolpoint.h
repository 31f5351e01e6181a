#pragma once

#include "core/columns/curvecontrolpoint.h"

namespace OMC {

/// A control point of a velocity column; invalid once the point is gone, also when another takes its frame.
class BRINDLE_CORE_EXPORT VeloBasedControlPoint : public CurveControlPoint<TUVeloBasedTimedValue> {
    Q_OBJECT
    BRINDLE_COPYABLE(VeloBasedControlPoint)

public:
    using CurveControlPoint::CurveControlPoint;

    /// A new object for the point at a place, or for the one nearest to a frame, less than 0.1 away; null where there
    /// is none.
    static VeloBasedControlPoint* at(TUVeloBasedTimedValue& timedValue, quint64 index);
    static VeloBasedControlPoint* at(TUVeloBasedTimedValue& timedValue, double frame);

    std::string __str__() const override;

    QVariant getValue() const override; ///< The value there; takes a number.
    void setValue(const QVariant& value) override;
};

} // namespace OMC
