#include "core/host/ut_tracking.h"

#include "core/host/id_identity.h"

#include <QFile>
#include <QGuiApplication>
#include <QLocale>

#include <unistd.h>

const UT_Tracking& UT_Tracking::instance()
{
    static const UT_Tracking only;
    return only;
}

QString UT_Tracking::applicationFullName() const
{
    return QStringLiteral("%1 %2.%3.%4")
        .arg(ID_Identity::productName(), QLatin1String(ID_Identity::majorVersion()),
             QLatin1String(ID_Identity::minorVersion()), QLatin1String(ID_Identity::patchVersion()));
}

/// Pictures are drawn by the processor.
QString UT_Tracking::graphicsCard() const
{
    return QStringLiteral("Qt raster engine");
}

QString UT_Tracking::graphicsVersion() const
{
    return QLatin1String(qVersion());
}

QString UT_Tracking::driver() const
{
    return qGuiApp ? QGuiApplication::platformName() : QString();
}

QString UT_Tracking::cpu() const
{
    QFile file(QStringLiteral("/proc/cpuinfo"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    for (QByteArray line = file.readLine(); !line.isEmpty(); line = file.readLine()) {
        if (line.startsWith("model name"))
            return QString::fromUtf8(line.mid(line.indexOf(':') + 1)).trimmed();
    }
    return {};
}

QString UT_Tracking::memory() const
{
    const qint64 bytes = qint64(sysconf(_SC_PHYS_PAGES)) * sysconf(_SC_PAGE_SIZE);
    return QStringLiteral("%1 MB").arg(bytes >> 20);
}

QString UT_Tracking::database() const
{
    return QStringLiteral("project folders");
}

QString UT_Tracking::language() const
{
    return QLocale().name();
}
