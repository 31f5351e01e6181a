#include "engine/palettes/palettestore.h"

#include "tests/engine/palettes/palettetest.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

class PaletteStoreTest : public PaletteProjectTest {};

TEST_F(PaletteStoreTest, AProjectHasAListFromTheBeginningAndWritesNoneBeforeItHasAPalette)
{
    ASSERT_EQ(manager().paletteLists().size(), 1u);
    EXPECT_EQ(list()->type(), CM_PaletteList::kScene);
    EXPECT_EQ(list()->GetPath(), path());
    EXPECT_EQ(list()->Size(), 0);
    EXPECT_EQ(manager().GetPaletteList(list()->GetID()), list());
    const Files before = files();
    save();
    EXPECT_EQ(files(), before);
    close();
    EXPECT_TRUE(manager().paletteLists().empty());
    EXPECT_EQ(manager().GetPaletteListFromPath(path(), true), nullptr);
}

TEST_F(PaletteStoreTest, AListComesBackInItsOrderWithIdentitiesNamesAndColours)
{
    const Palette skin = add("Skin");
    const Palette cloth = add("Cloth");
    cloth->SetName("Coat & trousers");
    cloth->AddColor(solid("Blue", {0, 0, 200, 255}));
    cloth->AddColor(texture("Wool", 3));
    skin->SetType(CM_Palette::kPencilTexture);
    save();
    const UT_Id id = list()->GetID();
    const Files saved = files();

    reopen();
    EXPECT_EQ(list()->GetID(), id);
    ASSERT_EQ(list()->Size(), 2);
    EXPECT_EQ(list()->palettes()[0]->GetID(), skin->GetID());
    EXPECT_FALSE(list()->palettes()[0]->IsLoadedFromDisk());
    EXPECT_EQ(palette("Skin")->GetType(), CM_Palette::kPencilTexture);
    EXPECT_EQ(palette("Cloth")->GetName(), "Coat & trousers");
    EXPECT_EQ(names(*palette("Cloth")), QStringList({"Default", "Blue", "Wool"}));
    EXPECT_EQ(CM_CastToTexture(palette("Cloth")->GetColor(2))->GetBitmap()->GetWidth(), 3u);
    save();
    EXPECT_EQ(files(), saved);
}

TEST_F(PaletteStoreTest, AListThatIsEmptyAgainHasTheFileThatItHadAtFirst)
{
    const auto listFile = [&] { return get(library() + "palette-list.json"); };
    add("Skin");
    save();
    remove(palette("Skin"));
    save();
    EXPECT_FALSE(QFile::exists(library() + "palette-list.json"));

    add("Cloth");
    save();
    reopen();
    const QByteArray saved = listFile();
    const Palette cloth = palette("Cloth");
    remove(cloth);
    save();
    EXPECT_TRUE(listFile().contains("\"palettes\": []"));
    ASSERT_TRUE(list()->InsertPalette(cloth, 0));
    save();
    EXPECT_EQ(listFile(), saved);
}

TEST_F(PaletteStoreTest, ADamagedListIsToldAndStaysAndIsKeptAsideOnceTheProjectHasAnother)
{
    add("Skin");
    save();
    close();
    const QString file = library() + "palette-list.json";
    const QByteArray damaged = get(file).chopped(5);
    put(file, damaged);
    open();
    EXPECT_TRUE(logged([&] { EXPECT_EQ(list()->Size(), 0); }).startsWith("Error: \"" + file + "\" is damaged"));
    save();
    EXPECT_EQ(get(file), damaged);
    add("Cloth");
    EXPECT_EQ(logged([&] { save(); }), "Error: \"" + file + "\" could not be read: the file is kept in \"" + library() +
                                           "palette-list-other.json\".");
    EXPECT_EQ(get(library() + "palette-list-other.json"), damaged);
    reopen();
    EXPECT_EQ(list()->Size(), 1);
}

