#pragma once

#include "core/frame/iterable.h"
#include "core/frame/listobj.h"

#include <memory>

class AT_FncTimedValue;

namespace OMC {

/// The control points of a column, in the order of their frames. Items come by iteration and by `list`.
class BRINDLE_CORE_EXPORT ControlPointList : public ListObj, public IterableObj {
    Q_OBJECT

public:
    explicit ControlPointList(AT_FncTimedValue* timedValue);
    ControlPointList(const ControlPointList& other);
    ~ControlPointList() override;

    BaseObject* copy() const override;
    std::string __str__() const override;

protected:
    void validate() const override;

public:
    std::size_t size() const override;
    std::vector<Obj> list() const override;

    Obj __iterItem__() const override;
    void operator++() override;
    void operator--() override;
    bool __atend__() const override;
    Obj __iter__() const override;

    /// Make and remove keyframes, given as for KeyframeableColumn.
    void create(const QVariant& frames);
    void remove(const QVariant& frames);

private:
    AT_FncTimedValue& timedValue() const;
    Obj pointAt(quint64 index) const;

    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace OMC
