#include "core/host/celio_manager.h"
#include "engine/cels/renderlibrary.h"

#include <QColorSpace>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <atomic>
#include <cmath>
#include <thread>

extern "C" const brindle::engine::RenderLibrary* brindleRenderLibrary();

namespace {

using Cel = CEL_Representation;

/// Every channel takes many values, with and without alpha.
QImage testBytes()
{
    QImage image(37, 21, QImage::Format_RGBA8888);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            uchar* pixel = image.scanLine(y) + 4 * x;
            const int alpha = x < 20 ? 255 : (x * 13 + y * 7) % 256;
            for (int c = 0; c < 3; ++c)
                pixel[c] = alpha == 0 ? uchar(0) : uchar((x * 31 + y * 17 + c * 85) % 256);
            pixel[3] = uchar(alpha);
        }
    }
    return image;
}

/// 16 bits a channel that no 8 bits can tell, multiplied by alpha.
QImage testWords()
{
    QImage image(19, 11, QImage::Format_RGBA64_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<quint16*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x, row += 4) {
            row[3] = 65535;
            for (int c = 0; c < 3; ++c)
                row[c] = quint16(x * 3001 + y * 977 + c * 12345);
        }
    }
    return image;
}

class ImageFilesTest : public testing::Test {
protected:
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    bool write(const CEL_Pixmap& picture, const QString& to, const char* key, const QString& option = {},
               const QByteArray& profile = {}, const CELIO_WriteContext::Texts& texts = {})
    {
        m_error.clear();
        const CELIO_WriteContext context(to, option, profile, &texts, QVariant());
        return brindleRenderLibrary()->write(picture, context, key, m_error);
    }

    CEL_PixmapPtr read(const QString& from, const char* key)
    {
        m_error.clear();
        m_read.clear();
        m_profile.clear();
        if (!brindleRenderLibrary()->read(from, key, m_read, m_profile, m_error))
            return nullptr;
        return std::dynamic_pointer_cast<const CEL_Pixmap>(m_read.front());
    }

    QStringList filesInFolder() const { return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden); }

    QTemporaryDir m_folder;
    QString m_error;
    std::vector<CEL_RepresentationPtr> m_read;
    QByteArray m_profile;
};

struct ByteFormat {
    const char* key;
    const char* file;
};

class ByteFormatTest : public ImageFilesTest, public testing::WithParamInterface<ByteFormat> {};

} // namespace

TEST_P(ByteFormatTest, EightBitsComeBackAsTheyWere)
{
    const CEL_PixmapRGBA8 picture(testBytes());
    const QString file = path(GetParam().file);
    ASSERT_TRUE(write(picture, file, GetParam().key)) << m_error.toStdString();
    const CEL_PixmapPtr back = read(file, GetParam().key);
    ASSERT_TRUE(back) << m_error.toStdString();
    EXPECT_EQ(back->format(), Cel::PIXMAP_RGBA8);
    EXPECT_EQ(back->image(), picture.image());
    EXPECT_EQ(filesInFolder(), QStringList{GetParam().file}) << "nothing else is left";
}

INSTANTIATE_TEST_SUITE_P(Formats, ByteFormatTest,
                         testing::Values(ByteFormat{"PNG", "p.png"}, ByteFormat{"TIFF", "p.tif"},
                                         ByteFormat{"TGA", "p.tga"}),
                         [](const auto& info) { return std::string(info.param.key); });

TEST_F(ImageFilesTest, SixteenBitsComeBackAsTheyWere)
{
    const CEL_Pixmap picture(Cel::PIXMAP_RGBA16, testWords());
    for (const auto& [key, name] : {std::pair{"PNG", "p.png"}, {"TIFF", "p.tiff"}}) {
        ASSERT_TRUE(write(picture, path(name), key)) << m_error.toStdString();
        const CEL_PixmapPtr back = read(path(name), key);
        ASSERT_TRUE(back) << m_error.toStdString();
        EXPECT_EQ(back->format(), Cel::PIXMAP_RGBA16) << key;
        EXPECT_EQ(back->image(), picture.image()) << key;
    }
}

