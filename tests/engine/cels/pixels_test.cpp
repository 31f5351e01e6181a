#include "core/host/cel_pixmap.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using Cel = CEL_Representation;

/// Every colour under every alpha: 256 x 256 pixels of one channel, with others beside it.
QImage everyByte()
{
    QImage image(256, 256, QImage::Format_RGBA8888);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) {
            uchar* pixel = image.scanLine(y) + 4 * x;
            pixel[0] = y == 0 ? 0 : uchar(x);
            pixel[1] = y == 0 ? 0 : uchar(255 - x);
            pixel[2] = y == 0 ? 0 : uchar(x * 7);
            pixel[3] = uchar(y);
        }
    }
    return image;
}

QImage oneWord(quint16 r, quint16 g, quint16 b, quint16 a)
{
    QImage image(1, 1, QImage::Format_RGBA64_Premultiplied);
    auto* pixel = reinterpret_cast<quint16*>(image.bits());
    pixel[0] = r;
    pixel[1] = g;
    pixel[2] = b;
    pixel[3] = a;
    return image;
}

} // namespace

TEST(PixelsTest, BytesSurviveTheWayThroughEveryDeeperFormat)
{
    const CEL_PixmapRGBA8 bytes(everyByte());
    for (const Cel::CelFormat format : {Cel::PIXMAP_RGBA16, Cel::PIXMAP_RGBA_FLOAT, Cel::PIXMAP_AREA_RGBA16}) {
        const CEL_PixmapPtr deep = bytes.converted(format);
        ASSERT_TRUE(deep);
        EXPECT_EQ(deep->format(), format);
        EXPECT_EQ(deep->converted(Cel::PIXMAP_RGBA8)->image(), bytes.image()) << format;
    }
}

TEST(PixelsTest, WordsAreRoundedToTheNearest)
{
    struct Row {
        quint16 word;
        int byte;
    };
    for (const Row& row :
         {Row{0, 0}, {128, 0}, {129, 1}, {257, 1}, {32767, 127}, {32768, 128}, {65406, 254}, {65407, 255}}) {
        const CEL_Pixmap pixmap(Cel::PIXMAP_RGBA16, oneWord(row.word, 0, 0, 65535));
        EXPECT_EQ(int(pixmap.converted(Cel::PIXMAP_RGBA8)->image().constBits()[0]), row.byte) << row.word;
    }
}

TEST(PixelsTest, ATransparentPixelHidesNoColour)
{
    QImage image(1, 1, QImage::Format_RGBA8888);
    image.setPixelColor(0, 0, QColor(200, 100, 50, 0));
    const CEL_PixmapRGBA8 bytes(image);
    EXPECT_EQ(bytes.image().pixel(0, 0), 0u);
    EXPECT_EQ(bytes.converted(Cel::PIXMAP_RGBA16)->image(), oneWord(0, 0, 0, 0));
}

TEST(PixelsTest, QtsOtherFormsKeepTheirColours)
{
    for (const QImage::Format form :
         {QImage::Format_ARGB32, QImage::Format_RGB32, QImage::Format_RGBX8888, QImage::Format_RGB888,
          QImage::Format_BGR888, QImage::Format_RGBA64, QImage::Format_RGBX64, QImage::Format_ARGB32_Premultiplied,
          QImage::Format_RGBA16FPx4, QImage::Format_RGBA32FPx4}) {
        QImage image(2, 1, QImage::Format_RGBA8888);
        image.fill(QColor(200, 100, 50));
        const QImage other = image.convertToFormat(form);
        EXPECT_EQ(CEL_PixmapRGBA8(other).image().pixelColor(1, 0), QColor(200, 100, 50)) << form;
        const CEL_Pixmap words(Cel::PIXMAP_RGBA16, other);
        EXPECT_EQ(words.converted(Cel::PIXMAP_RGBA8)->image().pixelColor(0, 0), QColor(200, 100, 50)) << form;
    }
}

