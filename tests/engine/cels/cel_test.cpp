#include "core/host/ca_celref.h"
#include "core/host/cel_colorspace.h"
#include "core/host/pl_filespec.h"
#include "core/host/td_celbr3d.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using Cel = CEL_Representation;

CEL_RepresentationPtr picture(int width, int height, QRgb colour = qRgba(10, 20, 30, 255))
{
    QImage image(width, height, QImage::Format_RGBA8888);
    image.fill(QColor::fromRgba(colour));
    return std::make_shared<CEL_PixmapRGBA8>(image);
}

/// Halves all colours, and counts how often it is asked.
struct Halving final : CEL_ColorConverter {
    void convert(float* pixels, qsizetype count) const override
    {
        ++calls;
        for (qsizetype i = 0; i < count; ++i, pixels += 4) {
            for (int c = 0; c < 3; ++c)
                pixels[c] /= 2;
        }
    }
    mutable int calls = 0;
};

void touch(const QString& path)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("3D");
}

} // namespace

TEST(CelTest, AnEmptyCelHasNothing)
{
    const CA_CelPtr empty(CA_CelKey(CA_CelKeySpecial::emptyCel()), CEL_Context());
    ASSERT_TRUE(empty.cel());
    EXPECT_EQ(empty.cel()->realFormat(), Cel::EMPTY);
    EXPECT_FALSE(empty.cel()->findBestPixmapRepresentation());
    EXPECT_FALSE(empty.cel()->convertTo(Cel::PIXMAP_RGBA8));
    EXPECT_FALSE(CA_CelPtr(CA_CelKey(), CEL_Context()).cel());
    EXPECT_FALSE(CA_CelPtr(CA_CelKey(CA_CelKeyElement(1)), CEL_Context()).cel());
}

TEST(CelTest, WhatItIsConvertedToIsKept)
{
    CEL_Cel cel(picture(4, 3));
    EXPECT_EQ(cel.realFormat(), Cel::PIXMAP_RGBA8);
    EXPECT_FALSE(cel.findRepresentation(Cel::PIXMAP_RGBA16));
    const CEL_RepresentationPtr made = cel.convertTo(Cel::PIXMAP_RGBA16);
    EXPECT_EQ(cel.findRepresentation(Cel::PIXMAP_RGBA16), made);
    EXPECT_EQ(cel.convertTo(Cel::PIXMAP_RGBA16), made);
    EXPECT_EQ(cel.findBestPixmapRepresentation(), made) << "16 bits are more than 8";
    EXPECT_EQ(cel.realFormat(), Cel::PIXMAP_RGBA8);
    cel.setRepresentation(picture(2, 2));
    EXPECT_FALSE(cel.findRepresentation(Cel::PIXMAP_RGBA16)) << "it was another picture's";
}

TEST(CelTest, WhatStandsBesideStaysWithANewMainRepresentation)
{
    CEL_Cel cel;
    const auto depths = std::make_shared<CEL_PixmapZBuf>(1, 1, std::vector<float>{0.5f});
    cel.addRepresentation(depths);
    EXPECT_EQ(cel.realFormat(), Cel::EMPTY);
    cel.setRepresentation(picture(1, 1));
    EXPECT_EQ(cel.findRepresentation(Cel::PIXMAP_AREA_ZBUF), depths);
    const auto others = std::make_shared<CEL_PixmapZBuf>(1, 1, std::vector<float>{0.7f});
    cel.addRepresentation(others);
    EXPECT_EQ(cel.findRepresentation(Cel::PIXMAP_AREA_ZBUF), others);
}

TEST(CelTest, ReferencesCount)
{
    struct Watched final : CEL_Cel {
        explicit Watched(bool& gone) : gone(gone) {}
        ~Watched() override { gone = true; }
        bool& gone;
    };
    bool isGone = false;
    CA_CelRef one(new Watched(isGone), CEL_Context(2.0, 7));
    CA_CelRef other = one;
    one.setCel(nullptr);
    EXPECT_FALSE(isGone);
    EXPECT_EQ(other.context(), CEL_Context(2.0, 7));
    other = CA_CelRef();
    EXPECT_TRUE(isGone);
}

