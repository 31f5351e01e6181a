#include "core/services/actions.h"

#include "core/frame/global.h"
#include "core/host/ac_manager.h"
#include "core/host/sc_session.h"

namespace OMC {

namespace {

AC_Manager* findManager()
{
    const SC_SessionContext* session = Global::sessionContext();
    return session ? session->actionManager() : nullptr;
}

/// The word for a result number of the host.
const QString& wordOf(int result)
{
    static const QString words[] = {QStringLiteral("ACTION_SUCCESS"), QStringLiteral("ACTION_NOTHING_TO_DO"),
                                    QStringLiteral("ACTION_EATEN"), QStringLiteral("ACTION_PASSTHROUGH"),
                                    QStringLiteral("ACTION_UNKNOWN")};
    constexpr int unknown = 4;
    return words[result >= 0 && result < unknown ? result : unknown];
}

/// Performs on the host's manager; the word for an unknown action where there is none.
template <typename Perform>
const QString& performed(const char* name, const Perform& perform)
{
    BaseObject::throwIfNotMainThread(QString::fromLatin1(name));
    AC_Manager* manager = findManager();
    return wordOf(manager ? perform(*manager) : -1);
}

} // namespace

std::string Actions::__str__() const
{
    return "ActionManager()";
}

const QString& Actions::perform(const QString& slot)
{
    return perform(slot, QString());
}

const QString& Actions::perform(const QString& slot, const QString& responder)
{
    return performed("actions.perform", [&](AC_Manager& manager) { return manager.perform(slot, responder, true); });
}

const QString& Actions::perform(const QString& slot, const QString& responder, const QVariant& arguments)
{
    return performed("actions.perform", [&](AC_Manager& manager) {
        const QVariantList items = arguments.canConvert<QVariantList>() ? arguments.toList() : QVariantList{arguments};
        return manager.perform(slot, responder, std::vector<QVariant>(items.begin(), items.end()), true);
    });
}

const QString& Actions::performForEach(const QString& slot, const QString& responder)
{
    return performed("actions.perform_for_each",
                     [&](AC_Manager& manager) { return manager.performForEach(slot, responder, true); });
}

QStringList Actions::getResponders() const
{
    throwIfNotMainThread(QStringLiteral("actions.responders"));
    const AC_Manager* manager = findManager();
    QStringList names = manager ? manager->responders() : QStringList();
    names.removeIf([](const QString& name) { return name.contains(QLatin1String("__uuid")); });
    return names;
}

QStringList Actions::actions(const QString& responder) const
{
    throwIfNotMainThread(QStringLiteral("actions.actions"));
    const AC_Manager* manager = findManager();
    QStringList names = manager ? manager->slotNames(responder) : QStringList();
    names.removeIf([](const QString& name) {
        return name.contains(QLatin1String("Validate(")) || name.contains(QLatin1String("void*")) ||
               !name.startsWith(QLatin1String("onAction"));
    });
    return names;
}

QVariantMap Actions::validateAction(const QString& slot, const QString& responder) const
{
    throwIfNotMainThread(QStringLiteral("actions.validate"));
    const AC_Manager* manager = findManager();
    if (!manager)
        return {};
    const bool isResponder = responder.isEmpty() || manager->responders().contains(responder);
    const bool isSlot = isResponder && manager->slotNames(responder).contains(slot);
    bool isEnabled = false;
    bool isChecked = false;
    const bool isKnown = isSlot && manager->validate(slot, responder, isEnabled, isChecked) == 0;
    return {{QStringLiteral("valid_responder"), isResponder},
            {QStringLiteral("valid_slot"), isSlot},
            {QStringLiteral("enabled"), isKnown && isEnabled},
            {QStringLiteral("checked"), isKnown && isChecked}};
}

} // namespace OMC
