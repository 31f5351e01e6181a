#pragma once

#include <QObject>

#include <atomic>
#include <functional>

namespace brindle::engine {

/// Tells those who watch the session (engine/engine.h) that what a person sees of it as a whole may be another: which
/// project is open, whether it is saved, its undo list. Called with the application's lock held, by whatever changes
/// one of these; it costs next to nothing where nobody watches.
void announceSessionChange();

/// One who watches. It lives on the main thread, and so does what it calls.
class SessionWatcher final : public QObject {
    Q_OBJECT

public:
    explicit SessionWatcher(std::function<void()> changed);
    ~SessionWatcher() override;

    void tellLater(); ///< On any thread; once for all calls until the event loop comes to it.

private:
    std::function<void()> m_changed;
    std::atomic<bool> m_posted = false;
};

} // namespace brindle::engine
