#include "core/palettes/palettebasecolour.h"

#include "core/palettes/palettecolour.h"
#include "core/palettes/palettetexture.h"
#include "tests/core/palettes/palettetest.h"
#include "tests/core/support/otherthread.h"

namespace {

using PaletteBaseColourTest = PaletteTest;

TEST_F(PaletteBaseColourTest, ItShowsAsItsClass)
{
    const OMC::PaletteBaseColour base(hero->GetColor(0), hero->GetID(), projectCommon());
    EXPECT_EQ(base.__str__(), "PaletteBaseColour()");
    EXPECT_EQ(base.getName(), QStringLiteral("Skin"));
    EXPECT_EQ(base.getBaseType(), QStringLiteral("Colour"));
}

TEST_F(PaletteBaseColourTest, ANullColourAndAProjectThatIsGoneAreInvalid)
{
    const OMC::PaletteColour nothing(nullptr, hero->GetID(), projectCommon());
    EXPECT_FALSE(nothing.getValid());
    EXPECT_EQ(failureOf([&] { nothing.getId(); }), objectGone);
    const OMC::PaletteColour skin(hero->GetColor(0), hero->GetID(), projectCommon());
    EXPECT_TRUE(skin.getValid());
    close();
    EXPECT_FALSE(skin.getValid());
    EXPECT_EQ(failureOf([&] { skin.getName(); }), objectGone);
}

TEST_F(PaletteBaseColourTest, TheOtherKindIsRefused)
{
    const OMC::Obj texture = palette.createTexture(QStringLiteral("Wood"), pictureFile(2, 2), -1, false);
    const OMC::Obj colour = palette.get(0);
    EXPECT_EQ(failureOf([&] { OMC::objectIn<OMC::PaletteBaseColour>(texture)->colorData(); }),
              "Object is not a color.");
    EXPECT_EQ(failureOf([&] { OMC::objectIn<OMC::PaletteBaseColour>(colour)->textureData(); }),
              "Object is not a texture.");
}

TEST_F(PaletteBaseColourTest, ItKnowsThePaletteThatHoldsItsVeryObject)
{
    const OMC::PaletteColour skin(hero->GetColor(0), UT_Id(), projectCommon());
    EXPECT_EQ(skin.parentPaletteId(), hero->GetID());
    EXPECT_EQ(skin.parentPaletteListId().AsString(), palettes.getId());
    const OMC::PaletteColour stranger(hero->GetColor(0)->Clone(false), UT_Id(), projectCommon());
    EXPECT_FALSE(stranger.parentPaletteId().IsValid());
    stranger.setParentPaletteId(hero->GetID().AsString());
    EXPECT_EQ(stranger.parentPaletteId(), hero->GetID());
}

TEST_F(PaletteBaseColourTest, EachCallPassesTheThreadGate)
{
    const OMC::PaletteColour skin(hero->GetColor(0), hero->GetID(), projectCommon());
    EXPECT_EQ(failuresOnOtherThread({[&] { skin.getName(); }, [&] { skin.getR(); }, [&] { skin.size(); }}),
              std::vector<std::string>(
                  3, "Unable to access Object Model from another thread -- application must be locked."));
}

} // namespace
