#include "core/drawings/drawingaccessimpl.h"

#include "core/drawings/drawinglayer.h"
#include "core/host/ca_celkey.h"
#include "tests/core/support/scratchdrawings.h"
#include "tests/core/support/standins.h"

#include <string>

using namespace OMC;

namespace {

/// Writes down what it is told, in its order.
class TellingChanges : public StandInChangeManager {
public:
    void emitDrawingsDirty(const CA_CelKey&) override { told += "dirty "; }
    void emitDrawingChanged() override { told += "changed "; }
    void notifyInteractive() override { told += "interactive "; }

    std::string told;
};

/// The session is a stand-in that has the open project's undo list.
class DrawingSession : public DrawingTest {
public:
    DrawingSession()
    {
        session.commands = &manager();
        session.changes = &changes;
    }

    TellingChanges changes;
    StandInSession session;
};

} // namespace

TEST_F(DrawingSession, IsOneOfTheProcess)
{
    EXPECT_EQ(&DrawingAccessImpl::get(), &access());
    EXPECT_FALSE(access().active());
    EXPECT_EQ(access().vectorDrawing(), nullptr);
    EXPECT_FALSE(access().getCurrentKey().isValid());
}

TEST_F(DrawingSession, IsMadeOnceAndJoined)
{
    bool created = false;
    GR_DrawingAccess* first = access().vectorBegin(art(), key(), created);
    EXPECT_TRUE(created);
    EXPECT_TRUE(first->commandModeOn());
    EXPECT_EQ(access().vectorDrawing(), art());
    const quint64 number = access().sessionNumber();
    EXPECT_EQ(access().vectorBegin(art(), key(), created), first);
    EXPECT_FALSE(created);
    EXPECT_EQ(access().vectorBegin(art(GR_CompositeVectorDrawingObj::kOverlay), key(3), created), first);
    EXPECT_FALSE(created);
    EXPECT_EQ(access().vectorDrawing(), art()) << "the art layer that opened it";
    EXPECT_EQ(access().sessionNumber(), number);
    access().vectorEnd(true);
    EXPECT_FALSE(access().active());
    EXPECT_TRUE(begin());
    EXPECT_NE(access().sessionNumber(), number);
}

TEST_F(DrawingSession, RefusesAnotherDrawingAndGoesOn)
{
    const auto other = GR_CompositeVectorDrawingObj::Create(&colours);
    begin();
    addLayer();
    bool created = true;
    for (GR_VectorDrawingObj* drawing :
         {static_cast<GR_VectorDrawingObj*>(other->GetArt(2)), static_cast<GR_VectorDrawingObj*>(nullptr)}) {
        EXPECT_EQ(failureOf([&] { access().vectorBegin(drawing, key(), created); }),
                  "A different drawing is already being modified.");
        EXPECT_FALSE(created);
    }
    access().vectorEnd(true);
    EXPECT_EQ(labels(), QStringList(step));
}

TEST_F(DrawingSession, NeedsADrawingAndAProject)
{
    bool created = false;
    const auto fails = [&](GR_VectorDrawingObj* drawing) {
        EXPECT_EQ(failureOf([&] { access().vectorBegin(drawing, key(), created); }), unexpectedError);
        EXPECT_FALSE(access().active());
    };
    fails(nullptr);
    session.changes = nullptr;
    fails(art());
    session.changes = &changes;
    session.commands = nullptr;
    fails(art());
    PLUG_Services::setSessionContext(nullptr);
    fails(art());
    EXPECT_EQ(failureOf([&] { access().vectorEnd(true); }), unexpectedError);
    PLUG_Services::setSessionContext(&session);
}

TEST_F(DrawingSession, EndsOnce)
{
    for (int round = 0; round < 2; ++round)
        EXPECT_EQ(failureOf([&] { access().vectorEnd(true); }), "There is no active drawing access.");
    EXPECT_EQ(failureOf([&] { access().vectorStep(true, true); }), "There is no active drawing access.");
    access().vectorCancel();
    access().vectorTakeBack();
    EXPECT_TRUE(changes.told.empty());
}

TEST_F(DrawingSession, StepsBetweenGroupsOfOperations)
{
    bool created = false;
    GR_DrawingAccess* open = access().vectorBegin(art(), key(), created);
    EXPECT_EQ(access().vectorStep(false, true), open);
    EXPECT_FALSE(open->commandModeOn());
    EXPECT_EQ(access().vectorStep(true, true), open);
    EXPECT_TRUE(open->commandModeOn());
    access().vectorStep(false, false);
    access().vectorEnd(false);
    EXPECT_TRUE(labels().isEmpty());
}

