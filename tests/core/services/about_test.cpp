#include "core/services/about.h"

#include "tests/core/support/standins.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

namespace {

TEST(AboutTest, WithoutASessionItIsNoFullProductAndOnNoServer)
{
    const OMC::About about;
    EXPECT_FALSE(about.isCadence());
    EXPECT_FALSE(about.isModeServer());
    EXPECT_TRUE(about.isCadenceGold()) << "which the build is all the same";
    const StandInSession session;
    EXPECT_TRUE(about.isCadence());
    EXPECT_FALSE(about.isModeServer()) << "without a project";
}

TEST(AboutTest, TheProgramIsTheOneThatRuns)
{
    EXPECT_EQ(OMC::About().getPathApplication(), QCoreApplication::applicationFilePath());
}

} // namespace
