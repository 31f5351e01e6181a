#pragma once

#include "app/desk/text/messagequeue.h"

#include <QWidget>

class QCheckBox;

namespace app::desk {

class TextView;

/// The log: a line a message, errors and lines for developers marked and in colours of their own. Those for developers
/// are shown only when the person asks, also the ones that came before. While it lives it takes the log of the process.
class LogPanel final : public QWidget {
    Q_OBJECT

public:
    explicit LogPanel(bool showsDebug, QWidget* parent = nullptr);
    ~LogPanel() override;

    TextView& view() const { return *m_view; }
    QCheckBox& debugBox() const { return *m_debug; }
    void clear();

private:
    void add(const QList<Message>& messages);
    void show(const QList<Message>& messages);
    void showAll();

    MessageQueue m_arriving;
    QList<Message> m_messages; ///< All that are kept, shown or not.
    qsizetype m_size = 0;      ///< Their length in characters.
    TextView* m_view;
    QCheckBox* m_debug;
};

} // namespace app::desk
