#pragma once

#include "core/frame/export.h"
#include "core/host/cm_palette.h"

#include <QString>

#include <memory>

namespace OMC {

/// A path where nothing is: the given one, or with "_1", "_2", ... behind the base name.
BRINDLE_CORE_EXPORT QString uniquePath(const QString& path);

/// The files of a palette on their way into the folder ".deleted" beside them and back: the palette's own file, and the
/// folder of its textures. Without a file there, nothing moves.
class BRINDLE_CORE_EXPORT PaletteFiles {
public:
    /// `movable` false leaves all files in their places.
    PaletteFiles(const CM_PalettePathI& path, bool movable);

    /// Throw where a file can't be moved, with both in their old places.
    void moveAway();
    void moveBack();
    bool areAway() const { return !m_away.isEmpty(); }

private:
    QString m_place; ///< Without the extension.
    QString m_away;  ///< The same in ".deleted"; empty while the files are in their place.
    bool m_movable;
};

} // namespace OMC
