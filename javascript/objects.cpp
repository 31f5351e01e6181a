#include "javascript/objects.h"

#include "core/frame/listobj.h"
#include "core/frame/listqvar.h"
#include "core/frame/mapobj.h"
#include "javascript/conversion.h"
#include "javascript/functions.h"
#include "javascript/globalobject.h"
#include "javascript/members.h"

#include <QHash>
#include <QMetaMethod>
#include <QMetaProperty>

namespace brindle::javascript {

/// An object of the object model as a script holds it.
struct ShownObject {
    std::shared_ptr<OMC::BaseObject> object;
};

} // namespace brindle::javascript

Q_DECLARE_METATYPE(brindle::javascript::ShownObject)

namespace brindle::javascript {

namespace {

using OMC::BaseObject;

/// The object that `this` shows; throws where it shows none.
BaseObject& objectIn(const QVariant& opaque)
{
    if (opaque.metaType() != QMetaType::fromType<ShownObject>())
        BaseObject::throwInvalid();
    return *static_cast<const ShownObject*>(opaque.constData())->object;
}

BaseObject& objectIn(const QScriptValue& self)
{
    // The script's value holds it for as long as the call lasts.
    return objectIn(variantIn(self));
}

template <typename T>
T* objectAs(const QScriptValue& self)
{
    return dynamic_cast<T*>(&objectIn(self));
}

/// Calls an invokable operation with as many of the arguments as it takes.
QVariant invoke(BaseObject& object, const QMetaMethod& method, const QScriptValueList& arguments)
{
    constexpr int most = 10;
    std::array<QVariant, most> values;
    std::array<QGenericArgument, most> slots;
    const int count = std::min(method.parameterCount(), most);
    for (int i = 0; i < count; ++i) {
        const auto index = static_cast<std::size_t>(i);
        const QMetaType type = method.parameterMetaType(i);
        values[index] = plainFrom(arguments.value(i));
        if (type.id() != QMetaType::QVariant && values[index].metaType() != type && !values[index].convert(type))
            BaseObject::throwInvalidArgument(static_cast<unsigned int>(i));
        const void* data =
            type.id() == QMetaType::QVariant ? static_cast<const void*>(&values[index]) : values[index].constData();
        slots[index] = QGenericArgument(type.name(), data);
    }
    const QMetaType given = method.returnMetaType();
    const bool isVariant = given.id() == QMetaType::QVariant;
    QVariant result = isVariant || given.id() == QMetaType::Void ? QVariant() : QVariant(given);
    void* place = isVariant ? static_cast<void*>(&result) : result.data();
    const QGenericReturnArgument gives =
        given.id() == QMetaType::Void ? QGenericReturnArgument() : QGenericReturnArgument(given.name(), place);
    if (!method.invoke(&object, Qt::DirectConnection, gives, slots[0], slots[1], slots[2], slots[3], slots[4], slots[5],
                       slots[6], slots[7], slots[8], slots[9]))
        BaseObject::throwUnexpected();
    return result;
}

/// Builds the object in which scripts look up what a class has.
class Prototype {
public:
    explicit Prototype(QScriptEngine& engine) : m_engine(engine), m_object(engine.newObject()) {}

    void addClass(const QMetaObject& metaObject)
    {
        for (int i = QObject::staticMetaObject.propertyCount(); i < metaObject.propertyCount(); ++i)
            addProperty(metaObject.property(i));
        for (int i = QObject::staticMetaObject.methodCount(); i < metaObject.methodCount(); ++i)
            addMethod(metaObject.method(i));
        for (const Member* member = membersOf(metaObject); member && member->name; ++member)
            addMember(*member);
        add("toString", [](const QScriptValue& self, const QScriptValueList&) -> QVariant {
            return QString::fromStdString(objectIn(self).__str__());
        });
    }

    void addList(const BaseObject& list)
    {
        if (dynamic_cast<const OMC::ListObj*>(&list))
            addListOf<OMC::ListObj>();
        else if (dynamic_cast<const OMC::ListQVar*>(&list))
            addListOf<OMC::ListQVar>();
        else if (dynamic_cast<const OMC::MapObj*>(&list))
            addListOf<OMC::MapObj>();
    }

    QScriptValue object() const { return m_object; }

private:
    template <typename Call>
    QScriptValue function(Call call)
    {
        QScriptEngine& engine = m_engine;
        return engine.newFunction([&engine, call](const QScriptValue& self, const QScriptValueList& arguments) {
            return guarded(engine, [&] { return toScript(engine, call(self, arguments)); });
        });
    }

    template <typename Call>
    void add(const QString& name, Call call)
    {
        m_object.setProperty(name, function(call), QScriptValue::SkipInEnumeration);
    }

