#include "tests/app/desk/support/desktest.h"

#include <QScrollBar>

namespace {

using app::desk::TextView;
using app::desk::Tone;

TEST(TextViewTest, EachToneHasAColourOfItsOwnOnLightAndOnDarkGround)
{
    TextView view;
    for (const QColor ground : {Qt::white, Qt::black}) {
        QPalette palette = view.palette();
        palette.setColor(QPalette::Base, ground);
        palette.setColor(QPalette::Text, ground == QColor(Qt::white) ? Qt::black : Qt::white);
        view.setPalette(palette);
        QStringList names;
        for (const Tone tone : {Tone::Plain, Tone::Input, Tone::Error, Tone::Debug}) {
            const QColor color = view.colorOf(tone);
            EXPECT_GT(std::abs(color.lightness() - ground.lightness()), 80);
            names.append(color.name());
        }
        EXPECT_EQ(names.removeDuplicates(), 0);
    }
}

TEST(TextViewTest, PiecesFollowEachOtherInTheirColoursAndLinesEndOneWay)
{
    TextView view;
    EXPECT_FALSE(view.endsWithinLine());
    view.append({Tone::Plain, "one "});
    EXPECT_TRUE(view.endsWithinLine());
    view.append({Tone::Error, "two\r\nthree\rfour\n"});
    EXPECT_FALSE(view.endsWithinLine());
    EXPECT_EQ(view.toPlainText(), "one two\nthree\nfour\n");
    EXPECT_EQ(toneOf(view, "one"), Tone::Plain);
    EXPECT_EQ(toneOf(view, "two"), Tone::Error);
    EXPECT_EQ(toneOf(view, "four"), Tone::Error);
}

TEST(TextViewTest, ItShowsTheEndUnlessThePersonScrolledAway)
{
    TextView view;
    view.resize(300, 100);
    view.show();
    const QScrollBar& bar = *view.verticalScrollBar();
    for (int line = 0; line < 100; ++line)
        view.append({Tone::Plain, "line\n"});
    EXPECT_GT(bar.maximum(), 0);
    EXPECT_EQ(bar.value(), bar.maximum());
    view.verticalScrollBar()->setValue(3);
    view.append({Tone::Plain, "more\n"});
    EXPECT_EQ(bar.value(), 3);
}

TEST(TextViewTest, TheOldestLinesGo)
{
    TextView view;
    for (int line = 0; line < 3; ++line)
        view.append({Tone::Plain, QString("line\n").repeated(TextView::maxLines / 2)});
    view.append({Tone::Plain, "the end"});
    EXPECT_EQ(view.blockCount(), TextView::maxLines);
    EXPECT_TRUE(view.toPlainText().endsWith("the end"));
}

} // namespace
