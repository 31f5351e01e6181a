#include "engine/palettes/palettesave.h"

#include "tests/engine/palettes/palettetest.h"

#include <QDir>
#include <QFile>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using brindle::engine::Checksum;
using brindle::engine::SaveJournal;
namespace save_stage = brindle::engine::save_stage;

class PaletteSaveTest : public PaletteProjectTest {
public:
    PaletteSaveTest()
    {
        add("Skin");
        save();
        reopen();
        palette("Skin");
    }
    QString file(const QString& name = QStringLiteral("Skin")) const
    {
        return library() + name + QStringLiteral(".plt");
    }
    /// Another program adds a colour to the file.
    void changeOnDisk(const QByteArray& name = "Theirs")
    {
        put(file(), get(file()) + UT_Id::Generate().AsString().toUtf8() + " solid \"" + name + "\" 00ff00ff\n");
    }
    QString inQuotes(const QString& path) const { return u'"' + path + u'"'; }
};

TEST_F(PaletteSaveTest, AVersionOfAnotherProgramIsKeptWhereBothHaveChanged)
{
    changeOnDisk();
    const QByteArray theirs = get(file());
    palette("Skin")->GetColor(0)->Rename("Ours");
    EXPECT_EQ(logged([&] { save(); }), "Error: " + inQuotes(file()) +
                                           " was changed by another program as well: that "
                                           "version is kept in " +
                                           inQuotes(file("Skin-other")) + ".");
    EXPECT_EQ(get(file("Skin-other")), theirs);
    EXPECT_TRUE(get(file()).contains("\"Ours\""));
    EXPECT_FALSE(get(file()).contains("Theirs"));

    changeOnDisk();
    palette("Skin")->GetColor(0)->Rename("Ours again");
    logged([&] { save(); });
    EXPECT_TRUE(get(file("Skin-other_1")).contains("Theirs"));
    EXPECT_EQ(get(file("Skin-other")), theirs);
    EXPECT_EQ(logged([&] { save(); }), "");
}

TEST_F(PaletteSaveTest, AVersionOfAnotherProgramStaysWhereThePaletteHasNotChanged)
{
    changeOnDisk();
    const Files theirs = files();
    EXPECT_EQ(logged([&] { save(); }), "Error: " + inQuotes(file()) +
                                           " was changed by another program. The project has "
                                           "not changed this palette and leaves it so.");
    EXPECT_EQ(files(), theirs);
    EXPECT_EQ(logged([&] { save(); }), "");

    palette("Skin")->GetColor(0)->Rename("Ours");
    logged([&] { save(); });
    EXPECT_EQ(get(file("Skin-other")), theirs.value("palette-library/Skin.plt"));
    EXPECT_TRUE(get(file()).contains("\"Ours\""));
}

TEST_F(PaletteSaveTest, TexturesAreKeptWithTheOtherVersion)
{
    const auto wood = texture("Wood", 2, Qt::red);
    palette("Skin")->AddColor(wood);
    save();
    const QString name = wood->GetID().AsString() + ".png";
    const QByteArray theirs = texture("Theirs", 5, Qt::blue)->GetBitmap()->Png();
    put(library() + "Skin_textures/" + name, theirs);
    wood->ChangeTexture(wood->GetBitmap()->Scaled(3, 3));
    EXPECT_TRUE(logged([&] { save(); }).contains("Skin-other.plt"));
    EXPECT_EQ(get(library() + "Skin-other_textures/" + name), theirs);
    EXPECT_EQ(get(library() + "Skin_textures/" + name), wood->GetBitmap()->Png());
}

TEST_F(PaletteSaveTest, APaletteWhoseFileIsGoneIsWrittenAnew)
{
    palette("Skin")->AddColor(texture("Wood", 2));
    save();
    const Files saved = files();
    QFile::remove(file());
    QDir(library() + "Skin_textures").removeRecursively();
    EXPECT_EQ(logged([&] { save(); }),
              "Error: " + inQuotes(file()) + " was removed by another program; it is written anew.");
    EXPECT_EQ(files(), saved);
}

TEST_F(PaletteSaveTest, AFileThatIsTouchedIsNoChange)
{
    QFile touched(file());
    ASSERT_TRUE(touched.open(QIODevice::ReadWrite));
    touched.setFileTime(QDateTime::currentDateTime().addSecs(10), QFileDevice::FileModificationTime);
    touched.close();
    EXPECT_EQ(logged([&] { save(); }), "");
}

TEST_F(PaletteSaveTest, ADamagedFileIsNeverLost)
{
    close();
    const QByteArray damaged = get(file()).chopped(3);
    put(file(), damaged);
    open();
    const QString sentence = logged([&] { EXPECT_TRUE(palette("Skin")->colors().empty()); });
    EXPECT_TRUE(sentence.startsWith("Error: " + inQuotes(file()) + " is damaged at line 3")) << sentence.toStdString();
    const Files before = files();
    save();
    EXPECT_EQ(files(), before);

    palette("Skin")->AddColor(solid("New"));
    EXPECT_EQ(logged([&] { save(); }), "Error: " + inQuotes(file()) + " could not be read: the file is kept in " +
                                           inQuotes(file("Skin-other")) + ".");
    EXPECT_EQ(get(file("Skin-other")), damaged);
    reopen();
    EXPECT_EQ(names(*palette("Skin")), QStringList("New"));
}

