#include "core/palettes/palettetexture.h"

#include "core/palettes/palettecolourcommand.h"
#include "core/palettes/paletteedit.h"

namespace OMC {

PaletteTexture::PaletteTexture(std::shared_ptr<CM_BaseColorObj> texture, const UT_Id& palette,
                               SC_ProjectCommon* project)
    : PaletteBaseColour(std::move(texture), palette, project)
{}

std::string PaletteTexture::__str__() const
{
    return tr("PaletteTexture(%1)").arg(getName()).toStdString();
}

void PaletteTexture::setName(const QString& name)
{
    validate();
    const QString used = name.isEmpty() ? QStringLiteral("Default") : name;
    edit(tr("Set Texture Name"), [&](CM_Texture& texture) { texture.Rename(used); });
}

bool PaletteTexture::getTiled() const
{
    return textureData()->IsTile();
}

void PaletteTexture::setTiled(bool tiled)
{
    if (textureData()->IsTile() != tiled)
        edit(tr("Set Tiled"), [tiled](CM_Texture& texture) { texture.SetTiling(tiled); });
}

uint PaletteTexture::getWidth() const
{
    const auto texture = textureData();
    return texture->GetBitmap() ? texture->GetBitmap()->GetWidth() : 0;
}

void PaletteTexture::setWidth(uint width)
{
    if (width != getWidth())
        resize(width, getHeight(), tr("Set Width"));
}

uint PaletteTexture::getHeight() const
{
    const auto texture = textureData();
    return texture->GetBitmap() ? texture->GetBitmap()->GetHeight() : 0;
}

void PaletteTexture::setHeight(uint height)
{
    if (height != getHeight())
        resize(getWidth(), height, tr("Set Height"));
}

void PaletteTexture::changeTexture(const QString& path)
{
    validate();
    auto bitmap = path.isEmpty() ? nullptr : BM_Bitmap::FromFile(path);
    if (!bitmap)
        throw Exception(tr("Unable to change texture."));
    edit(tr("Change Texture"), [&](CM_Texture& texture) { texture.ChangeTexture(bitmap); });
}

void PaletteTexture::resize(uint width, uint height, const QString& label)
{
    const auto texture = textureData();
    if (!texture->GetBitmap())
        throw Exception(tr("The picture of the texture %1 is missing.").arg(texture->GetColorName()));
    const auto scaled = texture->GetBitmap()->Scaled(width, height);
    if (!scaled)
        throw Exception(tr("A texture can't be %1 x %2 pixels large.").arg(width).arg(height));
    edit(label, [&](CM_Texture& changed) { changed.ChangeTexture(scaled); });
}

/// Changes a clone, whose state the command then gives to the texture.
template <typename Change>
void PaletteTexture::edit(const QString& label, const Change& change)
{
    const auto texture = textureData();
    const auto palette = parentPalette();
    paletteedit::requireFree(palette);
    const ColourPlace place{palette->GetID(), texture->GetID()};
    auto before = CM_CastToTexture(texture->Clone(false));
    auto after = CM_CastToTexture(texture->Clone(false));
    change(*after);
    run(std::make_unique<OMC_PaletteTexture_EditColorCommand>(place, std::move(before), std::move(after)), label);
}

} // namespace OMC
