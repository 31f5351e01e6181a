#include "core/attributes/attributebuilder.h"

#include "core/columns/columncast.h"

namespace tu_attr {

CO_Command* spliceCommand(TUTimedValue* column, double frame, bool constantSegment)
{
    auto* bezier = OMC::columnCast<TUBezierTimedValue>(column);
    return bezier ? new tu_timedvalue::bezier::SpliceCmd(bezier, frame, true, constantSegment) : nullptr;
}

} // namespace tu_attr
