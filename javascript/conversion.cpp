#include "javascript/conversion.h"

#include "core/bridges/pythonfunction.h"
#include "javascript/arrays.h"
#include "javascript/functions.h"
#include "javascript/objects.h"
#include "qtscript/qscriptvalueiterator.h"

namespace brindle::javascript {

namespace {

constexpr int deepest = 1000;

template <typename Items>
QScriptValue arrayOf(QScriptEngine& engine, const Items& items)
{
    QScriptValue array = engine.newArray(static_cast<uint>(items.size()));
    quint32 index = 0;
    for (const auto& item : items) {
        if constexpr (std::is_same_v<std::decay_t<decltype(item)>, OMC::Obj>)
            array.setProperty(index++, shownObject(engine, item.get()));
        else
            array.setProperty(index++, toScript(engine, item));
    }
    return array;
}

QScriptValue objectOf(QScriptEngine& engine, const QVariantMap& map)
{
    QScriptValue object = engine.newObject();
    for (auto entry = map.begin(); entry != map.end(); ++entry)
        object.setProperty(entry.key(), toScript(engine, entry.value()));
    return object;
}

QScriptValue objectOf(QScriptEngine& engine, const QMap<QString, OMC::Obj>& map)
{
    QScriptValue object = engine.newObject();
    for (auto entry = map.begin(); entry != map.end(); ++entry)
        object.setProperty(entry.key(), shownObject(engine, entry.value().get()));
    return object;
}

/// A function of Python in a form of the binding's own, or nothing.
QScriptValue bindingsFunction(QScriptEngine& engine, const QVariant& value)
{
    const OMC::PythonFunctionHelper* helper = OMC::PythonFunction::helperFunc().get();
    _object* object = helper ? helper->objectIn(value) : nullptr;
    if (!object || !helper->isCallable(object))
        return {};
    OMC::PythonFunction function;
    function.set(object);
    return functionFor(engine, function);
}

QScriptValue shown(QScriptEngine& engine, const QObject* object)
{
    if (const auto* script = dynamic_cast<const OMC::JavascriptObject*>(object)) {
        const OMC::JavascriptValue& value = script->value();
        return value ? *value : QScriptValue();
    }
    if (const auto* function = dynamic_cast<const OMC::PythonFunction*>(object))
        return functionFor(engine, *function);
    if (const auto* known = dynamic_cast<const OMC::BaseObject*>(object))
        return shownObject(engine, known);
    return engine.newQObject(const_cast<QObject*>(object));
}

QVariant plainAt(const QScriptValue& value, int depth)
{
    if (!value.isObject())
        return value.toVariant();
    if (value.isVariant())
        return plainVariant(variantIn(value));
    if (value.isFunction())
        return OMC::toVariant(new OMC::JavascriptObject(value, QScriptValue()));
    if (depth == deepest)
        throw OMC::Exception(OMC::JavascriptObject::tr("The values lie more than %1 levels deep.").arg(deepest));
    if (value.isArray()) {
        QVariantList list;
        const int count = lengthOf(value);
        for (int i = 0; i < count; ++i)
            list.append(plainAt(itemOf(value, i), depth + 1));
        return list;
    }
    QVariantMap map;
    for (QScriptValueIterator it(value); it.hasNext();) {
        it.next();
        map.insert(it.name(), plainAt(it.value(), depth + 1));
    }
    return map;
}

} // namespace

QScriptValue toScript(QScriptEngine& engine, const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return engine.undefinedValue();
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
        return value.toInt();
    case QMetaType::Double:
        return value.toDouble();
    case QMetaType::QString:
        return *static_cast<const QString*>(value.constData());
    case QMetaType::QVariantMap:
        return objectOf(engine, *static_cast<const QVariantMap*>(value.constData()));
    case QMetaType::QVariantList:
        return arrayOf(engine, *static_cast<const QVariantList*>(value.constData()));
    case QMetaType::QStringList:
        return arrayOf(engine, *static_cast<const QStringList*>(value.constData()));
    default:
        break;
    }
    if (value.metaType() == QMetaType::fromType<std::vector<OMC::Obj>>())
        return arrayOf(engine, *static_cast<const std::vector<OMC::Obj>*>(value.constData()));
    if (value.metaType() == QMetaType::fromType<QMap<QString, OMC::Obj>>())
        return objectOf(engine, *static_cast<const QMap<QString, OMC::Obj>*>(value.constData()));
    if (const QObject* object = OMC::BaseObject::QVariantToPointer(value))
        return shown(engine, object);
    const QScriptValue function = bindingsFunction(engine, value);
    if (function.isValid())
        return function;
    // An empty handle is nothing.
    if (value.metaType() == QMetaType::fromType<OMC::Obj>())
        return engine.nullValue();
    return engine.create(value.typeId(), value.constData());
}

QScriptValueList argumentsFrom(QScriptEngine& engine, const QVariant& value)
{
    QScriptValueList arguments;
    if (value.typeId() == QMetaType::QVariantList || value.typeId() == QMetaType::QStringList) {
        const QVariantList items = value.toList();
        arguments.reserve(items.size());
        for (const QVariant& item : items)
            arguments.append(toScript(engine, item));
        return arguments;
    }
    const auto* script = OMC::objectFrom<OMC::JavascriptObject>(value);
    if (!script) {
        if (value.isValid())
            arguments.append(toScript(engine, value));
        return arguments;
    }
    const QScriptValue object = script->value() ? *script->value() : QScriptValue();
    if (object.isArray())
        return itemsOf(object);
    for (QScriptValueIterator it(object); it.hasNext();) {
        it.next();
        arguments.append(it.value());
    }
    return arguments;
}

QVariant resultFrom(const QScriptValue& value, const OMC::JavascriptValue& self)
{
    if (!value.isObject())
        return value.toVariant();
    return OMC::toVariant(new OMC::JavascriptObject(OMC::heldValue(value), self));
}

QVariant plainFrom(const QScriptValue& value)
{
    return plainAt(value, 0);
}

QVariant variantIn(const QScriptValue& value)
{
    return value.isVariant() ? value.toVariant() : QVariant();
}

} // namespace brindle::javascript
