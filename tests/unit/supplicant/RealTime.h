#pragma once

#include <gtest/gtest.h>

#include <pthread.h>
#include <sched.h>
#include <thread>
#include <utility>

namespace test {

/// Calls an action at each priority of real-time scheduling, and checks that the priority is the same
/// afterwards. All happens on a thread of its own.
/// @param priorities  pairs of the priority and of what is handed to the action
/// @return false when the system allows no real-time scheduling
template <std::size_t Count, typename Action>
bool atEachPriority(const std::pair<int, int> (&priorities)[Count], Action action) {
    bool allowed = true;
    std::thread([&] {
        for (const auto& [priority, expected] : priorities) {
            sched_param parameters{};
            parameters.sched_priority = priority;
            allowed = allowed && pthread_setschedparam(pthread_self(), SCHED_RR, &parameters) == 0;
            if (!allowed)
                return;
            action(expected);
            int policy = 0;
            pthread_getschedparam(pthread_self(), &policy, &parameters);
            EXPECT_EQ(parameters.sched_priority, priority) << "restored";
        }
    }).join();
    return allowed;
}

} // namespace test
