#pragma once

#include "core/host/ac_manager.h"

#include <functional>

namespace brindle::engine {

/// The actions of a session. It has one responder of its own, "project", which saves the open project, undoes and
/// redoes: what makes sense without windows. A program with windows adds its own, which are asked first.
class ActionManager final : public AC_Manager {
public:
    explicit ActionManager(AC_Responder& project) : m_responders{&project} {}

    void addResponder(AC_Responder* responder) override;
    void removeResponder(AC_Responder* responder) override;

    QStringList responders() const override;
    QStringList slotNames(const QString& responder) const override;
    int perform(const QString& slot, const QString& responder, bool isExplicit) override;
    int perform(const QString& slot, const QString& responder, const std::vector<QVariant>& arguments,
                bool isExplicit) override;
    int performForEach(const QString& slot, const QString& responder, bool isExplicit) override;
    int validate(const QString& slot, const QString& responder, bool& isEnabled, bool& isChecked) const override;

private:
    AC_Responder* find(const QString& slot, const QString& responder) const;

    std::vector<AC_Responder*> m_responders; ///< In the order in which they are asked.
};

} // namespace brindle::engine
