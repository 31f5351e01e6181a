#pragma once

#include "core/frame/container.h"
#include "core/frame/iterable.h"

#include <vector>

namespace OMC {

/// A tool of the application. It tells nothing yet.
class BRINDLE_CORE_EXPORT Tool : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(Tool)

public:
    Tool() = default;
    Tool(const Tool& other) = default;

    std::string __str__() const override;
};

/// The tools of the application. There is no access to them yet: it is empty.
class BRINDLE_CORE_EXPORT ToolList : public BaseObject,
                                     public Container<Obj, Obj, std::vector<Obj>, QString>,
                                     public IterableObj {
    Q_OBJECT
    BRINDLE_COPYABLE(ToolList)

public:
    ToolList() = default;
    ToolList(const ToolList& other) : BaseObject(other), Container(other), IterableObj(other) {}

    std::string __str__() const override;

    std::size_t size() const override { return 0; }          ///< None.
    Obj get(const QString& name) const override;             ///< Always fails.
    void set(const QString& name, const Obj& tool) override; ///< Always fails.
    std::vector<Obj> list() const override { return {}; }    ///< None.
    bool contains(const QString& /*name*/) const { return false; }

    Obj __iter__() const override;
};

} // namespace OMC