TEST_F(PaletteStoreTest, AListThatAnotherProgramChangedIsKeptAside)
{
    add("Skin");
    save();
    const QString file = library() + "palette-list.json";
    const QByteArray theirs = get(file).replace("Skin.plt", "Hide.plt");
    put(file, theirs);
    save();
    EXPECT_EQ(get(file), theirs);
    add("Cloth");
    EXPECT_TRUE(logged([&] { save(); }).contains("palette-list-other.json"));
    EXPECT_EQ(get(library() + "palette-list-other.json"), theirs);
}

TEST_F(PaletteStoreTest, APaletteIsOnAListOnce)
{
    const Palette skin = add("Skin");
    EXPECT_FALSE(list()->InsertPalette(skin, 0));
    EXPECT_FALSE(list()->InsertPalette(nullptr, 0));
    EXPECT_FALSE(list()->InsertPalette(std::make_shared<CM_Palette>(skin->GetPath()), 0));
    const auto cloth = std::make_shared<CM_Palette>(CM_PalettePathFile(library() + "Cloth"));
    EXPECT_FALSE(list()->InsertPalette(cloth, 2));
    EXPECT_FALSE(list()->InsertPalette(cloth, -2));
    EXPECT_TRUE(list()->InsertPalette(cloth, 0));
    EXPECT_EQ(list()->GetPaletteIndex(skin->GetID()), 1);
    EXPECT_EQ(list()->GetPaletteByPath(library() + "Cloth.plt"), cloth);
    EXPECT_EQ(cloth->state(), CM_Palette::kLive);
    EXPECT_TRUE(list()->RemovePalette(cloth->GetID()));
    EXPECT_FALSE(list()->RemovePalette(cloth->GetID()));
    EXPECT_EQ(cloth->state(), CM_Palette::kDeleted);
    EXPECT_EQ(list()->GetPaletteIndex(cloth->GetID()), -1);
    Palette holder;
    EXPECT_EQ(list()->GetColor(skin->GetColorId(0), &holder), skin->GetColor(0));
    EXPECT_EQ(holder, skin);
}

TEST_F(PaletteStoreTest, AProjectThatHasMovedTakesItsPalettesAlong)
{
    add("Skin");
    save();
    remove(add("Gone"));
    ASSERT_TRUE(QDir().rename(path(), path("moved")));
    palette("Skin")->GetColor(0)->Rename("Red");
    QString error;
    EXPECT_FALSE(manager().SavePalette(palette("Skin"), &error));
    EXPECT_EQ(error, "\"" + path() + "\" cannot be read: no such file or directory.");
    ASSERT_TRUE(projects().saveProjectAs(path("moved"), error)) << error.toStdString();
    EXPECT_EQ(palette("Skin")->GetPath().filename(true), path("moved/palette-library/Skin.plt"));
    EXPECT_TRUE(get(path("moved/palette-library/Skin.plt")).contains("\"Red\""));
}

TEST_F(PaletteStoreTest, ChangesAreToldUntilTheListenerGoes)
{
    std::vector<UT_Id> told;
    auto listener = manager().listen([&](const CM_ColorUpdateData& change) { told.push_back(change.palette); });
    manager().notify({{}, UT_Id(5), {}});
    EXPECT_EQ(told, std::vector<UT_Id>{UT_Id(5)});
    listener.reset();
    manager().notify({{}, UT_Id(6), {}});
    EXPECT_EQ(told.size(), 1u);
}

TEST_F(PaletteStoreTest, ThePaletteOfAColourAndTheListOfAPaletteAreFound)
{
    const Palette skin = add("Skin");
    const Palette cloth = add("Cloth");
    save();
    reopen();
    EXPECT_EQ(manager().SearchParentPalette(cloth->GetColorId(0)), cloth->GetID());
    EXPECT_EQ(manager().SearchParentPaletteList(skin->GetID()), list()->GetID());
    EXPECT_EQ(manager().GetPalette(skin->GetID()), palette("Skin"));
    EXPECT_FALSE(manager().SearchParentPalette(UT_Id(1)).IsValid());
    EXPECT_FALSE(manager().SearchParentPaletteList(UT_Id(1)).IsValid());
    EXPECT_EQ(manager().GetPalette(UT_Id(1)), nullptr);
}

