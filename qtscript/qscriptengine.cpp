#include "qtscript/qscriptengine.h"

#include "qtscript/evalcalls.h"
#include "qtscript/helpertext.h"
#include "qtscript/patterns.h"
#include "qtscript/qscriptengine_p.h"
#include "qtscript/scriptnames.h"

#include <QJSManagedValue>
#include <QMetaType>
#include <QUrl>

#include <utility>

namespace {

/// Runs inside runs: each has frames of the script engine, and of what a program puts between them, on the stack.
constexpr int deepestRun = 100;

/// As QJSEngine names the file of a text.
QString urlOf(const QString& fileName)
{
    if (!fileName.startsWith(u':'))
        return QUrl::fromLocalFile(fileName).toString();
    QUrl url;
    url.setPath(fileName.mid(1));
    url.setScheme(QStringLiteral("qrc"));
    return url.toString();
}

/// Whether a text begins with the directive that makes it strict.
bool isStrict(const QString& program)
{
    const QStringView start = QStringView(program).trimmed();
    return start.startsWith(u"'use strict'") || start.startsWith(u"\"use strict\"");
}

} // namespace

QScriptEngine::Private::Run::Run(Private& engine) : m_engine(engine), m_isAllowed(engine.depth < deepestRun)
{
    if (engine.depth == 0) {
        engine.self.clearExceptions();
        engine.js.setInterrupted(false);
        engine.aborted = false;
    }
    ++engine.depth;
    if (!m_isAllowed)
        engine.thrown(engine.js.newErrorObject(
            QJSValue::RangeError, QStringLiteral("More than %1 calls from the program into scripts").arg(deepestRun)));
}

QScriptEngine::Private::Run::~Run()
{
    if (--m_engine.depth == 0)
        m_engine.js.setInterrupted(false);
}

QJSValue ScriptInvoker::invoke(const QVariant& function, const QJSValue& self, const QJSValue& arguments)
{
    if (function.metaType() != QMetaType::fromType<ScriptFunction>())
        return {};
    // It may be let go of while it runs.
    const auto called = static_cast<const ScriptFunction*>(function.constData())->function;
    QScriptEngine::Private& engine = *m_engine.d;
    QScriptValueList values;
    const quint32 count = arguments.property(QStringLiteral("length")).toUInt();
    values.reserve(count);
    for (quint32 i = 0; i < count; ++i)
        values.append(engine.wrap(arguments.property(i)));
    const QJSValue result = engine.unwrap((*called)(engine.wrap(self), values));
    goOnThrowing();
    return result;
}

QString ScriptInvoker::withCheckedEval(const QString& program) const
{
    return evalcalls::checked(program);
}

bool ScriptInvoker::isTooDeep(const QString& pattern) const
{
    return patterns::isTooDeep(pattern);
}

QString ScriptInvoker::tooDeep() const
{
    return patterns::tooDeep();
}

bool ScriptInvoker::hasTooDeepLiteral(const QString& program) const
{
    return patterns::hasTooDeepLiteral(program);
}

QJSValue ScriptInvoker::read(int getter, const QVariant& self)
{
    const QJSValue result = m_engine.d->unwrap(m_getters[static_cast<std::size_t>(getter)](self));
    goOnThrowing();
    return result;
}

int ScriptInvoker::addGetter(QScriptEngine::Getter getter)
{
    m_getters.push_back(std::move(getter));
    return static_cast<int>(m_getters.size()) - 1;
}

/// Throws in the script the exception that C++ has left behind.
void ScriptInvoker::goOnThrowing()
{
    QScriptEngine::Private& engine = *m_engine.d;
    if (std::exchange(engine.hasException, false))
        engine.js.throwError(std::exchange(engine.exception, QJSValue()));
}

QScriptEngine::Private::Private(QScriptEngine& engine) : self(engine), invoker(engine)
{
    application.end();
    stackSize.end();
    QJSEngine::setObjectOwnership(&invoker, QJSEngine::CppOwnership);
    ownGlobal = js.globalObject();
    const QJSValue helpers = js.evaluate(helperText(), helperFile()).call({ownGlobal, js.newQObject(&invoker)});
    scopeOf = helpers.property(QStringLiteral("scopeOf"));
    definitionOn = helpers.property(QStringLiteral("definitionOn"));
    defineProperty = helpers.property(QStringLiteral("defineProperty"));
    ownNames = helpers.property(QStringLiteral("ownNames"));
    functionOf = helpers.property(QStringLiteral("functionOf"));
    defineAccessor = helpers.property(QStringLiteral("defineAccessor"));
    textOfSymbol = helpers.property(QStringLiteral("textOfSymbol"));
}

QJSValue QScriptEngine::Private::unwrap(const QScriptValue& value)
{
    if (!value.isValid() || (value.m_engine && value.m_engine != &self))
        return {};
    // A text of no engine is one that Qt's managed values can't take as an item of an array.
    if (!value.m_engine && value.m_value.isString())
        return js.toScriptValue(value.m_value.toString());
    return value.m_value;
}

