#include "service/python/types.h"

#include "service/python/construction.h"
#include "service/python/family.h"
#include "service/python/headertexts.h"
#include "service/python/operators.h"
#include "service/python/valueprotocol.h"

#include <structmember.h>
#include <array>
#include <cstdint>
#include <unordered_map>

namespace brindle::python {

namespace {

std::deque<TypeRecord>& records()
{
    static std::deque<TypeRecord> all;
    return all;
}

std::unordered_map<PyTypeObject*, const ClassTable*>& tablesByType()
{
    static std::unordered_map<PyTypeObject*, const ClassTable*> tables;
    return tables;
}

const PropertyRow* rowOf(const ClassTable& table, const char* property)
{
    const auto& rows = table.properties;
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&](const PropertyRow& row) { return qstrcmp(row.name, property) == 0; });
    return found == rows.end() ? nullptr : &*found;
}

/// Members that neither a header nor a row has a text for: the module doesn't load with such a slip.
QStringList& membersWithoutText()
{
    static QStringList members;
    return members;
}

/// The text of a class or of one of its members: the row's where it has one, else the header's. Where neither has, the
/// text is "" and the member is noted.
const char* textFor(const ClassTable& table, const char* member, const char* inRow)
{
    const MemberText* declared = member ? textOf(table.metaObject, member) : nullptr;
    const ClassText* ofClass = textsOf(table.metaObject);
    const char* inHeader = member ? (declared ? declared->text : nullptr) : (ofClass ? ofClass->text : nullptr);
    if (inRow || inHeader)
        return inRow ? inRow : inHeader;
    const char* place = declared ? declared->place : ofClass ? ofClass->place : "no header";
    const QString name = member ? QStringLiteral("%1.%2").arg(table.name, member) : QString(table.name);
    membersWithoutText() << QStringLiteral("%1: a comment here is what Python says about %2").arg(place, name);
    return "";
}

/// The properties that the class has beyond those of its base type.
void addProperties(TypeRecord& record, const QMetaObject* base)
{
    const QMetaObject* metaObject = record.table.metaObject;
    for (int index = base ? base->propertyCount() : 0; index < metaObject->propertyCount(); ++index) {
        const QMetaProperty meta = metaObject->property(index);
        const PropertyRow* row = rowOf(record.table, meta.name());
        const char* text = textFor(record.table, meta.name(), row ? row->text : nullptr);
        record.properties.push_back(makeProperty(meta, row, text));
        record.attributes.push_back({meta.name(), &getProperty, &setProperty, text, &record.properties.back()});
    }
    for (const Member& member : record.table.members)
        record.attributes.push_back(member.attribute(textFor(record.table, member.name, nullptr)));
}

void addMethods(TypeRecord& record)
{
    for (Method& method : record.table.methods) {
        method.text = textFor(record.table, method.name, method.text);
        const std::string& documentation = record.texts.emplace_back(
            functionDocumentation(method.name, method.describe(), method.isStatic ? "" : "$self", method.text));
        const int flags = METH_FASTCALL | METH_KEYWORDS | (method.isStatic ? METH_STATIC : 0);
        record.methods.push_back({method.name, method.function, flags, documentation.c_str()});
    }
}

/// A row for a property that isn't there is a slip in the table: the module doesn't load with it.
void refuseUnknownProperties(const ClassTable& table)
{
    for (const PropertyRow& row : table.properties) {
        if (table.metaObject->indexOfProperty(row.name) < 0)
            throwTypeError("%s has no property %s", table.name, row.name);
    }
}

/// Adds the script method of a name that reads or writes a property, unless the class has a method of that name.
void addAccessor(TypeRecord& record, const Property& property, const std::string& name, bool setter)
{
    const Ref key(PyUnicode_InternFromString(name.c_str()));
    if (!key)
        throw PythonError{};
    PyObject* members = record.type->tp_dict;
    if (PyDict_Contains(members, key.get()))
        return;
    const Ref accessor(newAccessor(record.type, property, record.texts.emplace_back(name).c_str(), setter));
    if (!accessor || PyDict_SetItem(members, key.get(), accessor.get()) < 0)
        throw PythonError{};
}

/// The accessors of all properties: under the names of the properties, and under those of the C++ functions.
void addAccessors(TypeRecord& record)
{
    for (const Property& property : record.properties) {
        const MemberText* declared = textOf(record.table.metaObject, property.meta.name());
        addAccessor(record, property, std::string("get_") + property.meta.name(), false);
        if (declared && declared->getter)
            addAccessor(record, property, declared->getter, false);
        if (!property.meta.isWritable())
            continue;
        addAccessor(record, property, std::string("set_") + property.meta.name(), true);
        if (declared && declared->setter)
            addAccessor(record, property, declared->setter, true);
    }
    PyType_Modified(record.type);
}

