#include "core/drawings/drawingedit.h"

#include "core/drawings/drawinglayer.h"
#include "tests/core/support/scratchdrawings.h"

#include <stdexcept>

using namespace OMC;

namespace {

class DrawingEdit : public DrawingTest {
public:
    void addThenThrow(const std::function<void()>& raise)
    {
        drawingedit::run(art(), key(), [&](GR_DrawingAccess& access) {
            access.CreateLayerAbove(GR_Layer::kPen, nullptr);
            raise();
        });
    }
};

} // namespace

TEST_F(DrawingEdit, MakesAStepOfItsOwn)
{
    const int result = drawingedit::run(art(), key(), [](GR_DrawingAccess& access) {
        EXPECT_FALSE(access.commandModeOn());
        access.CreateLayerAbove(GR_Layer::kPen, nullptr);
        return 7;
    });
    EXPECT_EQ(result, 7);
    EXPECT_FALSE(access().active());
    EXPECT_EQ(labels(), QStringList(step));
}

TEST_F(DrawingEdit, JoinsAnOpenSessionAndWorksOnItsOwnArtLayer)
{
    bool created = false;
    GR_DrawingAccess* open = access().vectorBegin(art(), key(), created);
    drawingedit::run(art(1), key(1),
                     [](GR_DrawingAccess& access) { access.CreateLayerAbove(GR_Layer::kPen, nullptr); });
    EXPECT_TRUE(open->commandModeOn());
    EXPECT_EQ(open->GetDrawing(), art());
    EXPECT_TRUE(labels().isEmpty());
    EXPECT_TRUE(leaves().empty());
    EXPECT_EQ(wrapper(1).size(), 1u);
    access().vectorEnd(true);
    EXPECT_EQ(labels(), QStringList(step));
}

TEST_F(DrawingEdit, TakesAnOwnSessionBackWhenItFails)
{
    EXPECT_EQ(failureOf([&] { addThenThrow([] { throw Exception(std::string("a sentence")); }); }), "a sentence");
    EXPECT_EQ(failureOf([&] { addThenThrow([] { throw std::invalid_argument("host"); }); }), unexpectedError);
    EXPECT_EQ(failureOf([&] { addThenThrow([] { throw std::bad_alloc(); }); }), unexpectedError);
    EXPECT_TRUE(leaves().empty());
    EXPECT_TRUE(labels().isEmpty());
    EXPECT_TRUE(redoLabels().isEmpty());
    EXPECT_FALSE(access().active());
}

TEST_F(DrawingEdit, LeavesAnOpenSessionOpenWhenItFails)
{
    bool created = false;
    GR_DrawingAccess* open = access().vectorBegin(art(), key(), created);
    EXPECT_EQ(failureOf([&] { addThenThrow([] { throw Exception(std::string("a sentence")); }); }), "a sentence");
    EXPECT_TRUE(open->commandModeOn());
    EXPECT_EQ(leaves().size(), 1u) << "what was done stays in the session";
    access().vectorEnd(true);
    EXPECT_EQ(labels(), QStringList(step));
}

TEST_F(DrawingEdit, OfAnotherDrawingIsRefused)
{
    begin();
    const auto other = GR_CompositeVectorDrawingObj::Create(&colours);
    auto* foreign = static_cast<GR_VectorDrawingObj*>(other->GetArt(2));
    EXPECT_EQ(failureOf([&] { drawingedit::run(foreign, key(), [](GR_DrawingAccess&) {}); }),
              "A different drawing is already being modified.");
    EXPECT_TRUE(access().active());
}
