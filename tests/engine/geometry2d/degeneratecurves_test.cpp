#include "tests/engine/geometry2d/randomcurves.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cmath>
#include <limits>
#include <stdexcept>

// Points that repeat, lie on a grid or one line, or are huge, tiny or no numbers: whatever a curve is made of, each
// operation gives a result or one of the exceptions that it promises, soon.

namespace {

class OddPoints {
public:
    explicit OddPoints(unsigned int seed) : m_random(seed) {}

    double number()
    {
        constexpr double odd[] = {0,    -0.0,  1,      -1,    2,       0.5,      1e-320, 5e-324,  1e-300, 1e-17,
                                  1e17, 1e150, -1e155, 1e300, 1.7e308, -1.7e308, 1e-9,   1.00001, 3,      1 + 1e-15};
        constexpr double noNumbers[] = {std::numeric_limits<double>::quiet_NaN(),
                                        std::numeric_limits<double>::infinity(),
                                        -std::numeric_limits<double>::infinity()};
        switch (m_mood) {
        case Grid:
            return m_random.below(3);
        case Line:
            return 0.1 * m_random.below(8);
        case Near:
            return 1 + m_random.number(-1e-13, 1e-13);
        case Odd:
            return odd[m_random.below(std::size(odd))];
        default:
            return m_random.below(6) == 0 ? noNumbers[m_random.below(3)] : m_random.number(-1, 1);
        }
    }
    Math::Point2d point()
    {
        const double x = number();
        return {x, m_mood == Line ? 3 * x + 1 : number()};
    }
    GR_Bezier2d curve()
    {
        m_mood = static_cast<Mood>(m_random.below(5));
        GR_Bezier2d made(m_random.below(4), Math::Constants::Closed, Math::Constants::Closed);
        for (unsigned int i = 0; i <= made.GetDegree(); ++i)
            made.SetPoint(i, point());
        return made;
    }
    GR_BezierPath2d path()
    {
        m_mood = static_cast<Mood>(m_random.below(5));
        GR_BezierPath2d made;
        for (unsigned int count = m_random.below(8); count > 0; --count) {
            if (!made.IsEmpty())
                for (unsigned int handles = m_random.below(3); handles > 0; --handles)
                    made.Append(point(), false);
            made.Append(point(), true);
        }
        if (m_random.below(2) == 0)
            made.ClosePath();
        return made;
    }

private:
    enum Mood { Grid, Line, Near, Odd, NoNumbers } m_mood = Grid;
    curves::RandomCurves m_random;
};

/// Runs an operation that may throw what the headers promise, and nothing else.
template <typename Operation>
void attempt(const Operation& operation)
{
    try {
        operation();
    } catch (const std::domain_error&) {
    } catch (const std::out_of_range&) {
    } catch (const std::invalid_argument&) {
    }
}

void expectFinite(const std::vector<Math::Point2d>& places)
{
    for (const auto& place : places)
        EXPECT_TRUE(std::isfinite(place.x) && std::isfinite(place.y));
}

/// No operation on a few curves takes as long as this, on the slowest machine and under a sanitizer.
class Soon {
public:
    ~Soon() { EXPECT_LT(std::chrono::steady_clock::now() - m_start, std::chrono::seconds(2)); }

private:
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

TEST(DegenerateCurves, CurvesOfAnyPointsGiveAResultOrAClearException)
{
    OddPoints odd(41);
    for (int round = 0; round < 4000; ++round) {
        const GR_Bezier2d one = odd.curve();
        const GR_Bezier2d other = odd.curve();
        const Soon soon;
        attempt([&] { one.Evaluate(0.3); });
        attempt([&] { one.GetDerivative(); });
        attempt([&] { one.GetFromTangent(); });
        attempt([&] { one.GetToTangent(); });
        attempt([&] { one.GetBoxRef(); });
        attempt([&] { one.IsSegment(); });
        attempt([&] { one.GetCurveCharacteristic(); });
        attempt([&] { EXPECT_TRUE(std::isfinite(one.GetLength())); });
        attempt([&] { one.Split(0.7); });
        attempt([&] { expectFinite(one.GetIntersections()); });
        attempt([&] { expectFinite(one.GetIntersections(other)); });
        attempt([&] { expectFinite(one.GetIntersections(one)); });
        attempt([&] {
            double radiusSquared = std::numeric_limits<double>::infinity();
            double parameter = 0;
            one.GetClosestPoint(other.GetFromPoint(), radiusSquared, parameter);
            EXPECT_TRUE(parameter >= 0 && parameter <= 1);
        });
    }
}

TEST(DegenerateCurves, PathsOfAnyPointsGiveAResultOrAClearException)
{
    OddPoints odd(42);
    for (int round = 0; round < 1500; ++round) {
        const GR_BezierPath2d one = odd.path();
        const GR_BezierPath2d other = odd.path();
        const Soon soon;
        attempt([&] { one.GetBox(); });
        attempt([&] { one.GetInnerBox(); });
        attempt([&] { one.IsPolyline(); });
        attempt([&] { EXPECT_TRUE(std::isfinite(one.GetLength())); });
        attempt([&] { EXPECT_TRUE(std::isfinite(one.GetArea())); });
        attempt([&] { EXPECT_TRUE(std::isfinite(one.GetPolygonLength())); });
        attempt([&] { EXPECT_GE(one.GetPolygonArea(), 0); });
        attempt([&] { one.IsClockwisePolygon(); });
        attempt([&] { one.GetFromTangent(); });
        attempt([&] { one.GetToTangent(); });
        attempt([&] { one.Evaluate(1.3); });
        attempt([&] { one.Split(0.7); });
        attempt([&] { expectFinite(one.GetIntersections()); });
        attempt([&] { expectFinite(one.GetIntersections(other)); });
        attempt([&] { expectFinite(one.GetIntersections(one)); });
        for (const auto fill : {Math::Constants::EvenOdd, Math::Constants::NonZero}) {
            attempt([&] { one.IsContaining(other.GetFromPoint(), fill); });
            attempt([&] {
                const bool inside = one.IsInside(other, fill);
                const bool outside = one.IsOutside(other, fill);
                EXPECT_FALSE(inside && outside);
            });
        }
        attempt([&] {
            GR_BezierPath2d part = one;
            part.Truncate(2.5, 0.5);
        });
        attempt([&] {
            GR_BezierPath2d more = one;
            more.insertPoint(0.5);
            more.Append(other);
            more.AppendFront(other);
            more.Erase(1, 3);
            more.Reverse();
        });
    }
}

TEST(DegenerateCurves, FitsToAnyPointsGiveAResultOrAClearException)
{
    OddPoints odd(43);
    curves::RandomCurves random(44);
    for (int round = 0; round < 1500; ++round) {
        const GR_BezierPath2d points = odd.path();
        GR_BezierPath2dFitterOptions options = random.fitterOptions();
        options.tolerance = std::pow(10, random.number(-12, 12));
        const GR_BezierPath2dFitter fitter(options);
        const Soon soon;
        attempt([&] {
            const GR_BezierPath2d path = fitter.Fit(points);
            EXPECT_EQ(path.IsEmpty(), points.IsEmpty());
            if (!path.IsEmpty()) {
                EXPECT_EQ(path.GetFromPoint(), points.GetFromPoint());
                EXPECT_EQ(path.GetToPoint(), points.GetToPoint());
            }
        });
        attempt([&] { fitter.FitOneBezier(points); });
        attempt([&] {
            const GR_BezierPath2d path = fitter.FitClosed(points);
            EXPECT_TRUE(path.GetNumPoints() < 2 || path.IsClosed());
        });
    }
}

} // namespace
