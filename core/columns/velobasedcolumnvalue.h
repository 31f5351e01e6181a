#pragma once

#include "core/columns/curvecolumnvalue.h"

namespace OMC {

/// A velocity column at one frame, which can be read anywhere on the curve. Setting the value makes a keyframe. Threads
/// are the column's care.
class BRINDLE_CORE_EXPORT VeloBasedColumnValue : public CurveColumnValue<VeloBasedColumnValue, TUVeloBasedTimedValue> {
    Q_OBJECT
    BRINDLE_COPYABLE(VeloBasedColumnValue)
    Q_PROPERTY(bool key READ getKey WRITE setKey)
    Q_PROPERTY(OMC::Obj keyframe_previous READ getKeyframePrevious)
    Q_PROPERTY(OMC::Obj keyframe_next READ getKeyframeNext)

public:
    using CurveColumnValue::CurveColumnValue;
};

extern template class CurveColumnValue<VeloBasedColumnValue, TUVeloBasedTimedValue>;

} // namespace OMC
