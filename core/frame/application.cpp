#include "core/frame/application.h"

#include "core/frame/threadmanager.h"
#include "core/host/application.h"
#include "core/host/msg_scope.h"

namespace OMC {

struct Application::Private {
    SC_SessionContext* session;
};

Application::Application(SC_SessionContext* session) : d(new Private{session}) {}

Application::Application(const Application& other) : BaseObject(other), d(new Private(*other.d)) {}

Application::~Application() = default;

std::string Application::__str__() const
{
    return "BrindleApplication()";
}

void Application::trace(const QString& message)
{
    log(message);
}

void Application::log(const QString& message)
{
    MSG_Scope(message, MSG_Scope::kLog);
}

void Application::log(const QString& message, const QString& level)
{
    const QString lower = level.toLower();
    if (lower == QLatin1String("error"))
        error(message);
    else if (lower == QLatin1String("debug"))
        debug(message);
    else
        log(message);
}

void Application::error(const QString& message)
{
    MSG_Scope(message, MSG_Scope::kError);
}

void Application::debug(const QString& message)
{
    MSG_Scope(message, MSG_Scope::kDebug);
}

void Application::processOneEvent()
{
    BUIAPP_Application::processEventsNoAppLock(true);
}

void Application::runFunction(const QVariant& function)
{
    ThreadManager::instance()->runFunction(function);
}

void Application::runOnMain(const QVariant& function, bool wait)
{
    ThreadManager::instance()->runOnMain(function, wait);
}

void Application::threadLock()
{
    ThreadManager::instance()->lock();
}

void Application::threadUnlock()
{
    ThreadManager::instance()->unlock();
}

SC_SessionContext* Application::context() const
{
    return d->session;
}

} // namespace OMC
