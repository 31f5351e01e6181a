#pragma once

#include "qtscript/export.h"
#include "qtscript/qscriptvalue.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

/// Runs scripts: the interface of Qt Script on Qt's own engine of today, QJSEngine.
///
/// One thread at a time uses it, with a stack of 8 MiB. It needs no QCoreApplication: where there is none, one is made
/// for the moments in which Qt asks for it, and is gone again afterwards. Names of files come back as they were given.
/// An exception that nothing caught is kept until `clearExceptions` or the next run.
///
/// A script may run into a global object of its own (`setGlobalObject`): it finds the language's objects there beside
/// that object's properties; its variables and functions become properties of that object, with which they stay one;
/// its functions see them whenever they are called. Two scripts with two such objects see nothing of each other. Not
/// so in such a script: `let`, `const` and `class` at the top level give no properties, as the language says; a name
/// that is assigned without a declaration becomes a property also in strict mode; the run gives no result.
///
///     QScriptEngine engine;
///     QScriptValue names = engine.newObject();
///     engine.setGlobalObject(names);
///     engine.evaluate("function twice(x) { return 2 * x }", "twice.js");
///     names.property("twice").call({}, {21}).toNumber();
class QTSCRIPT_EXPORT QScriptEngine {
public:
    enum ValueOwnership {
        QtOwnership,    ///< The object stays its C++ owner's.
        ScriptOwnership ///< The engine destroys it when no script holds it; an object with a parent stays that one's.
    };

    QScriptEngine();
    QScriptEngine(const QScriptEngine&) = delete;
    QScriptEngine& operator=(const QScriptEngine&) = delete;
    ~QScriptEngine();

    /// Runs a text, whose first line has the number `lineNumber` in messages. Gives its last value, or what it threw.
    QScriptValue evaluate(const QString& program, const QString& fileName = QString(), int lineNumber = 1);

    /// Whether an exception of C++ went through a run, as that of memory which runs out. Such an engine is of no more
    /// use: its values are invalid, and it is not to be destroyed either.
    bool isBroken() const;

    bool hasUncaughtException() const;
    QScriptValue uncaughtException() const;         ///< Invalid when there is none.
    int uncaughtExceptionLineNumber() const;        ///< -1 when it isn't known.
    QStringList uncaughtExceptionBacktrace() const; ///< "name()@file:line", the innermost call first.
    void clearExceptions();

    /// Ends the runs under way with an exception "Interrupted", which scripts can't catch. Any thread may call it, and
    /// so may the handler of a signal.
    void abortEvaluation();
    bool isEvaluating() const;
    bool wasAborted() const; ///< Whether `abortEvaluation` ended the last of the runs, or is about to.

    /// Throws in the script that called the function of C++ under way; with none under way, the exception is uncaught.
    void throwError(const QString& message);
    void throwValue(const QScriptValue& value);
    QScriptValue newError(const QString& message);

    QScriptValue globalObject() const;
    /// Sets the object that the next scripts run into. An invalid value brings the engine's own global object back.
    void setGlobalObject(const QScriptValue& object);
    /// Does the same and gives the value that sets back what was there.
    QScriptValue exchangeGlobalObject(const QScriptValue& object);

    QScriptValue nullValue();
    QScriptValue undefinedValue();
    QScriptValue newObject();
    QScriptValue newArray(uint length = 0);
    /// An object that shows the properties, slots and invokable operations of a QObject; null gives null.
    QScriptValue newQObject(QObject* object, ValueOwnership ownership = QtOwnership);
    /// The script's form of a value of a meta type: a plain value, an array, an object, or an opaque variant.
    QScriptValue create(int metaType, const void* data);

    /// Runs when a script calls a function of C++: gets `this` and the arguments, and gives the result. It may use
    /// `throwError`; a C++ exception must not leave it.
    using Function = std::function<QScriptValue(const QScriptValue& self, const QScriptValueList& arguments)>;
    /// A function that runs C++. When no script holds it any more, the garbage collector destroys the function object,
    /// in the middle of a run: its destructor must not use the engine.
    QScriptValue newFunction(Function function);
    /// Runs when a script reads a property: gets the value of C++ that `this` holds, invalid for any other object.
    using Getter = std::function<QScriptValue(const QVariant& self)>;
    /// Gives an object, the prototype of opaque values, a property that C++ reads; the engine keeps the getter for
    /// good. An invalid setter makes it read-only, else it is called with the value.
    void defineAccessor(const QScriptValue& object, const QString& name, Getter getter, const QScriptValue& setter);

    void collectGarbage();

private:
    friend class QScriptValue;
    friend class QScriptValueIterator;
    friend class ScriptInvoker;

    struct Private;
    std::unique_ptr<Private> d;
};
