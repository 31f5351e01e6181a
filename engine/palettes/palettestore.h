#pragma once

#include "core/host/cm_palettelist.h"
#include "engine/folder/folderio.h"
#include "engine/folder/projectfiles.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace brindle::engine {

class HolderLock;
class PaletteSave;

/// The palettes of a project: its list and those of its elements, their files, and what of them is saved.
///
/// A save writes the lists and palettes that changed; those in the project's folder join its own save, and each other
/// folder (environment, job, anywhere else) gets its own ahead of that. A palette's file also is written when it is
/// made and moved when it is removed, ahead of the save that writes the list: closing the project without that save
/// puts the files back to what the saved lists name, and so does the next opening after a process that was killed.
class PaletteStore final : public ProjectFiles {
public:
    using List = std::shared_ptr<CM_PaletteList>;
    using Palette = std::shared_ptr<CM_Palette>;

    /// The folder of an element, which may have palettes.
    struct ElementFolder {
        int id;
        QString path; ///< Absolute.
    };

    PaletteStore();
    PaletteStore(const PaletteStore&) = delete;
    PaletteStore& operator=(const PaletteStore&) = delete;
    ~PaletteStore() override;

    /// The open project's, or null.
    static PaletteStore* current();
    void makeCurrent(); ///< From now on, until it is destroyed or another one is.
    /// The present path of a file of the open project, while an interrupted save waits for a process that may write to
    /// end it; the path itself for any other file.
    static QString placeOnDisk(const QString& path);
    /// Takes note of a palette of the open project, which is on a list or will be.
    static void remember(const Palette& palette);

    QString path() const { return m_path; }
    /// The project's folder; its palettes go along.
    void setPath(const QString& path);
    bool isReadOnly() const { return m_isReadOnly; }
    void setReadOnly(bool isReadOnly) { m_isReadOnly = isReadOnly; }
    /// The lock of the project's folder, which outlives the store.
    void setLock(const HolderLock& lock) { m_lock = &lock; }
    struct ElementFolders {
        std::function<std::vector<ElementFolder>()> list;
        std::function<quint64()> revision; ///< Another number once the list may differ.
    };
    void setElementFolders(ElementFolders folders) { m_elementFolders = std::move(folders); }
    std::vector<ElementFolder> elementFolders() const;

    const std::vector<List>& lists(); ///< The project's, and those that elements have by now, by the elements' ids.
    /// The first palette, in the order of the lists, that has a colour; null where none has. It is remembered until
    /// palettes or colours come, go or change their places.
    Palette holderOf(const UT_Id& colour);
    /// To be called after a palette came to a list or left it, or a colour came to a palette or left it.
    static void placesChanged();
    List listAt(const QString& path, bool create); ///< Null for a folder that is not the project's or an element's.

    void addTo(FolderTransaction& save, const Folder& folder, bool isElsewhere) override;
    void saved(const Folder& folder) override;
    /// Writes one palette now, also one of no project. Throws `FolderFailure`.
    static void savePalette(const Palette& palette);
    /// The palette's files have moved to ".deleted", or back.
    void claim(const UT_Id& palette) { m_claimed.insert(palette.value()); }
    void unclaim(const UT_Id& palette) { m_claimed.erase(palette.value()); }
    /// Gives all locks back, and puts the files back to what the saved lists name. The last call. `next` is the lock of
    /// the project that takes the place of this one, which has this one's lock where that is opened anew.
    void close(const HolderLock& next);

private:
    void read(CM_PaletteList& list);
    bool isInProject(const CM_Palette& palette) const;
    std::vector<Palette> listed() const;
    void addList(FolderTransaction& save, const Folder& folder, const List& list, bool isElsewhere);
    static void saveInTheirFolders(const std::vector<Palette>& palettes);
    void forgetFilesOfRemoved();
    std::vector<List> allLists() const;
    bool isNamed(const UT_Id& palette) const;

    QString m_path;
    bool m_isReadOnly = false;
    const HolderLock* m_lock = nullptr;
    ElementFolders m_elementFolders;
    List m_projectList;
    QHash<QString, List> m_elementLists; ///< The lists by the elements' folders; null for an element without one.
    std::vector<List> m_lists;
    std::optional<quint64> m_listsRevision;              ///< Of the folders that these lists were made for.
    QHash<quint64, std::weak_ptr<CM_Palette>> m_holders; ///< The palettes of colours that were asked for.
    quint64 m_holdersChange = 0;                         ///< The last change of places that they know of.
    std::vector<std::weak_ptr<CM_Palette>> m_known; ///< All palettes that were on a list since the project was opened.
    std::set<quint64> m_claimed;

    struct SavedList {
        List list;
        std::optional<Checksum> file;
        bool isUnread; ///< The damaged file was copied.
    };
    std::unique_ptr<PaletteSave> m_save; ///< Set from `addTo` to `saved`, as are the next three.
    bool m_isElsewhere = false;
    std::vector<SavedList> m_savedLists;
    QStringList m_told;
};

} // namespace brindle::engine
