#pragma once

#include "core/frame/obj.h"

#include <string>
#include <vector>

namespace OMC {

/// Base of the lists of objects. Lists are live: each call asks the project.
///
/// It holds no items: a concrete list asks its engine owner at each call. What a list does not override is empty, or
/// refused.
class BRINDLE_CORE_EXPORT ListObj : public BaseObject {
    Q_OBJECT

public:
    std::string __str__() const override;

    virtual std::size_t size() const;          ///< The number of items, as len() gives it.
    virtual Obj get(const QString& key) const; ///< The item at an index from 0, or of a name.
    virtual Obj get(int index) const;
    virtual void set(int index, const Obj& object); ///< Replaces an item, in a list that can be written.
    virtual std::vector<Obj> list() const;          ///< All items.

    [[noreturn]] static void throwIndexOutOfRange();
};

} // namespace OMC
