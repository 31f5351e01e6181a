#include "tests/engine/elements/elementtest.h"

#include <cmath>

namespace {

class DrawingCommandsTest : public ElementTest {
public:
    int element = create("Arm");

    QStringList names() { return info(element).getAllDrawingNames(); }
    QString name(EM_DrawingId drawing) { return elements().getDrawingTiming(element, drawing); }
    brindle::engine::Drawing& drawing(EM_DrawingId id) { return *elements().find(element)->drawings().find(id); }
    QString path(EM_DrawingId id, int version = 1)
    {
        return elements().find(element)->fileName(drawing(id), EM_DefaultLayerId, version);
    }
    bool rename(EM_DrawingId id, const QString& to) { return run(new RenameDrawingCmd(&elements(), element, id, to)); }
    bool setVersion(EM_DrawingId id, int to) { return run(new SetDrawingVersionCmd(&elements(), element, id, to)); }
    bool setContent(EM_DrawingId id, const QByteArray& bytes)
    {
        return run(new SetDrawingContentCmd(&elements(), CA_CelKeyElement(element, id), bytes));
    }
    QByteArray content(EM_DrawingId id)
    {
        const auto there = drawing(id).content(EM_DefaultLayerId);
        return there ? there->bytes() : QByteArray();
    }
};

} // namespace

TEST_F(DrawingCommandsTest, DrawingsStandInTheOrderInWhichTheyWereMade)
{
    const EM_DrawingId ten = draw(element, "10");
    draw(element, "2");
    draw(element, "1");
    EXPECT_EQ(names(), QStringList({"10", "2", "1"}));
    ASSERT_TRUE(run(new EM_Commands::DeleteDrawingCmd(&elements(), element, ten)));
    EXPECT_EQ(names(), QStringList({"2", "1"}));
    undo();
    EXPECT_EQ(names(), QStringList({"10", "2", "1"}));
    undo(3);
    EXPECT_EQ(names(), QStringList());
    redo(4);
    EXPECT_EQ(names(), QStringList({"2", "1"}));
}

TEST_F(DrawingCommandsTest, ANameIsTakenOnce)
{
    draw(element, "1");
    EXPECT_EQ(EM_Commands::NewDrawingCmd::Create(&elements(), element, "1", false, false), nullptr);
    EXPECT_EQ(draw(element, ""), EM_InvalidDrawingId);
    EXPECT_EQ(draw(element, "a\tb"), EM_InvalidDrawingId);
    EXPECT_EQ(draw(element, QString(256, u'1')), EM_InvalidDrawingId);
    EXPECT_EQ(draw(99, "1"), EM_InvalidDrawingId);
}

TEST_F(DrawingCommandsTest, FilesOfAllDrawingsAndVersionsHaveDifferentNames)
{
    EXPECT_EQ(path(draw(element, "a")), "elements/Arm/a.png");
    EXPECT_EQ(path(draw(element, "A")), "elements/Arm/A-2.png");
    EXPECT_EQ(path(draw(element, "x/y")), "elements/Arm/x_y.png");
    EXPECT_EQ(path(draw(element, "x_y"), 3), "elements/Arm/x_y-2@3.png");
    EXPECT_EQ(path(draw(element, "x@3")), "elements/Arm/x_3.png");
    EXPECT_EQ(elements().drawingFilenamePart(element, draw(element, "b"), 2, true, 0).filepath(),
              "/never/on/disk/elements/Arm/b+2");
}

TEST_F(DrawingCommandsTest, ARenamedDrawingTakesItsFileAlong)
{
    const EM_DrawingId one = draw(element, "one");
    draw(element, "two");
    EXPECT_FALSE(rename(one, "two"));
    EXPECT_FALSE(rename(one, ""));
    ASSERT_TRUE(rename(one, "ONE"));
    EXPECT_EQ(path(one), "elements/Arm/ONE.png") << "its own old name is not in the way";
    EXPECT_EQ(elements().getDrawingId(element, "one", false), EM_InvalidDrawingId);
    undo();
    EXPECT_EQ(path(one), "elements/Arm/one.png");
    EXPECT_EQ(elements().getDrawingId(element, "one", false), one);
    redo();
    EXPECT_EQ(name(one), "ONE");
}

TEST_F(DrawingCommandsTest, ANewVersionBeginsAsACopyOfThePresentOne)
{
    const EM_DrawingId one = draw(element, "1");
    setContent(one, "first");
    ASSERT_TRUE(setVersion(one, 2));
    setContent(one, "second");
    ASSERT_TRUE(setVersion(one, 1));
    EXPECT_EQ(content(one), "first");
    ASSERT_TRUE(setVersion(one, 2));
    EXPECT_EQ(content(one), "second");
    undo(3);
    EXPECT_EQ(content(one), "first");
    EXPECT_EQ(drawing(one).files().size(), 2U);
    undo();
    EXPECT_EQ(drawing(one).files().size(), 1U);
    EXPECT_FALSE(setVersion(one, 0));
    EXPECT_FALSE(setVersion(one, 10000));
}

