#include "qtscript/qscriptvalueiterator.h"
#include "tests/qtscript/support.h"

#include <cmath>

TEST_F(QtScriptTest, AValueKnowsItsKind)
{
    const struct {
        const char* program;
        const char* kinds;
    } rows[] = {
        {"undefined", "undefined"},
        {"null", "null"},
        {"true", "bool"},
        {"1.5", "number"},
        {"'x'", "string"},
        {"({})", "object"},
        {"[]", "object array"},
        {"(function() {})", "object function"},
        {"try { throw new Error('x') } catch (e) { [e][0] }", "object error"},
    };
    for (const auto& row : rows) {
        const QScriptValue value = engine.evaluate(row.program);
        QStringList kinds;
        const auto add = [&kinds](bool is, const char* kind) {
            if (is)
                kinds.append(kind);
        };
        add(value.isUndefined(), "undefined");
        add(value.isNull(), "null");
        add(value.isBool(), "bool");
        add(value.isNumber(), "number");
        add(value.isString(), "string");
        add(value.isObject(), "object");
        add(value.isArray(), "array");
        add(value.isFunction(), "function");
        add(value.isError(), "error");
        EXPECT_EQ(kinds.join(' '), row.kinds) << row.program;
        EXPECT_TRUE(value.isValid());
        EXPECT_EQ(value.engine(), &engine);
    }
}

TEST_F(QtScriptTest, AnInvalidValueIsNothing)
{
    QScriptValue value;
    EXPECT_FALSE(value.isValid());
    EXPECT_FALSE(value.isUndefined());
    EXPECT_EQ(value.toString(), QString());
    EXPECT_EQ(value.toNumber(), 0);
    EXPECT_FALSE(value.toVariant().isValid());
    EXPECT_FALSE(value.property("x").isValid());
    EXPECT_FALSE(value.call().isValid());
    value.setProperty("x", 1);
    EXPECT_FALSE(value.isValid());
    EXPECT_EQ(value.engine(), nullptr);
}

TEST_F(QtScriptTest, WhatIsNoFunctionGivesNothingWhenItIsCalled)
{
    EXPECT_FALSE(engine.newObject().call().isValid());
    EXPECT_FALSE(QScriptValue(7).call().isValid());
    EXPECT_FALSE(engine.hasUncaughtException());
}

TEST_F(QtScriptTest, PropertiesAreSetReadAndRemoved)
{
    QScriptValue object = engine.newObject();
    EXPECT_FALSE(object.property("a").isValid());
    object.setProperty("a", "text");
    object.setProperty("u", engine.undefinedValue());
    EXPECT_EQ(object.property("a").toString(), "text");
    EXPECT_TRUE(object.property("u").isUndefined());
    object.setProperty("a", QScriptValue());
    EXPECT_FALSE(object.property("a").isValid());
    QScriptValue array = engine.newArray(2);
    array.setProperty(1u, 5);
    EXPECT_EQ(array.property("length").toInt32(), 2);
    EXPECT_EQ(array.property(1u).toInt32(), 5);
}

TEST_F(QtScriptTest, AValueOfNoEngineMayBePutAnywhere)
{
    QScriptValue array = engine.newArray();
    QScriptValue object = engine.newObject();
    quint32 index = 0;
    for (const QScriptValue& value : {QScriptValue("text"), QScriptValue(1.5), QScriptValue(true), QScriptValue("")}) {
        array.setProperty(index++, value);
        object.setProperty("a", value);
        EXPECT_TRUE(object.property("a").strictlyEquals(value));
    }
    EXPECT_EQ(array.toVariant(), QVariant(QVariantList{"text", 1.5, true, ""}));
}

TEST_F(QtScriptTest, FlagsDecideWhatScriptsMayDo)
{
    QScriptValue object = engine.newObject();
    object.setProperty("fixed", 1, QScriptValue::ReadOnly | QScriptValue::Undeletable);
    object.setProperty("hidden", 2, QScriptValue::SkipInEnumeration);
    QScriptValue change =
        engine.evaluate("(function(o) { o.fixed = 9; delete o.fixed; return Object.keys(o).join() })");
    EXPECT_EQ(change.call({}, {object}).toString(), "fixed");
    EXPECT_EQ(object.property("fixed").toInt32(), 1);
    EXPECT_EQ(object.property("hidden").toInt32(), 2);
}

