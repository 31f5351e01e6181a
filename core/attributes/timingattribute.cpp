#include "core/attributes/timingattribute.h"

#include "core/columns/columncast.h"
#include "core/frame/found.h"
#include "core/host/at_attr.h"
#include "core/host/tu_seqtimedvalue.h"

namespace OMC {

std::string TimingAttribute::__str__() const
{
    return described(tr("TimingAttr(%1, %2)"));
}

// A timing has no element of its own to ask for the name.
QString TimingAttribute::value(int frame) const
{
    return shown(-1, typed<AT_TimingAttr>().value(frame));
}

void TimingAttribute::setValue(int frame, const QVariant& drawings)
{
    const TUTvSocket* socket = typed<AT_TimingAttr>().socket();
    auto& column = found(columnCast<TUSeqTimedValue>(socket ? socket->linkedTimedValue() : nullptr),
                         [] { return tr("Attribute isn't linked to a column."); });
    expose(column, frame, drawings, tr("Set Timing Attribute Value"));
}

} // namespace OMC
