#include "app/desk/layout.h"

namespace app::desk {

void Layout::add(QDockWidget& dock)
{
    DockView& view = *m_views.emplace_back(std::make_unique<DockView>(dock));
    m_frame.areas.push_back({view.caption(), {&view}});
}

} // namespace app::desk