TEST_F(ImageFilesTest, FloatsComeBackAsTheyWereAndHalvesNearly)
{
    QImage image(9, 5, QImage::Format_RGBA32FPx4_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<float*>(image.scanLine(y));
        for (int i = 0; i < 4 * image.width(); ++i)
            row[i] = i % 4 == 3 ? 1.0f : float(i * 0.37 - 2 + y * 11.3);
    }
    const CEL_Pixmap picture(Cel::PIXMAP_RGBA_FLOAT, image);
    ASSERT_TRUE(write(picture, path("f.exr"), "OPENEXR", "depth=float,compression=piz")) << m_error.toStdString();
    CEL_PixmapPtr back = read(path("f.exr"), "OPENEXR");
    ASSERT_TRUE(back) << m_error.toStdString();
    EXPECT_EQ(back->format(), Cel::PIXMAP_RGBA_FLOAT);
    EXPECT_EQ(back->image(), image);

    ASSERT_TRUE(write(picture, path("h.exr"), "OPENEXR"));
    back = read(path("h.exr"), "OPENEXR");
    for (int y = 0; y < image.height(); ++y) {
        const auto* was = reinterpret_cast<const float*>(image.constScanLine(y));
        const auto* is = reinterpret_cast<const float*>(back->image().constScanLine(y));
        for (int i = 0; i < 4 * image.width(); ++i)
            EXPECT_NEAR(is[i], was[i], std::abs(was[i]) / 1024 + 1e-6);
    }
    EXPECT_LT(QFileInfo(path("h.exr")).size(), QFileInfo(path("f.exr")).size());
}

TEST_F(ImageFilesTest, AnAreaIsWrittenAsTheWholePicture)
{
    const CEL_PixmapArea area(testWords(), QPoint(5, -3), QSize(30, 20));
    ASSERT_TRUE(write(area, path("a.png"), "PNG"));
    const CEL_PixmapPtr back = read(path("a.png"), "PNG");
    EXPECT_EQ(back->image().size(), QSize(30, 20));
    EXPECT_EQ(back->image().pixel(4, 4), 0u);
    EXPECT_EQ(back->image().copy(5, 0, 19, 8), area.image().copy(0, 3, 19, 8));
}

TEST_F(ImageFilesTest, APngHasTheDepthThatIsAskedFor)
{
    const CEL_PixmapArea area(testWords(), QPoint(-4, 5), QSize(30, 70));
    ASSERT_TRUE(write(area, path("8.png"), "PNG", "depth=8")) << m_error.toStdString();
    const CEL_PixmapPtr bytes = read(path("8.png"), "PNG");
    EXPECT_EQ(bytes->format(), Cel::PIXMAP_RGBA8);
    EXPECT_EQ(bytes->image(), area.converted(Cel::PIXMAP_RGBA8)->image());
    ASSERT_TRUE(write(*bytes, path("16.png"), "PNG", "depth=16")) << m_error.toStdString();
    const CEL_PixmapPtr words = read(path("16.png"), "PNG");
    EXPECT_EQ(words->format(), Cel::PIXMAP_RGBA16);
    EXPECT_EQ(words->converted(Cel::PIXMAP_RGBA8)->image(), bytes->image());
}

TEST_F(ImageFilesTest, MattesAreGreyInPng)
{
    QImage matte(4, 2, QImage::Format_Alpha8);
    matte.fill(77);
    ASSERT_TRUE(write(CEL_Pixmap(Cel::PIXMAP_MATTE8, matte), path("m.png"), "PNG"));
    QImageReader reader(path("m.png"));
    EXPECT_EQ(reader.imageFormat(), QImage::Format_Grayscale8);
    EXPECT_EQ(qRed(reader.read().pixel(2, 1)), 77);
    ASSERT_TRUE(write(CEL_Pixmap(Cel::PIXMAP_MATTE16, matte), path("n.png"), "PNG"));
    const CEL_PixmapPtr back = read(path("n.png"), "PNG");
    EXPECT_EQ(back->format(), Cel::PIXMAP_RGBA16) << "a file's grey is a colour";
    EXPECT_EQ(back->image().pixelColor(0, 0), QColor(77, 77, 77));
}

