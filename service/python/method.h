#pragma once

#include "service/python/arguments.h"
#include "service/python/enginecall.h"

#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <variant>

/// Makes Python methods of member functions: an entry of a class's table each.
namespace brindle::python {

/// Picks an overloaded function by its argument types: `pick<int>(&ListObj::get)`.
template <typename... Arguments>
struct Pick {
    template <typename Result, typename Class>
    constexpr auto operator()(Result (Class::*member)(Arguments...)) const
    {
        return member;
    }
    template <typename Result, typename Class>
    constexpr auto operator()(Result (Class::*member)(Arguments...) const) const
    {
        return member;
    }
    template <typename Result>
    constexpr auto operator()(Result (*function)(Arguments...)) const
    {
        return function;
    }
};
template <typename... Arguments>
inline constexpr Pick<Arguments...> pick{};

/// The class, result and arguments of a member function, or of a free function whose first argument is the object.
template <typename Function>
struct Signature;

template <typename R, typename C, typename... A>
struct Signature<R (C::*)(A...)> {
    using Result = R;
    using Class = C;
    using Values = std::tuple<std::decay_t<A>...>;
};
template <typename R, typename C, typename... A>
struct Signature<R (C::*)(A...) const> : Signature<R (C::*)(A...)> {};
template <typename R, typename C, typename... A>
struct Signature<R (*)(C&, A...)> : Signature<R (C::*)(A...)> {};
template <typename R, typename C, typename... A>
struct Signature<R (*)(const C&, A...)> : Signature<R (C::*)(A...)> {};

/// The result and arguments of a function that needs no object.
template <typename Function>
struct StaticSignature;
template <typename R, typename... A>
struct StaticSignature<R (*)(A...)> {
    using Result = R;
    using Values = std::tuple<std::decay_t<A>...>;
};

/// The arguments of a call, as CPython's fast calls hand them over.
struct CallArguments {
    PyObject* const* values;
    Py_ssize_t count;
    PyObject* names; ///< A tuple of the names of the last values, or null.

    Py_ssize_t named() const { return names ? PyTuple_GET_SIZE(names) : 0; }
    Py_ssize_t total() const { return count + named(); }
};

/// Puts the arguments that came with a name in their slots; false for a name that isn't among the arguments, or whose
/// slot is taken.
bool placeNamed(const CallArguments& call, const Argument* arguments, std::size_t count, PyObject** slots);

/// Raises the TypeError for a call whose number or names of arguments fit no form of the method.
[[noreturn]] void throwArity(const char* method, const CallArguments& call, const std::vector<FormText>& forms);

/// Reads the values of one form of a call: `Values` is the tuple of their C++ types.
template <typename Values, Text Names>
struct ArgumentReader {
    static constexpr std::size_t count = std::tuple_size_v<Values>;
    static constexpr auto& arguments = argumentTable<Names>;
    static_assert(std::tuple_size_v<std::decay_t<decltype(arguments)>> == count, "every argument has a name");

    /// The arguments of one call in order; null where one is left out.
    using Slots = std::array<PyObject*, count>;
    using ValueTuple = Values;
    using Indexes = std::make_index_sequence<count>;

    /// Puts the arguments in order; false when their number or names don't fit.
    static bool arrange(const CallArguments& call, Slots& slots)
    {
        if (call.total() > static_cast<Py_ssize_t>(count))
            return false;
        placeAll(call, slots, Indexes{});
        if (call.names && !placeNamed(call, arguments.data(), count, slots.data()))
            return false;
        return isComplete(slots, Indexes{});
    }

    /// Whether all values fit; where they don't, the first that does not.
    static bool accepts(const Slots& slots, unsigned int& misfit) { return acceptsAll(slots, misfit, Indexes{}); }
    static std::string_view expected(unsigned int index) { return expectedOf(index, Indexes{}); }
    static std::string_view nameAt(unsigned int index)
    {
        return index < count ? arguments[index].name : std::string_view();
    }
    /// Reads the values ahead of the call, without touching the engine.
    static Values read(const Slots& slots)
    {
        try {
            return readAll(slots, Indexes{});
        } catch (Misfit& misfit) {
            misfit.parameter = nameAt(misfit.index);
            throw;
        }
    }

