#include "engine/elements/contentstore.h"

#include "engine/folder/folderrecovery.h"
#include "engine/folder/foldertransaction.h"

#include <utility>

#include <unistd.h>

namespace brindle::engine {

namespace {

constexpr QLatin1String removedFolder(".brindle-removed");

bool isRemoved(const QString& place)
{
    return place.startsWith(removedFolder + u'/');
}

} // namespace

DrawingContent::~DrawingContent()
{
    if (ContentStore* store = *m_store)
        store->dropped(*this);
}

const Folder* DrawingContent::folder() const
{
    const ContentStore* store = *m_store;
    return store ? store->folder() : nullptr;
}

QByteArray DrawingContent::bytes() const
{
    if (!isOnDisk())
        return m_value ? m_value->bytes() : m_bytes;
    const Folder* folder = this->folder();
    if (!folder)
        throw FolderFailure{quoted(m_place) + " is missing"};
    bool isMissing = false;
    const QByteArray bytes = folder->read(m_place, &isMissing);
    if (isMissing)
        throw FolderFailure{quoted(folder->pathOf(m_place)) + " is missing"};
    return bytes;
}

QString DrawingContent::shownPath() const
{
    if (!isOnDisk())
        return {};
    const Folder* folder = this->folder();
    return folder ? folder->pathOf(m_place) : m_place;
}

bool DrawingContent::isThere() const
{
    const Folder* folder = this->folder();
    return !isOnDisk() || (folder && folder->kindOf(m_place) == FileKind::File);
}

ContentStore::ContentStore() : m_process(::getpid()) {}

ContentStore::~ContentStore()
{
    *m_self = nullptr;
    clearRemoved();
}

ContentPointer ContentStore::fromBytes(const QByteArray& bytes)
{
    std::shared_ptr<DrawingContent> content(new DrawingContent(m_self));
    content->m_bytes = bytes;
    return content;
}

ContentPointer ContentStore::fromValue(const ContentValuePointer& value)
{
    std::shared_ptr<DrawingContent> content(new DrawingContent(m_self));
    content->m_value = value;
    return content;
}

ContentPointer ContentStore::fromFile(const QString& place)
{
    m_places.insert(place);
    return make(place, true);
}

ContentPointer ContentStore::fromForeignFile(const QString& place)
{
    return make(place, false);
}

std::shared_ptr<DrawingContent> ContentStore::make(const QString& place, bool isSaved)
{
    std::shared_ptr<DrawingContent> content(new DrawingContent(m_self));
    content->m_place = place;
    content->m_isSaved = isSaved;
    m_onDisk.insert(content.get());
    return content;
}

void ContentStore::open(const Folder& folder, bool isOwn)
{
    m_folder = folder;
    m_isOwn = isOwn;
    clearRemoved();
}

const Folder& ContentStore::requireWritable() const
{
    if (!m_folder)
        throw FolderFailure{QStringLiteral("the project is in no folder yet")};
    if (!m_isOwn)
        throw FolderFailure{quoted(m_folder->path()) + " is open read-only"};
    return *m_folder;
}

void ContentStore::addTo(FolderTransaction& save, const Folder& folder, bool isElsewhere, const Plan& shown)
{
    m_moves.clear();
    QHash<const DrawingContent*, QStringList> places;
    for (const Shown& file : shown)
        places[file.content.get()].append(file.place);

    for (DrawingContent* content : m_onDisk) {
        QStringList targets = places.value(content);
        if (targets.isEmpty()) {
            keep(save, *content, isElsewhere);
            continue;
        }
        const bool stays = !isElsewhere && targets.removeOne(content->m_place);
        if (stays && !content->m_isSaved && folder.kindOf(content->m_place) != FileKind::File)
            throw FolderFailure{quoted(folder.pathOf(content->m_place)) + " is missing"};
        const QString first = stays ? content->m_place : targets.takeFirst();
        m_moves.emplace_back(content, first);
        if (!stays) {
            requireFree(folder, first, isElsewhere);
            if (isElsewhere || !content->m_isSaved)
                save.copy(*m_folder, content->m_place, first);
            else
                save.move(content->m_place, first);
        }
        for (const QString& place : targets) {
            requireFree(folder, place, isElsewhere);
            save.copy(*m_folder, content->m_place, place);
        }
    }
    for (const Shown& file : shown) {
        if (file.content->isOnDisk())
            continue;
        requireFree(folder, file.place, isElsewhere);
        save.write(file.place, file.content->bytes());
    }
    if (!isElsewhere) {
        for (const QString& place : m_abandoned)
            save.remove(place);
    }
}

/// Takes along what only the undo list holds. One whose file has gone can't be brought back, whatever is done.
void ContentStore::keep(FolderTransaction& save, DrawingContent& content, bool isElsewhere)
{
    if (!content.m_isSaved || (!isElsewhere && isRemoved(content.m_place)) ||
        m_folder->kindOf(content.m_place) != FileKind::File)
        return;
    const QString place = removedFolder + u'/' + QString::number(++m_lastRemoved);
    if (isElsewhere)
        save.copy(*m_folder, content.m_place, place);
    else
        save.move(content.m_place, place);
    m_moves.emplace_back(&content, place);
}

bool ContentStore::isFree(const QString& place) const
{
    return !m_folder || m_places.contains(place) || m_folder->kindOf(place) == FileKind::Nothing;
}

void ContentStore::requireFree(const Folder& folder, const QString& place, bool isElsewhere) const
{
    if ((isElsewhere || !m_places.contains(place)) && folder.kindOf(place) != FileKind::Nothing)
        throw FolderFailure{quoted(folder.pathOf(place)) + " is in the way: it is not a file of the project"};
}

std::vector<ContentPointer> ContentStore::saved(const Folder& folder, const Plan& shown)
{
    const bool isElsewhere = !m_folder || !m_folder->isSameAs(folder);
    if (isElsewhere) {
        clearRemoved();
        m_folder = folder;
        m_isOwn = true;
    }
    m_places.clear();
    m_abandoned.clear();
    for (const auto& [content, place] : m_moves) {
        content->m_place = place;
        content->m_isSaved = true;
    }
    m_moves.clear();

    std::vector<ContentPointer> standing;
    standing.reserve(shown.size());
    for (const Shown& file : shown) {
        auto* content = const_cast<DrawingContent*>(file.content.get());
        if (!content->isOnDisk()) {
            content->m_bytes.clear();
            content->m_known = std::exchange(content->m_value, nullptr);
            content->m_place = file.place;
            content->m_isSaved = true;
            m_onDisk.insert(content);
        }
        standing.push_back(content->m_place == file.place ? file.content : make(file.place, true));
        if (standing.back() != file.content)
            standing.back()->remember(content->value());
    }
    for (const DrawingContent* content : m_onDisk) {
        if (content->m_isSaved)
            m_places.insert(content->m_place);
    }
    return standing;
}

void ContentStore::dropped(DrawingContent& content)
{
    if (m_onDisk.erase(&content) == 0 || !content.m_isSaved)
        return;
    if (!isRemoved(content.m_place)) {
        m_abandoned.insert(content.m_place);
        return;
    }
    m_places.remove(content.m_place);
    if (!isOurs())
        return;
    try {
        m_folder->remove(content.m_place);
    } catch (const FolderFailure&) { // The folder goes as a whole when the project is closed.
    }
}

/// The files that wait go with the project, or with its process; a process that was forked off leaves them.
void ContentStore::clearRemoved() const
{
    if (!isOurs())
        return;
    try {
        // A save that failed and could not be taken back may have put a file of the project there.
        if (m_folder->kindOf(removedFolder) != FileKind::Folder || folder_recovery::isInterrupted(*m_folder))
            return;
        for (const QString& name : m_folder->entries(removedFolder))
            m_folder->remove(removedFolder + u'/' + name);
        m_folder->removeFolder(removedFolder);
    } catch (const FolderFailure&) { // The next process that opens the project clears it.
    }
}

bool ContentStore::isOurs() const
{
    return m_folder && m_isOwn && m_process == ::getpid();
}

} // namespace brindle::engine
