#include "app/desk/dockview.h"

#include <QDockWidget>

namespace app::desk {

QString DockView::name() const
{
    return m_dock.objectName();
}

QString DockView::caption() const
{
    return m_dock.windowTitle();
}

void DockView::setCaption(const QString& caption)
{
    m_dock.setWindowTitle(caption);
}

QVariant DockView::widget() const
{
    return QVariant::fromValue(m_dock.widget());
}

bool DockView::isVisible() const
{
    return m_dock.widget() && m_dock.widget()->isVisible();
}

QRect DockView::geometry() const
{
    return {m_dock.mapToGlobal(QPoint()), m_dock.size()};
}

} // namespace app::desk
