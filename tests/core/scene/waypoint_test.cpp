#include "core/scene/waypoint.h"

#include "tests/core/support/failure.h"

#include <gtest/gtest.h>

namespace {

TEST(WaypointTest, ItLeadsNowhere)
{
    const OMC::Waypoint waypoint;
    EXPECT_EQ(waypoint.__str__(), "Waypoint()");
    EXPECT_EQ(waypoint.getCoord().get(), nullptr);
    EXPECT_EQ(waypoint.getIn().get(), nullptr);
    EXPECT_EQ(waypoint.getOut().get(), nullptr);
    EXPECT_EQ(failureOf([&] { waypoint.copy(); }), "!! A proper copy constructor is needed. !!\n");
}

} // namespace
