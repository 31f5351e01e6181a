#include "engine/palettes/palettestore.h"

#include "core/host/msg_scope.h"
#include "engine/folder/folderrecovery.h"
#include "engine/folder/foldertransaction.h"
#include "engine/folder/holderlock.h"
#include "engine/palettes/palette.h"
#include "engine/palettes/palettefiles.h"
#include "engine/palettes/palettefolders.h"
#include "engine/palettes/palettelist.h"
#include "engine/palettes/palettesave.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>

#include <algorithm>

namespace brindle::engine {

namespace {

PaletteStore* currentStore = nullptr;
quint64 placeChanges = 0; ///< How often palettes and colours came, went or changed places.

/// The path of what lay below a folder that has moved.
QString moved(const QString& path, const QString& from, const QString& to)
{
    return path == from || palette_folders::isBelow(path, from) ? to + path.mid(from.size()) : path;
}

/// A name in the folder of a list that nothing has, for the version of another program.
QString otherListFile(const QString& file)
{
    const QString base = file.chopped(5) + QStringLiteral("-other");
    QString other = base + QStringLiteral(".json");
    for (int number = 1; QFileInfo::exists(other); ++number)
        other = base + u'_' + QString::number(number) + QStringLiteral(".json");
    return other;
}

/// Does something whose failure is a line in the log.
template <typename Action>
void attemptOrLog(Action action)
{
    try {
        action();
    } catch (const FolderFailure& failure) {
        MSG_Scope(failure.reason + u'.', MSG_Scope::kError);
    }
}

void requireFree(const HolderLock& lock, const QString& folder)
{
    if (QFileInfo::exists(folder))
        lock.requireFree(Folder(folder));
}

} // namespace

PaletteStore::PaletteStore() = default;

PaletteStore::~PaletteStore()
{
    if (currentStore == this)
        currentStore = nullptr;
}

PaletteStore* PaletteStore::current()
{
    return currentStore;
}

void PaletteStore::makeCurrent()
{
    currentStore = this;
}

QString PaletteStore::placeOnDisk(const QString& path)
{
    const PaletteStore* store = currentStore;
    if (!store || !store->m_isReadOnly || !palette_folders::isBelow(path, store->m_path))
        return path;
    const QHash<QString, QString> waiting = folder_recovery::waiting(Folder(store->m_path));
    const auto place = waiting.constFind(path.mid(store->m_path.size() + 1));
    return place == waiting.cend() ? path : store->m_path + u'/' + *place;
}

void PaletteStore::remember(const Palette& palette)
{
    if (!currentStore)
        return;
    auto& known = currentStore->m_known;
    std::erase_if(known, [&](const auto& other) { return other.expired() || other.lock() == palette; });
    known.push_back(palette);
}

/// Palettes that the list names and that were removed without a save are put back.
void PaletteStore::read(CM_PaletteList& list)
{
    if (list.IsLoadedFromDisk())
        return;
    list.Load();
    for (const Palette& palette : list.palettes()) {
        m_known.push_back(palette);
        const QString file = palette->engine().file();
        if (m_isReadOnly || QFileInfo::exists(file))
            continue;
        attemptOrLog([&] {
            if (palette_files::putBack(file, palette->GetID()))
                MSG_Scope(quoted(file) + QStringLiteral(" had been removed without a save; it is back in its place."),
                          MSG_Scope::kLog);
        });
    }
}

void PaletteStore::setPath(const QString& path)
{
    const QString before = m_path;
    m_path = path;
    if (before.isEmpty() || before == path)
        return;
    for (const auto& known : m_known) {
        if (const Palette palette = known.lock()) {
            const QString file = palette->engine().file();
            if (const QString now = moved(file, before, path); now != file)
                palette->engine().setFile(now);
        }
    }
    QHash<QString, List> elementLists;
    for (auto list = m_elementLists.begin(); list != m_elementLists.end(); ++list)
        elementLists.insert(moved(list.key(), before, path), list.value());
    m_elementLists = std::move(elementLists);
    m_listsRevision.reset();
    for (const List& list : allLists()) {
        list->engine().setFolder(moved(list->GetPath(), before, path));
        for (PaletteListRecord::Palette& entry : list->engine().saved)
            entry.file = moved(entry.file, before, path);
    }
}

/// Also those of elements that are removed, and may come back.
std::vector<PaletteStore::List> PaletteStore::allLists() const
{
    std::vector<List> lists(m_elementLists.begin(), m_elementLists.end());
    lists.push_back(m_projectList);
    std::erase(lists, nullptr);
    return lists;
}

std::vector<PaletteStore::ElementFolder> PaletteStore::elementFolders() const
{
    return m_elementFolders.list ? m_elementFolders.list() : std::vector<ElementFolder>();
}

const std::vector<PaletteStore::List>& PaletteStore::lists()
{
    const quint64 revision = m_elementFolders.revision ? m_elementFolders.revision() : 0;
    if (m_listsRevision == revision)
        return m_lists;
    m_listsRevision = revision;
    placesChanged();
    if (!m_projectList)
        m_projectList =
            std::make_shared<CM_PaletteList>(std::make_unique<CM_PaletteList::Private>(m_path, CM_PaletteList::kScene));
    std::vector<List> lists{m_projectList};
    for (const ElementFolder& folder : elementFolders()) {
        auto known = m_elementLists.constFind(folder.path);
        if (known == m_elementLists.cend()) {
            auto made = std::make_unique<CM_PaletteList::Private>(folder.path, CM_PaletteList::kElement);
            const bool isThere = QFileInfo::exists(placeOnDisk(made->file()));
            known = m_elementLists.insert(folder.path,
                                          isThere ? std::make_shared<CM_PaletteList>(std::move(made)) : nullptr);
        }
        if (*known)
            lists.push_back(*known);
    }
    for (const List& list : m_lists)
        list->engine().state = CM_PaletteList::kDeleted;
    m_lists = std::move(lists);
    for (const List& list : m_lists) {
        list->engine().state = CM_PaletteList::kLive;
        read(*list);
    }
    return m_lists;
}

PaletteStore::Palette PaletteStore::holderOf(const UT_Id& colour)
{
    const std::vector<List>& all = lists();
    if (m_holdersChange == placeChanges) {
        if (const auto known = m_holders.constFind(colour.value()); known != m_holders.cend())
            return known->lock();
    }
    Palette holder;
    for (auto list = all.begin(); list != all.end() && !holder; ++list)
        (*list)->GetColor(colour, &holder);
    if (m_holdersChange != placeChanges)
        m_holders.clear(); // The search itself may have read palettes.
    m_holdersChange = placeChanges;
    if (holder)
        m_holders.insert(colour.value(), holder);
    return holder;
}

void PaletteStore::placesChanged()
{
    ++placeChanges;
}

PaletteStore::List PaletteStore::listAt(const QString& path, bool create)
{
    const QString wanted = QDir::cleanPath(path);
    const auto find = [&]() -> List {
        for (const List& list : lists()) {
            if (list->GetPath() == wanted)
                return list;
        }
        return nullptr;
    };
    const List found = find();
    if (found || !create)
        return found;
    for (const ElementFolder& folder : elementFolders()) {
        if (folder.path != wanted)
            continue;
        m_listsRevision.reset();
        m_elementLists[wanted] = std::make_shared<CM_PaletteList>(
            std::make_unique<CM_PaletteList::Private>(wanted, CM_PaletteList::kElement));
        return find();
    }
    return nullptr;
}

bool PaletteStore::isInProject(const CM_Palette& palette) const
{
    return palette_folders::isBelow(palette.engine().file(), m_path);
}

std::vector<PaletteStore::Palette> PaletteStore::listed() const
{
    std::vector<Palette> palettes;
    for (const List& list : m_lists)
        palettes.insert(palettes.end(), list->palettes().begin(), list->palettes().end());
    return palettes;
}

void PaletteStore::addTo(FolderTransaction& save, const Folder& folder, bool isElsewhere)
{
    m_savedLists.clear();
    m_told.clear();
    m_isElsewhere = isElsewhere;
    m_save = std::make_unique<PaletteSave>(save, folder);
    if (isElsewhere || !m_lists.empty())
        lists(); // Elsewhere, all of the project's are needed, also those that nobody has asked for.
    for (const List& list : m_lists)
        addList(save, folder, list, isElsewhere);
    // The file of a list that was undone together with its element.
    for (const List& list : isElsewhere ? std::vector<List>() : allLists()) {
        const CM_PaletteList::Private& own = list->engine();
        if (own.state == CM_PaletteList::kDeleted && !own.hadFile && own.palettes.empty())
            addList(save, folder, list, isElsewhere);
    }
    std::vector<Palette> others;
    for (const Palette& palette : listed()) {
        if (!isInProject(*palette))
            others.push_back(palette);
        else if (isElsewhere)
            m_save->addCopy(palette, m_path);
        else
            m_save->add(palette);
    }
    saveInTheirFolders(others);
}

void PaletteStore::addList(FolderTransaction& save, const Folder& folder, const List& list, bool isElsewhere)
{
    const CM_PaletteList::Private& own = list->engine();
    if (!isElsewhere && !own.isModified)
        return;
    const QString name = own.file().mid(m_path.size() + 1);
    const bool isUnread = own.isDamaged && !own.isModified;
    const bool isKept = own.hadFile || !own.palettes.empty();
    if (isElsewhere && !isKept)
        return;
    const QByteArray text = isUnread ? folder_io::read(own.file()) : own.text(m_path);
    if (!isElsewhere) {
        requireFree(own.lock, own.library());
        const std::optional<Checksum> there = folder.checksum(name);
        if (there && (there != own.known || own.isDamaged) && *there != Checksum::of(text)) {
            const QString other = otherListFile(own.file());
            save.write(other.mid(m_path.size() + 1), folder.read(name));
            m_told.append(quoted(own.file()) +
                          (own.isDamaged ? QStringLiteral(" could not be read: the file is kept in ")
                                         : QStringLiteral(" was changed by another program as well: "
                                                          "that version is kept in ")) +
                          quoted(other) + u'.');
        }
    }
    if (isKept)
        save.write(name, text);
    else
        save.remove(name);
    m_savedLists.push_back({list, isKept ? std::optional(Checksum::of(text)) : std::nullopt, isUnread});
}

/// Palettes outside of the project: a save for each folder.
void PaletteStore::saveInTheirFolders(const std::vector<Palette>& palettes)
{
    QMap<QString, std::vector<Palette>> byFolder;
    for (const Palette& palette : palettes) {
        if (!PaletteSave::isUntouched(*palette))
            byFolder[palette->GetPath().path().ToString()].push_back(palette);
    }
    for (auto entry = byFolder.begin(); entry != byFolder.end(); ++entry) {
        if (!QDir().mkpath(entry.key()))
            throw FolderFailure{quoted(entry.key()) + " cannot be made"};
        const Folder folder(entry.key());
        const FolderLock writing(folder, FolderLock::Writing);
        FolderTransaction transaction(folder);
        PaletteSave save(transaction, folder);
        for (const Palette& palette : *entry)
            save.add(palette);
        transaction.commit();
        save.done();
    }
}

void PaletteStore::saved(const Folder& folder)
{
    if (m_isElsewhere)
        forgetFilesOfRemoved();
    setPath(folder.path());
    for (const SavedList& saved : m_savedLists) {
        CM_PaletteList::Private& own = saved.list->engine();
        own.known = saved.file;
        own.isModified = false;
        own.isDamaged = saved.isUnread;
        if (saved.isUnread)
            continue;
        own.saved = own.record().palettes;
    }
    m_savedLists.clear();
    if (m_save)
        m_save->done();
    m_save.reset();
    for (const QString& sentence : m_told)
        MSG_Scope(sentence, MSG_Scope::kError);
}

/// Those of palettes that are on no list, but may be put on one again, stay behind where the project goes on elsewhere.
void PaletteStore::forgetFilesOfRemoved()
{
    for (const auto& known : m_known) {
        const Palette palette = known.lock();
        if (palette && palette->state() == CM_Palette::kDeleted && isInProject(*palette))
            palette->engine().known.reset();
    }
}

void PaletteStore::savePalette(const Palette& palette)
{
    PaletteStore* store = currentStore;
    if (store && store->m_isReadOnly)
        return;
    if (!store || !store->isInProject(*palette)) {
        saveInTheirFolders({palette});
        return;
    }
    const Folder folder(store->m_path);
    if (store->m_lock)
        store->m_lock->requireSame(folder);
    const FolderLock writing(folder, FolderLock::Writing);
    FolderTransaction transaction(folder);
    PaletteSave save(transaction, folder);
    save.add(palette);
    transaction.commit();
    save.done();
}

/// Whether a list of the project on disk has the palette.
bool PaletteStore::isNamed(const UT_Id& palette) const
{
    const std::vector<List> lists = allLists();
    return std::any_of(lists.begin(), lists.end(), [&](const List& list) {
        const auto& saved = list->engine().saved;
        return std::any_of(saved.begin(), saved.end(), [&](const auto& entry) { return entry.id == palette; });
    });
}

void PaletteStore::close(const HolderLock& next)
{
    for (const auto& known : m_known) {
        if (const Palette palette = known.lock())
            palette->engine().lock.release();
    }
    for (const List& list : allLists())
        list->engine().lock.release();
    const bool isOwn = m_lock && (m_lock->isOn(m_path) || next.isOn(m_path));
    if (m_isReadOnly || !isOwn)
        return;
    for (const auto& known : m_known) {
        const Palette palette = known.lock();
        if (!palette || !isInProject(*palette) || isNamed(palette->GetID()))
            continue;
        const QString file = palette->engine().file();
        if (identityInPaletteFile(file) == palette->GetID())
            attemptOrLog([&] { palette_files::moveToDeleted(file); });
    }
    for (const List& list : allLists()) {
        for (const PaletteListRecord::Palette& entry : list->engine().saved) {
            if (m_claimed.contains(entry.id.value()) && !QFileInfo::exists(entry.file))
                attemptOrLog([&] { palette_files::putBack(entry.file, entry.id); });
        }
    }
}

} // namespace brindle::engine