    /// The arguments, as a person sees them.
    static FormText describe(std::string result = {}) { return {describeAll(Indexes{}), std::move(result)}; }

private:
    template <std::size_t I>
    using Reader = From<std::tuple_element_t<I, Values>>;

    template <std::size_t... I>
    static void placeAll(const CallArguments& call, [[maybe_unused]] Slots& slots, std::index_sequence<I...>)
    {
        ((slots[I] = static_cast<Py_ssize_t>(I) < call.count ? call.values[I] : nullptr), ...);
    }

    template <std::size_t... I>
    static bool isComplete([[maybe_unused]] Slots& slots, std::index_sequence<I...>)
    {
        return (isSettled<I>(slots[I]) && ...);
    }

    template <std::size_t I>
    static bool isSettled(PyObject*& slot)
    {
        // None says the same as leaving the argument out.
        if constexpr (arguments[I].fallback == "None") {
            if (slot == Py_None)
                slot = nullptr;
        }
        return slot || !arguments[I].required();
    }

    template <std::size_t... I>
    static bool acceptsAll([[maybe_unused]] const Slots& slots, [[maybe_unused]] unsigned int& misfit,
                           std::index_sequence<I...>)
    {
        return ((!slots[I] || Reader<I>::accepts(slots[I]) || (misfit = I, false)) && ...);
    }

    template <std::size_t... I>
    static std::string_view expectedOf([[maybe_unused]] unsigned int index, std::index_sequence<I...>)
    {
        std::string_view type;
        ((I == index ? void(type = typeOf<I>()) : void()), ...);
        return type;
    }

    /// The type of an argument as its table tells it, or else as its reader does.
    template <std::size_t I>
    static constexpr std::string_view typeOf()
    {
        return arguments[I].type.empty() ? std::string_view(Reader<I>::type) : arguments[I].type;
    }

    template <std::size_t I>
    static auto readOne(const Slots& slots)
    {
        if constexpr (arguments[I].required()) {
            return Reader<I>::read(slots[I], I);
        } else {
            static_assert(Reader<I>::isDefault(arguments[I].fallback), "the argument's type reads its default");
            return slots[I] ? Reader<I>::read(slots[I], I) : Reader<I>::fallback(arguments[I].fallback);
        }
    }

    template <std::size_t... I>
    static Values readAll([[maybe_unused]] const Slots& slots, std::index_sequence<I...>)
    {
        return Values{readOne<I>(slots)...}; // Braces keep the order of reading.
    }

    template <std::size_t... I>
    static std::vector<ArgumentText> describeAll(std::index_sequence<I...>)
    {
        return {ArgumentText{std::string(arguments[I].name), std::string(typeOf<I>()),
                             std::string(arguments[I].fallback)}...};
    }
};

/// One form of a method: a function and the names of its arguments. The function is a member, or a free one whose first
/// argument is the object.
template <auto Function, Text Names = "">
struct Form : ArgumentReader<typename Signature<decltype(Function)>::Values, Names> {
    using Sig = Signature<decltype(Function)>;
    using Reader = ArgumentReader<typename Sig::Values, Names>;

    static PyObject* call(OMC::BaseObject* object, typename Sig::Values& values)
    {
        auto& self = static_cast<typename Sig::Class&>(*object);
        const auto run = [&]() -> decltype(auto) {
            return std::apply(
                [&](auto&... value) -> decltype(auto) {
                    if constexpr (std::is_member_function_pointer_v<decltype(Function)>)
                        return (self.*Function)(value...);
                    else
                        return Function(self, value...);
                },
                values);
        };
        if constexpr (std::is_void_v<typename Sig::Result>) {
            run();
            Py_RETURN_NONE;
        } else {
            return toPython(run());
        }
    }

