#include "bench/support/project.h"

#include "core/host/mo_node.h"
#include "core/host/sc_projectcmds.h"
#include "core/host/tu_node.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <stdexcept>

// Writing the project folder and reading it again: one scene of many nodes, and many scenes.

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

/// A project of scenes with a hundred nodes each.
class Scenes {
public:
    static constexpr int nodesInEach = 100;

    explicit Scenes(int nodes) : m_project(std::make_unique<bench::Project>())
    {
        SC_ProjectCommon* common = project().projectCommon();
        for (int number = 2; number <= nodes / nodesInEach; ++number) {
            SC_ProjectCmds::AddSceneCmd(common, QStringLiteral("Scene-%1").arg(number)).execute();
        }
        forEach([](MO_Node& top) {
            bool flag = true;
            while (top.group()->nSubNodes() < nodesInEach)
                tu_node::AddSubNodeCmd(top.group(), TUGroup::createNode(QStringLiteral("PEG"), 0, 0, 0, flag, nullptr))
                    .execute();
        });
        save(*m_project);
    }

    /// Changes a node in each scene, so that each has to be written.
    void change()
    {
        ++m_changes;
        forEach([this](MO_Node& top) { tu_node::SetXYCmd(top.group()->subNode(0u), m_changes, 0).execute(); });
    }

    bench::Project& operator*() { return *m_project; }

private:
    SC_Project& project() const { return *m_project->projectManager().project(); }

    template <typename Action>
    void forEach(Action action)
    {
        for (int place = 0; place < project().sceneCount(); ++place)
            action(*dynamic_cast<TUScene&>(*project().sceneAt(place)).getRootGroup());
    }

    std::unique_ptr<bench::Project> m_project;
    int m_changes = 0;
};

void saveScenes(benchmark::State& state)
{
    bench::Project::dropShared();
    Scenes scenes(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        scenes.change();
        state.ResumeTiming();
        save(*scenes);
    }
    state.SetComplexityN(state.range(0));
}

void openScenes(benchmark::State& state)
{
    bench::Project::dropShared();
    Scenes scenes(static_cast<int>(state.range(0)));
    for (auto _ : state)
        (*scenes).reopen();
    state.SetComplexityN(state.range(0));
}

BENCHMARK(saveProject)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);
BENCHMARK(openProject)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);
BENCHMARK(saveScenes)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);
BENCHMARK(openScenes)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);

} // namespace
