#include "core/services/preferences.h"

#include "core/host/pr_preference.h"
#include "tests/core/support/failure.h"

#include <gtest/gtest.h>

#include <QColor>

namespace {

using OMC::PreferencePair;
using OMC::Preferences;

class UnknownItem : public PR_PrefItem {
public:
    int type() const override { return 4; }
    QString name() const override { return "UNKNOWN_KIND"; }
    void restoreDefault() override {}
};

TEST(ServicePreferencesTest, AnItemOfAnotherKindHasNoValueAndItsWord)
{
    const UnknownItem item;
    QVariant value;
    EXPECT_FALSE(Preferences::prefToQVariant(&item, value));
    EXPECT_EQ(Preferences::prefToType(&item), "UNKNOWN");
}

TEST(ServicePreferencesTest, APairOfANameThatWasNeverSetIsEmpty)
{
    const PreferencePair pair("NEVER_SET");
    EXPECT_FALSE(pair.getValue().isValid());
    EXPECT_TRUE(pair.getType().isNull());
    EXPECT_EQ(pair.__str__(), "NEVER_SET : NONE");
    EXPECT_EQ(failureOf([] { PreferencePair("NEVER_SET").reset(); }), "Unable to find preference with key: NEVER_SET.");
    EXPECT_EQ(Preferences().get("NEVER_SET").get(), nullptr);
}

TEST(ServicePreferencesTest, AColourOfQtIsAColour)
{
    EXPECT_TRUE(Preferences::setPref("CORE_COLOUR", QColor(1, 2, 3, 4)));
    EXPECT_EQ(PreferencePair("CORE_COLOUR").__str__(), "CORE_COLOUR : RGBA(1, 2, 3, 4)");
    PreferencePair pair("CORE_COLOUR");
    EXPECT_TRUE(Preferences::setPref("CORE_COPY", QVariant::fromValue<QObject*>(&pair)));
    EXPECT_EQ(PreferencePair("CORE_COPY").getType(), "COLOR");
}

TEST(ServicePreferencesTest, AStepBackFromTheEndIsNoEndAnyMore)
{
    Preferences preferences;
    const OMC::Obj handle = preferences.__iter__();
    auto& loop = *OMC::objectIn<Preferences>(handle);
    for (; !loop.__atend__(); ++loop)
        EXPECT_NE(OMC::objectIn<PreferencePair>(loop.__iterItem__()), nullptr);
    EXPECT_EQ(failureOf([&] { loop.__iterItem__(); }), "Iteration item is out of range.");
    --loop;
    EXPECT_FALSE(loop.__atend__());
}

} // namespace
