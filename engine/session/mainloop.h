#pragma once

#include "core/host/scp_pythonengine.h"

#include <QObject>

#include <optional>

namespace brindle::engine {

/// Tells the application's lock what the event loop of the main thread does.
///
/// The event dispatcher tells when it is about to wait, but tells that it goes on only after it has handled events. So
/// each event that is delivered tells it as well: a filter of the application object sees all of them first. A nested
/// event loop inside a script's call holds Python's lock instead; that one is given up as well while the loop waits.
class LoopWatcher final : public QObject {
    Q_OBJECT

public:
    LoopWatcher();
    ~LoopWatcher() override;

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void beginWait();
    void endWait();

    std::optional<SCP_PythonEngine::ThreadStateScope> m_outside;
};

} // namespace brindle::engine