/// Makes the Python type of a class and adds it to the module. The type of its nearest base class in the module is
/// there already.
void addClass(PyObject* module, const ClassTable& classTable)
{
    TypeRecord& record = records().emplace_back();
    record.table = classTable;
    ClassTable& table = record.table;
    record.qualifiedName = std::string("brindle.") + table.name;
    refuseUnknownProperties(table);
    table.text = textFor(table, nullptr, table.text);
    const std::string& documentation =
        record.texts.emplace_back(classDocumentation(table.name, table.constructors, table.text));

    const QMetaObject* base = nullptr;
    PyTypeObject* baseType = nullptr;
    if (table.metaObject != &OMC::BaseObject::staticMetaObject) {
        baseType = typeFor(table.metaObject->superClass()).type;
        base = tableOf(baseType).metaObject;
    }
    addProperties(record, base);
    record.attributes.push_back({});
    addMethods(record);
    if (!base)
        record.methods.push_back(directoryMethod);
    if (table.operators.keys)
        record.methods.push_back(keysMethod);
    const bool isValue = table.state.read || !table.members.empty() || (base && isValueType(baseType));
    if (isValue)
        record.methods.push_back(reduceMethod);
    else if (!base)
        record.methods.push_back(refuseMethod);
    record.methods.push_back({});

    static PyMemberDef members[] = {
        {"__weaklistoffset__", T_PYSSIZET, offsetof(Wrapper, weakReferences), READONLY, nullptr}, {}};
    std::vector<PyType_Slot> typeSlots = operatorSlots(table.operators);
    typeSlots.push_back({Py_tp_doc, const_cast<char*>(documentation.c_str())});
    typeSlots.push_back({Py_tp_dealloc, reinterpret_cast<void*>(table.traverse ? &deallocateHolder : &deallocate)});
    typeSlots.push_back({Py_tp_new, reinterpret_cast<void*>(&newObject)});
    typeSlots.push_back({Py_tp_getset, record.attributes.data()});
    typeSlots.push_back({Py_tp_methods, record.methods.data()});
    if (isValue)
        typeSlots.push_back({Py_tp_repr, reinterpret_cast<void*>(&valueRepresentation)});
    if (!base)
        typeSlots.push_back({Py_tp_members, members});
    if (table.getBuffer) {
        typeSlots.push_back({Py_bf_getbuffer, reinterpret_cast<void*>(table.getBuffer)});
        typeSlots.push_back({Py_bf_releasebuffer, reinterpret_cast<void*>(table.releaseBuffer)});
    }
    if (table.traverse) {
        typeSlots.push_back({Py_tp_traverse, reinterpret_cast<void*>(table.traverse)});
        typeSlots.push_back({Py_tp_clear, reinterpret_cast<void*>(table.clear)});
    }
    typeSlots.push_back({0, nullptr});
    // A word more than the base: Python takes types of one layout for interchangeable, in `object.__class__ = other`
    // and in a class with two bases, where the object behind them is of one class only.
    const auto size = baseType ? baseType->tp_basicsize + Py_ssize_t(sizeof(void*)) : Py_ssize_t(sizeof(Wrapper));
    const unsigned int collected = table.traverse ? Py_TPFLAGS_HAVE_GC : 0;
    PyType_Spec spec = {record.qualifiedName.c_str(), static_cast<int>(size), 0,
                        static_cast<unsigned int>(Py_TPFLAGS_DEFAULT | Py_TPFLAGS_BASETYPE) | collected,
                        typeSlots.data()};
    const Ref bases(baseType ? PyTuple_Pack(1, baseType) : nullptr);
    record.type = reinterpret_cast<PyTypeObject*>(PyType_FromSpecWithBases(&spec, bases.get()));
    if (!record.type)
        throw PythonError{};
    record.type->tp_vectorcall = &callType;
    tablesByType()[record.type] = &record.table;
    registerType(table.metaObject, {record.type, &record.table.operators});
    addAccessors(record);
    if (PyModule_AddObjectRef(module, table.name, reinterpret_cast<PyObject*>(record.type)) < 0)
        throw PythonError{};
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

void addClasses(PyObject* module)
{
    for (const ClassTable& table : Family::allTables())
        addClass(module, table);
    if (membersWithoutText().isEmpty())
        return;
    PyErr_SetString(PyExc_ImportError, membersWithoutText().join('\n').toUtf8().constData());
    throw PythonError{};
}

const std::deque<TypeRecord>& allTypes()
{
    return records();
}

} // namespace brindle::python
