#pragma once

#include "core/frame/exception.h"

#include <cstddef>
#include <string>

namespace OMC {

[[noreturn]] inline void throwNoItem()
{
    throw Exception(std::string("Unable to retrieve item in container."));
}

[[noreturn]] inline void throwNoSet()
{
    throw Exception(std::string("Unable to set item in container."));
}

/// A keyed container that is no list of its own.
template <typename GetT, typename SetT, typename ListT, typename KeyT>
class Container {
public:
    virtual ~Container() = default;

    virtual std::size_t size() const { return 0; }
    virtual GetT get(const KeyT&) const { throwNoItem(); }
    virtual void set(const KeyT&, const SetT&) { throwNoSet(); }
    virtual ListT list() const { return ListT(); }
};

} // namespace OMC
