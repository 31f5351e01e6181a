#include "app/desk/text/messagequeue.h"

#include <utility>

namespace app::desk {

namespace {

/// Pieces of one tone grow together up to this, so that a print of many small ones is one.
constexpr qsizetype pieceSize = 16'384;

} // namespace

void MessageQueue::post(Tone tone, const QString& text)
{
    if (text.isEmpty())
        return;
    const std::lock_guard guard(m_mutex);
    m_lost = m_lost || text.size() > capacity;
    add(tone, text.right(capacity));
    dropOldest();
    if (!std::exchange(m_posted, true))
        QMetaObject::invokeMethod(this, &MessageQueue::deliver, Qt::QueuedConnection);
}

void MessageQueue::deliver()
{
    QList<Message> messages;
    {
        const std::lock_guard guard(m_mutex);
        m_posted = false;
        messages.swap(m_messages);
        m_size = 0;
        if (std::exchange(m_lost, false))
            messages.prepend({Tone::Error, tr("\n(What came before was too much to show.)\n")});
    }
    if (!messages.isEmpty())
        Q_EMIT arrived(messages);
}

void MessageQueue::add(Tone tone, const QString& text)
{
    m_size += text.size();
    if (!m_messages.isEmpty() && m_messages.last().tone == tone && m_messages.last().text.size() < pieceSize)
        m_messages.last().text += text;
    else
        m_messages.append({tone, text});
}

void MessageQueue::dropOldest()
{
    while (m_size > capacity) {
        m_size -= m_messages.takeFirst().text.size();
        m_lost = true;
    }
}

} // namespace app::desk
