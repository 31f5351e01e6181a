#include "core/columns/column.h"

#include "tests/core/support/animation.h"
#include "tests/core/support/standincolumn.h"

using namespace OMC;

/// Writing cells of a column with a repeated zone from frame 10 to 20, whose head is 10 to 12.
class RepeatZoneTest : public AnimationTest {
protected:
    RepeatZoneTest()
    {
        cells.markers = &markers;
        markers.markers = {{"other", 1, 60},
                           {"com.brindle.timesheet.repeatedzone", 10, 11},
                           {"com.brindle.timesheet.repeater", 13, 8}};
        const char* const head[] = {"A", "B", "C"};
        for (int frame = 1; frame <= 30; ++frame)
            cells.cells[frame] = frame < 10 || frame > 20 ? "out" : head[(frame - 10) % 3];
        before = cells.cells;
    }

    std::string zone() const
    {
        QString text;
        for (int frame = 9; frame <= 21; ++frame)
            text += cells.cells.at(frame) + ' ';
        return text.trimmed().toStdString();
    }

    StandInMarkers markers;
    StandInColumn cells{sceneCommon()};
    Column column{&cells};
    std::map<double, QString> before;
};

TEST_F(RepeatZoneTest, ACellOutsideAnyZoneIsWrittenAlone)
{
    column.setEntry(5, "X");
    EXPECT_EQ(cells.writes, std::vector<StandInColumn::Write>({{5, "X", 1}}));
    EXPECT_EQ(labels(), QStringList("Set Xsheet Entry"));
    cells.markers = nullptr;
    column.setEntry(11, "Y", 3);
    EXPECT_EQ(cells.writes.back(), (StandInColumn::Write{11, "Y", 3}));
    EXPECT_EQ(cells.writes.size(), 2u);
}

TEST_F(RepeatZoneTest, ACellOfTheHeadIsRepeatedUpToTheZonesEnd)
{
    column.setEntry(11, "X");
    EXPECT_EQ(zone(), "out A X C A X C A X C A X out");
    EXPECT_EQ(cells.writes,
              std::vector<StandInColumn::Write>({{11, "X", 1}, {14, "X", 1}, {17, "X", 1}, {20, "X", 1}}));
    EXPECT_EQ(labels(), QStringList("Set Xsheet Entry"));
    undo();
    EXPECT_EQ(cells.cells, before);
    redo();
    EXPECT_EQ(zone(), "out A X C A X C A X C A X out");
}

TEST_F(RepeatZoneTest, ACellOfTheRepeatedStretchGoesBackToThePattern)
{
    column.setEntry(15, "X");
    EXPECT_EQ(cells.cells, before);
    EXPECT_EQ(cells.writes, std::vector<StandInColumn::Write>({{15, "X", 1}, {15, "C", 1}}));
}

TEST_F(RepeatZoneTest, AFractionOfAFrameSeeksTheZoneAtTheFrame)
{
    markers.asked.clear();
    column.setEntry(3.7, "X");
    EXPECT_EQ(markers.asked, std::vector<int>({3}));
    EXPECT_EQ(cells.writes, std::vector<StandInColumn::Write>({{3.7, "X", 1}}));
    markers.asked.clear();
    column.setEntry(11.5, "X");
    EXPECT_EQ(markers.asked, std::vector<int>({11, 20}));
    column.setEntry(1e300, "X");
    column.setEntry(-1e300, "X");
}

TEST_F(RepeatZoneTest, TheSubColumnIsThatOfTheCellWhileRepeatsGoToTheFirst)
{
    cells.subColumnsRead.clear();
    column.setEntry(11, "X", 4);
    EXPECT_EQ(cells.writes.front(), (StandInColumn::Write{11, "X", 4}));
    EXPECT_EQ(cells.writes.back(), (StandInColumn::Write{20, "X", 1}));
    EXPECT_EQ(std::set<int>(cells.subColumnsRead.begin(), cells.subColumnsRead.end()), std::set<int>({4}));
}

TEST_F(RepeatZoneTest, WithoutARepeaterAtTheZonesEndTheCellIsWrittenAlone)
{
    markers.markers[2].length = 7;
    column.setEntry(11, "X");
    EXPECT_EQ(cells.writes.size(), 1u);
}

TEST_F(RepeatZoneTest, ARepeaterAtTheZonesStartRepeatsNothing)
{
    for (const int start : {10, 7}) {
        cells.writes.clear();
        markers.markers[2] = {"com.brindle.timesheet.repeater", start, 21 - start};
        column.setEntry(11, "X");
        EXPECT_EQ(cells.writes.size(), 1u);
    }
}

TEST_F(RepeatZoneTest, TheFirstZoneAndTheFirstRepeaterCount)
{
    markers.markers.push_back({"com.brindle.timesheet.repeatedzone", 11, 2});
    markers.markers.push_back({"com.brindle.timesheet.repeater", 20, 1});
    column.setEntry(11, "X");
    EXPECT_EQ(zone(), "out A X C A X C A X C A X out");
}

TEST_F(RepeatZoneTest, ARepeatedCellThatRefusesStaysAsItIs)
{
    cells.refused = {17};
    column.setEntry(11, "X");
    EXPECT_EQ(zone(), "out A X C A X C A B C A X out");
    EXPECT_EQ(labels(), QStringList("Set Xsheet Entry"));
}

TEST_F(RepeatZoneTest, ACellThatRefusesLeavesEverythingAsItWas)
{
    cells.refused = {11};
    EXPECT_EQ(failureOf([&] { column.setEntry(11, "X"); }), "Failed to set the value in the XSheet.");
    EXPECT_EQ(cells.cells, before);
    EXPECT_TRUE(labels().isEmpty());
}

TEST_F(RepeatZoneTest, NumbersAndNothingAreWrittenAsText)
{
    column.set(1, 2.5);
    column.set(QString("2"), QVariant());
    EXPECT_EQ(cells.writes, std::vector<StandInColumn::Write>({{1, "2.5", 1}, {2, "", 1}}));
}