QJSValue QScriptEngine::Private::thisFor(const QScriptValue& value)
{
    const QJSValue object = unwrap(value);
    return object.isObject() ? object : unwrap(self.globalObject());
}

/// An exception of C++, as that of memory which runs out, tears the engine's own calls down in the middle.
template <typename Call>
QJSValue QScriptEngine::Private::run(const Call& call)
{
    try {
        return call();
    } catch (...) {
        alive.reset();
        throw;
    }
}

QScriptValue QScriptEngine::Private::evaluate(const QString& program, const QString& fileName, int lineNumber)
{
    if (patterns::hasTooDeepLiteral(program))
        return thrown(js.newErrorObject(QJSValue::RangeError, patterns::tooDeep()));
    QStringList stack;
    const QJSValue result = run([&] { return js.evaluate(evalcalls::checked(program), fileName, lineNumber, &stack); });
    return stack.isEmpty() && !result.isError() ? wrap(result) : thrown(result, stack);
}

QScriptValue QScriptEngine::Private::runInto(const QJSValue& object, const QString& program, const QString& fileName,
                                             int lineNumber)
{
    if (patterns::hasTooDeepLiteral(program))
        return evaluate(program, fileName, lineNumber); // Which refuses it.
    const ScriptNames names(program, fileName, lineNumber);
    if (names.error())
        return evaluate(program, fileName, lineNumber); // Which fails in the same way, in this engine's words.

    // The text stands inside `with` on the line that it begins with, so that its lines stay what they are. Its
    // variables are made properties first: a script that throws in the middle shows what it had. The function that does
    // so stands last, where the language finds it all the same.
    const auto own = [&program](QString name) {
        while (program.contains(name))
            name += u'_';
        return name;
    };
    const QString scope = own(QStringLiteral("$scope"));
    const QString define = own(QStringLiteral("$define"));
    const QString start = own(QStringLiteral("$start"));
    QString definitions;
    for (const QString& name : names.declared())
        definitions += QStringLiteral("%1('%2',()=>%2,v=>{%2=v});").arg(define, name);
    const QString directive = isStrict(program) ? QStringLiteral("'use strict';") : QString();
    const QString head = QStringLiteral("(function(%1){with(%1){return function(%2){%3%4();");
    const QString tail = QStringLiteral("\n;function %1(){%2}}}})");
    const QString text =
        head.arg(scope, define, directive, start) + evalcalls::checked(program) + tail.arg(start, definitions);
    QStringList stack;
    const QJSValue outer = js.evaluate(text, fileName, lineNumber, &stack);
    if (!outer.isCallable())
        return thrown(outer, stack);
    const QJSValue inner = outer.call({scopeOf.call({object})});
    const QScriptValue result = call(inner, object, {definitionOn.call({object})});
    return hasException ? result : wrap(QJSValue());
}

QScriptValue QScriptEngine::Private::call(const QJSValue& function, const QJSValue& object,
                                          const QJSValueList& arguments)
{
    // A managed value, because a plain one doesn't tell a thrown Error from one that is returned.
    const QJSValue result = run([&] { return QJSManagedValue(function, &js).callWithInstance(object, arguments); });
    if (js.hasError())
        return thrown(js.catchError());
    if (js.isInterrupted())
        return thrown(js.newErrorObject(QJSValue::GenericError, QStringLiteral("Interrupted")));
    return wrap(result);
}

void QScriptEngine::Private::keepThrown()
{
    if (js.hasError())
        thrown(js.catchError());
}

QScriptValue QScriptEngine::Private::thrown(const QJSValue& value, const QStringList& stack)
{
    hasException = true;
    exception = value;
    exceptionLine = -1;
    backtrace.clear();
    std::vector<Place> places = placesOf(value);
    if (!value.isError()) {
        for (const QString& entry : stack) { // "function:line:column:file", whose file may have colons
            const QStringList parts = entry.split(u':');
            if (parts.size() >= 4)
                places.push_back({parts[0], parts.mid(3).join(u':'), parts[1].toInt()});
        }
    }
    if (!places.empty())
        exceptionLine = places.front().line;
    // A recursion without end is one line.
    for (std::size_t i = 0, count = 0; i < places.size(); i += count) {
        const QString line = textOf(places[i]);
        for (count = 1; i + count < places.size() && textOf(places[i + count]) == line;)
            ++count;
        backtrace.append(count == 1 ? line : QStringLiteral("%1 (%2 times)").arg(line).arg(count));
    }
    return wrap(value);
}

std::vector<QScriptEngine::Private::Place> QScriptEngine::Private::placesOf(const QJSValue& error)
{
    std::vector<Place> places;
    if (!error.isError())
        return places;
    const QString stack = error.property(QStringLiteral("stack")).toString();
    for (const QString& line : stack.split(u'\n', Qt::SkipEmptyParts)) { // "function@file:line"
        const qsizetype at = line.indexOf(u'@');
        const qsizetype colon = line.lastIndexOf(u':');
        const QString file = line.mid(at + 1, colon - at - 1);
        if (at >= 0 && colon > at && file != urlOf(helperFile()))
            places.push_back({line.left(at), file, line.mid(colon + 1).toInt()});
    }
    return places;
}

