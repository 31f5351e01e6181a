#include "bench/support/project.h"

#include "core/attributes/attributelist.h"
#include "core/attributes/doubleattribute.h"
#include "core/nodes/node.h"
#include "core/nodes/nodelist.h"
#include "core/scene/scene.h"

#include <benchmark/benchmark.h>

// Finding nodes among few and many. Neither a look-up nor the chain to a value may depend on the number; a loop costs
// the same for each node.

namespace {

/// The path of a node in the middle of the project.
QString middlePath(benchmark::State& state)
{
    return QStringLiteral("Top/N%1").arg(state.range(0) / 2);
}

void nodeByPath(benchmark::State& state)
{
    const bench::Project& project = bench::Project::ofSize(static_cast<int>(state.range(0)));
    const OMC::NodeList nodes(&project.scene(), false);
    const QString path = middlePath(state);
    for (auto _ : state) {
        const OMC::Obj node = nodes.get(path);
        benchmark::DoNotOptimize(node.get());
    }
}

void chainToValue(benchmark::State& state)
{
    const bench::Project& project = bench::Project::ofSize(static_cast<int>(state.range(0)));
    const OMC::Scene scene(&project.scene());
    const QString path = middlePath(state);
    const QString keyword = QStringLiteral("position.x");
    for (auto _ : state) {
        const OMC::Obj nodes = scene.getNodes();
        const OMC::Obj node = bench::require<OMC::NodeList>(nodes).get(path);
        const OMC::Obj attributes = bench::require<OMC::Node>(node).getAttributes();
        const OMC::Obj attribute = bench::require<OMC::AttributeList>(attributes).get(keyword);
        benchmark::DoNotOptimize(bench::require<OMC::DoubleAttribute>(attribute).value(10));
    }
}

void iterateNames(benchmark::State& state)
{
    const bench::Project& project = bench::Project::ofSize(static_cast<int>(state.range(0)));
    const OMC::NodeList nodes(&project.scene(), false);
    for (auto _ : state) {
        const OMC::Obj loop = nodes.__iter__();
        auto& iterator = bench::require<OMC::NodeList>(loop);
        for (; !iterator.__atend__(); ++iterator) {
            const OMC::Obj node = iterator.__iterItem__();
            benchmark::DoNotOptimize(bench::require<OMC::Node>(node).getName());
        }
    }
    state.SetComplexityN(state.range(0));
}

BENCHMARK(nodeByPath)->RangeMultiplier(10)->Range(1000, 100000);
BENCHMARK(chainToValue)->RangeMultiplier(10)->Range(1000, 100000);
BENCHMARK(iterateNames)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);

} // namespace
