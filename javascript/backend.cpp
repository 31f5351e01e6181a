#include "core/bridges/javascriptbackend.h"

#include "core/frame/container.h"
#include "core/frame/found.h"
#include "core/host/plug_scriptinginterface.h"
#include "core/host/sc_session.h"
#include "javascript/arrays.h"
#include "javascript/compare.h"
#include "javascript/conversion.h"
#include "javascript/enginerun.h"
#include "javascript/globalobject.h"
#include "qtscript/qscriptvalueiterator.h"

#include <algorithm>

namespace brindle::javascript {

namespace {

using OMC::JavascriptValue;

QScriptEngine& hostEngine()
{
    return OMC::found(OMC::found(PLUG_Services::getScriptingInterface()).engine());
}

QString typeOf(const QScriptValue& value)
{
    if (!value.isValid())
        return QStringLiteral("UNKNOWN");
    const std::pair<bool, const char*> words[] = {{value.isNull() || value.isUndefined(), "NULL"},
                                                  {value.isFunction(), "FUNCTION"},
                                                  {value.isArray(), "ARRAY"},
                                                  {value.isVariant(), "VARIANT"},
                                                  {value.isString(), "STRING"},
                                                  {value.isBool(), "BOOL"},
                                                  {value.isNumber(), "NUMBER"},
                                                  {value.isObject(), "OBJECT"},
                                                  {true, "UNKNOWN"}};
    return QString::fromLatin1(
        std::find_if(std::begin(words), std::end(words), [](const auto& word) { return word.first; })->second);
}

bool isNothing(const QScriptValue& value)
{
    return !value.isValid() || value.isNull() || value.isUndefined();
}

void setLength(QScriptValue& array, int length)
{
    array.setProperty(lengthName(), QScriptValue(length));
}

/// An operation on a value: nothing happens where it is invalid, and `otherwise` is the result. What its getters and
/// setters throw comes out.
template <typename Result, typename Call>
Result on(const JavascriptValue& held, Result otherwise, const Call& call)
{
    QScriptEngine* engine = held ? held->engine() : nullptr;
    if (!engine)
        return otherwise;
    EngineRun run(*engine);
    QScriptValue value = *held;
    Result result = call(*engine, value);
    run.report();
    return result;
}

template <typename Call>
void change(const JavascriptValue& held, const Call& call)
{
    on(held, false, [&](QScriptEngine& engine, QScriptValue& value) {
        call(engine, value);
        return true;
    });
}

/// The index from the front of what may be counted from the end; below 0 for one that isn't there.
int indexIn(const QScriptValue& array, int index)
{
    const int size = lengthOf(array);
    const int fromFront = index < 0 ? index + size : index;
    return fromFront < size ? fromFront : -1;
}

QVariant take(QScriptValue& array, int index, const JavascriptValue& global)
{
    const int size = lengthOf(array);
    const QVariant taken = resultFrom(array.property(static_cast<quint32>(index)), global);
    for (int i = index; i + 1 < size; ++i)
        array.setProperty(static_cast<quint32>(i), array.property(static_cast<quint32>(i + 1)));
    array.setProperty(static_cast<quint32>(size - 1), QScriptValue());
    setLength(array, size - 1);
    return taken;
}

/// The index of the first item that is equal to the value, or -1.
int indexOf(QScriptEngine& engine, const QScriptValue& array, const QVariant& value)
{
    const QScriptValue searched = toScript(engine, value);
    const int size = lengthOf(array);
    for (int i = 0; i < size; ++i) {
        if (areEqual(array.property(static_cast<quint32>(i)), searched))
            return i;
    }
    return -1;
}

class Backend final : public OMC::JavascriptBackend {
public:
    QVariant evaluate(const QString& code) override
    {
        QScriptEngine& engine = hostEngine();
        EngineRun run(engine);
        const QScriptValue result = engine.evaluate(code, QString(), 1);
        run.report(result);
        return resultFrom(result, OMC::heldValue(result));
    }

    QVariant callFunction(const QString& script, const QString& fileName, const QString& function,
                          const QVariant& arguments, const QVariant& self) override
    {
        PLUG_ScriptingInterface& host = OMC::found(PLUG_Services::getScriptingInterface());
        QScriptEngine& engine = hostEngine();
        EngineRun run(engine);
        const QScriptValueList values = argumentsFrom(engine, arguments);
        const QScriptValue result = host.run(script, fileName, function, values, toScript(engine, self));
        run.report(result);
        return resultFrom(result, nullptr);
    }

