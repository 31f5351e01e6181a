#include "engine/cels/pixels.h"

#include <array>
#include <cmath>
#include <cstring>

namespace brindle::engine::pixels {

namespace {

using Byte = std::uint8_t;
using Word = std::uint16_t;

constexpr int channels = 4;
constexpr Word full = 65535;

template <typename Channel>
const Channel* row(const QImage& image, int y)
{
    return reinterpret_cast<const Channel*>(image.constScanLine(y));
}

/// Makes a picture of the same size row by row: `convert(from, to, width)`.
template <typename From, typename To, typename Convert>
QImage made(const QImage& image, QImage::Format format, Convert convert)
{
    QImage result(image.size(), format);
    for (int y = 0; y < result.height(); ++y)
        convert(row<From>(image, y), reinterpret_cast<To*>(result.scanLine(y)), image.width());
    return result;
}

bool isMatte(const QImage& image)
{
    return image.format() == QImage::Format_Alpha8 || image.format() == QImage::Format_Grayscale16;
}

bool isFloat(const QImage& image)
{
    return image.pixelFormat().typeInterpretation() == QPixelFormat::FloatingPoint;
}

/// The alpha of a matte, in 16 bits.
QImage matteWords(const QImage& matte)
{
    if (matte.format() == QImage::Format_Grayscale16)
        return matte;
    return made<Byte, Word>(matte, QImage::Format_Grayscale16, [](const Byte* from, Word* to, int width) {
        std::transform(from, from + width, to, [](Byte alpha) { return Word(alpha * 257); });
    });
}

/// Colours that aren't multiplied by alpha, of 16 bits, multiplied.
void multiply(const Word* from, Word* to, int width)
{
    for (int x = 0; x < width; ++x, from += channels, to += channels) {
        const Word alpha = from[3];
        for (int c = 0; c < 3; ++c)
            to[c] = alpha == full ? from[c] : product(from[c], alpha);
        to[3] = alpha;
    }
}

void multiplyBytes(const Byte* from, Word* to, int width)
{
    for (int x = 0; x < width; ++x, from += channels, to += channels) {
        const Word alpha = Word(from[3] * 257);
        for (int c = 0; c < 3; ++c)
            to[c] = alpha == full ? Word(from[c] * 257) : product(from[c] * 257u, alpha);
        to[3] = alpha;
    }
}

/// Colours multiplied by alpha, of 16 bits, into bytes that aren't. Drawn pictures have runs of one colour, which is
/// divided once.
void divideToBytes(const Word* from, Byte* to, int width)
{
    std::uint64_t last = 0;
    std::array<Byte, channels> bytes{};
    for (int x = 0; x < width; ++x, from += channels, to += channels) {
        std::uint64_t pixel;
        std::memcpy(&pixel, from, sizeof pixel);
        if (pixel != last) {
            last = pixel;
            const std::uint32_t alpha = from[3];
            bytes[3] = byteOf(alpha);
            for (int c = 0; c < 3; ++c) {
                if (alpha == full)
                    bytes[c] = byteOf(from[c]);
                else
                    bytes[c] = bytes[3] == 0 ? 0 : Byte(std::min((from[c] * 255u + alpha / 2) / alpha, 255u));
            }
        }
        std::memcpy(to, bytes.data(), bytes.size());
    }
}

/// A float on the scale 0 to 1 as a whole number on the scale 0 to `most`; what is no number counts as 0.
template <typename Whole>
Whole wholeOf(float share, float most)
{
    return share > 0.0f ? Whole(std::min(share, 1.0f) * most + 0.5f) : Whole(0);
}

void bytesOfFloats(const float* from, Byte* to, int width)
{
    for (int x = 0; x < width; ++x, from += channels, to += channels) {
        to[3] = wholeOf<Byte>(from[3], 255.0f);
        for (int c = 0; c < 3; ++c)
            to[c] = to[3] == 0 ? Byte(0) : wholeOf<Byte>(from[c] / from[3], 255.0f);
    }
}

void wordsOfFloats(const float* from, Word* to, int width)
{
    for (int x = 0; x < width; ++x, from += channels, to += channels) {
        to[3] = wholeOf<Word>(from[3], 65535.0f);
        for (int c = 0; c < 3; ++c)
            to[c] = std::min(wholeOf<Word>(from[c], 65535.0f), to[3]);
    }
}

void floatsOfWords(const Word* from, float* to, int width)
{
    for (int i = 0; i < channels * width; ++i)
        to[i] = float(from[i]) / 65535.0f;
}

void floatsOfBytes(const Byte* from, float* to, int width)
{
    for (int x = 0; x < width; ++x, from += channels, to += channels) {
        to[3] = float(from[3]) / 255.0f;
        for (int c = 0; c < 3; ++c)
            to[c] = float(from[c]) / 255.0f * to[3];
    }
}

/// Hides what colours a transparent pixel of a file has.
void clearHidden(QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        auto* pixel = image.scanLine(y);
        for (int x = 0; x < image.width(); ++x, pixel += channels) {
            if (pixel[3] == 0)
                pixel[0] = pixel[1] = pixel[2] = 0;
        }
    }
}

/// The picture in a form of 8 bits that isn't multiplied by alpha, where that tells all of it.
bool isOfBytes(const QImage& image)
{
    const QPixelFormat format = image.pixelFormat();
    const bool isShallow = format.redSize() <= 8 && image.format() != QImage::Format_Grayscale16;
    return isShallow && format.premultiplied() == QPixelFormat::NotPremultiplied && !isFloat(image);
}

} // namespace

