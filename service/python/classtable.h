#pragma once

#include "service/python/method.h"

#include <QMetaObject>

#include <cmath>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// The table of a class: all that makes it a Python type. Properties come from its meta-object, texts from its header
/// (headertexts.h); what the table adds are the methods, the operators, and the types of properties where the C++ type
/// leaves them open.
namespace brindle::python {

struct Property;

/// The types of a property whose C++ type, an Obj or a QVariant, leaves them open.
struct PropertyRow {
    const char* name;
    const char* type = nullptr;         ///< The type that it gives, as Python writes it.
    const char* takes = nullptr;        ///< The type that may be written, where that is more.
    const QMetaObject* gives = nullptr; ///< The class that it gives, in the place of `type`.
    PyObject* (*read)(OMC::BaseObject* object,
                      const Property& property) = nullptr; ///< Reads it, in the place of the metacall.
    const char* text = nullptr;                            ///< The text, where no header of ours declares the property.
};

/// A public member of a value class, as an attribute. The functions get its name along.
struct Member {
    const char* name;
    const char* type;
    getter get;
    setter set;

    PyGetSetDef attribute(const char* text) const { return {name, get, set, text, const_cast<char*>(name)}; }
};

/// A name for a union of types that many functions take, in signatures and stubs.
struct TypeAlias {
    const char* name;
    const char* type;
    const char* text;
};

/// The operators of a class; null where it has none.
struct Operators {
    Py_ssize_t (*length)(OMC::BaseObject*) = nullptr;
    int firstIndex = 0; ///< The index of the first item.
    PyObject* (*itemByIndex)(OMC::BaseObject*, int) = nullptr;
    PyObject* (*itemByKey)(OMC::BaseObject*, const QString&) = nullptr;
    void (*setItem)(PyObject* self, PyObject* key, PyObject* value) = nullptr;
    bool isNumbered = false; ///< An index is a number that the item has, and no place: there are no slices.
    /// Writes items from an index on, by steps: `list[first:stop:step] = values`.
    void (*setSlice)(PyObject* self, Py_ssize_t first, Py_ssize_t step, PyObject* values) = nullptr;
    bool (*contains)(PyObject* self, PyObject* value) = nullptr;
    bool containsTextOnly = false; ///< Other values are looked for by going through the list.
    /// Whether an object is in the list, of a class that tells it without going through it (`holds`).
    bool (*holds)(OMC::BaseObject* list, const OMC::BaseObject& item) = nullptr;
    PyObject* (*call)(OMC::BaseObject*, const QString&) = nullptr;
    const char* calledMethod = nullptr; ///< The method that a call of the object stands for, instead of `call`.
    PyObject* (*iterate)(OMC::BaseObject*) = nullptr;
    PyObject* (*next)(OMC::BaseObject*) = nullptr; ///< Null without an error at the end.
    /// Nothing where the class doesn't compare itself with such a value.
    std::optional<bool> (*equals)(PyObject* self, PyObject*) = nullptr;
    bool equalsValues = false; ///< Any value may equal the object; else only objects of its kind.
    QStringList (*keys)(const OMC::BaseObject*) = nullptr; ///< The keys that a completer offers.
    const char* itemType = nullptr;                        ///< The type of the items, as Python writes it.
    QString (*shown)(const OMC::BaseObject*) = nullptr;    ///< What repr() shows, in the place of str().
    bool alwaysTrue = false;                               ///< bool() doesn't ask for the length.
};

/// How copy, pickle and repr() read a value class and make it again: its state is plain numbers and texts. A class
/// with public members needs none: its members are its state.
struct ValueState {
    QVariantList (*read)(const OMC::BaseObject*) = nullptr;
    OMC::BaseObject* (*rebuild)(const QVariantList&) = nullptr;
    std::string (*represent)(const OMC::BaseObject*, const std::string& type) = nullptr;
};

struct ClassTable {
    const char* name = nullptr;
    const char* text = nullptr; ///< The text, where no header of ours declares the class.
    const QMetaObject* metaObject = nullptr;
    std::vector<PropertyRow> properties;
    std::vector<Method> methods;
    std::vector<Member> members;
    std::vector<TypeAlias> aliases;
    Operators operators;
    OMC::BaseObject* (*construct)(const CallArguments& call) = nullptr;
    std::vector<FormText> constructors;
    ValueState state;
    const char* copyHint = nullptr;    ///< How objects are copied that Python can't copy: half a sentence.
    getbufferproc getBuffer = nullptr; ///< The buffer protocol, where the objects have one.
    releasebufferproc releaseBuffer = nullptr;
    traverseproc traverse = nullptr; ///< For the garbage collector, where objects of the class hold Python objects.
    inquiry clear = nullptr;
};

/// A form of a constructor: a function that gives a new object.
template <auto Factory, Text Names = "">
struct Construct : ArgumentReader<typename StaticSignature<decltype(Factory)>::Values, Names> {
    static OMC::BaseObject* call(const typename Construct::ValueTuple& values)
    {
        return std::apply([](const auto&... value) -> OMC::BaseObject* { return Factory(value...); }, values);
    }
};

/// A function for the usual constructor: `Construct<&newOf<Point2d, double, double>, "x=0, y=0">`.
template <typename T, typename... Arguments>
T* newOf(Arguments... arguments)
{
    return new T(arguments...);
}

/// The type that an `operator==` compares with: the base class, for a class that inherits the operator.
template <typename C, typename Other>
const Other& operandOf(bool (C::*)(const Other&) const);

/// Whether a Python value is an object that `Compare(const Other&)` takes and finds equal; nothing for what is no
/// object of this module.
template <typename Other, typename Compare>
std::optional<bool> equalsObject(PyObject* value, Compare&& compare)
{
    if (!isWrapper(value))
        return std::nullopt;
    const auto* same = dynamic_cast<const Other*>(objectOf(value));
    return same && compare(*same);
}

/// Whether `Compare(const QVariant&)` finds a value equal that is read as an argument is. None equals nothing, and
/// neither does what can't be read: a comparison fails for no value.
template <typename Compare>
std::optional<bool> equalsRead(PyObject* value, Compare&& compare)
{
    return convertAndCall([value] { return comparedValue(value); },
                          [&](const std::optional<QVariant>& other) -> std::optional<bool> {
                              try {
                                  return other ? std::optional(compare(*other)) : std::nullopt;
                              } catch (const OMC::Exception&) {
                                  return false;
                              }
                          });
}

/// Fills a class's table from its C++ class: the list protocol, the call operator and equality come by themselves.
template <typename T>
class Class {
public:
    /// A class goes by its C++ name, unless it has another one in Python.
    explicit Class(const char* name = nullptr, const char* text = nullptr)
    {
        const std::string_view qualified = T::staticMetaObject.className(); // "OMC::Point2d"
        m_table.name = name ? name : qualified.data() + qualified.rfind(':') + 1;
        m_table.text = text;
        m_table.metaObject = &T::staticMetaObject;
        deriveOperators();
    }