    QStringList functionsOf(const QString& script, const QString& fileName) override
    {
        JavascriptValue held;
        load(script, fileName, held);
        return on(held, QStringList(), [](QScriptEngine&, QScriptValue& global) {
            QStringList names;
            for (QScriptValueIterator it(global); it.hasNext();) {
                it.next();
                if (it.value().isFunction())
                    names.append(it.name());
            }
            return names;
        });
    }

    void load(const QString& script, const QString& fileName, JavascriptValue& value) override
    {
        PLUG_ScriptingInterface& host = OMC::found(PLUG_Services::getScriptingInterface());
        QScriptEngine& engine = hostEngine();
        EngineRun run(engine);
        const QScriptValue global = engine.newObject();
        value = OMC::heldValue(global);
        host.runInto(global, script, fileName);
        run.report(global);
    }

    bool isFunction(const JavascriptValue& value) override { return value && value->isFunction(); }
    bool isArray(const JavascriptValue& value) override { return value && value->isArray(); }
    QString type(const JavascriptValue& value) override { return typeOf(value ? *value : QScriptValue()); }

    QString text(const JavascriptValue& value) override
    {
        return on(value, QString(), [](QScriptEngine&, QScriptValue& object) {
            QStringList entries;
            for (QScriptValueIterator it(object); it.hasNext();) {
                it.next();
                const QString text = it.value().toString();
                entries.append(u'\'' + it.name() + QStringLiteral("' : ") +
                               (text.isEmpty() ? typeOf(it.value()) : text));
            }
            return entries.join(QStringLiteral(", "));
        });
    }

    QVariant call(const JavascriptValue& function, const JavascriptValue& global, const QVariant& arguments,
                  const QVariant& self) override
    {
        QScriptEngine& engine = hostEngine();
        EngineRun run(engine);
        const QScriptValue object = toScript(engine, self);
        const QScriptValueList values = argumentsFrom(engine, arguments);
        QScriptValue result;
        {
            const GlobalObject scope(engine, global ? *global : QScriptValue());
            result = QScriptValue(*function).call(object, values);
        }
        run.report(result);
        return resultFrom(result, global);
    }

    std::size_t size(const JavascriptValue& value) override
    {
        return on(value, std::size_t(0), [](QScriptEngine&, QScriptValue& object) {
            if (object.isArray())
                return static_cast<std::size_t>(object.property(lengthName()).toNumber());
            return static_cast<std::size_t>(QScriptValueIterator::namesOf(object).size());
        });
    }

    QStringList names(const JavascriptValue& value) override
    {
        return on(value, QStringList(),
                  [](QScriptEngine&, QScriptValue& object) { return QScriptValueIterator::namesOf(object); });
    }

    QVariant get(const JavascriptValue& value, const JavascriptValue& global, const QString& name) override
    {
        return on(value, QVariant(), [&](QScriptEngine&, QScriptValue& object) {
            const QScriptValue property = object.property(name);
            return isNothing(property) ? QVariant() : resultFrom(property, global);
        });
    }

    QVariant get(const JavascriptValue& value, const JavascriptValue& global, int index) override
    {
        QVariant item = on(value, QVariant(), [&](QScriptEngine&, QScriptValue& array) {
            const int place = array.isArray() ? indexIn(array, index) : -1;
            const QScriptValue found = place < 0 ? QScriptValue() : array.property(static_cast<quint32>(place));
            return isNothing(found) ? QVariant() : resultFrom(found, global);
        });
        if (!item.isValid())
            OMC::throwNoItem();
        return item;
    }

    QVariant item(const JavascriptValue& value, const JavascriptValue& global, quint32 index) override
    {
        return on(value, QVariant(), [&](QScriptEngine&, QScriptValue& array) {
            if (index >= static_cast<quint32>(lengthOf(array)))
                OMC::throwNoItem();
            return resultFrom(array.property(index), global);
        });
    }

