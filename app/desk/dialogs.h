#pragma once

#include <QString>

class QWidget;

namespace app::desk {

/// The dialogs of the window: its questions to the person, and its messages. Each waits for the answer.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    enum class Answer { Save, Discard, Cancel };
    /// Whether the changes of the project of this name are to be saved before it is closed.
    virtual Answer askAboutChanges(QWidget* window, const QString& project) = 0;
    /// A folder to save in, new or without a project, beginning with a proposal; empty when the person goes back.
    virtual QString askFolder(QWidget* window, const QString& proposal) = 0;
    /// A script to run, beginning in a folder; empty when the person goes back.
    virtual QString askScript(QWidget* window, const QString& folder) = 0;
    virtual void showFailure(QWidget* window, const QString& sentence) = 0;
};

/// Those of the desktop.
class DesktopDialogs final : public Dialogs {
public:
    Answer askAboutChanges(QWidget* window, const QString& project) override;
    QString askFolder(QWidget* window, const QString& proposal) override;
    QString askScript(QWidget* window, const QString& folder) override;
    void showFailure(QWidget* window, const QString& sentence) override;
};

} // namespace app::desk
