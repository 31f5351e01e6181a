#pragma once

#include "qtscript/qscriptengine.h"

#include <QHash>
#include <QJSEngine>

#include <vector>

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
    QJSValue unwrap(const QScriptValue& value) const;
    QJSValue thisFor(const QScriptValue& value) const;

    QScriptValue evaluate(const QString& program, const QString& fileName, int lineNumber);
    QScriptValue runInto(const QJSValue& object, const QString& program, const QString& fileName, int lineNumber);
    QScriptValue call(const QJSValue& function, const QJSValue& object, const QJSValueList& arguments);
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
    QJSEngine js;
    QJSValue callCaught;
    QJSValue scopeOf;
    QJSValue definitionOn;
    QJSValue defineProperty;
    QJSValue ownNames;
    QScriptValue global; ///< Invalid while scripts run into the engine's own.

    bool hasException = false;
    QJSValue exception;
    int exceptionLine = -1;
    QStringList backtrace;

    int depth = 0;
    QHash<QString, QString> fileNames; ///< By URL.
    std::shared_ptr<void> alive = std::make_shared<char>();
};