    void set(const JavascriptValue& value, const QString& name, const QVariant& given) override
    {
        const bool isSet = on(value, false, [&](QScriptEngine& engine, QScriptValue& object) {
            if (object.isArray() || !object.isObject())
                return false;
            object.setProperty(name, toScript(engine, given));
            return true;
        });
        if (!isSet)
            OMC::throwNoSet();
    }

    void set(const JavascriptValue& value, int index, const QVariant& given) override
    {
        const bool isSet = on(value, false, [&](QScriptEngine& engine, QScriptValue& array) {
            const int place = array.isArray() ? indexIn(array, index) : -1;
            if (place >= 0)
                array.setProperty(static_cast<quint32>(place), toScript(engine, given));
            return place >= 0;
        });
        if (!isSet)
            OMC::throwNoSet();
    }

    QList<QVariant> list(const JavascriptValue& value, const JavascriptValue& global) override
    {
        return on(value, QList<QVariant>(), [&](QScriptEngine&, QScriptValue& object) {
            QList<QVariant> values;
            if (object.isArray()) {
                const int size = lengthOf(object);
                values.reserve(size);
                for (int i = 0; i < size; ++i)
                    values.append(resultFrom(object.property(static_cast<quint32>(i)), global));
                return values;
            }
            for (QScriptValueIterator it(object); it.hasNext();) {
                it.next();
                if (const QScriptValue property = it.value(); property.isValid())
                    values.append(resultFrom(property, global));
            }
            return values;
        });
    }

    bool contains(const JavascriptValue& value, const QVariant& searched) override
    {
        return on(value, false, [&](QScriptEngine& engine, QScriptValue& object) {
            if (object.isArray())
                return indexOf(engine, object, searched) >= 0;
            return !isNothing(object.property(searched.toString()));
        });
    }

    void append(const JavascriptValue& value, const QVariant& given) override
    {
        change(value, [&](QScriptEngine& engine, QScriptValue& array) {
            if (array.isArray())
                appendTo(array, toScript(engine, given));
        });
    }

    void insert(const JavascriptValue& value, int index, const QVariant& given) override
    {
        change(value, [&](QScriptEngine& engine, QScriptValue& array) {
            if (!array.isArray())
                return;
            const QScriptValue inserted = toScript(engine, given);
            const int size = lengthOf(array);
            if (size == 0 || index > size) {
                appendTo(array, inserted);
                return;
            }
            const int place = index < 0 ? std::max(0, index + size) : index;
            setLength(array, size + 1);
            for (int i = size; i > place; --i)
                array.setProperty(static_cast<quint32>(i), array.property(static_cast<quint32>(i - 1)));
            array.setProperty(static_cast<quint32>(place), inserted);
        });
    }

    QVariant pop(const JavascriptValue& value, const JavascriptValue& global, int index) override
    {
        return on(value, QVariant(), [&](QScriptEngine&, QScriptValue& array) {
            const int place = array.isArray() ? indexIn(array, index) : -1;
            return place < 0 ? QVariant() : take(array, place, global);
        });
    }

    void remove(const JavascriptValue& value, const QVariant& given) override
    {
        change(value, [&](QScriptEngine& engine, QScriptValue& object) {
            if (object.isArray()) {
                if (const int place = indexOf(engine, object, given); place >= 0)
                    take(object, place, nullptr);
            } else if (const QString name = given.toString(); !isNothing(object.property(name))) {
                object.setProperty(name, QScriptValue());
            }
        });
    }

    void clear(const JavascriptValue& value) override
    {
        change(value, [](QScriptEngine&, QScriptValue& object) {
            for (QScriptValueIterator it(object); it.hasNext();) {
                it.next();
                if (object.isArray() && it.name() == lengthName())
                    it.setValue(QScriptValue(0));
                else
                    it.remove();
            }
        });
    }

private:
    static void appendTo(QScriptValue& array, const QScriptValue& value)
    {
        const int size = lengthOf(array);
        setLength(array, size + 1);
        array.setProperty(static_cast<quint32>(size), value);
    }
};

} // namespace

} // namespace brindle::javascript

/// The object model looks for this function when Javascript is first used.
extern "C" __attribute__((visibility("default"))) OMC::JavascriptBackend* brindleJavascriptBackend()
{
    static auto* only = new brindle::javascript::Backend;
    return only;
}
