#include "tests/app/desk/support/desktest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace {

using app::desk::Tone;

class ConsolePanelTest : public DeskTest {
protected:
    ConsolePanelTest() { console().clear(); }
};

TEST_F(ConsolePanelTest, WhatAnExpressionGivesIsPrintedBelowIt)
{
    type("1 + 1");
    EXPECT_EQ(output(), ">>> 1 + 1\n2\n");
    EXPECT_EQ(input().text(), "");
    type("x = _ * 21");
    type("x");
    EXPECT_EQ(output(), ">>> 1 + 1\n2\n>>> x = _ * 21\n>>> x\n42\n");
    EXPECT_EQ(toneOf(console().output(), "1 + 1"), Tone::Input);
    EXPECT_EQ(toneOf(console().output(), "42"), Tone::Plain);
}

TEST_F(ConsolePanelTest, TheApplicationWithItsProjectIsAtHand)
{
    EXPECT_EQ(answerTo("app is brindle.application()"), "True");
    EXPECT_EQ(answerTo("app.scene.name"), "'Scene-1'");
    EXPECT_EQ(answerTo("__name__"), "'__main__'");
    EXPECT_EQ(answerTo("brindle.open('/nowhere')"),
              "Traceback (most recent call last):\n  File \"<console>\", line 1, in <module>\n"
              "brindle.Error: Cannot open the project: \"/nowhere\" does not exist.");
}

TEST_F(ConsolePanelTest, AStatementOfSeveralLinesIsGoneOnWithUntilAnEmptyOne)
{
    EXPECT_EQ(console().prompt(), ">>> ");
    type("for i in range(2):");
    EXPECT_EQ(console().prompt(), "... ");
    press(Qt::Key_Tab);
    EXPECT_EQ(input().text(), "    ");
    type("print(i)");
    EXPECT_EQ(console().prompt(), "... ");
    type("");
    EXPECT_EQ(console().prompt(), ">>> ");
    EXPECT_EQ(output(), ">>> for i in range(2):\n...     print(i)\n... \n0\n1\n");
    type("(1,");
    type("2)");
    EXPECT_TRUE(output().endsWith(">>> (1,\n... 2)\n(1, 2)\n"));
}

TEST_F(ConsolePanelTest, ErrorsAreInAColourOfTheirOwn)
{
    type("print('fine'); 1 / 0");
    EXPECT_EQ(output(), ">>> print('fine'); 1 / 0\nfine\nTraceback (most recent call last):\n"
                        "  File \"<console>\", line 1, in <module>\nZeroDivisionError: division by zero\n");
    EXPECT_EQ(toneOf(console().output(), "fine\n"), std::nullopt);
    EXPECT_EQ(toneOf(console().output(), "Traceback"), Tone::Error);
    EXPECT_EQ(toneOf(console().output(), "ZeroDivisionError"), Tone::Error);
    console().clear();
    type("import sys; print('warned', file=sys.stderr)");
    EXPECT_EQ(toneOf(console().output(), "warned\n"), std::nullopt);
    type("sys.stderr.write('no end') and None");
    EXPECT_TRUE(output().endsWith("\nno end"));
    type("x = 1 1");
    EXPECT_TRUE(output().endsWith("no end\n>>> x = 1 1\n  File \"<console>\", line 1\n    x = 1 1\n          ^\n"
                                  "SyntaxError: invalid syntax\n"))
        << output().toStdString();
    EXPECT_EQ(toneOf(console().output(), "SyntaxError"), Tone::Error);
}

TEST_F(ConsolePanelTest, TextThatIsNoUnicodeIsPrintedEscaped)
{
    EXPECT_EQ(answerTo("print('\\u00e4 \\U0001f600 \\ud800')"), QString::fromUtf8("ä 😀 \\ud800"));
}

TEST_F(ConsolePanelTest, NobodyCanTypeIntoAScript)
{
    EXPECT_TRUE(answerTo("input('name? ')").endsWith("EOFError: EOF when reading a line"));
}

TEST_F(ConsolePanelTest, LinesPastedAreRunAsOne)
{
    paste("def twice(x):\n    y = x\n\n    return 2 * y\ntwice(4)\ntwice('ab')\n");
    EXPECT_EQ(output(), ">>> def twice(x):\n...     y = x\n... \n...     return 2 * y\n... twice(4)\n... twice('ab')\n"
                        "8\n'abab'\n");
    EXPECT_EQ(input().text(), "");
    EXPECT_EQ(console().prompt(), ">>> ");
}

TEST_F(ConsolePanelTest, WhatFollowsTheLastLinePastedStaysToBeGoneOnWith)
{
    QTest::keyClicks(&input(), "a = [)");
    press(Qt::Key_Left);
    paste("1,\r\n2,\r\n3");
    EXPECT_EQ(input().text(), "3)");
    EXPECT_EQ(output(), ">>> a = [1,\n... 2,\n");
    EXPECT_EQ(console().prompt(), "... ");
    input().setText("3]");
    type("");
    EXPECT_EQ(answerTo("a"), "[1, 2, 3]");
}

