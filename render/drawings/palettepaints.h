#pragma once

#include "core/host/cm_palettelist.h"
#include "core/host/gr_color.h"
#include "render/raster/paint.h"

#include <QHash>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace brindle::render {

/// Looks up what the colours of drawings look like, in the palettes of the open project. It is made for one frame: what
/// it has found once stays.
class PalettePaints {
public:
    /// The entry of an identity in the first palette that has it; null for one that no palette has. That is told, and
    /// so is a texture without a picture.
    CM_Palette::Entry find(const CM_ColorId_t& id);

    /// A line for each entry that is missing, or has no picture.
    const QStringList& missing() const { return m_missing; }

private:
    std::optional<std::vector<std::shared_ptr<CM_PaletteList>>> m_lists; ///< Once an entry was looked for.
    QHash<quint64, CM_Palette::Entry> m_found;
    QStringList m_missing;
};

/// What an area is painted with, by its colour and the palette's entry for it; none for null.
std::shared_ptr<const Paint> paintOf(const GR_Color& colour, const CM_Palette::Entry& entry,
                                     const CM_Palette::Entry& texture);
/// The same for a line: gradients have no matrix there, and their first colour counts.
std::shared_ptr<const Paint> linePaintOf(const CM_Palette::Entry& entry);

} // namespace brindle::render
