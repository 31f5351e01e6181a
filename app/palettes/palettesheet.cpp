#include "app/palettes/palettesheet.h"

#include "app/palettes/swatch.h"
#include "core/palettes/colourtext.h"
#include "engine/engine.h"

#include <QBuffer>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace app {

namespace {

using brindle::engine::shown;

constexpr int cells = 8; ///< Of a block, in characters of the terminal.

// The picture, in pixels.
constexpr int margin = 24;
constexpr int swatchWidth = 144;
constexpr int swatchHeight = 96;
constexpr int gap = 16;
constexpr int textHeight = 40; ///< Two lines below a swatch.
constexpr int headHeight = 40;
constexpr int mostColumns = 8;
constexpr int mostRows = 200; ///< More colours than so many rows hold are left out: the picture says how many.

/// A block of a colour: spaces on a ground of 24 bits, which nearly all terminals show.
QString block(const CM_BaseColorObj& colour)
{
    const QImage image = swatch(colour, cells * 16, 16);
    QString text;
    for (int cell = 0; cell < cells; ++cell) {
        const QRgb rgb = image.pixel(cell * 16 + 8, 8);
        text += QStringLiteral("\x1b[48;2;%1;%2;%3m ").arg(qRed(rgb)).arg(qGreen(rgb)).arg(qBlue(rgb));
    }
    return text + QStringLiteral("\x1b[0m  ");
}

QString headOf(const CM_Palette& palette)
{
    return shown(palette.GetName()) + QStringLiteral(": ") + OMC::colourtext::contentOf(palette);
}

} // namespace

QString paletteLines(const CM_Palette& palette, bool coloured)
{
    QString text = headOf(palette) + QStringLiteral(" (%1)\n").arg(palette.GetID().AsString());
    qsizetype width = 0;
    for (const CM_Palette::Entry& entry : palette.colors())
        width = std::max(width, shown(entry->GetColorName()).size());
    for (const CM_Palette::Entry& entry : palette.colors())
        text += (coloured ? block(*entry) : QString()) + entry->GetID().AsString() + QStringLiteral("  ") +
                shown(entry->GetColorName()).leftJustified(width) + QStringLiteral("  ") + OMC::colourtext::of(*entry) +
                u'\n';
    return text;
}

QImage palettePicture(const CM_Palette& palette)
{
    const auto count = static_cast<int>(palette.colors().size());
    const int columns = std::clamp(count, 1, mostColumns);
    const int rows = std::min((count + columns - 1) / columns, mostRows);
    QImage image(2 * margin + columns * (swatchWidth + gap) - gap,
                 2 * margin + headHeight + rows * (swatchHeight + textHeight), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QFont font;
    font.setPixelSize(18);
    painter.setFont(font);
    const int leftOut = count - std::min(count, rows * columns);
    const QString head = headOf(palette) + (leftOut > 0 ? QStringLiteral("; %1 not shown").arg(leftOut) : QString());
    painter.drawText(margin, margin + 18,
                     QFontMetrics(font).elidedText(head, Qt::ElideRight, image.width() - 2 * margin));
    font.setPixelSize(12);
    painter.setFont(font);
    const QFontMetrics metrics(font);
    for (int index = 0; index < count - leftOut; ++index) {
        const CM_BaseColorObj& colour = *palette.colors()[static_cast<std::size_t>(index)];
        const int x = margin + index % columns * (swatchWidth + gap);
        const int y = margin + headHeight + index / columns * (swatchHeight + textHeight);
        painter.drawImage(x, y, swatch(colour, swatchWidth, swatchHeight));
        painter.setPen(Qt::lightGray);
        painter.drawRect(x, y, swatchWidth - 1, swatchHeight - 1);
        const auto line = [&](int below, const QString& text) {
            painter.drawText(x, y + swatchHeight + below, metrics.elidedText(text, Qt::ElideRight, swatchWidth));
        };
        painter.setPen(Qt::black);
        line(15, shown(colour.GetColorName()));
        painter.setPen(Qt::darkGray);
        line(30, OMC::colourtext::of(colour));
    }
    return image;
}

QByteArray pngOf(const QImage& image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

} // namespace app
