#include "tests/qtscript/support.h"

namespace {

/// What ends the process in Qt's own engine.
class GuardTest : public QtScriptTest {
protected:
    QString textOf(const QString& program)
    {
        const QScriptValue value = engine.evaluate(program);
        return engine.hasUncaughtException() ? uncaught() : value.toString();
    }
};

constexpr char tooDeep[] = "RangeError: A regular expression has more than 60 groups inside each other, or 2000 in all";
constexpr char tooMany[] = "RangeError: Maximum call stack size exceeded.";

} // namespace

TEST_F(GuardTest, AProgramThatGoesTooDeepEndsInASentence)
{
    const std::pair<const char*, const char*> rows[] = {
        {"new RegExp('('.repeat(1e5) + ')'.repeat(1e5))", tooDeep},
        {"RegExp('(?:a'.repeat(61) + ')*'.repeat(61))", tooDeep},
        {"'x'.match('(?='.repeat(1e5) + ')'.repeat(1e5))", tooDeep},
        {"'x'.search({toString() { return '('.repeat(1e5) }})", tooDeep},
        {"eval('/' + '('.repeat(100) + ')'.repeat(100) + '/')", tooDeep},
        {"(0, eval)('/' + '('.repeat(100) + ')'.repeat(100) + '/')", tooDeep},
        {"eval(\"eval('/' + '('.repeat(100) + ')'.repeat(100) + '/')\")", tooDeep},
        {"Function('return eval(arguments[0])')('/' + '('.repeat(100) + ')'.repeat(100) + '/')", tooDeep},
        {"var run = eval; run('/' + '('.repeat(100) + ')'.repeat(100) + '/')", tooDeep},
        {"Function('return /' + '('.repeat(100) + ')'.repeat(100) + '/')", tooDeep},
        {"Object.getPrototypeOf(function*() {}).constructor('/' + '('.repeat(100) + ')'.repeat(100) + '/')", tooDeep},
        {"var p = {}; for (var i = 0; i < 3e4; ++i) p = new Proxy(p, {}); p.x", tooMany},
        {"var p = {}; for (var i = 0; i < 3e4; ++i) p = new Proxy(Object.create(p), {}); p.x = 1", tooMany},
        {"var p = {}; for (var i = 0; i < 3e4; ++i) p = new Proxy({}, p); 'x' in p", tooMany},
        {"var p = function() {}; for (var i = 0; i < 3e4; ++i) p = Proxy.revocable(p, {}).proxy; new p", tooMany},
        {"var h = {}; var p = new Proxy({}, h); Object.setPrototypeOf(h, p); p.x", tooMany},
        {"function* g() { yield* g() } g().next()", tooMany},
        {"function* g(x) { if (x) yield* x; yield 1 } var x; for (var i = 0; i < 3e4; ++i) x = g(x); x.next()",
         tooMany},
        {"Math.max(...new Array(1e6).fill(3))", "3"},
        {"var a = [1, 2, 3]; Object.defineProperty(a, 1, {get() { a.length = 0; return 7 }, configurable: true});"
         "a.concat(a).length",
         "3"},
        {"[[1, , 3].concat([, 5], 6, [[7]]).length, 1 in [1, , 3].concat([2]), [1, , ].concat([2, , ])]",
         "7,false,1,,2,"},
        {"var f; for (let i = 0; i < 5e5; ++i) { let g = f; f = () => g } 'kept'", "kept"},
        {"[[1, 2, 3, 4, 5].copyWithin(0, 3), [1, 2, 3, 4, 5].copyWithin(1, 0, 3), [1, , 3].copyWithin(-1, -2, -1)]",
         "4,5,3,4,5,1,1,2,3,5,1,,"},
        {"var w = new WeakMap; for (var i = 0; i < 3e4; ++i) w.set({}, {}); 'kept'", "kept"},
        {"var w = new WeakSet; for (var i = 0; i < 3e4; ++i) w.add({}); 'kept'", "kept"},
    };
    for (const auto& [program, text] : rows)
        EXPECT_EQ(textOf(program).toStdString(), text) << program;
    EXPECT_EQ(textOf("1 + 1").toStdString(), "2");
}

