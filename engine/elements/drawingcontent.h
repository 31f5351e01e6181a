#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

namespace brindle::engine {

class ContentStore;

/// The bytes of a drawing's file, which never change: a drawing that is to have others gets another content. They are
/// in memory until the project is saved, and on disk from then on, where `bytes` reads them anew at each call.
///
/// Drawings share a content, and so does what the undo list keeps; the last one that lets go of it gives its file up.
class DrawingContent {
public:
    DrawingContent(const DrawingContent&) = delete;
    DrawingContent& operator=(const DrawingContent&) = delete;
    ~DrawingContent();

    /// Throws `FolderFailure` where the file has gone or can't be read.
    QByteArray bytes() const;
    bool isThere() const; ///< Looks for the file of one that is on disk.
    bool isOnDisk() const { return !m_place.isEmpty(); }
    /// Where the file stands in the project's folder; empty while it is in memory.
    const QString& place() const { return m_place; }

private:
    friend class ContentStore;

    explicit DrawingContent(ContentStore& store) : m_store(store) {}

    ContentStore& m_store;
    QByteArray m_bytes;
    QString m_place;
    bool m_isSaved = false; ///< The file is the project's, and no longer only said to be at its place.
};

using ContentPointer = std::shared_ptr<const DrawingContent>;

} // namespace brindle::engine
