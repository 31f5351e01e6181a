#include "engine/palettes/palettefiles.h"

#include "core/host/msg_scope.h"
#include "core/host/ut_path.h"
#include "engine/folder/folderrecovery.h"
#include "engine/palettes/palettefile.h"
#include "engine/palettes/palettestore.h"

#include <QDir>
#include <QFileInfo>

namespace brindle::engine {

namespace {

const QString deletedName = QStringLiteral(".deleted");

QString deletedFolder(const QString& file)
{
    return QFileInfo(file).path() + u'/' + deletedName;
}

void moveOne(const QString& from, const QString& to)
{
    if (!tufile::MoveDir(from, to))
        throw FolderFailure{quoted(from) + " cannot be moved to " + quoted(to)};
}

/// Ends a save of a folder of palettes whose process was killed. That of a project is ended when the project is opened,
/// and who may only read a project ends nothing.
void endInterruptedSave(const QString& folder)
{
    const PaletteStore* store = PaletteStore::current();
    if ((store && store->isReadOnly()) || !QFileInfo::exists(folder + u'/' + save_stage::folder))
        return;
    try {
        const Folder opened(folder);
        const FolderLock alone(opened, FolderLock::Writing);
        folder_recovery::recover(opened);
    } catch (const FolderFailure& failure) {
        MSG_Scope(failure.reason + u'.', MSG_Scope::kError);
    }
}

} // namespace

QString palette_files::texturesOf(const QString& file)
{
    return file.chopped(paletteEnding.size()) + texturesEnding;
}

QString palette_files::freePath(const QString& file)
{
    if (!QFileInfo::exists(file) && !QFileInfo::exists(texturesOf(file)))
        return file;
    const QString base = file.chopped(paletteEnding.size());
    for (int number = 1;; ++number) {
        const QString free = base + u'_' + QString::number(number) + paletteEnding;
        if (!QFileInfo::exists(free) && !QFileInfo::exists(texturesOf(free)))
            return free;
    }
}

QString palette_files::removedFile(const QString& file, const UT_Id& id)
{
    const QDir folder(deletedFolder(file));
    QStringList names = folder.entryList({u'*' + paletteEnding}, QDir::Files | QDir::Hidden, QDir::Time);
    const QString own = QFileInfo(file).fileName();
    if (names.removeAll(own) > 0)
        names.prepend(own);
    for (const QString& name : names) {
        if (identityInPaletteFile(folder.filePath(name)) == id)
            return folder.filePath(name);
    }
    return {};
}

void palette_files::move(const QString& from, const QString& to)
{
    moveOne(from, to);
    if (!QFileInfo::exists(texturesOf(from)))
        return;
    try {
        moveOne(texturesOf(from), texturesOf(to));
    } catch (const FolderFailure&) {
        tufile::MoveDir(to, from);
        throw;
    }
}

void palette_files::moveToDeleted(const QString& file)
{
    move(file, freePath(deletedFolder(file) + u'/' + QFileInfo(file).fileName()));
}

bool palette_files::putBack(const QString& file, const UT_Id& id)
{
    const QString removed = removedFile(file, id);
    if (removed.isEmpty())
        return false;
    if (QFileInfo::exists(file))
        moveToDeleted(file);
    move(removed, file);
    return true;
}

PaletteSource::PaletteSource(const QString& file, const UT_Id& id) : m_path(file)
{
    endInterruptedSave(QFileInfo(file).path());
    if (QFileInfo::exists(PaletteStore::placeOnDisk(file)))
        return;
    if (const QString removed = palette_files::removedFile(file, id); !removed.isEmpty())
        m_path = removed;
}

QByteArray PaletteSource::read(bool* missing) const
{
    return folder_io::read(PaletteStore::placeOnDisk(m_path), missing);
}

QByteArray PaletteSource::readTexture(const QString& name, bool* missing) const
{
    return folder_io::read(PaletteStore::placeOnDisk(palette_files::texturesOf(m_path) + u'/' + name), missing);
}

} // namespace brindle::engine
