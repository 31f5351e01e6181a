#pragma once

#include "app/desk/dockview.h"
#include "core/host/tu_layoutmanager.h"

#include <memory>
#include <vector>

namespace app::desk {

/// Tells the application's layout of a window's docks: each is an area with one view, under the title that it has when
/// it is added.
class Layout {
public:
    Layout() { TULayoutManager::instance()->addFrame(m_frame); }
    Layout(const Layout&) = delete;
    Layout& operator=(const Layout&) = delete;
    ~Layout() { TULayoutManager::instance()->removeFrame(m_frame); }

    void add(QDockWidget& dock);

private:
    std::vector<std::unique_ptr<DockView>> m_views;
    TULayoutFrame m_frame;
};

} // namespace app::desk
