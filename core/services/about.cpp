#include "core/services/about.h"

#include "core/frame/global.h"
#include "core/host/application.h"
#include "core/host/id_identity.h"
#include "core/host/sc_session.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdlib>
#include <initializer_list>

namespace OMC {

namespace {

enum Family { Bronze = 1, Silver = 2, Gold = 3 };

constexpr int inking = 2;

#ifdef Q_OS_WIN
constexpr bool isWindows = true;
#else
constexpr bool isWindows = false;
#endif
#ifdef Q_OS_LINUX
constexpr bool isLinux = true;
#else
constexpr bool isLinux = false;
#endif
#ifdef Q_OS_MACOS
constexpr bool isMac = true;
#else
constexpr bool isMac = false;
#endif
#ifdef Q_PROCESSOR_X86
constexpr bool isIntel = true;
#else
constexpr bool isIntel = false;
#endif
#ifdef Q_PROCESSOR_POWER
constexpr bool isPowerPc = true;
#else
constexpr bool isPowerPc = false;
#endif
#ifdef Q_PROCESSOR_ARM
constexpr bool isArm = true;
#else
constexpr bool isArm = false;
#endif

bool isOneOf(std::initializer_list<int> applications)
{
    return std::find(applications.begin(), applications.end(), ID_Identity::application()) != applications.end();
}

} // namespace

std::string About::__str__() const
{
    return "About()";
}

QString About::getFlavorString() const
{
    return ID_Identity::flavor();
}

QString About::getFlavorStringTranslated() const
{
    return ID_Identity::flavorTranslated();
}

int About::getVersionMajor() const
{
    return std::atoi(ID_Identity::majorVersion());
}

int About::getVersionMinor() const
{
    return std::atoi(ID_Identity::minorVersion());
}

int About::getVersionPatch() const
{
    return std::atoi(ID_Identity::patchVersion());
}

int About::getBuildNumber() const
{
    return ID_Identity::buildNumber();
}

QString About::getProductName() const
{
    return ID_Identity::productName();
}

bool About::isCadence() const
{
    if (!Global::sessionContext())
        return false;
    const int family = ID_Identity::family();
    return family == Gold || (family == Silver && isModeServer());
}

bool About::isCadenceGold() const
{
    return ID_Identity::family() == Gold;
}

bool About::isCadenceBronze() const
{
    return ID_Identity::family() == Bronze;
}

bool About::isCadenceSilver() const
{
    return ID_Identity::family() == Silver;
}

bool About::isSequencer() const
{
    return isOneOf({5, 50});
}

bool About::isArchWindows() const
{
    return isWindows;
}

bool About::isArchLinux() const
{
    return isLinux;
}

bool About::isArchMac() const
{
    return isMac;
}

bool About::isArchMacIntel() const
{
    return isMac && isIntel;
}

bool About::isArchMacPpc() const
{
    return isMac && isPowerPc;
}

bool About::isArchMacM1() const
{
    return isMac && isArm;
}

bool About::isInteractive() const
{
    return ID_Identity::isInteractive();
}

bool About::isAppWorkbench() const
{
    return isOneOf({3});
}

bool About::isAppDigitiser() const
{
    return isOneOf({37});
}

bool About::isAppPrimary() const
{
    return isOneOf({1, 2, 3, 4, 5, 49});
}

bool About::isAppContolHub() const
{
    return isOneOf({14});
}

bool About::isModeInking() const
{
    return ID_Identity::mode() == inking;
}

bool About::isModeExposure() const
{
    return false;
}

bool About::isModeServer() const
{
    const SC_SessionContext* session = Global::sessionContext();
    const SC_ProjectCommon* project = session ? session->projectCommon() : nullptr;
    return project && project->dbAccessPriv();
}

QString About::getPathApplication() const
{
    return QCoreApplication::instance() ? QCoreApplication::applicationFilePath() : QStringLiteral("noapplication");
}

QString About::getPathBinary() const
{
    return oswUtil::getBinDir();
}

QString About::getPathResources() const
{
    return oswUtil::getResourceDir();
}

QString About::getUserName() const
{
    return ID_Identity::userName();
}

bool About::isModePython() const
{
    return ST_BatchParams::isBatchPython();
}

bool About::isModeBatch() const
{
    return ST_BatchParams::isBatchScripting() || ST_BatchParams::isBatchRendering();
}

} // namespace OMC
