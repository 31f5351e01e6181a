#include "engine/palettes/palette.h"

#include "core/host/msg_scope.h"
#include "engine/palettes/palettefiles.h"
#include "engine/palettes/palettestore.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

#include <sys/stat.h>

using brindle::engine::Checksum;
using brindle::engine::FolderFailure;
using brindle::engine::HolderLock;
using brindle::engine::PaletteRecord;
using brindle::engine::quoted;

namespace {

/// The name that messages would give a list of entries in a command, which is in no file.
const QString streamName = QStringLiteral("entries");

/// Textures of a stream keep their pictures in it: a table of PNG files behind the entries' text.
void appendSized(QByteArray& out, const QByteArray& bytes)
{
    out += QByteArray::number(bytes.size()) + '\n' + bytes;
}

QByteArray takeSized(const QByteArray& stream, qsizetype& place)
{
    const qsizetype end = stream.indexOf('\n', place);
    const qsizetype size = stream.mid(place, end - place).toLongLong();
    place = end + 1 + size;
    return stream.mid(end + 1, size);
}

/// The lock's file stands beside the palette's.
HolderLock lockOf(const CM_PalettePathFile& path)
{
    const QString name = QFileInfo(path.filename(true)).fileName();
    return HolderLock(name + QLatin1String(".lock"), name);
}

/// Whether a name is the wanted one. Names of many colours differ at their ends most often, as numbered ones do.
bool isSame(const QString& name, const QString& wanted)
{
    return name.size() == wanted.size() && (name.isEmpty() || name.back() == wanted.back()) && name == wanted;
}

void log(const QString& sentence)
{
    MSG_Scope(sentence, MSG_Scope::kError);
}

} // namespace

qint64 brindle::engine::changeTime(const QString& path)
{
    struct stat info = {};
    if (::stat(QFile::encodeName(path), &info) != 0)
        return 0;
    return qint64(info.st_mtim.tv_sec) * 1'000'000'000 + info.st_mtim.tv_nsec;
}

CM_Palette::Private::Private(const QString& file)
    : path(file),
      name(QFileInfo(path.filename(false)).fileName()),
      lock(lockOf(path))
{}

void CM_Palette::Private::setFile(const QString& file)
{
    path = CM_PalettePathFile(file);
    lock.follow(path.path().ToString());
}

void CM_Palette::Private::setRecord(PaletteRecord record)
{
    id = record.id;
    name = record.name;
    type = record.type;
    entries = std::move(record.entries);
    forgetNames();
    byId.clear();
    byId.reserve(entries.size());
    for (const Entry& entry : entries)
        byId.emplace(entry->GetID(), entry);
    brindle::engine::PaletteStore::placesChanged();
}

bool CM_Palette::Private::insert(const Entry& entry, std::size_t index)
{
    if (!entry || index > entries.size() || !byId.emplace(entry->GetID(), entry).second)
        return false;
    entries.insert(entries.begin() + static_cast<std::ptrdiff_t>(index), entry);
    brindle::engine::PaletteStore::placesChanged();
    forgetNames();
    return true;
}

void CM_Palette::Private::remove(std::unordered_map<UT_Id, Entry>::iterator entry)
{
    entries.erase(placeOf(entry->second));
    byId.erase(entry);
    brindle::engine::PaletteStore::placesChanged();
    forgetNames();
}

std::vector<CM_Palette::Entry>::iterator CM_Palette::Private::placeOf(const Entry& entry)
{
    // From the end: what is undone was added last.
    return std::next(std::find(entries.rbegin(), entries.rend(), entry)).base();
}