QImage toRgba8(const QImage& image)
{
    if (isMatte(image))
        return toRgba8(toRgba16(image));
    if (image.format() == QImage::Format_RGBA8888 || isOfBytes(image)) {
        QImage bytes = image.convertToFormat(QImage::Format_RGBA8888);
        if (image.hasAlphaChannel())
            clearHidden(bytes);
        return bytes;
    }
    if (isFloat(image))
        return made<float, Byte>(toFloat(image), QImage::Format_RGBA8888, bytesOfFloats);
    return made<Word, Byte>(toRgba16(image), QImage::Format_RGBA8888, divideToBytes);
}

QImage toRgba16(const QImage& image)
{
    constexpr auto form = QImage::Format_RGBA64_Premultiplied;
    if (image.format() == form)
        return image;
    if (isMatte(image)) {
        return made<Word, Word>(matteWords(image), form, [](const Word* from, Word* to, int width) {
            for (int x = 0; x < width; ++x)
                std::fill_n(to + channels * x, channels, from[x]);
        });
    }
    if (isFloat(image))
        return made<float, Word>(toFloat(image), form, wordsOfFloats);
    if (isOfBytes(image))
        return made<Byte, Word>(image.convertToFormat(QImage::Format_RGBA8888), form, multiplyBytes);
    if (image.pixelFormat().premultiplied() == QPixelFormat::Premultiplied)
        return image.convertToFormat(form);
    return made<Word, Word>(image.convertToFormat(QImage::Format_RGBA64), form, multiply);
}

QImage toFloat(const QImage& image)
{
    constexpr auto form = QImage::Format_RGBA32FPx4_Premultiplied;
    if (image.format() == form)
        return image;
    if (isFloat(image))
        return image.convertToFormat(form);
    if (!isMatte(image) && isOfBytes(image))
        return made<Byte, float>(image.convertToFormat(QImage::Format_RGBA8888), form, floatsOfBytes);
    return made<Word, float>(toRgba16(image), form, floatsOfWords);
}

QImage toMatte8(const QImage& image)
{
    if (image.format() == QImage::Format_Alpha8)
        return image;
    return made<Word, Byte>(toMatte16(image), QImage::Format_Alpha8, [](const Word* from, Byte* to, int width) {
        std::transform(from, from + width, to, [](Word alpha) { return byteOf(alpha); });
    });
}

QImage toMatte16(const QImage& image)
{
    if (isMatte(image))
        return matteWords(image);
    return made<Word, Word>(toRgba16(image), QImage::Format_Grayscale16, [](const Word* from, Word* to, int width) {
        for (int x = 0; x < width; ++x)
            to[x] = from[channels * x + 3];
    });
}

} // namespace brindle::engine::pixels
