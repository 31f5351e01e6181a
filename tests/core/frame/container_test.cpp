#include "core/frame/container.h"

#include "core/frame/obj.h"
#include "tests/core/support/failure.h"

#include <gtest/gtest.h>

#include <QString>
#include <QVariant>

#include <map>
#include <vector>

namespace {

template <typename ContainerType>
class ContainerTest : public testing::Test {};

using Containers = testing::Types<OMC::Container<OMC::Obj, OMC::Obj, std::vector<OMC::Obj>, QString>,
                                  OMC::Container<OMC::Obj, QVariant, std::map<QString, QVariant>, QString>>;
TYPED_TEST_SUITE(ContainerTest, Containers);

TYPED_TEST(ContainerTest, AContainerThatOverridesNothingIsEmptyAndRefusesItems)
{
    TypeParam container;
    EXPECT_EQ(container.size(), 0U);
    EXPECT_TRUE(container.list().empty());
    EXPECT_EQ(failureOf([&] { container.get(QStringLiteral("key")); }), "Unable to retrieve item in container.");
    EXPECT_EQ(failureOf([&] { container.set(QStringLiteral("key"), {}); }), "Unable to set item in container.");
}

} // namespace
