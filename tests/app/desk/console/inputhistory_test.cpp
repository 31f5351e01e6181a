#include "app/desk/console/inputhistory.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

namespace {

using app::desk::InputHistory;

class InputHistoryTest : public testing::Test {
protected:
    QString content() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString("none");
    }

    QTemporaryDir folder;
    QString path = folder.filePath("new/folder/history");
};

TEST_F(InputHistoryTest, OlderAndNewerLinesComeInTurnAndWhatWasTypedAtTheEnd)
{
    InputHistory history;
    EXPECT_EQ(history.older("typed"), std::nullopt);
    EXPECT_EQ(history.newer(), std::nullopt);
    history.add("one");
    history.add("two");
    EXPECT_EQ(history.older("typed"), "two");
    EXPECT_EQ(history.older("changed"), "one");
    EXPECT_EQ(history.older("one"), std::nullopt);
    EXPECT_EQ(history.newer(), "two");
    EXPECT_EQ(history.newer(), "typed");
    EXPECT_EQ(history.newer(), std::nullopt);
    history.older("");
    history.add("three");
    EXPECT_EQ(history.older(""), "three");
}

TEST_F(InputHistoryTest, BlankLinesAndOnesTypedTwiceInARowAreLeftOut)
{
    InputHistory history;
    for (const char* line : {"one", "", "   ", "one", "  two", "one"})
        history.add(line);
    EXPECT_EQ(history.lines(), QStringList({"one", "  two", "one"}));
}

TEST_F(InputHistoryTest, TheNextRunGoesOnWithTheLinesOfTheLast)
{
    {
        InputHistory history(path);
        history.add("print('ä')");
        history.add("    indented");
    }
    EXPECT_EQ(content(), "print('ä')\n    indented\n");
    EXPECT_EQ(QFile(path).permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteOther), 0);
    InputHistory first(path);
    InputHistory second(path);
    EXPECT_EQ(first.older(""), "    indented");
    first.add("a");
    second.add("b");
    EXPECT_EQ(InputHistory(path).lines(), QStringList({"print('ä')", "    indented", "a", "b"}));
}

TEST_F(InputHistoryTest, OnlySoManyLinesAreKeptAndALongFileIsShortened)
{
    const int most = InputHistory::maxLines;
    QStringList many;
    for (int line = 0; line < 2 * most + 1; ++line)
        many.append(QString::number(line));
    InputHistory(path).add("first");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write((many.join(u'\n') + u'\n').toUtf8());
    file.close();
    InputHistory history(path);
    EXPECT_EQ(history.lines(), many.last(most));
    EXPECT_EQ(content().count(u'\n'), most);
    history.add("one more");
    EXPECT_EQ(history.lines().size(), most);
    EXPECT_EQ(history.lines().last(), "one more");
}

TEST_F(InputHistoryTest, OfALargeFileTheEndIsRead)
{
    InputHistory(path).add("first");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(3'000'000, 'x') + "\nlast\n");
    file.close();
    EXPECT_EQ(InputHistory(path).lines(), QStringList("last"));
    EXPECT_EQ(content(), "last\n");
}

TEST_F(InputHistoryTest, WhatIsNoFileIsLeftAlone)
{
    QDir().mkpath(folder.filePath("new/folder"));
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    InputHistory history(path);
    history.add("one");
    EXPECT_EQ(history.lines(), QStringList("one"));
}

TEST_F(InputHistoryTest, AFileThatCantBeWrittenOrReadLosesNothingOfThisRun)
{
    InputHistory history("/proc/no/history");
    history.add("one");
    history.add("two");
    EXPECT_EQ(history.lines(), QStringList({"one", "two"}));
    EXPECT_EQ(InputHistory(folder.path()).lines(), QStringList());
}

} // namespace
