#include "app/palettes/swatch.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace app {

namespace {

constexpr int chequer = 8; ///< The side of a square of the ground, in pixels.
constexpr QRgb light = 0xffffffff;
constexpr QRgb dark = 0xffcccccc;

QImage ground(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x)
            line[x] = (x / chequer + y / chequer) % 2 == 0 ? light : dark;
    }
    return image;
}

/// The place of a pixel's middle in the gradient, from 0 to 1.
double placeAt(CM_Color::Type type, int x, int y, int width, int height)
{
    if (type == CM_Color::kLinearGradient)
        return (x + 0.5) / width;
    return std::hypot(x + 0.5 - width / 2.0, y + 0.5 - height / 2.0) / (std::min(width, height) / 2.0);
}

void paint(QPainter& painter, const CM_Color& colour, int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const CM_Rgba rgba = colour.GetGradientColor(placeAt(colour.GetColorType(), x, y, width, height));
            line[x] = qRgba(rgba.red(), rgba.green(), rgba.blue(), rgba.alpha());
        }
    }
    painter.drawImage(0, 0, image);
}

void paint(QPainter& painter, const CM_Texture& texture, int width, int height)
{
    if (!texture.GetBitmap())
        return;
    const QImage picture = QImage::fromData(texture.GetBitmap()->Png(), "PNG");
    if (picture.width() > width || picture.height() > height)
        painter.drawImage(0, 0, picture.scaled(width, height, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    else if (texture.IsTile())
        painter.fillRect(0, 0, width, height, QBrush(picture));
    else
        painter.drawImage(0, 0, picture);
}

} // namespace

QImage swatch(const CM_BaseColorObj& colour, int width, int height)
{
    QImage image = ground(width, height);
    QPainter painter(&image);
    if (colour.GetKind() == CM_BaseColorObj::kTexture)
        paint(painter, static_cast<const CM_Texture&>(colour), width, height);
    else
        paint(painter, static_cast<const CM_Color&>(colour), width, height);
    return image;
}

} // namespace app