QString QScriptEngine::Private::textOf(const Place& place) const
{
    const bool isTop = place.function.isEmpty() || place.function == u"%entry";
    return QStringLiteral("%1()@%2:%3")
        .arg(isTop ? QStringLiteral("<global>") : place.function, fileNameOf(place.url), QString::number(place.line));
}

QScriptEngine::QScriptEngine() : d(new Private(*this)) {}

QScriptEngine::~QScriptEngine() = default;

QScriptValue QScriptEngine::evaluate(const QString& program, const QString& fileName, int lineNumber)
{
    const Private::Run run(*d);
    if (!run)
        return uncaughtException();
    if (!fileName.isEmpty())
        d->fileNames.insert(urlOf(fileName), fileName);
    const QJSValue object = d->unwrap(d->global);
    return object.isObject() ? d->runInto(object, program, fileName, lineNumber)
                             : d->evaluate(program, fileName, lineNumber);
}

bool QScriptEngine::isBroken() const
{
    return !d->alive;
}

bool QScriptEngine::hasUncaughtException() const
{
    return d->hasException;
}

QScriptValue QScriptEngine::uncaughtException() const
{
    return d->hasException ? d->wrap(d->exception) : QScriptValue();
}

int QScriptEngine::uncaughtExceptionLineNumber() const
{
    return d->hasException ? d->exceptionLine : -1;
}

QStringList QScriptEngine::uncaughtExceptionBacktrace() const
{
    return d->hasException ? d->backtrace : QStringList();
}

void QScriptEngine::clearExceptions()
{
    d->hasException = false;
    d->exception = QJSValue();
}

void QScriptEngine::abortEvaluation()
{
    d->aborted = true;
    d->js.setInterrupted(true);
}

bool QScriptEngine::wasAborted() const
{
    return d->aborted;
}

void QScriptEngine::throwError(const QString& message)
{
    throwValue(newError(message));
}

void QScriptEngine::throwValue(const QScriptValue& value)
{
    const QJSValue exception = d->unwrap(value);
    if (isEvaluating())
        d->js.throwError(exception);
    else
        d->thrown(exception);
}

bool QScriptEngine::isEvaluating() const
{
    return d->depth > 0;
}

QScriptValue QScriptEngine::globalObject() const
{
    return d->global.isValid() ? d->global : d->wrap(d->ownGlobal);
}

void QScriptEngine::setGlobalObject(const QScriptValue& object)
{
    const QJSValue given = d->unwrap(object);
    const bool isOwn = !given.isObject() || given.strictlyEquals(d->ownGlobal);
    d->global = isOwn ? QScriptValue() : object;
}

QScriptValue QScriptEngine::exchangeGlobalObject(const QScriptValue& object)
{
    QScriptValue before = d->global;
    if (before.isValid() || object.isValid())
        setGlobalObject(object);
    return before;
}

QScriptValue QScriptEngine::nullValue()
{
    return d->wrap(QJSValue(QJSValue::NullValue));
}

QScriptValue QScriptEngine::undefinedValue()
{
    return d->wrap(QJSValue());
}

QScriptValue QScriptEngine::newObject()
{
    return d->wrap(d->js.newObject());
}

QScriptValue QScriptEngine::newArray(uint length)
{
    return d->wrap(d->js.newArray(length));
}

QScriptValue QScriptEngine::newQObject(QObject* object, ValueOwnership ownership)
{
    if (!object)
        return nullValue();
    // Ahead of the first wrapping, which else decides.
    QJSEngine::setObjectOwnership(object, ownership == ScriptOwnership ? QJSEngine::JavaScriptOwnership
                                                                       : QJSEngine::CppOwnership);
    return d->wrap(d->js.newQObject(object));
}

QScriptValue QScriptEngine::create(int metaType, const void* data)
{
    return d->wrap(d->js.toScriptValue(QVariant(QMetaType(metaType), data)));
}

QScriptValue QScriptEngine::newFunction(Function function)
{
    const ScriptFunction kept{std::make_shared<Function>(std::move(function))};
    return d->wrap(d->functionOf.call({d->js.toScriptValue(QVariant::fromValue(kept))}));
}

void QScriptEngine::defineAccessor(const QScriptValue& object, const QString& name, Getter getter,
                                   const QScriptValue& setter)
{
    const int index = d->invoker.addGetter(std::move(getter));
    d->defineAccessor.call({d->unwrap(object), name, index, d->unwrap(setter)});
}

QScriptValue QScriptEngine::newError(const QString& message)
{
    return d->wrap(d->js.newErrorObject(QJSValue::GenericError, message));
}

void QScriptEngine::collectGarbage()
{
    d->js.collectGarbage();
}
