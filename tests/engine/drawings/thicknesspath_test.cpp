#include "core/host/gr_thicknesspath.h"

#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <stdexcept>

namespace {

using Key = GR_ThicknessPath::ThicknessKey;

GR_ThicknessPath pathOf(const std::vector<Key>& keys)
{
    return *GR_ThicknessPath::CreateWith(keys);
}

/// A key whose handles lie in any place, as scripts may put them.
Key randomKey(std::mt19937& random, double position)
{
    std::uniform_real_distribution<double> width(0, 10);
    std::uniform_real_distribution<double> reach(-0.2, 0.6);
    Key key(position, width(random), width(random));
    for (auto side : {&Key::left, &Key::right}) {
        (key.*side).fromControl = width(random);
        (key.*side).fromControlPosition = position - reach(random);
        (key.*side).toControl = width(random);
        (key.*side).toControlPosition = position + reach(random);
    }
    return key;
}

GR_ThicknessPath randomPath(std::mt19937& random)
{
    GR_ThicknessPath path;
    for (const double position : {0., 0.25, 0.6, 0.9})
        path.insertThicknessKey(randomKey(random, position));
    return path;
}

void expectSameWidths(const GR_HalfWidths& one, const GR_HalfWidths& other, double position)
{
    EXPECT_NEAR(one.left, other.left, 1e-9) << position;
    EXPECT_NEAR(one.right, other.right, 1e-9) << position;
}

TEST(ThicknessPath, APathWithoutKeysHasNoWidth)
{
    const GR_ThicknessPath path;
    EXPECT_TRUE(path.isEmpty());
    EXPECT_EQ(path.halfWidths(0.5), GR_HalfWidths());
    EXPECT_EQ(path.minThickness(), 0);
    EXPECT_EQ(path.maxThickness(), 0);
    EXPECT_EQ(path.minThicknessInner(), 0);
    EXPECT_TRUE(path.isConstant());
}

TEST(ThicknessPath, KeysStandInTheOrderOfTheirPositionsAndOneReplacesTheOther)
{
    GR_ThicknessPath path;
    EXPECT_EQ(path.insertThicknessKey({0.5, 2}), 0);
    EXPECT_EQ(path.insertThicknessKey(0.1, 1, 3), 0);
    EXPECT_EQ(path.insertThicknessKey({0.9, 4}), 2);
    EXPECT_EQ(path.insertThicknessKey({0.5, 7}), 1);
    ASSERT_EQ(path.numThicknessKeys(), 3);
    EXPECT_EQ(path.thicknessKey(1), Key(0.5, 7));
    EXPECT_EQ(path.thicknessT(0), 0.1);
    path.eraseThicknessKey(0);
    EXPECT_EQ(path.thicknessT(0), 0.5);
    EXPECT_EQ(pathOf({{0.9, 4}, {0.5, 2}, {0.5, 7}}), path);
}

TEST(ThicknessPath, KeysThatArentThereOrHaveNoUsableNumbersAreRefusedAndChangeNothing)
{
    GR_ThicknessPath path(3);
    const GR_ThicknessPath before = path;
    EXPECT_THROW(path.thicknessKey(2), std::out_of_range);
    EXPECT_THROW(path.thicknessKey(-1), std::out_of_range);
    EXPECT_THROW(path.eraseThicknessKey(2), std::out_of_range);
    EXPECT_THROW(path.insertThicknessKey({nan, 1}), std::invalid_argument);
    EXPECT_THROW(path.insertThicknessKey({0.5, infinity}), std::invalid_argument);
    EXPECT_THROW(path.insertThicknessKey({0.5, -1}), std::invalid_argument);
    Key bent(0.5, 1);
    bent.right.toControlPosition = nan;
    EXPECT_THROW(path.insertThicknessKey(bent), std::invalid_argument);
    EXPECT_THROW(GR_ThicknessPath::CreateWith({bent}), std::invalid_argument);
    EXPECT_EQ(path, before);
}

TEST(ThicknessPath, BetweenNewKeysTheWidthIsAStraightLineAndConstantBeyond)
{
    const GR_ThicknessPath path = pathOf({{0.2, 2, 4}, {0.6, 4, 0}});
    EXPECT_EQ(path.halfWidths(0), (GR_HalfWidths{2, 4}));
    EXPECT_EQ(path.halfWidths(0.2), (GR_HalfWidths{2, 4}));
    expectSameWidths(path.halfWidths(0.3), {2.5, 3}, 0.3);
    expectSameWidths(path.halfWidths(0.5), {3.5, 1}, 0.5);
    EXPECT_EQ(path.halfWidths(7), (GR_HalfWidths{4, 0}));
    EXPECT_EQ(path.halfWidths(nan), path.halfWidths(0));
}

TEST(ThicknessPath, HandlesMakeACubicInPositionAndWidth)
{
    Key first(0, 0);
    first.left.toControlPosition = 1. / 3;
    first.left.toControl = 3;
    Key last(1, 0);
    last.left.fromControlPosition = 2. / 3;
    last.left.fromControl = 3;
    const GR_ThicknessPath path = pathOf({first, last});
    for (const double t : {0., 0.1, 0.5, 0.8, 1.}) { // The position is the parameter: 3 * 3 t (1 - t).
        EXPECT_NEAR(path.halfWidths(t).left, 9 * t * (1 - t), 1e-12);
        EXPECT_EQ(path.halfWidths(t).right, 0);
    }
    EXPECT_NEAR(path.maxThickness(), 2.25, 1e-12);
    EXPECT_EQ(path.maxThicknessInner(), 0);
    EXPECT_FALSE(path.isConstant());
}

TEST(ThicknessPath, ACurveBelowZeroCountsAsZero)
{
    Key first(0, 1);
    first.left.toControl = -10;
    first.left.toControlPosition = 0.3;
    const GR_ThicknessPath path = pathOf({first, {1, 1}});
    EXPECT_EQ(path.halfWidths(0.3).left, 0);
    EXPECT_EQ(path.minThickness(), 0);
    EXPECT_EQ(path.minThicknessInner(), 1);
}

TEST(ThicknessPath, LeastAndGreatestWidthHoldAllWidthsAndAreReached)
{
    std::mt19937 random(8);
    for (int round = 0; round < 300; ++round) {
        GR_ThicknessPath path = randomPath(random);
        path.setClosed(round % 2 == 1);
        double least = infinity;
        double greatest = 0;
        for (int step = 0; step <= 4000; ++step) {
            const GR_HalfWidths widths = path.halfWidths(step / 4000.);
            least = std::min({least, widths.left, widths.right});
            greatest = std::max({greatest, widths.left, widths.right});
        }
        EXPECT_LE(path.minThickness(), least);
        EXPECT_GE(path.maxThickness(), greatest);
        EXPECT_NEAR(path.minThickness(), least, 0.1);
        EXPECT_NEAR(path.maxThickness(), greatest, 0.1);
    }
}

TEST(ThicknessPath, TheWidthOfAClosedPathGoesOnFromTheLastKeyToTheFirst)
{
    GR_ThicknessPath path = pathOf({{0.25, 2}, {0.75, 4}});
    path.setClosed(true);
    EXPECT_NEAR(path.halfWidths(0).left, 3, 1e-12);
    EXPECT_NEAR(path.halfWidths(1).left, 3, 1e-12);
    EXPECT_NEAR(path.halfWidths(0.875).left, 3.5, 1e-12);
    EXPECT_NEAR(path.halfWidths(5.5).left, path.halfWidths(0.5).left, 1e-12);
    EXPECT_GE(path.halfWidths(1e300).left, 0);
}

TEST(ThicknessPath, APathThatIsReversedHasItsWidthsAtOppositePlacesAndSides)
{
    std::mt19937 random(3);
    for (int round = 0; round < 50; ++round) {
        const GR_ThicknessPath path = randomPath(random);
        GR_ThicknessPath reversed = path;
        reversed.reverse();
        for (int step = 0; step <= 20; ++step) {
            const GR_HalfWidths widths = path.halfWidths(step / 20.);
            expectSameWidths(reversed.halfWidths(1 - step / 20.), {widths.right, widths.left}, step / 20.);
        }
    }
}

TEST(ThicknessPath, ReversingBringsPositionsCloseTogetherToOneKey)
{
    GR_ThicknessPath path = pathOf({{0, 2}, {1e-20, 3}, {1, 4}});
    path.reverse();
    EXPECT_EQ(path.numThicknessKeys(), 2);
    EXPECT_TRUE(std::isfinite(path.halfWidths(0.999).left));
}

TEST(ThicknessPath, APathThatIsCutKeepsItsWidthsWithinTheCut)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> anywhere(-0.3, 1.3);
    for (int round = 0; round < 200; ++round) {
        GR_ThicknessPath path = randomPath(random);
        path.setClosed(round % 3 == 0);
        GR_ThicknessPath cut = path;
        const double one = anywhere(random);
        const double other = anywhere(random);
        cut.truncate(one, other);
        const auto [from, to] = std::minmax(one, other);
        EXPECT_EQ(cut.thicknessT(0), from);
        EXPECT_EQ(cut.thicknessKeys().back().position, to);
        EXPECT_FALSE(cut.isClosed());
        for (int step = 0; step <= 20; ++step) {
            const double position = std::lerp(from, to, step / 20.);
            expectSameWidths(cut.halfWidths(position), path.halfWidths(position), position);
        }
    }
    GR_ThicknessPath path(2);
    EXPECT_THROW(path.truncate(0.5, 0.5), std::invalid_argument);
    EXPECT_THROW(path.truncate(nan, 1), std::invalid_argument);
    EXPECT_EQ(path, GR_ThicknessPath(2));
}

