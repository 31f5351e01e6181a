#include "core/bridges/pythonfunction.h"
#include "core/frame/pythonthread.h"
#include "core/frame/scriptenginegenerator.h"
#include "core/host/scp_pythonengine.h"
#include "tests/service/support/interactive.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <algorithm>
#include <string>
#include <vector>

namespace {

TEST(ServiceLibraryTest, InstallsEverythingWhileItIsLoaded)
{
    brindle::engine::setBatchMode(brindle::engine::BatchMode::Python);
    {
        const brindle::engine::Application application(QStringLiteral("test"), QStringLiteral("1"), false);
        const auto session = brindle::engine::createPythonSession();
        OMC::ScriptEngineGeneratorInterface::loadScriptInterface(session.get());
        EXPECT_NE(application.scriptHost()->scriptEngine(), nullptr);
        OMC::ScriptEngineGeneratorInterface::unloadScriptInterface(session.get());
        OMC::ScriptEngineGeneratorInterface::destroyScriptInterface(session.get());
    }
    brindle::engine::setBatchMode(brindle::engine::BatchMode::None);
    EXPECT_NE(OMC::ScriptEngineGeneratorInterface::instance(), nullptr);
    EXPECT_NE(OMC::PythonThreadHelper::helper(), nullptr);
    EXPECT_NE(OMC::PythonFunction::helperFunc(), nullptr);
    EXPECT_EQ(SCP_PythonEngine::mainThreadState(), 0);
}

TEST(ScriptEngineTest, AnApplicationGoesInAndOutOfPython)
{
    EXPECT_INTERACTIVE(
        [](Interactive& application) {
            application.mustExecute("import sys\nkept = 7\n");
            application.mustExecute("print(kept, app, brindle.application() is app, file=sys.stderr)\n");
        },
        "7 BrindleApplication\\(\\) True\n0 objects left");
}

TEST(ScriptEngineTest, AStatementThatRaisesIsPrintedAndTheApplicationGoesOn)
{
    EXPECT_INTERACTIVE(
        [](Interactive& application) {
            if (application.execute("1 / 0\n") || application.execute("import\n") || application.execute("exit(3)\n"))
                std::_Exit(9);
            application.mustExecute("import sys; print('still here', file=sys.stderr)\n");
        },
        "ZeroDivisionError: division by zero\n(.|\n)*SyntaxError: invalid syntax\nstill here\n0 objects left");
}

TEST(ScriptEngineTest, AnInterpreterIsBegunOnce)
{
    EXPECT_INTERACTIVE(
        [](Interactive& application) {
            const std::unique_ptr<BAPP_ScriptEngine> second(
                OMC::ScriptEngineGeneratorInterface::instance()->create(&application.session()));
            QString error;
            if (second->start(error))
                std::_Exit(9);
            std::fprintf(stderr, "%s\n", qPrintable(error));
            std::fprintf(stderr, "%d\n", second->run({"nothing.py"}, {}));
        },
        "it runs already\nbrindle: Python can't start: it runs already\n1\n0 objects left");
}

TEST(ScriptEngineTest, ThreadsAtTheEndMayStillCallTheMainThread)
{
    EXPECT_INTERACTIVE(
        [](Interactive& application) {
            application.mustExecute(R"(
import sys, threading, time
def work():
    time.sleep(0.05)
    app.run_on_main(lambda: print(threading.current_thread() is threading.main_thread(), file=sys.stderr), True)
threading.Thread(target=work).start()
)");
        },
        "True\n0 objects left");
}

using Part = Interactive::Part;

/// The orders in which an application may end.
std::vector<std::vector<Part>> endingOrders()
{
    std::vector<Part> parts{Part::Project, Part::Scripting, Part::Session, Part::EventLoop};
    std::vector<std::vector<Part>> all;
    do
        all.push_back(parts);
    while (std::next_permutation(parts.begin(), parts.end()));
    return all;
}

class EndingTest : public testing::TestWithParam<std::vector<Part>> {};

TEST_P(EndingTest, AScriptThatStillHoldsEverythingIsNoHindrance)
{
    EXPECT_INTERACTIVE(
        [](Interactive& application) {
            application.mustExecute(R"(
import threading, time
kept = [app, app.scene, list(app.scene.nodes), iter(app.scene.nodes), app.scene.nodes.create, app.locked()]
kept.append(brindle.PythonFunction(lambda: kept))
done = threading.Event()
def work():
    while not done.is_set():
        try:
            with app.locked():
                [node.name for node in app.scene.nodes]
            app.run_function(lambda: app.scene.name)
            brindle.application()
        except (brindle.Error, AttributeError):
            pass
        time.sleep(0.001)
threads = [threading.Thread(target=work) for _ in range(2)]
for thread in threads: thread.start()
threading._register_atexit(done.set)
time.sleep(0.02)
)");
            for (const Part part : GetParam())
                application.end(part);
        },
        "^[0-9] objects left\n$");
}

std::string nameOf(const testing::TestParamInfo<std::vector<Part>>& info)
{
    constexpr const char* names[] = {"Project", "Scripting", "Session", "EventLoop"};
    std::string name;
    for (const Part part : info.param)
        name += names[static_cast<int>(part)];
    return name;
}

INSTANTIATE_TEST_SUITE_P(Each, EndingTest, testing::ValuesIn(endingOrders()), &nameOf);

TEST(ScriptEngineTest, AProjectThatIsClosedWithoutAWordIsNotTheOneThatIsOpen)
{
    EXPECT_INTERACTIVE(
        [](Interactive& application) {
            SC_ProjectManager& projects = *application.session().projectManager();
            projects.closeProject();
            application.mustExecute("import sys; print(brindle.application(), file=sys.stderr)\n");
            QString error;
            const QTemporaryDir folder;
            projects.createProject(folder.filePath("other"), error);
            application.mustExecute(R"(
other = brindle.application()
print(other is app, other.scene.name, other is brindle.application(), file=sys.stderr)
try:
    app.scene
except brindle.Error as error:
    print(error, file=sys.stderr)
)");
            projects.closeProject();
        },
        "None\nFalse Scene-1 True\nObject is no longer valid.\n0 objects left");
}

TEST(ScriptEngineTest, AProjectThatClosesTakesItsApplicationAlong)
{
    EXPECT_INTERACTIVE(
        [](Interactive& application) {
            application.mustExecute("scene = app.scene\n");
            OMC::ScriptEngineGeneratorInterface::unloadProject(&application.session());
            application.session().projectManager()->closeProject();
            application.mustExecute(R"(
import sys
print(brindle.application(), file=sys.stderr)
try:
    scene.name
except brindle.Error as error:
    print(error, file=sys.stderr)
)");
        },
        "None\nObject is no longer valid.\n0 objects left");
}

} // namespace