TEST_F(GuardTest, ALiteralThatIsTooDeepIsRefusedWithItsText)
{
    const auto nested = [](int depth) { return QString(depth, u'(') + QString(depth, u')'); };
    EXPECT_EQ(textOf("/" + nested(61) + "/").toStdString(), tooDeep);
    EXPECT_EQ(textOf("var a = 4 / 2;\nvar b = 'x'.replace(/" + nested(100) + "/g, '')").toStdString(), tooDeep);
    into("var f = function() { return /" + nested(100) + "/ }");
    EXPECT_EQ(uncaught().toStdString(), tooDeep);
    EXPECT_EQ(textOf("/" + nested(60) + "/.test('x')").toStdString(), "true");
    EXPECT_EQ(textOf("'" + nested(500) + "'.length").toStdString(), "1000");
    EXPECT_EQ(textOf("8 / " + nested(80).replace("()", "(2)") + " / 2").toStdString(),
              "RangeError: " + std::string(tooDeep).substr(12))
        << "what may be a literal counts as one";
    EXPECT_EQ(textOf("8 /\n" + nested(80).replace("()", "(2)")).toStdString(), "4");
    EXPECT_EQ(textOf("/[" + QString(100, u'(') + "]\\(\\(/.test('(((')").toStdString(), "true");
}

TEST_F(GuardTest, RegularExpressionsAreWhatTheyWere)
{
    for (const char* truth :
         {"/a/ instanceof RegExp", "/a/.constructor === RegExp", "RegExp(/a/).source === 'a'",
          "var r = /a/g; RegExp(r) === r && new RegExp(r) !== r && new RegExp(r).global",
          "new RegExp(/a/, 'i').ignoreCase", "new RegExp('a/b').test('a/b')", "String(new RegExp) === '/(?:)/'",
          "RegExp.length === 2 && RegExp.name === 'RegExp'", "'abc'.match('b').index === 1",
          "'abc'.match(/[ac]/g).join() === 'a,c'", "'abc'.search('c') === 2", "'a1b2'.split(/\\d/).join() === 'a,b,'",
          "'abc'.match().index === 0", "'null'.match(null)[0] === 'null'",
          "class R extends RegExp { own() { return this.source } } new R('x').own() === 'x' && new R('x') instanceof R",
          "try { new RegExp('[') } catch (e) { e instanceof SyntaxError }", "Function('a', 'return a * 2')(4) === 8",
          "new Function('return 1') instanceof Function", "(function() {}).constructor === Function"})
        EXPECT_EQ(textOf(truth).toStdString(), "true") << truth;
}

TEST_F(GuardTest, ProxiesAndGeneratorsAreWhatTheyWere)
{
    for (const char* truth :
         {"new Proxy({a: 1}, {}).a === 1", "var o = {}; new Proxy(o, {}).b = 2; o.b === 2",
          "new Proxy({}, {get(t, k, r) { return k + (r === p) }}).x === 'xfalse'; var p",
          "var h = {has(t, k) { return this === h && k === 'y' }}; 'y' in new Proxy({}, h)",
          "new Proxy(function(a) { return a + this.n }, {}).call({n: 2}, 1) === 3",
          "new (new Proxy(class { constructor(x) { this.x = x } }, {}))(5).x === 5",
          "Object.keys(new Proxy({a: 1, b: 2}, {})).join() === 'a,b'", "delete new Proxy({a: 1}, {}).a",
          "try { Proxy({}, {}) } catch (e) { e instanceof TypeError }",
          "try { new Proxy(1, {}) } catch (e) { e instanceof TypeError }",
          "try { new Proxy({}, 2) } catch (e) { e instanceof TypeError }",
          "try { new Proxy({}, {get: 1}).x } catch (e) { e instanceof TypeError }",
          "var r = Proxy.revocable({}, {}); r.revoke(); try { r.proxy.x } catch (e) { e instanceof TypeError }",
          "Object.create(new Proxy({}, {get(t, k) { return k }})).hello === 'hello'",
          "function* g() { var x = yield 1; yield x * 2 } var i = g(); i.next().value === 1 && i.next(4).value === 8",
          "function* g() { yield* [1, 2, 3] } [...g()].join() === '1,2,3'",
          "function* g() { try { yield 1 } finally { yield 2 } } var i = g(); i.next(); i.return(3).value === 2"})
        EXPECT_EQ(textOf(truth).toStdString(), "true") << truth;
}

