#include "tests/core/support/loadinghost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

// Each case runs in a process of its own: a service library that was loaded stays.

namespace {

struct Case {
    const char* name;
    const char* library; ///< The folder of the test's service library.
    std::function<void(LoadingHost&)> steps;
    std::string text; ///< All that is written to standard error.
};

void PrintTo(const Case& entry, std::ostream* stream)
{
    *stream << entry.name;
}

[[noreturn]] void run(const Case& entry)
{
    brindle::engine::setBatchMode(brindle::engine::BatchMode::Python);
    brindle::engine::setBinDir(QStringLiteral(BRINDLE_TEST_LIBRARIES "/") + QLatin1String(entry.library));
    const QString before = QDir::tempPath();
    QDir::setCurrent(before);
    LoadingHost host;
    entry.steps(host);
    std::fflush(stderr);
    std::_Exit(QDir::currentPath() == QDir(before).canonicalPath() ? 0 : 3);
}

const std::vector<Case> cases = {
    {"OutsideABatchNothingHappens", "telling",
     [](LoadingHost& host) {
         brindle::engine::setBatchMode(brindle::engine::BatchMode::None);
         host.load();
         host.loadVectorization();
         brindle::engine::setBatchMode(brindle::engine::BatchMode::Rendering);
         host.load();
         host.loadVectorization();
         host.look();
     },
     "(no engine)(no vectorization)"},
    {"WithoutASessionNothingHappens", "telling",
     [](LoadingHost&) {
         Scripts::loadScriptInterface(nullptr);
         Vectorization::loadInterface(nullptr);
     },
     ""},
    {"WithoutAnApplicationLoadingFails", "telling",
     [](LoadingHost& host) {
         host.application.reset();
         host.load();
         host.loadVectorization();
     },
     noEngine + noVectorization},
    {"AMissingLibraryIsAskedForAgain", "nowhere",
     [](LoadingHost& host) {
         host.load();
         host.load();
         host.loadVectorization();
         host.look();
         brindle::engine::setBinDir(QStringLiteral(BRINDLE_TEST_LIBRARIES "/telling"));
         host.load();
         host.look();
     },
     noEngine + noEngine + noVectorization + "(no engine)(no vectorization)<loaded><create>(engine)(no vectorization)"},
    {"ALibraryThatCantBeLoaded", "broken",
     [](LoadingHost& host) {
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
     [](LoadingHost& host) {
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
     [](LoadingHost& host) {
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
     [](LoadingHost& host) {
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
     [](LoadingHost& host) {
         host.loadVectorization();
         host.load();
         host.look();
     },
     "<loaded><create vectorization><create>(engine)(vectorization)"},
    {"LoadingAgainUsesWhatThereIs", "telling",
     [](LoadingHost& host) {
         host.load();
         host.load();
         host.loadVectorization();
         host.loadVectorization();
         host.look();
     },
     "<loaded><create><create vectorization>(engine)(vectorization)"},
    {"LoadingAfterUnloadingUsesTheSameEngine", "telling",
     [](LoadingHost& host) {
         host.load();
         BAPP_ScriptEngine* before = host.application->scriptHost()->scriptEngine();
         host.unload();
         host.look();
         host.load();
         host.tell(host.application->scriptHost()->scriptEngine() == before ? "same" : "other");
     },
     "<loaded><create>(no engine)(no vectorization)(same)"},
    {"LoadingAfterDestroyingMakesANewEngine", "telling",
     [](LoadingHost& host) {
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
     [](LoadingHost& host) {
         host.unloadProject();
         host.unload();
         host.destroy();
         Vectorization::unloadInterface();
         host.loadProject();
     },
     noProject},
    {"WithoutAnApplicationTheVectorizationStays", "telling",
     [](LoadingHost& host) {
         host.loadVectorization();
         host.application.reset();
         host.unload();
         Vectorization::unloadInterface();
         host.application =
             std::make_unique<brindle::engine::Application>(QStringLiteral("test"), QStringLiteral("1"), false);
         host.loadVectorization();
         host.look();
         Vectorization::unloadInterface();
     },
     "<loaded><create vectorization>" + noVectorization + "(no engine)(vectorization)<vectorization destroyed>"},
    {"ProjectsAreToldAlsoWithoutAnEngine", "telling",
     [](LoadingHost& host) {
         host.load();
         host.unload();
         host.destroy();
         host.loadProject();
         host.unloadProject();
     },
     "<loaded><create><engine destroyed><load project><unload project>"},
    {"AnotherGeneratorTakesThePlaceOfTheFirst", "telling",
     [](LoadingHost& host) {
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

} // namespace
