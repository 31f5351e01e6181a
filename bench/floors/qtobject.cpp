#include "bench/floors/qtobject.h"

#include <QMetaProperty>
#include <QVariant>

#include <benchmark/benchmark.h>

// The least that an object model on Qt's property system costs.

namespace {

QMetaProperty propertyOf(const char* name)
{
    const QMetaObject& meta = bench::QtObject::staticMetaObject;
    return meta.property(meta.indexOfProperty(name));
}

void read(benchmark::State& state, const char* name)
{
    const bench::QtObject object;
    const QMetaProperty property = propertyOf(name);
    for (auto _ : state) {
        QVariant value = property.read(&object);
        benchmark::DoNotOptimize(value);
    }
}

void floorReadRemembered(benchmark::State& state)
{
    read(state, "last");
}

void floorReadText(benchmark::State& state)
{
    read(state, "text");
}

void floorReadPointer(benchmark::State& state)
{
    read(state, "pointer");
}

void floorReadCarried(benchmark::State& state)
{
    read(state, "carried");
}

void floorReadByName(benchmark::State& state)
{
    const bench::QtObject object;
    for (auto _ : state) {
        QVariant value = object.property("last");
        benchmark::DoNotOptimize(value);
    }
}

void indexOf(benchmark::State& state, const char* name)
{
    const QMetaObject& meta = bench::QtObject::staticMetaObject;
    for (auto _ : state) {
        benchmark::DoNotOptimize(name);
        benchmark::DoNotOptimize(meta.indexOfProperty(name));
    }
}

void floorIndexOfFirst(benchmark::State& state)
{
    indexOf(state, "first");
}

void floorIndexOfLast(benchmark::State& state)
{
    indexOf(state, "last");
}

void floorMetacall(benchmark::State& state)
{
    bench::QtObject object;
    const int index = propertyOf("last").propertyIndex();
    for (auto _ : state) {
        int value = 0;
        void* slots[] = {&value};
        object.qt_metacall(QMetaObject::ReadProperty, index, slots);
        benchmark::DoNotOptimize(value);
    }
}

void floorVariantOfCarried(benchmark::State& state)
{
    const bench::CarriedObject object;
    for (auto _ : state) {
        QVariant value = QVariant::fromValue(object);
        benchmark::DoNotOptimize(value);
    }
}

void floorNewQObject(benchmark::State& state)
{
    for (auto _ : state) {
        const QObject object;
        benchmark::DoNotOptimize(&object);
    }
}

BENCHMARK(floorReadRemembered);
BENCHMARK(floorReadText);
BENCHMARK(floorReadPointer);
BENCHMARK(floorReadCarried);
BENCHMARK(floorReadByName);
BENCHMARK(floorIndexOfFirst);
BENCHMARK(floorIndexOfLast);
BENCHMARK(floorMetacall);
BENCHMARK(floorVariantOfCarried);
BENCHMARK(floorNewQObject);

} // namespace
