#pragma once

#include "core/host/ac_manager.h"

#include <functional>

namespace app::desk {

/// The menus of the window as a responder, "desk": a script performs what the menu does. A menu is off while a script
/// runs, because the person would get in its way; the script itself may do all that can be done.
class MenuResponder final : public AC_Responder {
public:
    struct Entry {
        QString slot;
        std::function<bool()> canRun;
        std::function<bool()> run; ///< False where it wasn't done.
        std::function<bool()> isChecked = [] { return false; };
    };

    /// Is one of the manager's from now on, which outlives it; null for none.
    explicit MenuResponder(AC_Manager* manager);
    MenuResponder(const MenuResponder&) = delete;
    MenuResponder& operator=(const MenuResponder&) = delete;
    ~MenuResponder() override;

    void add(Entry entry) { m_entries.push_back(std::move(entry)); }

    QString name() const override { return QStringLiteral("desk"); }
    QStringList slotNames() const override;
    int perform(const QString& slot, const std::vector<QVariant>& arguments) override;
    int validate(const QString& slot, bool& isEnabled, bool& isChecked) const override;

private:
    const Entry* find(const QString& slot) const;

    AC_Manager* m_manager;
    std::vector<Entry> m_entries;
};

} // namespace app::desk
