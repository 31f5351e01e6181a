#include "core/geometry/matrix.h"

#include <Imath/ImathMatrix.h>

#include <benchmark/benchmark.h>

// The cost of a product of matrices: the engine's, a script's, and the library's underneath.

namespace {

Math::Matrix4x4 turn(double angle)
{
    Math::Matrix4x4 matrix;
    matrix.rotateDegrees(angle, {1, 2, 3});
    return matrix;
}

void floorMultiplyImath(benchmark::State& state)
{
    Imath::M44d matrix;
    Imath::M44d factor;
    turn(30).getValues(factor.getValue());
    for (auto _ : state) {
        matrix = factor * matrix;
        benchmark::DoNotOptimize(matrix);
    }
}

void multiplyHostMatrices(benchmark::State& state)
{
    Math::Matrix4x4 matrix;
    const Math::Matrix4x4 factor = turn(30);
    for (auto _ : state) {
        matrix = matrix * factor;
        benchmark::DoNotOptimize(matrix);
    }
}

void multiplyMatrices(benchmark::State& state)
{
    OMC::Matrix matrix;
    OMC::Matrix factor(turn(30));
    const QVariant value = QVariant::fromValue<QObject*>(&factor);
    for (auto _ : state) {
        matrix.multiply(value);
        benchmark::DoNotOptimize(matrix);
    }
}

void readMatrixFromNumbers(benchmark::State& state)
{
    QList<QVariant> numbers;
    const Math::Matrix4x4 cells = turn(30);
    for (const double cell : cells.cells())
        numbers.append(cell);
    const QVariant value = numbers;
    for (auto _ : state) {
        Math::Matrix4x4 matrix = OMC::Matrix::valueOf(value);
        benchmark::DoNotOptimize(matrix);
    }
}

BENCHMARK(floorMultiplyImath);
BENCHMARK(multiplyHostMatrices);
BENCHMARK(multiplyMatrices);
BENCHMARK(readMatrixFromNumbers);

} // namespace
