#pragma once

#include "app/desk/console/consolepanel.h"
#include "app/desk/console/inputline.h"
#include "app/desk/dialogs.h"
#include "app/desk/logpanel.h"
#include "app/desk/mainwindow.h"
#include "app/desk/text/textview.h"
#include "tests/app/desk/support/process.h"

#include <gmock/gmock.h>

#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

/// A person who answers as the test says.
class ScriptedDialogs final : public app::desk::Dialogs {
public:
    Answer askAboutChanges(QWidget*, const QString& project) override
    {
        questions.append(project);
        if (whileAsked)
            whileAsked();
        return answer;
    }
    QString askFolder(QWidget*, const QString& asked) override
    {
        proposal = asked;
        return folder;
    }
    QString askScript(QWidget*, const QString&) override { return script; }
    void showFailure(QWidget*, const QString& sentence) override { failures.append(sentence); }

    Answer answer = Answer::Cancel;
    std::function<void()> whileAsked;
    QString folder;
    QString script;
    QString proposal;
    QStringList questions;
    QStringList failures;
};

/// A window on a new project, in which `app` is the application.
class DeskTest : public testing::Test {
protected:
    DeskTest();
    ~DeskTest() override;

    app::desk::ConsolePanel& console() { return window->console(); }
    app::desk::InputLine& input() { return console().input(); }
    QString output() { return console().output().toPlainText(); }
    QString logged() { return window->log().view().toPlainText(); }

    void type(const QString& text); ///< Into the console, with Enter behind it.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void paste(const QString& text);
    /// The output of a statement, cut to its end.
    QString answerTo(const QString& statement);

    /// Whether an expression of Python is true.
    static bool holds(const QString& expression);

    /// Runs the event loop until the condition holds; false after some seconds.
    static bool waitFor(const std::function<bool()>& condition);
    static void runEvents(int milliseconds);

    QString path(const QString& name) const { return folder.filePath(name); }
    QString write(const QString& name, const QString& text) const; ///< A file; its path.

    QTemporaryDir folder;
    ScriptedDialogs dialogs;
    std::unique_ptr<app::desk::MainWindow> window;
};

/// The tone of the first place where the text stands in the view; none where it doesn't.
std::optional<app::desk::Tone> toneOf(const app::desk::TextView& view, const QString& text);
