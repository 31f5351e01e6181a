#include "bench/support/project.h"

#include <benchmark/benchmark.h>

#include <memory>

// Making nodes that feed each other, and taking all of it back in one step.

namespace {

void createAndLink(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    bench::Project::dropShared();
    std::unique_ptr<bench::Project> project;
    for (auto _ : state) {
        state.PauseTiming();
        project.reset();
        project = std::make_unique<bench::Project>();
        state.ResumeTiming();
        project->createNodes(count);
    }
    state.SetComplexityN(count);
}

void undoCreation(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    bench::Project::dropShared();
    bench::Project project(count);
    OMC::History history = project.history();
    for (auto _ : state) {
        history.undo(1);
        state.PauseTiming();
        history.redo(1);
        state.ResumeTiming();
    }
    state.SetComplexityN(count);
}

BENCHMARK(createAndLink)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);
BENCHMARK(undoCreation)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);

} // namespace
