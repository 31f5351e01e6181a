#pragma once

#include "app/desk/text/message.h"

#include <QList>
#include <QObject>

#include <mutex>

namespace app::desk {

/// Carries text from whatever thread it comes from to the main thread, which gets it from its event loop, in order and
/// many pieces at a time. Whoever posts never waits. What comes faster than it is fetched is not kept without end: the
/// oldest goes, and a line says so in its place.
class MessageQueue final : public QObject {
    Q_OBJECT

public:
    static constexpr qsizetype capacity = 1'000'000; ///< In characters.

    MessageQueue() = default;

    void post(Tone tone, const QString& text); ///< On any thread.
    void deliver();                            ///< Delivers what has come so far, now; on the main thread.

Q_SIGNALS:
    void arrived(const QList<app::desk::Message>& messages);

private:
    void add(Tone tone, const QString& text);
    void dropOldest();

    std::mutex m_mutex; ///< Guards all below.
    QList<Message> m_messages;
    qsizetype m_size = 0;
    bool m_lost = false;
    bool m_posted = false;
};

} // namespace app::desk