TEST(PixelsTest, FloatsBeyondTheScaleAreCutOff)
{
    QImage image(2, 1, QImage::Format_RGBA32FPx4_Premultiplied);
    const float values[] = {7.5f, -3.0f, std::nanf(""), 1.0f, 0.25f, 0.125f, 0.0f, 0.5f};
    std::copy(std::begin(values), std::end(values), reinterpret_cast<float*>(image.bits()));
    const CEL_Pixmap floats(Cel::PIXMAP_RGBA_FLOAT, image);
    const QImage bytes = floats.converted(Cel::PIXMAP_RGBA8)->image();
    EXPECT_EQ(bytes.pixelColor(0, 0), QColor(255, 0, 0, 255));
    EXPECT_EQ(bytes.pixelColor(1, 0), QColor(128, 64, 0, 128));
    EXPECT_EQ(floats.converted(Cel::PIXMAP_RGBA16)->image().copy(1, 0, 1, 1), oneWord(16384, 8192, 0, 32768));
}

TEST(PixelsTest, MattesAreAlphaAndComeBackWhite)
{
    const CEL_Pixmap picture(Cel::PIXMAP_RGBA16, oneWord(100, 200, 300, 128 * 257));
    const CEL_PixmapPtr matte8 = picture.converted(Cel::PIXMAP_MATTE8);
    EXPECT_EQ(int(matte8->image().constBits()[0]), 128);
    const CEL_PixmapPtr matte16 = matte8->converted(Cel::PIXMAP_MATTE16);
    EXPECT_EQ(*reinterpret_cast<const quint16*>(matte16->image().constBits()), 128 * 257);
    EXPECT_EQ(matte16->converted(Cel::PIXMAP_RGBA16)->image(), oneWord(128 * 257, 128 * 257, 128 * 257, 128 * 257));
    EXPECT_EQ(matte8->converted(Cel::PIXMAP_RGBA8)->image().pixelColor(0, 0), QColor(255, 255, 255, 128));
}

TEST(PixelsTest, AnAreaIsPartOfItsPicture)
{
    QImage box(4, 3, QImage::Format_RGBA64_Premultiplied);
    box.fill(QColor(255, 0, 0));
    const CEL_PixmapArea area(box, QPoint(-1, 8), QSize(20, 10));
    EXPECT_EQ(std::pair(area.width(), area.height()), std::pair(20, 10));
    EXPECT_EQ(std::pair(area.allocatedWidth(), area.allocatedHeight()), std::pair(4, 3));
    const QImage whole = area.converted(Cel::PIXMAP_RGBA8)->image();
    EXPECT_EQ(whole.size(), QSize(20, 10));
    EXPECT_EQ(whole.pixelColor(2, 9), QColor(255, 0, 0));
    EXPECT_EQ(whole.pixelColor(3, 9).alpha(), 0);
    EXPECT_EQ(whole.pixelColor(0, 7).alpha(), 0);
}

TEST(PixelsTest, AThumbnailIsSmall)
{
    QImage image(1000, 500, QImage::Format_RGBA8888);
    image.fill(QColor(10, 20, 30));
    const CEL_PixmapPtr thumbnail = CEL_PixmapRGBA8(image).converted(Cel::PIXMAP_RGBA8_THUMBNAIL);
    EXPECT_EQ(thumbnail->image().size(), QSize(128, 64));
    EXPECT_EQ(thumbnail->image().pixelColor(64, 32), QColor(10, 20, 30));
    EXPECT_EQ(CEL_PixmapRGBA8(image.copy(0, 0, 30, 20)).converted(Cel::PIXMAP_RGBA8_THUMBNAIL)->image().size(),
              QSize(30, 20));
}

TEST(PixelsTest, OtherFormatsAreNoPixels)
{
    const CEL_PixmapRGBA8 picture(everyByte());
    for (const Cel::CelFormat format : {Cel::EMPTY, Cel::BRD, Cel::PNT, Cel::BR3D, Cel::PIXMAP_AREA_ZBUF,
                                        Cel::CelFormat(5), Cel::CelFormat(99), Cel::CelFormat(-1)})
        EXPECT_FALSE(picture.converted(format)) << format;
    EXPECT_THROW(CEL_PixmapZBuf(2, 2, {1, 2, 3}), std::invalid_argument);
}
