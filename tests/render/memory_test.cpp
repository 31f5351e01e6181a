#include "render/memory.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

using brindle::render::Memory;

namespace {

/// Something with values that is forgotten when it goes.
struct Owner {
    explicit Owner(const std::shared_ptr<Memory>& memory) : memory(memory) {}
    Owner(const Owner&) = delete;
    ~Owner()
    {
        if (const auto held = memory.lock())
            held->forget(this);
    }

    std::weak_ptr<Memory> memory;
};

} // namespace

TEST(MemoryTest, WhatWasNotAskedForLongestGoesFirst)
{
    Memory memory(30);
    const char objects[4] = {};
    for (int i = 0; i < 3; ++i)
        memory.remember(&objects[i], 0, std::make_shared<const int>(i), 10);
    EXPECT_EQ(memory.bytes(), 30);
    EXPECT_EQ(*memory.find<int>(&objects[0]), 0);
    memory.remember(&objects[3], 0, std::make_shared<const int>(3), 10);
    EXPECT_EQ(memory.bytes(), 30);
    EXPECT_EQ(memory.find<int>(&objects[1]), nullptr);
    EXPECT_NE(memory.find<int>(&objects[0]), nullptr);
    memory.remember(&objects[1], 0, std::make_shared<const int>(1), 31);
    EXPECT_EQ(memory.bytes(), 0) << "what is larger than the limit isn't remembered, and leaves room for nothing";
}

TEST(MemoryTest, AnObjectHasAValueForEachNumber)
{
    Memory memory(1000);
    const char objects[2] = {};
    for (const int number : {-7, 0, 12})
        memory.remember(&objects[0], number, std::make_shared<const int>(number), 10);
    memory.remember(&objects[1], 0, std::make_shared<const int>(99), 10);
    memory.remember(&objects[0], 12, std::make_shared<const int>(13), 500);
    EXPECT_EQ(*memory.find<int>(&objects[0], 12), 12) << "the first one stays";
    EXPECT_EQ(*memory.find<int>(&objects[0], -7), -7);
    EXPECT_EQ(memory.bytes(), 40);
    memory.forget(&objects[0]);
    EXPECT_EQ(memory.find<int>(&objects[0], -7), nullptr);
    EXPECT_EQ(*memory.find<int>(&objects[1]), 99);
    EXPECT_EQ(memory.bytes(), 10);
}

TEST(MemoryTest, AnObjectThatGoesWithAValueIsForgotten)
{
    auto memory = std::make_shared<Memory>(120);
    const char name = 0;
    auto owner = std::make_shared<Owner>(memory);
    const Owner* const object = owner.get();
    memory->remember(&name, 0, std::move(owner), 60);
    memory->remember(object, 1, std::make_shared<const int>(1), 40);
    memory->remember(&memory, 0, std::make_shared<const int>(2), 70);
    EXPECT_EQ(memory->bytes(), 70) << "the owner went with its value, and its own value with it";
    memory->remember(&name, 0, std::make_shared<const Owner>(memory), 10);
    memory.reset();
}

TEST(MemoryTest, TheLimitHoldsWhileThreadsRemember)
{
    constexpr qint64 limit = 5000;
    const auto memory = std::make_shared<Memory>(limit);
    std::atomic<qint64> most = 0;
    {
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < 3; ++thread)
            threads.emplace_back([&, thread] {
                std::vector<std::shared_ptr<Owner>> owners;
                for (int i = 0; i < 600; ++i) {
                    owners.push_back(std::make_shared<Owner>(memory));
                    memory->remember(owners.back().get(), i, std::make_shared<const int>(i), 10 + i % 90);
                    const auto kept = memory->find<int>(owners[owners.size() / 2].get(), i / 2);
                    if (i % 3 == thread)
                        owners.pop_back();
                    const qint64 bytes = memory->bytes();
                    for (qint64 seen = most; seen < bytes && !most.compare_exchange_weak(seen, bytes);)
                        continue;
                }
            });
    }
    EXPECT_LE(most, limit);
    EXPECT_EQ(memory->bytes(), 0) << "all owners are gone";
}
