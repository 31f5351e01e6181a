#pragma once

#include "qtscript/qscriptengine.h"

#include <gtest/gtest.h>

#include <QObject>

/// An engine for a test. The program's main() has the QCoreApplication.
class QtScriptTest : public testing::Test {
protected:
    /// Runs a text into a new global object, and gives that.
    QScriptValue into(const QString& program, const QString& fileName = QStringLiteral("script.js"))
    {
        const QScriptValue object = engine.newObject();
        runInto(object, program, fileName);
        return object;
    }
    QScriptValue runInto(const QScriptValue& object, const QString& program,
                         const QString& fileName = QStringLiteral("script.js"))
    {
        const QScriptValue before = engine.globalObject();
        engine.setGlobalObject(object);
        const QScriptValue result = engine.evaluate(program, fileName);
        engine.setGlobalObject(before);
        return result;
    }
    QString uncaught() const
    {
        return engine.hasUncaughtException() ? engine.uncaughtException().toString() : QString();
    }

    QScriptEngine engine;
};

/// A C++ object for scripts.
class Counter : public QObject {
    Q_OBJECT
    Q_PROPERTY(int count READ count WRITE setCount)

public:
    explicit Counter(bool* isGone = nullptr) : m_isGone(isGone) {}
    ~Counter() override
    {
        if (m_isGone)
            *m_isGone = true;
    }

    int count() const { return m_count; }
    void setCount(int count) { m_count = count; }
    Q_INVOKABLE int add(int number) { return m_count += number; }

private:
    int m_count = 0;
    bool* m_isGone;
};

/// Calls a function of a script from C++, which may come back to it.
class Caller : public QObject {
    Q_OBJECT

public:
    explicit Caller(QScriptEngine& engine) : m_engine(engine) {}

    QScriptValue function;
    int deepest = 0;

    Q_INVOKABLE void again()
    {
        ++deepest;
        function.call({}, {m_engine.newQObject(this)});
    }

private:
    QScriptEngine& m_engine;
};
