#include "tests/core/support/loadinghost.h"

#include <gtest/gtest.h>

#include <QDir>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

/// The services that a library gives to its loader.
enum class Gives { NoLibrary, NothingInstalled, Nothing, Services };

struct Library {
    const char* name;
    Gives gives;
};

void PrintTo(const Library& library, std::ostream* stream)
{
    *stream << library.name;
}

enum Step { Load, LoadProject, UnloadProject, Unload, Destroy, LoadVectorization, UnloadVectorization, StepCount };

/// The expected outcome of the steps: the lines on standard error, and what is registered with the application.
struct Model {
    explicit Model(Gives library) : gives(library) {}

    Gives gives;
    bool loaded = false;
    bool engine = false;
    bool registered = false;
    bool vectorization = false;
    bool vectorizationRegistered = false;
    std::string text;

    bool hasGenerators() const { return loaded && gives != Gives::NothingInstalled; }
    void loadLibrary()
    {
        if (!loaded && gives != Gives::NoLibrary) {
            loaded = true;
            text += gives == Gives::Nothing ? "" : "<loaded>";
        }
    }
    void tell(const std::string& told) { text += gives == Gives::Services ? told : std::string(); }

    void take(Step step)
    {
        switch (step) {
        case Load:
            if (!engine) {
                loadLibrary();
                engine = gives == Gives::Services;
                text += engine ? "<create>" : noEngine;
            }
            registered = engine;
            break;
        case LoadProject:
            hasGenerators() ? tell("<load project>") : void(text += noProject);
            break;
        case UnloadProject:
            if (hasGenerators())
                tell("<unload project>");
            break;
        case Unload:
            registered = false;
            break;
        case Destroy:
            text += engine ? "<engine destroyed>" : "";
            engine = registered = false;
            break;
        case LoadVectorization:
            if (!vectorization) {
                loadLibrary();
                if (!hasGenerators())
                    text += noVectorization;
                else
                    tell("<create vectorization>");
                vectorization = gives == Gives::Services;
            }
            vectorizationRegistered = vectorization;
            break;
        case UnloadVectorization:
            text += vectorization ? "<vectorization destroyed>" : "";
            vectorization = vectorizationRegistered = false;
            break;
        case StepCount:
            break;
        }
    }
};

void take(const LoadingHost& host, Step step)
{
    switch (step) {
    case Load:
        return host.load();
    case LoadProject:
        return host.loadProject();
    case UnloadProject:
        return host.unloadProject();
    case Unload:
        return host.unload();
    case Destroy:
        return host.destroy();
    case LoadVectorization:
        return host.loadVectorization();
    case UnloadVectorization:
        return Vectorization::unloadInterface();
    case StepCount:
        break;
    }
}

/// The text that a call writes to standard error.
template <typename Call>
std::string errorsOf(Call call)
{
    testing::internal::CaptureStderr();
    call();
    return testing::internal::GetCapturedStderr();
}

class LoadingSequencesTest : public testing::TestWithParam<Library> {};

TEST_P(LoadingSequencesTest, EverySequenceOfStepsKeepsToTheRules)
{
    constexpr int length = 4;
    const auto all = [] {
        const Library& library = GetParam();
        brindle::engine::setBatchMode(brindle::engine::BatchMode::Python);
        brindle::engine::setBinDir(QStringLiteral(BRINDLE_TEST_LIBRARIES "/") + QLatin1String(library.name));
        QDir::setCurrent(QDir::tempPath());
        const QString before = QDir::currentPath();
        const LoadingHost host;
        Model model(library.gives);
        int wrong = 0;
        int count = 1;
        for (int i = 0; i < length; ++i)
            count *= StepCount;
        for (int number = 0; number < count; ++number) {
            model.text.clear();
            const std::string text = errorsOf([&] {
                for (int rest = number, i = 0; i < length; ++i, rest /= StepCount) {
                    take(host, Step(rest % StepCount));
                    model.take(Step(rest % StepCount));
                    const BAPP_ScriptHost* scripts = host.application->scriptHost();
                    wrong += bool(scripts->scriptEngine()) != model.registered;
                    wrong += bool(scripts->vectorizationInterface()) != model.vectorizationRegistered;
                }
                for (const Step step : {Destroy, UnloadVectorization}) {
                    take(host, step);
                    model.take(step);
                }
            });
            if (text != model.text && ++wrong < 5)
                std::fprintf(stderr, "sequence %d: %s\ninstead of: %s\n", number, text.c_str(), model.text.c_str());
        }
        wrong += QDir::currentPath() != before;
        std::fprintf(stderr, "%d wrong", wrong);
        std::_Exit(wrong != 0);
    };
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(all(), testing::ExitedWithCode(0), "^0 wrong$");
}

INSTANTIATE_TEST_SUITE_P(Each, LoadingSequencesTest,
                         testing::Values(Library{"nowhere", Gives::NoLibrary}, Library{"broken", Gives::NoLibrary},
                                         Library{"silent", Gives::NothingInstalled},
                                         Library{"refusing", Gives::Nothing}, Library{"telling", Gives::Services}),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