    /// The type that a property gives, and the one that may be written where that is more, as Python writes types.
    /// Needed where the C++ type is an Obj or a QVariant, or holds them.
    Class& property(const char* name, const char* type, const char* takes = nullptr)
    {
        PropertyRow& row = propertyRow(name);
        row.type = type;
        row.takes = takes;
        return *this;
    }

    /// The same for a property that is read through a function, which tells the type where it gives a plain pointer.
    template <auto Getter>
    Class& property(const char* name, const char* type = nullptr, const char* takes = nullptr)
    {
        using Result = typename Signature<decltype(Getter)>::Result;
        property(name, type, takes);
        PropertyRow& row = propertyRow(name);
        // The header of a class that is given by pointer has to be included: this fails to compile without it.
        if constexpr (std::is_pointer_v<Result>)
            row.gives = &std::remove_pointer_t<Result>::staticMetaObject;
        row.read = &readThrough<Getter>;
        return *this;
    }

    /// The text of a property that no header of ours declares.
    Class& text(const char* property, const char* text)
    {
        propertyRow(property).text = text;
        return *this;
    }

    /// A method under its script name, with its forms. The text is that of a function which only the binding has.
    template <Text Name, typename... Forms>
    Class& method(const char* text = nullptr)
    {
        m_table.methods.push_back(python::method<Name, Forms...>(text));
        return *this;
    }

    /// A static method under its script name, with its forms (StaticForm).
    template <Text Name, typename... Forms>
    Class& staticMethod(const char* text = nullptr)
    {
        m_table.methods.push_back(python::staticMethod<Name, Forms...>(text));
        return *this;
    }

    /// Names the types that are taken for an object of the class, or given for it.
    Class& alias(const char* name, const char* type, const char* text)
    {
        m_table.aliases.push_back({name, type, text});
        return *this;
    }

