#include "core/geometry/colour.h"
#include "core/geometry/point3d.h"
#include "core/geometry/vectors.h"

#include <QVariant>

#include <benchmark/benchmark.h>

// Reading what scripts pass as positions and colours: it happens in inner loops.

namespace {

/// A script's list of two floats, as it arrives.
QVariant twoNumbers()
{
    return QVariantList{1.5, -2.5};
}

void readPointStrictly(benchmark::State& state)
{
    const QVariant value = twoNumbers();
    for (auto _ : state) {
        double x = 0.0;
        double y = 0.0;
        OMC::Point2d::ConvertQVariant(value, x, y);
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(y);
    }
}

void readPointLeniently(benchmark::State& state)
{
    const QVariant value = twoNumbers();
    for (auto _ : state) {
        Math::Point3d point = OMC::Point3d::valueOf(value);
        benchmark::DoNotOptimize(point);
    }
}

/// Makes the object as well, on the stack.
void makePointOfList(benchmark::State& state)
{
    const QVariant value = twoNumbers();
    for (auto _ : state) {
        OMC::Point2d point(value);
        benchmark::DoNotOptimize(point.x);
    }
}

void readPointOfObject(benchmark::State& state)
{
    const QVariant value = QVariant::fromValue(OMC::Vector3d(1.0, 2.0, 3.0));
    for (auto _ : state) {
        Math::Point3d point = OMC::Point3d::valueOf(value);
        benchmark::DoNotOptimize(point);
    }
}

void readColourOfList(benchmark::State& state)
{
    const QVariant value = QVariantList{255, 128, 0, 255};
    for (auto _ : state) {
        int channels[4] = {};
        OMC::Colour::QVariantToRGBAInt(value, channels[0], channels[1], channels[2], channels[3]);
        benchmark::DoNotOptimize(channels);
    }
}

/// The least that a list of two numbers costs: its items through Qt, unchecked.
void floorTwoNumbers(benchmark::State& state)
{
    const QVariant value = twoNumbers();
    for (auto _ : state) {
        const QVariantList list = value.toList();
        double x = list[0].toDouble();
        double y = list[1].toDouble();
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(y);
    }
}

BENCHMARK(readPointStrictly);
BENCHMARK(readPointLeniently);
BENCHMARK(makePointOfList);
BENCHMARK(readPointOfObject);
BENCHMARK(readColourOfList);
BENCHMARK(floorTwoNumbers);

} // namespace
