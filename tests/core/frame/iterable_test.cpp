#include "core/frame/iterable.h"

#include <gtest/gtest.h>

namespace {

template <typename IterableType>
class IterableTest : public testing::Test {};

using Iterables = testing::Types<OMC::IterableObj, OMC::IterableQVar, OMC::IterableMap>;
TYPED_TEST_SUITE(IterableTest, Iterables);

TYPED_TEST(IterableTest, AClassThatLeavesTheProtocolAloneIsAtItsEndFromTheStart)
{
    TypeParam sequence;
    EXPECT_TRUE(sequence.__atend__());
    ++sequence;
    --sequence;
    EXPECT_TRUE(sequence.__atend__());
    EXPECT_EQ(sequence.__iter__().get(), nullptr);
}

TEST(IterableItemTest, TheDefaultItemIsEmpty)
{
    EXPECT_EQ(OMC::IterableObj().__iterItem__().get(), nullptr);
    EXPECT_FALSE(OMC::IterableQVar().__iterItem__().isValid());
    EXPECT_TRUE(OMC::IterableMap().__iterItem__().isNull());
}

} // namespace