TEST_F(PaletteSaveTest, AFileOfANewerVersionIsToldAndStays)
{
    close();
    put(file(), get(file()).replace("brindle-palette 1", "brindle-palette 2"));
    const Files before = files();
    open();
    EXPECT_EQ(logged([&] { palette("Skin"); }),
              "Error: " + inQuotes(file()) +
                  " has format version 2, and this version of the application reads version 1.");
    save();
    EXPECT_EQ(files(), before);
    QString error;
    ASSERT_TRUE(projects().saveProjectAs(path("copy"), error));
    EXPECT_EQ(get(path("copy/palette-library/Skin.plt")), before.value("palette-library/Skin.plt"));
}

TEST_F(PaletteSaveTest, ATextureThatCantBeReadIsToldAndItsFileStays)
{
    const auto wood = texture("Wood", 1);
    palette("Skin")->AddColor(wood);
    save();
    close();
    const QString png = library() + "Skin_textures/" + wood->GetID().AsString() + ".png";
    // A PNG tells its size ahead of its pixels: 30,000 at a side.
    QByteArray huge = get(png);
    huge.replace(16, 8, QByteArray::fromHex("0000753000007530"));
    put(png, huge);
    open();
    EXPECT_TRUE(
        logged([&] { palette("Skin"); }).contains(inQuotes(png) + " is no PNG file of up to 16384 x 16384 pixels"));
    EXPECT_FALSE(CM_CastToTexture(palette("Skin")->GetColor(1))->GetBitmap());
    palette("Skin")->GetColor(1)->Rename("Oak");
    save();
    EXPECT_EQ(get(png), huge);
    QString error;
    ASSERT_TRUE(projects().saveProjectAs(path("copy"), error));
    EXPECT_EQ(get(path("copy/palette-library/Skin_textures/") + wood->GetID().AsString() + ".png"), huge);
    close();
    QFile::remove(png);
    open();
    EXPECT_EQ(logged([&] { palette("Skin"); }),
              "Error: " + inQuotes(png) + " is missing; the texture is kept without a picture.");
}

