#include "core/host/cm_palettepath.h"

#include "core/host/sc_session.h"

#include <QDir>
#include <QFileInfo>

namespace {

const QString extension = QStringLiteral(".plt");

} // namespace

CM_PalettePathFile::CM_PalettePathFile(const QString& file)
    : m_file(QDir::cleanPath(QFileInfo(file).isRelative() ? QDir::currentPath() + u'/' + file : file))
{
    if (m_file.endsWith(extension))
        m_file.chop(extension.size());
}

VFS_Path CM_PalettePathFile::path() const
{
    return VFS_Path(QFileInfo(m_file).path());
}

QString CM_PalettePathFile::filename(bool withExtension) const
{
    return withExtension ? m_file + extension : m_file;
}
