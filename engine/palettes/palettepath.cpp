#include "core/host/cm_palettepath.h"

#include "core/host/cm_palettemanager.h"
#include "core/host/sc_session.h"
#include "engine/folder/safenames.h"
#include "engine/palettes/palettefile.h"
#include "engine/palettes/palettefolders.h"
#include "engine/palettes/palettestore.h"
#include "engine/session/projectcommon.h"

#include <QDir>
#include <QFileInfo>

using namespace brindle::engine;

namespace {

const PaletteStore* storeOf(const SC_ProjectCommon* project)
{
    ProjectCommon* own = engineProjectCommon(const_cast<SC_ProjectCommon*>(project));
    return own ? &own->palettes() : nullptr;
}

/// The folder of an element; empty when there is none.
QString elementFolder(const PaletteStore* store, int id)
{
    if (!store)
        return {};
    for (const PaletteStore::ElementFolder& folder : store->elementFolders()) {
        if (folder.id == id)
            return folder.path;
    }
    return {};
}

QString libraryIn(const QString& folder)
{
    return folder.isEmpty() ? QString() : folder + u'/' + palette_folders::libraryName;
}

} // namespace

CM_PalettePathFile::CM_PalettePathFile(const QString& file)
    : m_file(QDir::cleanPath(QFileInfo(file).isRelative() ? QDir::currentPath() + u'/' + file : file))
{
    if (m_file.endsWith(paletteEnding))
        m_file.chop(paletteEnding.size());
}

VFS_Path CM_PalettePathFile::path() const
{
    return VFS_Path(QFileInfo(m_file).path());
}

QString CM_PalettePathFile::filename(bool withExtension) const
{
    return withExtension ? m_file + paletteEnding : m_file;
}

CM_PalettePathProject::CM_PalettePathProject(const SC_ProjectCommon* project, int kind, const QString& name,
                                             int elementId)
    : m_folder(palette_folders::shared(kind)),
      m_name(CM_PalettePathGen::FileName(name))
{
    const PaletteStore* store = storeOf(project);
    if (kind == CM_Scene && store)
        m_folder = libraryIn(store->path());
    if (kind == CM_Element || kind == CM_ElementOther)
        m_folder = libraryIn(elementFolder(store, elementId));
}

QString CM_PalettePathProject::filename(bool withExtension) const
{
    if (m_folder.isEmpty())
        return {};
    const QString file = m_folder + u'/' + m_name;
    return withExtension ? file + paletteEnding : file;
}

CM_PaletteListPathProject::CM_PaletteListPathProject(const SC_ProjectCommon* project, int kind, unsigned int elementId)
{
    const PaletteStore* store = storeOf(project);
    if (kind == CM_Element)
        m_folder = elementFolder(store, static_cast<int>(elementId));
    else if (store)
        m_folder = store->path();
}

CM_PalettePathGen* CM_PalettePathGen::GetInstance()
{
    static CM_PalettePathGen generator;
    return &generator;
}

CM_PalettePathFile CM_PalettePathGen::Generate(const QString& base, const QString& listPath) const
{
    const QString file = QDir(libraryIn(listPath)).absoluteFilePath(base);
    return CM_PalettePathFile(CM_PaletteManager::GetInstance()->GenerateUniquePaletteName(file));
}

QString CM_PalettePathGen::FileName(const QString& paletteName)
{
    return safe_names::made(paletteName);
}

CM_LocationType DbSceneData::getLocationRelativeToElement(const QString& folder) const
{
    const QString path = QDir::cleanPath(folder);
    const auto isIn = [&](const QString& place) { return path == place || palette_folders::isBelow(path, place); };
    if (QFileInfo(path).fileName() == QLatin1String(".deleted"))
        return CM_Backup;
    for (const PaletteStore::ElementFolder& element : m_palettes.elementFolders()) {
        if (isIn(libraryIn(element.path)))
            return CM_Element;
        if (isIn(element.path))
            return CM_ElementOther;
    }
    if (isIn(m_palettes.path()))
        return CM_Scene;
    for (const CM_LocationType shared : {CM_Job, CM_Environment}) {
        if (isIn(palette_folders::shared(shared)))
            return shared;
    }
    return CM_External;
}
