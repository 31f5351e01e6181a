#pragma once

#include "app/desk/text/message.h"

#include <QPlainTextEdit>

namespace app::desk {

/// Text to read, in columns of one width, each tone in a colour of its own that suits the window's. It grows at its
/// end, and shows the end as long as the person hasn't scrolled away from it; the oldest lines go.
class TextView final : public QPlainTextEdit {
    Q_OBJECT

public:
    static constexpr int maxLines = 10'000;

    explicit TextView(QWidget* parent = nullptr);

    void append(const Message& message);
    bool endsWithinLine() const; ///< Whether the next piece goes on in a line that has begun.

    QColor colorOf(Tone tone) const;
};

} // namespace app::desk
