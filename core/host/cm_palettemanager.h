#pragma once

#include "core/host/cm_palettelist.h"
#include "core/host/export.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

/// What of the palettes changed, for those who show colours.
struct CM_ColorUpdateData {
    UT_Id paletteList; ///< Names nothing where no list changed.
    UT_Id palette;
    std::vector<UT_Id> colours; ///< Empty: all of the palette.
};

/// The palettes of the open project, by the lists that hold them, and their files and locks. Without an open project
/// there is none.
class BRINDLE_HOST_EXPORT CM_PaletteManager {
public:
    static CM_PaletteManager* GetInstance();

    /// The project's, and then those of the elements that have one.
    std::vector<std::shared_ptr<CM_PaletteList>> paletteLists() const;
    std::shared_ptr<CM_PaletteList> GetPaletteList(const UT_Id& id) const;
    /// The list of the project or element that has this folder; with `create` a new one where an element has none. Null
    /// for any other folder.
    std::shared_ptr<CM_PaletteList> GetPaletteListFromPath(const QString& path, bool create);
    std::shared_ptr<CM_Palette> GetPalette(const UT_Id& id) const; ///< On any list.
    /// A colour or texture, of the first palette that has it, in the order of `paletteLists()` and of the palettes on
    /// each; null where none has it. In constant time, once it was asked for.
    CM_Palette::Entry GetColor(const UT_Id& id) const;
    /// The palette that `GetColor()` takes a colour from, and the first list that has a palette. An identity that names
    /// nothing when none has.
    UT_Id SearchParentPalette(const UT_Id& colour) const;
    UT_Id SearchParentPaletteList(const UT_Id& palette) const;

    /// A lock is a file beside the palette's file or the list's ("Skin.plt.lock"), which tells the person, machine and
    /// process that holds it. It is held until it is given back, the project is closed or the process ends. False when
    /// another process has it, and in a project that is open read-only or a folder that can't be written: the log has
    /// one sentence with the holder or the cause, and so has `holder`. A lock that is held is given once more.
    ///
    /// Without the lock, a palette can be changed and saved as long as no other process holds it. While one does,
    /// saving a palette or list that has changed is refused, and the sentence names the holder.
    bool LockPalette(const std::shared_ptr<CM_Palette>& palette, QString* holder);
    bool UnlockPalette(const std::shared_ptr<CM_Palette>& palette); ///< False when this process doesn't hold it.
    bool LockPaletteList(const std::shared_ptr<CM_PaletteList>& list, QString* holder);
    bool UnlockPaletteList(const std::shared_ptr<CM_PaletteList>& list);

    /// Whether another process has the lock, and who (`holder`). It costs one question to the file system.
    bool IsHeldByOther(const std::shared_ptr<CM_Palette>& palette, QString* holder) const;
    bool IsHeldByOther(const std::shared_ptr<CM_PaletteList>& list, QString* holder) const;

    bool PaletteExists(const CM_PalettePathI& path) const; ///< As a file, or on a list.
    /// A path of a palette that doesn't exist: the given one (with or without ".plt"), or with "_1", "_2", ... behind
    /// the name.
    QString GenerateUniquePaletteName(const QString& path) const;
    /// Writes the palette's file and textures now, all or nothing. False, with a sentence in the log and in `error`,
    /// when it can't. In a project that is open read-only nothing is written, which is no failure: the palette is
    /// written where the project is saved.
    bool SavePalette(const std::shared_ptr<CM_Palette>& palette, QString* error = nullptr);
    /// The palette's files have moved to ".deleted": when the project is closed and its saved list names the palette,
    /// they are put back. The other call tells that they stand in their place again.
    void claimPalette(const UT_Id& palette);
    void unclaimPalette(const UT_Id& palette);

    void notify(const CM_ColorUpdateData& change);
    /// Calls the function at each change until the returned value is destroyed.
    std::shared_ptr<void> listen(std::function<void(const CM_ColorUpdateData&)> listener);

private:
    CM_PaletteManager();
    ~CM_PaletteManager();

    struct Private;
    std::unique_ptr<Private> d;
};