TEST_F(PaletteStoreTest, AColourIsThatOfTheFirstPaletteThatHasItWhateverCameAndWent)
{
    const Palette skin = add("Skin");
    const Palette cloth = add("Cloth");
    const auto later = solid("Later");
    ASSERT_TRUE(cloth->AddColor(later));
    const UT_Id id = later->GetID();
    EXPECT_EQ(manager().GetColor(id), later);
    EXPECT_EQ(manager().SearchParentPalette(id), cloth->GetID());
    EXPECT_EQ(manager().GetColor(UT_Id(1)), nullptr);

    const CM_Palette::Entry earlier = later->Clone(false); // The same identity, in a palette that stands before.
    ASSERT_TRUE(skin->InsertColor(earlier, 0));
    EXPECT_EQ(manager().GetColor(id), earlier);
    EXPECT_EQ(manager().SearchParentPalette(id), skin->GetID());
    ASSERT_TRUE(list()->RemovePalette(skin->GetID()));
    EXPECT_EQ(manager().GetColor(id), later);
    ASSERT_TRUE(list()->InsertPalette(skin, 0));
    EXPECT_EQ(manager().GetColor(id), earlier);
    ASSERT_TRUE(skin->RemoveColor(id));
    EXPECT_EQ(manager().GetColor(id), later);
    ASSERT_TRUE(cloth->RemoveColor(id));
    EXPECT_EQ(manager().GetColor(id), nullptr);
    close();
    EXPECT_EQ(manager().GetColor(cloth->GetColorId(0)), nullptr);
}

TEST_F(PaletteStoreTest, APaletteIsOnDiskOnceItIsSavedAndItsChangesWithTheProject)
{
    const Palette skin = add("Skin");
    const QByteArray made = get(library() + "Skin.plt");
    EXPECT_TRUE(made.contains("\"Default\" 000000ff"));
    EXPECT_FALSE(QFile::exists(library() + "palette-list.json"));
    skin->GetColor(0)->Rename("Black");
    EXPECT_EQ(get(library() + "Skin.plt"), made);
    save();
    EXPECT_TRUE(get(library() + "Skin.plt").contains("\"Black\" 000000ff"));
    EXPECT_TRUE(QFile::exists(library() + "palette-list.json"));
}

TEST_F(PaletteStoreTest, APaletteThatHasNotChangedIsNotWritten)
{
    const auto fileOf = [](const Palette& palette) {
        struct stat info = {};
        EXPECT_EQ(::stat(QFile::encodeName(palette->GetPath().filename(true)), &info), 0);
        return info.st_ino;
    };
    const Palette skin = add("Skin");
    const Palette cloth = add("Cloth");
    save();
    const auto skinFile = fileOf(skin);
    const auto clothFile = fileOf(cloth);
    cloth->SetName("Coat");
    save();
    EXPECT_EQ(fileOf(skin), skinFile);
    EXPECT_NE(fileOf(cloth), clothFile);
}

TEST_F(PaletteStoreTest, TexturesComeAndGoWithTheirEntries)
{
    const Palette skin = add("Skin");
    const auto wood = texture("Wood", 2);
    const auto stone = texture("Stone", 4);
    skin->AddColor(wood);
    skin->AddColor(stone);
    save();
    const QString folder = library() + "Skin_textures/";
    EXPECT_EQ(QDir(folder).entryList(QDir::Files).size(), 2);
    skin->RemoveColor(wood->GetID());
    stone->ChangeTexture(stone->GetBitmap()->Scaled(9, 8));
    save();
    EXPECT_EQ(QDir(folder).entryList(QDir::Files), QStringList(stone->GetID().AsString() + ".png"));
    reopen();
    const auto read = CM_CastToTexture(palette("Skin")->GetColor(1));
    EXPECT_EQ(read->GetBitmap()->GetHeight(), 8u);
    palette("Skin")->InsertColor(wood, 1);
    save();
    EXPECT_EQ(QDir(folder).entryList(QDir::Files).size(), 2);
}