TEST_F(ConsolePanelTest, APasteStopsAtItsFirstErrorAndOneThatIsNoPythonRunsNothing)
{
    paste("a = 1\n1 / 0\na = 2\n");
    EXPECT_EQ(answerTo("a"), "1");
    paste("a = 3\nb = 1 1\n");
    EXPECT_TRUE(output().endsWith("SyntaxError: invalid syntax\n"));
    EXPECT_EQ(answerTo("a"), "1");
    EXPECT_EQ(console().prompt(), ">>> ");
}

TEST_F(ConsolePanelTest, OneLinePastedIsOnlyTyped)
{
    paste("1 + 2");
    EXPECT_EQ(input().text(), "1 + 2");
    EXPECT_EQ(output(), "");
}

TEST_F(ConsolePanelTest, TheArrowsGoThroughWhatWasTyped)
{
    type("a = 1");
    type("b = 2");
    QTest::keyClicks(&input(), "half");
    press(Qt::Key_Up);
    EXPECT_EQ(input().text(), "b = 2");
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(input().text(), "a = 1");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(input().text(), "half");
    press(Qt::Key_Down);
    EXPECT_EQ(input().text(), "half");
}

TEST_F(ConsolePanelTest, InterruptingTakesBackWhatIsBeingTyped)
{
    type("if True:");
    QTest::keyClicks(&input(), "    x = ");
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(output(), ">>> if True:\n...     x = \nKeyboardInterrupt\n");
    EXPECT_EQ(input().text(), "");
    EXPECT_EQ(console().prompt(), ">>> ");
    EXPECT_EQ(toneOf(console().output(), "KeyboardInterrupt"), Tone::Error);
    EXPECT_EQ(answerTo("3"), "3");
}

TEST_F(ConsolePanelTest, TheSameKeysCopyWhatIsSelected)
{
    QGuiApplication::clipboard()->setText("before");
    QTest::keyClicks(&input(), "kept");
    input().selectAll();
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "kept");
    EXPECT_EQ(input().text(), "kept");
    EXPECT_EQ(output(), "");
}

TEST_F(ConsolePanelTest, TypingInTheOutputGoesToTheLine)
{
    QTest::keyClicks(&console().output(), "12");
    EXPECT_EQ(input().text(), "12");
    QTest::keyClick(&console().output(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(output(), ">>> 12\nKeyboardInterrupt\n");
}

TEST_F(ConsolePanelTest, ClearingLeavesTheStatement)
{
    type("if True:");
    QTest::keyClicks(&input(), "    1");
    press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(output(), "");
    EXPECT_EQ(input().text(), "    1");
    EXPECT_EQ(console().prompt(), "... ");
}

TEST_F(ConsolePanelTest, AScriptRunsAmongTheNamesOfTheConsole)
{
    write("helper.py", "value = 5\n");
    const QString script =
        write("go.py", "import helper, sys\nseen = (helper.value, sys.argv[1:], __name__)\nprint(seen)\n");
    EXPECT_EQ(console().runFile(script.toUtf8(), {"a", "--b"}), std::nullopt);
    EXPECT_EQ(output(), "Running " + script + "\n(5, ['a', '--b'], '__main__')\n");
    EXPECT_EQ(answerTo("seen[0]"), "5");
}

TEST_F(ConsolePanelTest, AScriptThatFailsOrIsNoneSaysSo)
{
    const QString broken = write("broken.py", "x = (\n");
    const QString failing = write("failing.py", "def f():\n    return 1 / 0\nf()\n");
    EXPECT_EQ(console().runFile(broken.toUtf8()), std::nullopt);
    EXPECT_TRUE(output().endsWith("SyntaxError: '(' was never closed\n"));
    EXPECT_EQ(console().runFile(failing.toUtf8()), std::nullopt);
    EXPECT_TRUE(output().contains("failing.py\", line 2, in f\n    return 1 / 0\n"));
    EXPECT_EQ(console().runFile(path("none.py").toUtf8()), std::nullopt);
    EXPECT_TRUE(output().endsWith("Cannot run \"" + path("none.py") + "\": No such file or directory.\n"));
    EXPECT_EQ(toneOf(console().output(), "Cannot run"), Tone::Error);
}

TEST_F(ConsolePanelTest, AScriptThatEndsItselfGivesItsCode)
{
    EXPECT_EQ(console().runFile(write("seven.py", "import sys\nsys.exit(7)\n").toUtf8()), 7);
    EXPECT_EQ(console().runFile(write("none.py", "raise SystemExit\n").toUtf8()), 0);
    EXPECT_EQ(console().runFile(write("text.py", "raise SystemExit('It went wrong.')\n").toUtf8()), 1);
    EXPECT_TRUE(output().endsWith("It went wrong.\n"));
    EXPECT_EQ(answerTo("'still here'"), "'still here'");
}

} // namespace
