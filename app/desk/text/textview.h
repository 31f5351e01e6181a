#pragma once

#include "app/desk/text/message.h"

#include <QPlainTextEdit>

namespace app::desk {

/// Text to read, in columns of one width, each tone in a colour of its own that suits the window's. It grows at its
/// end, and shows the end as long as the person hasn't scrolled away from it. The oldest lines go. A line without end
/// is broken: it would be laid out as a whole with each piece.
class TextView final : public QPlainTextEdit {
    Q_OBJECT

public:
    static constexpr int maxLines = 10'000;
    static constexpr int maxLineLength = 10'000;
    static constexpr int maxCharacters = 4'000'000;

    explicit TextView(QWidget* parent = nullptr);

    void append(const Message& message) { append(QList<Message>{message}); }
    void append(const QList<Message>& messages);
    bool endsWithinLine() const; ///< Whether the next piece goes on in a line that has begun.

    QColor colorOf(Tone tone) const { return colorOf(tone, palette()); }
    static QColor colorOf(Tone tone, const QPalette& palette);

protected:
    void changeEvent(QEvent* event) override;

private:
    void insert(QTextCursor& end, const Message& message);
    void dropOldest();
    void paintAgain();
};

} // namespace app::desk
