#pragma once

#include "core/host/lay_view.h"

class QDockWidget;

namespace app::desk {

/// A dock of the window, as scripts and reports know it: by the name that its place is kept under.
class DockView final : public LAY_View {
public:
    explicit DockView(QDockWidget& dock) : m_dock(dock) {} ///< The dock outlives it.

    QString name() const override;
    QString caption() const override;
    void setCaption(const QString& caption) override;
    QString displayName() const override { return caption(); }
    void setDisplayName(const QString& name) override { setCaption(name); }
    QVariant widget() const override;
    QVariant toolbar() const override { return {}; }
    QObject* menu() const override { return nullptr; }
    bool isVisible() const override;
    QRect geometry() const override;

private:
    QDockWidget& m_dock;
};

} // namespace app::desk
