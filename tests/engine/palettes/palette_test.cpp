#include "core/host/cm_palette.h"

#include "core/host/ut_undoredo.h"
#include "engine/history/commandmanager.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

std::shared_ptr<CM_Color> solid(const QString& name)
{
    auto colour = std::make_shared<CM_Color>(CM_Color::kSolid, name);
    colour->AddColorMarker({0, CM_Rgba(1, 2, 3, 4)});
    return colour;
}

QStringList names(const CM_Palette& palette)
{
    QStringList result;
    for (const CM_Palette::Entry& entry : palette.colors())
        result.append(entry->GetColorName());
    return result;
}

void put(const QString& path, const QByteArray& content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

class AddBlack final : public UT_Command {
public:
    AddBlack(CM_Palette& palette, bool refuses) : m_palette(palette), m_refuses(refuses) {}
    bool Execute() override { return !m_refuses && m_palette.AddColor(m_colour); }
    bool Undo() override { return m_palette.RemoveColor(m_colour->GetID()); }

private:
    CM_Palette& m_palette;
    bool m_refuses;
    std::shared_ptr<CM_Color> m_colour = solid("Black");
};

class PaletteTest : public testing::Test {
protected:
    QTemporaryDir folder;
    CM_Palette palette{CM_PalettePathFile(folder.filePath("Hero"))};
};

} // namespace

TEST_F(PaletteTest, ANewPaletteIsEmptyAndNamedByItsFile)
{
    EXPECT_EQ(palette.GetName(), "Hero");
    EXPECT_EQ(palette.GetDiskName(), "Hero");
    EXPECT_EQ(palette.GetPath().filename(true), folder.filePath("Hero.plt"));
    EXPECT_EQ(palette.GetPath().path().ToString(), folder.path());
    EXPECT_TRUE(palette.IsLoadedFromDisk());
    EXPECT_TRUE(palette.colors().empty());
    palette.AddDefaultColor();
    EXPECT_EQ(names(palette), QStringList("Default"));
}

TEST_F(PaletteTest, EntriesAreFoundByPlaceAndByIdentity)
{
    const auto skin = solid("Skin");
    const auto hair = solid("Hair");
    EXPECT_TRUE(palette.AddColor(skin));
    EXPECT_TRUE(palette.InsertColor(hair, 0));
    EXPECT_EQ(names(palette), QStringList({"Hair", "Skin"}));
    EXPECT_EQ(palette.GetColorById(skin->GetID()), skin);
    EXPECT_EQ(palette.GetColorId(0), hair->GetID());
    EXPECT_EQ(palette.GetColor(-1), nullptr);
    EXPECT_EQ(palette.GetColor(2), nullptr);
    EXPECT_FALSE(palette.GetColorId(2).IsValid());
}

TEST_F(PaletteTest, AnIdentityStandsOnceAndPlacesEndWithTheEntries)
{
    const auto skin = solid("Skin");
    EXPECT_TRUE(palette.AddColor(skin));
    EXPECT_FALSE(palette.AddColor(skin));
    EXPECT_FALSE(palette.AddColor(skin->Clone(false)));
    EXPECT_FALSE(palette.AddColor(nullptr));
    EXPECT_FALSE(palette.InsertColor(solid("Hair"), 2));
    EXPECT_FALSE(palette.InsertColor(solid("Hair"), -1));
    EXPECT_TRUE(palette.InsertColor(solid("Hair"), 1));
    EXPECT_TRUE(palette.RemoveColor(skin->GetID()));
    EXPECT_FALSE(palette.RemoveColor(skin->GetID()));
    EXPECT_EQ(names(palette), QStringList("Hair"));
}

