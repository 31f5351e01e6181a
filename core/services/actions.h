#pragma once

#include "core/frame/baseobject.h"

#include <QStringList>
#include <QVariant>

#include <optional>

class AC_Manager;

namespace OMC {

/// The actions of the application's menus and toolbars. A responder is a named receiver of actions, and a slot is one
/// action of it, written like "onActionUndo()". On the main thread alone. Without a session there are none, which is no
/// failure.
class BRINDLE_CORE_EXPORT Actions : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(Actions)

    Q_PROPERTY(QStringList responders READ getResponders)

public:
    Actions() = default;
    Actions(const Actions& other) = default;

    std::string __str__() const override;

    /// Performs an action, on the responder of a name or the first that has it, with the items of a list as its
    /// arguments or any other value as its only one. Gives "ACTION_SUCCESS", "ACTION_NOTHING_TO_DO", "ACTION_EATEN",
    /// "ACTION_PASSTHROUGH" or "ACTION_UNKNOWN".
    const QString& perform(const QString& slot);
    const QString& perform(const QString& slot, const QString& responder);
    const QString& perform(const QString& slot, const QString& responder, const QVariant& arguments);
    /// Performs an action on every responder of the name, and gives the word of the last.
    const QString& performForEach(const QString& slot, const QString& responder);

    QStringList getResponders() const; ///< The names of the responders, without those that are made for a moment.
    QStringList actions(const QString& responder) const; ///< The actions of a responder.

    /// Tells whether there is such a responder ("valid_responder"), whether it has the action ("valid_slot"), and
    /// whether that can be done ("enabled") and is on ("checked"). Empty without a session.
    QVariantMap validateAction(const QString& slot, const QString& responder = QString()) const;
};

} // namespace OMC
