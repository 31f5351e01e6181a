#include "core/frame/mapobj.h"

#include "tests/core/support/failure.h"

#include <gtest/gtest.h>

namespace {

TEST(MapObjTest, AMapThatOverridesNothingIsEmptyAndRefusesItems)
{
    OMC::MapObj map;
    const QString key = QStringLiteral("name");
    EXPECT_EQ(map.size(), 0U);
    EXPECT_TRUE(map.list().isEmpty());
    EXPECT_EQ(failureOf([&] { map.get(key); }), "Unable to retrieve item in container.");
    EXPECT_EQ(failureOf([&] { map.set(key, OMC::Obj()); }), "Unable to set item in container.");
    EXPECT_EQ(failureOf([&] { map.throwIndexOutOfRange(); }), "Index is out of range.");
}

TEST(MapObjTest, AMapHasNoTextOfItsOwn)
{
    EXPECT_EQ(OMC::MapObj().__str__(), "Base Object");
}

} // namespace