TEST_F(ImageFilesTest, JpegShowsThePictureOverBlack)
{
    QImage image(16, 16, QImage::Format_RGBA8888);
    image.fill(QColor(200, 100, 50, 128));
    ASSERT_TRUE(write(CEL_PixmapRGBA8(image), path("j.jpg"), "JPEG", "quality=98")) << m_error.toStdString();
    const CEL_PixmapPtr back = read(path("j.jpg"), "JPEG");
    ASSERT_TRUE(back) << m_error.toStdString();
    const QColor colour = back->image().pixelColor(8, 8);
    EXPECT_NEAR(colour.red(), 100, 3);
    EXPECT_NEAR(colour.green(), 50, 3);
    EXPECT_EQ(colour.alpha(), 255);
}

TEST_F(ImageFilesTest, TextsAndProfilesGoIntoTheFile)
{
    const CEL_PixmapRGBA8 picture(testBytes());
    const QByteArray profile = QColorSpace(QColorSpace::AdobeRgb).iccProfile();
    ASSERT_TRUE(write(picture, path("t.png"), "PNG", {}, profile, {{"Frame", "12"}, {"Scene", "Äpfel"}}));
    const QImage image(path("t.png"));
    EXPECT_EQ(image.text("Frame"), "12");
    EXPECT_EQ(image.text("Scene"), "Äpfel");
    EXPECT_EQ(image.colorSpace(), QColorSpace(QColorSpace::AdobeRgb));
    EXPECT_EQ(read(path("t.png"), "PNG")->image(), picture.image()) << "its numbers are left alone";
    EXPECT_EQ(QColorSpace::fromIccProfile(m_profile), QColorSpace(QColorSpace::AdobeRgb));
    ASSERT_TRUE(write(picture, path("t.tif"), "TIFF", {}, profile));
    read(path("t.tif"), "TIFF");
    EXPECT_EQ(m_profile, profile);
    ASSERT_TRUE(write(picture, path("u.png"), "PNG"));
    read(path("u.png"), "PNG");
    EXPECT_TRUE(m_profile.isEmpty());
}

TEST_F(ImageFilesTest, OptionsAreReadStrictly)
{
    struct Row {
        const char* key;
        const char* option;
        const char* reason;
    };
    const Row rows[] = {
        {"PNG", "compression=10", "The option compression is a number from 0 to 9, not \"10\"."},
        {"PNG", "quality=3", "The format has no option \"quality\", only: compression, depth."},
        {"PNG", "depth=32", "The option depth is one of 8, 16, not \"32\"."},
        {"JPEG", "quality", "The option \"quality\" has no value: write it as key=value."},
        {"JPEG", "quality=0", "The option quality is a number from 1 to 100, not \"0\"."},
        {"OPENEXR", "depth=word", "The option depth is one of half, float, not \"word\"."},
        {"TIFF", "depth=float", "The format has no option \"depth\", only: compression, quality."},
    };
    const CEL_PixmapRGBA8 picture(testBytes());
    for (const Row& row : rows) {
        EXPECT_FALSE(write(picture, path("o.img"), row.key, row.option));
        EXPECT_EQ(m_error, "The picture " + path("o.img") + " can't be written: " + QString::fromUtf8(row.reason));
    }
    EXPECT_TRUE(filesInFolder().isEmpty());
    EXPECT_TRUE(write(picture, path("o.png"), "PNG", " Compression = 9 ,"));
}

