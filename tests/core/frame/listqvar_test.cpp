#include "core/frame/listqvar.h"

#include "tests/core/support/failure.h"

#include <gtest/gtest.h>

namespace {

TEST(ListQVarTest, AListThatOverridesNothingIsEmptyAndRefusesItems)
{
    OMC::ListQVar list;
    EXPECT_EQ(list.__str__(), "ListQVar()");
    EXPECT_EQ(list.size(), 0U);
    EXPECT_TRUE(list.list().isEmpty());
    for (const int index : {0, -1, 1, 2147483647}) {
        EXPECT_EQ(failureOf([&] { list.get(index); }), "Unable to retrieve item in container.");
        EXPECT_EQ(failureOf([&] { list.set(index, QVariant(1)); }), "Unable to set item in container.");
    }
    const QString key = QStringLiteral("name");
    EXPECT_EQ(failureOf([&] { list.get(key); }), "Unable to retrieve item in container.");
    EXPECT_EQ(failureOf([&] { list.set(key, QVariant(1)); }), "Unable to set item in container.");
}

TEST(ListQVarTest, AListThatOverridesNothingContainsNothing)
{
    const OMC::ListQVar list;
    for (const QVariant& value : {QVariant(), QVariant(0), QVariant(QStringLiteral("name"))})
        EXPECT_FALSE(list.contains(value));
}

TEST(ListQVarTest, AnIndexOutOfRangeHasItsSentence)
{
    EXPECT_EQ(failureOf([] { OMC::ListQVar::throwIndexOutOfRange(); }), "Index is out of range.");
}

} // namespace
