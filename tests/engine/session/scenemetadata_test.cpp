#include "engine/session/scenemetadata.h"

#include "tests/engine/support/memoryproject.h"

#include <limits>

namespace {

class SceneMetadataTest : public testing::Test, public MemoryProject {
protected:
    static PIO_Metadata* entry(PIO_Metadata::Type type, const QString& name)
    {
        PIO_Metadata* made = nullptr;
        PIO_MetadataFactory::impl()->create(type, name, &made);
        return made;
    }

    PIO_Metadata* add(PIO_Metadata::Type type, const QString& name)
    {
        PIO_Metadata* made = entry(type, name);
        return run(new AddSceneMetadataCmd(scene().sceneCommon(), made)) ? made : nullptr;
    }

    QStringList shown()
    {
        QStringList texts;
        for (const auto& each : scene().metadataList())
            texts.append(each->metaName() + '=' + each->value().toString());
        return texts;
    }
};

} // namespace

TEST_F(SceneMetadataTest, TheFactoryMakesEntriesOfTheTypesThatAProjectKeeps)
{
    using Type = PIO_Metadata::Type;
    for (const Type type : {Type::kText, Type::kBool, Type::kInt, Type::kDouble}) {
        const std::unique_ptr<PIO_Metadata> made(entry(type, "a"));
        EXPECT_EQ(made->metaType(), type);
        EXPECT_EQ(made->creator(), "");
    }
    EXPECT_EQ(entry(Type::kOther, "a"), nullptr);
    EXPECT_EQ(entry(Type::kText, ""), nullptr);
}

TEST_F(SceneMetadataTest, EntriesComeAndGoAtTheirPlaces)
{
    for (const char* name : {"a", "b", "c"})
        ASSERT_TRUE(add(PIO_Metadata::kInt, name));
    ASSERT_TRUE(run(new RemoveSceneMetadataCmd(scene().sceneCommon(), 1)));
    EXPECT_EQ(shown(), (QStringList{"a=0", "c=0"}));
    undo();
    EXPECT_EQ(shown(), (QStringList{"a=0", "b=0", "c=0"}));
    undo();
    EXPECT_EQ(shown(), (QStringList{"a=0", "b=0"}));
    redo(2);
    EXPECT_EQ(shown(), (QStringList{"a=0", "c=0"}));
    for (const int index : {-1, 2, std::numeric_limits<int>::max()})
        EXPECT_FALSE(run(new RemoveSceneMetadataCmd(scene().sceneCommon(), index)));
}

TEST_F(SceneMetadataTest, EntriesAreFoundByNameInAnyCaseOfLetters)
{
    const auto indexes = [this](const char* name) { return scene().metadataList().indexesOf(QString(name)); };
    const std::vector<int> none;
    EXPECT_EQ(indexes("a"), none);
    for (const char* name : {"a", "Straße", "A", "b"})
        ASSERT_TRUE(add(PIO_Metadata::kInt, name));
    EXPECT_EQ(indexes("a"), (std::vector{0, 2}));
    EXPECT_EQ(indexes("B"), std::vector{3});
    EXPECT_EQ(indexes("STRAßE"), std::vector{1});
    EXPECT_EQ(indexes("strasse"), none) << "folds to the same text";
    ASSERT_TRUE(run(new RemoveSceneMetadataCmd(scene().sceneCommon(), 0)));
    EXPECT_EQ(indexes("a"), std::vector{1});
    EXPECT_EQ(indexes("b"), std::vector{2});
    undo();
    EXPECT_EQ(indexes("a"), (std::vector{0, 2}));
    undo(4);
    EXPECT_EQ(indexes("a"), none);
    redo(5);
    EXPECT_EQ(indexes("a"), std::vector{1});
}

TEST_F(SceneMetadataTest, AnEntryThatASceneHasIsNotTakenTwice)
{
    PIO_Metadata* made = add(PIO_Metadata::kBool, "a");
    EXPECT_FALSE(run(new AddSceneMetadataCmd(scene().sceneCommon(), made)));
    EXPECT_FALSE(run(new AddSceneMetadataCmd(scene().sceneCommon(), nullptr)));
    EXPECT_FALSE(run(new AddSceneMetadataCmd(nullptr, entry(PIO_Metadata::kBool, "a"))));
    EXPECT_EQ(shown(), QStringList("a=false"));
}

TEST_F(SceneMetadataTest, AValueOfTheEntrysTypeIsSetAndTold)
{
    PIO_Metadata* number = add(PIO_Metadata::kDouble, "n");
    const auto before = scene().changes().revision();
    ASSERT_TRUE(run(new SetDoubleValueCmd(nullptr, number, 2.5)));
    EXPECT_GT(scene().changes().revision(), before);
    EXPECT_EQ(shown(), QStringList("n=2.5"));
    undo();
    EXPECT_EQ(shown(), QStringList("n=0"));
    redo();
    EXPECT_FALSE(run(new SetIntValueCmd(nullptr, number, 1)));
    EXPECT_FALSE(run(new SetBoolValueCmd(nullptr, number, true)));
    EXPECT_FALSE(run(new SetGenericValueCmd(nullptr, number, "1")));
    EXPECT_FALSE(run(new SetDoubleValueCmd(nullptr, number, std::numeric_limits<double>::infinity())));
    EXPECT_FALSE(run(new SetDoubleValueCmd(nullptr, nullptr, 1)));
    EXPECT_EQ(shown(), QStringList("n=2.5"));
}
