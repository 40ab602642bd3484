#pragma once

#include "NativeCaller.h"
#include "model/NetworkFields.h"
#include "model/WifiNetwork.h"
#include "unit/settings/LoadedSettings.h"

#include <thread>

namespace test {

/// Settings with one network, "home", and natives to call. The destructor checks that no lock of the
/// settings is held.
class OneNetwork : public NativeCaller {
public:
    OneNetwork() : m_settings(&m_loaded.load("0\thome\tany\t\n")) { network().cleanDirtyFields(); }
    ~OneNetwork() {
        std::thread([this] {
            m_settings->lockSettings();
            m_settings->unlockSettings();
        }).join();
    }

    WifiHostSettings& settings() { return *m_settings; }
    WifiNetwork& network() { return *m_settings->getNetwork("wlan0", "home"); }
    platwifi::NetworkFields& fields() { return platwifi::NetworkFields::of(network()); }

    /// Calls a native that changes the network with this SSID.
    bool set(const std::string& native, const char* value, const char* ssid = "home") {
        return flag(native, {"wlan0", ssid, value});
    }

    bool set(const std::string& native, jint value, const char* ssid = "home") {
        return flag(native, {"wlan0", ssid, nullptr, value});
    }

    /// From here on there is an instance, but it has no networks.
    void loseNetworks() { m_settings = &m_loaded.fail(); }

    /// Makes the client ready for another load of the same network.
    void scriptLoad() { m_loaded.scriptLoad("0\thome\tany\t\n"); }

    void answer(const std::string& reply, int status = 0) { m_loaded.answer(reply, status); }
    Commands commands() const { return m_loaded.commands(); }

private:
    LoadedSettings m_loaded;
    WifiHostSettings* m_settings;
};

} // namespace test
