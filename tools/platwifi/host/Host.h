#pragma once

#include "Context.h"

#include <optional>
#include <string>
#include <vector>

class WifiHostSettings;
class WifiUtil;

namespace cli {

/// The Wi-Fi of this host, as a command uses it: finds out what can be reached, and tells why what
/// cannot be.
class Host {
public:
    explicit Host(Context& context) : m_context(context) {}

    /// Leaves the memory shared with other processes as if this one had never been.
    ~Host();

    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    /// @throws Failure without one
    static WifiUtil& util();

    /// What the supplicant lists. @throws Failure where it cannot be reached
    const std::vector<std::string>& adapters();

    /// The interface that commands are for. @throws Failure where there is none, or not this one
    const std::string& iface();

    /// The settings, loaded by the first call, with a word about progress where that takes long.
    /// @throws Failure where they cannot be loaded, or are those of another interface
    WifiHostSettings& settings();

    /// What the library calls its networks, the last one added first.
    std::vector<std::string> networks();

    /// What the library calls the network that the user has named. @throws Failure for an unknown one
    std::string network();

    /// The same, or nothing.
    std::optional<std::string> known();

    /// The network that the interface is on now; "" for none.
    std::string currentNetwork();

private:
    void load();

    Context& m_context;
    std::vector<std::string> m_adapters;
    std::string m_iface;
    WifiHostSettings* m_settings = nullptr;
};

} // namespace cli
