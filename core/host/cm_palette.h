#pragma once

#include "core/host/cm_color.h"
#include "core/host/cm_palettepath.h"
#include "core/host/export.h"
#include "core/host/ut_id.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

/// A palette: colours and textures in an order, under a name and an identity. Entries are found by identity in constant
/// time; two entries of a palette never share one.
class BRINDLE_HOST_EXPORT CM_Palette {
public:
    using Entry = std::shared_ptr<CM_BaseColorObj>;
    enum Type { kColour = 0, kPencilTexture = 1, kHidden = 8 };
    enum State { kLive = 0, kDeleted = 1 };

    /// An empty palette at a path under a new identity. Its name is that of the file; no file is touched.
    explicit CM_Palette(const CM_PalettePathI& path);
    /// The palette of a file that is there, or was, under the identity that a list knows it by. Load() reads it.
    CM_Palette(const CM_PalettePathI& path, const UT_Id& id);
    CM_Palette(const CM_Palette&) = delete;
    CM_Palette& operator=(const CM_Palette&) = delete;
    ~CM_Palette();

    /// The palette of a file, read under the identity that the file tells. Null, with one sentence that names the file,
    /// when it can't be read.
    static std::shared_ptr<CM_Palette> Open(const CM_PalettePathI& path, QString& error);

    UT_Id GetID() const;
    QString GetName() const;
    void SetName(const QString& name);
    QString GetDiskName() const; ///< The name of its file without the extension.
    const CM_PalettePathI& GetPath() const;
    Type GetType() const;
    void SetType(Type type);

    State state() const;           ///< Deleted from the moment that it leaves its list, until it is put on one again.
    bool IsLoadedFromDisk() const; ///< A new palette counts as loaded.
    bool IsFileNotFound() const;   ///< The file was sought and is gone.
    /// Reads the file if that has not been done. False when it can't be read; the palette is then empty, and the log
    /// has one sentence that names the file and the place. The file stays as it is until the palette is changed, and a
    /// save then keeps it aside.
    bool Load();
    bool IsLocked() const; ///< By this process.

    const std::vector<Entry>& colors() const; ///< In their order.
    Entry GetColor(int index) const;          ///< Null beyond the entries.
    Entry GetColorById(const UT_Id& id) const;
    Entry GetColorByName(const QString& name) const; ///< The first one of that name, or null.
    UT_Id GetColorId(int index) const;
    int GetColorIndex(const UT_Id& id) const;        ///< -1 when it is not there. Quickest at the end.
    bool AddColor(const Entry& entry);               ///< At the end. False for null, and for an identity that is there.
    bool InsertColor(const Entry& entry, int index); ///< `index` from 0 to the number of entries.
    bool RemoveColor(const UT_Id& id);
    bool MoveColor(int from, int to); ///< To the place that it has then. False for an index beyond the entries.
    void AddDefaultColor();           ///< The one that a new palette has: "Default", black.

    /// Takes name, type and entries of another palette, the entries under their identities or under new ones. Its own
    /// identity and path stay.
    void Copy(const CM_Palette& source, bool keepIds);

    /// Entries as bytes, and back: for commands.
    static QByteArray StoreColorList(const std::vector<Entry>& entries);
    static std::vector<Entry> LoadColorList(const QByteArray& stream);

    class Private;
    Private& engine() const { return *d; } ///< What the engine keeps of it.

private:
    std::unique_ptr<Private> d;
};
