#include "core/services/actions.h"

#include "core/host/ac_manager.h"
#include "tests/core/support/standins.h"

#include <gtest/gtest.h>

namespace {

/// Tells what it was asked, and answers as it is told to.
class StandInManager : public AC_Manager {
public:
    void addResponder(AC_Responder*) override {}
    void removeResponder(AC_Responder*) override {}
    QStringList responders() const override { return names; }
    QStringList slotNames(const QString&) const override { return slotList; }
    int perform(const QString& slot, const QString& responder, bool isExplicit) override
    {
        asked = QStringLiteral("%1 on '%2' %3").arg(slot, responder).arg(isExplicit);
        return result;
    }
    int perform(const QString&, const QString&, const std::vector<QVariant>& given, bool) override
    {
        arguments = given;
        return result;
    }
    int performForEach(const QString&, const QString&, bool) override { return result; }
    int validate(const QString&, const QString&, bool& isEnabled, bool& isChecked) const override
    {
        isEnabled = isChecked = true;
        return status;
    }

    QStringList names;
    QStringList slotList;
    QString asked;
    std::vector<QVariant> arguments;
    int result = 0;
    int status = 0;
};

class ActionsTest : public testing::Test {
protected:
    ActionsTest() { session.actions = &manager; }

    StandInManager manager;
    StandInSession session;
    OMC::Actions actions;
};

QVariantMap validity(bool isResponder, bool isSlot, bool isEnabled, bool isChecked)
{
    return {{"valid_responder", isResponder}, {"valid_slot", isSlot}, {"enabled", isEnabled}, {"checked", isChecked}};
}

TEST_F(ActionsTest, EachResultNumberHasItsWord)
{
    const std::pair<int, const char*> rows[] = {
        {0, "ACTION_SUCCESS"}, {1, "ACTION_NOTHING_TO_DO"}, {2, "ACTION_EATEN"},   {3, "ACTION_PASSTHROUGH"},
        {4, "ACTION_UNKNOWN"}, {7, "ACTION_UNKNOWN"},       {-1, "ACTION_UNKNOWN"}};
    for (const auto& [number, word] : rows) {
        manager.result = number;
        EXPECT_EQ(actions.perform("onActionFoo()"), word);
        EXPECT_EQ(actions.performForEach("onActionFoo()", "r"), word);
    }
    EXPECT_EQ(&actions.perform("onActionFoo()"), &actions.perform("onActionBar()")) << "a constant";
}

TEST_F(ActionsTest, TheManagerIsToldThatSomebodyAsked)
{
    actions.perform("onActionFoo()");
    EXPECT_EQ(manager.asked, "onActionFoo() on '' 1");
    actions.perform("onActionFoo()", "r");
    EXPECT_EQ(manager.asked, "onActionFoo() on 'r' 1");
}

TEST_F(ActionsTest, AListGivesItsItemsAsArgumentsAndAnythingElseItself)
{
    actions.perform("s", "r", QVariantList{1, "b"});
    EXPECT_EQ(manager.arguments, (std::vector<QVariant>{1, "b"}));
    actions.perform("s", "r", QStringList{"a", "b"});
    EXPECT_EQ(manager.arguments.size(), 2u);
    const QVariantMap map = {{"a", 1}};
    actions.perform("s", "r", map);
    EXPECT_EQ(manager.arguments, std::vector<QVariant>{map});
    actions.perform("s", "r", 5);
    EXPECT_EQ(manager.arguments, std::vector<QVariant>{5});
}

TEST_F(ActionsTest, RespondersThatAreMadeForAMomentAndSlotsOfTheHostsOwnArentListed)
{
    manager.names = {"scene", "drawing__uuid42", "__UUID", "view"};
    manager.slotList = {"onActionFoo()",
                        "onActionFooValidate(AC_ActionInfo*)",
                        "onActionValidate(void*)",
                        "onActionBar(void*)",
                        "other()",
                        "onActionBaz(QString)"};
    EXPECT_EQ(actions.getResponders(), QStringList({"scene", "__UUID", "view"}));
    EXPECT_EQ(actions.actions("scene"), QStringList({"onActionFoo()", "onActionBaz(QString)"}));
}

TEST_F(ActionsTest, AnActionIsValidatedStepByStep)
{
    manager.names = {"scene"};
    manager.slotList = {"onActionFoo()"};
    EXPECT_EQ(actions.validateAction("onActionFoo()", "other"), validity(false, false, false, false));
    EXPECT_EQ(actions.validateAction("onActionBar()", "scene"), validity(true, false, false, false));
    EXPECT_EQ(actions.validateAction("onActionFoo()"), validity(true, true, true, true));
    manager.status = 1;
    EXPECT_EQ(actions.validateAction("onActionFoo()", "scene"), validity(true, true, false, false));
}

TEST_F(ActionsTest, WithoutAManagerThereAreNoActionsAndNoFailure)
{
    session.actions = nullptr;
    EXPECT_EQ(actions.perform("s"), "ACTION_UNKNOWN");
    EXPECT_EQ(actions.perform("s", "r", 1), "ACTION_UNKNOWN");
    EXPECT_EQ(actions.performForEach("s", "r"), "ACTION_UNKNOWN");
    EXPECT_TRUE(actions.getResponders().isEmpty());
    EXPECT_TRUE(actions.actions("r").isEmpty());
    EXPECT_TRUE(actions.validateAction("s").isEmpty());
}

} // namespace
