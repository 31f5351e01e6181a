#include "core/palettes/palettelist.h"

#include "tests/core/palettes/palettetest.h"

#include <QFile>
#include <QTemporaryDir>

namespace {

using PaletteListWrapperTest = PaletteTest;

TEST_F(PaletteListWrapperTest, ItsTypeIsThatOfTheEnginesList)
{
    struct Row {
        CM_PaletteList::Type type;
        const char* text;
    };
    for (const Row& row :
         {Row{CM_PaletteList::kElement, "ELEMENT"}, Row{CM_PaletteList::kScene, "SCENE"},
          Row{CM_PaletteList::kUnspecified, "UNSPECIFIED"}, Row{static_cast<CM_PaletteList::Type>(3), "UNKNOWN"}}) {
        const OMC::PaletteList list(std::make_shared<CM_PaletteList>(projectPath(), row.type), projectCommon());
        EXPECT_EQ(list.getType().toStdString(), row.text);
    }
}

TEST_F(PaletteListWrapperTest, AHiddenListAndANullAreNotAccessible)
{
    const OMC::PaletteList hidden(std::make_shared<CM_PaletteList>(projectPath(), CM_PaletteList::kHidden),
                                  projectCommon());
    EXPECT_EQ(failureOf([&] { hidden.size(); }), "Unable to access a hidden palette list.");
    const OMC::PaletteList nothing(nullptr, projectCommon());
    EXPECT_EQ(failureOf([&] { nothing.size(); }), objectGone);
    EXPECT_FALSE(nothing.getValid());
}

TEST_F(PaletteListWrapperTest, APaletteOfAnotherListIsSetAsACopyWithNewColours)
{
    QTemporaryDir folder;
    const auto other = std::make_shared<CM_PaletteList>(folder.path(), CM_PaletteList::kUnspecified);
    OMC::PaletteList list(other, projectCommon());
    const auto old =
        std::make_shared<CM_Palette>(CM_PalettePathFile(folder.path() + QStringLiteral("/palette-library/Old.plt")));
    ASSERT_TRUE(CM_PaletteManager::GetInstance()->SavePalette(old));
    ASSERT_TRUE(other->InsertPalette(old, -1));
    list.set(0, OMC::Obj(palette.copy()));
    EXPECT_EQ(labels(), QStringList(QStringLiteral("Set Palette")));
    ASSERT_EQ(other->Size(), 1);
    const auto copied = other->palettes().front();
    EXPECT_EQ(copied->GetName(), hero->GetName());
    EXPECT_EQ(copied->colors().size(), 2U);
    EXPECT_NE(copied->GetColorId(0), hero->GetColorId(0));
    EXPECT_TRUE(QFile::exists(copied->GetPath().filename(true)));
    EXPECT_TRUE(QFile::exists(folder.path() + QStringLiteral("/palette-library/.deleted/Old.plt")));
    for (int round = 0; round < 2; ++round) {
        undo();
        EXPECT_EQ(other->palettes().front(), old);
        EXPECT_TRUE(QFile::exists(old->GetPath().filename(true)));
        EXPECT_FALSE(QFile::exists(copied->GetPath().filename(true)));
        redo();
        EXPECT_EQ(other->palettes().front(), copied);
        EXPECT_FALSE(QFile::exists(old->GetPath().filename(true)));
    }
}

TEST_F(PaletteListWrapperTest, APaletteOfAnotherListIsNotCopied)
{
    OMC::PaletteList list(std::make_shared<CM_PaletteList>(projectPath(), CM_PaletteList::kUnspecified),
                          projectCommon());
    for (const auto copy : {&OMC::PaletteList::clone, &OMC::PaletteList::duplicate})
        EXPECT_EQ(failureOf([&] { (list.*copy)(OMC::Obj(palette.copy()), {}); }),
                  "Given Palette doesn't belong to current palette list.");
}

} // namespace
