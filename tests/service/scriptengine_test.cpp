#include "core/bridges/pythonfunction.h"
#include "core/frame/pythonthread.h"
#include "core/frame/scriptenginegenerator.h"
#include "core/host/scp_pythonengine.h"
#include "tests/service/support/interactive.h"

#include <gtest/gtest.h>

namespace {

TEST(ServiceLibraryTest, InstallsEverythingWhileItIsLoaded)
{
    engine::setBatchMode(engine::BatchMode::Python);
    {
        const engine::Application application(QStringLiteral("test"), QStringLiteral("1"), false);
        const auto session = engine::createPythonSession();
        OMC::ScriptEngineGeneratorInterface::loadScriptInterface(session.get());
        EXPECT_NE(application.scriptHost()->scriptEngine(), nullptr);
        OMC::ScriptEngineGeneratorInterface::unloadScriptInterface(session.get());
        OMC::ScriptEngineGeneratorInterface::destroyScriptInterface(session.get());
    }
    engine::setBatchMode(engine::BatchMode::None);
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
            std::fprintf(stderr, "%d\n", second->run({"nothing.py"}));
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
    app.run_on_main(lambda: print(threading.current_thread() is threading.main_thread(), file=sys.stderr))
threading.Thread(target=work).start()
)");
        },
        "True\n0 objects left");
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
