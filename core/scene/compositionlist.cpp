#include "core/scene/compositionlist.h"

namespace OMC {

std::size_t CompositionList::size() const
{
    return 0;
}

} // namespace OMC
