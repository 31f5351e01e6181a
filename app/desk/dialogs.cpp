#include "app/desk/dialogs.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QMessageBox>

namespace app::desk {

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("app::desk::Dialogs", text);
}

} // namespace

Dialogs::Answer DesktopDialogs::askAboutChanges(QWidget* window, const QString& project)
{
    QMessageBox box(QMessageBox::Warning, translated("Unsaved Changes"),
                    translated("The project \"%1\" has changes that are not saved.").arg(project),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, window);
    box.setInformativeText(translated("Save them before the project is closed?"));
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
    case QMessageBox::Save:
        return Answer::Save;
    case QMessageBox::Discard:
        return Answer::Discard;
    default:
        return Answer::Cancel;
    }
}

QString DesktopDialogs::askFolder(QWidget* window, const QString& proposal)
{
    // A folder that stands there is entered; a new one is named like a file.
    return QFileDialog::getSaveFileName(window, translated("Save Project As"), proposal, QString(), nullptr,
                                        QFileDialog::DontConfirmOverwrite);
}

QString DesktopDialogs::askScript(QWidget* window, const QString& folder)
{
    return QFileDialog::getOpenFileName(window, translated("Run Script"), folder,
                                        translated("Python scripts (*.py);;All files (*)"));
}

void DesktopDialogs::showFailure(QWidget* window, const QString& sentence)
{
    QMessageBox::critical(window, QCoreApplication::applicationName(), sentence);
}

} // namespace app::desk
