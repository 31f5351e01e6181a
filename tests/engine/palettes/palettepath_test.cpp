#include "core/host/cm_palettepath.h"

#include "core/host/em_commands.h"
#include "core/host/pr_preference.h"
#include "core/host/tu_dbscenedata.h"
#include "core/host/tu_elementmgr.h"
#include "tests/engine/palettes/palettetest.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

class PalettePathTest : public PaletteProjectTest {
public:
    ~PalettePathTest() override
    {
        tuPref()->setStringValue("PALETTE_JOB_FOLDER", {});
        tuPref()->setStringValue("PALETTE_ENVIRONMENT_FOLDER", {});
    }
    SC_ProjectCommon* common() { return projects().project()->projectCommon(); }
    QString file(int kind, const QString& name, int element = -1)
    {
        return CM_PalettePathProject(common(), kind, name, element).filename(true);
    }
    CM_LocationType location(const QString& folder)
    {
        return common()->dbSceneData()->getLocationRelativeToElement(folder);
    }
    /// A new element on the project's list, and its folder.
    int addElement(const QString& name)
    {
        TUElementMgr* elements = common()->elementManager();
        const int id = elements->createElement(name, 0, 12, 0, 0, false).id();
        EXPECT_TRUE(common()->commandManager()->execute(
            new EM_Commands::FakeAddElementsCmd(elements, {id}, true, true, 0), "Create"));
        return id;
    }
    QString folder(int element) { return common()->elementManager()->elementFolder(element, 0).ToString(); }
};

TEST_F(PalettePathTest, EachLocationHasItsFolder)
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    EXPECT_EQ(file(CM_Scene, "Skin"), library() + "Skin.plt");
    EXPECT_EQ(file(CM_Job, "Skin"), data + "/brindle/palettes/job/Skin.plt");
    EXPECT_EQ(file(CM_Environment, "Skin"), data + "/brindle/palettes/environment/Skin.plt");
    EXPECT_EQ(file(CM_External, "Skin"), "");
    EXPECT_EQ(file(CM_Backup, "Skin"), "");
    EXPECT_EQ(file(CM_Element, "Skin", 77), "");
    EXPECT_EQ(CM_PalettePathProject(nullptr, CM_Scene, "Skin").path().ToString(), "");
    EXPECT_EQ(file(CM_Scene, "../a/b"), library() + "_._a_b.plt");
    EXPECT_EQ(CM_PaletteListPathProject(common(), 0, ~0u).path().ToString(), path());
}

TEST_F(PalettePathTest, SharedFoldersLieWhereThePersonSetsThem)
{
    tuPref()->setStringValue("PALETTE_JOB_FOLDER", path("job"));
    EXPECT_EQ(file(CM_Job, "Wood"), path("job/Wood.plt"));
    addAt(file(CM_Job, "Wood"));
    save();
    EXPECT_TRUE(get(library() + "palette-list.json").contains("\"Wood.plt\", \"JOB\""));
    EXPECT_EQ(location(path("job")), CM_Job);
    close();
    ASSERT_TRUE(QDir().rename(path("job"), path("other")));
    tuPref()->setStringValue("PALETTE_JOB_FOLDER", path("other"));
    open();
    EXPECT_EQ(palette("Wood")->colors().size(), 1u);

    const QString standard = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    put(path("file"), "no folder");
    for (const QString& useless : {path("file/below"), QStringLiteral("relative")}) {
        tuPref()->setStringValue("PALETTE_ENVIRONMENT_FOLDER", useless);
        EXPECT_TRUE(logged([&] { file(CM_Environment, "Sky"); }).contains("PALETTE_ENVIRONMENT_FOLDER"));
        EXPECT_TRUE(file(CM_Environment, "Sky").startsWith(standard));
    }
}

TEST_F(PalettePathTest, ALocationIsToldOfAFolder)
{
    const int arm = addElement("Arm");
    EXPECT_EQ(location(path("project/palette-library")), CM_Scene);
    EXPECT_EQ(location(path("project/palette-library/.deleted")), CM_Backup);
    EXPECT_EQ(location(folder(arm) + "/palette-library"), CM_Element);
    EXPECT_EQ(location(folder(arm) + "/more"), CM_ElementOther);
    EXPECT_EQ(location(file(CM_Job, "x").chopped(6)), CM_Job);
    EXPECT_EQ(location(file(CM_Environment, "x").chopped(6)), CM_Environment);
    EXPECT_EQ(location(path()), CM_Scene);
    EXPECT_EQ(location(path() + "s"), CM_External);
    EXPECT_EQ(location("/"), CM_External);
}

