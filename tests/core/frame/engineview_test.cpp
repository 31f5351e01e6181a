#include "core/frame/engineview.h"

#include "core/frame/listobj.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

using namespace OMC;

namespace viewed {

struct Engine : UT_SharedWeakBase {
    int value = 7;
};

class View : public EngineView<Engine> {
    BRINDLE_COPYABLE(View)

public:
    explicit View(Engine* engine) : EngineView(engine) {}
    int value() const { return target().value; }
    using EngineView::hasTargetOf;
    using EngineView::isGone;
    using EngineView::setTarget;
};

class ViewedList : public EngineView<Engine, ListObj> {
public:
    explicit ViewedList(Engine* engine) : EngineView(engine) {}
    std::size_t size() const override { return static_cast<std::size_t>(target().value); }
};

} // namespace viewed

namespace {

using namespace viewed;

TEST(EngineViewTest, AllViewsOfAnObjectGoInvalidTogetherWithIt)
{
    std::optional<Engine> engine(std::in_place);
    const View view(&*engine);
    const std::unique_ptr<View> copy(view.copy());
    const ViewedList list(&*engine);
    EXPECT_EQ(view.value(), 7);
    EXPECT_EQ(copy->value(), 7);
    EXPECT_EQ(list.size(), 7U);
    engine.reset();
    for (const View* gone : {&view, static_cast<const View*>(copy.get())}) {
        EXPECT_TRUE(gone->isGone());
        EXPECT_THROW(gone->value(), Exception);
    }
    EXPECT_THROW(list.size(), Exception);
}

TEST(EngineViewTest, ACopyIsLedElsewhereOnItsOwn)
{
    Engine first;
    Engine second;
    second.value = 8;
    const View view(&first);
    View copy(view);
    EXPECT_TRUE(copy.hasTargetOf(view));
    copy.setTarget(&second);
    EXPECT_EQ(copy.value(), 8);
    EXPECT_EQ(view.value(), 7);
    EXPECT_FALSE(copy.hasTargetOf(view));
}

TEST(EngineViewTest, AViewOfNothingFailsAtItsFirstUse)
{
    try {
        View(nullptr).value();
        FAIL();
    } catch (const Exception& exception) {
        EXPECT_STREQ(exception.what(), "Object is no longer valid.");
    }
}

} // namespace
