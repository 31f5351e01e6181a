#include "tests/qtscript/support.h"

#include <QCoreApplication>
#include <QEvent>

#include <chrono>
#include <thread>

TEST_F(QtScriptTest, ATextGivesItsLastValue)
{
    EXPECT_EQ(engine.evaluate("var x = 20; x + 1").toNumber(), 21);
    EXPECT_TRUE(engine.evaluate("var y = 1;").isUndefined());
    EXPECT_FALSE(engine.hasUncaughtException());
    EXPECT_FALSE(engine.isEvaluating());
}

TEST_F(QtScriptTest, WhatNothingCaughtIsKeptWithItsPlace)
{
    const struct {
        const char* program;
        const char* fileName;
        const char* text;
        int line;
        const char* backtrace;
    } rows[] = {
        {"var x = ;", "a.js", "SyntaxError: Expected token `numeric literal'", 1, "<global>()@a.js:1"},
        {"\nthrow 42", "a b:c.js", "42", 2, "<global>()@a b:c.js:2"},
        {"function f() {\n  throw new Error('x')\n}\nf()", "/tmp/q.js", "Error: x", 2,
         "f()@/tmp/q.js:2\n<global>()@/tmp/q.js:4"},
        {"function f() { return f() }\nf()", "deep.js", "RangeError: Maximum call stack size exceeded.", 1,
         "f()@deep.js:1 (1234 times)\n<global>()@deep.js:2"},
    };
    for (const auto& row : rows) {
        const QScriptValue result = engine.evaluate(row.program, row.fileName);
        EXPECT_TRUE(engine.hasUncaughtException());
        EXPECT_EQ(result.toString(), row.text);
        EXPECT_EQ(uncaught(), row.text);
        EXPECT_EQ(engine.uncaughtExceptionLineNumber(), row.line) << row.program;
        EXPECT_EQ(engine.uncaughtExceptionBacktrace().join('\n'), row.backtrace);
    }
    engine.clearExceptions();
    EXPECT_FALSE(engine.hasUncaughtException());
    EXPECT_FALSE(engine.uncaughtException().isValid());
    EXPECT_TRUE(engine.uncaughtExceptionBacktrace().isEmpty());
    EXPECT_EQ(engine.uncaughtExceptionLineNumber(), -1);
}

TEST_F(QtScriptTest, TheNextRunForgetsWhatTheLastThrew)
{
    engine.evaluate("throw 1");
    EXPECT_EQ(engine.evaluate("2").toNumber(), 2);
    EXPECT_FALSE(engine.hasUncaughtException());
}

TEST_F(QtScriptTest, AnErrorNamesItsFileAsItWasGiven)
{
    for (const char* name : {"plain.js", "/tmp/a file.js", "with:colon.js", ":/resource.js", "50%.js", "ü.js"}) {
        const QScriptValue error = engine.evaluate("\n\nthrow new Error('x')", QString::fromUtf8(name));
        EXPECT_EQ(error.property("fileName").toString(), QString::fromUtf8(name));
        EXPECT_EQ(error.property("lineNumber").toInt32(), 3);
    }
    EXPECT_FALSE(engine.evaluate("throw new Error('x')").property("fileName").isValid());
}

TEST_F(QtScriptTest, TheFirstLineHasTheNumberThatIsGiven)
{
    engine.evaluate("\nthrow new Error('x')", "part.js", 100);
    EXPECT_EQ(engine.uncaughtExceptionLineNumber(), 101);
}

TEST_F(QtScriptTest, ARunThatIsInterruptedEndsAndTheNextOneRuns)
{
    std::thread other([this] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        engine.abortEvaluation();
    });
    engine.evaluate("try { while (true); } catch (e) {}");
    other.join();
    EXPECT_TRUE(engine.hasUncaughtException());
    EXPECT_TRUE(uncaught().contains("Interrupted")) << uncaught().toStdString();
    EXPECT_EQ(engine.evaluate("1 + 1").toNumber(), 2);
}

TEST_F(QtScriptTest, ACallThatIsInterruptedEndsToo)
{
    QScriptValue spin = engine.evaluate("(function() { while (true); })");
    std::thread other([this] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        engine.abortEvaluation();
    });
    spin.call();
    other.join();
    EXPECT_TRUE(engine.hasUncaughtException());
}

TEST_F(QtScriptTest, ValuesOfCppBecomeTheLanguagesOwn)
{
    const auto made = [this](const QVariant& value) { return engine.create(value.typeId(), value.constData()); };
    EXPECT_TRUE(made(true).isBool());
    EXPECT_EQ(made(2.5).toNumber(), 2.5);
    EXPECT_EQ(made(QString("text")).toString(), "text");
    EXPECT_TRUE(made(QStringList({"a", "b"})).isArray());
    const QScriptValue map = made(QVariantMap{{"a", 1}});
    EXPECT_TRUE(map.isObject());
    EXPECT_EQ(map.property("a").toInt32(), 1);
    EXPECT_TRUE(engine.nullValue().isNull());
    EXPECT_TRUE(engine.undefinedValue().isUndefined());
}

TEST_F(QtScriptTest, AnObjectOfCppShowsItsPropertiesAndOperations)
{
    Counter counter;
    const QScriptValue object = into("function work(c) { c.count = 5; return c.add(2) }").property("work");
    EXPECT_EQ(QScriptValue(object).call({}, {engine.newQObject(&counter)}).toNumber(), 7);
    EXPECT_EQ(counter.count(), 7);
    EXPECT_TRUE(engine.newQObject(&counter).isQObject());
    EXPECT_EQ(engine.newQObject(&counter).toQObject(), &counter);
    EXPECT_TRUE(engine.newQObject(nullptr).isNull());
}