    /// The type of a list's items, where its own class or a base class gives them as Obj or QVariant.
    Class& items(const char* type)
    {
        m_table.operators.itemType = type;
        return *this;
    }

    /// The keys that a completer offers: `Keys(const T&)` gives them.
    template <auto Keys>
    Class& keys()
    {
        m_table.operators.keys = [](const OMC::BaseObject* object) -> QStringList {
            return std::invoke(Keys, static_cast<const T&>(*object));
        };
        return *this;
    }

    /// What repr() shows of an object, in the place of str(): `Text(const T&)` gives it. Where that fails, the object
    /// is no longer valid.
    template <auto Text>
    Class& shownAs()
    {
        m_table.operators.shown = [](const OMC::BaseObject* object) -> QString {
            return Text(static_cast<const T&>(*object));
        };
        return *this;
    }

    /// Makes the objects true, also those without items.
    Class& alwaysTrue()
    {
        m_table.operators.alwaysTrue = true;
        return *this;
    }

    /// Says that an index is a number that the item has, and no place in the list.
    Class& numbered()
    {
        m_table.operators.isNumbered = true;
        return *this;
    }

    /// The item at an index, in the place of `get`: `PyObject* Item(const T&, int)`.
    template <auto Item>
    Class& item()
    {
        m_table.operators.itemByIndex = [](OMC::BaseObject* object, int index) { return Item(self(object), index); };
        return *this;
    }

    /// Lets a call of the object stand for one of its methods.
    Class& calling(const char* method)
    {
        m_table.operators.calledMethod = method;
        return *this;
    }

    /// A public member.
    template <auto Field>
    Class& member(const char* name);

    /// Lets scripts build objects of the class: the forms (Construct) in the order in which they are tried.
    template <typename... Forms>
    Class& constructors();
    template <auto Factory, Text Names>
    Class& constructor()
    {
        return constructors<Construct<Factory, Names>>();
    }

    /// Lets copy, pickle and repr take the objects of a value class without public members: `State(const T&)` gives
    /// plain numbers and texts as a QVariantList, of which `Rebuild(const QVariantList&)` makes an equal `T*`, throwing
    /// for a list that is none of those; `Represent(const T&, const std::string& type)` gives the text, with the type's
    /// full name or the end of it.
    template <auto State, auto Rebuild, auto Represent>
    Class& value()
    {
        m_table.state = {
            [](const OMC::BaseObject* object) -> QVariantList { return State(static_cast<const T&>(*object)); },
            [](const QVariantList& state) -> OMC::BaseObject* { return Rebuild(state); },
            [](const OMC::BaseObject* object, const std::string& type) -> std::string {
                return Represent(static_cast<const T&>(*object), type);
            }};
        return *this;
    }

    /// Says how objects of the class are copied, which copy.copy() can't do: half a sentence.
    Class& copiedBy(const char* hint)
    {
        m_table.copyHint = hint;
        return *this;
    }

    /// Gives the objects the buffer protocol.
    Class& buffer(getbufferproc get, releasebufferproc release)
    {
        m_table.getBuffer = get;
        m_table.releaseBuffer = release;
        return *this;
    }

    /// Lets the garbage collector see what Python objects the objects of the class hold: `Visit(const T&, visitproc,
    /// void*)` calls the collector's function for each, and `Clear(T&)` lets go of them.
    template <auto Visit, auto Clear>
    Class& collected()
    {
        m_table.traverse = [](PyObject* wrapper, visitproc visit, void* argument) -> int {
            if (const int stopped = visit(reinterpret_cast<PyObject*>(Py_TYPE(wrapper)), argument))
                return stopped;
            OMC::BaseObject* object = reinterpret_cast<Wrapper*>(wrapper)->object;
            return object ? Visit(self(object), visit, argument) : 0;
        };
        m_table.clear = [](PyObject* wrapper) -> int {
            if (OMC::BaseObject* object = reinterpret_cast<Wrapper*>(wrapper)->object)
                Clear(self(object));
            return 0;
        };
        return *this;
    }

    operator ClassTable() const { return m_table; }

private:
    static T& self(OMC::BaseObject* object) { return static_cast<T&>(*object); }
    template <typename Key, typename Value>
    static void assignItem(PyObject* list, PyObject* key, PyObject* value);
    template <typename Value>
    static bool containsItem(PyObject* list, PyObject* value);
    PropertyRow& propertyRow(const char* name)
    {
        for (PropertyRow& row : m_table.properties) {
            if (qstrcmp(row.name, name) == 0)
                return row;
        }
        return m_table.properties.emplace_back(PropertyRow{.name = name});
    }
    template <auto Getter>
    static PyObject* readThrough(OMC::BaseObject* object, const Property&)
    {
        return toPython(std::invoke(Getter, self(object)));
    }
    void deriveOperators();

