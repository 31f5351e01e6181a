#include "core/palettes/palettecolourcommand.h"

#include "core/palettes/paletteedit.h"

namespace OMC {

namespace {

/// Calls `modify` with the colour at a place, if it is there, and tells of the change.
template <typename Modify>
bool modifyAt(const ColourPlace& place, const CM_BaseColorObj& state, Modify modify)
{
    const auto palette = paletteedit::manager().GetPalette(place.palette);
    const CM_Palette::Entry entry = palette ? palette->GetColorById(place.colour) : nullptr;
    if (!entry || entry->GetKind() != state.GetKind())
        return false;
    modify(*entry);
    entry->Rename(state.GetColorName());
    paletteedit::notifyOf(*palette, {place.colour});
    return true;
}

} // namespace

OMC_PaletteColour_EditColorCommand::OMC_PaletteColour_EditColorCommand(const ColourPlace& place,
                                                                       std::shared_ptr<const CM_Color> before,
                                                                       std::shared_ptr<const CM_Color> after)
    : m_place(place),
      m_before(std::move(before)),
      m_after(std::move(after))
{}

bool OMC_PaletteColour_EditColorCommand::modify(const CM_Color& state)
{
    return modifyAt(m_place, state,
                    [&state](CM_BaseColorObj& colour) { static_cast<CM_Color&>(colour).ModifyColor(state); });
}

OMC_PaletteTexture_EditColorCommand::OMC_PaletteTexture_EditColorCommand(const ColourPlace& place,
                                                                         std::shared_ptr<const CM_Texture> before,
                                                                         std::shared_ptr<const CM_Texture> after)
    : m_place(place),
      m_before(std::move(before)),
      m_after(std::move(after))
{}

bool OMC_PaletteTexture_EditColorCommand::modify(const CM_Texture& state)
{
    return modifyAt(m_place, state,
                    [&state](CM_BaseColorObj& colour) { static_cast<CM_Texture&>(colour).ModifyTexture(state); });
}

} // namespace OMC
