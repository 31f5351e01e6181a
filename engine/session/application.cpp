#include "core/host/application.h"

#include "engine/engine.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFileInfo>

#include <dlfcn.h>

namespace {

brindle::engine::BatchMode currentBatchMode = brindle::engine::BatchMode::None;
BAPP_Application* runningApplication = nullptr;

QString& binDir()
{
    static QString folder;
    return folder;
}

class ScriptHost final : public BAPP_ScriptHost {
public:
    void setScriptEngine(BAPP_ScriptEngine* engine) override { m_engine = engine; }
    void setVectorizationInterface(BAPP_VectorizationInterface* vectorization) override
    {
        m_vectorization = vectorization;
    }
    BAPP_ScriptEngine* scriptEngine() const override { return m_engine; }
    BAPP_VectorizationInterface* vectorizationInterface() const override { return m_vectorization; }

private:
    BAPP_ScriptEngine* m_engine = nullptr;
    BAPP_VectorizationInterface* m_vectorization = nullptr;
};

} // namespace

namespace brindle::engine {

BatchMode batchMode()
{
    return currentBatchMode;
}

void setBatchMode(BatchMode mode)
{
    currentBatchMode = mode;
}

void setBinDir(const QString& folder)
{
    binDir() = folder;
}

struct Application::Private {
    QString name;
    QString version;
    bool interactive;
    ScriptHost scriptHost;
};

Application::Application(const QString& name, const QString& version, bool interactive)
    : d(new Private{name, version, interactive, {}})
{}

Application::~Application() = default;

QString Application::name() const
{
    return d->name;
}

QString Application::version() const
{
    return d->version;
}

bool Application::isInteractive() const
{
    return d->interactive;
}

BAPP_ScriptHost* Application::scriptHost() const
{
    return &d->scriptHost;
}

} // namespace brindle::engine

bool ST_BatchParams::isBatchScripting()
{
    return currentBatchMode == brindle::engine::BatchMode::Scripting;
}

bool ST_BatchParams::isBatchRendering()
{
    return currentBatchMode == brindle::engine::BatchMode::Rendering;
}

bool ST_BatchParams::isBatchPython()
{
    return currentBatchMode == brindle::engine::BatchMode::Python;
}

BAPP_Application* BAPP_Application::instance()
{
    return runningApplication;
}

BAPP_Application::BAPP_Application()
{
    runningApplication = this;
}

BAPP_Application::~BAPP_Application()
{
    if (runningApplication == this)
        runningApplication = nullptr;
}

BAPP_ScriptEngine::~BAPP_ScriptEngine()
{
    BAPP_ScriptHost* host = runningApplication ? runningApplication->scriptHost() : nullptr;
    if (host && host->scriptEngine() == this)
        host->setScriptEngine(nullptr);
}

void BUIAPP_Application::processEventsNoAppLock(bool userInput)
{
    if (QCoreApplication::instance())
        QCoreApplication::processEvents(userInput ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
}

QString oswUtil::getBinDir()
{
    if (!binDir().isEmpty())
        return binDir();
    Dl_info own{};
    if (!dladdr(&currentBatchMode, &own))
        return {};
    return QFileInfo(QFileInfo(QString::fromLocal8Bit(own.dli_fname)).canonicalFilePath()).path();
}

/// Beside the libraries, where the Python package has its place as well.
QString oswUtil::getResourceDir()
{
    const QString libraries = getBinDir();
    return libraries.isEmpty() ? libraries : libraries + QStringLiteral("/brindle");
}
