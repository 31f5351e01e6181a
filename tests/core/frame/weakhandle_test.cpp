#include "core/frame/weakhandle.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

class Target : public UT_SharedWeakBase {};

using Handle = OMC::WeakHandle<Target>;

TEST(WeakHandleTest, AHandleOfNothingIsNull)
{
    EXPECT_EQ(Handle().get(), nullptr);
    EXPECT_EQ(Handle(nullptr).get(), nullptr);
}

TEST(WeakHandleTest, AllHandlesGoNullTogetherWithTheirTarget)
{
    auto target = std::make_unique<Target>();
    const Handle first(target.get());
    const Handle second(first);
    Handle third;
    third = first;
    for (const Handle* handle : {&first, &second, static_cast<const Handle*>(&third)})
        EXPECT_EQ(handle->get(), target.get());
    target.reset();
    for (const Handle* handle : {&first, &second, static_cast<const Handle*>(&third)})
        EXPECT_EQ(handle->get(), nullptr);
}

TEST(WeakHandleTest, ACopyIsPointedElsewhereOnItsOwn)
{
    Target one;
    Target two;
    const Handle original(&one);
    Handle copy(original);
    copy.assign(&two);
    EXPECT_EQ(original.get(), &one);
    EXPECT_EQ(copy.get(), &two);
    copy.assign(nullptr);
    EXPECT_EQ(copy.get(), nullptr);
    EXPECT_EQ(original.get(), &one);
}

TEST(WeakHandleTest, HandlesOfOneTargetAreTheSameAlsoAfterItIsGone)
{
    auto target = std::make_unique<Target>();
    Target other;
    const Handle first(target.get());
    const Handle second(target.get());
    EXPECT_TRUE(first.sameTarget(second));
    EXPECT_FALSE(first.sameTarget(Handle(&other)));
    EXPECT_FALSE(first.sameTarget(Handle()));
    target.reset();
    EXPECT_TRUE(first.sameTarget(second));
}

TEST(WeakHandleTest, ExpiredHandlesStayNullWhileNewOnesWork)
{
    Target target;
    const Handle before(&target);
    target.expireWeakPointers();
    const Handle after(&target);
    EXPECT_EQ(before.get(), nullptr);
    EXPECT_EQ(after.get(), &target);
    EXPECT_FALSE(before.sameTarget(after));
}

} // namespace
