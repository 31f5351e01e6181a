#pragma once

#include "qtscript/qscriptengine.h"

#include "qtscript/applicationscope.h"
#include "qtscript/stacksizescope.h"

#include <QHash>
#include <QJSEngine>
#include <QObject>

#include <atomic>
#include <vector>

/// A function of C++ as the engine keeps it: shared, inside a variant.
struct ScriptFunction {
    std::shared_ptr<QScriptEngine::Function> function;
};
Q_DECLARE_METATYPE(ScriptFunction)

/// The way of a script's call to a function of C++.
class ScriptInvoker : public QObject {
    Q_OBJECT

public:
    explicit ScriptInvoker(QScriptEngine& engine) : m_engine(engine) {}

    Q_INVOKABLE QJSValue invoke(const QVariant& function, const QJSValue& self, const QJSValue& arguments);
    Q_INVOKABLE QJSValue read(int getter, const QVariant& self);
    Q_INVOKABLE QString withCheckedEval(const QString& program) const; ///< As in `evalcalls`.
    Q_INVOKABLE bool isTooDeep(const QString& pattern) const;          ///< As in `patterns`, and the next two.
    Q_INVOKABLE bool hasTooDeepLiteral(const QString& program) const;
    Q_INVOKABLE QString tooDeep() const;

    int addGetter(QScriptEngine::Getter getter);

private:
    void goOnThrowing();

    std::vector<QScriptEngine::Getter> m_getters;
    QScriptEngine& m_engine;
};

/// The state of an engine.
struct QScriptEngine::Private {
    explicit Private(QScriptEngine& engine);

    /// A run of a script, from C++ into it: runs inside runs are counted, and the first one forgets what the last
    /// threw.
    class Run {
    public:
        explicit Run(Private& engine);
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;
        ~Run();

        /// Whether there is still room for one more run inside others; where there is none, it has thrown.
        explicit operator bool() const { return m_isAllowed; }

    private:
        Private& m_engine;
        bool m_isAllowed;
    };

    QScriptValue wrap(const QJSValue& value) { return QScriptValue(&self, value); }
    /// The value for the engine's use; undefined for an invalid one, and for an object of another engine.
    QJSValue unwrap(const QScriptValue& value);
    QJSValue thisFor(const QScriptValue& value);

    QScriptValue evaluate(const QString& program, const QString& fileName, int lineNumber);
    QScriptValue runInto(const QJSValue& object, const QString& program, const QString& fileName, int lineNumber);
    QScriptValue call(const QJSValue& function, const QJSValue& object, const QJSValueList& arguments);
    template <typename Call>
    QJSValue run(const Call& call);
    /// Keeps what the last operation threw, if it did.
    void keepThrown();
    QScriptValue thrown(const QJSValue& exception, const QStringList& stack = {});

    /// A call under way.
    struct Place {
        QString function;
        QString url;
        int line;
    };
    /// The calls in which an error was made, the innermost first, without the engine's own helpers. Empty for what is
    /// no error.
    static std::vector<Place> placesOf(const QJSValue& error);
    QString textOf(const Place& place) const; ///< "name()@file:line"
    /// The name of a file as it was given, for what the engine made of it.
    QString fileNameOf(const QString& url) const { return fileNames.value(url, url); }

    QScriptEngine& self;
    ScriptInvoker invoker;        ///< Ahead of the engine, which knows it until the end.
    ApplicationScope application; ///< Until the engine is made.
    StackSizeScope stackSize;     ///< Likewise.
    QJSEngine js;
    QJSValue scopeOf;
    QJSValue definitionOn;
    QJSValue defineProperty;
    QJSValue ownNames;
    QJSValue functionOf;
    QJSValue defineAccessor;
    QJSValue textOfSymbol;
    QJSValue ownGlobal;
    QScriptValue global; ///< Invalid while scripts run into the engine's own.

    bool hasException = false;
    QJSValue exception;
    int exceptionLine = -1;
    QStringList backtrace;

    int depth = 0;
    std::atomic<bool> aborted = false;
    QHash<QString, QString> fileNames;                      ///< By URL.
    std::shared_ptr<void> alive = std::make_shared<char>(); ///< Null once the engine is broken.
};