TEST(CelTest, ColoursAreConvertedOnceAndAtTheirFirstUse)
{
    const auto halving = std::make_shared<Halving>();
    CA_CelRef source(new CEL_Cel(picture(3, 2, qRgba(200, 100, 50, 128))));
    CA_CelRef cel(new CS_Cel(source.cel(), halving, {}));
    EXPECT_EQ(halving->calls, 0);
    EXPECT_FALSE(cel.cel()->findBestPixmapRepresentation());
    EXPECT_EQ(cel.cel()->realFormat(), Cel::PIXMAP_RGBA8);
    const auto bytes = std::static_pointer_cast<const CEL_PixmapRGBA8>(cel.cel()->convertTo(Cel::PIXMAP_RGBA8));
    EXPECT_EQ(std::vector<int>(bytes->pixel(1, 1), bytes->pixel(1, 1) + 4), (std::vector{100, 50, 25, 128}))
        << "colours aren't those that alpha was multiplied into";
    cel.cel()->convertTo(Cel::PIXMAP_RGBA16);
    cel.cel()->convertTo(Cel::PIXMAP_RGBA_FLOAT);
    EXPECT_EQ(halving->calls, 2) << "a row each, once";
    EXPECT_FALSE(source.cel()->findRepresentation(Cel::PIXMAP_RGBA16)) << "the other cel is as it was";
}

TEST(CelTest, AnAreaInOtherColoursStaysInItsPlace)
{
    QImage box(2, 2, QImage::Format_RGBA64_Premultiplied);
    box.fill(QColor(200, 100, 50));
    CA_CelRef source(new CEL_Cel(std::make_shared<CEL_PixmapArea>(box, QPoint(3, 4), QSize(9, 9))));
    CA_CelRef cel(new CS_Cel(source.cel(), std::make_shared<Halving>(), {}));
    const auto area = std::dynamic_pointer_cast<const CEL_PixmapArea>(cel.cel()->convertTo(Cel::PIXMAP_AREA_RGBA16));
    ASSERT_TRUE(area);
    EXPECT_EQ(std::pair(area->allocatedX1(), area->allocatedY1()), std::pair(3, 4));
    EXPECT_EQ(area->image().pixelColor(0, 0), QColor(100, 50, 25));
}

TEST(CelTest, A3dObjectIsItsDataFile)
{
    const QTemporaryDir folder;
    TD_CelBr3d object(1, QString(), -1.0);
    const auto load = [&](const QString& path) { return object.Load(UT_RelPath(path.toLatin1()), CEL_Context()); };
    EXPECT_FALSE(load(folder.path())) << "a folder without one";
    touch(folder.filePath("a.osb"));
    touch(folder.filePath("a.txt"));
    EXPECT_TRUE(load(folder.path()));
    EXPECT_EQ(object.getDataFileSpec().GetFilePath(), folder.filePath("a.osb"));
    EXPECT_FALSE(load(folder.filePath("a.txt")));
    touch(folder.filePath("b.osb"));
    EXPECT_FALSE(load(folder.path())) << "which of the two?";
    EXPECT_TRUE(load(folder.filePath("b.osb")));
    EXPECT_FALSE(load(folder.filePath("c.osb")));
    EXPECT_EQ(object.getDataFileSpec().GetFilePath(), folder.filePath("b.osb")) << "as before the failure";
}

TEST(FileSpecTest, ASecondNameLeadsToTheSameFile)
{
    const QTemporaryDir folder;
    touch(folder.filePath("a"));
    touch(folder.filePath("taken"));
    const PL_FileSpec file(folder.filePath("a"));
    EXPECT_TRUE(file.HardLink(PL_FileSpec(folder.filePath("b")), false));
    EXPECT_EQ(QFileInfo(folder.filePath("b")).size(), 2);
    EXPECT_FALSE(file.HardLink(PL_FileSpec(folder.filePath("taken")), false));
    EXPECT_TRUE(file.HardLink(PL_FileSpec(folder.filePath("taken")), true));
    EXPECT_FALSE(file.HardLink(PL_FileSpec(folder.filePath("no/such")), false));
    EXPECT_FALSE(PL_FileSpec(folder.filePath("none")).HardLink(PL_FileSpec(folder.filePath("c")), true));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList({"a", "b", "taken"}));
}

TEST(FileSpecTest, TemporaryNamesGoWithTheirFolder)
{
    QString name;
    {
        PL_TemporaryDir folder;
        name = folder.generateTemporaryName("png");
        EXPECT_TRUE(name.endsWith(".png"));
        EXPECT_NE(name, folder.generateTemporaryName("png"));
        EXPECT_FALSE(QFileInfo(folder.generateTemporaryName("")).fileName().contains('.'));
        touch(name);
    }
    EXPECT_FALSE(QFileInfo::exists(QFileInfo(name).path()));
}
