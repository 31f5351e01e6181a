#pragma once

#include "core/frame/iterable.h"
#include "core/frame/listobj.h"

namespace OMC {

/// The compositions of a scene. It has none yet, and no scene gives it.
class BRINDLE_CORE_EXPORT CompositionList : public ListObj, public IterableObj {
    Q_OBJECT

public:
    BaseObject* copy() const override;

    std::size_t size() const override; ///< Always 0.

    Obj __iterItem__() const override; ///< Throws: there is no item.
    void operator++() override;
    void operator--() override;
    bool __atend__() const override;
    Obj __iter__() const override;

private:
    quint32 m_position = 0;
};

} // namespace OMC
