#include "engine/exposure/exposures.h"

#include "engine/curves/frameshift.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <array>
#include <random>

namespace {

using brindle::engine::Exposure;
using brindle::engine::Exposures;
using brindle::engine::FrameShift;
using brindle::engine::FrameSpan;

/// Reads "1a 5 8b": a from frame 1 on, nothing from 5 on, b from 8 on.
Exposures sheet(const char* text)
{
    Exposures exposures;
    for (const QString& each : QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts)) {
        qsizetype digits = 0;
        while (digits < each.size() && each[digits].isDigit())
            ++digits;
        EXPECT_TRUE(exposures.append(each.left(digits).toInt(), each.mid(digits))) << text;
    }
    return exposures;
}

std::string textOf(const Exposures& exposures)
{
    QStringList texts;
    for (const Exposure& exposure : exposures.all())
        texts.append(QString::number(exposure.frame) + exposure.drawing);
    return texts.join(u' ').toStdString();
}

/// What a change makes of a sheet; its way back is checked.
std::string after(const char* before, const std::function<Exposures::Change(const Exposures&)>& edit)
{
    Exposures exposures = sheet(before);
    Exposures::Change change = edit(exposures);
    exposures.exchange(change);
    const std::string result = textOf(exposures);
    exposures.exchange(change);
    EXPECT_EQ(textOf(exposures), before);
    exposures.exchange(change);
    EXPECT_EQ(textOf(exposures), result);
    return result;
}

} // namespace

TEST(ExposuresTest, ADrawingHoldsUpToTheNextExposure)
{
    const Exposures exposures = sheet("3a 5b 8 10b");
    const std::array shown{"", "", "a", "a", "b", "b", "b", "", "", "b", "b"};
    for (std::size_t i = 0; i < shown.size(); ++i)
        EXPECT_EQ(exposures.at(static_cast<int>(i) + 1), shown[i]) << i + 1;
    EXPECT_TRUE(exposures.at(1).isNull());
    EXPECT_TRUE(exposures.at(8).isNull());
    EXPECT_EQ(exposures.at(1'000'000), "b");
    EXPECT_TRUE(exposures.isKey(3) && exposures.isKey(10));
    EXPECT_FALSE(exposures.isKey(4) || exposures.isKey(8) || exposures.isKey(11));
    EXPECT_EQ(exposures.drawings(), (QStringList{"a", "b"}));
    EXPECT_EQ(exposures.nextKey(0), 3);
    EXPECT_EQ(exposures.nextKey(3), 5);
    EXPECT_EQ(exposures.nextKey(5), 10);
    EXPECT_EQ(exposures.nextKey(10), 0);
    EXPECT_EQ(exposures.nextKey(0, [](const QString& drawing) { return drawing == "b"; }), 5);
}

TEST(ExposuresTest, TheFramesEndWithTheLastThatShowsADrawing)
{
    EXPECT_EQ(sheet("").frameCount(60), 0);
    EXPECT_EQ(sheet("3a").frameCount(60), 60);
    EXPECT_EQ(sheet("3a 8").frameCount(60), 7);
    EXPECT_EQ(sheet("3a 80b").frameCount(60), 80);
}

TEST(ExposuresTest, AnExposureIsAddedBehindTheOthersOnly)
{
    Exposures exposures = sheet("3a");
    EXPECT_FALSE(exposures.append(3, "b"));
    EXPECT_FALSE(exposures.append(0, "b"));
    EXPECT_FALSE(exposures.append(Exposures::lastFrame + 1, "b"));
    EXPECT_TRUE(exposures.append(4, ""));
    EXPECT_FALSE(exposures.append(5, ""));
    EXPECT_FALSE(Exposures().append(1, ""));
}

