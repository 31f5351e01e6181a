#pragma once

#include "core/host/cm_palette.h"
#include "engine/folder/foldertransaction.h"
#include "engine/palettes/palette.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace brindle::engine {

/// Adds palettes to a save of the folder that they lie in or below.
///
/// A palette that has not changed since it was read or written is left alone. Where it has changed and its files on
/// disk have, too, the version on disk is kept beside it: "Skin.plt" as "Skin-other.plt" with its textures (or
/// "Skin-other_1",
/// ...), and the log says so. A file that was changed while the palette wasn't stays as it is, which the log tells as
/// well. Files of textures that the palette had and has no more are removed.
class PaletteSave {
public:
    PaletteSave(FolderTransaction& save, const Folder& folder) : m_save(save), m_folder(folder) {}

    /// Adds the palettes that changed. Throws `FolderFailure`, also where another process has the lock of a palette
    /// that has changed.
    void add(const std::shared_ptr<CM_Palette>& palette);
    /// All of it, for another folder in which the project goes on: as the palette is, or, where it was not read, as it
    /// is on disk. `from` is the path of the project's folder, which the palette lies below.
    void addCopy(const std::shared_ptr<CM_Palette>& palette, const QString& from);

    /// Whether there is nothing to save, because the palette was never read and not changed either.
    static bool isUntouched(const CM_Palette& palette);

    /// The save has happened, and the palettes have the paths that they were saved to.
    void done();

private:
    struct Saved {
        std::shared_ptr<CM_Palette> palette;
        KnownFiles files;
        bool isWritten;
    };

    void write(const std::shared_ptr<CM_Palette>& palette, const QString& name, const QByteArray& text,
               const KnownFiles& before);
    void copy(const std::shared_ptr<CM_Palette>& palette, const QString& name);
    void copyTextures(const Folder& folder, const QString& name, const QString& to);
    QString keepOther(const QString& name);
    bool isOther(const QString& name, const std::optional<Checksum>& known, const Checksum& wanted) const;

    FolderTransaction& m_save;
    const Folder& m_folder;
    std::vector<Saved> m_saved;
    QStringList m_told; ///< For the log, once the save has happened.
};

} // namespace brindle::engine
