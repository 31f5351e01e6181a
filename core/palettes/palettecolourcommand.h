#pragma once

#include "core/host/cm_palette.h"
#include "core/host/ut_undoredo.h"

#include <memory>

/// The undoable changes of one colour. Each finds the colour by the ids of its palette and of itself, gives it the look
/// and the name of another one, and tells those who show colours.
namespace OMC {

/// The place of the colour that a command edits.
struct ColourPlace {
    UT_Id palette;
    UT_Id colour;
};

class OMC_PaletteColour_EditColorCommand final : public UT_Command {
public:
    /// The states are nobody else's: nothing changes them.
    OMC_PaletteColour_EditColorCommand(const ColourPlace& place, std::shared_ptr<const CM_Color> before,
                                       std::shared_ptr<const CM_Color> after);

    bool Execute() override { return modify(*m_after); }
    bool Undo() override { return modify(*m_before); }

private:
    bool modify(const CM_Color& state);

    ColourPlace m_place;
    std::shared_ptr<const CM_Color> m_before;
    std::shared_ptr<const CM_Color> m_after;
};

class OMC_PaletteTexture_EditColorCommand final : public UT_Command {
public:
    OMC_PaletteTexture_EditColorCommand(const ColourPlace& place, std::shared_ptr<const CM_Texture> before,
                                        std::shared_ptr<const CM_Texture> after);

    bool Execute() override { return modify(*m_after); }
    bool Undo() override { return modify(*m_before); }

private:
    bool modify(const CM_Texture& state);

    ColourPlace m_place;
    std::shared_ptr<const CM_Texture> m_before;
    std::shared_ptr<const CM_Texture> m_after;
};

} // namespace OMC
