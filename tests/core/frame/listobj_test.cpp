#include "core/frame/listobj.h"

#include "tests/core/support/failure.h"

#include <gtest/gtest.h>

namespace {

TEST(ListObjTest, AListThatOverridesNothingIsEmptyAndRefusesItems)
{
    OMC::ListObj list;
    EXPECT_EQ(list.__str__(), "ListObj()");
    EXPECT_EQ(list.size(), 0U);
    EXPECT_TRUE(list.list().empty());
    for (const int index : {0, -1, 1, 2147483647}) {
        EXPECT_EQ(failureOf([&] { list.get(index); }), "Unable to retrieve item in container.");
        EXPECT_EQ(failureOf([&] { list.set(index, OMC::Obj()); }), "Unable to set item in container.");
    }
    EXPECT_EQ(failureOf([&] { list.get(QStringLiteral("name")); }), "Unable to retrieve item in container.");
}

TEST(ListObjTest, AnIndexOutOfRangeHasItsSentence)
{
    EXPECT_EQ(failureOf([] { OMC::ListObj::throwIndexOutOfRange(); }), "Index is out of range.");
}

TEST(ListObjTest, ABareListHasNoCopy)
{
    EXPECT_EQ(failureOf([] { OMC::ListObj().copy(); }), "!! A proper copy constructor is needed. !!\n");
}

} // namespace
