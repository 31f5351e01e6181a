#include "app/desk/menuresponder.h"

#include <algorithm>

namespace app::desk {

namespace {

enum Result { Done = 0, NothingToDo = 1, NotDone = 2 };

} // namespace

MenuResponder::MenuResponder(AC_Manager* manager) : m_manager(manager)
{
    if (m_manager)
        m_manager->addResponder(this);
}

MenuResponder::~MenuResponder()
{
    if (m_manager)
        m_manager->removeResponder(this);
}

QStringList MenuResponder::slotNames() const
{
    QStringList names;
    for (const Entry& entry : m_entries)
        names.append(entry.slot);
    return names;
}

int MenuResponder::perform(const QString& slot, const std::vector<QVariant>&)
{
    const Entry* entry = find(slot);
    if (!entry || !entry->canRun())
        return NothingToDo;
    return entry->run() ? Done : NotDone;
}

int MenuResponder::validate(const QString& slot, bool& isEnabled, bool& isChecked) const
{
    const Entry* entry = find(slot);
    isEnabled = entry && entry->canRun();
    isChecked = entry && entry->isChecked();
    return entry ? 0 : 1;
}

const MenuResponder::Entry* MenuResponder::find(const QString& slot) const
{
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry& entry) { return entry.slot == slot; });
    return found == m_entries.end() ? nullptr : &*found;
}

} // namespace app::desk
