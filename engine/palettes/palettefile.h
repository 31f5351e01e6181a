#pragma once

#include "core/host/cm_palette.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <vector>

namespace brindle::engine {

/// The contents of a palette's file.
struct PaletteRecord {
    UT_Id id;
    QString name;
    CM_Palette::Type type = CM_Palette::kColour;
    std::vector<CM_Palette::Entry> entries;
};

/// Gives the picture of a texture by the name of its file; null when it is missing.
using TextureSource = std::function<std::shared_ptr<const BM_Bitmap>(const QString& file)>;

/// The form of a palette's file (".plt"): text in UTF-8, an entry a line, so that two versions compare line by line.
///
///     brindle-palette 1
///     palette 5d1a6b0c33e0f2a7 colour "Hero"
///     0c8e4f6fb1a90d22 solid "Skin" ffd9b8ff
///     51f2b0a4c99d1e03 linear "Sky" 0 87ceebff 1 ffffff00
///     e0d7330a1b2c4f58 radial "Cheek" 0 ff8080ff 0.25 ff808080 1 ff808000
///     9b3de2f7045c6a81 texture "Wood" tile "9b3de2f7045c6a81.png"
///
/// The first line has the version. The second has the palette's identity, its type ("colour", "pencil_texture" or
/// "hidden") and its name. Then follow the entries in their order, each with its identity, kind and name. The markers
/// of a colour are pairs of a position (0 to 1, in the fewest digits that read back as the same number) and a colour
/// (red, green, blue, alpha, two hexadecimal digits each); a solid colour has the colour alone. A texture says whether
/// it repeats ("tile" or "single") and names its file in the folder beside the palette's file that ends in "_textures".
/// Texts are in double quotes and escaped as in JSON.
QByteArray paletteFileText(const PaletteRecord& palette);

inline constexpr QLatin1String paletteEnding(".plt");
inline constexpr QLatin1String
    texturesEnding("_textures"); ///< Follows the name of the palette's file in the folder's name.

QString textureFileName(const UT_Id& id); ///< In that folder.

/// Throws `FolderFailure`, which names the file `path` and the line, for content that is damaged or of a newer version,
/// and for two entries of one identity. A texture whose file is missing comes without a picture.
PaletteRecord readPaletteFile(const QString& path, const QByteArray& content, const TextureSource& textures);

/// The identity in a palette's file, without reading the rest; one that names nothing when it is none.
UT_Id identityInPaletteFile(const QString& path);

} // namespace brindle::engine
