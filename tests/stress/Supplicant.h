#pragma once

#include <atomic>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace stress {

/// The networks that every program of this folder finds configured. They are never removed or
/// renamed.
inline const std::vector<std::string> FIXED_NETWORKS{"home", "work", "cafe"};

/// A model of the supplicant and its client in this process. Networks are added, changed, removed,
/// saved and read again, with the ids that wpa_supplicant would give them. It ends the program when
/// a command has an id that no network has, or writes an identity of another network. Any thread
/// may call.
class Supplicant {
public:
    static Supplicant& get();

    Supplicant();

    /// The output of a program that is started with these arguments, argv[0] first.
    std::string answer(const std::vector<std::string>& command);

    bool has(const std::string& ssid) const;

    /// The network that the calling thread selected last; empty for none.
    static std::string& lastSelected();

    /// How many times the adapters have been asked for, once in a load and once at the driver's
    /// start: on any thread, and on the refresh thread.
    std::uint32_t adapterQueries() const { return m_adapterQueries; }
    std::uint32_t refreshes() const { return m_refreshes; }

private:
    struct Network {
        unsigned int id = 0;
        bool isDisabled = false;
        std::map<std::string, std::string> values; ///< as they were sent; "ssid" is one
    };
    using Words = std::vector<std::string>;

    void append(const std::string& ssid);
    void countAdapterQuery();
    std::string answerOf(const std::string& word, const Words& arguments);
    std::string list() const;
    std::string scanResults() const;
    std::string status() const;
    std::string addNetwork();
    std::string setNetwork(const Words& arguments);
    std::string getNetwork(const Words& arguments);
    std::string select(const std::string& id);
    std::string removeNetwork(const std::string& id);
    std::string reconfigure();
    Network& networkOf(const std::string& id);

    mutable std::mutex m_mutex; ///< guards the next three
    std::vector<Network> m_networks;
    std::vector<Network> m_saved;
    std::string m_current; ///< an SSID, empty for none
    std::atomic<std::uint32_t> m_adapterQueries{0};
    std::atomic<std::uint32_t> m_refreshes{0};
};

} // namespace stress