CM_Palette::Entry CM_Palette::Private::named(const QString& name) const
{
    if (m_renames != CM_BaseColorObj::RenameCount())
        forgetNames();
    constexpr int fewWalks = 16; // So many cost about as much as making the index.
    if (m_walks < fewWalks) {
        ++m_walks;
        const auto found = std::find_if(entries.begin(), entries.end(),
                                        [&](const Entry& entry) { return isSame(entry->GetColorName(), name); });
        return found == entries.end() ? nullptr : *found;
    }
    if (m_firstByName.isEmpty()) {
        m_firstByName.reserve(static_cast<qsizetype>(entries.size()));
        std::for_each(entries.rbegin(), entries.rend(),
                      [this](const Entry& entry) { m_firstByName.insert(entry->GetColorName(), entry); });
    }
    return m_firstByName.value(name);
}

void CM_Palette::Private::forgetNames() const
{
    m_firstByName.clear();
    m_walks = 0;
    m_renames = CM_BaseColorObj::RenameCount();
}

void CM_Palette::Private::rememberText()
{
    if (!known)
        known.emplace();
    known->text = Checksum::of(text());
}

bool CM_Palette::Private::read()
{
    using namespace brindle::engine;
    const PaletteSource source(file(), id);
    KnownFiles read;
    read.changedAt = changeTime(source.path());
    bool missing = false;
    const QByteArray bytes = source.read(&missing);
    if (missing)
        return false;
    read.file = Checksum::of(bytes);
    known = read; // Also of a file that can't be understood.
    setRecord(readPaletteFile(file(), bytes, [&](const QString& texture) {
        bool isMissing = false;
        const QByteArray png = source.readTexture(texture, &isMissing);
        auto bitmap = BM_Bitmap::FromPng(png);
        const QString shownAs = quoted(textureFolder() + u'/' + texture);
        if (isMissing)
            log(shownAs + QStringLiteral(" is missing; the texture is kept without a picture."));
        else if (!bitmap)
            log(shownAs +
                QStringLiteral(" is no PNG file of up to %1 x %1 pixels; the texture is kept without a picture.")
                    .arg(BM_Bitmap::largestSide));
        return bitmap;
    }));
    for (const Entry& entry : entries) {
        const auto texture = CM_CastToTexture(entry);
        if (texture && texture->GetBitmap())
            read.pictures[entry->GetID().value()] = {texture->GetBitmap(), Checksum::of(texture->GetBitmap()->Png())};
    }
    known = std::move(read);
    return true;
}

CM_Palette::CM_Palette(const CM_PalettePathI& path) : d(new Private(path.filename(true)))
{
    d->id = UT_Id::Generate();
}

CM_Palette::CM_Palette(const CM_PalettePathI& path, const UT_Id& id) : d(new Private(path.filename(true)))
{
    d->id = id;
    d->content = Private::Content::Unread;
}

CM_Palette::~CM_Palette() = default;

std::shared_ptr<CM_Palette> CM_Palette::Open(const CM_PalettePathI& path, QString& error)
{
    auto palette = std::make_shared<CM_Palette>(path);
    try {
        if (palette->d->read()) {
            palette->d->rememberText();
            return palette;
        }
        error = quoted(palette->d->file()) + QStringLiteral(" is missing.");
    } catch (const FolderFailure& failure) {
        error = failure.reason + u'.';
    }
    return nullptr;
}

UT_Id CM_Palette::GetID() const
{
    return d->id;
}

QString CM_Palette::GetName() const
{
    return d->name;
}

void CM_Palette::SetName(const QString& name)
{
    d->name = name;
}

QString CM_Palette::GetDiskName() const
{
    return QFileInfo(d->path.filename(false)).fileName();
}

const CM_PalettePathI& CM_Palette::GetPath() const
{
    return d->path;
}

CM_Palette::Type CM_Palette::GetType() const
{
    return d->type;
}

void CM_Palette::SetType(Type type)
{
    d->type = type;
}

CM_Palette::State CM_Palette::state() const
{
    return d->state;
}

bool CM_Palette::IsLocked() const
{
    return d->lock.isHeld();
}

bool CM_Palette::IsLoadedFromDisk() const
{
    return d->content != Private::Content::Unread;
}

bool CM_Palette::IsFileNotFound() const
{
    return d->content == Private::Content::Missing;
}

