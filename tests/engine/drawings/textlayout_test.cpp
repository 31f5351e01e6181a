#include "engine/drawings/textlayout.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using brindle::engine::TextLayout;

GR_TextLayer::Data text(const QString& words)
{
    GR_TextLayer::Data data;
    data.text = words;
    return data;
}

Math::Box2d plainBox(const GR_TextLayer::Data& data)
{
    return TextLayout(data).plainBox();
}

double advance(const QString& words)
{
    return plainBox(text(words)).width();
}

/// DejaVu Sans has 2048 units to the em, reaches from -483 to 1901, and has no gap between lines.
constexpr double ascender = 1901 * 100.0 / 2048;
constexpr double descender = -483 * 100.0 / 2048;
constexpr double lineHeight = ascender - descender;

} // namespace

TEST(TextLayout, ALineStandsOnItsBaseline)
{
    const Math::Box2d box = plainBox(text("Hxg"));
    EXPECT_DOUBLE_EQ(box.minX(), 0);
    EXPECT_NEAR(box.maxY(), ascender, 1e-9);
    EXPECT_NEAR(box.minY(), descender, 1e-9);
    EXPECT_NEAR(plainBox(text("H")).width(), 1540 * 100.0 / 2048, 1e-9);
    const Math::Box2d outline = TextLayout(text("H")).outlineBox();
    EXPECT_NEAR(outline.minY(), 0, 1e-9);
    EXPECT_NEAR(outline.maxY(), 1493 * 100.0 / 2048, 1e-9);
}

TEST(TextLayout, OutlinesAreClosedAndLieInTheirBox)
{
    const TextLayout layout(text("O!"));
    const auto outlines = layout.outlines();
    ASSERT_EQ(outlines.size(), 4u) << "two rings, a bar and a dot";
    double area = 0;
    for (const GR_BezierPath2d& path : outlines) {
        EXPECT_TRUE(path.IsClosed());
        area += path.GetArea();
    }
    EXPECT_GT(std::fabs(area), 0);
    const Math::Box2d outline = layout.outlineBox();
    EXPECT_LT(outline.width(), layout.plainBox().width());
}

TEST(TextLayout, TextWithoutLettersHasNoOutlines)
{
    EXPECT_TRUE(plainBox(text("")).isEmpty());
    EXPECT_TRUE(TextLayout(text("")).outlines().empty());
    EXPECT_TRUE(TextLayout(text("  ")).outlines().empty());
    EXPECT_GT(advance("  "), 0);
}

TEST(TextLayout, LinesEndAtLineFeeds)
{
    for (const char* words : {"one\ntwo", "one\r\ntwo", "one\rtwo", "one\u2028two", "one\u2029two"})
        EXPECT_NEAR(plainBox(text(QString::fromUtf8(words))).height(), 2 * lineHeight, 1e-9) << words;
    GR_TextLayer::Data spaced = text("one\ntwo");
    spaced.lineSpace = 7;
    EXPECT_NEAR(plainBox(spaced).height(), 2 * lineHeight + 7, 1e-9);
}

TEST(TextLayout, LinesAreBrokenBetweenWordsAtTheWidth)
{
    GR_TextLayer::Data words = text("aaa aaa aaa");
    words.width = advance("aaa aaa") + 1;
    EXPECT_NEAR(plainBox(words).height(), 2 * lineHeight, 1e-9);
    EXPECT_NEAR(plainBox(words).width(), advance("aaa aaa"), 1e-9) << "the space at the break takes no room";
    words.width = advance("aaa aaa") - 1;
    EXPECT_NEAR(plainBox(words).height(), 3 * lineHeight, 1e-9);
    words.width = 1;
    EXPECT_NEAR(plainBox(words).height(), 3 * lineHeight, 1e-9) << "a word is never divided";
    words.width = advance("aaa aaa") + 1;
    words.marginLeft = 2;
    EXPECT_NEAR(plainBox(words).height(), 3 * lineHeight, 1e-9);
}

TEST(TextLayout, MarginsAndIndentMoveLines)
{
    GR_TextLayer::Data words = text("a\na");
    words.marginLeft = 10;
    words.indent = 5;
    const Math::Box2d box = plainBox(words);
    EXPECT_DOUBLE_EQ(box.minX(), 10);
    EXPECT_NEAR(box.maxX(), 15 + advance("a"), 1e-9);
}

TEST(TextLayout, LinesAreAlignedInTheParagraph)
{
    GR_TextLayer::Data words = text("wide line\nx");
    const auto leftOfSecondLine = [&words] {
        double left = std::nan("");
        for (const GR_BezierPath2d& path : TextLayout(words).outlines()) {
            if (path.GetBox().maxY() < 0)
                left = std::fmin(left, path.GetBox().minX());
        }
        return left;
    };
    const double atLeft = leftOfSecondLine();
    const double room = advance("wide line") - advance("x");
    words.alignment = GR_TextLayer::kRight;
    EXPECT_NEAR(leftOfSecondLine(), atLeft + room, 1e-6);
    words.alignment = GR_TextLayer::kCenter;
    EXPECT_NEAR(leftOfSecondLine(), atLeft + room / 2, 1e-6);
    words.fixedWidth = 1000;
    EXPECT_NEAR(leftOfSecondLine(), atLeft + (1000 - advance("x")) / 2, 1e-6);
    EXPECT_NEAR(plainBox(words).width(), 1000, 1e-9);
}

TEST(TextLayout, JustifiedLinesFillTheWidth)
{
    GR_TextLayer::Data words = text("aa bb cc dd");
    words.alignment = GR_TextLayer::kJustify;
    words.width = advance("aa bb cc") + 20;
    EXPECT_NEAR(plainBox(words).width(), words.width, 1e-9);
    words.text = "aa bb";
    EXPECT_NEAR(plainBox(words).width(), advance("aa bb"), 1e-9) << "the last line stays as it is";
}

TEST(TextLayout, TheMatrixPlacesTheText)
{
    GR_TextLayer::Data words = text("H");
    words.matrix = Math::Matrix2x3({0, 2}, {-2, 0}, {100, 50});
    const TextLayout layout(words);
    EXPECT_NEAR(layout.box().maxY(), 50 + 2 * advance("H"), 1e-9);
    EXPECT_NEAR(layout.box().minX(), 100 - 2 * ascender, 1e-9);
    EXPECT_NEAR(layout.outlineBox().maxX(), 100, 1e-9);
    EXPECT_EQ(layout.plainBox(), plainBox(text("H")));
}

TEST(TextLayout, AnyTextIsLaidOut)
{
    const char16_t loneHalf[] = {0xd800, u'a', 0xdc00, 0};
    for (const QString& words :
         {QString::fromUtf16(loneHalf), QString::fromUtf8("e\u0301 \u05d0\u05d1 abc \u0627\u0644 \u4e2d \U0001F600 \t"),
          QString(QChar(0)), QString(5000, u'x')}) {
        GR_TextLayer::Data data = text(words);
        data.width = 500;
        data.alignment = GR_TextLayer::kJustify;
        EXPECT_NO_THROW(TextLayout(data).outlineBox());
    }
    GR_TextLayer::Data other = text("abc");
    other.font = "No Font Of This Name";
    EXPECT_GT(plainBox(other).width(), 0);
    other.font = "DejaVu Sans:bold";
    EXPECT_GT(plainBox(other).width(), advance("abc"));
    other.font = QString();
    EXPECT_GT(plainBox(other).width(), 0);
}
