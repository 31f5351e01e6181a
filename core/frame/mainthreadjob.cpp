#include "core/frame/mainthreadjob.h"

#include "core/bridges/pythonfunction.h"
#include "core/frame/global.h"
#include "core/frame/pythonthread.h"
#include "core/frame/unexpected.h"
#include "core/host/msg_scope.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"

#include <atomic>

namespace OMC {

namespace {

TUSceneChangeManager* sessionChangeManager()
{
    SC_SessionContext* session = Global::sessionContext();
    return session ? session->changeManager() : nullptr;
}

void logFailure(const std::exception_ptr& failure)
{
    try {
        std::rethrow_exception(failure);
    } catch (const std::exception& exception) {
        MSG_Scope(QString::fromUtf8(exception.what()), MSG_Scope::kError);
    } catch (...) {
        MSG_Scope(unexpected::text(unexpected::ErrorHasOccurred), MSG_Scope::kError);
    }
}

} // namespace

MainThreadJob::MainThreadJob(const PythonFunction& function, unsigned int& index, bool awaited)
    : m_function(dynamic_cast<PythonFunction*>(function.copy())),
      m_ticket(std::atomic_ref(index).load(std::memory_order_acquire)),
      m_awaited(awaited)
{}

MainThreadJob::~MainThreadJob() = default;

void MainThreadJob::run(unsigned int& index)
{
    TUSceneChangeManager* changes = sessionChangeManager();
    const bool notified = changes && changes->isNotifyEnabled();
    if (changes)
        changes->setNotifyEnabled(false);
    {
        const PythonGILScope python;
        if (!isOver(index)) {
            try {
                m_function->run();
            } catch (...) {
                fail(std::current_exception());
            }
        }
        std::atomic_ref(index).fetch_add(1, std::memory_order_acq_rel);
        // The function may have closed the project.
        if (changes && changes == sessionChangeManager())
            changes->setNotifyEnabled(notified);
        m_function.reset();
    }
}

bool MainThreadJob::isOver(unsigned int& index) const
{
    return std::atomic_ref(index).load(std::memory_order_acquire) != m_ticket;
}

void MainThreadJob::throwFailure()
{
    std::exception_ptr failure;
    {
        const std::lock_guard guard(m_mutex);
        m_awaited = false;
        failure = std::exchange(m_failure, nullptr);
    }
    if (failure)
        std::rethrow_exception(failure);
}

void MainThreadJob::abandon()
{
    const std::lock_guard guard(m_mutex);
    m_awaited = false;
}

void MainThreadJob::fail(std::exception_ptr failure)
{
    {
        const std::lock_guard guard(m_mutex);
        if (m_awaited) {
            m_failure = std::move(failure);
            return;
        }
    }
    logFailure(failure);
}

} // namespace OMC
