#include "render/drawings/palettepaints.h"

#include "core/host/cm_color.h"
#include "core/host/cm_palettemanager.h"
#include "render/raster/placing.h"

#include <QImage>

namespace brindle::render {

namespace {

QRgba64 colourOf(const CM_Rgba& rgba)
{
    return QRgba64::fromRgba(rgba.red(), rgba.green(), rgba.blue(), rgba.alpha());
}

std::shared_ptr<const Paint> paintOf(const CM_Texture& texture, const Math::Matrix2x3& matrix)
{
    const std::shared_ptr<const BM_Bitmap> bitmap = texture.GetBitmap();
    QImage picture = bitmap ? QImage::fromData(bitmap->Png(), "PNG") : QImage();
    if (picture.isNull())
        return nullptr;
    // The picture covers the square from (0, 0) to (1, 1), with y up.
    const QTransform toSquare(1.0 / picture.width(), 0, 0, -1.0 / picture.height(), 0, 1);
    const bool isTiled = texture.IsTile();
    return std::make_shared<Paint>(TexturePaint{std::move(picture), isTiled, toSquare * transformOf(matrix)});
}

} // namespace

CM_Palette::Entry PalettePaints::find(const CM_ColorId_t& id)
{
    if (!id.IsValid() || id == GR_Color::autoId() || id == GR_Color::eraserId())
        return nullptr;
    if (const auto known = m_found.constFind(id.value()); known != m_found.constEnd())
        return *known;
    CM_Palette::Entry entry;
    if (!m_lists)
        m_lists = CM_PaletteManager::GetInstance()->paletteLists();
    for (auto list = m_lists->begin(); list != m_lists->end() && !entry; ++list)
        entry = (*list)->GetColor(id);
    if (!entry)
        m_missing.append(
            QStringLiteral("No palette has the colour %1; nothing is painted with it.").arg(id.AsString()));
    else if (const auto texture = CM_CastToTexture(entry); texture && !texture->GetBitmap())
        m_missing.append(QStringLiteral("The picture of the texture \"%1\" is gone; nothing is painted with it.")
                             .arg(texture->GetColorName()));
    m_found.insert(id.value(), entry);
    return entry;
}

std::shared_ptr<const Paint> paintOf(const GR_Color& colour, const CM_Palette::Entry& entry,
                                     const CM_Palette::Entry& texture)
{
    if (const auto picture = CM_CastToTexture(texture ? texture : entry))
        return paintOf(*picture, colour.GetTextureMatrix());
    const std::shared_ptr<CM_Color> known = CM_CastToColor(entry);
    if (!known)
        return nullptr;
    if (known->GetColorType() == CM_Color::kSolid || known->Size() < 2)
        return linePaintOf(entry);
    GradientPaint gradient;
    gradient.form = known->GetColorType() == CM_Color::kLinearGradient ? GradientPaint::Linear : GradientPaint::Radial;
    for (const CM_GradientData& marker : known->gradientDataCol())
        gradient.stops.push_back({marker.position, colourOf(marker.rgba)});
    gradient.place = transformOf(colour.GetMatrix());
    return std::make_shared<Paint>(std::move(gradient));
}

std::shared_ptr<const Paint> linePaintOf(const CM_Palette::Entry& entry)
{
    const std::shared_ptr<CM_Color> colour = CM_CastToColor(entry);
    if (!colour)
        return nullptr;
    const CM_Rgba rgba = colour->Size() > 0 ? colour->GetColorMarker(0).rgba : CM_Rgba(0, 0, 0, 255);
    return std::make_shared<Paint>(SolidPaint{colourOf(rgba)});
}

} // namespace brindle::render
