#pragma once

#include "service/python/errors.h"
#include "service/python/signatures.h"
#include "service/python/values.h"

#include <QString>
#include <QVariant>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string_view>

/// Arguments of script methods, written once as a text, and the reading of each C++ type from Python:
///
///     "frame, value: float | Column, adjust_column=False -> Column | None"
///
/// A type stands where the C++ type doesn't tell it, as in what a QVariant takes and an Obj gives. It is Python's text
/// of it, for signatures and stubs.
namespace brindle::python {

/// A text as a template argument.
template <std::size_t N>
struct Text {
    char characters[N];

    constexpr Text(const char (&text)[N]) { std::copy_n(text, N, characters); } // NOLINT: implicit on purpose
    constexpr std::string_view view() const { return {characters, N - 1}; }
};

/// One argument of a method: its name, its type where that is told, and the Python text of what stands for it when it
/// is left out.
struct Argument {
    std::string_view name;
    std::string_view type;
    std::string_view fallback;

    constexpr bool required() const { return fallback.empty(); }
};

/// The first place of a character outside of square brackets, or the text's length. GCC's string_view::find is no
/// constant under its sanitizers.
constexpr std::size_t placeOf(char wanted, std::string_view text)
{
    int depth = 0;
    for (std::size_t place = 0; place < text.size(); ++place) {
        if (depth == 0 && text[place] == wanted)
            return place;
        depth += (text[place] == '[') - (text[place] == ']');
    }
    return text.size();
}

constexpr std::string_view trimmed(std::string_view text)
{
    while (text.starts_with(' '))
        text.remove_prefix(1);
    while (text.ends_with(' '))
        text.remove_suffix(1);
    return text;
}

/// The parts ahead of the arrow and behind it.
constexpr std::string_view argumentsOf(std::string_view text)
{
    const std::size_t arrow = placeOf('>', text);
    return trimmed(text.substr(0, arrow == text.size() ? arrow : arrow - 1));
}
constexpr std::string_view resultOf(std::string_view text)
{
    return trimmed(text.substr(std::min(placeOf('>', text) + 1, text.size())));
}

constexpr std::size_t countArguments(std::string_view text)
{
    std::size_t count = 0;
    for (; !text.empty(); text.remove_prefix(std::min(placeOf(',', text) + 1, text.size())))
        ++count;
    return count;
}

/// The arguments in a text of comma-separated "name: type=default".
template <Text Names>
constexpr auto argumentsIn()
{
    constexpr std::size_t count = countArguments(argumentsOf(Names.view()));
    std::array<Argument, count> arguments{};
    std::string_view rest = argumentsOf(Names.view());
    for (Argument& argument : arguments) {
        const std::size_t end = placeOf(',', rest);
        const std::string_view item = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        const std::size_t equals = placeOf('=', item);
        const std::size_t colon = std::min(placeOf(':', item), equals);
        argument.name = trimmed(item.substr(0, colon));
        argument.type = colon < equals ? trimmed(item.substr(colon + 1, equals - colon - 1)) : std::string_view();
        argument.fallback = equals < item.size() ? trimmed(item.substr(equals + 1)) : std::string_view();
    }
    return arguments;
}

template <Text Names>
inline constexpr auto argumentTable = argumentsIn<Names>();

/// A number in a default's text: digits, with a sign and a fraction or without.
struct NumberText {
    std::string_view text;

