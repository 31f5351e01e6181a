#include "core/frame/scriptenginegenerator.h"
#include "core/frame/vectorizationinterface.h"
#include "engine/engine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// Each case runs in a process of its own: a service library that was loaded stays.

namespace {

using Scripts = OMC::ScriptEngineGeneratorInterface;
namespace Vectorization = OMC::VectorizationInterface;

const std::string noEngine = "Failed to load Javascript Engine.";
const std::string noProject = "Failed to register project to Javascript Engine.\n";
const std::string noVectorization = "Failed to load Vectorization Interface.\n";

/// The host's side of a case: a batch of Python with a session and an application.
struct Host {
    std::unique_ptr<engine::Application> application =
        std::make_unique<engine::Application>(QStringLiteral("test"), QStringLiteral("1"), false);
    std::unique_ptr<SC_SessionContext> session = engine::createPythonSession();

    void tell(const char* what) const { std::fprintf(stderr, "(%s)", what); }
    /// Tells what is registered with the application.
    void look() const
    {
        tell(application->scriptHost()->scriptEngine() ? "engine" : "no engine");
        tell(application->scriptHost()->vectorizationInterface() ? "vectorization" : "no vectorization");
    }
    void load() const { Scripts::loadScriptInterface(session.get()); }
    void unload() const { Scripts::unloadScriptInterface(session.get()); }
    void destroy() const { Scripts::destroyScriptInterface(session.get()); }
    void loadProject() const { Scripts::loadProject(session.get(), nullptr); }
    void unloadProject() const { Scripts::unloadProject(session.get()); }
    void loadVectorization() const { Vectorization::loadInterface(session.get()); }
};

struct Case {
    const char* name;
    const char* library; ///< The folder of the test's service library.
    std::function<void(Host&)> steps;
    std::string text; ///< All that is written to standard error.
};

void PrintTo(const Case& entry, std::ostream* stream)
{
    *stream << entry.name;
}

[[noreturn]] void run(const Case& entry)
{
    engine::setBatchMode(engine::BatchMode::Python);
    engine::setBinDir(QStringLiteral(BRINDLE_TEST_LIBRARIES "/") + QLatin1String(entry.library));
    const QString before = QDir::tempPath();
    QDir::setCurrent(before);
    Host host;
    entry.steps(host);
    std::fflush(stderr);
    std::_Exit(QDir::currentPath() == QDir(before).canonicalPath() ? 0 : 3);
}

const std::vector<Case> cases = {
    {"OutsideABatchNothingHappens", "telling",
     [](Host& host) {
         engine::setBatchMode(engine::BatchMode::None);
         host.load();
         host.loadVectorization();
         engine::setBatchMode(engine::BatchMode::Rendering);
         host.load();
         host.loadVectorization();
         host.look();
     },
     "(no engine)(no vectorization)"},
    {"WithoutASessionNothingHappens", "telling",
     [](Host&) {
         Scripts::loadScriptInterface(nullptr);
         Vectorization::loadInterface(nullptr);
     },
     ""},
    {"WithoutAnApplicationLoadingFails", "telling",
     [](Host& host) {
         host.application.reset();
         host.load();
         host.loadVectorization();
     },
     noEngine + noVectorization},
    {"AMissingLibraryIsAskedForAgain", "nowhere",
     [](Host& host) {
         host.load();
         host.load();
         host.loadVectorization();
         host.look();
         engine::setBinDir(QStringLiteral(BRINDLE_TEST_LIBRARIES "/telling"));
         host.load();
         host.look();
     },
     noEngine + noEngine + noVectorization + "(no engine)(no vectorization)<loaded><create>(engine)(no vectorization)"},
    {"ALibraryThatCantBeLoaded", "broken",
     [](Host& host) {
         host.load();
         host.loadVectorization();
         host.loadProject();
         host.unloadProject();
         host.unload();
         host.destroy();
         Vectorization::unloadInterface();
         host.load();
     },
     noEngine + noVectorization + noProject + noEngine},
    {"ALibraryThatInstallsNothing", "silent",
     [](Host& host) {
         host.load();
         host.loadVectorization();
         host.loadProject();
         host.unloadProject();
         host.unload();
         host.destroy();
         host.load();
     },
     "<loaded>" + noEngine + noVectorization + noProject + noEngine},
    {"GeneratorsThatMakeNothing", "refusing",
     [](Host& host) {
         host.load();
         host.loadVectorization();
         host.loadProject();
         host.unloadProject();
         host.look();
         host.load();
         host.loadVectorization();
     },
     noEngine + "(no engine)(no vectorization)" + noEngine},
    {"TheWholeSequence", "telling",
     [](Host& host) {
         host.load();
         host.loadVectorization();
         host.look();
         host.loadProject();
         host.unloadProject();
         host.loadProject();
         host.unloadProject();
         host.unload();
         host.destroy();
         Vectorization::unloadInterface();
         host.look();
     },
     "<loaded><create><create vectorization>(engine)(vectorization)<load project><unload project><load project>"
     "<unload project><engine destroyed><vectorization destroyed>(no engine)(no vectorization)"},
    {"TheVectorizationMayComeFirst", "telling",
     [](Host& host) {
         host.loadVectorization();
         host.load();
         host.look();
     },
     "<loaded><create vectorization><create>(engine)(vectorization)"},
    {"LoadingAgainUsesWhatThereIs", "telling",
     [](Host& host) {
         host.load();
         host.load();
         host.loadVectorization();
         host.loadVectorization();
         host.look();
     },
     "<loaded><create><create vectorization>(engine)(vectorization)"},
    {"LoadingAfterUnloadingUsesTheSameEngine", "telling",
     [](Host& host) {
         host.load();
         BAPP_ScriptEngine* before = host.application->scriptHost()->scriptEngine();
         host.unload();
         host.look();
         host.load();
         host.tell(host.application->scriptHost()->scriptEngine() == before ? "same" : "other");
     },
     "<loaded><create>(no engine)(no vectorization)(same)"},
    {"LoadingAfterDestroyingMakesANewEngine", "telling",
     [](Host& host) {
         host.load();
         host.unload();
         host.destroy();
         host.destroy();
         host.load();
         host.look();
         host.loadVectorization();
         Vectorization::unloadInterface();
         Vectorization::unloadInterface();
         host.loadVectorization();
         host.look();
     },
     "<loaded><create><engine destroyed><create>(engine)(no vectorization)<create vectorization>"
     "<vectorization destroyed><create vectorization>(engine)(vectorization)"},
    {"UnloadingWhatWasNeverLoaded", "telling",
     [](Host& host) {
         host.unloadProject();
         host.unload();
         host.destroy();
         Vectorization::unloadInterface();
         host.loadProject();
     },
     noProject},
    {"WithoutAnApplicationTheVectorizationStays", "telling",
     [](Host& host) {
         host.loadVectorization();
         host.application.reset();
         host.unload();
         Vectorization::unloadInterface();
         host.application = std::make_unique<engine::Application>(QStringLiteral("test"), QStringLiteral("1"), false);
         host.loadVectorization();
         host.look();
         Vectorization::unloadInterface();
     },
     "<loaded><create vectorization>" + noVectorization + "(no engine)(vectorization)<vectorization destroyed>"},
    {"ProjectsAreToldAlsoWithoutAnEngine", "telling",
     [](Host& host) {
         host.load();
         host.unload();
         host.destroy();
         host.loadProject();
         host.unloadProject();
     },
     "<loaded><create><engine destroyed><load project><unload project>"},
    {"AnotherGeneratorTakesThePlaceOfTheFirst", "telling",
     [](Host& host) {
         host.load();
         Scripts::setInstance(Scripts::instance());
         Scripts::setInstance(nullptr);
         Vectorization::setGenerator(nullptr);
         host.loadProject();
         host.unloadProject();
         host.look();
         host.loadVectorization();
         host.unload();
         host.destroy();
         host.load();
     },
     "<loaded><create><generator destroyed><vectorization generator destroyed>" + noProject +
         "(engine)(no vectorization)" + noVectorization + "<engine destroyed>" + noEngine},
};

class LoadingTest : public testing::TestWithParam<Case> {};

TEST_P(LoadingTest, KeepsTheSequence)
{
    EXPECT_EXIT(run(GetParam()), testing::ExitedWithCode(0), testing::Eq(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(Each, LoadingTest, testing::ValuesIn(cases),
                         [](const auto& info) { return std::string(info.param.name); });

/// Every sequence of these steps, up to a length, ends as the rules say and crashes nothing.
TEST(LoadingSequencesTest, EverySequenceOfStepsKeepsToTheRules)
{
    enum Step { Load, LoadProject, UnloadProject, Unload, Destroy, StepCount };
    constexpr int length = 5;
    const auto all = [] {
        engine::setBatchMode(engine::BatchMode::Python);
        engine::setBinDir(QStringLiteral(BRINDLE_TEST_LIBRARIES "/telling"));
        const Host host;
        const std::function<void()> steps[StepCount] = {[&] { host.load(); }, [&] { host.loadProject(); },
                                                        [&] { host.unloadProject(); }, [&] { host.unload(); },
                                                        [&] { host.destroy(); }};
        host.load();
        host.unload();
        host.destroy();
        int wrong = 0;
        int count = 1;
        for (int i = 0; i < length; ++i)
            count *= StepCount;
        for (int number = 0; number < count; ++number) {
            bool registered = false;
            for (int rest = number, i = 0; i < length; ++i, rest /= StepCount) {
                const int step = rest % StepCount;
                // Destroying an engine that is still registered would leave the application with it.
                if (step == Destroy && registered)
                    continue;
                steps[step]();
                registered = step == Load || (registered && step != Unload);
                wrong += bool(host.application->scriptHost()->scriptEngine()) != registered;
            }
            host.unload();
            host.destroy();
        }
        std::_Exit(wrong);
    };
    EXPECT_EXIT(all(), testing::ExitedWithCode(0), "<loaded><create>");
}

} // namespace
