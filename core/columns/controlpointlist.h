#pragma once

#include "core/frame/engineview.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listobj.h"

class AT_FncTimedValue;

namespace OMC {

/// The control points of a column, in the order of their frames. Items come by iteration and by `list`.
class BRINDLE_CORE_EXPORT ControlPointList : public FlaggedList<EngineView<AT_FncTimedValue, ListObj>, IterableObj> {
    Q_OBJECT
    BRINDLE_COPYABLE(ControlPointList)

public:
    explicit ControlPointList(AT_FncTimedValue* timedValue);

    std::string __str__() const override;

    std::size_t size() const override;
    std::vector<Obj> list() const override;

    /// Make and remove keyframes, given as for KeyframeableColumn.
    void create(const QVariant& frames);
    void remove(const QVariant& frames);

private:
    void beforeIteration() const override { validate(); }
    Obj itemAt(quint64 index) const override;
};

} // namespace OMC
