#include "bench/support/project.h"

#include "core/attributes/attribute.h"
#include "core/attributes/attributelist.h"
#include "core/host/at_attr.h"
#include "core/host/mo_node.h"
#include "core/nodes/node.h"

#include <benchmark/benchmark.h>

#include <utility>

// The cost of making a wrapper and of carrying it in a handle.

namespace {

void makeNodeWrapper(benchmark::State& state)
{
    MO_Node& node = bench::Project::ofSize(10).node(0);
    for (auto _ : state) {
        const OMC::Obj wrapper(OMC::Node::getWrapped(&node));
        benchmark::DoNotOptimize(wrapper.get());
    }
}

void makeAttributeWrapper(benchmark::State& state)
{
    AT_Attr* angle = bench::Project::ofSize(10).node(0).findAttributeByKeyword(QStringLiteral("angle"));
    for (auto _ : state) {
        const OMC::Obj wrapper(OMC::Attribute::getWrapped(angle, {}));
        benchmark::DoNotOptimize(wrapper.get());
    }
}

void makeListWrapper(benchmark::State& state)
{
    MO_Node& node = bench::Project::ofSize(10).node(0);
    for (auto _ : state) {
        const OMC::Obj wrapper(new OMC::AttributeList(&node, {}, OMC::AttributeList::AllOfLevel));
        benchmark::DoNotOptimize(wrapper.get());
    }
}

/// There and back: two moves.
void moveObj(benchmark::State& state)
{
    OMC::Obj handle(OMC::Node::getWrapped(&bench::Project::ofSize(10).node(0)));
    for (auto _ : state) {
        OMC::Obj other(std::move(handle));
        benchmark::DoNotOptimize(other.get());
        handle = std::move(other);
    }
}

void copyObj(benchmark::State& state)
{
    const OMC::Obj handle(OMC::Node::getWrapped(&bench::Project::ofSize(10).node(0)));
    for (auto _ : state) {
        const OMC::Obj other(handle);
        benchmark::DoNotOptimize(other.get());
    }
}

BENCHMARK(makeNodeWrapper);
BENCHMARK(makeAttributeWrapper);
BENCHMARK(makeListWrapper);
BENCHMARK(moveObj);
BENCHMARK(copyObj);

} // namespace
