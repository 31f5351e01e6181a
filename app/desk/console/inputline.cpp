#include "app/desk/console/inputline.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QMimeData>

namespace app::desk {

namespace {

constexpr int indent = 4;

} // namespace

InputLine::InputLine(QWidget* parent) : QPlainTextEdit(parent)
{
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setFrameShape(QFrame::NoFrame);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void InputLine::setText(const QString& text)
{
    selectAll();
    insertPlainText(text);
    moveCursor(QTextCursor::End);
}

QString InputLine::textBeforeCursor() const
{
    return text().left(textCursor().selectionEnd());
}

QString InputLine::textBehindCursor() const
{
    return text().mid(textCursor().selectionEnd());
}

void InputLine::replaceBeforeCursor(int start, const QString& text)
{
    QTextCursor cursor = textCursor();
    const int end = cursor.selectionEnd();
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.insertText(text);
    setTextCursor(cursor);
}

QSize InputLine::sizeHint() const
{
    const int margins = 2 * static_cast<int>(document()->documentMargin());
    return {fontMetrics().averageCharWidth() * 20, fontMetrics().lineSpacing() + margins};
}

bool InputLine::event(QEvent* event)
{
    // A line without a change of its own leaves these keys to the project's undo and redo.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if ((key->matches(QKeySequence::Undo) && !document()->isUndoAvailable()) ||
            (key->matches(QKeySequence::Redo) && !document()->isRedoAvailable())) {
            event->ignore();
            return true;
        }
    }
    return QPlainTextEdit::event(event);
}

bool InputLine::isLeftToOthers(const QKeyEvent& event) const
{
    if (!m_choosing)
        return false;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Escape:
        return true;
    default:
        return false;
    }
}

void InputLine::keyPressEvent(QKeyEvent* event)
{
    if (isLeftToOthers(*event))
        event->ignore();
    else if (!handleKey(*event) && !m_waiting)
        QPlainTextEdit::keyPressEvent(event);
}

bool InputLine::handleKey(const QKeyEvent& event)
{
    // The same keys copy what is selected.
    const bool isInterrupt = event.key() == Qt::Key_C && event.modifiers() == Qt::ControlModifier;
    if (isInterrupt && textCursor().hasSelection()) {
        copy();
        return true;
    }
    if (isInterrupt) {
        Q_EMIT interruptAsked();
        return true;
    }
    if (m_waiting)
        return false;
    if (event.key() == Qt::Key_L && event.modifiers() == Qt::ControlModifier) {
        Q_EMIT clearAsked();
        return true;
    }
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT entered();
        return true;
    case Qt::Key_Up:
        Q_EMIT olderAsked();
        return true;
    case Qt::Key_Down:
        Q_EMIT newerAsked();
        return true;
    case Qt::Key_Tab:
        if (textBeforeCursor().trimmed().isEmpty())
            insertPlainText(QString(indent, u' '));
        else
            Q_EMIT completionAsked();
        return true;
    case Qt::Key_Backtab:
        return true;
    default:
        return false;
    }
}

bool InputLine::canInsertFromMimeData(const QMimeData* source) const
{
    return !m_waiting && source->hasText();
}

void InputLine::insertFromMimeData(const QMimeData* source)
{
    if (!canInsertFromMimeData(source))
        return;
    const QString text = source->text().replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    if (text.contains(u'\n'))
        Q_EMIT linesPasted(text);
    else
        insertPlainText(text);
}

} // namespace app::desk
