#include "bench/support/project.h"

#include "core/attributes/attributelist.h"
#include "core/host/mo_node.h"
#include "core/host/mo_porttransform.h"
#include "core/host/tu_node.h"
#include "core/nodes/node.h"
#include "core/nodes/pegnode.h"

#include <benchmark/benchmark.h>

#include <stdexcept>
#include <vector>

// Transformations on their way down chains and trees of pegs, and attributes that scripts add to a node.

namespace {

constexpr int pegs = 1000;

double askAt(const MO_Node& node, double frame)
{
    const MO_Module& module = *const_cast<MO_Node&>(node).module();
    const MO_PortTransform* transform = module.getPortTransformation(MO_BaseContext(MO_FrameKey(frame), 0));
    if (!transform)
        throw std::runtime_error("A node has no transformation.");
    return transform->transformation().matrix(false).cells()[0];
}

/// Of the last of a chain, at a frame that nothing was asked of yet.
void transformationOfChain(benchmark::State& state)
{
    const MO_Node& last = bench::Project::ofSize(pegs).node(pegs - 1);
    double frame = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(askAt(last, ++frame));
}

void transformationOfChainAgain(benchmark::State& state)
{
    const MO_Node& last = bench::Project::ofSize(pegs).node(pegs - 1);
    askAt(last, 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(askAt(last, 1));
}

/// The same as a script asks for it: a matrix of its own.
void matrixOfPegAgain(benchmark::State& state)
{
    const bench::Project& project = bench::Project::ofSize(pegs);
    const OMC::Obj handle(OMC::Node::getWrapped(&project.node(pegs - 1)));
    const auto& peg = bench::require<OMC::PegNode>(handle);
    for (auto _ : state)
        benchmark::DoNotOptimize(peg.matrix(1).get());
}

/// Of each of 1,000 pegs in 100 trees, at a frame that nothing was asked of yet.
void transformationsOfTrees(benchmark::State& state)
{
    bench::Project::dropShared();
    bench::Project project;
    project.createNodes(pegs);
    // The chain is cut into pieces of ten, and of each piece the later pegs hang on its first or second one.
    for (int index = 1; index < pegs; ++index) {
        const int place = index % 10;
        tu_node::UnlinkInPortFromOutsideCmd(&project.node(index), 0).execute();
        if (place > 0)
            tu_node::LinkCmd(&project.node(index), 0, &project.node(index - place + (place > 1 && place % 2)), 0)
                .execute();
    }
    std::vector<const MO_Node*> nodes;
    for (int index = 0; index < pegs; ++index)
        nodes.push_back(&project.node(index));
    double frame = 0;
    for (auto _ : state) {
        ++frame;
        for (const MO_Node* node : nodes)
            benchmark::DoNotOptimize(askAt(*node, frame));
    }
}

/// Adds so many attributes to a group of a node, one by one.
void addAttributes(OMC::AttributeList& list, int count)
{
    for (int number = 0; number < count; ++number)
        list.createDynamicAttr(QStringLiteral("meta.a%1").arg(number), QStringLiteral("INT"), QString(), false);
}

void makeDynamicAttributes(benchmark::State& state)
{
    bench::Project::dropShared();
    bench::Project project(1);
    OMC::AttributeList list(&project.node(0), {}, OMC::AttributeList::AllOfLevel);
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state) {
        addAttributes(list, count);
        state.PauseTiming();
        project.commandManager().unexecute(static_cast<unsigned int>(count));
        project.commandManager().clearHistory();
        state.ResumeTiming();
    }
    state.SetComplexityN(count);
}

void undoDynamicAttributes(benchmark::State& state)
{
    bench::Project::dropShared();
    bench::Project project(1);
    OMC::AttributeList list(&project.node(0), {}, OMC::AttributeList::AllOfLevel);
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        project.commandManager().clearHistory();
        addAttributes(list, count);
        state.ResumeTiming();
        project.commandManager().unexecute(static_cast<unsigned int>(count));
    }
    state.SetComplexityN(count);
}

BENCHMARK(transformationOfChain);
BENCHMARK(transformationOfChainAgain);
BENCHMARK(matrixOfPegAgain);
BENCHMARK(transformationsOfTrees);
BENCHMARK(makeDynamicAttributes)->Arg(10000)->Complexity(benchmark::oN);
BENCHMARK(undoDynamicAttributes)->Arg(10000)->Complexity(benchmark::oN);

} // namespace
