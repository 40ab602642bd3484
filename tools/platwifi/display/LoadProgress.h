#pragma once

#include "display/Console.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <thread>

namespace cli {

/// While it lives, a line on the terminal tells that networks are being loaded, and for how long.
/// It says nothing where that is short, or where there is no terminal.
class LoadProgress {
public:
    /// @param console   of standard error
    /// @param networks  how many there are to load
    LoadProgress(const Console& console, std::size_t networks);
    ~LoadProgress();

    LoadProgress(const LoadProgress&) = delete;
    LoadProgress& operator=(const LoadProgress&) = delete;

private:
    void show();

    const unsigned int m_width;
    const std::size_t m_networks;
    std::mutex m_mutex;
    bool m_isOver = false;
    std::condition_variable m_over;
    std::thread m_thread;
};

} // namespace cli
