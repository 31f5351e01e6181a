#include "core/palettes/palette.h"

#include "core/palettes/palettecolour.h"
#include "tests/core/palettes/palettetest.h"
#include "tests/core/support/otherthread.h"

namespace {

using PaletteWrapperTest = PaletteTest;

constexpr char lockedOut[] = "Unable to access Object Model from another thread -- application must be locked.";

TEST_F(PaletteWrapperTest, ANullPaletteIsInvalidFromTheStart)
{
    const OMC::Palette nothing(nullptr, projectCommon());
    EXPECT_FALSE(nothing.getValid());
    EXPECT_EQ(failureOf([&] { nothing.getName(); }), objectGone);
}

TEST_F(PaletteWrapperTest, AHiddenPaletteIsNotAccessible)
{
    hero->SetType(CM_Palette::kHidden);
    EXPECT_FALSE(palette.getValid());
    EXPECT_EQ(failureOf([&] { palette.size(); }), "Unable to access a hidden palette.");
}

TEST_F(PaletteWrapperTest, ADeletedPaletteSaysSoAheadOfTheProjectThatIsGone)
{
    palettes.remove(OMC::toVariant(palette.copy()));
    EXPECT_EQ(failureOf([&] { palette.getName(); }), "Palette is no longer valid.");
    close();
    EXPECT_EQ(failureOf([&] { palette.getName(); }), "Palette is no longer valid.");
}

TEST_F(PaletteWrapperTest, AClosedProjectsPaletteIsGone)
{
    close();
    EXPECT_EQ(failureOf([&] { palette.getName(); }), objectGone);
}

TEST_F(PaletteWrapperTest, EachCallPassesTheThreadGate)
{
    EXPECT_EQ(failuresOnOtherThread({[&] { palette.getName(); }, [&] { palette.size(); }, [&] { palette.clear(); },
                                     [&] { palette.__iter__(); }, [&] { palettes.size(); }}),
              std::vector<std::string>(5, lockedOut));
}

TEST_F(PaletteWrapperTest, AnUnreadPaletteIsReadAtItsFirstUse)
{
    manager().clearHistory();
    saved();
    const QString folder = projectPath();
    close();
    QString error;
    ASSERT_NE(session().projectManager()->openProject(folder, error), nullptr) << error.toStdString();
    const auto list = CM_PaletteManager::GetInstance()->GetPaletteListFromPath(folder, true);
    ASSERT_TRUE(list->Load());
    ASSERT_EQ(list->Size(), 1);
    const auto again = list->palettes().front();
    EXPECT_FALSE(again->IsLoadedFromDisk());
    EXPECT_EQ(OMC::Palette(again, projectCommon()).size(), 2U);
    EXPECT_TRUE(again->IsLoadedFromDisk());
}

TEST_F(PaletteWrapperTest, ALoopStepsBothWays)
{
    const OMC::Obj handle = palette.__iter__();
    auto& loop = *OMC::objectIn<OMC::Palette>(handle);
    const auto name = [&loop] {
        return OMC::objectIn<OMC::PaletteBaseColour>(loop.__iterItem__())->getName().toStdString();
    };
    EXPECT_EQ(name(), "Skin");
    ++loop;
    EXPECT_EQ(name(), "Sky");
    --loop;
    EXPECT_EQ(name(), "Skin");
    ++loop;
    ++loop;
    EXPECT_TRUE(loop.__atend__());
}

TEST_F(PaletteWrapperTest, ChangesAreToldToThoseWhoShowColours)
{
    std::vector<CM_ColorUpdateData> told;
    const auto listening =
        CM_PaletteManager::GetInstance()->listen([&told](const CM_ColorUpdateData& change) { told.push_back(change); });
    const UT_Id skin = hero->GetColorId(0);
    palette.pop(0);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].palette, hero->GetID());
    EXPECT_EQ(told[0].colours, std::vector<UT_Id>{skin});
    undo();
    EXPECT_EQ(told.size(), 2U);
    palette.setName(QStringLiteral("Villain"));
    ASSERT_EQ(told.size(), 4U);
    EXPECT_EQ(told[3].paletteList.AsString(), palettes.getId());
}

} // namespace