    constexpr bool isNumber(bool withFraction) const
    {
        const std::string_view digits = text.substr(text.starts_with('-'));
        const auto isDigit = [](char character) { return character >= '0' && character <= '9'; };
        const auto count = static_cast<std::size_t>(std::count_if(digits.begin(), digits.end(), isDigit));
        const std::size_t points =
            withFraction ? static_cast<std::size_t>(std::count(digits.begin(), digits.end(), '.')) : 0;
        // So many digits as a double and a power of ten hold exactly: their quotient is the number that is meant.
        return count > 0 && count <= 15 && points <= 1 && count + points == digits.size();
    }
    /// The value of a number without a fraction.
    constexpr long long integer() const
    {
        long long digits = 0;
        for (const char character : text) {
            if (character != '-' && character != '.')
                digits = digits * 10 + (character - '0');
        }
        return text.starts_with('-') ? -digits : digits;
    }
    constexpr double number() const
    {
        const std::size_t point = placeOf('.', text);
        double divisor = 1;
        for (std::size_t place = point + 1; place < text.size(); ++place)
            divisor *= 10;
        return static_cast<double>(integer()) / divisor;
    }
};

/// How a C++ type is read from Python: `type` is its name in a signature, `accepts` whether the value fits, `read`
/// gives it (throwing for one that doesn't fit), `fallback` reads a default's text, for which `isDefault` holds.
/// Nothing here may touch the engine: reading comes ahead of the gate (`convertAndCall`).
template <typename T>
struct From;

template <>
struct From<bool> {
    static constexpr const char* type = "bool";
    static bool accepts(PyObject* value) { return PyIndex_Check(value); }
    /// The number itself counts, also where a class of the script says otherwise.
    static bool read(PyObject* value, unsigned int)
    {
        const Ref number(PyNumber_Index(value));
        if (!number)
            throw PythonError{};
        return PyLong_Type.tp_as_number->nb_bool(number.get()) != 0;
    }
    static constexpr bool isDefault(std::string_view text) { return text == "True" || text == "False"; }
    static constexpr bool fallback(std::string_view text) { return text == "True"; }
};

template <typename Integer>
struct FromInteger {
    static constexpr const char* type = "int";
    static bool accepts(PyObject* value) { return PyIndex_Check(value); }
    static Integer read(PyObject* value, unsigned int index)
    {
        if (PyLong_CheckExact(value))
            return inRange(value, value, index);
        const Ref number(PyNumber_Index(value));
        if (!number)
            throw PythonError{};
        return inRange(number.get(), value, index);
    }
    static constexpr bool isDefault(std::string_view text)
    {
        return NumberText{text}.isNumber(false) && std::in_range<Integer>(NumberText{text}.integer());
    }
    static constexpr Integer fallback(std::string_view text)
    {
        return static_cast<Integer>(NumberText{text}.integer());
    }

private:
    static Integer inRange(PyObject* number, PyObject* value, unsigned int index)
    {
        int overflow = 0;
        const long long wide = PyLong_AsLongLongAndOverflow(number, &overflow);
        if (overflow || !std::in_range<Integer>(wide))
            throw Misfit{index, std::is_unsigned_v<Integer> ? "a number from 0 to 4294967295" : "a number of 32 bits",
                         value};
        return static_cast<Integer>(wide);
    }
};

template <>
struct From<int> : FromInteger<int> {};
template <>
struct From<unsigned int> : FromInteger<unsigned int> {};

template <>
struct From<double> {
    static constexpr const char* type = "float";
    static bool accepts(PyObject* value) { return PyFloat_Check(value) || PyIndex_Check(value) || hasFloat(value); }
    static double read(PyObject* value, unsigned int)
    {
        if (PyFloat_CheckExact(value))
            return PyFloat_AS_DOUBLE(value);
        const double number = PyFloat_AsDouble(value);
        if (number == -1.0 && PyErr_Occurred())
            throw PythonError{};
        return number;
    }
    static constexpr bool isDefault(std::string_view text) { return NumberText{text}.isNumber(true); }
    static constexpr double fallback(std::string_view text) { return NumberText{text}.number(); }
};

template <>
struct From<QString> {
    static constexpr const char* type = "str";
    static bool accepts(PyObject* value) { return PyUnicode_Check(value) || isPath(value); }
    static QString read(PyObject* value, unsigned int)
    {
        return PyUnicode_Check(value) ? stringFrom(value) : pathFrom(value);
    }
    static constexpr bool isDefault(std::string_view text)
    {
        return text == "None" || (text.size() >= 2 && text.front() == '\'' && text.back() == '\'');
    }
    static QString fallback(std::string_view text)
    {
        return text == "None" ? QString() : QString::fromUtf8(text.data() + 1, static_cast<qsizetype>(text.size()) - 2);
    }
};

template <>
struct From<std::string> : From<QString> {
    static std::string read(PyObject* value, unsigned int index)
    {
        return From<QString>::read(value, index).toStdString();
    }
    static std::string fallback(std::string_view text) { return From<QString>::fallback(text).toStdString(); }
};

template <>
struct From<QVariant> {
    static constexpr const char* type = "object";
    static bool accepts(PyObject*) { return true; }
    static QVariant read(PyObject* value, unsigned int) { return variantFrom(value); }
    static constexpr bool isDefault(std::string_view text) { return text == "None"; }
    static QVariant fallback(std::string_view) { return {}; }
};

/// Whatever Python passes, as it is and still the caller's.
template <>
struct From<PyObject*> {
    static constexpr const char* type = "object";
    static bool accepts(PyObject*) { return true; }
    static PyObject* read(PyObject* value, unsigned int) { return value; }
};

template <>
struct From<OMC::Obj> {
    static constexpr const char* type = "BaseObject | None";
    static bool accepts(PyObject* value) { return value == Py_None || isWrapper(value); }
    static OMC::Obj read(PyObject* value, unsigned int)
    {
        return value == Py_None ? OMC::Obj() : OMC::Obj(heldObject(value));
    }
    static constexpr bool isDefault(std::string_view text) { return text == "None"; }
    static OMC::Obj fallback(std::string_view) { return {}; }
};

/// The type of a result in a signature, where the C++ type tells it.
template <typename T>
std::string resultType()
{
    if constexpr (std::is_void_v<T>)
        return "None";
    else if constexpr (std::is_same_v<T, bool>)
        return "bool";
    else if constexpr (std::is_integral_v<T>)
        return "int";
    else if constexpr (std::is_floating_point_v<T>)
        return "float";
    else if constexpr (std::is_same_v<T, QString> || std::is_same_v<T, std::string>)
        return "str";
    else if constexpr (std::is_same_v<T, QStringList>)
        return "list[str]";
    else if constexpr (std::is_same_v<T, QList<int>>)
        return "list[int]";
    else if constexpr (requires { std::remove_pointer_t<T>::staticMetaObject; } && std::is_pointer_v<T>)
        return nameOf(&std::remove_pointer_t<T>::staticMetaObject);
    else
        static_assert(std::is_void_v<T>, "the text of the arguments ends in what the method gives: \"index -> Node\"");
}

/// The type of the result of a function whose arguments are described by a text.
template <typename T, Text Names>
std::string resultType()
{
    if constexpr (!resultOf(Names.view()).empty())
        return std::string(resultOf(Names.view()));
    else
        return resultType<T>();
}

} // namespace brindle::python
