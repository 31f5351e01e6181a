#include "bench/support/project.h"

#include "core/attributes/doubleattribute.h"
#include "core/host/at_attr.h"
#include "core/host/mo_node.h"
#include "core/host/tu_node.h"
#include "core/scene/scene.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

// A bracket of many changes, taken back and done again; and what the entries of a long undo list weigh.

namespace {

constexpr int nodeCount = 100;

/// Moves one node after the other.
void move(const bench::Project& project, int changes)
{
    for (int change = 0; change < changes; ++change) {
        MO_Node& node = project.node(change % nodeCount);
        project.commandManager().execute(new tu_node::SetXYCmd(&node, change, change / nodeCount),
                                         QStringLiteral("Set X Position"));
    }
}

/// One bracket of so many changes in a project of its own.
class Bracket {
public:
    explicit Bracket(int changes) : m_project(nodeCount), history(m_project.history())
    {
        history.clear();
        history.begin(QStringLiteral("Move all"));
        move(m_project, changes);
        history.end();
    }

private:
    bench::Project m_project;

public:
    OMC::History history;
};

void undoBracket(benchmark::State& state)
{
    bench::Project::dropShared();
    Bracket bracket(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        bracket.history.undo(1);
        state.PauseTiming();
        bracket.history.redo(1);
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void redoBracket(benchmark::State& state)
{
    bench::Project::dropShared();
    Bracket bracket(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        bracket.history.undo(1);
        state.ResumeTiming();
        bracket.history.redo(1);
    }
    state.SetComplexityN(state.range(0));
}

std::size_t bytesInUse()
{
    const struct mallinfo2 info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// Measures the memory of undo entries, one for each change: the counter "bytes" is for one entry.
template <typename Change>
void weigh(benchmark::State& state, const bench::Project& project, Change change)
{
    OMC::History history = project.history();
    const auto count = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        history.clear();
        const std::size_t before = bytesInUse();
        state.ResumeTiming();
        change(count);
        state.counters["bytes"] = static_cast<double>(bytesInUse() - before) / count;
    }
    if (history.getSizeExecuted() != static_cast<std::size_t>(count))
        state.SkipWithError("the list holds other entries");
}

void historyOfMoves(benchmark::State& state)
{
    bench::Project::dropShared();
    const bench::Project project(nodeCount);
    weigh(state, project, [&project](int count) { move(project, count); });
}

/// Values of keys that stand already: what they weigh themselves is none of the list's.
void historyOfKeys(benchmark::State& state)
{
    bench::Project::dropShared();
    const bench::Project project(1);
    const OMC::Obj wrapper =
        OMC::Attribute::getWrapped(project.node(0).findAttributeByKeyword(QStringLiteral("angle")), {});
    auto& angle = bench::require<OMC::DoubleAttribute>(wrapper);
    for (int frame = 1; frame <= 60; ++frame)
        angle.setValue(frame, 0.5, false);
    weigh(state, project, [&angle](int count) {
        for (int change = 0; change < count; ++change)
            angle.setValue(1 + change % 60, change, false);
    });
}

BENCHMARK(undoBracket)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);
BENCHMARK(redoBracket)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);
BENCHMARK(historyOfMoves)->RangeMultiplier(10)->Range(1000, 100000);
BENCHMARK(historyOfKeys)->RangeMultiplier(10)->Range(1000, 100000);

} // namespace
