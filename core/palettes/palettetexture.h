#pragma once

#include "core/palettes/palettebasecolour.h"

namespace OMC {

/// A picture that paints as a colour does. It is kept as a PNG file beside the palette. A change needs no lock of the
/// palette; while another process holds it, the change is refused.
class BRINDLE_CORE_EXPORT PaletteTexture : public PaletteBaseColour {
    Q_OBJECT
    BRINDLE_COPYABLE(PaletteTexture)
    Q_PROPERTY(bool tiled READ getTiled WRITE setTiled)
    Q_PROPERTY(uint width READ getWidth WRITE setWidth)
    Q_PROPERTY(uint height READ getHeight WRITE setHeight)

public:
    PaletteTexture(std::shared_ptr<CM_BaseColorObj> texture, const UT_Id& palette, SC_ProjectCommon* project);

    std::string __str__() const override;

    void setName(const QString& name) override;

    bool getTiled() const; ///< Whether the picture repeats beyond its borders.
    void setTiled(bool tiled);
    /// In pixels; 0 where the picture's file is missing. Another width scales the picture smoothly, the height stays.
    uint getWidth() const;
    void setWidth(uint width);
    /// In pixels; 0 where the picture's file is missing. Another height scales the picture smoothly, the width stays.
    uint getHeight() const;
    void setHeight(uint height);

    void changeTexture(const QString& path); ///< Takes the picture of an image file.

private:
    template <typename Change>
    void edit(const QString& label, const Change& change);
    void resize(uint width, uint height, const QString& label);
};

} // namespace OMC
