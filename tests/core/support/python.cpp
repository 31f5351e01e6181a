#include "tests/core/support/python.h"

#include <atomic>
#include <mutex>

namespace {

StandInPython* current = nullptr;
std::mutex callsMutex;

void write(const char* call, int change)
{
    const std::lock_guard lock(callsMutex);
    if (!current)
        return;
    current->threadCalls.append(QLatin1String(call));
    current->gilScopes += change;
}

class GilScope final : public OMC::PythonThreadHelper::PythonGILScope_Priv {
public:
    GilScope() { write("enter", 1); }
    ~GilScope() override { write("destroy", m_released ? 0 : -1); }
    void release() override { write("release", std::exchange(m_released, true) ? 0 : -1); }

private:
    bool m_released = false;
};

class ThreadScope final : public OMC::PythonThreadHelper::PythonThreadScope_Priv {
public:
    ThreadScope() { write("leave", 0); }
    ~ThreadScope() override { write("destroy", 0); }
    void release() override { write("release", 0); }
};

class ThreadHelper final : public OMC::PythonThreadHelper {
public:
    PythonGILScope_Priv* createGILScope() override { return new GilScope; }
    PythonThreadScope_Priv* createThreadScope() override { return new ThreadScope; }
};

class FunctionHelper final : public OMC::PythonFunctionHelper {
public:
    void addReference(_object* function) const override { std::atomic_ref(function->references).fetch_add(1); }
    void dropReference(_object* function) const override { std::atomic_ref(function->references).fetch_sub(1); }
    QVariant call(_object* function, std::vector<QVariant>& arguments) const override
    {
        return function->body(arguments);
    }
    _object* objectIn(const QVariant&) const override { return nullptr; }
    bool isCallable(_object*) const override { return true; }
};

} // namespace

StandInPython::StandInPython()
{
    current = this;
    OMC::PythonThreadHelper::helper() = std::make_unique<ThreadHelper>();
    OMC::PythonFunction::helperFunc() = std::make_unique<FunctionHelper>();
}

StandInPython::~StandInPython()
{
    OMC::PythonFunction::helperFunc().reset();
    OMC::PythonThreadHelper::helper().reset();
    const std::lock_guard lock(callsMutex);
    current = nullptr;
}

QVariant argument(OMC::PythonFunction& function)
{
    return QVariant::fromValue<QObject*>(&function);
}
