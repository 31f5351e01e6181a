#include "core/services/selection.h"

namespace OMC {

std::string Selection::__str__() const
{
    return "BaseSelection()";
}

} // namespace OMC
