#pragma once

#include "core/host/cm_palette.h"
#include "core/host/gr_color.h"
#include "render/drawings/linepaint.h"
#include "render/raster/paint.h"

#include <QHash>
#include <QImage>
#include <QStringList>

#include <memory>
#include <optional>

namespace brindle::render {

/// Looks up what the colours of drawings look like, in the palettes of the open project. It is made for one frame: what
/// it has found once stays.
class PalettePaints {
public:
    /// The entry of an identity in the first palette that has it; null for one that no palette has. That is told, and
    /// so is a texture without a picture.
    CM_Palette::Entry find(const CM_ColorId_t& id);

    /// What an area is painted with, by its colour and the palette's entry for it; null where that is
    /// null or a texture without a picture.
    std::shared_ptr<const Paint> areaPaint(const GR_Color& colour, const CM_Palette::Entry& entry,
                                           const CM_Palette::Entry& texture);
    /// What a line is painted with, by the palette's entries for its colour and its opacity texture; nothing where
    /// that of the colour is null or a texture without a picture.
    std::optional<LinePaint> linePaint(const GR_LineStyle& style, const CM_Palette::Entry& colour,
                                       const CM_Palette::Entry& opacity);

    /// A line for each entry that is missing, or has no picture.
    const QStringList& missing() const { return m_missing; }

private:
    QImage pictureOf(const CM_Texture& texture);

    QHash<quint64, CM_Palette::Entry> m_found;
    QHash<const BM_Bitmap*, QImage> m_pictures; ///< The decoded pictures of textures.
    QStringList m_missing;
};

} // namespace brindle::render
