#include "core/bridges/pythonfunction.h"

#include "core/frame/obj.h"
#include "core/host/scp_pythonengine.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/python.h"

#include <gtest/gtest.h>

#include <QMetaMethod>

#include <thread>

namespace {

using OMC::PythonFunction;

const char* const notEnabled = "Wrapper function calling has not been enabled.";
const char* const noObject = "No Python object is available.";

/// Leaves behind a function that nobody drops: its destructor would end the process.
void holdWithoutHelper(_object* object)
{
    auto* function = new PythonFunction;
    EXPECT_EQ(failureOf([&] { function->set(object); }), notEnabled);
    // The new pointer stays stored.
    EXPECT_EQ(function->get(), object);
    std::vector<QVariant> none;
    EXPECT_EQ(failureOf([&] { function->call(none); }), notEnabled);
    EXPECT_EQ(failureOf([&] { const PythonFunction copy(*function); }), notEnabled);
    EXPECT_EQ(failureOf([&] { delete function->copy(); }), notEnabled);
    {
        const StandInPython python;
        // The reference that was never taken is dropped here.
        delete function;
    }
}

class PythonFunctionTest : public testing::Test {
protected:
    StandInPython python;
    _object object = standInFunction([] {});
    _object other = standInFunction([] {});
};

TEST(PythonFunctionWithoutHelperTest, AnEmptyFunctionCanBeBuiltAndNothingElse)
{
    PythonFunction function;
    const PythonFunction copy(function);
    const OMC::Obj clone(function.copy());
    EXPECT_EQ(function.get(), nullptr);
    EXPECT_EQ(function.__str__(), "PythonFunction()");
    function.set(nullptr);
    std::vector<QVariant> none;
    EXPECT_EQ(failureOf([&] { function.call(none); }), notEnabled);
    EXPECT_EQ(failureOf([&] { function.call(); }), notEnabled);
}

TEST(PythonFunctionWithoutHelperTest, AFunctionCanBeHeldButNotCalledOrCopied)
{
    _object object;
    holdWithoutHelper(&object);
    EXPECT_EQ(object.references, -1);
}

TEST(PythonFunctionWithoutHelperTest, AFunctionThatOutlivesTheHelperEndsTheProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            _object object;
            PythonFunction function;
            {
                const StandInPython python;
                function.set(&object);
            }
        },
        "");
}

TEST_F(PythonFunctionTest, AnEmptyFunctionHasNothingToCall)
{
    PythonFunction function;
    EXPECT_EQ(failureOf([&] { function.call(); }), noObject);
    EXPECT_EQ(python.threadCalls, QStringList());
}

TEST_F(PythonFunctionTest, OnePointerSetTwiceIsOneReference)
{
    {
        PythonFunction function;
        function.set(&object);
        function.set(&object);
        EXPECT_EQ(object.references, 1);
        EXPECT_EQ(function.get(), &object);
    }
    EXPECT_EQ(object.references, 0);
}

TEST_F(PythonFunctionTest, ACopyHasAReferenceOfItsOwn)
{
    {
        PythonFunction function;
        function.set(&object);
        const PythonFunction copy(function);
        EXPECT_EQ(object.references, 2);
        const OMC::Obj clone(function.copy());
        EXPECT_EQ(object.references, 3);
        EXPECT_EQ(OMC::objectIn<PythonFunction>(clone)->get(), &object);
    }
    EXPECT_EQ(object.references, 0);
}

TEST_F(PythonFunctionTest, SettingNothingDropsOnceAndTakesNothing)
{
    PythonFunction function;
    function.set(&object);
    function.set(nullptr);
    EXPECT_EQ(object.references, 0);
    EXPECT_EQ(function.get(), nullptr);
    function.set(nullptr);
    EXPECT_EQ(object.references, 0);
}

TEST_F(PythonFunctionTest, AssignmentTakesTheNewOneAndDropsTheOld)
{
    PythonFunction function;
    function.set(&object);
    PythonFunction second;
    second.set(&other);
    function = second;
    EXPECT_EQ(object.references, 0);
    EXPECT_EQ(other.references, 2);
    function = function;
    EXPECT_EQ(other.references, 2);
    function = PythonFunction();
    EXPECT_EQ(other.references, 1);
}

TEST_F(PythonFunctionTest, AResultIsDroppedOrTakenAsTrueOrFalse)
{
    int calls = 0;
    QVariant result;
    object.body = [&](std::vector<QVariant>& arguments) {
        calls += 1 + int(arguments.size());
        return result;
    };
    PythonFunction function;
    function.set(&object);
    function.run();
    EXPECT_EQ(calls, 1);
    std::vector<QVariant> one = {7};
    for (const QVariant& no : {QVariant(), QVariant(0), QVariant(false)}) {
        result = no;
        EXPECT_FALSE(function.test(one));
    }
    result = 3;
    EXPECT_TRUE(function.test(one));
    EXPECT_EQ(calls, 9);
    EXPECT_EQ(python.gilScopes, 0);
    const PythonFunction empty;
    EXPECT_EQ(failureOf([&] { empty.run(); }), noObject);
    EXPECT_EQ(failureOf([&] { empty.test(one); }), noObject);
}

