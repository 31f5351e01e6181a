#include "tests/engine/elements/elementtest.h"

#include <cmath>

namespace {

class ElementCommandsTest : public ElementTest {
public:
    int count() { return elements().nbElements(); }
    bool rename(int id, const QString& name) { return run(RenameElementCmd::BuildCmd(&elements(), id, name)); }
    bool remove(const std::set<int>& ids, bool withFiles)
    {
        return run(RemoveElementsCmd::BuildCmd(&elements(), ids, withFiles, 0));
    }
};

} // namespace

TEST_F(ElementCommandsTest, AnElementIsThereOnceItIsAdded)
{
    const int id = elements().createElement("Arm", 1, 16, 2, TUElement::kBvg, false).id();
    EXPECT_EQ(elements().elementById(id).id(), -1);
    EXPECT_EQ(elements().elementByName("Arm", 0).id(), -1);
    ASSERT_TRUE(run(new EM_Commands::FakeAddElementsCmd(&elements(), {id}, true, true, 0)));
    const TUElement& arm = elements().elementById(id);
    EXPECT_EQ(&elements().elementByName("Arm", 0), &arm);
    EXPECT_EQ(arm.scanType(), 1);
    EXPECT_EQ(arm.fieldChart(), 16);
    EXPECT_EQ(arm.pixmapFormat(), 2);
    EXPECT_EQ(arm.vectorType(), TUElement::kBvg);
    EXPECT_EQ(arm.folder(), "elements/Arm");
    EXPECT_EQ(elements().elementFolder(id, 0).filepath(), "/never/on/disk/elements/Arm");
    undo();
    EXPECT_EQ(count(), 0);
    redo();
    EXPECT_EQ(elements().elementById(id).name(), "Arm");
}

TEST_F(ElementCommandsTest, AnIdIsNeverGivenTwice)
{
    const int first = create("a");
    undo();
    const int second = create("a");
    EXPECT_GT(second, first);
    remove({second}, true);
    EXPECT_GT(create("a"), second);
}

TEST_F(ElementCommandsTest, WhatNoElementCanHaveIsRefused)
{
    create("taken");
    const auto refused = [this](const QString& name, int scan = 0, double chart = 12, int format = 0, int vector = 0) {
        return elements().createElement(name, scan, chart, format, vector, false).id() == -1;
    };
    EXPECT_TRUE(refused(""));
    EXPECT_TRUE(refused("taken"));
    EXPECT_TRUE(refused("a\nb"));
    EXPECT_TRUE(refused(QString("a") + QChar(0)));
    EXPECT_TRUE(refused(QString(QChar(0xD800))));
    EXPECT_TRUE(refused(QString(256, u'a')));
    EXPECT_TRUE(refused("a", 3));
    EXPECT_TRUE(refused("a", 0, 0));
    EXPECT_TRUE(refused("a", 0, std::nan("")));
    EXPECT_TRUE(refused("a", 0, 12, 99));
    EXPECT_TRUE(refused("a", 0, 12, -1));
    EXPECT_TRUE(refused("a", 0, 12, 0, 3));
    EXPECT_EQ(elements().createElement("a", 0, 12, 0, 0, true).id(), -1) << "there is no temporary folder";
    EXPECT_EQ(count(), 1);
}

TEST_F(ElementCommandsTest, AFolderHasANameThatEveryFileSystemTakes)
{
    const struct {
        QString name;
        QString folder;
    } rows[] = {{"Arm", "Arm"}, {"arm", "arm-2"},       {"a/b", "a_b"},     {"a:b", "a_b-2"},
                {"..", "_."},   {".hidden", "_hidden"}, {"腕", "腕"},       {"Bras gauche", "Bras gauche"},
                {"é", "é"},     {"e\u0301", "e_"},      {"ÄRGER", "ÄRGER"}, {"ärger", "ärger-2"}};
    for (const auto& row : rows)
        EXPECT_EQ(elements().elementById(create(row.name)).physicalName(), row.folder) << row.name.toStdString();
    const QString longName = elements().elementById(create(QString(250, u'ü'))).physicalName();
    EXPECT_EQ(longName, QString(100, u'ü')) << "200 bytes";
}

