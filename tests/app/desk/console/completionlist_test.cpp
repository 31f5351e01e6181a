#include "tests/app/desk/support/desktest.h"

#include <QAbstractItemView>
#include <QApplication>

namespace {

class CompletionListTest : public DeskTest {
protected:
    QStringList shown() { return console().completion().shown(); }
    void complete(const QString& line)
    {
        input().setText(line);
        press(Qt::Key_Tab);
    }
    /// To where keys go while a list is open.
    static void pressInList(Qt::Key key) { QTest::keyClick(QApplication::activePopupWidget(), key); }
};

TEST_F(CompletionListTest, TheOnlyCandidateIsWritten)
{
    complete("app.scene.frame_c");
    EXPECT_EQ(input().text(), "app.scene.frame_count");
    EXPECT_EQ(shown(), QStringList());
    complete("x = brindle.Point3");
    EXPECT_EQ(input().text(), "x = brindle.Point3d");
}

TEST_F(CompletionListTest, SeveralCandidatesAreOfferedBehindWhatTheyBeginWith)
{
    complete("app.sc");
    EXPECT_EQ(input().text(), "app.scene");
    EXPECT_EQ(shown(), QStringList({"scene", "scenes"}));
    pressInList(Qt::Key_Down);
    pressInList(Qt::Key_Return);
    EXPECT_EQ(input().text(), "app.scenes");
    EXPECT_EQ(shown(), QStringList());
    EXPECT_EQ(output().count(">>>"), 0);
}

TEST_F(CompletionListTest, TheFirstIsChosenByTabAndNothingByEscape)
{
    complete("app.sc");
    pressInList(Qt::Key_Tab);
    EXPECT_EQ(input().text(), "app.scene");
    EXPECT_EQ(shown(), QStringList());
    complete("app.sc");
    EXPECT_EQ(shown().size(), 2);
    pressInList(Qt::Key_Escape);
    EXPECT_EQ(shown(), QStringList());
    EXPECT_EQ(input().text(), "app.scene");
}

TEST_F(CompletionListTest, TypingOnNarrowsTheListAndEndsIt)
{
    type("class T: alpha = alpine = beta = 1");
    type("");
    complete("T.");
    EXPECT_EQ(shown(), QStringList({"alpha", "alpine", "beta"}));
    pressInList(Qt::Key_A);
    EXPECT_EQ(input().text(), "T.a");
    EXPECT_EQ(shown(), QStringList({"alpha", "alpine"}));
    pressInList(Qt::Key_Backspace);
    EXPECT_EQ(shown().size(), 3);
    pressInList(Qt::Key_B);
    EXPECT_EQ(shown(), QStringList({"beta"}));
    pressInList(Qt::Key_Space);
    EXPECT_EQ(shown(), QStringList());
    EXPECT_EQ(input().text(), "T.b ");
}

TEST_F(CompletionListTest, TheWordAheadOfTheCursorIsCompletedAndTheRestStays)
{
    input().setText("print(app.scene.frame_c)");
    press(Qt::Key_Left);
    press(Qt::Key_Tab);
    EXPECT_EQ(input().text(), "print(app.scene.frame_count)");
    input().setText(QString::fromUtf8("'😀', app.scene.frame_c"));
    press(Qt::Key_Tab);
    EXPECT_EQ(input().text(), QString::fromUtf8("'😀', app.scene.frame_count"));
}

TEST_F(CompletionListTest, NothingIsWrittenWhereNothingFits)
{
    for (const char* line :
         {"app.nothing_there", "nothing_there", "nothing.there", "1.", "app.scene().", "x[0].", ")."}) {
        complete(line);
        EXPECT_EQ(input().text(), line);
        EXPECT_EQ(shown(), QStringList());
    }
}

} // namespace
