#pragma once

#include <QPlainTextEdit>

namespace app::desk {

/// The one line in which the person types a statement. It knows the keys of a console and tells what they ask for; a
/// text of several lines, however it gets here, is told as well and not taken in.
class InputLine final : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit InputLine(QWidget* parent = nullptr);

    QString text() const { return toPlainText(); }
    void setText(const QString& text); ///< With the cursor at its end.
    QString textBeforeCursor() const;
    QString textBehindCursor() const;
    void replaceBeforeCursor(int start, const QString& text); ///< Replaces the text from there to the cursor.

    /// While it waits, typing does nothing; interrupting and copying work.
    void setWaiting(bool waiting) { m_waiting = waiting; }
    /// While somebody else has taken over the keys that choose, as a list of completions: they are left to that one.
    void setChoosing(bool choosing) { m_choosing = choosing; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void entered();
    void olderAsked();
    void newerAsked();
    void completionAsked();
    void interruptAsked();
    void clearAsked();
    void linesPasted(const QString& text);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    bool handleKey(const QKeyEvent& event);
    bool isLeftToOthers(const QKeyEvent& event) const;

    bool m_waiting = false;
    bool m_choosing = false;
};

} // namespace app::desk