TEST_F(PaletteSaveTest, ADiskThatFillsUpLeavesTheFilesAndThePaletteAsTheyWere)
{
    const Files before = files();
    for (int number = 0; number < 2000; ++number)
        palette("Skin")->AddColor(solid(QStringLiteral("Colour %1").arg(number)));
    rlimit limit = {};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{20'000, limit.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    const QString projectError = saveError();
    QString paletteError;
    const bool isSaved = manager().SavePalette(palette("Skin"), &paletteError);
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(projectError, "Cannot save the project: " + inQuotes(file()) + " cannot be written: file too large.");
    EXPECT_FALSE(isSaved);
    EXPECT_EQ(paletteError, inQuotes(file()) + " cannot be written: file too large.");
    EXPECT_EQ(files(), before);
    EXPECT_EQ(palette("Skin")->colors().size(), 2001u);
    save();
    reopen();
    EXPECT_EQ(palette("Skin")->colors().size(), 2001u);
}

TEST_F(PaletteSaveTest, AFolderThatCantBeMadeRefusesThePalette)
{
    put(path("file"), "no folder");
    auto palette = std::make_shared<CM_Palette>(CM_PalettePathFile(path("file/below/Skin")));
    QString error;
    EXPECT_FALSE(manager().SavePalette(palette, &error));
    EXPECT_EQ(error, inQuotes(path("file/below")) + " cannot be made.");
    ASSERT_TRUE(list()->InsertPalette(palette, 0));
    const Files before = files();
    EXPECT_EQ(saveError(), "Cannot save the project: " + inQuotes(path("file/below")) + " cannot be made.");
    EXPECT_EQ(files(), before);
}

TEST_F(PaletteSaveTest, APaletteOutsideOfTheProjectIsSavedWhereItLies)
{
    const Palette outside = addAt(path("shared/deep/Prop"));
    outside->AddColor(texture("Wood", 2));
    save();
    EXPECT_TRUE(get(library() + "palette-list.json").contains(path("shared/deep/Prop.plt").toUtf8()));
    EXPECT_EQ(QDir(path("shared/deep")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList({"Prop.plt", "Prop_textures"}));
    const Files before = files();
    reopen();
    EXPECT_EQ(names(*palette("Prop")), QStringList({"Default", "Wood"}));
    QString error;
    ASSERT_TRUE(projects().saveProjectAs(path("copy"), error));
    EXPECT_EQ(palette("Prop")->GetPath().filename(true), path("shared/deep/Prop.plt"));
    EXPECT_FALSE(QFile::exists(path("copy/palette-library/Prop.plt")));
}

TEST_F(PaletteSaveTest, APaletteOfNoProjectIsSaved)
{
    close();
    auto palette = std::make_shared<CM_Palette>(CM_PalettePathFile(path("loose/Skin")));
    palette->AddColor(texture("Wood", 2));
    EXPECT_TRUE(manager().SavePalette(palette));
    QString error;
    const Palette read = CM_Palette::Open(palette->GetPath(), error);
    ASSERT_TRUE(read) << error.toStdString();
    EXPECT_EQ(read->GetID(), palette->GetID());
    EXPECT_TRUE(CM_CastToTexture(read->GetColor(0))->GetBitmap());
    EXPECT_FALSE(CM_Palette::Open(CM_PalettePathFile(path("loose/None")), error));
    EXPECT_EQ(error, inQuotes(path("loose/None.plt")) + " is missing.");
}

TEST_F(PaletteSaveTest, AReadOnlyProjectWritesNothing)
{
    close();
    const Files before = files();
    QString error;
    ASSERT_TRUE(projects().openProjectReadOnly(path(), error));
    const Palette made = add("Made");
    EXPECT_EQ(names(*palette("Skin")), QStringList("Default"));
    QString holder;
    EXPECT_FALSE(manager().LockPalette(palette("Skin"), &holder));
    EXPECT_EQ(holder, inQuotes(path()) + " is open read-only.");
    EXPECT_EQ(files(), before);
    ASSERT_TRUE(projects().saveProjectAs(path("copy"), error)) << error.toStdString();
    close();
    EXPECT_EQ(files(), before);
    open("copy");
    EXPECT_EQ(names(*palette("Made")), QStringList("Default"));
}

TEST_F(PaletteSaveTest, AnInterruptedSaveIsReadAsItHappened)
{
    addAt(path("shared/Prop"));
    save();
    close();
    // The state in which a process is killed between the journal and the move of the new file to its place.
    const auto interrupt = [&](const QString& folder, const QString& name) {
        const QByteArray old = get(folder + u'/' + name);
        const QByteArray saved = QByteArray(old).replace("\"Default\"", "\"Saved\"");
        QDir().mkpath(folder + u'/' + save_stage::folder);
        put(folder + u'/' + save_stage::part(0), saved);
        put(folder + u'/' + save_stage::kept(0), old);
        SaveJournal journal;
        journal.files.push_back({name, Checksum::of(old), Checksum::of(saved)});
        put(folder + u'/' + save_stage::journal, journal.text());
    };
    interrupt(path(), "palette-library/Skin.plt");
    interrupt(path("shared"), "Prop.plt");
    const Files before = FolderTest::filesOf(path("."));
    QString error;
    ASSERT_TRUE(projects().openProjectReadOnly(path(), error)) << error.toStdString();
    EXPECT_EQ(names(*palette("Skin")), QStringList("Saved"));
    EXPECT_EQ(FolderTest::filesOf(path(".")), before);
    close();

    open();
    EXPECT_EQ(names(*palette("Skin")), QStringList("Saved"));
    EXPECT_EQ(names(*palette("Prop")), QStringList("Saved"));
    EXPECT_FALSE(QFile::exists(path("project/.brindle-save")));
    EXPECT_FALSE(QFile::exists(path("shared/.brindle-save")));
}

TEST_F(PaletteSaveTest, PalettesWhoseSaveIsKilledAreTheOldOrTheNewOnesToTheByte)
{
    const auto wood = texture("Wood", 4, Qt::red);
    const auto stone = texture("Stone", 5, Qt::blue);
    palette("Skin")->AddColor(texture("Wood", 4, Qt::red));
    add("Cloth");
    // Names, a texture and the order of the list change to and fro.
    const auto change = [&](bool isSecond) {
        for (const char* name : {"Skin", "Cloth"})
            palette(name)->GetColor(0)->Rename(isSecond ? "Second" : "First");
        CM_CastToTexture(palette("Skin")->GetColor(1))->ChangeTexture((isSecond ? stone : wood)->GetBitmap());
        const Palette moved = palette("Cloth");
        list()->RemovePalette(moved->GetID());
        list()->InsertPalette(moved, isSecond ? 0 : 1);
    };
    Files states[2];
    for (const bool isSecond : {false, true}) {
        change(isSecond);
        save();
        close();
        states[isSecond] = files();
        open();
    }
    close();
    ASSERT_NE(states[0], states[1]);

    int seen[2] = {};
    std::mt19937 random(5);
    std::uniform_int_distribution<int> moment(3000, 25000);
    for (int round = 0; round < 60; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            open();
            for (bool isSecond = round % 2 == 0;; isSecond = !isSecond) {
                change(isSecond);
                saveError();
            }
        }
        std::this_thread::sleep_for(std::chrono::microseconds(moment(random)));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        open();
        save();
        close();
        const Files now = files();
        ASSERT_TRUE(now == states[0] || now == states[1]) << round;
        ++seen[now == states[1]];
    }
    EXPECT_GT(seen[0], 2);
    EXPECT_GT(seen[1], 2);
}
