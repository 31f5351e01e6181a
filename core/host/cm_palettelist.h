#pragma once

#include "core/host/cm_palette.h"
#include "core/host/export.h"

#include <QString>

#include <memory>
#include <vector>

/// Palettes in an order: that of a project, or of an element. The order is kept in the file "palette-list.json" in the
/// folder "palette-library" below the list's path; it is written when the project is saved.
class BRINDLE_HOST_EXPORT CM_PaletteList {
public:
    enum Type { kElement = 1, kScene = 2, kUnspecified = 4, kHidden = 8 };
    enum State { kLive = 0, kDeleted = 1 };

    /// An empty list in no project, which nothing saves.
    CM_PaletteList(const QString& path, Type type);
    CM_PaletteList(const CM_PaletteList&) = delete;
    CM_PaletteList& operator=(const CM_PaletteList&) = delete;
    ~CM_PaletteList();

    UT_Id GetID() const;
    QString GetPath() const; ///< The folder of the project or of the element.
    Type type() const;
    State state() const; ///< Deleted from the moment that its element is removed.
    bool IsLoadedFromDisk() const;
    /// Reads the list's file if that has not been done; no file is an empty list. False when it can't be read: the list
    /// is then empty, and the log has one sentence that names the file and the place. The file stays as it is until the
    /// list is changed, and a save then keeps it aside.
    bool Load();
    bool IsLocked() const; ///< By this process.

    int Size() const;
    const std::vector<std::shared_ptr<CM_Palette>>& palettes() const;
    std::shared_ptr<CM_Palette> GetPalette(const UT_Id& id) const;
    std::shared_ptr<CM_Palette> GetPaletteByPath(const QString& path) const; ///< Of its file, with ".plt".
    int GetPaletteIndex(const UT_Id& id) const;                              ///< -1 when it is not on the list.
    /// The entry of that identity in the first palette that has it, and that palette; null when none has. Reads the
    /// palettes that have not been.
    std::shared_ptr<CM_BaseColorObj> GetColor(const UT_Id& id, std::shared_ptr<CM_Palette>* palette = nullptr) const;

    /// `index` from 0 to the size, or -1 for the end. False for a null, a palette that is on a list already, and
    /// another index. Files aren't touched.
    bool InsertPalette(const std::shared_ptr<CM_Palette>& palette, int index);
    /// Takes the palette off the list, which first reads it if that has not been done. Files aren't touched.
    bool RemovePalette(const UT_Id& id);
    /// Marks the list as changed, as when a palette on it gets another name.
    void Modify();

    class Private;
    explicit CM_PaletteList(std::unique_ptr<Private> made); ///< The engine's own.
    Private& engine() const { return *d; }                  ///< What the engine keeps of it.

private:
    std::unique_ptr<Private> d;
};
