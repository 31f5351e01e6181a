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

TEST(TextViewTest, WhatIsShownTakesOnNewColoursOfTheWindow)
{
    TextView view;
    view.append({Tone::Plain, "plain "});
    view.append({Tone::Error, "error\n\n"});
    view.append({Tone::Input, "input"});
    QPalette palette = view.palette();
    palette.setColor(QPalette::Base, Qt::black);
    palette.setColor(QPalette::Text, Qt::white);
    const QColor before = view.colorOf(Tone::Error);
    view.setPalette(palette);
    EXPECT_NE(view.colorOf(Tone::Error), before);
    EXPECT_EQ(toneOf(view, "plain"), Tone::Plain);
    EXPECT_EQ(toneOf(view, "error"), Tone::Error);
    EXPECT_EQ(toneOf(view, "input"), Tone::Input);
    EXPECT_EQ(view.toPlainText(), "plain error\n\ninput");
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
    QList<app::desk::Message> many;
    for (int line = 0; line < 2 * TextView::maxLines; ++line)
        many.append({Tone::Plain, QString::number(line) + u'\n'});
    view.append(many);
    EXPECT_EQ(view.blockCount(), TextView::maxLines);
    EXPECT_TRUE(view.toPlainText().endsWith("\n19998\n19999\n"));
}

TEST(TextViewTest, ALineWithoutEndIsBroken)
{
    TextView view;
    const QString most(TextView::maxLineLength, u'x');
    view.append({Tone::Plain, "one\n" + most});
    EXPECT_EQ(view.toPlainText(), "one\n" + most);
    view.append({Tone::Error, "xx"});
    EXPECT_EQ(view.toPlainText(), "one\n" + most + "\nxx");
    view.clear();
    view.append({Tone::Plain, most.chopped(1) + QString::fromUtf8("😀") + "x"});
    EXPECT_EQ(view.toPlainText(), most.chopped(1) + QString::fromUtf8("😀") + "\nx");
}

TEST(TextViewTest, OnlySoMuchIsKept)
{
    TextView view;
    const QString line = QString(TextView::maxLineLength - 1, u'x') + u'\n';
    for (int place = 0; place < TextView::maxCharacters / TextView::maxLineLength + 3; ++place)
        view.append({Tone::Plain, QString::number(place) + u'\n' + line});
    EXPECT_LE(view.document()->characterCount(), TextView::maxCharacters);
    EXPECT_GT(view.document()->characterCount(), TextView::maxCharacters - 2 * TextView::maxLineLength);
    EXPECT_TRUE(view.toPlainText().endsWith("402\n" + line));
}

} // namespace