TEST_F(ImageFilesTest, WhatStoodThereIsReplacedWholeOrNotAtAll)
{
    QFile old(path("p.png"));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    const CEL_PixmapRGBA8 picture(testBytes());
    EXPECT_FALSE(write(picture, path("p.png"), "PNG", "compression=x"));
    EXPECT_EQ(QFileInfo(path("p.png")).size(), 3);
    EXPECT_TRUE(write(picture, path("p.png"), "PNG"));
    EXPECT_EQ(filesInFolder(), QStringList{"p.png"});
    const mode_t mask = umask(0);
    umask(mask);
    struct stat made {};
    stat(QFile::encodeName(path("p.png")).constData(), &made);
    EXPECT_EQ(made.st_mode & 0777, 0666 & ~mask) << "as any new file";
}

TEST_F(ImageFilesTest, ALinkStaysAndItsFileIsReplaced)
{
    const CEL_PixmapRGBA8 picture(testBytes());
    ASSERT_TRUE(write(picture, path("real.png"), "PNG"));
    ASSERT_TRUE(QFile::link(path("real.png"), path("link.png")));
    ASSERT_TRUE(write(CEL_PixmapRGBA8(testBytes().copy(0, 0, 5, 5)), path("link.png"), "PNG"));
    EXPECT_TRUE(QFileInfo(path("link.png")).isSymLink());
    EXPECT_EQ(QImage(path("real.png")).size(), QSize(5, 5));
}

TEST_F(ImageFilesTest, WhatCannotBeWrittenIsOneSentence)
{
    const CEL_PixmapRGBA8 picture(testBytes());
    EXPECT_FALSE(write(picture, path("no/such/p.png"), "PNG"));
    EXPECT_EQ(m_error, "The picture " + path("no/such/p.png") + " can't be written: No such file or directory.");
    EXPECT_FALSE(write(picture, m_folder.path(), "PNG"));
    EXPECT_EQ(m_error, "The picture " + m_folder.path() + " can't be written: It is a folder.");
    EXPECT_FALSE(write(picture, "/dev/full/p.png", "PNG"));
}

TEST_F(ImageFilesTest, WhatCannotBeReadIsOneSentence)
{
    const CEL_PixmapRGBA8 picture(testBytes());
    for (const auto& [key, name] :
         {std::pair{"PNG", "p.png"}, {"JPEG", "p.jpg"}, {"OPENEXR", "p.exr"}, {"TIFF", "p.tif"}, {"TGA", "p.tga"}}) {
        ASSERT_TRUE(write(picture, path(name), key)) << m_error.toStdString();
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        const QByteArray whole = file.readAll();
        for (const qsizetype size : {qsizetype(0), qsizetype(7), whole.size() / 3}) {
            file.resize(size);
            const bool isRead = read(path(name), key) != nullptr;
            if (!isRead) {
                EXPECT_TRUE(m_error.startsWith("The picture " + path(name) + " can't be read: "))
                    << m_error.toStdString();
                EXPECT_FALSE(m_error.contains('\n')) << m_error.toStdString();
                EXPECT_TRUE(m_read.empty());
            }
            EXPECT_TRUE(size > 7 || !isRead) << key;
        }
        file.resize(0);
        file.seek(0);
        file.write(QByteArray(400, '\x5a'));
        file.flush();
        EXPECT_FALSE(read(path(name), key)) << key;
    }
}

TEST_F(ImageFilesTest, ThreadsReadAndWriteAtOnce)
{
    const CEL_PixmapRGBA8 picture(testBytes());
    std::vector<std::thread> threads;
    std::atomic<int> good = 0;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&, i] {
            for (int n = 0; n < 8; ++n) {
                const QString file = m_folder.filePath(QStringLiteral("%1-%2.png").arg(i).arg(n));
                QString error;
                std::vector<CEL_RepresentationPtr> read;
                QByteArray profile;
                const CELIO_WriteContext context(file, {}, {}, nullptr, {});
                good += brindleRenderLibrary()->write(picture, context, "PNG", error) &&
                        brindleRenderLibrary()->read(file, "PNG", read, profile, error) &&
                        static_cast<const CEL_Pixmap&>(*read.front()).image() == picture.image();
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(good, 32);
}
