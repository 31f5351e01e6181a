#pragma once

#include "core/host/ac_manager.h"
#include "core/host/sc_session.h"

namespace brindle::engine {

/// The actions on the open project that need no window: "onActionSave()", "onActionUndo()", "onActionRedo()". A save
/// that fails is a line in the log.
class ProjectResponder final : public AC_Responder {
public:
    explicit ProjectResponder(const SC_SessionContext& session) : m_session(session) {}

    QString name() const override { return QStringLiteral("project"); }
    QStringList slotNames() const override;
    int perform(const QString& slot, const std::vector<QVariant>& arguments) override;
    int validate(const QString& slot, bool& isEnabled, bool& isChecked) const override;

private:
    const SC_SessionContext& m_session;
};

} // namespace brindle::engine