TEST_F(PythonFunctionTest, AssignmentGoesThroughTheVirtualSetter)
{
    class Watched : public PythonFunction {
    public:
        using PythonFunction::operator=;
        void set(_object* function) override
        {
            ++sets;
            PythonFunction::set(function);
        }
        int sets = 0;
    };
    PythonFunction source;
    source.set(&object);
    Watched watched;
    watched = static_cast<const PythonFunction&>(source);
    EXPECT_EQ(watched.sets, 1);
    EXPECT_EQ(object.references, 2);
}

TEST_F(PythonFunctionTest, TheNewReferenceIsTakenAheadOfDroppingTheOld)
{
    QStringList order;
    class Helper final : public OMC::PythonFunctionHelper {
    public:
        explicit Helper(QStringList& order, _object* old) : m_order(order), m_old(old) {}
        void addReference(_object* f) const override { m_order.append(f == m_old ? "take old" : "take new"); }
        void dropReference(_object* f) const override { m_order.append(f == m_old ? "drop old" : "drop new"); }
        _object* objectIn(const QVariant&) const override { return nullptr; }
        bool isCallable(_object*) const override { return true; }

    private:
        QStringList& m_order;
        _object* m_old;
    };
    PythonFunction::helperFunc() = std::make_unique<Helper>(order, &object);
    {
        PythonFunction function;
        function.set(&object);
        order.clear();
        function.set(&other);
    }
    EXPECT_EQ(order, (QStringList{"take new", "drop old", "drop new"}));
}

TEST_F(PythonFunctionTest, ACallPassesItsArgumentsAndItsResult)
{
    QVariantList seen;
    object.body = [&](std::vector<QVariant>& arguments) {
        seen = QVariantList(arguments.begin(), arguments.end());
        return QVariant(7);
    };
    PythonFunction function;
    function.set(&object);
    std::vector<QVariant> arguments{1, QStringLiteral("two")};
    EXPECT_EQ(function.call(arguments), QVariant(7));
    EXPECT_EQ(seen, (QVariantList{1, "two"}));
    EXPECT_EQ(function.call(QVariantList{3}), QVariant(7));
    EXPECT_EQ(seen, QVariantList{3});
    EXPECT_EQ(function.call(), QVariant(7));
    EXPECT_EQ(seen, QVariantList());
}

TEST_F(PythonFunctionTest, ACallIsInsidePythonAndComesOutAgain)
{
    int state = -1;
    int scopes = 0;
    object.body = [&](std::vector<QVariant>&) {
        state = SCP_PythonEngine::mainThreadState();
        scopes = python.gilScopes;
        return QVariant();
    };
    PythonFunction function;
    function.set(&object);
    function.call();
    EXPECT_EQ(state, 1);
    EXPECT_EQ(scopes, 1);
    EXPECT_EQ(SCP_PythonEngine::mainThreadState(), 0);
    EXPECT_EQ(python.gilScopes, 0);
}

TEST_F(PythonFunctionTest, ACallThatFailsComesOutOfPythonAsWell)
{
    object.body = [](std::vector<QVariant>&) -> QVariant { throw OMC::Exception(std::string("It broke.")); };
    PythonFunction function;
    function.set(&object);
    EXPECT_EQ(failureOf([&] { function.call(); }), "It broke.");
    EXPECT_EQ(SCP_PythonEngine::mainThreadState(), 0);
    EXPECT_EQ(python.gilScopes, 0);
}

TEST_F(PythonFunctionTest, AnyThreadMayCall)
{
    int state = -1;
    object.body = [&](std::vector<QVariant>&) {
        state = SCP_PythonEngine::mainThreadState();
        return QVariant();
    };
    PythonFunction function;
    function.set(&object);
    std::thread([&] { function.call(); }).join();
    EXPECT_EQ(state, 0);
}

TEST_F(PythonFunctionTest, AHelperThatCantCallSaysSo)
{
    PythonFunction::helperFunc() = std::make_unique<HelperWithoutCalls>();
    PythonFunction function;
    function.set(&object);
    EXPECT_EQ(failureOf([&] { function.call(); }), "Fail - this should be overridden by target wrappers.\n");
}

TEST_F(PythonFunctionTest, AScriptEngineCallsItThroughTheMetaObject)
{
    int count = -1;
    object.body = [&](std::vector<QVariant>& arguments) {
        count = static_cast<int>(arguments.size());
        return QVariant(QStringLiteral("done"));
    };
    PythonFunction function;
    function.set(&object);
    QVariant result;
    EXPECT_TRUE(QMetaObject::invokeMethod(&function, "call", Q_RETURN_ARG(QVariant, result)));
    EXPECT_EQ(result, QVariant("done"));
    EXPECT_EQ(count, 0);
    EXPECT_TRUE(QMetaObject::invokeMethod(&function, "call", Q_RETURN_ARG(QVariant, result),
                                          Q_ARG(QVariantList, (QVariantList{1, 2}))));
    EXPECT_EQ(count, 2);
}

} // namespace
