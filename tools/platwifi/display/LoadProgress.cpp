#include "display/LoadProgress.h"

#include "display/Text.h"

#include <iomanip>
#include <iostream>
#include <sstream>

namespace cli {
namespace {

constexpr std::size_t MIN_NETWORKS = 4; // fewer are loaded before the line could be read
constexpr std::chrono::milliseconds REFRESH_PERIOD{200};
constexpr const char* CLEAR_LINE = "\r\033[K";

using Clock = std::chrono::steady_clock;

std::string lineFor(std::size_t networks, Clock::duration elapsed) {
    std::ostringstream text;
    text << "Loading " << networks << " networks: " << std::fixed << std::setprecision(1)
         << std::chrono::duration<double>(elapsed).count() << " s";
    return text.str();
}

} // namespace

LoadProgress::LoadProgress(const Console& console, std::size_t networks)
    : m_width(console.width), m_networks(networks) {
    if (console.isTerminal && networks >= MIN_NETWORKS)
        m_thread = std::thread([this] { show(); });
}

LoadProgress::~LoadProgress() {
    if (!m_thread.joinable())
        return;
    {
        const std::lock_guard<std::mutex> guard(m_mutex);
        m_isLoaded = true;
        m_changed.notify_all();
    }
    m_thread.join();
    std::cerr << CLEAR_LINE << std::flush;
}

void LoadProgress::show() {
    const auto start = Clock::now();
    std::unique_lock<std::mutex> guard(m_mutex);
    do {
        std::cerr << CLEAR_LINE << cutTo(lineFor(m_networks, Clock::now() - start), m_width - 1)
                  << std::flush;
    } while (!m_changed.wait_for(guard, REFRESH_PERIOD, [this] { return m_isLoaded; }));
}

} // namespace cli
