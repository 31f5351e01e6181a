#include "bench/support/project.h"

#include <benchmark/benchmark.h>

#include <stdexcept>

// Writing the project folder and reading it again.

namespace {

void save(const bench::Project& project)
{
    QString error;
    if (!project.projectManager().saveProject(error))
        throw std::runtime_error(error.toStdString());
}

void saveProject(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    const bench::Project& project = bench::Project::ofSize(count);
    for (auto _ : state)
        save(project);
    state.SetComplexityN(count);
}

void openProject(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    bench::Project& project = bench::Project::ofSize(count);
    save(project);
    for (auto _ : state)
        project.reopen();
    state.SetComplexityN(count);
}

BENCHMARK(saveProject)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);
BENCHMARK(openProject)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);

} // namespace