TEST_F(QtScriptTest, TheEngineDestroysWhatItOwnsAndNothingElse)
{
    bool isGone = false;
    bool isKeptGone = false;
    Counter kept(&isKeptGone);
    engine.newQObject(new Counter(&isGone), QScriptEngine::ScriptOwnership);
    engine.newQObject(&kept);
    engine.collectGarbage();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(isGone);
    EXPECT_FALSE(isKeptGone);
}

TEST_F(QtScriptTest, AnObjectOfCppThatIsGoneHasNoProperties)
{
    auto counter = std::make_unique<Counter>();
    const QScriptValue value = engine.newQObject(counter.get());
    counter.reset();
    EXPECT_EQ(value.toQObject(), nullptr);
    EXPECT_TRUE(engine.evaluate("(function(c) { return c.count })").call({}, {value}).isUndefined());
    EXPECT_FALSE(engine.hasUncaughtException());
    engine.evaluate("(function(c) { return c.add(1) })").call({}, {value});
    EXPECT_TRUE(engine.hasUncaughtException());
}

TEST_F(QtScriptTest, CallsThatComeBackWithoutEndEndInAnError)
{
    Caller caller(engine);
    caller.function = engine.evaluate("(function(c) { c.again() })");
    caller.again();
    EXPECT_EQ(caller.deepest, 101);
    EXPECT_EQ(uncaught(), "RangeError: More than 100 calls from the program into scripts");
    EXPECT_FALSE(engine.isEvaluating());
    EXPECT_EQ(engine.evaluate("1").toNumber(), 1);
}

TEST_F(QtScriptTest, AFunctionOfCppGetsThisAndItsArguments)
{
    const QScriptValue add = engine.newFunction([this](const QScriptValue& self, const QScriptValueList& arguments) {
        return QScriptValue(self.property("base").toNumber() + arguments.value(0).toNumber() + arguments.size());
    });
    EXPECT_TRUE(add.isFunction());
    QScriptValue object = engine.evaluate("({base: 10})");
    object.setProperty("add", add);
    EXPECT_EQ(engine.evaluate("(function(o) { return o.add(5, 0, 0) })").call({}, {object}).toNumber(), 18);
}

TEST_F(QtScriptTest, WhatAFunctionOfCppThrowsIsTheScriptsToCatch)
{
    const QScriptValue fail = engine.newFunction([this](const QScriptValue&, const QScriptValueList& arguments) {
        engine.throwError(arguments.value(0).toString());
        return QScriptValue();
    });
    QScriptValue caught = engine.evaluate("(function(f) { try { f('no') } catch (e) { return e.message } })");
    EXPECT_EQ(caught.call({}, {fail}).toString(), "no");
    EXPECT_FALSE(engine.hasUncaughtException());
    QScriptValue(fail).call({}, {"left"});
    EXPECT_EQ(uncaught(), "Error: left");
    engine.clearExceptions();
    engine.throwError("outside of any run");
    EXPECT_EQ(uncaught(), "Error: outside of any run");
}

TEST_F(QtScriptTest, AFunctionOfCppGoesWithTheLastScriptThatHoldsIt)
{
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = held;
    {
        const QScriptValue function =
            engine.newFunction([held](const QScriptValue&, const QScriptValueList&) { return QScriptValue(*held); });
        held.reset();
        EXPECT_EQ(QScriptValue(function).call().toNumber(), 1);
    }
    engine.collectGarbage();
    EXPECT_TRUE(watched.expired());
}

TEST_F(QtScriptTest, AnOpaqueValueOfCppTakesAPrototype)
{
    QScriptValue value = engine.create(qMetaTypeId<std::shared_ptr<int>>(), nullptr);
    EXPECT_TRUE(value.isVariant());
    value.setPrototype(engine.evaluate("({get twice() { return 'two' }})"));
    EXPECT_EQ(value.property("twice").toString(), "two");
    EXPECT_TRUE(value.isVariant());
}

TEST_F(QtScriptTest, ArraysThatHoldThemselvesOrLieDeepHaveATextOrAnError)
{
    const struct {
        const char* program;
        const char* text;
    } rows[] = {
        {"var a = [1]; a.push(a, 2); String(a)", "1,,2"},
        {"var b = [1]; b.push(b); b.join('-')", "1-"},
        {"var c = [1]; c.push(c); c.toLocaleString()", "1,"},
        {"String([1, [2, [3]], null, undefined])", "1,2,3,,"},
        {"JSON.stringify([1, [2, [3, [4]]]].flat())", "[1,2,[3,[4]]]"},
        {"JSON.stringify([1, [2, [3, [4]]]].flat(Infinity))", "[1,2,3,4]"},
        {"var d = []; for (var i = 0; i < 100000; ++i) d = [d]; String(d)",
         "RangeError: Maximum call stack size exceeded."},
        {"var e = []; e[0] = e; e.flat(Infinity)", "RangeError: Maximum call stack size exceeded."},
        {"JSON.stringify(a)", "TypeError: Cannot convert circular structure to JSON"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(engine.evaluate(row.program).toString(), row.text) << row.program;
}

TEST_F(QtScriptTest, TheLastRunTellsWhetherItWasAborted)
{
    QScriptValue stop = engine.newFunction([this](const QScriptValue&, const QScriptValueList&) {
        engine.abortEvaluation();
        return QScriptValue();
    });
    engine.evaluate("(function(stop) { try { stop(); while (true); } catch (e) {} })").call({}, {stop});
    EXPECT_TRUE(engine.wasAborted());
    EXPECT_TRUE(engine.hasUncaughtException());
    engine.evaluate("1");
    EXPECT_FALSE(engine.wasAborted());
}
