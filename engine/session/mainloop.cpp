#include "engine/session/mainloop.h"

#include "engine/engine.h"
#include "engine/session/applicationlock.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>

namespace brindle::engine {

LoopWatcher::LoopWatcher()
{
    const QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance();
    connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &LoopWatcher::beginWait);
    connect(dispatcher, &QAbstractEventDispatcher::awake, this, [this] {
        endWait();
        ApplicationLock::instance().giveWay();
    });
    QCoreApplication::instance()->installEventFilter(this);
    ApplicationLock::instance().joinLoop();
}

LoopWatcher::~LoopWatcher()
{
    endWait();
    ApplicationLock::instance().leaveLoop();
}

bool LoopWatcher::eventFilter(QObject*, QEvent*)
{
    endWait();
    return false;
}

void LoopWatcher::beginWait()
{
    if (m_outside)
        return;
    ApplicationLock::instance().setIdle(true);
    m_outside.emplace();
}

void LoopWatcher::endWait()
{
    if (!m_outside)
        return;
    ApplicationLock::instance().setIdle(false);
    m_outside.reset();
}

struct MainLoop::Private {
    LoopWatcher watcher;
};

MainLoop::MainLoop() : d(std::make_unique<Private>()) {}

MainLoop::~MainLoop() = default;

} // namespace brindle::engine
