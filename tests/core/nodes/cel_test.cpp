#include "core/nodes/cel.h"

#include "core/geometry/rectangles.h"
#include "core/host/cel_colorspace.h"
#include "core/host/td_celbr3d.h"
#include "tests/core/support/failure.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using Format = CEL_Representation;

QImage plain(int width, int height, const QColor& colour = Qt::black)
{
    QImage image(width, height, QImage::Format_RGBA8888);
    image.fill(colour);
    return image;
}

CEL_Cel* celOf(const QImage& image)
{
    return new CEL_Cel(std::make_shared<CEL_PixmapRGBA8>(image));
}

/// A cel of which no area can be made.
struct Arealess final : CEL_Cel {
    using CEL_Cel::CEL_Cel;
    CEL_RepresentationPtr make(Format::CelFormat format) override
    {
        return format == Format::PIXMAP_AREA_RGBA16 ? nullptr : CEL_Cel::make(format);
    }
};

OMC::AllocatedRect2DI rectangleIn(const OMC::Obj& object)
{
    const auto* rectangle = dynamic_cast<const OMC::AllocatedRect2DI*>(object.get());
    return rectangle ? *rectangle : OMC::AllocatedRect2DI(-1, -1, -1, -1);
}

using Rectangle = OMC::AllocatedRect2DI;

} // namespace

TEST(CelWrapperTest, AHolderOfNothingSaysSo)
{
    OMC::Cel cel(static_cast<CEL_Cel*>(nullptr));
    const std::string gone = "Object is no longer valid.";
    EXPECT_EQ(failureOf([&] { cel.getRect(); }), gone);
    EXPECT_EQ(failureOf([&] { cel.getAllocatedRect(); }), gone);
    EXPECT_EQ(failureOf([&] { cel.getCel3D(); }), gone);
    EXPECT_EQ(failureOf([&] { cel.__str__(); }), gone);
    EXPECT_EQ(failureOf([&] { cel.write(); }), gone);
    EXPECT_EQ(failureOf([&] { cel.write("a.png"); }), gone);
    EXPECT_EQ(failureOf([&] { cel.write("a.png", "PIXMAP_RGBA8", ""); }), gone);
    EXPECT_EQ(failureOf([&] { cel.workingCopy(); }), gone);
    EXPECT_EQ(failureOf([&] { cel.workingCopyAs("png", "", ""); }), gone);
    EXPECT_FALSE(cel.compare(&cel)) << "and compares without a word";
    cel.setEmpty();
    EXPECT_EQ(cel.__str__(), "Cel(Unknown)");
}

TEST(CelWrapperTest, ARectangleIsSquareAndAnAllocatedOneIsNot)
{
    const OMC::Cel cel(celOf(plain(100, 50)));
    EXPECT_EQ(rectangleIn(cel.getRect()), Rectangle(100, 100, 0, 0));
    EXPECT_EQ(cel.__str__(), "Cel(Unknown)");
    EXPECT_EQ(rectangleIn(cel.getAllocatedRect()), Rectangle(100, 50, 0, 0));
    EXPECT_EQ(cel.__str__(), "Cel(100, 50)") << "an area was made";
    const OMC::Cel arealess(new Arealess(std::make_shared<CEL_PixmapRGBA8>(plain(100, 50))));
    EXPECT_EQ(rectangleIn(arealess.getAllocatedRect()), Rectangle(100, 50, 0, 0));
    EXPECT_EQ(arealess.__str__(), "Cel(Unknown)");
}

TEST(CelWrapperTest, AnAreaKeepsItsPlace)
{
    const QImage box = plain(4, 3, Qt::red);
    const OMC::Cel cel(new CEL_Cel(std::make_shared<CEL_PixmapArea>(box, QPoint(7, -2), QSize(60, 40))));
    EXPECT_EQ(cel.__str__(), "Cel(4, 3)");
    EXPECT_EQ(rectangleIn(cel.getAllocatedRect()), Rectangle(4, 3, 7, -2));
    EXPECT_EQ(rectangleIn(cel.getRect()), Rectangle(60, 60, 0, 0));
}

TEST(CelWrapperTest, ACelWithoutPixelsHasNoRectangles)
{
    OMC::Cel cel(new CEL_Cel);
    EXPECT_FALSE(cel.getRect().get());
    EXPECT_FALSE(cel.getAllocatedRect().get());
    EXPECT_FALSE(cel.getCel3D());
    EXPECT_FALSE(cel.compare(&cel));
    EXPECT_FALSE(cel.compare(nullptr));
    EXPECT_FALSE(cel.compareExr(nullptr));
}

namespace {

/// Two pictures that differ in one pixel, and what the compares make of them.
struct Difference {
    const char* name;
    int x;
    int y;
    QColor colour;
    bool equals;
    bool equalsExr;
};

const Difference differences[] = {
    {"nothing", 2, 2, QColor(100, 100, 100, 200), true, true},
    {"first column", 0, 2, QColor(0, 0, 0, 0), true, true},
    {"first row", 2, 0, QColor(0, 0, 0, 0), true, true},
    {"last pixel", 3, 2, QColor(0, 0, 0, 200), false, false},
    {"red by one", 1, 1, QColor(101, 100, 100, 200), false, true},
    {"blue by minus one", 1, 1, QColor(100, 100, 99, 200), false, true},
    {"green by two", 1, 1, QColor(100, 102, 100, 200), false, false},
    {"alpha by one", 1, 1, QColor(100, 100, 100, 201), true, true},
    {"alpha by two", 1, 1, QColor(100, 100, 100, 202), true, false},
};

} // namespace

