#pragma once

#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listobj.h"

namespace OMC {

/// The compositions of a scene: none yet, and no scene gives the list.
class BRINDLE_CORE_EXPORT CompositionList : public CountedList<ListObj, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(CompositionList)

public:
    std::size_t size() const override; ///< Always 0.
};

} // namespace OMC
