#include "core/host/gr_bezier.h"

#include "tests/engine/geometry2d/randomcurves.h"
#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>

namespace {

using curves::curve;
using curves::distance;
using Math::Constants::Closed;
using Math::Constants::Open;

TEST(Bezier, ANewCurveHasAllPointsAtTheOriginAndParametersFrom0To1)
{
    const GR_Bezier2d made(3, Closed, Open);
    EXPECT_EQ(made.GetDegree(), 3u);
    for (unsigned int i = 0; i <= 3; ++i)
        EXPECT_EQ(made.GetPoint(i), (Math::Point2d{0, 0}));
    EXPECT_EQ(made.GetFromBoundary(), Closed);
    EXPECT_EQ(made.GetToBoundary(), Open);
    EXPECT_EQ(made.GetFromParameter(), 0);
    EXPECT_EQ(made.GetToParameter(), 1);
}

TEST(Bezier, DegreesAndPlacesThatDontExistAreRefusedAndChangeNothing)
{
    EXPECT_THROW(GR_Bezier2d(4, Closed, Closed), std::out_of_range);
    GR_Bezier2d made = curve({{1, 2}, {3, 4}});
    const GR_Bezier2d before = made;
    EXPECT_THROW(made.SetDegree(4), std::out_of_range);
    EXPECT_THROW(made.SetDegree(std::numeric_limits<unsigned int>::max()), std::out_of_range);
    EXPECT_THROW(made.SetPoint(4, {}), std::out_of_range);
    EXPECT_THROW(made.GetPoint(4), std::out_of_range);
    EXPECT_EQ(made, before);
}

TEST(Bezier, ADegreeThatIsSetKeepsThePointsInTheirPlaces)
{
    GR_Bezier2d made = curve({{1, 2}, {3, 4}, {5, 6}, {7, 8}});
    made.SetDegree(1);
    EXPECT_EQ(made.GetToPoint(), (Math::Point2d{3, 4}));
    EXPECT_EQ(made.GetBoxRef().maxX(), 3);
    made.SetDegree(3);
    EXPECT_EQ(made, curve({{1, 2}, {3, 4}, {5, 6}, {7, 8}}));
    EXPECT_EQ(made.GetBoxRef().maxX(), 7);
}

TEST(Bezier, TenThousandRandomCurvesPassWhereDeCasteljausConstructionSays)
{
    curves::RandomCurves random(1);
    for (int round = 0; round < 10000; ++round) {
        const GR_Bezier2d made = random.curve();
        const double t = random.number(-0.5, 1.5);
        ASSERT_LT(distance(made.Evaluate(t), curves::reference(made, t)), 1e-9) << round << " at " << t;
    }
}

TEST(Bezier, TheEndsArePassedExactly)
{
    curves::RandomCurves random(2);
    for (int round = 0; round < 1000; ++round) {
        const GR_Bezier2d made = random.curve();
        EXPECT_EQ(made.Evaluate(0), made.GetFromPoint());
        EXPECT_EQ(made.Evaluate(1), made.GetToPoint());
    }
}

TEST(Bezier, EvaluateAndRoundGivesWholeNumbersWithHalvesAwayFromZero)
{
    EXPECT_EQ(curve({{0, 0}, {5, -5}}).EvaluateAndRound(0.5), (Math::Point2d{3, -3}));
    EXPECT_EQ(curve({{1.4, 1.6}}).EvaluateAndRound(0.5), (Math::Point2d{1, 2}));
}

TEST(Bezier, TheDerivativeIsTheSlopeOfTheCurve)
{
    curves::RandomCurves random(3);
    for (int round = 0; round < 1000; ++round) {
        const GR_Bezier2d made = random.curve();
        const GR_Bezier2d slopes = made.GetDerivative();
        EXPECT_EQ(slopes.GetDegree(), made.GetDegree() == 0 ? 0 : made.GetDegree() - 1);
        const double t = random.number(0.1, 0.9);
        constexpr double step = 1e-5;
        const Math::Vector2d change = made.Evaluate(t + step) - made.Evaluate(t - step);
        EXPECT_LT(distance(slopes.Evaluate(t), {change.x / (2 * step), change.y / (2 * step)}), 1e-5);
    }
}

TEST(Bezier, TangentsPassOverControlPointsThatCoincideWithTheEnd)
{
    struct Row {
        const char* name;
        GR_Bezier2d made;
        Math::Vector2d from, to;
    };
    const Row rows[] = {
        {"line", curve({{0, 0}, {3, 4}}), {0.6, 0.8}, {0.6, 0.8}},
        {"cubic", curve({{0, 0}, {0, 2}, {5, 3}, {5, 0}}), {0, 1}, {0, -1}},
        {"no handles", curve({{0, 0}, {0, 0}, {5, 0}, {5, 0}}), {1, 0}, {1, 0}},
        {"one point", curve({{2, 2}, {2, 2}, {2, 2}, {2, 2}}), {0, 0}, {0, 0}},
        {"degree 0", curve({{2, 2}}), {0, 0}, {0, 0}},
        {"huge", curve({{-1.5e308, 0}, {1.5e308, 0}}), {1, 0}, {1, 0}},
        {"tiny", curve({{0, 0}, {0, 5e-324}}), {0, 1}, {0, 1}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_NEAR((row.made.GetFromTangent() - row.from).length(), 0, 1e-15);
        EXPECT_NEAR((row.made.GetToTangent() - row.to).length(), 0, 1e-15);
    }
}

TEST(Bezier, ATangentHasNoNegativeZero)
{
    const Math::Vector2d none = curve({{2, 2}}).GetToTangent();
    EXPECT_FALSE(std::signbit(none.x) || std::signbit(none.y));
    EXPECT_FALSE(std::signbit(curve({{3, 0}, {0, 0}}).GetToTangent().y));
}

TEST(Bezier, ThePartsOfASplitAreTheCurve)
{
    curves::RandomCurves random(4);
    for (int round = 0; round < 10000; ++round) {
        const GR_Bezier2d made = random.curve();
        const double t = random.number(0, 1);
        const auto [before, behind] = made.Split(t);
        ASSERT_EQ(before.GetToPoint(), behind.GetFromPoint());
        ASSERT_EQ(before.GetFromPoint(), made.GetFromPoint());
        ASSERT_EQ(behind.GetToPoint(), made.GetToPoint());
        const double u = random.number(0, 1);
        ASSERT_LT(distance(before.Evaluate(u), made.Evaluate(t * u)), 1e-9);
        ASSERT_LT(distance(behind.Evaluate(u), made.Evaluate(t + (1 - t) * u)), 1e-9);
    }
}

TEST(Bezier, PartsKnowWhichStretchTheyAreAndCloseTheirCuts)
{
    GR_Bezier2d made(1, Open, Open);
    made.SetPoint(1, {8, 0});
    made.SetFromParameter(10);
    made.SetToParameter(20);
    const auto [before, behind] = made.Split(0.25);
    EXPECT_EQ(before.GetFromParameter(), 10);
    EXPECT_EQ(before.GetToParameter(), 12.5);
    EXPECT_EQ(behind.GetFromParameter(), 12.5);
    EXPECT_EQ(behind.GetToParameter(), 20);
    EXPECT_EQ(before.GetFromBoundary(), Open);
    EXPECT_EQ(before.GetToBoundary(), Closed);
    EXPECT_EQ(behind.GetFromBoundary(), Closed);
    EXPECT_EQ(behind.GetToBoundary(), Open);
}

TEST(Bezier, ASplitOutsideOfTheCurveIsHeldAtItsEnds)
{
    const GR_Bezier2d made = curve({{1, 1}, {2, 5}, {3, 1}});
    EXPECT_EQ(made.Split(-3).second, made);
    EXPECT_EQ(made.Split(7).first, made);
    EXPECT_EQ(made.Split(7).second, curve({{3, 1}, {3, 1}, {3, 1}}));
}

TEST(Bezier, ATruncationWithItsEndsExchangedRunsBackwards)
{
    curves::RandomCurves random(5);
    for (int round = 0; round < 1000; ++round) {
        const GR_Bezier2d made = random.curve();
        const double from = random.number(0, 1);
        const double to = random.number(0, 1);
        GR_Bezier2d part = made;
        part.Truncate(from, to);
        EXPECT_NEAR(part.GetFromParameter(), from, 1e-15);
        EXPECT_NEAR(part.GetToParameter(), to, 1e-15);
        const double u = random.number(0, 1);
        EXPECT_LT(distance(part.Evaluate(u), made.Evaluate(from + (to - from) * u)), 1e-9);
    }
}

TEST(Bezier, ReversingTwiceGivesTheCurveBack)
{
    curves::RandomCurves random(6);
    for (int round = 0; round < 100; ++round) {
        const GR_Bezier2d made = random.curve();
        GR_Bezier2d reverse = made;
        reverse.Reverse();
        EXPECT_TRUE(reverse.isReverseEqual(made));
        EXPECT_EQ(reverse == made, made.GetDegree() == 0);
        EXPECT_EQ(reverse.GetFromParameter(), 1);
        reverse.Reverse();
        EXPECT_EQ(reverse, made);
    }
}

TEST(Bezier, RoundMovesThePointsToMultiplesOfTheStep)
{
    GR_Bezier2d made = curve({{1.3, 2.6}, {-0.2, 1e300}});
    made.Round(0.5);
    EXPECT_EQ(made, curve({{1.5, 2.5}, {0, 1e300}}));
    for (const double step : {0.0, -1.0, nan, infinity})
        EXPECT_THROW(made.Round(step), std::invalid_argument) << step;
    EXPECT_EQ(made, curve({{1.5, 2.5}, {0, 1e300}}));
}

TEST(Bezier, AMatrixMovesTheControlPoints)
{
    Math::Matrix2x3 matrix;
    matrix.Scale({2, 3}).Translate({10, 20});
    GR_Bezier2d made = curve({{1, 1}, {2, 0}});
    made *= matrix;
    EXPECT_EQ(made, curve({{12, 23}, {14, 20}}));
    EXPECT_EQ(made.GetBoxRef().minX(), 12);
}

TEST(Bezier, EqualityIsAboutDegreeAndControlPointsInUse)
{
    const GR_Bezier2d line = curve({{0, 0}, {1, 1}});
    GR_Bezier2d other = line;
    other.SetPoint(3, {5, 5});
    other.SetFromBoundary(Open);
    other.SetToParameter(7);
    EXPECT_EQ(line, other);
    EXPECT_NE(line, curve({{0, 0}, {1, 2}}));
    EXPECT_NE(line, curve({{0, 0}, {1, 1}, {1, 1}}));
    EXPECT_NE(curve({{nan, 0}}), curve({{nan, 0}}));
}

TEST(Bezier, ParametersThatAreNotFiniteAreRefused)
{
    GR_Bezier2d made = curve({{0, 0}, {1, 1}});
    const GR_Bezier2d before = made;
    for (const double t : {nan, infinity, -infinity}) {
        EXPECT_THROW(made.Evaluate(t), std::invalid_argument);
        EXPECT_THROW(made.EvaluateAndRound(t), std::invalid_argument);
        EXPECT_THROW(made.Split(t), std::invalid_argument);
        EXPECT_THROW(made.Truncate(t, 1), std::invalid_argument);
        EXPECT_THROW(made.Truncate(0, t), std::invalid_argument);
    }
    EXPECT_EQ(made, before);
}

TEST(Bezier, ResultsThatAreNotFiniteAreRefusedAndChangeNothing)
{
    GR_Bezier2d made = curve({{0, 0}, {1e308, 1}, {2, 2}, {-1e308, 3}});
    const GR_Bezier2d before = made;
    Math::Matrix2x3 matrix;
    matrix.Scale({10, 10});
    EXPECT_THROW(made *= matrix, std::domain_error);
    EXPECT_THROW(made.Evaluate(1e10), std::domain_error);
    EXPECT_THROW(made.GetDerivative(), std::domain_error);
    EXPECT_EQ(made, before);

    const GR_Bezier2d odd = curve({{0, 0}, {nan, 1}, {2, infinity}});
    EXPECT_THROW(odd.Evaluate(0.5), std::domain_error);
    EXPECT_THROW(odd.GetBoxRef(), std::domain_error);
    EXPECT_THROW(odd.GetLength(), std::domain_error);
    EXPECT_THROW(odd.GetFromTangent(), std::domain_error);
    EXPECT_THROW(odd.GetToTangent(), std::domain_error);
    EXPECT_THROW(odd.IsSegment(), std::domain_error);
    EXPECT_THROW(odd.GetCurveCharacteristic(), std::domain_error);
    EXPECT_THROW(odd.Split(0.5), std::domain_error);
    EXPECT_THROW(odd.IsIntersecting(), std::domain_error);
    EXPECT_THROW(odd.IsIntersecting(before), std::domain_error);
    EXPECT_THROW(before.IsIntersecting(odd), std::domain_error);
}

} // namespace