TEST(CelWrapperTest, PicturesCompareBehindTheirFirstColumnAndRow)
{
    for (const Difference& difference : differences) {
        const QImage image = plain(4, 3, QColor(100, 100, 100, 200));
        QImage other = image;
        other.setPixelColor(difference.x, difference.y, difference.colour);
        const OMC::Cel one(celOf(image));
        const OMC::Cel two(celOf(other));
        EXPECT_EQ(one.compare(&two), difference.equals) << difference.name;
        EXPECT_EQ(two.compareExr(&one), difference.equalsExr) << difference.name;
    }
}

TEST(CelWrapperTest, SizesHaveToAgreeAndThinPicturesAlwaysEqual)
{
    const OMC::Cel wide(celOf(plain(4, 3)));
    const OMC::Cel high(celOf(plain(3, 4)));
    EXPECT_FALSE(wide.compare(&high));
    EXPECT_FALSE(wide.compareExr(&high));
    const OMC::Cel thinRed(celOf(plain(1, 9, Qt::red)));
    const OMC::Cel thinBlue(celOf(plain(1, 9, Qt::blue)));
    EXPECT_TRUE(thinRed.compare(&thinBlue));
    EXPECT_TRUE(thinRed.compareExr(&thinBlue));
}

TEST(CelWrapperTest, ColourSpacesNeedASession)
{
    OMC::Cel cel(celOf(plain(2, 2)));
    SC_SessionContext* session = PLUG_Services::getSessionContext();
    PLUG_Services::setSessionContext(nullptr);
    EXPECT_EQ(failureOf([&] { cel.convertColorSpace("sRGB", "ACEScg"); }), "An unexpected error has occurred.");

    /// A host without colours.
    struct Plain final : SC_SessionContext {
        SC_ProjectManager* projectManager() const override { return nullptr; }
        SC_ProjectCommon* projectCommon() const override { return nullptr; }
        CO_CommandManager* commandManager() const override { return nullptr; }
        TUSceneChangeManager* changeManager() const override { return nullptr; }
        SCP_PythonEngine* pythonEngine() const override { return nullptr; }
    } plainSession;
    PLUG_Services::setSessionContext(&plainSession);
    EXPECT_EQ(failureOf([&] { cel.convertColorSpace("sRGB", "ACEScg"); }), "Unable to find the colorspace manager.");
    PLUG_Services::setSessionContext(session);
}

TEST(CelWrapperTest, A3dObjectIsWrittenAsASecondNameOfItsFile)
{
    const QTemporaryDir folder;
    QFile data(folder.filePath("model.osb"));
    ASSERT_TRUE(data.open(QIODevice::WriteOnly));
    data.write("3D");
    data.close();
    OMC::Cel cel(new CEL_Cel);
    cel.setImageFile(folder.filePath("model.osb"));
    ASSERT_TRUE(cel.getCel3D());
    EXPECT_EQ(cel.write(), folder.filePath("model.osb"));
    cel.write(folder.filePath("second.osb"));
    EXPECT_EQ(QFileInfo(folder.filePath("second.osb")).size(), 2);
    cel.write(folder.filePath("no/such/third.osb"), "PIXMAP_RGBA8", "quality=5");
    EXPECT_FALSE(QFileInfo::exists(folder.filePath("no")));
    const QString copy = cel.workingCopy();
    EXPECT_TRUE(copy.endsWith(".osb"));
    EXPECT_EQ(QFileInfo(copy).size(), 2);
    EXPECT_TRUE(cel.workingCopyAs("dat", "", "").endsWith(".dat"));
    EXPECT_EQ(cel.__str__(), "Cel(Unknown)");
    EXPECT_FALSE(cel.getRect().get());

    cel.setImageFile(folder.filePath("gone.osb"));
    EXPECT_FALSE(cel.getCel3D()) << "a file that isn't there makes an empty cel";
    EXPECT_EQ(failureOf([&] { cel.write(); }), "Unsupported 2D Cel write - supply a path and format.");
}

TEST(CelWrapperTest, TheFolderOfAPictureHasNoPicture)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(plain(5, 5).save(folder.filePath("p.png")));
    OMC::Cel cel(celOf(plain(9, 9)));
    cel.setImageFile(folder.filePath("p.png"));
    EXPECT_EQ(rectangleIn(cel.getAllocatedRect()), Rectangle(9, 9, 0, 0)) << "the cel stays as it was";
}

TEST(CelWrapperTest, CopiesShareTheCel)
{
    const OMC::Cel cel(celOf(plain(5, 4)));
    const std::unique_ptr<OMC::Cel> copy(cel.copy());
    EXPECT_EQ(copy->cel(), cel.cel());
    copy->setEmpty();
    EXPECT_EQ(rectangleIn(cel.getAllocatedRect()), Rectangle(5, 4, 0, 0)) << "each may hold another one";
}
