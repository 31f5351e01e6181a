#include "core/palettes/palettebasecolour.h"

#include "core/host/sc_session.h"
#include "core/palettes/palette.h"
#include "core/palettes/palettecolour.h"
#include "core/palettes/paletteedit.h"
#include "core/palettes/palettelist.h"
#include "core/palettes/palettetexture.h"

namespace OMC {

PaletteBaseColour::PaletteBaseColour(std::shared_ptr<CM_BaseColorObj> colour, const UT_Id& palette,
                                     SC_ProjectCommon* project)
    : EngineView(project),
      m_colour(std::move(colour)),
      m_palette(palette)
{}

std::string PaletteBaseColour::__str__() const
{
    return "PaletteBaseColour()";
}

QString PaletteBaseColour::getName() const
{
    return live()->GetColorName();
}

void PaletteBaseColour::setName(const QString&)
{
    throw Exception(tr("Invalid base colour type."));
}

QString PaletteBaseColour::getBaseType() const
{
    switch (live()->GetKind()) {
    case CM_BaseColorObj::kColour:
        return QStringLiteral("Colour");
    case CM_BaseColorObj::kTexture:
        return QStringLiteral("Texture");
    }
    throw Exception(tr("Invalid base colour type."));
}

QString PaletteBaseColour::getId() const
{
    validate();
    return m_colour->GetID().AsString();
}

bool PaletteBaseColour::getValid() const
{
    try {
        validate();
        return true;
    } catch (const Exception&) {
        return false;
    }
}

Obj PaletteBaseColour::palette() const
{
    validate();
    return Obj(new Palette(parentPalette(), findTarget()));
}

Obj PaletteBaseColour::palette_list() const
{
    validate();
    const auto list = paletteedit::manager().GetPaletteList(parentPaletteListId());
    if (!list)
        throw Exception(tr("Object isn't currently inserted on any palettelist."));
    return Obj(new PaletteList(list, findTarget()));
}

std::shared_ptr<CM_Color> PaletteBaseColour::colorData() const
{
    auto colour = CM_CastToColor(live());
    if (!colour)
        throw Exception(tr("Object is not a color."));
    return colour;
}

std::shared_ptr<CM_Texture> PaletteBaseColour::textureData() const
{
    auto texture = CM_CastToTexture(live());
    if (!texture)
        throw Exception(tr("Object is not a texture."));
    return texture;
}

UT_Id PaletteBaseColour::parentPaletteId() const
{
    const auto palette = findParentPalette();
    return palette ? palette->GetID() : UT_Id();
}

UT_Id PaletteBaseColour::parentPaletteListId() const
{
    return paletteedit::manager().SearchParentPaletteList(parentPaletteId());
}

SC_ProjectCommon* PaletteBaseColour::projectCommon() const
{
    return findTarget();
}

void PaletteBaseColour::setParentPaletteId(const QString& id) const
{
    m_palette = UT_Id::FromString(id);
}

PaletteBaseColour* PaletteBaseColour::wrapperOf(const std::shared_ptr<CM_BaseColorObj>& colour, const UT_Id& palette,
                                                SC_ProjectCommon* project)
{
    if (!colour)
        return nullptr;
    if (colour->GetKind() == CM_BaseColorObj::kTexture)
        return new PaletteTexture(colour, palette, project);
    return new PaletteColour(colour, palette, project);
}

void PaletteBaseColour::validate() const
{
    if (!m_colour)
        throwInvalid();
    EngineView::validate();
}

const std::shared_ptr<CM_BaseColorObj>& PaletteBaseColour::live() const
{
    validate();
    if (const auto palette = paletteedit::manager().GetPalette(m_palette)) {
        // Undo and redo may have put another object of the same identity in its place.
        if (auto entry = palette->GetColorById(m_colour->GetID()))
            m_colour = std::move(entry);
    }
    return m_colour;
}

std::shared_ptr<CM_Palette> PaletteBaseColour::parentPalette() const
{
    auto palette = findParentPalette();
    if (!palette)
        throw Exception(tr("Object isn't currently inserted on any palette."));
    return palette;
}

void PaletteBaseColour::run(std::unique_ptr<UT_Command> command, const QString& label) const
{
    paletteedit::run(findTarget(), std::move(command), label, tr("Failed to change the colour %1.").arg(getName()));
}

/// Clones of a palette have colours of the same identities: elsewhere than in its own palette, only the very object
/// counts.
std::shared_ptr<CM_Palette> PaletteBaseColour::findParentPalette() const
{
    const CM_PaletteManager& palettes = paletteedit::manager();
    const UT_Id id = m_colour->GetID();
    if (auto palette = palettes.GetPalette(m_palette)) {
        if (palette->GetColorById(id))
            return palette;
    }
    auto found = palettes.GetPalette(palettes.SearchParentPalette(id));
    return found && found->GetColorById(id) == m_colour ? found : nullptr;
}

} // namespace OMC