TEST(ThicknessPath, StretchingMovesKeysAndHandlesAlong)
{
    std::mt19937 random(7);
    const GR_ThicknessPath path = randomPath(random);
    GR_ThicknessPath stretched = path;
    stretched.transform(0.5, 0.25);
    for (int step = 0; step <= 20; ++step)
        expectSameWidths(stretched.halfWidths(step / 40. + 0.25), path.halfWidths(step / 20.), step / 20.);
    for (const double factor : {0., -1., nan, infinity})
        EXPECT_THROW(stretched.transform(factor, 0), std::invalid_argument);
    EXPECT_THROW(stretched.transform(1, nan), std::invalid_argument);
    EXPECT_THROW(stretched.transform(1e-300, 1), std::invalid_argument); // All keys would lie in one place.
}

TEST(ThicknessPath, ATipsCurveIsNoneWhileItIsOnePlace)
{
    GR_ThicknessPath path(1);
    EXPECT_FALSE(path.hasTipFromBezier());
    GR_Bezier2d tip(2, Math::Constants::Closed, Math::Constants::Closed);
    tip.SetPoint(0, {0, 1});
    tip.SetPoint(1, {2, 0.5});
    tip.SetPoint(2, {0, -1});
    path.setTipFromBezier(tip);
    EXPECT_TRUE(path.hasTipFromBezier());
    EXPECT_FALSE(path.hasTipToBezier());
    path.reverse();
    EXPECT_FALSE(path.hasTipFromBezier());
    EXPECT_EQ(path.tipToBezier().GetPoint(1), (Math::Point2d{2, -0.5}));
    EXPECT_EQ(path.tipToBezier().GetFromPoint(), (Math::Point2d{0, 1}));
    tip.SetPoint(1, {nan, 0});
    EXPECT_THROW(path.setTipToBezier(tip), std::invalid_argument);
}