    template <typename Read>
    void addReader(const QString& name, Read read, const QScriptValue& setter)
    {
        QScriptEngine& engine = m_engine;
        m_engine.defineAccessor(
            m_object, name,
            [&engine, read](const QVariant& self) {
                return guarded(engine, [&] { return toScript(engine, read(objectIn(self))); });
            },
            setter);
    }

    template <typename Read, typename Write>
    void addAccessor(const char* name, Read read, Write write)
    {
        const auto writer = [write](const QScriptValue& self, const QScriptValueList& arguments) -> QVariant {
            write(objectIn(self), plainFrom(arguments.value(0)));
            return {};
        };
        addReader(QString::fromLatin1(name), read, function(writer));
    }

    void addProperty(const QMetaProperty& property)
    {
        addAccessor(
            property.name(), [property](BaseObject& object) { return object.readProperty(property); },
            [property](BaseObject& object, const QVariant& value) { object.writeProperty(property, value); });
    }

    void addMember(const Member& member) { addAccessor(member.name, member.read, member.write); }

    void addMethod(const QMetaMethod& method)
    {
        if (method.methodType() == QMetaMethod::Method && method.access() == QMetaMethod::Public)
            add(QString::fromLatin1(method.name()),
                [method](const QScriptValue& self, const QScriptValueList& arguments) {
                    return invoke(objectIn(self), method, arguments);
                });
    }

    template <typename List>
    void addListOf()
    {
        const auto list = [](const QScriptValue& self) -> List& {
            auto* found = objectAs<List>(self);
            if (!found)
                BaseObject::throwInvalid();
            return *found;
        };
        add(QStringLiteral("get"), [list](const QScriptValue& self, const QScriptValueList& arguments) -> QVariant {
            const QScriptValue key = arguments.value(0);
            if constexpr (!std::is_same_v<List, OMC::MapObj>) {
                if (key.isNumber())
                    return variantOf(list(self).get(key.toInt32()));
            }
            return variantOf(list(self).get(key.toString()));
        });
        add(QStringLiteral("list"), [list](const QScriptValue& self, const QScriptValueList&) -> QVariant {
            return QVariant::fromValue(list(self).list());
        });
        addReader(
            QStringLiteral("length"),
            [](BaseObject& object) -> QVariant {
                return static_cast<qlonglong>(dynamic_cast<const List&>(object).size());
            },
            QScriptValue());
        if constexpr (requires(const List& l, const QVariant& v) { l.contains(v); })
            add(QStringLiteral("contains"), [list](const QScriptValue& self, const QScriptValueList& arguments) {
                return QVariant(list(self).contains(plainFrom(arguments.value(0))));
            });
        const GlobalObject own(m_engine, QScriptValue());
        m_engine
            .evaluate(QStringLiteral("(function(p) { p[Symbol.iterator] = { iterator() { return "
                                     "this.list()[Symbol.iterator]() } }.iterator })"))
            .call({}, {m_object});
    }

    static QVariant variantOf(OMC::Obj&& handle) { return OMC::toVariant(std::move(handle)); }
    static QVariant variantOf(QVariant&& value) { return std::move(value); }

    QScriptEngine& m_engine;
    QScriptValue m_object;
};

/// The prototypes of the classes that scripts have met. Those of an engine that has gone are invalid.
QScriptValue prototypeFor(QScriptEngine& engine, const BaseObject& object)
{
    static auto* known = new QHash<const QMetaObject*, QScriptValue>;
    QScriptValue& prototype = (*known)[object.metaObject()];
    if (prototype.engine() != &engine) {
        Prototype made(engine);
        made.addClass(*object.metaObject());
        made.addList(object);
        prototype = made.object();
    }
    return prototype;
}

} // namespace

QScriptValue shownObject(QScriptEngine& engine, const OMC::BaseObject* object)
{
    if (!object)
        return engine.nullValue();
    BaseObject* copy = object->copy();
    // The copy of one that there is once for all is itself, and stays its owner's.
    const ShownObject shown{copy == object ? std::shared_ptr<BaseObject>(copy, [](BaseObject*) {})
                                           : std::shared_ptr<BaseObject>(copy)};
    QScriptValue value = engine.create(qMetaTypeId<ShownObject>(), &shown);
    value.setPrototype(prototypeFor(engine, *object));
    return value;
}

QVariant plainVariant(const QVariant& opaque)
{
    if (opaque.metaType() != QMetaType::fromType<ShownObject>())
        return opaque;
    return OMC::toVariant(static_cast<const ShownObject*>(opaque.constData())->object->copy());
}

} // namespace brindle::javascript
