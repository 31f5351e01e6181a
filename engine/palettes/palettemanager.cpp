#include "core/host/cm_palettemanager.h"

#include "core/host/msg_scope.h"
#include "engine/palettes/palette.h"
#include "engine/palettes/palettefiles.h"
#include "engine/palettes/palettelist.h"
#include "engine/palettes/palettestore.h"
#include "engine/session/sessionwatch.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <unistd.h>

using namespace brindle::engine;

namespace {

using Listener = std::function<void(const CM_ColorUpdateData&)>;

/// Does something on disk, whose failure is a sentence in the log and in `told`.
template <typename Action>
bool attemptOrTell(QString* told, Action action)
{
    try {
        action();
        return true;
    } catch (const FolderFailure& failure) {
        const QString sentence = failure.reason + u'.';
        MSG_Scope(sentence, MSG_Scope::kError);
        if (told)
            *told = sentence;
        return false;
    }
}

bool take(HolderLock& lock, const QString& folder, QString* holder)
{
    return attemptOrTell(holder, [&] {
        if (const PaletteStore* store = PaletteStore::current(); store && store->isReadOnly())
            throw FolderFailure{quoted(store->path()) + " is open read-only"};
        if (!QDir().mkpath(folder))
            throw FolderFailure{quoted(folder) + " cannot be made"};
        const Folder opened(folder);
        const FolderLock alone(opened, FolderLock::Writing);
        lock.require(opened);
    });
}

bool giveBack(HolderLock& lock)
{
    if (!lock.isHeld())
        return false;
    lock.release();
    return true;
}

/// `file` is what is locked.
bool isHeldByOther(const HolderLock& lock, const QString& file, QString* holder)
{
    if (lock.isHeld() || ::access(QFile::encodeName(file) + ".lock", F_OK) != 0)
        return false;
    try {
        lock.requireFree(Folder(QFileInfo(file).path()));
        return false;
    } catch (const FolderFailure& failure) {
        if (holder)
            *holder = failure.reason + u'.';
        return true;
    }
}

const std::vector<PaletteStore::List>& currentLists()
{
    static const std::vector<PaletteStore::List> none;
    PaletteStore* store = PaletteStore::current();
    return store ? store->lists() : none;
}

} // namespace

struct CM_PaletteManager::Private {
    std::vector<std::weak_ptr<Listener>> listeners;
};

CM_PaletteManager::CM_PaletteManager() : d(new Private) {}

CM_PaletteManager::~CM_PaletteManager() = default;

CM_PaletteManager* CM_PaletteManager::GetInstance()
{
    static CM_PaletteManager manager;
    return &manager;
}

std::vector<std::shared_ptr<CM_PaletteList>> CM_PaletteManager::paletteLists() const
{
    return currentLists();
}

std::shared_ptr<CM_PaletteList> CM_PaletteManager::GetPaletteList(const UT_Id& id) const
{
    for (const auto& list : currentLists()) {
        if (list->GetID() == id)
            return list;
    }
    return nullptr;
}

std::shared_ptr<CM_PaletteList> CM_PaletteManager::GetPaletteListFromPath(const QString& path, bool create)
{
    PaletteStore* store = PaletteStore::current();
    return store ? store->listAt(path, create) : nullptr;
}

std::shared_ptr<CM_Palette> CM_PaletteManager::GetPalette(const UT_Id& id) const
{
    for (const auto& list : currentLists()) {
        if (auto palette = list->GetPalette(id))
            return palette;
    }
    return nullptr;
}

CM_Palette::Entry CM_PaletteManager::GetColor(const UT_Id& id) const
{
    PaletteStore* store = PaletteStore::current();
    const std::shared_ptr<CM_Palette> holder = store ? store->holderOf(id) : nullptr;
    return holder ? holder->GetColorById(id) : nullptr;
}

UT_Id CM_PaletteManager::SearchParentPalette(const UT_Id& colour) const
{
    PaletteStore* store = PaletteStore::current();
    const std::shared_ptr<CM_Palette> holder = store ? store->holderOf(colour) : nullptr;
    return holder ? holder->GetID() : UT_Id();
}

UT_Id CM_PaletteManager::SearchParentPaletteList(const UT_Id& palette) const
{
    for (const auto& list : currentLists()) {
        if (list->engine().byId.contains(palette))
            return list->GetID();
    }
    return UT_Id();
}

bool CM_PaletteManager::LockPalette(const std::shared_ptr<CM_Palette>& palette, QString* holder)
{
    return palette && take(palette->engine().lock, palette->GetPath().path().ToString(), holder);
}

bool CM_PaletteManager::UnlockPalette(const std::shared_ptr<CM_Palette>& palette)
{
    return palette && giveBack(palette->engine().lock);
}

bool CM_PaletteManager::LockPaletteList(const std::shared_ptr<CM_PaletteList>& list, QString* holder)
{
    return list && take(list->engine().lock, list->engine().library(), holder);
}

bool CM_PaletteManager::UnlockPaletteList(const std::shared_ptr<CM_PaletteList>& list)
{
    return list && giveBack(list->engine().lock);
}

bool CM_PaletteManager::IsHeldByOther(const std::shared_ptr<CM_Palette>& palette, QString* holder) const
{
    return isHeldByOther(palette->engine().lock, palette->engine().file(), holder);
}

bool CM_PaletteManager::IsHeldByOther(const std::shared_ptr<CM_PaletteList>& list, QString* holder) const
{
    return isHeldByOther(list->engine().lock, list->engine().file(), holder);
}

bool CM_PaletteManager::PaletteExists(const CM_PalettePathI& path) const
{
    const QString file = path.filename(true);
    if (QFileInfo::exists(file))
        return true;
    for (const auto& list : currentLists()) {
        if (list->GetPaletteByPath(file))
            return true;
    }
    return false;
}

QString CM_PaletteManager::GenerateUniquePaletteName(const QString& path) const
{
    const CM_PalettePathFile wanted(path);
    const bool hasEnding = path.endsWith(paletteEnding);
    QString name = wanted.filename(false);
    for (int number = 1; PaletteExists(CM_PalettePathFile(name + paletteEnding)); ++number)
        name = wanted.filename(false) + u'_' + QString::number(number);
    return hasEnding ? name + paletteEnding : name;
}

bool CM_PaletteManager::SavePalette(const std::shared_ptr<CM_Palette>& palette, QString* error)
{
    return palette && attemptOrTell(error, [&] { PaletteStore::savePalette(palette); });
}

void CM_PaletteManager::claimPalette(const UT_Id& palette)
{
    if (PaletteStore* store = PaletteStore::current())
        store->claim(palette);
}

void CM_PaletteManager::unclaimPalette(const UT_Id& palette)
{
    if (PaletteStore* store = PaletteStore::current())
        store->unclaim(palette);
}

void CM_PaletteManager::notify(const CM_ColorUpdateData& change)
{
    announceSessionChange();
    const auto listeners = d->listeners; // One of them may add or drop others.
    for (const auto& listener : listeners) {
        if (const auto function = listener.lock())
            (*function)(change);
    }
}

std::shared_ptr<void> CM_PaletteManager::listen(std::function<void(const CM_ColorUpdateData&)> listener)
{
    std::erase_if(d->listeners, [](const auto& known) { return known.expired(); });
    auto kept = std::make_shared<Listener>(std::move(listener));
    d->listeners.push_back(kept);
    return kept;
}
