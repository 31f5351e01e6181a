#pragma once

#include "service/python/enginegate.h"
#include "service/python/values.h"

#include <optional>
#include <tuple>
#include <type_traits>
#include <variant>

/// The one way of a call with arguments into the engine.
namespace brindle::python {

/// Whether values that were read from Python may refer to objects in a script's lists and dicts.
template <typename Values>
inline constexpr bool mayHoldItems = std::is_same_v<Values, QVariant>;
template <typename... T>
inline constexpr bool mayHoldItems<std::tuple<T...>> = (mayHoldItems<T> || ...);
template <typename T>
inline constexpr bool mayHoldItems<std::optional<T>> = mayHoldItems<T>;

/// Makes one call in three steps: `convert` reads all arguments, then the gate is asked, once, then `call` goes into
/// the engine with the values.
///
/// Reading an argument may run a script's own code, and other threads with it, which may change everything and begin
/// to save. So nothing of the engine is touched in `convert`, and the objects among the values are checked in `call`.
template <typename Convert, typename Call>
decltype(auto) convertAndCall(Convert&& convert, Call&& call)
{
    using Values = std::invoke_result_t<Convert>;
    [[maybe_unused]] const std::conditional_t<mayHoldItems<Values>, HeldItems, std::monostate> held;
    Values values = convert();
    EngineGate::enter();
    return call(values);
}

} // namespace brindle::python
