#include "render/drawings/palettepaints.h"

#include "core/host/cm_color.h"
#include "core/host/cm_palettemanager.h"
#include "render/raster/placing.h"

namespace brindle::render {

namespace {

QRgba64 colourOf(const CM_Rgba& rgba)
{
    return QRgba64::fromRgba(rgba.red(), rgba.green(), rgba.blue(), rgba.alpha());
}

GradientPaint gradientOf(const CM_Color& colour)
{
    GradientPaint gradient;
    gradient.form = colour.GetColorType() == CM_Color::kLinearGradient ? GradientPaint::Linear : GradientPaint::Radial;
    for (const CM_GradientData& marker : colour.gradientDataCol())
        gradient.stops.push_back({marker.position, colourOf(marker.rgba)});
    return gradient;
}

/// Whether it is the same colour all over.
bool isPlain(const CM_Color& colour)
{
    return colour.GetColorType() == CM_Color::kSolid || colour.Size() < 2;
}

SolidPaint plainOf(const CM_Color& colour)
{
    return {colourOf(colour.Size() > 0 ? colour.GetColorMarker(0).rgba : CM_Rgba(0, 0, 0, 255))};
}

} // namespace

CM_Palette::Entry PalettePaints::find(const CM_ColorId_t& id)
{
    if (!id.IsValid() || id == GR_Color::autoId() || id == GR_Color::eraserId())
        return nullptr;
    if (const auto known = m_found.constFind(id.value()); known != m_found.constEnd())
        return *known;
    const CM_Palette::Entry entry = CM_PaletteManager::GetInstance()->GetColor(id);
    if (!entry)
        m_missing.append(
            QStringLiteral("No palette has the colour %1; nothing is painted with it.").arg(id.AsString()));
    else if (const auto texture = CM_CastToTexture(entry); texture && !texture->GetBitmap())
        m_missing.append(QStringLiteral("The picture of the texture \"%1\" is gone; nothing is painted with it.")
                             .arg(texture->GetColorName()));
    m_found.insert(id.value(), entry);
    return entry;
}

QImage PalettePaints::pictureOf(const CM_Texture& texture)
{
    const std::shared_ptr<const BM_Bitmap> bitmap = texture.GetBitmap();
    if (!bitmap)
        return {};
    QImage& picture = m_pictures[bitmap.get()];
    if (picture.isNull())
        picture = QImage::fromData(bitmap->Png(), "PNG");
    return picture;
}

std::shared_ptr<const Paint> PalettePaints::areaPaint(const GR_Color& colour, const CM_Palette::Entry& entry,
                                                      const CM_Palette::Entry& texture)
{
    if (const auto shown = CM_CastToTexture(texture ? texture : entry)) {
        QImage picture = pictureOf(*shown);
        if (picture.isNull())
            return nullptr;
        // The picture covers the square from (0, 0) to (1, 1), with y up.
        const QTransform toSquare(1.0 / picture.width(), 0, 0, -1.0 / picture.height(), 0, 1);
        return std::make_shared<Paint>(
            TexturePaint{std::move(picture), shown->IsTile(), toSquare * transformOf(colour.GetTextureMatrix())});
    }
    const std::shared_ptr<CM_Color> known = CM_CastToColor(entry);
    if (!known)
        return nullptr;
    if (isPlain(*known))
        return std::make_shared<Paint>(plainOf(*known));
    GradientPaint gradient = gradientOf(*known);
    gradient.place = transformOf(colour.GetMatrix());
    return std::make_shared<Paint>(std::move(gradient));
}

std::optional<LinePaint> PalettePaints::linePaint(const GR_LineStyle& style, const CM_Palette::Entry& colour,
                                                  const CM_Palette::Entry& opacity)
{
    LinePaint paint;
    paint.coversTips = style.isTextureWrapAtTip();
    if (const auto texture = CM_CastToTexture(colour)) {
        const QImage picture = pictureOf(*texture);
        if (picture.isNull())
            return std::nullopt;
        paint.colour =
            LineTexture{picture, style.getTextureScaling(), style.getTextureOffset(), style.isTextureTiled()};
    } else if (const auto known = CM_CastToColor(colour)) {
        if (isPlain(*known))
            paint.colour = plainOf(*known);
        else
            paint.colour = gradientOf(*known);
    } else {
        return std::nullopt;
    }
    if (const auto texture = CM_CastToTexture(opacity)) {
        if (const QImage picture = pictureOf(*texture); !picture.isNull())
            paint.opacity = LineTexture{picture, style.getOpacityTextureScaling(), style.getOpacityTextureOffset(),
                                        style.isOpacityTextureTiled()};
    }
    return paint;
}

} // namespace brindle::render
