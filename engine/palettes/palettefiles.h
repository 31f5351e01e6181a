#pragma once

#include "core/host/ut_id.h"

#include <QByteArray>
#include <QString>

namespace brindle::engine {

/// The files of a palette on disk: "Skin.plt", and its textures in "Skin_textures". Both are moved together, to
/// ".deleted" beside them when the palette is removed, and back.
namespace palette_files {

QString texturesOf(const QString& file); ///< The folder of the textures of a palette's file.

/// A path that nothing stands at: the given one, or with "_1", "_2", ... behind the name and ahead of the extension.
QString freePath(const QString& file);

/// The file in ".deleted" that the palette of a path and identity was moved to; empty when there is none.
QString removedFile(const QString& file, const UT_Id& id);

/// Moves file and textures. Throws `FolderFailure`, and nothing has moved then.
void move(const QString& from, const QString& to);
void moveToDeleted(const QString& file);
/// Brings a removed palette back to its path. Another palette that stands there by now is removed. False where there is
/// nothing to bring.
bool putBack(const QString& file, const UT_Id& id);

} // namespace palette_files

/// The place from which a palette is read: its path or, as long as nobody has put it back, ".deleted".
class PaletteSource {
public:
    PaletteSource(const QString& file, const UT_Id& id);

    const QString& path() const { return m_path; } ///< The path of the palette's file.
    QByteArray read(bool* missing) const;
    QByteArray readTexture(const QString& name, bool* missing) const;

private:
    QString m_path;
};

} // namespace brindle::engine
