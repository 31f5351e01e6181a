#include "qtscript/qscriptvalueiterator.h"
#include "tests/qtscript/support.h"

namespace {

QStringList names(const QScriptValue& object)
{
    QStringList result;
    for (QScriptValueIterator it(object); it.hasNext();) {
        it.next();
        result.append(it.name());
    }
    result.sort();
    return result;
}

} // namespace

TEST_F(QtScriptTest, AScriptsVariablesAndFunctionsBecomeProperties)
{
    const QScriptValue object =
        into("var a = 1; function f() {} if (true) { var b } for (var i = 0; i < 2; ++i); undeclared = 7;");
    EXPECT_EQ(names(object), QStringList({"a", "b", "f", "i", "undeclared"}));
    EXPECT_EQ(object.property("i").toNumber(), 2);
    EXPECT_EQ(object.property("undeclared").toNumber(), 7);
    EXPECT_FALSE(engine.globalObject().property("undeclared").isValid());
    EXPECT_FALSE(engine.globalObject().property("a").isValid());
}

TEST_F(QtScriptTest, WhatTheTopLevelDeclaresByLetAndConstStaysInside)
{
    const QScriptValue object = into("let a = 1; const b = 2; class C {} function sum() { return a + b }");
    EXPECT_EQ(names(object), QStringList("sum"));
    EXPECT_EQ(object.property("sum").call().toNumber(), 3);
}

TEST_F(QtScriptTest, TwoScriptsOfEqualNamesStayApart)
{
    const QScriptValue one = into("var n = 0; function count() { return ++n }");
    const QScriptValue other = into("var n = 100; function count() { return n += 10 }");
    one.property("count").call();
    EXPECT_EQ(other.property("count").call().toNumber(), 110);
    EXPECT_EQ(one.property("count").call().toNumber(), 2);
}

TEST_F(QtScriptTest, VariablesAndPropertiesAreOne)
{
    QScriptValue object = into("var n = 1; function get() { return n } function set(v) { n = v; later = v }");
    object.setProperty("n", 50);
    EXPECT_EQ(object.property("get").call().toNumber(), 50);
    object.property("set").call({}, {8});
    EXPECT_EQ(object.property("n").toNumber(), 8);
    EXPECT_EQ(object.property("later").toNumber(), 8);
    object.setProperty("later", 9);
    runInto(object, "var fromLater = later + 1");
    EXPECT_EQ(object.property("fromLater").toNumber(), 10);
}

TEST_F(QtScriptTest, AScriptThatThrowsInTheMiddleShowsWhatItHad)
{
    const QScriptValue object = into("var a = 1;\nfunction f() { return a }\nthrow new Error('x');\nvar d = 2");
    EXPECT_EQ(uncaught(), "Error: x");
    EXPECT_EQ(engine.uncaughtExceptionLineNumber(), 3);
    EXPECT_EQ(engine.uncaughtExceptionBacktrace(), QStringList("<global>()@script.js:3"));
    EXPECT_EQ(object.property("a").toNumber(), 1);
    EXPECT_TRUE(object.property("d").isUndefined());
    EXPECT_EQ(object.property("f").call().toNumber(), 1);
}

TEST_F(QtScriptTest, AnUnknownNameIsAnErrorAtItsPlace)
{
    const QScriptValue object = into("var t = typeof nothing;\nvar a = nothing;");
    EXPECT_EQ(object.property("t").toString(), "undefined");
    EXPECT_EQ(uncaught(), "ReferenceError: nothing is not defined");
    EXPECT_EQ(engine.uncaughtException().property("fileName").toString(), "script.js");
    EXPECT_EQ(engine.uncaughtException().property("lineNumber").toInt32(), 2);
    EXPECT_EQ(engine.uncaughtExceptionLineNumber(), 2);
}

TEST_F(QtScriptTest, ASyntaxErrorRunsNothingAndNamesItsLine)
{
    const QScriptValue object = into("var a = 1;\nvar b = ;\n");
    EXPECT_TRUE(uncaught().startsWith("SyntaxError")) << uncaught().toStdString();
    EXPECT_EQ(engine.uncaughtExceptionLineNumber(), 2);
    EXPECT_TRUE(names(object).isEmpty());
}

TEST_F(QtScriptTest, ATextCannotLeaveItsObject)
{
    for (const char* program : {"} evil = 1; {", "}}}}); evil = 1; ((function(){{{{", "return 1", "*/ evil = 1 /*"}) {
        const QScriptValue object = into(program);
        EXPECT_TRUE(uncaught().startsWith("SyntaxError")) << program;
        EXPECT_FALSE(engine.globalObject().property("evil").isValid()) << program;
    }
}

TEST_F(QtScriptTest, NamesOfOursThatATextUsesAreItsOwn)
{
    const QScriptValue object =
        into("var $scope = 1, $define = 2, $start = 3; function sum() { return $scope + $define + $start }");
    EXPECT_EQ(object.property("sum").call().toNumber(), 6);
}

TEST_F(QtScriptTest, AStrictTextIsStrict)
{
    const QScriptValue object = into("'use strict'; var isStrict = (function() { return this === undefined })();");
    EXPECT_TRUE(object.property("isStrict").toBool());
    EXPECT_FALSE(into("var isStrict = (function() { return this === undefined })();").property("isStrict").toBool());
}

TEST_F(QtScriptTest, TheLanguagesObjectsAreThereAndAScriptMayReplaceThemForItself)
{
    const QScriptValue object =
        into("var m = Math.max(1, 2); function parseInt() { return 'mine' } var p = parseInt('7')");
    EXPECT_EQ(object.property("m").toNumber(), 2);
    EXPECT_EQ(object.property("p").toString(), "mine");
    EXPECT_EQ(object.property("parseInt").call().toString(), "mine");
    EXPECT_EQ(into("var p = parseInt('7')").property("p").toNumber(), 7);
}

TEST_F(QtScriptTest, ThisIsTheObjectAtTheTopLevelAndInACallWithoutAnother)
{
    QScriptValue object = into("this.own = 1; function self() { return this }");
    EXPECT_EQ(object.property("own").toNumber(), 1);
    engine.setGlobalObject(object);
    EXPECT_TRUE(object.property("self").call().strictlyEquals(object));
    engine.setGlobalObject(QScriptValue());
    EXPECT_TRUE(object.property("self").call().strictlyEquals(engine.globalObject()));
}

TEST_F(QtScriptTest, ALineCommentAtTheEndHidesNothing)
{
    EXPECT_EQ(into("var a = 1 // end").property("a").toNumber(), 1);
    EXPECT_FALSE(engine.hasUncaughtException());
}

TEST_F(QtScriptTest, ScriptsMeetInOneEngine)
{
    const QScriptValue one = into("function make() { return { n: 3, twice: function(x) { return 2 * x } } }");
    QScriptValue use = into("function use(o) { return o.twice(o.n) }").property("use");
    EXPECT_EQ(use.call({}, {one.property("make").call()}).toNumber(), 6);
}

TEST_F(QtScriptTest, CallsWithTheCollectorBetweenThemStayRight)
{
    QScriptValue add = into("function add(a, b) { return { sum: a + b, text: 't' + a } }").property("add");
    for (int i = 0; i < 20'000; ++i) {
        const QScriptValue result = add.call({}, {i, 1});
        ASSERT_EQ(result.property("sum").toInt32(), i + 1);
        if (i % 1'000 == 0)
            engine.collectGarbage();
    }
}