TEST_F(DrawingCommandsTest, ADuplicateHasWhatTheOriginalShows)
{
    const EM_DrawingId one = draw(element, "1");
    setContent(one, "first");
    setVersion(one, 4);
    setContent(one, "fourth");
    run(new SetDrawingScaleFactorCmd(&elements(), element, one, 0.5));
    info(element).setDrawingType(one, kMarkKey);
    const auto duplicate = [&](int to, const QString& name) {
        return run(
            DuplicateDrawingCmd::Create(&elements(), CA_CelKeyElement(element, one), CA_CelKeyElement(to), name));
    };
    ASSERT_TRUE(duplicate(element, "2"));
    const EM_DrawingId two = elements().getDrawingId(element, "2", false);
    EXPECT_EQ(content(two), "fourth");
    EXPECT_EQ(elements().getDrawingVersion(element, two), 1);
    EXPECT_EQ(elements().getDrawingScaleFactor(element, two), 0.5);
    EXPECT_EQ(elements().getDrawingType(element, two), kMarkKey);
    EXPECT_FALSE(duplicate(element, "2"));
    undo();
    EXPECT_EQ(names(), QStringList({"1"}));
    redo();
    EXPECT_EQ(elements().getDrawingId(element, "2", false), two) << "the same drawing again";
    EXPECT_EQ(content(two), "fourth");
    const int other = create("Leg");
    ASSERT_TRUE(duplicate(other, "1"));
    EXPECT_TRUE(info(other).hasDrawingName("1"));
}

TEST_F(DrawingCommandsTest, ALayerComesWithTheDrawingsThatAreCopiedIntoIt)
{
    elements().find(element)->addLayer({3, "Line"});
    const EM_DrawingId one = draw(element, "1");
    ASSERT_TRUE(run(new SetDrawingContentCmd(&elements(), CA_CelKeyElement(element, one, 3), "ink")));
    EXPECT_FALSE(run(new SetDrawingContentCmd(&elements(), CA_CelKeyElement(element, one, 9), "ink")));
    const int leg = create("Leg");
    for (const EM_LayerId layer : info(element).layerIds())
        ASSERT_TRUE(run(DuplicateDrawingCmd::Create(&elements(), CA_CelKeyElement(element, one, layer),
                                                    CA_CelKeyElement(leg, EM_InvalidDrawingId, layer), "1")));
    ASSERT_NE(info(leg).findLayer("Line"), nullptr);
    EXPECT_EQ(info(leg).findLayer("Line")->id, 3);
    EXPECT_EQ(elements().find(leg)->drawings().named("1")->content(3)->bytes(), "ink");
    undo();
    EXPECT_EQ(info(leg).findLayer("Line"), nullptr);
    undo();
    EXPECT_EQ(info(leg).drawingCount(), 0);
    redo(2);
    EXPECT_EQ(info(leg).layerIds(), std::vector<EM_LayerId>({0, 3}));
}

TEST_F(DrawingCommandsTest, AScaleFactorIsAPositiveNumber)
{
    const EM_DrawingId one = draw(element, "1");
    const auto set = [&](double factor) {
        return run(new SetDrawingScaleFactorCmd(&elements(), element, one, factor));
    };
    EXPECT_TRUE(set(2.5));
    for (const double refused : {0.0, -1.0, std::nan(""), std::numeric_limits<double>::infinity()})
        EXPECT_FALSE(set(refused)) << refused;
    EXPECT_EQ(elements().getDrawingScaleFactor(element, one), 2.5);
    undo();
    EXPECT_EQ(elements().getDrawingScaleFactor(element, one), 1.0);
}

TEST_F(DrawingCommandsTest, TheNextNumberIsBehindTheHighestOne)
{
    EXPECT_EQ(elements().nextUnusedNumericTiming(element), "1");
    for (const char* name : {"1", "7", "a12", "-9", "99999999999999999999", "1000000000"})
        draw(element, name);
    EXPECT_EQ(elements().nextUnusedNumericTiming(element), "8");
    draw(element, "999999999");
    EXPECT_EQ(elements().nextUnusedNumericTiming(element), "1000000001");
    EXPECT_EQ(elements().nextUnusedNumericTiming(99), "1");
}

TEST_F(DrawingCommandsTest, MarksAreNamed)
{
    EXPECT_EQ(EM_DrawingTypes::getInfo(kMarkNone), nullptr);
    EXPECT_STREQ(EM_DrawingTypes::getInfo(kMarkBreakdown)->name, "BREAKDOWN");
    EXPECT_EQ(EM_XMLFileIO::convertFromStringToMarkType("INBETWEEN"), kMarkInbetween);
    EXPECT_EQ(EM_XMLFileIO::convertFromStringToMarkType("key"), kMarkNone);
}

TEST_F(DrawingCommandsTest, AFileThatIsSaidToBeThereIsLookedForOnlyWhenAsked)
{
    EXPECT_TRUE(run(EM_Commands::NewDrawingCmd::Create(&elements(), element, "1", true, false)));
    EXPECT_FALSE(run(EM_Commands::NewDrawingCmd::Create(&elements(), element, "2", true, true)));
    EXPECT_EQ(names(), QStringList({"1"}));
    EXPECT_FALSE(info(element).drawingFileExists(elements().getDrawingId(element, "1", false), EM_DefaultLayerId));
}
