#include "javascript/functions.h"

#include "core/bridges/pythonfunction.h"
#include "javascript/arrays.h"
#include "javascript/conversion.h"
#include "javascript/released.h"

#include <QMetaType>

namespace brindle::javascript {

namespace {

const QString causeName = QStringLiteral("cause");

} // namespace

/// An exception as an error of a script keeps it.
struct Cause {
    std::shared_ptr<const std::exception_ptr> exception;
};

} // namespace brindle::javascript

Q_DECLARE_METATYPE(brindle::javascript::Cause)

namespace brindle::javascript {

namespace {

/// Throws the exception in flight in the script.
void throwInScript(QScriptEngine& engine)
{
    const std::exception_ptr exception = std::current_exception();
    QString text;
    try {
        throw;
    } catch (const std::exception& known) {
        text = QString::fromUtf8(known.what());
    } catch (...) {
        text = OMC::PythonFunction::tr("An unexpected error has occurred.");
    }
    const Cause cause{endingLater(std::make_unique<const std::exception_ptr>(exception))};
    QScriptValue error = engine.newError(text);
    error.setProperty(causeName, engine.create(qMetaTypeId<Cause>(), &cause), QScriptValue::SkipInEnumeration);
    engine.throwValue(error);
}

QScriptValue callFunction(QScriptEngine& engine, const OMC::PythonFunction& function, const QScriptValueList& arguments)
{
    try {
        std::vector<QVariant> values;
        values.reserve(static_cast<std::size_t>(arguments.size()));
        for (const QScriptValue& argument : arguments)
            values.push_back(plainFrom(argument));
        return toScript(engine, function.call(values));
    } catch (...) {
        throwInScript(engine);
    }
    return {};
}

} // namespace

QScriptValue functionFor(QScriptEngine& engine, const OMC::PythonFunction& function)
{
    const auto held = endingLater(std::make_unique<OMC::PythonFunction>(function));
    QScriptValue script = engine.newFunction([&engine, held](const QScriptValue&, const QScriptValueList& arguments) {
        return callFunction(engine, *held, arguments);
    });
    // `call` takes the arguments as a list, or none; with anything else it is the language's own, whose first is
    // `this`.
    QScriptValue call = engine.newFunction([&engine, held](const QScriptValue&, const QScriptValueList& arguments) {
        const bool isList = arguments.size() == 1 && arguments.first().isArray();
        return callFunction(engine, *held, isList ? itemsOf(arguments.first()) : arguments.mid(1));
    });
    script.setProperty(QStringLiteral("call"), call, QScriptValue::SkipInEnumeration);
    return script;
}

std::exception_ptr causeOf(const QScriptValue& error)
{
    if (!error.isError())
        return nullptr;
    const QVariant cause = variantIn(error.property(causeName));
    return cause.metaType() == QMetaType::fromType<Cause>() ? *cause.value<Cause>().exception : nullptr;
}

} // namespace brindle::javascript