    static FormText describe() { return Reader::describe(resultType<typename Sig::Result, Names>()); }
};

/// One form of a static method: a function that needs no object, and the names of its arguments.
template <auto Function, Text Names = "">
struct StaticForm : ArgumentReader<typename StaticSignature<decltype(Function)>::Values, Names> {
    using Sig = StaticSignature<decltype(Function)>;
    using Reader = ArgumentReader<typename Sig::Values, Names>;

    static PyObject* call(typename Sig::Values& values)
    {
        const auto run = [](auto&... value) -> decltype(auto) { return Function(value...); };
        if constexpr (std::is_void_v<typename Sig::Result>) {
            std::apply(run, values);
            Py_RETURN_NONE;
        } else {
            return toPython(std::apply(run, values));
        }
    }

    static FormText describe() { return Reader::describe(resultType<typename Sig::Result, Names>()); }
};

/// The result of the first form that fits the call. `run` gets the values of that form's arguments.
template <typename... Forms, typename Run>
auto callFirst(const char* name, const CallArguments& call, Run&& run)
{
    using Result =
        std::common_type_t<decltype(run.template operator()<Forms>(std::declval<typename Forms::ValueTuple&>()))...>;
    Result result{};
    std::optional<Misfit> misfit; // The first form's that takes the call's arguments by their number and names.
    const auto attempt = [&]<typename F>() {
        typename F::Slots slots;
        if (!F::arrange(call, slots))
            return false;
        unsigned int index = 0;
        if (F::accepts(slots, index)) {
            result = convertAndCall([&] { return F::read(slots); },
                                    [&](auto& values) { return run.template operator()<F>(values); });
            return true;
        }
        if (!misfit)
            misfit = Misfit{index, F::expected(index), slots[index], F::nameAt(index)};
        return false;
    };
    if ((attempt.template operator()<Forms>() || ...))
        return result;
    if (misfit)
        throw *misfit;
    throwArity(name, call, {Forms::describe()...});
}

/// A method of a class as its table keeps it.
struct Method {
    const char* name;
    const char* text; ///< The text of a function that only the binding has; null where a header has it.
    PyCFunction function;
    std::vector<FormText> (*describe)();
    bool isStatic = false;
};

/// The function that CPython calls for a method with one form or several, of which the first that fits is taken.
template <Text Name, typename... Forms>
PyObject* callMethod(PyObject* self, PyObject* const* values, Py_ssize_t count, PyObject* names)
{
    return guarded([&]() -> PyObject* {
        return callFirst<Forms...>(
            Name.characters, {values, count, names},
            [self]<typename F>(typename F::ValueTuple& read) { return F::call(heldObject(self), read); });
    });
}

/// An entry of a class's table: the script name, the text of a function of the binding, and its forms.
template <Text Name, typename... Forms>
Method method(const char* text)
{
    return {Name.characters, text,
            reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(&callMethod<Name, Forms...>)),
            [] { return std::vector<FormText>{Forms::describe()...}; }};
}

/// The function that CPython calls for a static method.
template <Text Name, typename... Forms>
PyObject* callStaticMethod(PyObject*, PyObject* const* values, Py_ssize_t count, PyObject* names)
{
    return guarded([&]() -> PyObject* {
        return callFirst<Forms...>(Name.characters, {values, count, names},
                                   []<typename F>(typename F::ValueTuple& read) { return F::call(read); });
    });
}

/// An entry of a class's table for a static method.
template <Text Name, typename... Forms>
Method staticMethod(const char* text)
{
    return {Name.characters, text,
            reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(&callStaticMethod<Name, Forms...>)),
            [] { return std::vector<FormText>{Forms::describe()...}; }, true};
}

} // namespace brindle::python