TEST_F(ElementCommandsTest, ARenamedElementKeepsItsFolder)
{
    const int id = create("Arm");
    create("Leg");
    EXPECT_FALSE(rename(id, "Leg"));
    EXPECT_FALSE(rename(id, ""));
    ASSERT_TRUE(rename(id, "Hand"));
    EXPECT_EQ(elements().elementByName("Hand", 0).physicalName(), "Arm");
    EXPECT_EQ(elements().elementByName("Arm", 0).id(), -1);
    undo();
    EXPECT_EQ(elements().elementByName("Arm", 0).id(), id);
    redo();
    EXPECT_EQ(elements().elementById(id).name(), "Hand");
}

TEST_F(ElementCommandsTest, ADeletedElementKeepsItsPlaceAndGivesItsNameAway)
{
    const int old = create("Arm");
    ASSERT_TRUE(remove({old}, false));
    EXPECT_TRUE(elements().isElementDeleted(old));
    EXPECT_EQ(elements().elementByName("Arm", 0).id(), old);
    const int anew = create("Arm");
    EXPECT_NE(anew, -1);
    EXPECT_EQ(elements().elementByName("Arm", 0).id(), anew);
    EXPECT_EQ(elements().elementById(anew).physicalName(), "Arm-2");
    EXPECT_EQ(count(), 2);
    undo(2);
    EXPECT_FALSE(elements().isElementDeleted(old));
    redo(2);
    EXPECT_TRUE(elements().isElementDeleted(old));
    ASSERT_TRUE(remove({old}, true)) << "its files may still go";
    EXPECT_EQ(count(), 1);
}

TEST_F(ElementCommandsTest, ElementsThatAreRemovedWithTheirFilesComeBackWithAnUndo)
{
    const int arm = create("Arm");
    const int leg = create("Leg");
    draw(arm, "1");
    ASSERT_TRUE(remove({arm, leg}, true));
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(elements().getElementDrawingInfoById(arm), nullptr);
    undo();
    EXPECT_EQ(count(), 2);
    EXPECT_TRUE(info(arm).hasDrawingName("1"));
    EXPECT_FALSE(remove({arm, 99}, true)) << "all or nothing";
    EXPECT_FALSE(remove({}, true));
    EXPECT_EQ(count(), 2);
}

TEST_F(ElementCommandsTest, FieldsChangeAsOneAndFormsOnlyWhileThereIsNoFile)
{
    const int id = create("Arm");
    const auto modify = [&](double chart, int format, int vector) {
        return run(new ModifyElementCmd(&elements(), id, "Arm", 2, chart, format, vector));
    };
    ASSERT_TRUE(modify(16, 1, TUElement::kPnt));
    EXPECT_EQ(elements().elementById(id).fieldChart(), 16);
    EXPECT_EQ(elements().fileExt(id), "pnt");
    undo();
    EXPECT_EQ(elements().fileExt(id), "png");
    const EM_DrawingId drawing = draw(id, "1");
    ASSERT_TRUE(run(new SetDrawingContentCmd(&elements(), CA_CelKeyElement(id, drawing), "picture")));
    EXPECT_FALSE(modify(16, 1, TUElement::kNoVector));
    EXPECT_FALSE(modify(16, 0, TUElement::kPnt));
    EXPECT_TRUE(modify(16, 0, TUElement::kNoVector));
}

TEST_F(ElementCommandsTest, AnOpacityIsAPercentage)
{
    const int id = create("Arm");
    EXPECT_EQ(elements().getDrawingOpacity(id), 100);
    const auto set = [&](double value) { return run(new ChangeElementOpacity(&elements(), id, value)); };
    EXPECT_TRUE(set(49.6));
    EXPECT_EQ(elements().getDrawingOpacity(id), 50);
    for (const double refused : {-1.0, 101.0, 1e300, -1e300, std::nan("")})
        EXPECT_FALSE(set(refused)) << refused;
    undo();
    EXPECT_EQ(elements().getDrawingOpacity(id), 100);
}

TEST_F(ElementCommandsTest, CommandsOnNothingFail)
{
    EXPECT_FALSE(rename(7, "a"));
    EXPECT_FALSE(run(RenameElementCmd::BuildCmd(nullptr, 1, "a")));
    EXPECT_FALSE(run(RemoveElementsCmd::BuildCmd(nullptr, {1}, true, 0)));
    EXPECT_FALSE(run(new EM_Commands::FakeAddElementsCmd(&elements(), {7}, true, true, 0)));
    EXPECT_FALSE(run(new EM_Commands::FakeAddElementsCmd(nullptr, {7}, true, true, 0)));
    EXPECT_FALSE(run(new EM_Commands::DeleteDrawingCmd(&elements(), 7, 1)));
    EXPECT_TRUE(labels().isEmpty());
}
