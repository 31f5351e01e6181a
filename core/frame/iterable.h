#pragma once

#include "core/frame/obj.h"

#include <QString>
#include <QVariant>

namespace OMC {

/// The iteration protocol. `__iter__` gives an iterator of its own; until its `__atend__` is true, take `__iterItem__`
/// and call `operator++`. A class that leaves the protocol alone reads as an empty sequence.
template <typename ItemT, typename ObjT>
class Iterable {
public:
    virtual ~Iterable() = default;

    virtual ItemT __iterItem__() const { return ItemT(); }
    virtual void operator++() {}
    virtual void operator--() {}
    virtual bool __atend__() const { return true; }
    virtual ObjT __iter__() const { return ObjT(); }
};

class IterableObj : public Iterable<Obj, Obj> {};       ///< Goes over objects.
class IterableQVar : public Iterable<QVariant, Obj> {}; ///< Goes over values, or objects inside a QVariant.
class IterableMap : public Iterable<QString, Obj> {};   ///< Goes over keys.

} // namespace OMC