TEST(ExposuresTest, DrawingsAreExposedFrameByFrame)
{
    struct {
        const char* before;
        int frame;
        QStringList drawings;
        const char* after;
    } const rows[] = {
        {"", 5, {"a"}, "5a"},
        {"1a", 5, {"b"}, "1a 5b"},
        {"1a 9c", 5, {"b"}, "1a 5b 9c"},
        {"1a 9c", 5, {"b", "b", "a"}, "1a 5b 7a 9c"},
        {"1a", 5, {"a"}, "1a"},
        {"1a 5a", 5, {"a"}, "1a 5a"},
        {"1a 5b", 5, {"a"}, "1a"},
        {"1a 5b 7c", 5, {"c", "c", "c"}, "1a 5c 7c"},
        {"1a 3b 5c", 1, {"x", "x", "x", "x"}, "1x 5c"},
        {"1a 5b", 3, {""}, "1a 3 5b"},
        {"1a 5", 3, {""}, "1a 3"},
        {"1a 5", 4, {"a"}, "1a 5"},
        {"5a", 1, {"", ""}, "5a"},
        {"5a", 5, {""}, ""},
        {"1a 5 8b", 5, {"a"}, "1a 8b"},
        {"1a", 2, {}, "1a"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(after(row.before, [&](const Exposures& all) { return all.exposed(row.frame, row.drawings); }),
                  row.after)
            << row.before << " at " << row.frame;
    }
}

TEST(ExposuresTest, DrawingsAreExposedWithoutAChangeBehind)
{
    const auto only = [](int frame, const QStringList& drawings) {
        return [=](const Exposures& all) { return all.exposedOnly(frame, drawings); };
    };
    EXPECT_EQ(after("1a", only(5, {"b"})), "1a 5b 6a");
    EXPECT_EQ(after("1a 6c", only(5, {"b"})), "1a 5b 6c");
    EXPECT_EQ(after("", only(5, {"b", "b"})), "5b 7");
    EXPECT_EQ(after("1a 9", only(3, {"", ""})), "1a 3 5a 9");
    EXPECT_EQ(after("1a 4a 9", only(3, {"a", "a", "b"})), "1a 4a 5b 6a 9");
}

TEST(ExposuresTest, KeysComeAndGo)
{
    const auto with = [](std::vector<FrameSpan> spans) {
        return [=](const Exposures& all) { return all.withKeys(spans); };
    };
    EXPECT_EQ(after("1a 9b", with({{2, 5}})), "1a 2a 3a 4a 9b");
    EXPECT_EQ(after("1a 3 5b", with({{4, 6}, {1, 2}, {7, 8}, {6, 8}})), "1a 3 5b 6b 7b");
    EXPECT_EQ(after("", with({{1, 9}})), "");
    EXPECT_EQ(after("1a", with({{-5, 3}, {3, 3}, {9, 2}})), "1a 2a");

    const auto without = [](std::vector<FrameSpan> spans, bool duplicates) {
        return [=](const Exposures& all) { return all.withoutKeys(spans, duplicates); };
    };
    EXPECT_EQ(after("1a 3b 5c", without({{3, 4}}, false)), "1a 5c");
    EXPECT_EQ(after("1a 3b 5c", without({{1, 2}}, false)), "3b 5c");
    EXPECT_EQ(after("1a 3 5c", without({{1, 9}}, false)), "");
    EXPECT_EQ(after("1a 3a 5b 7b", without({{1, 9}}, true)), "1a 5b");
    EXPECT_EQ(after("1a 3 5a", without({{1, 9}}, true)), "1a 3 5a");
    EXPECT_EQ(after("1a 3a 5a", without({{5, 6}}, true)), "1a 3a");
}

TEST(ExposuresTest, EmptyFramesAreFilledWithWhatIsHeldAheadOfThem)
{
    const auto filled = [](std::vector<FrameSpan> spans) {
        return [=](const Exposures& all) { return all.filled(spans); };
    };
    EXPECT_EQ(after("3a 5 9b", filled({{1, 20}})), "3a 9b");
    EXPECT_EQ(after("3a 5 9b", filled({{6, 8}})), "3a 5 6a 8 9b");
    EXPECT_EQ(after("3a 5", filled({{5, 8}})), "3a 8");
    EXPECT_EQ(after("3a 5", filled({{2, 1'000'001}})), "3a");
    EXPECT_EQ(after("3a 5 9b 12", filled({{4, 7}, {12, 14}})), "3a 7 9b 14");
}

TEST(ExposuresTest, DrawingsAreRenamedAndTakenAway)
{
    EXPECT_EQ(after("1a 3b 5a 7", [](const Exposures& all) { return all.renamed("a", "x"); }), "1x 3b 5x 7");
    EXPECT_EQ(after("1a", [](const Exposures& all) { return all.renamed("b", "x"); }), "1a");
    EXPECT_EQ(after("1a 3b 5a 7", [](const Exposures& all) { return all.without({"a"}); }), "3b 5");
    EXPECT_EQ(after("1a 3b 5c", [](const Exposures& all) { return all.without({"b", "a"}); }), "5c");
}

TEST(ExposuresTest, FramesThatComeInShowNothingOrWhatIsHeldAhead)
{
    const auto shifted = [](int at, int delta, bool extends) {
        return [=](const Exposures& all) { return all.shifted(FrameShift{at, delta}, 60, extends); };
    };
    EXPECT_EQ(after("1a 10b", shifted(5, 3, false)), "1a 6 9a 13b");
    EXPECT_EQ(after("1a 10b", shifted(5, 3, true)), "1a 13b");
    EXPECT_EQ(after("1a 10b", shifted(9, 3, false)), "1a 10 13b");
    EXPECT_EQ(after("1a 10b", shifted(9, 3, true)), "1a 13b");
    EXPECT_EQ(after("1a 10b", shifted(0, 3, false)), "4a 13b");
    EXPECT_EQ(after("1a 10b", shifted(0, 3, true)), "4a 13b");
    EXPECT_EQ(after("1a", shifted(60, 5, false)), "1a 61");
    EXPECT_EQ(after("1a", shifted(60, 5, true)), "1a");
    EXPECT_EQ(after("1a 20", shifted(30, 5, false)), "1a 20");
}

TEST(ExposuresTest, FramesThatGoTakeTheirExposuresAlong)
{
    struct {
        const char* before;
        int at, count;
        const char* cleared;
        const char* shifted;
    } const rows[] = {
        {"1a 10b", 5, 3, "1a 10b", "1a 7b"},
        {"1a 7x 10b", 5, 3, "1a 9x 10b", "1a 6x 7b"},
        {"1a 7x 9b", 5, 3, "1a 9b", "1a 6b"},
        {"1a 7", 5, 3, "1a 9", "1a 6"},
        {"7a", 5, 3, "9a", "6a"},
        {"1a 50b", 40, 20, "1a", "1a"},
        {"1a 6a", 5, 3, "1a", "1a"},
    };
    for (const auto& row : rows) {
        const FrameShift shift{row.at, -row.count};
        const auto clear = [&](const Exposures& all) { return all.cleared(row.at, row.count, 60); };
        const auto cut = [&](const Exposures& all) { return all.shifted(shift, 60, false); };
        EXPECT_EQ(after(row.before, clear), row.cleared);
        EXPECT_EQ(after(row.before, cut), row.shifted);
        EXPECT_EQ(after(row.cleared, cut), row.shifted) << "both steps together";
    }
}

TEST(ExposuresTest, RandomEditsShowInEachFrameWhatALineOfCellsShows)
{
    std::mt19937 random(7);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned int>(limit)); };
    constexpr int length = 40;
    Exposures exposures;
    QStringList cells(length + 1); // by frame
    for (int step = 0; step < 3000; ++step) {
        const int frame = 1 + below(length);
        QStringList names;
        for (int count = 1 + below(4); count > 0; --count)
            names.append(below(4) ? QString(QChar(u'a' + below(3))) : QString());
        Exposures::Change change;
        const int kind = below(4);
        if (kind == 0) {
            change = exposures.exposed(frame, names);
            const int behind = frame + static_cast<int>(names.size()) - 1;
            int hold = behind + 1;
            const auto isExposure = [&](int at) {
                return std::any_of(exposures.all().begin(), exposures.all().end(),
                                   [at](const Exposure& each) { return each.frame == at; });
            };
            for (; hold <= length && !isExposure(hold); ++hold)
                cells[hold] = names.last();
            for (int i = 0; i < names.size() && frame + i <= length; ++i)
                cells[frame + i] = names[i];
        } else if (kind == 1) {
            change = exposures.exposedOnly(frame, names);
            for (int i = 0; i < names.size() && frame + i <= length; ++i)
                cells[frame + i] = names[i];
        } else if (kind == 2) {
            const FrameSpan span{frame, frame + 1 + below(9)};
            change = exposures.filled(std::span(&span, 1));
            QString held;
            for (int at = 1; at <= length; ++at) {
                if (!cells[at].isEmpty())
                    held = cells[at];
                else if (at >= span.first && at < span.end)
                    cells[at] = held;
            }
        } else {
            const FrameSpan span{frame, frame + 1 + below(9)};
            change =
                below(2) ? exposures.withKeys(std::span(&span, 1)) : exposures.withoutKeys(std::span(&span, 1), true);
        }
        const std::string before = textOf(exposures);
        exposures.exchange(change);
        const std::string now = textOf(exposures);
        exposures.exchange(change);
        ASSERT_EQ(textOf(exposures), before);
        exposures.exchange(change);
        ASSERT_EQ(textOf(exposures), now);
        for (int at = 1; at <= length; ++at)
            ASSERT_EQ(exposures.at(at), cells[at])
                << "frame " << at << " at step " << step << ": " << before << " to " << now;
        Exposures again;
        for (const Exposure& each : exposures.all())
            ASSERT_TRUE(again.append(each.frame, each.drawing)) << now;
    }
}
