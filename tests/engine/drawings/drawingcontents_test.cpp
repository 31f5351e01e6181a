#include "engine/drawings/drawingfile.h"
#include "tests/engine/drawings/drawingtest.h"

#include <QFileInfo>

namespace {

using namespace brindle::engine;

class DrawingContentsTest : public DrawingTest {
public:
    void SetUp() override { ASSERT_EQ(createError(path(), project()), QString()); }

    void save() { FolderTest::save(path(), project()); }
    QString file(const QString& name) { return path() + "/elements/Arm/" + name; }
    bool addLayer(const QString& name = QStringLiteral("1"))
    {
        EditSession session(&drawing(name).art(GR_CompositeVectorDrawingObj::kLine));
        session.access.CreateLayerAbove(GR_Layer::kPen, nullptr);
        return session.end(manager());
    }
    std::size_t layerCount(const QString& name = QStringLiteral("1"))
    {
        return leavesOf(drawing(name).art(GR_CompositeVectorDrawingObj::kLine)).size();
    }
};

} // namespace

TEST_F(DrawingContentsTest, ADrawingIsOpenedAsItWasSaved)
{
    ASSERT_TRUE(addLayer());
    save();
    EXPECT_EQ(get(file("1.pnt")), bytes());
    const auto opened = open(path());
    EXPECT_EQ(bytesOf(*opened), bytes());
    const auto id = elementsOf(*opened).getDrawingId(element, "1", false);
    const LiveDrawing* read = vectorDrawing(elementsOf(*opened), CA_CelKeyElement(element, id));
    ASSERT_TRUE(read);
    EXPECT_EQ(leavesOf(read->art(GR_CompositeVectorDrawingObj::kLine)).size(), 1u);
    EXPECT_FALSE(read->IsDrawingModified());
}

TEST_F(DrawingContentsTest, ANewDrawingHasNoFileUntilItHasContent)
{
    run(EM_Commands::NewDrawingCmd::Create(&elements(), element, "2", false, false));
    EXPECT_EQ(vectorDrawing(elements(), key("2")), nullptr);
    save();
    EXPECT_FALSE(QFileInfo::exists(file("2.pnt")));
    ASSERT_NE(createVectorDrawing(elements(), key("2")), nullptr);
    EXPECT_EQ(vectorDrawing(elements(), key("2")), &drawing("2"));
    save();
    EXPECT_EQ(get(file("2.pnt")), get(file("1.pnt")));
}

TEST_F(DrawingContentsTest, OnlyElementsOfVectorDrawingsHaveThem)
{
    const int pictures = elements().createElement("Photo", 0, 12, 0, TUElement::kNoVector, false).id();
    run(new EM_Commands::FakeAddElementsCmd(&elements(), {pictures}, true, true, 0));
    run(EM_Commands::NewDrawingCmd::Create(&elements(), pictures, "1", false, false));
    const CA_CelKeyElement photo(pictures, elements().getDrawingId(pictures, "1", false));
    EXPECT_EQ(createVectorDrawing(elements(), photo), nullptr);
    EXPECT_EQ(createVectorDrawing(elements(), CA_CelKey()), nullptr);
    EXPECT_EQ(createVectorDrawing(elements(), CA_CelKeyElement(element, key().drawingId(), 77)), nullptr);
}

TEST_F(DrawingContentsTest, WhatNobodyTouchedIsNeitherReadNorWritten)
{
    ASSERT_TRUE(addDrawing("2"));
    save();
    const QByteArray scribble = "this is read by nobody";
    put(file("2.pnt"), scribble);
    ASSERT_TRUE(addLayer("1"));
    save();
    EXPECT_EQ(get(file("2.pnt")), scribble);
    EXPECT_EQ(get(file("1.pnt")), bytes("1"));
}

TEST_F(DrawingContentsTest, ASaveInTheMiddleOfASessionSavesWhatOneSees)
{
    save();
    EditSession session(&art());
    session.access.CreateLayerAbove(GR_Layer::kPen, nullptr);
    EXPECT_TRUE(drawing().IsDrawingModified());
    save();
    EXPECT_FALSE(drawing().IsDrawingModified());
    const QByteArray middle = get(file("1.pnt"));
    session.access.CreateLayerAbove(GR_Layer::kPen, nullptr);
    EXPECT_EQ(layerCount(), 2u);
    EXPECT_EQ(readDrawingFile("1", middle)->arts[2]->layers.size(), 1u);
    ASSERT_TRUE(session.end(manager()));
    undo();
    EXPECT_EQ(layerCount(), 0u);
    EXPECT_TRUE(drawing().IsDrawingModified());
    save();
    EXPECT_EQ(readDrawingFile("1", get(file("1.pnt")))->arts[2]->layers.size(), 0u);
}

TEST_F(DrawingContentsTest, ADuplicateIsADrawingOfItsOwn)
{
    ASSERT_TRUE(addLayer());
    ASSERT_TRUE(run(DuplicateDrawingCmd::Create(&elements(), key("1"), CA_CelKeyElement(element), "copy")));
    EXPECT_EQ(layerCount("copy"), 1u);
    ASSERT_TRUE(addLayer("copy"));
    save();
    EXPECT_EQ(layerCount("1"), 1u);
    EXPECT_EQ(layerCount("copy"), 2u);
    undo(2);
    save();
    EXPECT_FALSE(QFileInfo::exists(file("copy.pnt")));
    redo(2);
    EXPECT_EQ(layerCount("copy"), 2u);
}

