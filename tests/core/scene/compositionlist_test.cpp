#include "core/scene/compositionlist.h"

#include "tests/core/support/failure.h"

#include <gtest/gtest.h>

namespace {

using OMC::CompositionList;

const char* const noItem = "Unable to retrieve item in container.";

TEST(CompositionListTest, ItIsAnEmptyList)
{
    CompositionList list;
    EXPECT_EQ(list.size(), 0U);
    EXPECT_TRUE(list.list().empty());
    EXPECT_EQ(list.__str__(), "ListObj()");
    EXPECT_EQ(failureOf([&] { list.get(0); }), noItem);
    EXPECT_EQ(failureOf([&] { list.get(QStringLiteral("x")); }), noItem);
    EXPECT_EQ(failureOf([&] { list.set(0, OMC::Obj()); }), "Unable to set item in container.");
}

TEST(CompositionListTest, ALoopOverItMakesNoStep)
{
    const CompositionList list;
    const OMC::Obj handle = list.__iter__();
    auto* loop = OMC::objectIn<CompositionList>(handle);
    ASSERT_NE(loop, nullptr);
    EXPECT_TRUE(loop->__atend__());
    ++*loop;
    --*loop;
    EXPECT_TRUE(loop->__atend__());
    EXPECT_EQ(failureOf([&] { loop->__iterItem__(); }), noItem);
}

} // namespace
