#include "bench/support/project.h"

#include "core/bridges/pythonfunction.h"
#include "core/frame/pythonthread.h"
#include "core/frame/threadmanager.h"
#include "engine/engine.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <memory>
#include <stdexcept>
#include <thread>

// The cost of the thread rules in an application that runs Python: the check at the start of each call, the lock around
// a thread's calls, a function on a main thread that waits for events.

namespace {

/// A session with a Python engine and a project.
class Application {
public:
    Application()
    {
        bench::Project::dropShared();
        m_session = brindle::engine::createPythonSession();
        QString error;
        if (!m_session->projectManager()->createProject(m_folder.filePath(QStringLiteral("project")), error))
            throw std::runtime_error(error.toStdString());
    }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<SC_SessionContext> m_session;
};

/// Stands in for Python: a function that does nothing.
class Helper final : public OMC::PythonFunctionHelper {
public:
    void addReference(_object*) const override {}
    void dropReference(_object*) const override {}
    QVariant call(_object*, std::vector<QVariant>&) const override { return {}; }
    _object* objectIn(const QVariant&) const override { return nullptr; }
    bool isCallable(_object*) const override { return true; }
};

class ThreadHelper final : public OMC::PythonThreadHelper {
public:
    PythonGILScope_Priv* createGILScope() override { return nullptr; }
    PythonThreadScope_Priv* createThreadScope() override { return nullptr; }
};

void checkOnMainThread(benchmark::State& state)
{
    const Application application;
    for (auto _ : state)
        OMC::BaseObject::validateThreadLock();
}

void checkUnderTheLock(benchmark::State& state)
{
    const Application application;
    std::thread([&state] {
        OMC::ThreadManager::instance()->lock();
        for (auto _ : state)
            OMC::BaseObject::validateThreadLock();
        OMC::ThreadManager::instance()->unlock();
    }).join();
}

void lockAndUnlock(benchmark::State& state)
{
    const Application application;
    std::thread([&state] {
        for (auto _ : state) {
            OMC::ThreadManager::instance()->lock();
            OMC::ThreadManager::instance()->unlock();
        }
    }).join();
}

void runOnIdleMain(benchmark::State& state)
{
    const Application application;
    OMC::PythonThreadHelper::helper() = std::make_unique<ThreadHelper>();
    OMC::PythonFunction::helperFunc() = std::make_unique<Helper>();
    {
        OMC::PythonFunction function;
        char object = 0;
        function.set(reinterpret_cast<_object*>(&object));
        const QVariant argument = QVariant::fromValue<QObject*>(&function);
        std::thread worker([&] {
            for (auto _ : state)
                OMC::ThreadManager::instance()->runOnMain(argument, true);
            QMetaObject::invokeMethod(
                QCoreApplication::instance(), [] { QCoreApplication::quit(); }, Qt::QueuedConnection);
        });
        QCoreApplication::exec();
        worker.join();
    }
    OMC::PythonFunction::helperFunc().reset();
    OMC::PythonThreadHelper::helper().reset();
}

BENCHMARK(checkOnMainThread);
BENCHMARK(checkUnderTheLock);
BENCHMARK(lockAndUnlock);
BENCHMARK(runOnIdleMain)->Iterations(3);

} // namespace
