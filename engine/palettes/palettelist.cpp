#include "engine/palettes/palettelist.h"

#include "core/host/msg_scope.h"
#include "engine/palettes/palette.h"
#include "engine/palettes/palettefiles.h"
#include "engine/palettes/palettefolders.h"
#include "engine/palettes/palettelistfile.h"
#include "engine/palettes/palettestore.h"

#include <algorithm>

using namespace brindle::engine;

namespace {

const QString listFileName = QStringLiteral("palette-list.json");

} // namespace

CM_PaletteList::Private::Private(const QString& folder, Type kind)
    : path(folder),
      type(kind),
      lock(listFileName + QLatin1String(".lock"), listFileName)
{}

QString CM_PaletteList::Private::library() const
{
    return path + u'/' + palette_folders::libraryName;
}

QString CM_PaletteList::Private::file() const
{
    return library() + u'/' + listFileName;
}

void CM_PaletteList::Private::setFolder(const QString& folder)
{
    if (folder == path)
        return;
    path = folder;
    lock.follow(library());
}

PaletteListRecord CM_PaletteList::Private::record() const
{
    PaletteListRecord record{id, {}};
    for (const Palette& palette : palettes)
        record.palettes.push_back({palette->GetID(), palette->GetPath().filename(true)});
    return record;
}

QByteArray CM_PaletteList::Private::text(const QString& project) const
{
    return paletteListText(record(), library(), project);
}

bool CM_PaletteList::Private::insert(const Palette& palette, std::size_t index)
{
    if (!palette || index > palettes.size() || byId.contains(palette->GetID()))
        return false;
    const auto hasFile = [&](const Palette& other) { return other->GetPath().isEqual(palette->GetPath()); };
    if (std::any_of(palettes.begin(), palettes.end(), hasFile))
        return false;
    palettes.insert(palettes.begin() + static_cast<std::ptrdiff_t>(index), palette);
    byId.emplace(palette->GetID(), palette.get());
    palette->engine().state = CM_Palette::kLive;
    PaletteStore::placesChanged();
    return true;
}

CM_PaletteList::CM_PaletteList(const QString& path, Type type) : d(new Private(path, type))
{
    d->isRead = true;
}

CM_PaletteList::CM_PaletteList(std::unique_ptr<Private> made) : d(std::move(made)) {}

CM_PaletteList::~CM_PaletteList() = default;

UT_Id CM_PaletteList::GetID() const
{
    return d->id;
}

QString CM_PaletteList::GetPath() const
{
    return d->path;
}

CM_PaletteList::Type CM_PaletteList::type() const
{
    return d->type;
}

CM_PaletteList::State CM_PaletteList::state() const
{
    return d->state;
}

bool CM_PaletteList::IsLoadedFromDisk() const
{
    return d->isRead;
}

bool CM_PaletteList::Load()
{
    if (d->isRead)
        return !d->isDamaged;
    d->isRead = true;
    try {
        bool isMissing = false;
        const QByteArray content = folder_io::read(PaletteStore::placeOnDisk(d->file()), &isMissing);
        if (isMissing)
            return true;
        d->hadFile = true;
        d->known = Checksum::of(content);
        const PaletteListRecord record = readPaletteListFile(d->file(), content);
        d->id = record.id;
        for (const PaletteListRecord::Palette& palette : record.palettes)
            d->insert(std::make_shared<CM_Palette>(CM_PalettePathFile(palette.file), palette.id), d->palettes.size());
        d->saved = record.palettes;
        return true;
    } catch (const FolderFailure& failure) {
        d->isDamaged = true;
        MSG_Scope(failure.reason + u'.', MSG_Scope::kError);
        return false;
    }
}

bool CM_PaletteList::IsLocked() const
{
    return d->lock.isHeld();
}

int CM_PaletteList::Size() const
{
    return static_cast<int>(d->palettes.size());
}

const std::vector<std::shared_ptr<CM_Palette>>& CM_PaletteList::palettes() const
{
    return d->palettes;
}

std::shared_ptr<CM_Palette> CM_PaletteList::GetPalette(const UT_Id& id) const
{
    const int index = GetPaletteIndex(id);
    return index < 0 ? nullptr : d->palettes[static_cast<std::size_t>(index)];
}

std::shared_ptr<CM_Palette> CM_PaletteList::GetPaletteByPath(const QString& path) const
{
    const CM_PalettePathFile wanted(path);
    const auto found = std::find_if(d->palettes.begin(), d->palettes.end(),
                                    [&](const auto& palette) { return palette->GetPath().isEqual(wanted); });
    return found == d->palettes.end() ? nullptr : *found;
}

int CM_PaletteList::GetPaletteIndex(const UT_Id& id) const
{
    const auto known = d->byId.find(id);
    if (known == d->byId.end())
        return -1;
    const auto found = std::find_if(d->palettes.begin(), d->palettes.end(),
                                    [&](const auto& palette) { return palette.get() == known->second; });
    return static_cast<int>(found - d->palettes.begin());
}

std::shared_ptr<CM_BaseColorObj> CM_PaletteList::GetColor(const UT_Id& id, std::shared_ptr<CM_Palette>* holder) const
{
    for (const std::shared_ptr<CM_Palette>& palette : d->palettes) {
        palette->Load();
        if (CM_Palette::Entry entry = palette->GetColorById(id)) {
            if (holder)
                *holder = palette;
            return entry;
        }
    }
    return nullptr;
}

bool CM_PaletteList::InsertPalette(const std::shared_ptr<CM_Palette>& palette, int index)
{
    const std::size_t place = index == -1 ? d->palettes.size() : static_cast<std::size_t>(index);
    if (index < -1 || !d->insert(palette, place))
        return false;
    PaletteStore::remember(palette);
    Modify();
    return true;
}

bool CM_PaletteList::RemovePalette(const UT_Id& id)
{
    const int index = GetPaletteIndex(id);
    if (index < 0)
        return false;
    const std::shared_ptr<CM_Palette> palette = d->palettes[static_cast<std::size_t>(index)];
    palette->Load();
    palette->engine().state = CM_Palette::kDeleted;
    d->palettes.erase(d->palettes.begin() + index);
    d->byId.erase(id);
    PaletteStore::placesChanged();
    Modify();
    return true;
}

void CM_PaletteList::Modify()
{
    d->isModified = true;
}
