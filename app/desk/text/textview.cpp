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

/// Lines end one way, whatever a script ends them with.
QString withPlainLineEnds(QString text)
{
    return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
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

void TextView::append(const Message& message)
{
    QScrollBar* bar = verticalScrollBar();
    const bool atEnd = bar->value() == bar->maximum();
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    QTextCharFormat format;
    format.setForeground(colorOf(message.tone));
    end.insertText(withPlainLineEnds(message.text), format);
    if (atEnd)
        bar->setValue(bar->maximum());
}

bool TextView::endsWithinLine() const
{
    return document()->lastBlock().length() > 1;
}

QColor TextView::colorOf(Tone tone) const
{
    const bool isDark = palette().color(QPalette::Base).lightness() < 128;
    for (const ToneColors& colors : toneColors) {
        if (colors.tone == tone)
            return isDark ? colors.onDark : colors.onLight;
    }
    return palette().color(QPalette::Text);
}

} // namespace app::desk
