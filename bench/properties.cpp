#include "bench/support/project.h"

#include "core/nodes/node.h"
#include "core/nodes/node_coordinates.h"
#include "core/scene/scene.h"

#include <QMetaProperty>

#include <benchmark/benchmark.h>

// Reading and writing properties, by name as a script engine does, and by a remembered property as a binding does.

namespace {

void readByName(benchmark::State& state, OMC::BaseObject& object, const std::string& name)
{
    for (auto _ : state) {
        bool found = false;
        QVariant value = object.getAttr(name, found);
        benchmark::DoNotOptimize(value);
    }
}

void readRemembered(benchmark::State& state, OMC::BaseObject& object, const char* name)
{
    const QMetaObject* meta = object.metaObject();
    const QMetaProperty property = meta->property(meta->indexOfProperty(name));
    for (auto _ : state) {
        QVariant value = object.readProperty(property);
        benchmark::DoNotOptimize(value);
    }
}

void readIntByName(benchmark::State& state)
{
    OMC::Scene scene(&bench::Project::ofSize(10).scene());
    readByName(state, scene, "frame_count");
}

void readIntRemembered(benchmark::State& state)
{
    OMC::Scene scene(&bench::Project::ofSize(10).scene());
    readRemembered(state, scene, "frame_count");
}

void readTextByName(benchmark::State& state)
{
    const OMC::Obj node(OMC::Node::getWrapped(&bench::Project::ofSize(10).node(0)));
    readByName(state, *node.get(), "name");
}

void readTextRemembered(benchmark::State& state)
{
    const OMC::Obj node(OMC::Node::getWrapped(&bench::Project::ofSize(10).node(0)));
    readRemembered(state, *node.get(), "name");
}

void readObjectByName(benchmark::State& state)
{
    const OMC::Obj node(OMC::Node::getWrapped(&bench::Project::ofSize(10).node(0)));
    readByName(state, *node.get(), "attributes");
}

void readObjectRemembered(benchmark::State& state)
{
    const OMC::Obj node(OMC::Node::getWrapped(&bench::Project::ofSize(10).node(0)));
    readRemembered(state, *node.get(), "attributes");
}

void writeIntWithUndo(benchmark::State& state)
{
    bench::Project project(10);
    OMC::Node_Coordinates place(&project.node(0));
    const std::string name = "x";
    int x = 0;
    for (auto _ : state) {
        bool found = false;
        place.setAttr(name, ++x, found);
    }
}

BENCHMARK(readIntByName);
BENCHMARK(readIntRemembered);
BENCHMARK(readTextByName);
BENCHMARK(readTextRemembered);
BENCHMARK(readObjectByName);
BENCHMARK(readObjectRemembered);
BENCHMARK(writeIntWithUndo);

} // namespace
