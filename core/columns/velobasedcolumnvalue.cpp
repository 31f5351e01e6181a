#include "core/columns/velobasedcolumnvalue.h"

#include "core/columns/curvecolumnvalue_p.h"

namespace OMC {

// Required: the label of a removal is that of an ease column.
template <>
constexpr CurveValueRules curveValueRules<TUVeloBasedTimedValue>{
    .description = QT_TRANSLATE_NOOP("OMC::VeloBasedColumnValue", "VeloBasedColumnValue(\"%1\", %2)"),
    .valueLabel = QT_TRANSLATE_NOOP("OMC::VeloBasedColumnValue", "Set Velo Based Point "),
    .keyLabel = QT_TRANSLATE_NOOP("OMC::VeloBasedColumnValue", "Set Velo-Based Point "),
    .removalLabel = QT_TRANSLATE_NOOP("OMC::VeloBasedColumnValue", "Remove Ease Point ")};

template <>
struct CurveCommands<TUVeloBasedTimedValue> {
    using Splice = tu_timedvalue::velobased::SpliceCmd;
    using Remove = tu_timedvalue::velobased::RemovePointCmd;
    using SetPoint = tu_timedvalue::velobased::SetPointCmd2;
};

template class CurveColumnValue<VeloBasedColumnValue, TUVeloBasedTimedValue>;

} // namespace OMC
