#include "core/frame/application.h"

#include "tests/core/support/embedded.h"

#include <QMetaObject>

#include <string>
#include <thread>
#include <tuple>

namespace {

/// The root objects that a service library adds.
class TestApplication : public OMC::Application {
public:
    using Application::Application;
    OMC::BaseObject* copy() const override { return new TestApplication(*this); }
    OMC::Obj getProject() const override { return {}; }
    OMC::Obj getScenes() const override { return {}; }
    using Application::context;
};

/// The lines that a call writes to the engine's log, debug lines included.
template <typename Call>
std::string logOf(Call call)
{
    qputenv("BRINDLE_DEBUG", "1");
    testing::internal::CaptureStderr();
    call();
    const std::string text = testing::internal::GetCapturedStderr();
    qunsetenv("BRINDLE_DEBUG");
    return text;
}

TEST(ApplicationTest, AnApplicationSaysWhatItIs)
{
    EXPECT_EQ(TestApplication(nullptr).__str__(), "BrindleApplication()");
}

TEST(ApplicationTest, ACopyIsOfTheSameSession)
{
    StandInSession session;
    const TestApplication application(&session);
    const OMC::Obj copy(application.copy());
    EXPECT_EQ(application.context(), &session);
    EXPECT_EQ(OMC::objectIn<TestApplication>(copy)->context(), &session);
}

TEST(ApplicationTest, EachKindOfMessageGoesToTheLogAsItIs)
{
    TestApplication application(nullptr);
    const QString message = QStringLiteral("Größe: 100%");
    EXPECT_EQ(logOf([&] { application.trace(message); }), "Größe: 100%\n");
    EXPECT_EQ(logOf([&] { application.log(message); }), "Größe: 100%\n");
    EXPECT_EQ(logOf([&] { application.error(message); }), "Error: Größe: 100%\n");
    EXPECT_EQ(logOf([&] { application.debug(message); }), "Debug: Größe: 100%\n");
}

TEST(ApplicationTest, ALevelIsReadInAnyCaseOfLetters)
{
    const std::tuple<const char*, const char*> rows[] = {
        {"error", "Error: m\n"}, {"ERROR", "Error: m\n"}, {"eRRor", "Error: m\n"},
        {"debug", "Debug: m\n"}, {"Debug", "Debug: m\n"}, {"errors", "m\n"},
        {"debugging", "m\n"},    {"info", "m\n"},         {"", "m\n"},
        {" error", "m\n"},
    };
    TestApplication application(nullptr);
    for (const auto& [level, line] : rows) {
        EXPECT_EQ(logOf([&, name = level] { application.log(QStringLiteral("m"), QString::fromLatin1(name)); }), line)
            << level;
    }
}

TEST(ApplicationTest, AScriptThreadLogsWithoutTheLock)
{
    PythonEngine engine;
    StandInSession session;
    session.python = &engine;
    TestApplication application(&session);
    std::string failure;
    const std::string text = logOf([&] {
        std::thread([&] {
            failure = failureOf([&] {
                application.trace(QStringLiteral("one"));
                application.error(QStringLiteral("two"));
            });
        }).join();
    });
    EXPECT_EQ(failure, "no exception");
    EXPECT_EQ(text, "one\nError: two\n");
}

TEST(ApplicationTest, PendingEventsAreRun)
{
    TestApplication application(nullptr);
    int ran = 0;
    QMetaObject::invokeMethod(
        &application, [&] { ++ran; }, Qt::QueuedConnection);
    EXPECT_EQ(ran, 0);
    application.processOneEvent();
    EXPECT_EQ(ran, 1);
    application.processOneEvent();
    EXPECT_EQ(ran, 1);
}

TEST(ApplicationTest, FunctionsGoToTheThreadManager)
{
    TestApplication application(nullptr);
    EXPECT_EQ(failureOf([&] { application.runFunction(QVariant()); }), "Expected a Python Function.");
    EXPECT_EQ(failureOf([&] { application.runOnMain(QVariant(), true); }),
              "Unable to use run_on_main() in an external Python interpreter.");
    const StandInPython python;
    PythonEngine engine;
    StandInSession session;
    session.python = &engine;
    int calls = 0;
    _object object = standInFunction([&] { ++calls; });
    OMC::PythonFunction function;
    function.set(&object);
    application.runFunction(argument(function));
    EXPECT_EQ(calls, 1);
    application.runOnMain(argument(function), true);
    EXPECT_EQ(calls, 2);
}

TEST(ApplicationTest, AScriptThreadTakesAndGivesBackTheLock)
{
    PythonEngine engine;
    StandInChangeManager changes;
    StandInSession session;
    session.python = &engine;
    session.changes = &changes;
    TestApplication application(&session);
    std::string failures[3];
    bool silenced = false;
    std::thread([&] {
        failures[0] = failureOf([&] { application.threadLock(); });
        silenced = !changes.enabled;
        failures[1] = failureOf([] { OMC::BaseObject::validateThreadLock(); });
        failures[2] = failureOf([&] { application.threadUnlock(); });
    }).join();
    EXPECT_TRUE(silenced);
    EXPECT_TRUE(changes.enabled);
    for (const std::string& failure : failures)
        EXPECT_EQ(failure, "no exception");
}

} // namespace
