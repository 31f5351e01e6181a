#include "engine/palettes/palettesave.h"

#include "core/host/msg_scope.h"
#include "engine/palettes/palettefiles.h"

#include <QFileInfo>

namespace brindle::engine {

namespace {

using Content = CM_Palette::Private::Content;

/// The picture of a texture, or null for any other entry.
std::shared_ptr<const BM_Bitmap> pictureOf(const CM_Palette::Entry& entry)
{
    const std::shared_ptr<CM_Texture> texture = CM_CastToTexture(entry);
    return texture ? texture->GetBitmap() : nullptr;
}

QString textureIn(const QString& name, quint64 id)
{
    return palette_files::texturesOf(name) + u'/' + textureFileName(UT_Id(id));
}

/// Whether the palette has a picture that is in no file, or had one that it has no more.
bool picturesDiffer(const CM_Palette::Private& palette, const KnownFiles& known)
{
    std::size_t unchanged = 0;
    for (const CM_Palette::Entry& entry : palette.entries) {
        const auto picture = pictureOf(entry);
        if (!picture)
            continue;
        const auto file = known.pictures.find(entry->GetID().value());
        if (file == known.pictures.end() || file->second.bitmap != picture)
            return true;
        ++unchanged;
    }
    return unchanged != known.pictures.size();
}

/// `text` is what the palette says now.
bool isChanged(const CM_Palette::Private& palette, const QByteArray& text)
{
    return !palette.known || palette.known->text != Checksum::of(text) || picturesDiffer(palette, *palette.known);
}

/// The name of a file in a folder that it lies below.
QString nameIn(const QString& folder, const QString& file)
{
    return file.mid(folder.size() + 1);
}

} // namespace

bool PaletteSave::isUntouched(const CM_Palette& palette)
{
    const CM_Palette::Private& own = palette.engine();
    return own.content == Content::Unread || (own.content != Content::Read && !isChanged(own, own.text()));
}

void PaletteSave::add(const std::shared_ptr<CM_Palette>& palette)
{
    const CM_Palette::Private& own = palette->engine();
    if (isUntouched(*palette))
        return;
    const QString name = nameIn(m_folder.path(), own.file());
    const QByteArray text = own.text();
    const qint64 changedAt = changeTime(own.file());
    if (!isChanged(own, text)) {
        if (changedAt == own.known->changedAt && changedAt != 0)
            return;
        if (changedAt != 0) {
            // What the file was is still known, so that its other version is kept when the palette changes.
            KnownFiles now = *own.known;
            now.changedAt = changedAt;
            if (m_folder.checksum(name) != now.file)
                m_told.append(quoted(own.file()) + QStringLiteral(" was changed by another program. The project has "
                                                                  "not changed this palette and leaves it so."));
            m_saved.push_back({palette, now, false});
            return;
        }
        m_told.append(quoted(own.file()) + QStringLiteral(" was removed by another program; it is written anew."));
    }
    if (const QString folder = QFileInfo(own.file()).path(); QFileInfo::exists(folder))
        own.lock.requireFree(Folder(folder));
    KnownFiles before;
    if (own.known && changedAt != 0) // Without its file, its textures may be gone as well.
        before = *own.known;
    if (own.content == Content::Damaged)
        before.file.reset();
    write(palette, name, text, before);
}

void PaletteSave::addCopy(const std::shared_ptr<CM_Palette>& palette, const QString& from)
{
    const CM_Palette::Private& own = palette->engine();
    const QString name = nameIn(from, own.file());
    if (m_folder.kindOf(name) != FileKind::Nothing)
        throw FolderFailure{quoted(m_folder.pathOf(name)) + " is in the way: it is not a file of the project"};
    if (isUntouched(*palette)) {
        copy(palette, name);
        return;
    }
    write(palette, name, own.text(), KnownFiles());
    const PaletteSource source(own.file(), own.id);
    for (const CM_Palette::Entry& entry : own.entries) {
        if (entry->GetKind() != CM_BaseColorObj::kTexture || pictureOf(entry))
            continue;
        const QString texture = textureFileName(entry->GetID());
        bool isMissing = false;
        const QByteArray unread = source.readTexture(texture, &isMissing);
        if (!isMissing)
            m_save.write(palette_files::texturesOf(name) + u'/' + texture, unread);
    }
}

void PaletteSave::write(const std::shared_ptr<CM_Palette>& palette, const QString& name, const QByteArray& text,
                        const KnownFiles& before)
{
    const CM_Palette::Private& own = palette->engine();
    KnownFiles now;
    now.text = Checksum::of(text);
    now.file = now.text;
    bool hasOther = isOther(name, before.file, now.text);
    for (const CM_Palette::Entry& entry : own.entries) {
        const auto picture = pictureOf(entry);
        const quint64 id = entry->GetID().value();
        const auto file = before.pictures.find(id);
        if (!picture)
            continue;
        if (file != before.pictures.end() && file->second.bitmap == picture) {
            now.pictures[id] = file->second;
            continue;
        }
        const Checksum wanted = Checksum::of(picture->Png());
        const auto known = file == before.pictures.end() ? std::nullopt : std::optional(file->second.file);
        hasOther = hasOther || isOther(textureIn(name, id), known, wanted);
        m_save.write(textureIn(name, id), picture->Png());
        now.pictures[id] = {picture, wanted};
    }
    for (const auto& [id, picture] : before.pictures) {
        if (now.pictures.contains(id) || palette->GetColorById(UT_Id(id)))
            continue;
        hasOther = hasOther || isOther(textureIn(name, id), picture.file, picture.file);
        m_save.remove(textureIn(name, id));
    }
    if (hasOther) {
        const QString why = own.content == Content::Damaged ? QStringLiteral(" could not be read: the file is kept in ")
                                                            : QStringLiteral(" was changed by another program as well: "
                                                                             "that version is kept in ");
        m_told.append(quoted(own.file()) + why + quoted(m_folder.pathOf(keepOther(name))) + u'.');
    }
    m_save.write(name, text);
    m_saved.push_back({palette, now, true});
}

/// The files as they are, with all textures.
void PaletteSave::copy(const std::shared_ptr<CM_Palette>& palette, const QString& name)
{
    const CM_Palette::Private& own = palette->engine();
    const PaletteSource source(own.file(), own.id);
    bool isMissing = false;
    const QByteArray content = source.read(&isMissing);
    if (isMissing) {
        m_told.append(quoted(own.file()) +
                      QStringLiteral(" is missing: the saved project lists a palette without it."));
        return;
    }
    m_save.write(name, content);
    copyTextures(Folder(QFileInfo(source.path()).path()), QFileInfo(source.path()).fileName(), name);
    if (own.known) {
        KnownFiles now = *own.known;
        now.file = Checksum::of(content);
        m_saved.push_back({palette, now, true});
    }
}

void PaletteSave::copyTextures(const Folder& folder, const QString& name, const QString& to)
{
    const QString textures = palette_files::texturesOf(name);
    if (folder.kindOf(textures) != FileKind::Folder)
        return;
    for (const QString& file : folder.entries(textures)) {
        const QString texture = textures + u'/' + file;
        if (folder.kindOf(texture) == FileKind::File)
            m_save.write(palette_files::texturesOf(to) + u'/' + file, folder.read(texture));
    }
}

/// The name under which the version on disk is kept.
QString PaletteSave::keepOther(const QString& name)
{
    const QString other = name.chopped(paletteEnding.size()) + QStringLiteral("-other") + paletteEnding;
    const QString kept = nameIn(m_folder.path(), palette_files::freePath(m_folder.pathOf(other)));
    bool isMissing = false;
    const QByteArray content = m_folder.read(name, &isMissing);
    if (!isMissing)
        m_save.write(kept, content);
    copyTextures(m_folder, name, kept);
    return kept;
}

/// Whether a file has a content that is neither the known nor the wanted one.
bool PaletteSave::isOther(const QString& name, const std::optional<Checksum>& known, const Checksum& wanted) const
{
    const std::optional<Checksum> there = m_folder.checksum(name);
    return there && there != known && *there != wanted;
}

void PaletteSave::done()
{
    for (Saved& saved : m_saved) {
        CM_Palette::Private& own = saved.palette->engine();
        if (saved.isWritten)
            saved.files.changedAt = changeTime(own.file());
        if (saved.files.file == saved.files.text)
            own.content = Content::Read;
        own.known = std::move(saved.files);
    }
    for (const QString& sentence : m_told)
        MSG_Scope(sentence, MSG_Scope::kError);
}

} // namespace brindle::engine