TEST_F(PaletteTest, ACopyKeepsOrRenewsTheIdentitiesOfTheEntriesOnly)
{
    palette.AddColor(solid("Skin"));
    palette.SetType(CM_Palette::kPencilTexture);
    for (const bool keepIds : {true, false}) {
        CM_Palette copy{CM_PalettePathFile(folder.filePath("Copy"))};
        copy.Copy(palette, keepIds);
        EXPECT_EQ(copy.GetName(), "Hero");
        EXPECT_EQ(copy.GetDiskName(), "Copy");
        EXPECT_EQ(copy.GetType(), CM_Palette::kPencilTexture);
        EXPECT_FALSE(copy.GetID() == palette.GetID());
        EXPECT_EQ(copy.GetColorId(0) == palette.GetColorId(0), keepIds);
        EXPECT_NE(copy.GetColor(0), palette.GetColor(0));
    }
}

TEST_F(PaletteTest, EntriesTravelThroughAStreamWithTheirPictures)
{
    QImage image(3, 2, QImage::Format_RGBA8888);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(folder.filePath("wood.png")));
    const auto wood = std::make_shared<CM_Texture>("Wood", folder.filePath("wood.png"), true);
    const auto gone = std::make_shared<CM_Texture>("Gone", folder.filePath("none.png"), false);
    const auto read = CM_Palette::LoadColorList(CM_Palette::StoreColorList({solid("Skin"), gone, wood}));
    ASSERT_EQ(read.size(), 3u);
    EXPECT_EQ(CM_CastToColor(read[0])->GetColorMarker(0).rgba, CM_Rgba(1, 2, 3, 4));
    EXPECT_EQ(CM_CastToTexture(read[1])->GetBitmap(), nullptr);
    EXPECT_EQ(CM_CastToTexture(read[2])->GetBitmap()->Png(), wood->GetBitmap()->Png());
    EXPECT_EQ(read[2]->GetID(), wood->GetID());
    EXPECT_TRUE(CM_Palette::LoadColorList(CM_Palette::StoreColorList({})).empty());
}

TEST_F(PaletteTest, PicturesAreReadFromImageFilesAndScaled)
{
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::blue);
    ASSERT_TRUE(image.save(folder.filePath("wood.jpg")));
    put(folder.filePath("broken.png"), "\x89PNG\r\n\x1a\n broken");
    ASSERT_TRUE(QImage(BM_Bitmap::largestSide + 1, 1, QImage::Format_Mono).save(folder.filePath("long.png")));
    const auto bitmap = BM_Bitmap::FromFile(folder.filePath("wood.jpg"));
    ASSERT_TRUE(bitmap);
    EXPECT_EQ(bitmap->GetWidth(), 40u);
    const auto scaled = bitmap->Scaled(1, 5);
    ASSERT_TRUE(scaled);
    EXPECT_EQ(QImage::fromData(scaled->Png(), "PNG").size(), QSize(1, 5));
    EXPECT_EQ(bitmap->Scaled(0, 5), nullptr);
    EXPECT_EQ(bitmap->Scaled(30'000, 30'000), nullptr);
    for (const char* file : {"broken.png", "long.png", "none.png"})
        EXPECT_EQ(BM_Bitmap::FromFile(folder.filePath(file)), nullptr) << file;
}

TEST_F(PaletteTest, ARefusedPictureLeavesTheTextureAsItWas)
{
    QImage image(4, 4, QImage::Format_RGBA8888);
    image.fill(Qt::green);
    ASSERT_TRUE(image.save(folder.filePath("wood.png")));
    CM_Texture texture("Wood", folder.filePath("wood.png"), false);
    const auto before = texture.GetBitmap();
    EXPECT_FALSE(texture.ChangeTexture(folder.filePath("none.png")));
    EXPECT_EQ(texture.GetBitmap(), before);
}

