#pragma once

#include "core/host/math_matrix4x4.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

/// How many random matrices a property is tried with.
inline constexpr int rounds = 2000;

/// Matrices from a seed, and a comparison in parts of the largest cell.
class RandomMatrices {
public:
    explicit RandomMatrices(unsigned int seed) : m_random(seed) {}

    double number(double low, double high) { return std::uniform_real_distribution<double>(low, high)(m_random); }
    /// A size between a hundredth and a hundred, of either sign where that is asked for.
    double scale(bool anySign)
    {
        const double size = std::pow(10.0, number(-2, 2));
        return anySign && number(0, 1) < 0.5 ? -size : size;
    }
    Math::Vector3d vector(double size) { return {number(-size, size), number(-size, size), number(-size, size)}; }
    Math::Point3d point(double size) { return Math::Point3d() + vector(size); }
    /// All sixteen cells.
    Math::Matrix4x4 any()
    {
        double cells[16];
        std::generate(std::begin(cells), std::end(cells), [this] { return number(-10, 10); });
        return Math::Matrix4x4(cells);
    }

private:
    std::mt19937 m_random;
};

inline void expectNear(const Math::Matrix4x4& matrix, const Math::Matrix4x4& expected, double tolerance = 1e-9)
{
    double largest = 1;
    for (const double cell : expected.cells())
        largest = std::max(largest, std::abs(cell));
    for (std::size_t i = 0; i < 16; ++i)
        EXPECT_NEAR(matrix.cells()[i], expected.cells()[i], tolerance * largest) << "cell " << i;
}

inline void expectNear(const Math::Point3d& point, const Math::Point3d& expected, double tolerance = 1e-9)
{
    const double size = std::max({1.0, std::abs(expected.x), std::abs(expected.y), std::abs(expected.z)});
    EXPECT_NEAR(point.x, expected.x, tolerance * size);
    EXPECT_NEAR(point.y, expected.y, tolerance * size);
    EXPECT_NEAR(point.z, expected.z, tolerance * size);
}

/// The matrix whose cells are the numbers from 1 to 16.
inline Math::Matrix4x4 counted()
{
    double cells[16];
    std::iota(std::begin(cells), std::end(cells), 1.0);
    return Math::Matrix4x4(cells);
}
