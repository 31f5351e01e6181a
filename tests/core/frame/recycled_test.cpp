#include "core/frame/recycled.h"

#include <gtest/gtest.h>

#include <QSet>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <thread>
#include <vector>

namespace {

template <std::size_t Size>
struct RecycledSample : OMC::Recycled {
    RecycledSample() { std::fill(std::begin(content), std::end(content), std::byte{7}); }

    std::byte content[Size];
};

using Small = RecycledSample<40>;

} // namespace

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)

TEST(RecycledTest, AnObjectGetsTheMemoryOfTheOneThatWent)
{
    auto first = std::make_unique<Small>();
    const Small* const place = first.get();
    const auto second = std::make_unique<Small>();
    EXPECT_NE(second.get(), place);
    first.reset();
    const auto third = std::make_unique<Small>();
    EXPECT_EQ(third.get(), place);
}

TEST(RecycledTest, SizesThatTakeOneBlockShareTheirMemory)
{
    auto first = std::make_unique<RecycledSample<33>>();
    const void* const place = first.get();
    first.reset();
    const auto other = std::make_unique<RecycledSample<200>>();
    EXPECT_NE(static_cast<const void*>(other.get()), place);
    const auto second = std::make_unique<RecycledSample<48>>();
    EXPECT_EQ(static_cast<const void*>(second.get()), place);
}

#endif

TEST(RecycledTest, ManyObjectsAtATimeHaveMemoryOfTheirOwn)
{
    for (int round = 0; round < 3; ++round) {
        std::vector<std::unique_ptr<Small>> all;
        QSet<const Small*> places;
        for (int count = 0; count < 1000; ++count) {
            all.push_back(std::make_unique<Small>());
            places.insert(all.back().get());
        }
        EXPECT_EQ(places.size(), 1000);
    }
}

TEST(RecycledTest, LargeObjectsComeAndGoToo)
{
    std::vector<std::unique_ptr<RecycledSample<257>>> all;
    for (int count = 0; count < 100; ++count)
        all.push_back(std::make_unique<RecycledSample<257>>());
    all.resize(50);
    all.push_back(std::make_unique<RecycledSample<257>>());
    EXPECT_EQ(all.back()->content[256], std::byte{7});
}

TEST(RecycledTest, AnObjectMayGoOnAnotherThread)
{
    std::vector<std::unique_ptr<Small>> all;
    for (int round = 0; round < 20; ++round) {
        std::thread([&all] {
            all.clear();
            for (int count = 0; count < 100; ++count)
                all.push_back(std::make_unique<Small>());
        }).join();
    }
    EXPECT_EQ(all.size(), 100U);
    EXPECT_EQ(all.front()->content[39], std::byte{7});
}

TEST(RecycledTest, AnObjectMayBeMadeInPlace)
{
    alignas(Small) std::byte room[sizeof(Small)];
    auto* const sample = new (room) Small;
    EXPECT_EQ(static_cast<void*>(sample), static_cast<void*>(room));
    sample->~Small();
}
