#include "core/host/id_identity.h"

#include "core/host/application.h"

#include <QCoreApplication>
#include <QFile>

#include <pwd.h>
#include <unistd.h>

namespace {

constexpr int gold = 3;
constexpr int sceneApplication = 1;

} // namespace

int ID_Identity::family()
{
    return gold;
}

int ID_Identity::application()
{
    return sceneApplication;
}

int ID_Identity::mode()
{
    return 0;
}

bool ID_Identity::isInteractive()
{
    const BAPP_Application* application = BAPP_Application::instance();
    return application && application->isInteractive();
}

QString ID_Identity::flavor()
{
    return QStringLiteral("Brindle");
}

QString ID_Identity::flavorTranslated()
{
    return QCoreApplication::translate("ID_Identity", "Brindle");
}

QString ID_Identity::productName()
{
    return QStringLiteral("Brindle Object Model");
}

const char* ID_Identity::majorVersion()
{
    return BRINDLE_VERSION_MAJOR;
}

const char* ID_Identity::minorVersion()
{
    return BRINDLE_VERSION_MINOR;
}

const char* ID_Identity::patchVersion()
{
    return BRINDLE_VERSION_PATCH;
}

int ID_Identity::buildNumber()
{
    return BRINDLE_BUILD_NUMBER;
}

QString ID_Identity::userName()
{
    const passwd* user = getpwuid(geteuid());
    return user ? QFile::decodeName(user->pw_name) : qEnvironmentVariable("USER");
}
