#include "engine/session/actionmanager.h"

#include <algorithm>

namespace brindle::engine {

namespace {

constexpr int unknownAction = 4;

} // namespace

void ActionManager::addResponder(AC_Responder* responder)
{
    m_responders.insert(m_responders.begin(), responder);
}

void ActionManager::removeResponder(AC_Responder* responder)
{
    std::erase(m_responders, responder);
}

QStringList ActionManager::responders() const
{
    QStringList names;
    for (const AC_Responder* responder : m_responders)
        names.append(responder->name());
    names.removeDuplicates();
    return names;
}

QStringList ActionManager::slotNames(const QString& responder) const
{
    QStringList names;
    for (const AC_Responder* candidate : m_responders) {
        if (responder.isEmpty() || candidate->name() == responder)
            names.append(candidate->slotNames());
    }
    names.removeDuplicates();
    return names;
}

int ActionManager::perform(const QString& slot, const QString& responder, bool isExplicit)
{
    return perform(slot, responder, {}, isExplicit);
}

int ActionManager::perform(const QString& slot, const QString& responder, const std::vector<QVariant>& arguments, bool)
{
    AC_Responder* found = find(slot, responder);
    return found ? found->perform(slot, arguments) : unknownAction;
}

int ActionManager::performForEach(const QString& slot, const QString& responder, bool)
{
    int result = unknownAction;
    const std::vector<AC_Responder*> asked = m_responders; // An action may take responders away.
    for (AC_Responder* candidate : asked) {
        const bool isThere = std::find(m_responders.begin(), m_responders.end(), candidate) != m_responders.end();
        if (isThere && candidate->name() == responder && candidate->slotNames().contains(slot))
            result = candidate->perform(slot, {});
    }
    return result;
}

int ActionManager::validate(const QString& slot, const QString& responder, bool& isEnabled, bool& isChecked) const
{
    isEnabled = false;
    isChecked = false;
    const AC_Responder* found = find(slot, responder);
    return found ? found->validate(slot, isEnabled, isChecked) : unknownAction;
}

AC_Responder* ActionManager::find(const QString& slot, const QString& responder) const
{
    const auto found = std::find_if(m_responders.begin(), m_responders.end(), [&](const AC_Responder* candidate) {
        return (responder.isEmpty() || candidate->name() == responder) && candidate->slotNames().contains(slot);
    });
    return found == m_responders.end() ? nullptr : *found;
}

} // namespace brindle::engine
