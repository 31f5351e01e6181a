#include "core/palettes/palettecommands.h"

#include "tests/core/palettes/palettetest.h"

namespace {

class PaletteCommandsTest : public PaletteTest {
protected:
    std::string names() const
    {
        QStringList all;
        for (const CM_Palette::Entry& entry : hero->colors())
            all.append(entry->GetColorName());
        return all.join(u' ').toStdString();
    }
    static CM_Palette::Entry colour(const char* name)
    {
        auto made = std::make_shared<CM_Color>(CM_Color::kSolid, QString::fromLatin1(name));
        made->AddColorMarker({});
        return made;
    }
};

TEST_F(PaletteCommandsTest, ColoursAreAddedEachAtItsIndexOrAtTheEnd)
{
    const QByteArray two = CM_Palette::StoreColorList({colour("A"), colour("B")});
    OMC::OMC_Palette_AddColorCommand placed(hero, two, {0, 2});
    ASSERT_TRUE(placed.Execute());
    EXPECT_EQ(names(), "A Skin B Sky");
    ASSERT_TRUE(placed.Undo());
    EXPECT_EQ(names(), "Skin Sky");
    OMC::OMC_Palette_AddColorCommand appended(hero, two);
    ASSERT_TRUE(appended.Execute());
    EXPECT_EQ(names(), "Skin Sky A B");
}

TEST_F(PaletteCommandsTest, AnAdditionThatIsRefusedHalfwayAddsNothing)
{
    OMC::OMC_Palette_AddColorCommand add(hero, CM_Palette::StoreColorList({colour("A"), hero->GetColor(0)}));
    EXPECT_FALSE(add.Execute());
    EXPECT_EQ(names(), "Skin Sky");
}

TEST_F(PaletteCommandsTest, ARemovalOfAColourThatIsNotThereRemovesNone)
{
    OMC::OMC_Palette_RemoveColorCommand removal(hero, {hero->GetColorId(0), UT_Id(1)});
    EXPECT_FALSE(removal.Execute());
    EXPECT_EQ(names(), "Skin Sky");
}

TEST_F(PaletteCommandsTest, AColourIsNotSetOverAnotherOfItsIdentity)
{
    OMC::OMC_Palette_SetColorCommand set(hero, CM_Palette::StoreColorList({hero->GetColor(1)}), 0);
    EXPECT_FALSE(set.Execute());
    EXPECT_EQ(names(), "Skin Sky");
}

TEST_F(PaletteCommandsTest, AMoveBeyondTheColoursIsRefused)
{
    EXPECT_FALSE(OMC::OMC_Palette_ReorderCommand(hero, 0, 2).Execute());
    EXPECT_FALSE(OMC::OMC_Palette_ReorderCommand(hero, -1, 0).Execute());
    EXPECT_EQ(names(), "Skin Sky");
}

} // namespace
