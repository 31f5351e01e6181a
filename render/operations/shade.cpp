#include "render/operations/shade.h"

#include "render/pixelrows.h"

#include <algorithm>
#include <vector>

namespace brindle::render {

void cut(Picture& picture, const Picture& matte, bool isInverted)
{
    if (!isInverted)
        picture = picture.cropped(matte.isEmpty() ? QRect() : matte.box());
    const QRect box = picture.box();
    const QRect shared = box & matte.box();
    if (picture.isEmpty() || shared.isEmpty())
        return;
    QImage& pixels = picture.pixels();
    for (int y = shared.top(); y <= shared.bottom(); ++y) {
        std::uint16_t* pixel = rowOf(pixels, shared.left() - box.left(), y - box.top());
        const std::uint16_t* by = rowOf(matte.pixels(), shared.left() - matte.box().left(), y - matte.box().top());
        for (int x = 0; x < shared.width(); ++x, pixel += channelCount, by += channelCount) {
            const std::uint32_t share = isInverted ? fullShare - by[3] : by[3];
            for (int c = 0; c < channelCount; ++c)
                pixel[c] = shareOf(pixel[c], share);
        }
    }
}

void fade(Picture& picture, double opacity)
{
    const std::uint32_t share = shareOf(opacity);
    if (share == fullShare || picture.isEmpty())
        return;
    if (share == 0) {
        picture = Picture(picture.size());
        return;
    }
    QImage& pixels = picture.pixels();
    for (int y = 0; y < pixels.height(); ++y) {
        std::uint16_t* const row = rowOf(pixels, 0, y);
        std::transform(row, row + channelCount * pixels.width(), row,
                       [share](std::uint16_t channel) { return shareOf(channel, share); });
    }
}

Picture colourCard(const QSize& size, QRgba64 colour)
{
    if (colour.alpha() == 0 || size.isEmpty())
        return Picture(size);
    QImage pixels = clearPixels(size);
    const std::uint16_t one[channelCount] = {shareOf(colour.red(), colour.alpha()),
                                             shareOf(colour.green(), colour.alpha()),
                                             shareOf(colour.blue(), colour.alpha()), colour.alpha()};
    for (int y = 0; y < pixels.height(); ++y) {
        std::uint16_t* row = rowOf(pixels, 0, y);
        for (int x = 0; x < pixels.width(); ++x, row += channelCount)
            std::copy_n(one, channelCount, row);
    }
    return Picture(size, QPoint(), pixels);
}

} // namespace brindle::render
