#include "core/host/pl_filespec.h"
#include "core/host/td_celbr3d.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <unistd.h>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr char dataFileSuffix[] = "osb";

/// The data file of a 3D object at a path: the file itself, or the only one in a folder.
QString dataFileAt(const QString& path)
{
    const QFileInfo place(path);
    if (!place.isDir())
        return place.isFile() && place.suffix().compare(QLatin1String(dataFileSuffix), Qt::CaseInsensitive) == 0
                   ? place.absoluteFilePath()
                   : QString();
    const QDir folder(path);
    const QStringList files = folder.entryList({QStringLiteral("*.") + QLatin1String(dataFileSuffix)}, QDir::Files);
    return files.size() == 1 ? folder.absoluteFilePath(files.first()) : QString();
}

} // namespace

bool PL_FileSpec::HardLink(const PL_FileSpec& target, bool overwrite) const
{
    if (!QFileInfo(m_path).isFile() || m_path.contains(QChar(0)) || target.m_path.contains(QChar(0)))
        return false;
    // A name of its own first, which then takes the other's place in one step.
    const QString place = overwrite ? target.m_path + QStringLiteral(".new") : target.m_path;
    const QByteArray from = QFile::encodeName(m_path);
    const QByteArray to = QFile::encodeName(place);
    if (link(from.constData(), to.constData()) != 0 && (errno == EEXIST || !QFile::copy(m_path, place)))
        return false;
    if (!overwrite || std::rename(to.constData(), QFile::encodeName(target.m_path).constData()) == 0)
        return true;
    unlink(to.constData());
    return false;
}

PL_TemporaryDir::PL_TemporaryDir() = default;

PL_TemporaryDir::~PL_TemporaryDir()
{
    // A process that was forked off has a copy of the object, and none of the folder.
    if (!m_folder.isEmpty() && m_process == getpid())
        QDir(m_folder).removeRecursively();
}

QString PL_TemporaryDir::generateTemporaryName(const QString& suffix)
{
    if (m_folder.isEmpty() || m_process != getpid()) {
        QByteArray name = QFile::encodeName(QDir::tempPath() + QStringLiteral("/brindle-XXXXXX"));
        if (!mkdtemp(name.data()))
            return {};
        m_folder = QFile::decodeName(name);
        m_process = getpid();
    }
    const QString ending = suffix.isEmpty() ? QString() : u'.' + suffix;
    return QStringLiteral("%1/%2%3").arg(m_folder).arg(++m_last).arg(ending);
}

TD_CelBr3d::TD_CelBr3d(int, const QString&, double) {}

bool TD_CelBr3d::Load(const UT_RelPath& path, const CEL_Context&)
{
    const QString file = dataFileAt(path.ToString());
    if (file.isEmpty())
        return false;
    m_dataFile = PL_FileSpec(file);
    return true;
}
