#pragma once

#include "core/frame/obj.h"

#include <string>
#include <vector>

namespace OMC {

/// Base of the lists of objects. It holds no items: a concrete list asks its engine owner at each call. What a list
/// does not override is empty, or refused.
class BRINDLE_CORE_EXPORT ListObj : public BaseObject {
    Q_OBJECT

public:
    std::string __str__() const override;

    virtual std::size_t size() const;
    virtual Obj get(const QString& key) const;
    virtual Obj get(int index) const;
    virtual void set(int index, const Obj& object);
    virtual std::vector<Obj> list() const;

    [[noreturn]] static void throwIndexOutOfRange();
};

} // namespace OMC