TEST_F(PaletteTest, CommandsGoToTheUndoListThatIsStaged)
{
    brindle::engine::CommandManager history;
    UT_UndoRedoManager manager;
    manager.SetStageCommandManager(&history);
    EXPECT_TRUE(manager.ExecuteCommand(new AddBlack(palette, false), "Create Palette Color"));
    EXPECT_FALSE(manager.ExecuteCommand(new AddBlack(palette, true), "Refused"));
    EXPECT_FALSE(manager.ExecuteCommand(nullptr, "Nothing"));
    EXPECT_EQ(history.collectExecutedNames(), QStringList("Create Palette Color"));
    history.unexecute(1);
    EXPECT_TRUE(palette.colors().empty());
    history.reexecute(1);
    EXPECT_EQ(names(palette), QStringList("Black"));
}

TEST_F(PaletteTest, WithoutAnUndoListACommandStillRuns)
{
    UT_UndoRedoManager manager;
    EXPECT_TRUE(manager.ExecuteCommand(new AddBlack(palette, false), "Create Palette Color"));
    EXPECT_FALSE(manager.ExecuteCommand(new AddBlack(palette, true), "Refused"));
    EXPECT_EQ(names(palette), QStringList("Black"));
}

TEST(IdTest, ATextOfSixteenHexadecimalDigitsNamesAnIdentity)
{
    EXPECT_EQ(UT_Id::FromString("00000000000000FF").value(), 255u);
    EXPECT_EQ(UT_Id(255).AsString(), "00000000000000ff");
    for (const char* text : {"", "ff", "000000000000000g", "+0000000000000ff", " 00000000000000f", "00000000000000000"})
        EXPECT_FALSE(UT_Id::FromString(text).IsValid()) << text;
}

TEST_F(PaletteTest, TheFirstColourOfANameIsFoundAfterAnyNumberOfLookUpsAndChanges)
{
    const auto agrees = [this] {
        // Many look-ups in a row are answered in another way than the first ones.
        for (int round = 0; round < 40; ++round) {
            for (const char* name : {"a", "b", "c", "d", ""}) {
                const auto& all = palette.colors();
                const auto first = std::find_if(all.begin(), all.end(), [&](const CM_Palette::Entry& entry) {
                    return entry->GetColorName() == QLatin1String(name);
                });
                if (palette.GetColorByName(QString(name)) != (first == all.end() ? nullptr : *first))
                    return false;
            }
        }
        return true;
    };
    EXPECT_TRUE(agrees());
    std::vector<std::shared_ptr<CM_Color>> colours;
    for (const char* name : {"a", "b", "a", "c"}) {
        colours.push_back(solid(name));
        palette.AddColor(colours.back());
        EXPECT_TRUE(agrees()) << "added";
    }
    colours[3]->Rename("b");
    EXPECT_TRUE(agrees()) << "renamed";
    EXPECT_TRUE(palette.MoveColor(3, 0));
    EXPECT_EQ(names(palette), (QStringList{"b", "a", "b", "a"}));
    EXPECT_TRUE(agrees()) << "moved to the front";
    EXPECT_TRUE(palette.MoveColor(0, 3));
    EXPECT_EQ(names(palette), (QStringList{"a", "b", "a", "b"}));
    EXPECT_TRUE(agrees()) << "moved to the end";
    for (const int wrong : {-1, 4}) {
        EXPECT_FALSE(palette.MoveColor(wrong, 0));
        EXPECT_FALSE(palette.MoveColor(0, wrong));
    }
    EXPECT_TRUE(palette.RemoveColor(colours[0]->GetID()));
    EXPECT_TRUE(agrees()) << "removed";
    EXPECT_TRUE(palette.InsertColor(colours[0], 0));
    EXPECT_TRUE(agrees()) << "inserted";
    EXPECT_EQ(palette.GetColorIndex(colours[3]->GetID()), 3);
    EXPECT_EQ(palette.GetColorIndex(UT_Id()), -1);
    const CM_Palette other(CM_PalettePathFile(folder.filePath("Other")));
    palette.Copy(other, false);
    EXPECT_TRUE(agrees()) << "copied over";
}