TEST_F(DrawingSession, TellsOfItsEndAlsoWithoutAChange)
{
    begin();
    access().vectorEnd(true);
    EXPECT_EQ(changes.told, "changed interactive ");
    EXPECT_TRUE(labels().isEmpty());
    bool created = false;
    access().vectorBegin(art(), CA_DrawingLayerKey(CA_CelKeyElement(1, 1), 2), created);
    changes.told.clear();
    access().vectorEnd(true);
    EXPECT_EQ(changes.told, "dirty changed interactive ");
}

TEST_F(DrawingSession, IsTakenBackWithoutATrace)
{
    addLayer();
    access().vectorEnd(true);
    undo();
    changes.told.clear();
    addLayer();
    access().vectorTakeBack();
    EXPECT_TRUE(leaves().empty());
    EXPECT_FALSE(access().active());
    EXPECT_TRUE(labels().isEmpty());
    EXPECT_EQ(redoLabels(), QStringList(step));
    EXPECT_EQ(changes.told, "changed interactive ");
    redo();
    EXPECT_EQ(leaves().size(), 1u);
}

TEST_F(DrawingSession, LeavesItsStepOnTheRedoSideWhenTheProcessEnds)
{
    {
        DrawingAccessImpl ending;
        bool created = false;
        ending.vectorBegin(art(), key(), created)->CreateLayerAbove(GR_Layer::kPen, nullptr);
        changes.told.clear();
    }
    EXPECT_TRUE(leaves().empty());
    EXPECT_TRUE(labels().isEmpty());
    EXPECT_EQ(redoLabels(), QStringList(step));
    EXPECT_TRUE(changes.told.empty());
}

TEST_F(DrawingSession, IsLeftAsItIsWhenItIsCancelledWithoutAChange)
{
    DrawingAccessImpl ending;
    bool created = false;
    GR_DrawingAccess* open = ending.vectorBegin(art(), key(), created);
    ending.vectorCancel();
    EXPECT_TRUE(ending.active());
    EXPECT_EQ(ending.vectorDrawing(), art());
    EXPECT_FALSE(open->commandModeOn());
    ending.vectorEnd(true);
}

TEST_F(DrawingTest, ASessionIsOverWithItsProject)
{
    addLayer();
    close();
    EXPECT_FALSE(access().active());
    EXPECT_EQ(failureOf([&] { access().vectorEnd(true); }), "There is no active drawing access.");
    EXPECT_EQ(failureOf([&] { begin(); }), unexpectedError) << "without a project";
}

TEST_F(DrawingSession, CopiesTheStickyFlagWheneverItChanges)
{
    EXPECT_FALSE(access().getRespectSticky());
    access().setRespectSticky(true);
    EXPECT_TRUE(access().getRespectSticky());
    begin();
    access().setRespectSticky(false);
    access().vectorEnd(true);
    EXPECT_FALSE(access().getRespectSticky());
}

TEST_F(DrawingSession, ForgetsErasedLayersWhenItEnds)
{
    addLayer();
    addLayer();
    access().vectorEnd(true);
    const std::vector<UT_Node*> both = leaves();
    const std::unique_ptr<DrawingLayer> erased(DrawingLayer::getWrapped(art(), both[0], key()));
    const std::unique_ptr<DrawingLayer> kept(DrawingLayer::getWrapped(art(), both[1], key()));
    bool created = false;
    access().vectorBegin(art(), key(), created)->Erase(both[0]);
    EXPECT_EQ(erased->getType(), "Vector");
    EXPECT_TRUE(access().isErased(*erased->record()));
    EXPECT_FALSE(access().isErased(*kept->record()));
    access().vectorEnd(true);
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(failureOf([&] { erased->getType(); }), objectGone);
        EXPECT_EQ(kept->getType(), "Vector");
        undo();
    }
}

TEST(DrawingLayerTypes, AreReadByTheirNames)
{
    const std::pair<const char*, int> types[] = {
        {"UNDEFINED_LAYER", 0}, {"PAINT_LAYER", 1},   {"BRUSH_LAYER", 2},         {"PEN_LAYER", 3},
        {"RECTANGLE_LAYER", 4}, {"ELLIPSE_LAYER", 5}, {"POLYLINE_LAYER", 6},      {"STROKE_LAYER", 7},
        {"CLOSE_GAP_LAYER", 8}, {"FLASH_LAYER", 100}, {"ILLUSTRATOR_LAYER", 101}, {"CENTERLINE_EXTRACTOR_LAYER", 9},
        {"BITMAP_LAYER", 102},  {"TEXT_LAYER", 103}};
    for (const auto& [name, type] : types)
        EXPECT_EQ(DrawingAccessImpl::layerTypeFromQString(QString::fromLatin1(name)), type) << name;
    EXPECT_EQ(failureOf([] { DrawingAccessImpl::layerTypeFromQString(QStringLiteral("pen_layer")); }),
              "Unexpected layer type \"pen_layer\".");
}
