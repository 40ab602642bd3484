#include "AddedNetworks.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

using test::add;

namespace {

constexpr int THREADS = 4;
constexpr int ROUNDS = 200;

void onThreads(const std::function<void(int)>& body) {
    std::vector<std::thread> threads;
    for (int i = 0; i < THREADS; ++i)
        threads.emplace_back(body, i);
    for (std::thread& thread : threads)
        thread.join();
}

TEST(NetworkListThreads, KeepEachOthersNetworks) {
    WifiNetworkList list;
    onThreads([&list](int thread) {
        for (int round = 0; round < ROUNDS; ++round) {
            const std::string ssid = std::to_string(thread) + " " + std::to_string(round);
            EXPECT_TRUE(add(list, ssid.c_str()));
            EXPECT_TRUE(list.containsNetwork(ssid.c_str()));
            const bool leaves = round % 2 == 1;
            EXPECT_EQ(leaves && list.removeNetworkFromList(ssid.c_str()), leaves);
        }
    });
    EXPECT_EQ(list.getCount(), THREADS * ROUNDS / 2U);
    EXPECT_FALSE(list.isValid());
}

TEST(NetworkListThreads, AddAnSsidOnceAmongThemAll) {
    WifiNetworkList list;
    std::atomic<int> taken{0};
    onThreads([&](int) {
        for (int round = 0; round < ROUNDS; ++round)
            taken += add(list, std::to_string(round).c_str()) ? 1 : 0;
    });
    EXPECT_EQ(taken, ROUNDS);
    EXPECT_EQ(list.getCount(), static_cast<unsigned int>(ROUNDS));
}

// One thread replaces the networks under the lock; others see all of it or nothing.
void swapNetworks(WifiNetworkList& list) {
    list.lock();
    list.removeAllFromList();
    EXPECT_TRUE(add(list, "A"));
    EXPECT_TRUE(add(list, "B"));
    list.getHead()->setPriority(7);
    list.validateDatabase();
    list.unlock();
}

void lookAround(WifiNetworkList& list) {
    EXPECT_EQ(list.getCount(), 2U);
    EXPECT_TRUE(list.containsNetwork("A"));
    EXPECT_FALSE(add(list, "B"));
    EXPECT_TRUE(list.isValid());
    list.lock();
    EXPECT_EQ(list.getHead()->getPriority(), 7U);
    list.unlock();
}

TEST(NetworkListThreads, SeeNothingHalfDoneWhileTheLockIsHeld) {
    WifiNetworkList list;
    swapNetworks(list);
    std::atomic<int> swapping{1};
    onThreads([&](int thread) {
        for (int round = 0; round < ROUNDS && thread == 0; ++round)
            swapNetworks(list);
        if (thread == 0)
            swapping = 0;
        do
            lookAround(list);
        while (swapping);
    });
}

} // namespace
