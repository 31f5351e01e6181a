#pragma once

#include "core/host/scriptconsole.h"

#include <QCompleter>
#include <QStringListModel>

#include <functional>

namespace app::desk {

class InputLine;

/// Completes the word ahead of the cursor of a console's line. One candidate is written at once. Of several, what they
/// begin with in common is written, and they are offered in a list, which narrows down as the person types on.
class CompletionList final : public QObject {
    Q_OBJECT

public:
    using Source = std::function<BAPP_ScriptConsole::Completion(const QString& line)>;

    CompletionList(InputLine& line, Source source);

    void complete();
    bool isShown() const;
    QStringList shown() const; ///< The words that the list offers now; empty while it isn't shown.

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void show();
    void narrow();
    void write(const QString& word);
    QString word() const;

    InputLine& m_line;
    Source m_source;
    QStringListModel m_candidates;
    QCompleter m_completer;
    int m_start = 0; ///< The place in the line where the word begins.
};

} // namespace app::desk
