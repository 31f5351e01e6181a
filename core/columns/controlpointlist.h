#pragma once

#include "core/frame/engineview.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listobj.h"

class AT_FncTimedValue;

namespace OMC {

/// The control points of a column, in the order of their frames; they come by a loop or by `list`.
class BRINDLE_CORE_EXPORT ControlPointList : public FlaggedList<EngineView<AT_FncTimedValue, ListObj>, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(ControlPointList)

public:
    explicit ControlPointList(AT_FncTimedValue* timedValue);

    std::string __str__() const override;

    std::size_t size() const override;
    std::vector<Obj> list() const override;

    void create(const QVariant& frames); ///< Makes keyframes, given as for KeyframeableColumn.
    void remove(const QVariant& frames); ///< Removes keyframes.

private:
    void beforeIteration() const override { validate(); }
    Obj itemAt(quint64 index) const override;
};

} // namespace OMC
