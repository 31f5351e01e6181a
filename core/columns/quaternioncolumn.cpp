#include "core/columns/quaternioncolumn.h"

#include "core/host/at_fnc3dtimedvalue.h"

namespace OMC {

QuaternionColumn::QuaternionColumn(AT_QuaternionPathTimedValue* timedValue) : Path3DColumn(timedValue) {}

std::string QuaternionColumn::__str__() const
{
    return described(tr("QuaternionColumn(%1)"));
}

} // namespace OMC