    ClassTable m_table;
};

template <typename T>
template <auto Field>
Class<T>& Class<T>::member(const char* name)
{
    using Value = std::decay_t<decltype(std::declval<T&>().*Field)>;
    m_table.members.push_back({name, From<Value>::type,
                               [](PyObject* object, void*) -> PyObject* {
                                   return guarded([&] { return toPython(self(objectOf(object)).*Field); });
                               },
                               [](PyObject* object, PyObject* value, void* name) -> int {
                                   return guarded([&] {
                                       if (!value)
                                           throwUndeletable(static_cast<const char*>(name));
                                       if (!From<Value>::accepts(value)) {
                                           if (PyFloat_Check(value) && !std::isfinite(PyFloat_AS_DOUBLE(value)))
                                               throwNotFinite(static_cast<const char*>(name));
                                           throw Misfit{0, From<Value>::type, value};
                                       }
                                       return convertAndCall([&] { return From<Value>::read(value, 0); },
                                                             [&](const Value& read) {
                                                                 self(heldObject(object)).*Field = read;
                                                                 return 0;
                                                             });
                                   });
                               }});
    return *this;
}

template <typename T>
template <typename... Forms>
Class<T>& Class<T>::constructors()
{
    m_table.construct = [](const CallArguments& call) -> OMC::BaseObject* {
        // "Point2d" of "OMC::Point2d", found once.
        static const std::string_view fullName = T::staticMetaObject.className();
        static const char* const name = fullName.data() + fullName.rfind(':') + 1;
        return callFirst<Forms...>(name, call,
                                   []<typename F>(typename F::ValueTuple& values) { return F::call(values); });
    };
    (m_table.constructors.push_back(Forms::describe()), ...);
    return *this;
}

/// `list[key] = value`.
template <typename T>
template <typename Key, typename Value>
void Class<T>::assignItem(PyObject* list, PyObject* key, PyObject* value)
{
    using Values = std::tuple<Key, Value>;
    if (!From<Key>::accepts(key))
        throw Misfit{0, From<Key>::type, key};
    if (!From<Value>::accepts(value))
        throw Misfit{1, From<Value>::type, value};
    convertAndCall(
        [&] {
            return Values{From<Key>::read(key, 0), From<Value>::read(value, 1)};
        },
        [list](const Values& read) { self(heldObject(list)).set(std::get<0>(read), std::get<1>(read)); });
}

/// `value in list`.
template <typename T>
template <typename Value>
bool Class<T>::containsItem(PyObject* list, PyObject* value)
{
    return convertAndCall([value] { return From<Value>::read(value, 0); },
                          [list](const Value& read) { return bool(self(heldObject(list)).contains(read)); });
}

template <typename T>
void Class<T>::deriveOperators()
{
    Operators& operators = m_table.operators;
    if constexpr (requires { self(nullptr).size(); })
        operators.length = [](OMC::BaseObject* o) { return static_cast<Py_ssize_t>(self(o).size()); };
    if constexpr (requires { T::firstIndex; })
        operators.firstIndex = T::firstIndex;
    // A list that gives its wrappers as they are (`newItem`) saves the handle in between.
    if constexpr (requires(int i) { self(nullptr).newItem(i); })
        operators.itemByIndex = [](OMC::BaseObject* o, int index) { return toPython(self(o).newItem(index)); };
    else if constexpr (requires(int i) { self(nullptr).get(i); })
        operators.itemByIndex = [](OMC::BaseObject* o, int index) { return toPython(self(o).get(index)); };
    if constexpr (requires(const QString& k) { self(nullptr)(k); })
        operators.call = [](OMC::BaseObject* o, const QString& key) { return toPython(self(o)(key)); };
    if constexpr (requires(const QString& k) { self(nullptr).newItem(k); }) {
        operators.itemByKey = [](OMC::BaseObject* o, const QString& key) { return toPython(self(o).newItem(key)); };
    } else if constexpr (requires(const QString& k) { self(nullptr)(k); }) {
        operators.itemByKey = operators.call;
    } else if constexpr (requires(const QString& k) { self(nullptr).get(k); }) {
        operators.itemByKey = [](OMC::BaseObject* o, const QString& key) { return toPython(self(o).get(key)); };
    }
    if constexpr (requires(int i, const OMC::Obj& v) { self(nullptr).set(i, v); }) {
        operators.setItem = [](PyObject* list, PyObject* key, PyObject* value) {
            assignItem<int, OMC::Obj>(list, key, From<OMC::Obj>::accepts(value) ? value : Py_None);
        };
    } else if constexpr (requires(int i, const QVariant& v) { self(nullptr).set(i, v); }) {
        operators.setItem = [](PyObject* list, PyObject* key, PyObject* value) {
            if constexpr (requires(const QString& k, const QVariant& v) { self(nullptr).set(k, v); }) {
                if (PyUnicode_Check(key))
                    return assignItem<QString, QVariant>(list, key, value);
            }
            assignItem<int, QVariant>(list, key, value);
        };
    } else if constexpr (requires(const QString& k, const OMC::Obj& v) { self(nullptr).set(k, v); }) {
        operators.setItem = &assignItem<QString, OMC::Obj>;
    } else if constexpr (requires(const QString& k, const QVariant& v) { self(nullptr).set(k, v); }) {
        operators.setItem = &assignItem<QString, QVariant>;
    } else if constexpr (requires(int i, const std::string& v) { self(nullptr).set(i, v); }) {
        operators.setItem = &assignItem<unsigned int, std::string>;
    }
    if constexpr (requires(const QVariantList& values) { self(nullptr).setEach(1, 1, values); }) {
        operators.setSlice = [](PyObject* list, Py_ssize_t first, Py_ssize_t step, PyObject* values) {
            convertAndCall([values] { return variantFrom(values).toList(); },
                           [&](const QVariantList& read) {
                               self(heldObject(list)).setEach(static_cast<int>(first), static_cast<int>(step), read);
                           });
        };
    }
    if constexpr (
        requires(const QString& k) { self(nullptr).contains(k); } &&
        !requires(const QVariant& v) { self(nullptr).contains(v); }) {
        operators.contains = &containsItem<QString>;
        operators.containsTextOnly = true;
        if constexpr (requires(const OMC::BaseObject& item) { self(nullptr).holds(item); })
            operators.holds = [](OMC::BaseObject* o, const OMC::BaseObject& item) { return self(o).holds(item); };
    } else if constexpr (requires(const QVariant& v) { self(nullptr).contains(v); }) {
        operators.contains = &containsItem<QVariant>;
    } else if constexpr (requires(const OMC::Obj& v) { self(nullptr).contains(v); }) {
        operators.contains = [](PyObject* list, PyObject* value) {
            return From<OMC::Obj>::accepts(value) && containsItem<OMC::Obj>(list, value);
        };
    }
    if constexpr (requires {
                      self(nullptr).__iter__();
                      self(nullptr).__iterItem__();
                      self(nullptr).__atend__();
                      ++self(nullptr);
                  }) {
        operators.iterate = [](OMC::BaseObject* o) { return toPython(self(o).__iter__()); };
        operators.next = [](OMC::BaseObject* o) -> PyObject* {
            T& list = self(o);
            if (list.__atend__())
                return nullptr;
            auto item = list.__iterItem__();
            ++list;
            return toPython(std::move(item));
        };
    }
    if constexpr (requires(const OMC::Obj& other) { self(nullptr).__eq__(other); }) {
        operators.equals = [](PyObject* o, PyObject* other) {
            return equalsObject<OMC::BaseObject>(other, [&](const OMC::BaseObject&) {
                return bool(self(heldObject(o)).__eq__(OMC::Obj(objectOf(other))));
            });
        };
    } else if constexpr (requires { operandOf(&T::operator==); }) {
        using Other = std::decay_t<decltype(operandOf(&T::operator==))>;
        operators.equalsValues = std::is_same_v<Other, QVariant>;
        operators.equals = [](PyObject* o, PyObject* other) {
            if constexpr (std::is_same_v<Other, QVariant>)
                return equalsRead(other, [o](const QVariant& v) { return self(heldObject(o)).operator==(v); });
            else
                return equalsObject<Other>(other,
                                           [&](const Other& same) { return self(heldObject(o)).operator==(same); });
        };
    } else if constexpr (requires(const T* other) { self(nullptr).operator==(other); }) {
        operators.equals = [](PyObject* o, PyObject* other) {
            return equalsObject<T>(other, [&](const T& same) { return self(heldObject(o)) == &same; });
        };
    }
}

} // namespace brindle::python
