#include "engine/graph/backdrops.h"

#include "tests/core/support/standingroup.h"
#include "tests/engine/support/memoryproject.h"

#include <limits>

namespace {

class BackdropsTest : public GraphTest {
protected:
    std::shared_ptr<MO_Backdrop> loose(TUGroup* group)
    {
        return std::make_shared<MO_Backdrop>(group, scene().sceneCommon());
    }

    MO_Backdrop* addBackdrop(TUGroup* group)
    {
        auto backdrop = loose(group);
        return run(new tu_backdrop::AddBackdropCmd(group, backdrop)) ? backdrop.get() : nullptr;
    }

    void expectRefused(CO_Command* command)
    {
        const QString before = dump();
        const QStringList entries = labels();
        EXPECT_FALSE(run(command));
        EXPECT_EQ(dump(), before);
        EXPECT_EQ(labels(), entries);
    }

    TUGroup* group = addGroup("G");
};

} // namespace

TEST_F(BackdropsTest, OneIsAddedOnceToItsOwnGroup)
{
    MO_Backdrop* backdrop = addBackdrop(group);
    ASSERT_NE(backdrop, nullptr);
    expectRefused(new tu_backdrop::AddBackdropCmd(group, group->backdrops().front()));
    expectRefused(new tu_backdrop::AddBackdropCmd(top(), loose(group)));
    expectRefused(new tu_backdrop::AddBackdropCmd(group, nullptr));
    expectRefused(new tu_backdrop::AddBackdropCmd(nullptr, loose(nullptr)));
    expectRefused(new tu_backdrop::AddBackdropCmd(group, std::make_shared<MO_Backdrop>(group, nullptr)));
    StandInGroup foreign(scene().sceneCommon());
    expectRefused(new tu_backdrop::AddBackdropCmd(&foreign, loose(&foreign)));
}

TEST_F(BackdropsTest, OneThatIsNotListedIsNeitherRemovedNorChanged)
{
    const auto unlisted = loose(group);
    expectRefused(new tu_backdrop::RemoveBackdropCmd(group, unlisted.get()));
    expectRefused(new tu_backdrop::RemoveBackdropCmd(group, nullptr));
    expectRefused(new tu_backdrop::SetPropertiesCmd(unlisted.get(), {}));
    expectRefused(new tu_backdrop::SetPropertiesCmd(nullptr, {}));
    MO_Backdrop* backdrop = addBackdrop(group);
    remove({group});
    expectRefused(new tu_backdrop::SetPropertiesCmd(backdrop, {}));
    expectRefused(new tu_backdrop::RemoveBackdropCmd(group, backdrop));
    expectRefused(new tu_backdrop::AddBackdropCmd(group, unlisted));
}

TEST_F(BackdropsTest, NumbersThatNoBackdropCanHaveAreRefused)
{
    MO_Backdrop* backdrop = addBackdrop(group);
    for (const double number : {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        MO_BackdropProperties properties;
        properties.rect.bottom = number;
        expectRefused(new tu_backdrop::SetPropertiesCmd(backdrop, properties));
        properties = {};
        properties.description.size = number;
        expectRefused(new tu_backdrop::SetPropertiesCmd(backdrop, properties));
    }
    MO_BackdropProperties properties;
    properties.title.size = 0;
    expectRefused(new tu_backdrop::SetPropertiesCmd(backdrop, properties));
}

TEST_F(BackdropsTest, UndoKeepsTheirOrder)
{
    for (const char* title : {"a", "b", "c"}) {
        auto backdrop = loose(group);
        MO_BackdropProperties properties;
        properties.title.text = QLatin1String(title);
        backdrop->setProperties(properties);
        ASSERT_TRUE(run(new tu_backdrop::AddBackdropCmd(group, backdrop)));
    }
    const QString before = dump();
    ASSERT_TRUE(run(new tu_backdrop::RemoveBackdropCmd(group, group->backdrops()[1].get())));
    const QString after = dump();
    undo();
    EXPECT_EQ(dump(), before);
    redo();
    EXPECT_EQ(dump(), after);
    undo(4);
    EXPECT_TRUE(group->backdrops().empty());
    redo(4);
    EXPECT_EQ(dump(), after);
}

TEST_F(BackdropsTest, WeakPointersExpireForEver)
{
    MO_Backdrop* backdrop = addBackdrop(group);
    UT_SharedWeakPtrBase weak;
    weak.assign(backdrop);
    undo();
    redo();
    EXPECT_EQ(weak.get(), nullptr);
    weak.assign(backdrop);
    remove({group});
    EXPECT_EQ(weak.get(), nullptr);
}

TEST_F(BackdropsTest, ARectangleContainsItsSides)
{
    const TURect rect{0, -10, 20, 10};
    EXPECT_TRUE(rect.containInvertedY(rect));
    EXPECT_TRUE(rect.containInvertedY({20, 10, 20, 10}));
    EXPECT_FALSE(rect.containInvertedY({20.5, 0, 20.5, 0}));
    EXPECT_FALSE(rect.containInvertedY({0, -11, 1, 0}));
    EXPECT_FALSE((TURect{20, -10, 0, 10}).containInvertedY({10, 0, 10, 0}));
}
