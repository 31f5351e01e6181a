#include "service/python/describe.h"

#include "service/python/headertexts.h"
#include "service/python/types.h"

namespace brindle::python {

namespace {

QStringList formTexts(const std::vector<FormText>& forms)
{
    QStringList texts;
    for (const FormText& form : forms)
        texts.append(QString::fromStdString(typedText(form)));
    return texts;
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

QVariantList describeProperties(const TypeRecord& record)
{
    QVariantList properties;
    for (const Property& property : record.properties) {
        const MemberText* declared = textOf(record.table.metaObject, property.meta.name());
        properties.append(QVariantMap{{"name", property.meta.name()},
                                      {"type", QString::fromStdString(property.type)},
                                      {"takes", QString::fromStdString(property.takes)},
                                      {"writable", property.meta.isWritable()},
                                      {"text", property.text},
                                      {"accessors", true},
                                      {"getter", QString(declared ? declared->getter : nullptr)},
                                      {"setter", QString(declared ? declared->setter : nullptr)}});
    }
    const auto& attributes = record.attributes;
    for (std::size_t index = 0; index < record.table.members.size(); ++index) {
        const Member& member = record.table.members[index];
        properties.append(QVariantMap{{"name", member.name},
                                      {"type", member.type},
                                      {"takes", member.type},
                                      {"writable", true},
                                      {"text", attributes[record.properties.size() + index].doc},
                                      {"accessors", false},
                                      {"getter", QString()},
                                      {"setter", QString()}});
    }
    return properties;
}

QVariantList describeMethods(const std::vector<Method>& table)
{
    QVariantList methods;
    for (const Method& method : table)
        methods.append(QVariantMap{{"name", method.name},
                                   {"forms", formTexts(method.describe())},
                                   {"text", method.text},
                                   {"static", method.isStatic}});
    return methods;
}

QVariantList describeAliases(const std::vector<TypeAlias>& table)
{
    QVariantList aliases;
    for (const TypeAlias& alias : table)
        aliases.append(QVariantMap{{"name", alias.name}, {"type", alias.type}, {"text", alias.text}});
    return aliases;
}

} // namespace

PyObject* describeClasses()
{
    QVariantList classes;
    for (const TypeRecord& record : allTypes()) {
        const ClassTable& table = record.table;
        const ClassText* declared = textsOf(table.metaObject);
        classes.append(QVariantMap{
            {"name", table.name},
            {"class", table.metaObject->className()},
            {"place", QString(declared ? declared->place : nullptr)},
            {"base", record.type->tp_base->tp_name},
            {"text", table.text},
            {"constructors", formTexts(table.constructors)},
            {"properties", describeProperties(record)},
            {"methods", describeMethods(table.methods)},
            {"operators", operatorNames(table.operators)},
            {"slices", table.operators.length && table.operators.itemByIndex && !table.operators.isNumbered},
            {"sliceWrites", table.operators.setSlice != nullptr},
            {"byIndex", bool(table.operators.itemByIndex)},
            {"byKey", bool(table.operators.itemByKey)},
            {"keys", bool(table.operators.keys)},
            {"items", QString(table.operators.itemType)},
            {"aliases", describeAliases(table.aliases)},
            {"calls", QString(table.operators.calledMethod)}});
    }
    return toPython(classes);
}

} // namespace brindle::python
