#pragma once

#include "app/desk/console/completionlist.h"
#include "app/desk/console/inputhistory.h"
#include "app/desk/text/messagequeue.h"

#include <QWidget>

class QLabel;

namespace app::desk {

class InputLine;
class ScriptRunner;
class TextView;

/// A conversation with the interpreter: what was typed, printed and raised, and below it a prompt with the line that is
/// being typed. What scripts of any thread print is shown here while it lives.
class ConsolePanel final : public QWidget {
    Q_OBJECT

public:
    /// `historyFile` as in InputHistory.
    ConsolePanel(ScriptRunner& scripts, const QString& historyFile, QWidget* parent = nullptr);
    ~ConsolePanel() override;

    TextView& output() const { return *m_output; }
    InputLine& input() const { return *m_input; }
    CompletionList& completion() { return m_completion; }
    QString prompt() const;

    /// Runs a script file among the names of what is typed here. The exit code when it asked to end the process.
    std::optional<int> runFile(const QByteArray& path, const QList<QByteArray>& arguments = {});
    void interrupt(); ///< Interrupts the script that runs, or drops the statement that is being typed.
    void clear();     ///< Clears the output.

    bool eventFilter(QObject* receiver, QEvent* event) override;

Q_SIGNALS:
    /// A statement asked to end the process.
    void leaveAsked(int exitCode);

protected:
    void changeEvent(QEvent* event) override;

private:
    void enter();
    void enterLines(const QString& text);
    void recall(const std::optional<QString>& line);
    void echo(const QString& line);
    void say(Tone tone, const QString& text);
    void finish(BAPP_ScriptConsole::Outcome outcome);
    void paintLine();
    void showPrompt();

    ScriptRunner& m_scripts;
    MessageQueue m_printed;
    InputHistory m_history;
    TextView* m_output;
    QLabel* m_prompt;
    InputLine* m_input;
    CompletionList m_completion;
    bool m_incomplete = false;
};

} // namespace app::desk
