#pragma once

#include "core/host/cm_palette.h"
#include "engine/folder/holderlock.h"
#include "engine/palettes/palettefile.h"

#include <QHash>

#include <map>
#include <optional>
#include <unordered_map>

namespace brindle::engine {

/// The state of a palette's files when they were read or written last.
struct KnownFiles {
    std::optional<Checksum> file; ///< The content on disk; nothing where no file was there.
    qint64 changedAt = 0;         ///< When the file was changed, in nanoseconds since 1970.
    Checksum text;                ///< The palette's own text at that time.
    /// The pictures by their textures, and the contents of their files.
    struct Picture {
        std::shared_ptr<const BM_Bitmap> bitmap;
        Checksum file;
    };
    std::map<quint64, Picture> pictures;
};

/// When a file was changed, in nanoseconds since 1970; 0 when there is none.
qint64 changeTime(const QString& path);

} // namespace brindle::engine

/// The state of a palette of the open engine.
class CM_Palette::Private {
public:
    enum class Content { Unread, Read, Missing, Damaged };

    explicit Private(const QString& file);

    QString file() const { return path.filename(true); }
    QString textureFolder() const { return path.filename(false) + brindle::engine::texturesEnding; }
    /// The palette's files are those at another path from now on: the project goes on elsewhere.
    void setFile(const QString& file);
    brindle::engine::PaletteRecord record() const { return {id, name, type, entries}; }
    QByteArray text() const { return brindle::engine::paletteFileText(record()); }
    void setRecord(brindle::engine::PaletteRecord record);
    bool insert(const Entry& entry, std::size_t index);
    void remove(std::unordered_map<UT_Id, Entry>::iterator entry);
    std::vector<Entry>::iterator placeOf(const Entry& entry); ///< Of one that is there.
    Entry named(const QString& name) const;
    void forgetNames() const; ///< Entries came, went, moved or were renamed.
    /// Reads the file under the identity that it has itself. Throws `FolderFailure`; false where there is no file.
    bool read();
    void rememberText(); ///< From now on, the present text counts as unchanged.

    UT_Id id;
    CM_PalettePathFile path;
    QString name;
    Type type = kColour;
    State state = kLive;
    Content content = Content::Read;
    std::vector<Entry> entries;
    std::unordered_map<UT_Id, Entry> byId;
    brindle::engine::HolderLock lock;
    std::optional<brindle::engine::KnownFiles> known; ///< Nothing for a palette that was never on disk.

private:
    mutable QHash<QString, Entry> m_firstByName; ///< Empty until enough names were looked for since the last change.
    mutable int m_walks = 0;                     ///< Look-ups since then that went through the entries.
    mutable quint64 m_renames = 0;               ///< CM_BaseColorObj::RenameCount() then.
};
