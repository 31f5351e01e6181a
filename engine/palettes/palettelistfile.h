#pragma once

#include "core/host/ut_id.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace brindle::engine {

/// The content of the file of a palette list.
struct PaletteListRecord {
    struct Palette {
        UT_Id id;
        QString file; ///< Absolute, with its extension.
    };

    UT_Id id;
    std::vector<Palette> palettes;
};

/// The form of "palette-library/palette-list.json": JSON with these fields.
///
///     format, version  "brindle-palette-list", 1
///     id               sixteen hexadecimal digits
///     palettes         in their order, each [id, file] or [id, file, location]
///
/// A file is a path that starts in the folder of the list's file, "Skin.plt", for palettes of the project; one that
/// starts in the folder of the location "ENVIRONMENT" or "JOB" for those; and an absolute path for any other.
///
/// `library` is the folder of the list's file, and `project` that of the project.
QByteArray paletteListText(const PaletteListRecord& list, const QString& library, const QString& project);

/// Throws `FolderFailure`, which names the file `path` and the place, for content that is damaged or of a newer
/// version, and for two palettes of one identity or file.
PaletteListRecord readPaletteListFile(const QString& path, const QByteArray& content);

} // namespace brindle::engine
