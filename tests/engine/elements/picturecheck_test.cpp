#include "engine/elements/picturecheck.h"

#include "engine/elements/pixmapformats.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>

using namespace brindle::engine;

namespace {

QByteArray picture(const char* format)
{
    QImage image(7, 5, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

QByteArray tga()
{
    QByteArray bytes(18, '\0');
    bytes[2] = 2;
    bytes[12] = 3;
    bytes[14] = 2;
    bytes[16] = 24;
    return bytes + QByteArray(18, 'x');
}

QByteArray tiff()
{
    return QByteArray("II*\0\x08\0\0\0\x01\0", 10) + QByteArray(12, '\0') + QByteArray(4, '\0');
}

const struct {
    const char* format;
    QByteArray bytes;
    bool showsItsEnd;
} rows[] = {{"PNG", picture("PNG"), true},
            {"JPEG", picture("JPG"), true},
            {"TIFF", tiff(), true},
            {"TGA", tga(), true},
            {"BMP", picture("BMP"), true},
            {"EXR", QByteArray("\x76\x2f\x31\x01\x02\0\0\0", 8), false},
            {"PSD", "8BPS" + QByteArray(22, '\0'), true}};

} // namespace

TEST(PictureCheckTest, AWholeFileIsTakenForItsFormatAndNoOther)
{
    for (const auto& row : rows) {
        const int format = pixmapFormatNamed(row.format);
        EXPECT_EQ(checkPicture(row.bytes, format), PictureState::Whole) << row.format;
        EXPECT_EQ(checkPicture("plain text, which is no picture at all", format), PictureState::OtherFormat)
            << row.format;
        for (const auto& other : rows) {
            EXPECT_EQ(checkPicture(other.bytes, format) == PictureState::Whole, &other == &row)
                << row.format << other.format;
        }
    }
}

TEST(PictureCheckTest, AFileThatEndsTooEarlyIsNeverWhole)
{
    for (const auto& row : rows) {
        const int format = pixmapFormatNamed(row.format);
        EXPECT_EQ(checkPicture({}, format), PictureState::CutOff) << row.format;
        const qsizetype shortest = row.showsItsEnd ? row.bytes.size() - (qstrcmp(row.format, "TIFF") == 0 ? 17 : 1) : 3;
        for (qsizetype size = 0; size <= shortest; ++size)
            EXPECT_NE(checkPicture(row.bytes.left(size), format), PictureState::Whole) << row.format << size;
    }
}
