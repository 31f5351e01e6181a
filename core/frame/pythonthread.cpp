#include "core/frame/pythonthread.h"

#include "core/frame/mainthreadstate.h"
#include "core/frame/threadmanager.h"

namespace OMC {

PythonThreadHelper::PythonGILScope_Priv::~PythonGILScope_Priv() = default;
PythonThreadHelper::PythonThreadScope_Priv::~PythonThreadScope_Priv() = default;
PythonThreadHelper::~PythonThreadHelper() = default;

std::unique_ptr<PythonThreadHelper>& PythonThreadHelper::helper()
{
    // Never destroyed: functions of scripts may be dropped while the process ends.
    static auto* helper = new std::unique_ptr<PythonThreadHelper>;
    return *helper;
}

PythonGILScope::PythonGILScope()
{
    if (ThreadManager::mainThread()) {
        m_counted = true;
        MainThreadState::enterPython();
    }
    m_priv.reset(PythonThreadHelper::helper()->createGILScope());
}

PythonGILScope::~PythonGILScope()
{
    release();
}

void PythonGILScope::release()
{
    if (m_counted)
        MainThreadState::leavePython();
    m_counted = false;
    if (m_priv)
        m_priv->release();
}

PythonThreadScope::PythonThreadScope() : m_priv(PythonThreadHelper::helper()->createThreadScope()) {}

// It isn't released first: whoever wrote the helper ends an unreleased scope in its destructor.
PythonThreadScope::~PythonThreadScope() = default;

void PythonThreadScope::release()
{
    if (m_priv)
        m_priv->release();
}

} // namespace OMC
