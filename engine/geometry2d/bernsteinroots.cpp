#include "engine/geometry2d/planecurve.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace brindle::engine {

namespace {

constexpr double noise = 1e-15; // of the largest coefficient: what rounding leaves of a zero

/// A polynomial in Bernstein form, on one interval; no more coefficients than products of cubics have.
struct Bernstein {
    std::array<double, 8> c{};
    unsigned int degree = 0;

    double front() const { return c[0]; }
    double back() const { return c[degree]; }
    std::span<const double> used() const { return {c.data(), degree + 1}; }

    struct ValueAndSlope {
        double value, slope;
    };
    ValueAndSlope at(double t) const
    {
        auto points = c;
        for (unsigned int count = degree; count > 1; --count) {
            for (unsigned int i = 0; i < count; ++i)
                points[i] += (points[i + 1] - points[i]) * t;
        }
        const double rise = points[1] - points[0];
        return {points[0] + rise * t, rise * degree};
    }

    /// On the halves of the interval, by de Casteljau's construction.
    std::pair<Bernstein, Bernstein> halves() const
    {
        Bernstein left = *this;
        Bernstein right = *this;
        for (unsigned int level = 0; level <= degree; ++level) {
            left.c[level] = right.c[0];
            for (unsigned int i = 0; i + level < degree; ++i)
                right.c[i] = (right.c[i] + right.c[i + 1]) / 2;
        }
        return {left, right};
    }

    /// How often the sign changes along the coefficients: at least the number of roots between the ends, and the same
    /// but for pairs (Descartes' rule).
    int signChanges() const
    {
        int changes = 0;
        double before = 0;
        for (const double coefficient : used()) {
            if (coefficient == 0)
                continue;
            changes += before != 0 && (coefficient < 0) != (before < 0);
            before = coefficient;
        }
        return changes;
    }

    bool isNoise() const
    {
        return std::ranges::all_of(used(), [](double coefficient) { return std::abs(coefficient) <= noise; });
    }
};

/// The only root between the ends, where the values have different signs: Newton's method, with a step to the middle of
/// the bracket where it would leave it.
double onlyRoot(const Bernstein& polynomial)
{
    constexpr int steps = 128; // more than a bisection needs
    double low = 0;
    double high = 1;
    const bool falls = polynomial.front() > 0;
    // Not at an end, whose value may be nothing but rounding.
    double t = std::clamp(polynomial.front() / (polynomial.front() - polynomial.back()), 1e-3, 1 - 1e-3);
    for (int step = 0; step < steps; ++step) {
        const auto [value, slope] = polynomial.at(t);
        if (value == 0)
            return t;
        ((value > 0) == falls ? low : high) = t;
        double next = t - value / slope;
        if (!(next > low && next < high))
            next = low + (high - low) / 2;
        const double moved = std::abs(next - t);
        t = next;
        if (moved <= 1e-16 || t == low || t == high)
            break;
    }
    return t;
}

/// Appends the roots between the ends of an interval, ascending. Roots too near to each other to be told apart come as
/// one or two.
void appendInnerRoots(const Bernstein& polynomial, double start, double end, std::vector<double>& roots)
{
    constexpr double narrowest = 1e-12;
    const int changes = polynomial.signChanges();
    if (changes == 0)
        return;
    const double middle = (start + end) / 2;
    if (polynomial.isNoise() || end - start < narrowest) {
        roots.push_back(middle);
        return;
    }
    const bool endsDiffer = polynomial.front() != 0 && polynomial.back() != 0; // with one change, so do their signs
    if (changes == 1 && endsDiffer) {
        roots.push_back(start + (end - start) * onlyRoot(polynomial));
        return;
    }
    const auto [left, right] = polynomial.halves();
    appendInnerRoots(left, start, middle, roots);
    if (right.front() == 0)
        roots.push_back(middle);
    appendInnerRoots(right, middle, end, roots);
}

} // namespace

std::vector<double> bernsteinRoots(std::span<const double> coefficients)
{
    Bernstein polynomial;
    if (coefficients.size() > polynomial.c.size())
        throw std::length_error("The degree of the polynomial is above 7.");
    double largest = 0;
    for (const double coefficient : coefficients)
        largest = std::isfinite(coefficient) ? std::max(largest, std::abs(coefficient)) : INFINITY;
    if (largest == 0 || !std::isfinite(largest) || coefficients.size() < 2)
        return {};
    polynomial.degree = static_cast<unsigned int>(coefficients.size() - 1);
    std::ranges::transform(coefficients, polynomial.c.begin(),
                           [largest](double coefficient) { return coefficient / largest; });
    std::vector<double> roots;
    if (polynomial.front() == 0)
        roots.push_back(0);
    appendInnerRoots(polynomial, 0, 1, roots);
    if (polynomial.back() == 0)
        roots.push_back(1);
    return roots;
}

} // namespace brindle::engine
