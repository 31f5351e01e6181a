#include "service/python/types.h"

#include "service/python/operators.h"
#include "service/python/property.h"
#include "service/python/valueprotocol.h"

#include <structmember.h>
#include <array>
#include <cstdint>
#include <deque>
#include <unordered_map>

namespace brindle::python {

namespace {

/// What CPython refers to for as long as the type lives; types live as long as the process.
struct TypeStorage {
    ClassTable table;
    std::string qualifiedName;
    std::deque<Property> properties;
    std::vector<PyGetSetDef> attributes;
    std::deque<std::string> texts;
    std::vector<PyMethodDef> methods;
    PyTypeObject* type = nullptr;
};

std::deque<TypeStorage>& storages()
{
    static std::deque<TypeStorage> all;
    return all;
}

std::unordered_map<PyTypeObject*, const ClassTable*>& tablesByType()
{
    static std::unordered_map<PyTypeObject*, const ClassTable*> tables;
    return tables;
}

const char* textOf(const ClassTable& table, const char* property)
{
    for (const PropertyText& entry : table.properties) {
        if (qstrcmp(entry.name, property) == 0)
            return entry.text;
    }
    return nullptr;
}

/// The properties that the class has beyond those of its base type.
void addProperties(TypeStorage& storage, const QMetaObject* base)
{
    const QMetaObject* metaObject = storage.table.metaObject;
    for (int index = base ? base->propertyCount() : 0; index < metaObject->propertyCount(); ++index) {
        const QMetaProperty meta = metaObject->property(index);
        storage.properties.push_back(makeProperty(meta, textOf(storage.table, meta.name())));
        Property& property = storage.properties.back();
        storage.attributes.push_back({meta.name(), &getProperty, &setProperty, property.documentation, &property});
    }
}

void addMethods(TypeStorage& storage)
{
    for (const Method& method : storage.table.methods) {
        std::string& text = storage.texts.emplace_back();
        for (const std::string& form : method.describe())
            text += std::string(method.name) + form + "\n";
        text += std::string("\n") + method.documentation;
        const int flags = METH_FASTCALL | METH_KEYWORDS | (method.isStatic ? METH_STATIC : 0);
        storage.methods.push_back({method.name, method.function, flags, text.c_str()});
    }
}

/// A text for a property that isn't there is a slip in the table: the module doesn't load with it.
void refuseUnknownTexts(const TypeStorage& storage)
{
    for (const PropertyText& entry : storage.table.properties) {
        if (storage.table.metaObject->indexOfProperty(entry.name) < 0)
            throwTypeError("%s has no property %s", storage.table.name, entry.name);
    }
}

/// A new object of a class, or of one that a script derived from it.
PyObject* construct(PyTypeObject* type, const CallArguments& call)
{
    return guarded([&]() -> PyObject* {
        const ClassTable& table = tableOf(type);
        if (!table.construct)
            throwTypeError("%s objects are got from the project, not made", table.name);
        return adopt({type, &table.operators}, table.construct(call));
    });
}

/// tp_new: what derived classes of a script come to.
PyObject* newObject(PyTypeObject* type, PyObject* arguments, PyObject* keywords)
{
    // The tuple stays as it is; the dict may not, once the script's own code gives a number.
    std::vector<PyObject*> values(&PyTuple_GET_ITEM(arguments, 0),
                                  &PyTuple_GET_ITEM(arguments, 0) + PyTuple_GET_SIZE(arguments));
    std::vector<Ref> named;
    Ref names;
    if (keywords && PyDict_GET_SIZE(keywords) > 0) {
        names = Ref(PyTuple_New(PyDict_GET_SIZE(keywords)));
        if (!names)
            return nullptr;
        Py_ssize_t position = 0;
        Py_ssize_t index = 0;
        PyObject* key = nullptr;
        PyObject* value = nullptr;
        while (PyDict_Next(keywords, &position, &key, &value)) {
            Py_INCREF(key);
            PyTuple_SET_ITEM(names.get(), index++, key);
            values.push_back(named.emplace_back(Ref::borrow(value)).get());
        }
    }
    return construct(type, {values.data(), PyTuple_GET_SIZE(arguments), names.get()});
}

/// Whether a script has given a class of this module another way to make its objects.
bool isMadeAnew(PyTypeObject* type)
{
    return type->tp_new != &newObject || type->tp_init != PyBaseObject_Type.tp_init;
}

/// tp_vectorcall, the short way of a call of the class itself: the arguments come as they are on the interpreter's
/// stack. Derived classes don't inherit it.
PyObject* callType(PyObject* callable, PyObject* const* values, std::size_t flaggedCount, PyObject* names)
{
    auto* type = reinterpret_cast<PyTypeObject*>(callable);
    const Py_ssize_t count = PyVectorcall_NARGS(flaggedCount);
    if (!isMadeAnew(type))
        return construct(type, {values, count, names});
    const Ref arguments(PyTuple_New(count));
    const Ref keywords(names ? PyDict_New() : nullptr);
    if (!arguments || (names && !keywords))
        return nullptr;
    for (Py_ssize_t i = 0; i < count; ++i)
        PyTuple_SET_ITEM(arguments.get(), i, Ref::borrow(values[i]).release());
    for (Py_ssize_t i = 0; names && i < PyTuple_GET_SIZE(names); ++i) {
        if (PyDict_SetItem(keywords.get(), PyTuple_GET_ITEM(names, i), values[count + i]) < 0)
            return nullptr;
    }
    return PyType_Type.tp_call(callable, arguments.get(), keywords.get());
}

QStringList texts(const std::vector<std::string>& list)
{
    QStringList result;
    for (const std::string& text : list)
        result.append(QString::fromStdString(text));
    return result;
}

/// The special methods that a class has, as stubs declare them.
QStringList operatorNames(const Operators& operators)
{
    QStringList names;
    const auto add = [&](bool has, const char* name) {
        if (has)
            names.append(name);
    };
    add(operators.length, "__len__");
    add(operators.itemByIndex || operators.itemByKey, "__getitem__");
    add(operators.setItem, "__setitem__");
    add(operators.contains, "__contains__");
    add(operators.call, "__call__");
    add(operators.next, "__iter__");
    add(operators.equals, "__eq__");
    return names;
}

void addAccessors(const TypeStorage& storage)
{
    for (const Property& property : storage.properties) {
        for (const bool setter : {false, true}) {
            if (setter && !property.meta.isWritable())
                continue;
            const std::string name = std::string(setter ? "set_" : "get_") + property.meta.name();
            // A method of that name in the table goes first.
            const auto& methods = storage.table.methods;
            if (std::any_of(methods.begin(), methods.end(), [&](const Method& method) { return name == method.name; }))
                continue;
            const Ref accessor(newAccessor(storage.type, property, setter));
            if (!accessor ||
                PyObject_SetAttrString(reinterpret_cast<PyObject*>(storage.type), name.c_str(), accessor.get()) < 0)
                throw PythonError{};
        }
    }
}

} // namespace

const ClassTable& tableOf(PyTypeObject* type)
{
    // The types asked for last, by their address. Types of this module only: a script's own may go, and another take
    // its place in memory.
    static std::array<std::pair<PyTypeObject*, const ClassTable*>, 64> known;
    auto& [knownType, table] = known[reinterpret_cast<std::uintptr_t>(type) / 64 % known.size()];
    if (knownType == type)
        return *table;
    for (PyTypeObject* base = type; base; base = base->tp_base) {
        const auto found = tablesByType().find(base);
        if (found == tablesByType().end())
            continue;
        if (base == type) {
            knownType = type;
            table = found->second;
        }
        return *found->second;
    }
    throwTypeError("The class is not one of this module");
}

void addClass(PyObject* module, const ClassTable& table)
{
    TypeStorage& storage = storages().emplace_back();
    storage.table = table;
    storage.qualifiedName = std::string("brindle.") + table.name;
    refuseUnknownTexts(storage);

    const QMetaObject* base = nullptr;
    PyTypeObject* baseType = nullptr;
    if (table.metaObject != &OMC::BaseObject::staticMetaObject) {
        baseType = typeFor(table.metaObject->superClass()).type;
        base = tableOf(baseType).metaObject;
    }
    addProperties(storage, base);
    for (const Member& member : table.members)
        storage.attributes.push_back(member.attribute());
    storage.attributes.push_back({});
    addMethods(storage);
    if (!base)
        storage.methods.push_back(directoryMethod);
    const bool isValue = table.state.read || !table.members.empty() || (base && isValueType(baseType));
    if (isValue)
        storage.methods.push_back(reduceMethod);
    storage.methods.push_back({});

    static PyMemberDef members[] = {
        {"__weaklistoffset__", T_PYSSIZET, offsetof(Wrapper, weakReferences), READONLY, nullptr}, {}};
    std::vector<PyType_Slot> typeSlots = operatorSlots(table.operators);
    typeSlots.push_back({Py_tp_doc, const_cast<char*>(table.documentation)});
    typeSlots.push_back({Py_tp_dealloc, reinterpret_cast<void*>(table.traverse ? &deallocateHolder : &deallocate)});
    typeSlots.push_back({Py_tp_new, reinterpret_cast<void*>(&newObject)});
    typeSlots.push_back({Py_tp_getset, storage.attributes.data()});
    typeSlots.push_back({Py_tp_methods, storage.methods.data()});
    if (isValue)
        typeSlots.push_back({Py_tp_repr, reinterpret_cast<void*>(&valueRepresentation)});
    if (!base)
        typeSlots.push_back({Py_tp_members, members});
    if (table.traverse) {
        typeSlots.push_back({Py_tp_traverse, reinterpret_cast<void*>(table.traverse)});
        typeSlots.push_back({Py_tp_clear, reinterpret_cast<void*>(table.clear)});
    }
    typeSlots.push_back({0, nullptr});
    // A word more than the base: Python takes types of one layout for interchangeable, in `object.__class__ = other`
    // and in a class with two bases, where the object behind them is of one class only.
    const auto size = baseType ? baseType->tp_basicsize + Py_ssize_t(sizeof(void*)) : Py_ssize_t(sizeof(Wrapper));
    const unsigned int collected = table.traverse ? Py_TPFLAGS_HAVE_GC : 0;
    PyType_Spec spec = {storage.qualifiedName.c_str(), static_cast<int>(size), 0,
                        static_cast<unsigned int>(Py_TPFLAGS_DEFAULT | Py_TPFLAGS_BASETYPE) | collected,
                        typeSlots.data()};
    const Ref bases(baseType ? PyTuple_Pack(1, baseType) : nullptr);
    storage.type = reinterpret_cast<PyTypeObject*>(PyType_FromSpecWithBases(&spec, bases.get()));
    if (!storage.type)
        throw PythonError{};
    storage.type->tp_vectorcall = &callType;
    tablesByType()[storage.type] = &storage.table;
    registerType(table.metaObject, {storage.type, &storage.table.operators});
    addAccessors(storage);
    if (PyModule_AddObjectRef(module, table.name, reinterpret_cast<PyObject*>(storage.type)) < 0)
        throw PythonError{};
}

PyObject* describeClasses()
{
    QVariantList classes;
    for (const TypeStorage& storage : storages()) {
        const ClassTable& table = storage.table;
        QVariantList properties;
        for (const Property& property : storage.properties)
            properties.append(QVariantMap{{"name", property.meta.name()},
                                          {"type", typeName(property.meta)},
                                          {"writable", property.meta.isWritable()},
                                          {"text", QString(property.documentation)}});
        for (const Member& member : table.members)
            properties.append(QVariantMap{
                {"name", member.name}, {"type", member.type}, {"writable", true}, {"text", member.documentation}});
        QVariantList methods;
        for (const Method& method : table.methods)
            methods.append(QVariantMap{{"name", method.name},
                                       {"forms", texts(method.describe())},
                                       {"text", method.documentation},
                                       {"static", method.isStatic}});
        classes.append(QVariantMap{{"name", table.name},
                                   {"base", storage.type->tp_base->tp_name},
                                   {"text", table.documentation},
                                   {"constructors", texts(table.constructors)},
                                   {"properties", properties},
                                   {"methods", methods},
                                   {"operators", operatorNames(table.operators)},
                                   {"calls", QString(table.operators.calledMethod)}});
    }
    return toPython(classes);
}

} // namespace brindle::python
