#pragma once

#include <cstddef>
#include <typeinfo>

namespace brindle::engine {

/// How far the engine's part of an object lies behind the host's part, in the objects of a class.
struct PartWay {
    const std::type_info* type;
    std::ptrdiff_t distance;
};

template <typename Part, typename Host>
[[gnu::tls_model("initial-exec")]] constinit inline thread_local PartWay lastPartWay = {nullptr, 0};

/// The engine's part of a host object, or null for null and for an object of another engine.
///
/// Within a class the way from one part to the other is the same. Looking for it compares the names of classes, so the
/// last one is remembered.
template <typename Part, typename Host>
Part* enginePart(Host* host)
{
    if (!host)
        return nullptr;
    PartWay& last = lastPartWay<Part, Host>;
    const std::type_info* type = &typeid(*host);
    if (type != last.type) {
        auto* part = dynamic_cast<Part*>(host);
        if (!part)
            return nullptr;
        last = {type, reinterpret_cast<char*>(part) - reinterpret_cast<char*>(host)};
    }
    return reinterpret_cast<Part*>(reinterpret_cast<char*>(host) + last.distance);
}

} // namespace brindle::engine
