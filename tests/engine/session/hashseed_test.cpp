#include <QHashFunctions>

#include <gtest/gtest.h>

TEST(HashSeedTest, HashTablesHaveTheSeedThatKeepsQtFromVectorRegisters)
{
    EXPECT_EQ(QHashSeed::globalSeed(), 0u);
}
