#pragma once

#include "process/Console.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <thread>

namespace cli {

/// While an object exists, a line on the terminal shows that networks are being loaded, and for how
/// long. Shows nothing if standard error is no terminal, or if there are few networks to load.
class LoadProgress {
public:
    /// @param console   standard error
    /// @param networks  count of networks to load
    LoadProgress(const Console& console, std::size_t networks);
    ~LoadProgress();

    LoadProgress(const LoadProgress&) = delete;
    LoadProgress& operator=(const LoadProgress&) = delete;

private:
    void show();

    const unsigned int m_width;
    const std::size_t m_networks;
    std::mutex m_mutex;
    bool m_isLoaded = false;
    std::condition_variable m_changed;
    std::thread m_thread;
};

} // namespace cli