bool CM_Palette::Load()
{
    if (IsLoadedFromDisk())
        return d->content == Private::Content::Read;
    const UT_Id expected = d->id;
    try {
        d->content = d->read() ? Private::Content::Read : Private::Content::Missing;
        if (d->content == Private::Content::Missing)
            log(quoted(d->file()) + QStringLiteral(" is missing."));
    } catch (const FolderFailure& failure) {
        d->content = Private::Content::Damaged;
        log(failure.reason + u'.');
    }
    d->id = expected; // The list's word holds: a copy of a file is another palette.
    d->rememberText();
    return d->content == Private::Content::Read;
}

const std::vector<CM_Palette::Entry>& CM_Palette::colors() const
{
    return d->entries;
}

CM_Palette::Entry CM_Palette::GetColor(int index) const
{
    const auto place = static_cast<std::size_t>(index);
    return index >= 0 && place < d->entries.size() ? d->entries[place] : nullptr;
}

CM_Palette::Entry CM_Palette::GetColorById(const UT_Id& id) const
{
    const auto found = d->byId.find(id);
    return found == d->byId.end() ? nullptr : found->second;
}

CM_Palette::Entry CM_Palette::GetColorByName(const QString& name) const
{
    return d->named(name);
}

int CM_Palette::GetColorIndex(const UT_Id& id) const
{
    const auto found = d->byId.find(id);
    return found == d->byId.end() ? -1 : static_cast<int>(d->placeOf(found->second) - d->entries.begin());
}

UT_Id CM_Palette::GetColorId(int index) const
{
    const Entry entry = GetColor(index);
    return entry ? entry->GetID() : UT_Id();
}

bool CM_Palette::AddColor(const Entry& entry)
{
    return d->insert(entry, d->entries.size());
}

bool CM_Palette::InsertColor(const Entry& entry, int index)
{
    return index >= 0 && d->insert(entry, static_cast<std::size_t>(index));
}

bool CM_Palette::RemoveColor(const UT_Id& id)
{
    const auto found = d->byId.find(id);
    if (found == d->byId.end())
        return false;
    d->remove(found);
    return true;
}

bool CM_Palette::MoveColor(int from, int to)
{
    const auto count = static_cast<int>(d->entries.size());
    if (from < 0 || from >= count || to < 0 || to >= count)
        return false;
    const auto first = d->entries.begin();
    if (from < to)
        std::rotate(first + from, first + from + 1, first + to + 1);
    else
        std::rotate(first + to, first + from, first + from + 1);
    d->forgetNames();
    return true;
}

void CM_Palette::AddDefaultColor()
{
    const auto colour = std::make_shared<CM_Color>(CM_Color::kSolid, QStringLiteral("Default"));
    colour->AddColorMarker({});
    AddColor(colour);
}

void CM_Palette::Copy(const CM_Palette& source, bool keepIds)
{
    PaletteRecord record{d->id, source.d->name, source.d->type, {}};
    record.entries.reserve(source.d->entries.size());
    for (const Entry& entry : source.d->entries)
        record.entries.push_back(entry->Clone(!keepIds));
    d->setRecord(std::move(record));
    d->content = Private::Content::Read;
}

QByteArray CM_Palette::StoreColorList(const std::vector<Entry>& entries)
{
    QByteArray stream;
    appendSized(stream, brindle::engine::paletteFileText({UT_Id(1), {}, kColour, entries}));
    for (const Entry& entry : entries) {
        const std::shared_ptr<CM_Texture> texture = CM_CastToTexture(entry);
        if (texture && texture->GetBitmap())
            appendSized(stream, texture->GetBitmap()->Png());
        else if (texture)
            appendSized(stream, {});
    }
    return stream;
}

std::vector<CM_Palette::Entry> CM_Palette::LoadColorList(const QByteArray& stream)
{
    qsizetype place = 0;
    const QByteArray text = takeSized(stream, place);
    return brindle::engine::readPaletteFile(
               streamName, text, [&](const QString&) { return BM_Bitmap::FromPng(takeSized(stream, place)); })
        .entries;
}
