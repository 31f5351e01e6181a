#include "bench/support/project.h"

#include "core/attributes/doubleattribute.h"
#include "core/columns/beziercolumn.h"
#include "core/host/at_attr.h"
#include "core/host/mo_node.h"
#include "core/host/tu_timedvalue.h"
#include "core/scene/scene.h"

#include <benchmark/benchmark.h>

#include <memory>

// Values and keyframes: one with its undo entry, many as one entry, taking them back, and evaluating the curve.

namespace {

/// A project with one node whose angle the measurement animates.
struct Animation {
    explicit Animation(int frames) : project(1)
    {
        OMC::Scene(&project.scene()).setFrameCount(frames);
        wrapper = std::make_unique<OMC::Obj>(
            OMC::Attribute::getWrapped(project.node(0).findAttributeByKeyword(QStringLiteral("angle")), {}));
    }

    OMC::DoubleAttribute& angle() { return bench::require<OMC::DoubleAttribute>(*wrapper); }
    void setKeys(int count)
    {
        OMC::History history = project.history();
        history.begin(QStringLiteral("keys"));
        for (int frame = 1; frame <= count; ++frame)
            angle().setValue(frame, frame % 97, false);
        history.end();
    }

    bench::Project project;
    std::unique_ptr<OMC::Obj> wrapper;
};

void setValueWithUndo(benchmark::State& state)
{
    bench::Project::dropShared();
    Animation animation(60);
    OMC::DoubleAttribute& angle = animation.angle();
    double value = 0;
    for (auto _ : state)
        angle.setValue(10, ++value, false);
}

void setKeys(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    bench::Project::dropShared();
    std::unique_ptr<Animation> animation;
    for (auto _ : state) {
        state.PauseTiming();
        animation.reset();
        animation = std::make_unique<Animation>(count);
        state.ResumeTiming();
        animation->setKeys(count);
    }
    state.SetComplexityN(count);
}

void undoKeys(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    bench::Project::dropShared();
    Animation animation(count);
    animation.setKeys(count);
    OMC::History history = animation.project.history();
    for (auto _ : state) {
        history.undo(1);
        state.PauseTiming();
        history.redo(1);
        state.ResumeTiming();
    }
    state.SetComplexityN(count);
}

/// Through the attribute, at a frame between two keys.
void evaluateCurve(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    bench::Project::dropShared();
    Animation animation(2 * count);
    OMC::DoubleAttribute& angle = animation.angle();
    OMC::History history = animation.project.history();
    history.begin(QStringLiteral("keys"));
    for (int key = 0; key < count; ++key)
        angle.setValue(1 + 2 * key, key % 97, false);
    history.end();
    for (auto _ : state)
        benchmark::DoNotOptimize(angle.value(count));
    state.SetComplexityN(count);
}

BENCHMARK(setValueWithUndo);
BENCHMARK(setKeys)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);
BENCHMARK(undoKeys)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);
BENCHMARK(evaluateCurve)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oLogN);

} // namespace
