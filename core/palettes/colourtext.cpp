#include "core/palettes/colourtext.h"

#include "core/host/cm_palette.h"

#include <algorithm>

namespace OMC::colourtext {

namespace {

QString textOf(const CM_Color& colour)
{
    if (colour.GetColorType() == CM_Color::kSolid)
        return QStringLiteral("solid ") + of(colour.GetGradientColor(0));
    QString text = colour.GetColorType() == CM_Color::kLinearGradient ? QStringLiteral("linear gradient")
                                                                      : QStringLiteral("radial gradient");
    for (const CM_GradientData& marker : colour.gradientDataCol())
        text += QStringLiteral(", %1 at %2%").arg(of(marker.rgba), QString::number(marker.position * 100, 'g', 4));
    return text;
}

QString textOf(const CM_Texture& texture)
{
    const QString tiled = texture.IsTile() ? QStringLiteral(", tiled") : QString();
    const auto& bitmap = texture.GetBitmap();
    if (!bitmap)
        return QStringLiteral("texture without a picture") + tiled;
    return QStringLiteral("texture of %1 x %2 pixels").arg(bitmap->GetWidth()).arg(bitmap->GetHeight()) + tiled;
}

QString counted(std::ptrdiff_t count, const QString& what)
{
    return QStringLiteral("%1 %2").arg(count).arg(count == 1 ? what : what + u's');
}

} // namespace

QString of(const CM_Rgba& rgba)
{
    const auto hex = [](int channel) { return QStringLiteral("%1").arg(channel, 2, 16, QChar(u'0')); };
    return u'#' + hex(rgba.red()) + hex(rgba.green()) + hex(rgba.blue()) +
           (rgba.alpha() == 255 ? QString() : hex(rgba.alpha()));
}

QString of(const CM_BaseColorObj& colour)
{
    return colour.GetKind() == CM_BaseColorObj::kTexture ? textOf(static_cast<const CM_Texture&>(colour))
                                                         : textOf(static_cast<const CM_Color&>(colour));
}

QString contentOf(const CM_Palette& palette)
{
    const auto& entries = palette.colors();
    const auto textures = std::count_if(entries.begin(), entries.end(), [](const CM_Palette::Entry& entry) {
        return entry->GetKind() == CM_BaseColorObj::kTexture;
    });
    const auto colours = static_cast<std::ptrdiff_t>(entries.size()) - textures;
    QStringList parts;
    if (colours > 0 || textures == 0)
        parts.append(counted(colours, QStringLiteral("colour")));
    if (textures > 0)
        parts.append(counted(textures, QStringLiteral("texture")));
    return parts.join(u", ");
}

} // namespace OMC::colourtext