TEST_F(PaletteStoreTest, AProjectGoesOnInAnotherFolderWithAllOfItsPalettes)
{
    add("Skin")->AddColor(texture("Wood", 2));
    add("Cloth");
    save();
    reopen();
    palette("Cloth")->GetColor(0)->Rename("Red"); // And Skin is not read.
    const Palette gone = add("Gone");
    remove(gone);
    QString error;
    ASSERT_TRUE(projects().saveProjectAs(path("copy"), error)) << error.toStdString();
    EXPECT_EQ(list()->GetPath(), path("copy"));
    EXPECT_EQ(palette("Skin")->GetPath().filename(true), path("copy/palette-library/Skin.plt"));
    EXPECT_EQ(gone->GetPath().filename(true), path("copy/palette-library/Gone.plt"));
    EXPECT_TRUE(list()->InsertPalette(gone, 0));
    save();
    close();
    ASSERT_TRUE(QDir(path()).removeRecursively());
    open("copy");
    ASSERT_EQ(list()->Size(), 3);
    EXPECT_EQ(names(*palette("Cloth")), QStringList("Red"));
    EXPECT_EQ(names(*palette("Gone")), QStringList("Default"));
    EXPECT_EQ(names(*palette("Skin")), QStringList({"Default", "Wood"}));
    EXPECT_TRUE(CM_CastToTexture(palette("Skin")->GetColor(1))->GetBitmap());
}

TEST_F(PaletteStoreTest, ClosingWithoutASavePutsTheFilesBackToWhatTheListOnDiskNames)
{
    add("Skin")->AddColor(texture("Wood", 2));
    save();
    const Files saved = files();
    remove(palette("Skin"));
    add("Skin")->AddColor(solid("Other")); // In the place of the other.
    add("New");
    close();
    Files now = files();
    EXPECT_TRUE(now.take("palette-library/.deleted/New.plt").contains("\"New\""));
    EXPECT_TRUE(now.take("palette-library/.deleted/Skin_1.plt").contains("\"Skin\""));
    now.remove("palette-library/.deleted/");
    EXPECT_EQ(now.keys(), saved.keys());
    EXPECT_EQ(now, saved);
}

TEST_F(PaletteStoreTest, OpeningTheOpenProjectAnewPutsTheFilesBackAsClosingDoes)
{
    add("Skin");
    save();
    const Files saved = files();
    remove(palette("Skin"));
    add("New");
    open();
    EXPECT_EQ(list()->Size(), 1);
    Files now = files();
    now.remove("palette-library/.deleted/");
    EXPECT_TRUE(now.remove("palette-library/.deleted/New.plt"));
    EXPECT_EQ(now, saved);
}

TEST_F(PaletteStoreTest, OpeningPutsBackWhatAKilledProcessRemoved)
{
    const Palette skin = add("Skin");
    skin->AddColor(texture("Wood", 2));
    save();
    const Files saved = files();
    close();
    QDir().mkpath(library() + ".deleted");
    ASSERT_TRUE(QFile::rename(library() + "Skin.plt", library() + ".deleted/Skin_3.plt"));
    ASSERT_TRUE(QFile::rename(library() + "Skin_textures", library() + ".deleted/Skin_3_textures"));
    open();
    EXPECT_EQ(logged([&] { EXPECT_EQ(names(*palette("Skin")).size(), 2); }),
              "\"" + library() + "Skin.plt\" had been removed without a save; it is back in its place.");
    Files now = files();
    now.remove("palette-library/.deleted/");
    EXPECT_EQ(now, saved);
}