TEST_F(GuardTest, WeakTablesHoldTheirKeysLikeOthers)
{
    for (const char* truth :
         {"var k = {}; var w = new WeakMap([[k, 1]]); w.get(k) === 1 && w.has(k) && !w.has({}) && w.get({}) === "
          "undefined",
          "var k = {}; var w = new WeakMap; w.set(k, undefined) === w && w.has(k) && w.delete(k) && !w.delete(k) && "
          "!w.has(k)",
          "var k = Object.freeze({}); var w = new WeakMap; w.set(k, 5).get(k) === 5 && w.delete(k) && !w.has(k)",
          "var k = {}; var w = new WeakMap; w.set(k, 5); Object.freeze(k); w.set(k, 6).get(k) === 6 && w.delete(k) && "
          "!w.has(k)",
          "var t = {}; var p = new Proxy(t, {}); var w = new WeakMap; w.set(t, 1); w.set(p, 2); w.get(t) === 1 && "
          "w.get(p) === 2",
          "var k = {}; new WeakMap([[k, 1]]).get(k) === 1 && new WeakMap([[k, 2]]).get(k) === 2",
          "var k = {}; var child = Object.create(k); var w = new WeakMap([[k, 1]]); !w.has(child)",
          "var k = {a: 1}; new WeakSet([k]); Object.keys(k).join() === 'a' && JSON.stringify(k) === '{\"a\":1}'",
          "var k = {}; var s = new WeakSet([k]); s.has(k) && s.add(k) === s && s.delete(k) && !s.has(k)",
          "try { new WeakMap().set(1, 2) } catch (e) { e instanceof TypeError }",
          "try { WeakMap() } catch (e) { e instanceof TypeError }",
          "try { WeakMap.prototype.get.call({}, {}) } catch (e) { e instanceof TypeError }",
          "class W extends WeakMap { get(k) { return super.get(k) || 0 } } var w = new W; w.get({}) === 0 && w "
          "instanceof WeakMap",
          "String(new WeakMap) === '[object WeakMap]' && !new WeakMap().has(5)"})
        EXPECT_EQ(textOf(truth).toStdString(), "true") << truth;
}

TEST_F(GuardTest, ASymbolComesOutAsItsText)
{
    EXPECT_EQ(engine.evaluate("Symbol('x')").toVariant(), QVariant("Symbol(x)"));
    EXPECT_EQ(engine.evaluate("Symbol.iterator").toVariant(), QVariant("Symbol(Symbol.iterator)"));
}

TEST_F(GuardTest, TheEnvironmentIsLeftAsItWas)
{
    for (const char* variable : {"QV4_JS_MAX_STACK_SIZE", "QV4_GC_MAX_STACK_SIZE"})
        EXPECT_FALSE(qEnvironmentVariableIsSet(variable)) << variable;
}

TEST_F(GuardTest, EvalRunsInTheScopeOfItsCallerAndGivesWhatItGave)
{
    const std::pair<const char*, const char*> rows[] = {
        {"(function() { var x = 4; eval('x += 1; var y = 7'); return [x, y] })()", "5,7"},
        {"var x = 1; (function() { var x = 2; return [eval('x'), (0, eval)('x'), eval(3), eval(), eval('x', 'y')] })()",
         "2,1,3,,2"},
        {"var run = eval; [run('1 + 1'), typeof eval, {eval: 5}.eval, {eval(a) { return a }}.eval(6)]",
         "2,function,5,6"},
        {"eval('var made = 3'); made", "3"},
        {"`${eval('1' + `${eval(\"'2'\")}`)} eval(` + \"eval(\" + /eval(\\()/.source // eval(\n",
         "12 eval(eval(eval(\\()"},
        {"try { eval('(') } catch (error) { error.name }", "SyntaxError"},
        {"function f(eval) { return eval(2) } f(x => x + 1)", "3"},
        {"eval /* a */ ( /* b */ '1' /* c */ )", "1"},
        {"eval(...['8'])", "8"},
        {"[6 / 2, eval('6') / 2 / 1]", "3,3"},
    };
    for (const auto& [program, text] : rows)
        EXPECT_EQ(textOf(program).toStdString(), text) << program;
}
