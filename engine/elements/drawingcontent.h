#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

namespace brindle::engine {

class ContentStore;
class Folder;

/// What a content holds in memory in another form than bytes. It never changes either.
class ContentValue {
public:
    virtual ~ContentValue() = default;
    virtual QByteArray bytes() const = 0; ///< Of its file: the same at each call.
};
using ContentValuePointer = std::shared_ptr<const ContentValue>;

/// The bytes of a drawing's file, which never change: a drawing that is to have others gets another content. They are
/// in memory until the project is saved, or are made of a value when they are asked for, and on disk from then on,
/// where `bytes` reads them anew at each call.
///
/// Drawings share a content, and so does what the undo list keeps; the last one that lets go of it gives its file up.
class DrawingContent {
public:
    DrawingContent(const DrawingContent&) = delete;
    DrawingContent& operator=(const DrawingContent&) = delete;
    ~DrawingContent();

    /// Throws `FolderFailure` where the file has gone or can't be read.
    QByteArray bytes() const;
    /// The value that it was made of or read as, while somebody holds that; else null.
    ContentValuePointer value() const { return m_value ? m_value : m_known.lock(); }
    /// Its bytes were read as this value, which is given from now on for as long as others hold it.
    void remember(const ContentValuePointer& value) const { m_known = value; }
    bool isThere() const; ///< Looks for the file of one that is on disk.
    bool isOnDisk() const { return !m_place.isEmpty(); }
    /// The file's path in the project's folder; empty while the content is in memory.
    const QString& place() const { return m_place; }
    QString shownPath() const; ///< The path of its file, as messages name it; empty while it is in memory.

private:
    friend class ContentStore;

    explicit DrawingContent(std::shared_ptr<ContentStore*> store) : m_store(std::move(store)) {}

    const Folder* folder() const; ///< Of the project; null once that is closed.

    std::shared_ptr<ContentStore*> m_store; ///< Null behind it once the store is gone.
    QByteArray m_bytes;
    ContentValuePointer m_value; ///< Instead of bytes; null once it is on disk.
    mutable std::weak_ptr<const ContentValue> m_known;
    QString m_place;
    bool m_isSaved = false; ///< The file is the project's, and no longer only said to be at its place.
};

using ContentPointer = std::shared_ptr<const DrawingContent>;

} // namespace brindle::engine