TEST_F(PalettePathTest, AnElementHasAListOnceItIsAskedFor)
{
    const int arm = addElement("Arm");
    EXPECT_EQ(manager().GetPaletteListFromPath(folder(arm), false), nullptr);
    EXPECT_EQ(manager().GetPaletteListFromPath(path("project/nothing"), true), nullptr);
    const List own = manager().GetPaletteListFromPath(folder(arm), true);
    ASSERT_TRUE(own);
    EXPECT_EQ(own->type(), CM_PaletteList::kElement);
    EXPECT_EQ(manager().paletteLists().size(), 2u);
    EXPECT_EQ(CM_PaletteListPathProject(common(), CM_Element, unsigned(arm)).path().ToString(), own->GetPath());

    const auto palette = std::make_shared<CM_Palette>(CM_PalettePathProject(common(), CM_Element, "Sleeve", arm));
    palette->AddDefaultColor();
    ASSERT_TRUE(own->InsertPalette(palette, -1));
    EXPECT_EQ(manager().SearchParentPalette(palette->GetColorId(0)), palette->GetID());
    EXPECT_EQ(manager().SearchParentPaletteList(palette->GetID()), own->GetID());
    save();
    EXPECT_TRUE(QFile::exists(folder(arm) + "/palette-library/Sleeve.plt"));
    EXPECT_TRUE(QFile::exists(folder(arm) + "/palette-library/palette-list.json"));

    reopen();
    ASSERT_EQ(manager().paletteLists().size(), 2u);
    EXPECT_EQ(manager().paletteLists().back()->GetID(), own->GetID());
    EXPECT_EQ(manager().SearchParentPalette(palette->GetColorId(0)), palette->GetID());
    QString error;
    ASSERT_TRUE(projects().saveProjectAs(path("copy"), error)) << error.toStdString();
    EXPECT_TRUE(folder(arm).startsWith(path("copy")));
    EXPECT_TRUE(QFile::exists(folder(arm) + "/palette-library/Sleeve.plt"));
    EXPECT_EQ(manager().GetPalette(palette->GetID())->GetPath().filename(true),
              folder(arm) + "/palette-library/Sleeve.plt");
    const Files saved = FolderTest::filesOf(path("copy"));
    save();
    EXPECT_EQ(FolderTest::filesOf(path("copy")), saved);
}

TEST_F(PalettePathTest, TheListOfARemovedElementIsDeletedUntilTheElementIsBack)
{
    const int arm = addElement("Arm");
    const List own = manager().GetPaletteListFromPath(folder(arm), true);
    common()->commandManager()->unexecute(1);
    EXPECT_EQ(manager().paletteLists().size(), 1u);
    EXPECT_EQ(own->state(), CM_PaletteList::kDeleted);
    common()->commandManager()->reexecute(1);
    EXPECT_EQ(manager().paletteLists().size(), 2u);
    EXPECT_EQ(manager().paletteLists().back(), own);
    EXPECT_EQ(own->state(), CM_PaletteList::kLive);

    const auto palette = std::make_shared<CM_Palette>(CM_PalettePathProject(common(), CM_Element, "Sleeve", arm));
    palette->AddDefaultColor();
    ASSERT_TRUE(own->InsertPalette(palette, -1));
    save();
    common()->commandManager()->unexecute(1);
    EXPECT_EQ(manager().paletteLists().size(), 1u);
    close();
    EXPECT_TRUE(QFile::exists(palette->GetPath().filename(true)));
}

TEST_F(PalettePathTest, NewPathsAreNobodysElse)
{
    const CM_PalettePathGen& paths = *CM_PalettePathGen::GetInstance();
    EXPECT_EQ(paths.Generate("Palette", path()).filename(true), library() + "Palette.plt");
    QDir().mkpath(library());
    put(library() + "Palette.plt", "x");
    EXPECT_EQ(paths.Generate("Palette", path()).filename(true), library() + "Palette_1.plt");
    EXPECT_TRUE(manager().PaletteExists(CM_PalettePathFile(library() + "Palette")));
    add("Palette_1");
    EXPECT_EQ(paths.Generate(library() + "Palette", path()).filename(true), library() + "Palette_2.plt");
    EXPECT_EQ(manager().GenerateUniquePaletteName(library() + "Palette.plt"), library() + "Palette_2.plt");
    EXPECT_EQ(manager().GenerateUniquePaletteName(library() + "New"), library() + "New");
}
