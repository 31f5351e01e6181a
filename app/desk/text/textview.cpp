#include "app/desk/text/textview.h"

#include <QFontDatabase>
#include <QScrollBar>
#include <QTextBlock>

namespace app::desk {

namespace {

struct ToneColors {
    Tone tone;
    QRgb onLight;
    QRgb onDark;
};

/// All but plain text, which has the window's own colour. Each stands out from its ground by 4.5 to 1 at least.
constexpr ToneColors toneColors[] = {
    {Tone::Input, 0xff1f5fa8, 0xff7fb8ff},
    {Tone::Error, 0xffb3261e, 0xffff8a80},
    {Tone::Debug, 0xff6b6b6b, 0xff9a9a9a},
};

/// The property under which a piece of text keeps its tone, for when the colours of the window change.
constexpr int toneProperty = QTextFormat::UserProperty;

/// Lines end one way, whatever a script ends them with.
QString withPlainLineEnds(QString text)
{
    return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
}

/// Lines that are too long are broken; the first goes on behind so many characters.
QString withBrokenLines(const QString& text, int column)
{
    QString broken;
    broken.reserve(text.size());
    for (const QChar character : text) {
        if (character == u'\n') {
            column = 0;
        } else if (++column > TextView::maxLineLength && !character.isLowSurrogate()) {
            broken += u'\n';
            column = 1;
        }
        broken += character;
    }
    return broken;
}

/// The place of the first message that isn't pushed out by those behind it.
qsizetype firstToShow(const QList<Message>& messages)
{
    qsizetype first = messages.size();
    for (qsizetype lines = 0; first > 0 && lines < TextView::maxLines;)
        lines += messages.at(--first).text.count(u'\n');
    return first;
}

} // namespace

TextView::TextView(QWidget* parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setMaximumBlockCount(maxLines);
    setWordWrapMode(QTextOption::WrapAnywhere);
    setFrameShape(QFrame::NoFrame);
}

void TextView::append(const QList<Message>& messages)
{
    QScrollBar* bar = verticalScrollBar();
    const bool atEnd = bar->value() == bar->maximum();
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    end.beginEditBlock();
    for (qsizetype place = firstToShow(messages); place < messages.size(); ++place)
        insert(end, messages.at(place));
    end.endEditBlock();
    dropOldest();
    if (atEnd)
        bar->setValue(bar->maximum());
}

void TextView::insert(QTextCursor& end, const Message& message)
{
    QTextCharFormat format;
    format.setProperty(toneProperty, static_cast<int>(message.tone));
    format.setForeground(colorOf(message.tone));
    end.insertText(withBrokenLines(withPlainLineEnds(message.text), end.positionInBlock()), format);
}

void TextView::dropOldest()
{
    if (document()->characterCount() <= maxCharacters)
        return;
    QTextCursor oldest(document());
    oldest.setPosition(document()->characterCount() - maxCharacters, QTextCursor::KeepAnchor);
    oldest.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
    oldest.removeSelectedText();
}

bool TextView::endsWithinLine() const
{
    return document()->lastBlock().length() > 1;
}

QColor TextView::colorOf(Tone tone, const QPalette& palette)
{
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    for (const ToneColors& colors : toneColors) {
        if (colors.tone == tone)
            return isDark ? colors.onDark : colors.onLight;
    }
    return palette.color(QPalette::Text);
}

void TextView::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        paintAgain();
}

void TextView::paintAgain()
{
    QTextCursor cursor(document());
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const QTextFragment fragment = piece.fragment();
            QTextCharFormat format = fragment.charFormat();
            format.setForeground(colorOf(static_cast<Tone>(format.intProperty(toneProperty))));
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(format);
        }
    }
}

} // namespace app::desk
