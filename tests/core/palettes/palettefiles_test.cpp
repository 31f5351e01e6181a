#include "core/palettes/palettefiles.h"

#include "tests/core/support/failure.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

class PaletteFilesTest : public testing::Test {
protected:
    QString path(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    void write(const char* name) const
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    bool exists(const char* name) const { return QFile::exists(path(name)); }
    OMC::PaletteFiles files(bool movable = true) const
    {
        return OMC::PaletteFiles(CM_PalettePathFile(path("Hero.plt")), movable);
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(PaletteFilesTest, AFreePathIsCountedUp)
{
    EXPECT_EQ(OMC::uniquePath(path("Hero.plt")), path("Hero.plt"));
    write("Hero.plt");
    write("Hero_1.plt");
    EXPECT_EQ(OMC::uniquePath(path("Hero.plt")), path("Hero_2.plt"));
    write("Hero");
    EXPECT_EQ(OMC::uniquePath(path("Hero")), path("Hero_1"));
}

TEST_F(PaletteFilesTest, FileAndTexturesMoveAwayAndBack)
{
    write("Hero.plt");
    write("Hero_textures/a.png");
    write(".deleted/Hero.plt");
    OMC::PaletteFiles moved = files();
    moved.moveAway();
    EXPECT_TRUE(moved.areAway());
    EXPECT_TRUE(exists(".deleted/Hero_1.plt") && exists(".deleted/Hero_1_textures/a.png"));
    EXPECT_FALSE(exists("Hero.plt") || exists("Hero_textures"));
    moved.moveBack();
    EXPECT_FALSE(moved.areAway());
    EXPECT_TRUE(exists("Hero.plt") && exists("Hero_textures/a.png") && exists(".deleted/Hero.plt"));
    EXPECT_FALSE(exists(".deleted/Hero_1.plt"));
}

TEST_F(PaletteFilesTest, TexturesThatCannotMoveKeepTheFileInItsPlace)
{
    write("Hero.plt");
    write("Hero_textures/a.png");
    write(".deleted/Hero_textures");
    OMC::PaletteFiles moved = files();
    EXPECT_NE(failureOf([&] { moved.moveAway(); }), passes);
    EXPECT_FALSE(moved.areAway());
    EXPECT_TRUE(exists("Hero.plt") && exists("Hero_textures/a.png"));
}

TEST_F(PaletteFilesTest, AFileInTheWayOfTheReturnIsKept)
{
    write("Hero.plt");
    OMC::PaletteFiles moved = files();
    moved.moveAway();
    write("Hero.plt");
    EXPECT_NE(failureOf([&] { moved.moveBack(); }), passes);
    EXPECT_TRUE(moved.areAway());
    EXPECT_TRUE(exists(".deleted/Hero.plt"));
}

TEST_F(PaletteFilesTest, WithoutAFileOrAProjectThatMayWriteNothingMoves)
{
    OMC::PaletteFiles none = files();
    none.moveAway();
    EXPECT_FALSE(none.areAway());
    write("Hero.plt");
    OMC::PaletteFiles fixed = files(false);
    fixed.moveAway();
    EXPECT_TRUE(exists("Hero.plt"));
    EXPECT_FALSE(fixed.areAway());
}

} // namespace