TEST_F(DrawingContentsTest, EachVersionIsADrawingOfItsOwn)
{
    ASSERT_TRUE(addLayer());
    LiveDrawing* first = &drawing();
    ASSERT_TRUE(run(new SetDrawingVersionCmd(&elements(), element, key().drawingId(), 2)));
    EXPECT_NE(&drawing(), first);
    ASSERT_TRUE(addLayer());
    EXPECT_EQ(layerCount(), 2u);
    save();
    EXPECT_NE(get(file("1.pnt")), get(file("1@2.pnt")));
    ASSERT_TRUE(run(new SetDrawingVersionCmd(&elements(), element, key().drawingId(), 1)));
    EXPECT_EQ(&drawing(), first);
    EXPECT_EQ(layerCount(), 1u);
    undo(3);
    save();
    EXPECT_FALSE(QFileInfo::exists(file("1@2.pnt")));
    redo(2);
    EXPECT_EQ(layerCount(), 2u);
}

TEST_F(DrawingContentsTest, AContentThatIsSetIsShown)
{
    ASSERT_TRUE(addLayer());
    const QByteArray one = bytes();
    ASSERT_TRUE(addLayer());
    const int revision = art().GetRevision();
    ASSERT_TRUE(run(new SetDrawingContentCmd(&elements(), key(), one)));
    EXPECT_GT(art().GetRevision(), revision);
    EXPECT_EQ(layerCount(), 1u);
    undo();
    EXPECT_EQ(layerCount(), 2u);
    const QByteArray two = bytes();
    EXPECT_FALSE(run(new SetDrawingContentCmd(&elements(), key(), "no drawing")));
    EXPECT_EQ(bytes(), two);
}

TEST_F(DrawingContentsTest, AFileThatCantBeReadIsOneSentence)
{
    save();
    put(file("1.pnt"), "scribble");
    const auto opened = open(path());
    const auto id = elementsOf(*opened).getDrawingId(element, "1", false);
    try {
        vectorDrawing(elementsOf(*opened), CA_CelKeyElement(element, id));
        FAIL();
    } catch (const FolderFailure& failure) {
        EXPECT_EQ(failure.reason, '"' + file("1.pnt") + "\" is no drawing");
    }
}

TEST_F(DrawingContentsTest, AnUndoneDrawingIsWhatTheFileHolds)
{
    save();
    const QByteArray before = get(file("1.pnt"));
    ASSERT_TRUE(addLayer());
    EXPECT_TRUE(drawing().IsDrawingModified());
    save();
    undo();
    EXPECT_TRUE(drawing().IsDrawingModified());
    save();
    EXPECT_EQ(get(file("1.pnt")), before);
    redo();
    save();
    EXPECT_NE(get(file("1.pnt")), before);
    EXPECT_FALSE(drawing().IsDrawingModified());
}

TEST_F(DrawingContentsTest, TheScaleIsThatOfElementAndDrawing)
{
    EXPECT_DOUBLE_EQ(drawing().GetImplicitScalingMatrix().xAxis().x, 1.0 / 1200);
    run(new ModifyElementCmd(&elements(), element, "Arm", 0, 24, 0, TUElement::kPnt));
    run(new SetDrawingScaleFactorCmd(&elements(), element, key().drawingId(), 3));
    EXPECT_DOUBLE_EQ(drawing().GetImplicitScalingMatrix().yAxis().y, 6.0 / 1200);
    EXPECT_DOUBLE_EQ(drawing().GetImplicitScalingMatrixInverse().xAxis().x, 200);
}

TEST_F(DrawingContentsTest, AnOpenSessionMakesTheProjectDirty)
{
    save();
    project().history().setClean();
    const auto isDirty = [this] { return project().history().isDirty(); };
    {
        EditSession session(&art());
        EXPECT_FALSE(isDirty());
        session.access.CreateLayerAbove(GR_Layer::kPen, nullptr);
        EXPECT_TRUE(isDirty());
        session.access.Clear();
        EXPECT_FALSE(session.end(manager()));
    }
    EXPECT_FALSE(isDirty()) << "nothing differs";
    {
        EditSession session(&art());
        session.access.CreateLayerAbove(GR_Layer::kPen, nullptr);
        save();
        project().history().setClean();
        EXPECT_FALSE(isDirty());
        ASSERT_TRUE(session.end(manager()));
    }
    EXPECT_FALSE(isDirty()) << "it was saved behind the last change";
    undo();
    EXPECT_TRUE(isDirty());
    redo();
    EXPECT_FALSE(isDirty());
    {
        EditSession session(&art());
        session.access.CreateLayerAbove(GR_Layer::kPen, nullptr);
        save();
        project().history().setClean();
        session.access.CreateLayerAbove(GR_Layer::kPen, nullptr);
        EXPECT_TRUE(isDirty());
        ASSERT_TRUE(session.end(manager()));
    }
    EXPECT_TRUE(isDirty());
    undo();
    EXPECT_TRUE(isDirty()) << "the disk has the middle of the session";
    save();
    project().history().setClean();
    {
        EditSession session(&art());
        session.access.CreateLayerAbove(GR_Layer::kPen, nullptr);
    }
    EXPECT_TRUE(isDirty()) << "a session that is dropped leaves its changes, and no step";
}