TEST_F(QtScriptTest, NumbersAreConvertedAsTheLanguageDoes)
{
    EXPECT_EQ(engine.evaluate("-2.7").toInteger(), -2);
    EXPECT_EQ(engine.evaluate("NaN").toInteger(), 0);
    EXPECT_EQ(engine.evaluate("1e12").toInteger(), 1e12);
    EXPECT_EQ(engine.evaluate("'12'").toNumber(), 12);
    EXPECT_TRUE(std::isnan(engine.evaluate("({})").toNumber()));
}

TEST_F(QtScriptTest, VariantsHoldWhatTheValueHolds)
{
    EXPECT_EQ(engine.evaluate("({a: [1, 'x', true], n: null})").toVariant(),
              QVariant(QVariantMap{{"a", QVariantList{1, "x", true}}, {"n", QVariant::fromValue(nullptr)}}));
    EXPECT_FALSE(engine.evaluate("null").toVariant().isValid());
    EXPECT_FALSE(engine.evaluate("undefined").toVariant().isValid());
}

TEST_F(QtScriptTest, AThrownErrorAndAReturnedOneAreToldApartInCalls)
{
    QScriptValue returns = engine.evaluate("(function() { return new Error('x') })");
    EXPECT_TRUE(returns.call().isError());
    EXPECT_FALSE(engine.hasUncaughtException());
    QScriptValue throws = engine.evaluate("(function(v) { throw v })");
    EXPECT_EQ(throws.call({}, {42}).toNumber(), 42);
    EXPECT_TRUE(engine.hasUncaughtException());
    throws.call({}, {engine.undefinedValue()});
    EXPECT_TRUE(engine.hasUncaughtException());
    EXPECT_TRUE(engine.uncaughtException().isUndefined());
}

TEST_F(QtScriptTest, AScriptMayReplaceApplyWithoutHarm)
{
    QScriptValue add =
        engine.evaluate("Function.prototype.apply = null; Reflect.apply = null; (function(a) { return a + 1 })");
    EXPECT_EQ(add.call({}, {1}).toNumber(), 2);
}

TEST_F(QtScriptTest, ObjectsOfAnotherEngineAreUndefinedHere)
{
    QScriptEngine other;
    QScriptValue type = engine.evaluate("(function(o) { return typeof o })");
    EXPECT_EQ(type.call({}, {other.newObject()}).toString(), "undefined");
    EXPECT_EQ(type.call({}, {QScriptValue("plain")}).toString(), "string");
}

TEST_F(QtScriptTest, ValuesOfAnEngineThatIsGoneAreInvalid)
{
    auto other = std::make_unique<QScriptEngine>();
    QScriptValue object = other->newObject();
    const QScriptValue plain = other->evaluate("1");
    other.reset();
    EXPECT_FALSE(object.isValid());
    EXPECT_FALSE(plain.isValid());
    EXPECT_EQ(object.engine(), nullptr);
    object.setProperty("a", 1);
    EXPECT_FALSE(object.call().isValid());
}

TEST_F(QtScriptTest, AnIteratorGoesOverOwnPropertiesHiddenOnesIncluded)
{
    QScriptValue array = engine.evaluate("[7, 8]");
    QStringList seen;
    for (QScriptValueIterator it(array); it.hasNext();) {
        it.next();
        seen.append(it.name() + '=' + it.value().toString());
    }
    EXPECT_EQ(seen, QStringList({"0=7", "1=8", "length=2"}));
    EXPECT_FALSE(QScriptValueIterator(QScriptValue(1)).hasNext());
}

TEST_F(QtScriptTest, AnIteratorRemovesAndChangesWhatItStandsAt)
{
    const QScriptValue object = engine.evaluate("({a: 1, b: 2, c: 3})");
    for (QScriptValueIterator it(object); it.hasNext();) {
        it.next();
        if (it.name() == u"a")
            it.remove();
        else
            it.setValue(it.value().toInt32() * 10);
    }
    EXPECT_EQ(object.toVariant(), QVariant(QVariantMap{{"b", 20}, {"c", 30}}));
}

TEST_F(QtScriptTest, WhatAGetterOrSetterThrowsIsKept)
{
    QScriptValue object =
        engine.evaluate("({get a() { throw new Error('get') }, set b(v) { throw new Error('set') }})");
    object.property("a");
    EXPECT_EQ(uncaught(), "Error: get");
    engine.clearExceptions();
    object.setProperty("b", 1);
    EXPECT_EQ(uncaught(), "Error: set");
}