TEST(ThicknessBinder, AStrokeHasTheWidthsOfItsPartOfThePath)
{
    const auto path = GR_ThicknessPath::CreateWith({{0, 0, 2}, {1, 10, 4}});
    GR_ThicknessBinder binder(path);
    expectSameWidths(binder.halfWidths(0.5), {5, 3}, 0.5);
    binder.startPosition = 0.2;
    binder.stopPosition = 0.6;
    expectSameWidths(binder.halfWidths(0), {2, 2.4}, 0);
    expectSameWidths(binder.halfWidths(1), {6, 3.2}, 1);
    EXPECT_NEAR(binder.maxThickness(), 6, 1e-12);
    binder.startTangentLeft = 1;
    binder.reverse();
    expectSameWidths(binder.halfWidths(0), {3.2, 6}, 0);
    EXPECT_EQ(binder.stopTangentRight, 1);
    EXPECT_EQ(binder.thicknessPath(), path);
    EXPECT_NEAR(binder.maxThickness(), 6, 1e-12);
    EXPECT_EQ(GR_ThicknessBinder().maxThickness(), 0);
    EXPECT_EQ(GR_ThicknessBinder().halfWidths(0.5), GR_HalfWidths());
}

TEST(ThicknessBinder, APieceOfAStrokeSharesThePath)
{
    GR_ThicknessBinder whole(std::make_shared<const GR_ThicknessPath>(2));
    whole.startTangentLeft = whole.stopTangentLeft = -1;
    GR_ThicknessBinder piece = whole;
    piece.truncate(0.25, 1);
    EXPECT_TRUE(piece.isSharing(whole));
    EXPECT_EQ(piece.startPosition, 0.25);
    EXPECT_EQ(piece.startTangentLeft, 0);
    EXPECT_EQ(piece.stopTangentLeft, -1);
    EXPECT_FALSE(piece == whole);
}

TEST(ThicknessBinder, SharingTakesThePathAlone)
{
    GR_ThicknessBinder one(std::make_shared<const GR_ThicknessPath>(2));
    GR_ThicknessBinder other(std::make_shared<const GR_ThicknessPath>(2));
    EXPECT_EQ(one, other);
    EXPECT_FALSE(one.isSharing(other));
    one.startPosition = 0.5;
    one.shareThicknessPathAndFunctionPaths(other);
    EXPECT_TRUE(one.isSharing(other));
    EXPECT_EQ(one.startPosition, 0.5);
    EXPECT_FALSE(GR_ThicknessBinder().isSharing(GR_ThicknessBinder()));
}

TEST(ThicknessBinder, TipsByACurveBelongToTheEndsOfThePath)
{
    auto path = std::make_shared<GR_ThicknessPath>(1);
    GR_Bezier2d tip(2, Math::Constants::Closed, Math::Constants::Closed);
    tip.SetPoint(0, {0, 1});
    tip.SetPoint(1, {2, 0.5});
    tip.SetPoint(2, {0, -1});
    path->setTipFromBezier(tip);
    GR_ThicknessBinder binder{path};
    EXPECT_EQ(binder.tipFromBezier(), tip);
    EXPECT_FALSE(binder.tipToBezier());
    GR_ThicknessBinder piece = binder;
    piece.truncate(0.5, 1);
    EXPECT_FALSE(piece.tipFromBezier());
    binder.reverse();
    EXPECT_FALSE(binder.tipFromBezier());
    ASSERT_TRUE(binder.tipToBezier());
    EXPECT_EQ(binder.tipToBezier()->GetPoint(1), (Math::Point2d{2, -0.5}));
    path->setClosed(true);
    EXPECT_FALSE(binder.tipToBezier());
}

} // namespace
