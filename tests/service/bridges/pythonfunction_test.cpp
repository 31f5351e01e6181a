#include "tests/service/support/interactive.h"
#include "tests/service/support/nativemodule.h"

#include <gtest/gtest.h>

namespace {

struct Program {
    const char* name;
    const char* script; ///< Each expectation that fails is printed.
    int left = 0;       ///< Objects of the object model that live on: what native code holds, and what that refers to.
};

void PrintTo(const Program& program, std::ostream* stream)
{
    *stream << program.name;
}

constexpr const char* frame = R"py(
import native, sys, threading, weakref
def expect(value, wanted):
    if value != wanted:
        print(f"{value!r} instead of {wanted!r}", file=sys.stderr)
class Callable:
    def __init__(self, function): self.function = function
    def __call__(self, *arguments): return self.function(*arguments)
)py";

const Program programs[] = {
    {"ArgumentsAndResultsAreConverted", R"py(
native.hold(lambda *a: list(a))
expect(native.call(), "a list of 0")
expect(native.call(1, "two"), "a list of 2")
native.hold(lambda a, b: a + len(b))
expect(native.call(1, "two"), "4")
expect(native.call_elsewhere(2, "two"), "5")
native.hold(lambda: None)
expect(native.call(), "nothing")
native.hold(lambda: 2.5)
expect(native.call(), "2.5")
native.hold(lambda: "ä")
expect(native.call(), "ä")
native.drop()
)py"},
    {"AnObjectInAResultOutlivesTheScriptsOwn", R"py(
native.hold(lambda: brindle.Point2d(1, 2))
expect(native.call(), str(brindle.Point2d(1, 2)))
native.hold(lambda: app.scene)
expect(native.call(), str(app.scene))
native.hold(lambda: [app.scene, {"a": app.project}, "x"])
expect(native.call(), "a list of 3")
native.drop()
)py"},
    {"AFailureIsOneSentenceWithItsPlaces", R"py(
def inner():
    return 1 / 0
def outer():
    return inner()
native.hold(outer)
expect(native.call(), "ZeroDivisionError: division by zero\n  in outer (<string>, line 5)\n  in inner (<string>, line 3)")
expect(native.call_elsewhere().splitlines()[0], "ZeroDivisionError: division by zero")
class Odd(Exception):
    def __str__(self): raise ValueError
def odd():
    raise Odd
native.hold(odd)
expect(native.call().splitlines()[0], "Odd")
native.hold(lambda: object())
expect(native.call(), "TypeError: A value of type object can't be used here")
native.hold(lambda: app.scene.nodes[2.5])
expect(native.call().splitlines()[0], "ArgumentError: Invalid argument at index 0.")
native.hold(lambda: sys.exit(3))
expect(native.call().splitlines()[0], "SystemExit: 3")
native.drop()
)py"},
    {"ReferencesAreCountedOnEveryPath", R"py(
function = Callable(lambda: 7)
gone = weakref.ref(function)
before = sys.getrefcount(function)
native.hold(function)
expect(sys.getrefcount(function), before + 1)
native.hold(function)
expect(sys.getrefcount(function), before + 1)
expect(native.call(), "7")
expect(native.call_elsewhere(), "7")
expect(sys.getrefcount(function), before + 1)
function.function = lambda: 1 / 0
expect(native.call().splitlines()[0], "ZeroDivisionError: division by zero")
expect(sys.getrefcount(function), before + 1)
native.drop_elsewhere()
expect(sys.getrefcount(function), before)
native.hold(function)
del function
expect(gone() is None, False)
native.drop()
expect(gone(), None)
native.hold(Callable(lambda: 7))
native.drop_elsewhere()
)py"},
    {"AFunctionMayLetGoOfItself", R"py(
native.hold(Callable(lambda: native.drop()))
expect(native.call(), "nothing")
)py"},
    {"AConvertedFunctionIsLetGoOf", R"py(
function = Callable(lambda: None)
before = sys.getrefcount(function)
app.run_function(function)
app.run_on_main(function)
wrapper = brindle.PythonFunction(function)
app.run_function(wrapper)
expect(sys.getrefcount(function), before + 1)
del wrapper
try:
    app.scene.name = function
except brindle.Error:
    pass
expect(sys.getrefcount(function), before)
)py"},
    {"AThreadOfTheScriptMayCallAndDrop", R"py(
function = Callable(lambda: threading.get_ident())
before = sys.getrefcount(function)
native.hold(function)
seen = []
def work():
    seen.append((native.call(), threading.get_ident()))
    native.drop_elsewhere()
thread = threading.Thread(target=work)
thread.start()
thread.join()
expect(len({str(int(v) & 0xffff) for v in seen[0]}), 1)
expect(sys.getrefcount(function), before)
)py"},
    {"FunctionsStillHeldAtTheEndAreLeftAlone", R"py(
native.hold(Callable(lambda: 7))
kept = brindle.PythonFunction(Callable(lambda: 7))
cycle = Callable(lambda: 7)
cycle.me = cycle
)py",
     3},
    {"AFunctionThatWaitsInTheEventQueueAtTheEndIsLeftAlone", R"py(
native.hold(lambda: print("ran", file=sys.stderr))
native.post()
native.drop()
)py",
     2},
};

class ScriptFunctionTest : public testing::TestWithParam<Program> {};

TEST_P(ScriptFunctionTest, KeepsItsPromise)
{
    const auto run = [](Interactive& application) {
        application.mustExecute(frame);
        application.mustExecute(GetParam().script);
    };
    addNativeModule();
    EXPECT_INTERACTIVE(run, "^" + std::to_string(GetParam().left) + " objects left\n$");
}

INSTANTIATE_TEST_SUITE_P(Each, ScriptFunctionTest, testing::ValuesIn(programs),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
