#include "app/desk/interruptwindow.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace app::desk {

InterruptWindow::InterruptWindow(const std::function<void()>& interrupt)
{
    setWindowFlag(Qt::WindowStaysOnTopHint);
    setWindowTitle(tr("Script"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton* button = buttons->addButton(tr("&Interrupt Script"), QDialogButtonBox::ActionRole);
    connect(button, &QPushButton::clicked, this, interrupt);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("A script is running and leaves the window no time.")));
    layout->addWidget(buttons);
}

} // namespace app::desk
