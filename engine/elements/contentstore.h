#pragma once

#include "engine/elements/drawingcontent.h"
#include "engine/folder/folder.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <optional>
#include <unordered_set>
#include <utility>
#include <vector>

namespace brindle::engine {

class FolderTransaction;

/// The contents of a project's drawings: what keeps files in step with what drawings and the undo list hold.
///
/// A save gives each content that a drawing shows its place, by writing, moving or copying its file. One that only the
/// undo list holds waits in the folder ".brindle-removed" of the project, until an undo and a save bring it back, or
/// the undo list lets go of it, or the project is closed. Files that the store doesn't know stay as they are, and are
/// in the way where one of its own is to stand.
///
/// Contents that outlive it have no file any more.
class ContentStore {
public:
    ContentStore();
    ContentStore(const ContentStore&) = delete;
    ContentStore& operator=(const ContentStore&) = delete;
    ~ContentStore(); ///< Clears what waited, where the project is this process's.

    ContentPointer fromBytes(const QByteArray& bytes);
    /// One whose bytes are made of the value when it is saved, or asked for them.
    ContentPointer fromValue(const ContentValuePointer& value);
    /// The content of a file of the saved project.
    ContentPointer fromFile(const QString& place);
    /// The content of a file that is said to stand at a place, and becomes the project's with the next save.
    ContentPointer fromForeignFile(const QString& place);

    /// The project was opened in this folder. `isOwn`: nobody else works on it, so that what another process left
    /// waiting there goes.
    void open(const Folder& folder, bool isOwn);
    const Folder* folder() const { return m_folder ? &*m_folder : nullptr; } ///< Null before the project is on disk.

    /// The same; throws `FolderFailure` where the project isn't on disk, or is open read-only.
    const Folder& requireWritable() const;

    /// Whether nothing stands at a place of the project's folder but what is the project's own.
    bool isFree(const QString& place) const;

    /// A content that a drawing shows, and the place at which its file is to stand. `assign` gives the drawing another
    /// content of the same bytes, where several drawings have shared one and get files of their own.
    struct Shown {
        ContentPointer content;
        QString place;
    };
    using Plan = std::vector<Shown>;

    /// Adds the files of these to a save, in the folder of the project or elsewhere.
    void addTo(FolderTransaction& save, const Folder& folder, bool isElsewhere, const Plan& shown);
    /// The save has happened. Gives, in the order of what was shown, the contents that stand there now.
    std::vector<ContentPointer> saved(const Folder& folder, const Plan& shown);

private:
    friend class DrawingContent;

    /// A content, and the place of its file once the save has happened.
    using Move = std::pair<DrawingContent*, QString>;

    std::shared_ptr<DrawingContent> make(const QString& place, bool isSaved);
    void keep(FolderTransaction& save, DrawingContent& content, bool isElsewhere);
    void requireFree(const Folder& folder, const QString& place, bool isElsewhere) const;
    void clearRemoved() const;
    void dropped(DrawingContent& content);
    bool isOurs() const;

    std::shared_ptr<ContentStore*> m_self = std::make_shared<ContentStore*>(this);
    std::optional<Folder> m_folder;
    bool m_isOwn = false;
    long long m_process;
    std::unordered_set<DrawingContent*> m_onDisk;
    QSet<QString> m_places;    ///< The places of the project's files, those included that go with the next save.
    QSet<QString> m_abandoned; ///< Places among them whose contents nobody holds any more.
    quint64 m_lastRemoved = 0;
    std::vector<Move> m_moves; ///< The moves of the save that is under way.
};

} // namespace brindle::engine
