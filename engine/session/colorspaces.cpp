#include "engine/session/colorspaces.h"

#include "core/host/msg_scope.h"
#include "core/host/pl_filespec.h"
#include "engine/cels/renderlibrary.h"
#include "engine/session/colourfiles.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>

namespace brindle::engine {

namespace {

/// The web first, then television, film and the working spaces of the academy's system. "Linear" is sRGB's primaries
/// without its curve. libBrindleRender has what they mean (render/colour/ownconfiguration.cpp).
constexpr QStringView ownTable[] = {
    u"sRGB",        u"Linear",       u"Display P3", u"Adobe RGB (1998)", u"ProPhoto RGB",  u"Rec.601 NTSC",
    u"Rec.601 PAL", u"Rec.709",      u"Rec.1886",   u"Linear Rec.709",   u"Rec.2020",      u"Linear Rec.2020",
    u"Rec.2100 PQ", u"Rec.2100 HLG", u"DCI-P3",     u"P3-D65",           u"Linear P3-D65", u"CIE XYZ-D65",
    u"Cineon Log",  u"ACES2065-1",   u"ACEScg",     u"ACEScc",           u"ACEScct",       u"Raw",
};

/// Writes a file for the length of the process: the profiles of colour spaces, one for each that was asked for.
QString fileOf(const QByteArray& bytes)
{
    static std::mutex mutex;
    static PL_TemporaryDir folder;
    static QHash<QByteArray, QString> files;
    const std::lock_guard lock(mutex);
    QString& path = files[bytes];
    if (path.isEmpty()) {
        QFile file(folder.generateTemporaryName(QStringLiteral("icc")));
        if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size())
            path = file.fileName();
    }
    return path;
}

} // namespace

QStringList ownColorSpaceNames()
{
    QStringList names;
    for (const QStringView name : ownTable)
        names.append(name.toString());
    return names;
}

QString ColorSpaceManager::configurationFile() const
{
    const QString named = qEnvironmentVariable("OCIO");
    if (!named.isEmpty())
        return named;
    const QString own =
        m_projectFolder ? *m_projectFolder + u'/' + QLatin1String(ColourFiles::configurationName) : QString();
    return !own.isEmpty() && QFileInfo::exists(own) ? own : QString();
}

std::shared_ptr<const ColourConfiguration> ColorSpaceManager::configuration() const
{
    const QString file = configurationFile();
    const QFileInfo info(file);
    const QDateTime time = file.isEmpty() ? QDateTime() : info.lastModified();
    // The clock of a file may stand still between two writes; then mostly the size tells.
    const qint64 size = file.isEmpty() ? 0 : info.size();
    const std::lock_guard lock(m_mutex);
    if (m_isLoaded && m_loadedFile == file && m_loadedTime == time && m_loadedSize == size)
        return m_loaded;
    QString error;
    const RenderLibrary* library = RenderLibrary::find(error);
    m_loaded = library ? library->configuration(file, error) : nullptr;
    m_loadedFile = file;
    m_loadedTime = time;
    m_loadedSize = size;
    m_isLoaded = true;
    if (!m_loaded)
        MSG_Scope(error, MSG_Scope::kError);
    return m_loaded;
}

QStringList ColorSpaceManager::names() const
{
    if (configurationFile().isEmpty())
        return ownColorSpaceNames();
    const auto loaded = configuration();
    return loaded ? loaded->names() : QStringList();
}

QStringList ColorSpaceManager::colorSpaceNames(const QString& filter) const
{
    return names().filter(filter, Qt::CaseInsensitive);
}

bool ColorSpaceManager::contains(const QString& name) const
{
    return names().contains(name);
}

std::shared_ptr<const CEL_ColorConverter> ColorSpaceManager::converter(const QString& from, const QString& to) const
{
    const auto loaded = configuration();
    QString error;
    auto converter = loaded ? loaded->converter(from, to, error) : nullptr;
    if (!error.isEmpty())
        MSG_Scope(error, MSG_Scope::kError);
    return converter;
}

QString ColorSpaceManager::iccFilePath(const QString& name) const
{
    const auto loaded = configuration();
    const QByteArray profile = loaded ? loaded->iccProfile(name) : QByteArray();
    return profile.isEmpty() ? QString() : fileOf(profile);
}

} // namespace brindle::engine
