#pragma once

#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/WifiUtil.h"

#include "SettingsState.h"
#include "support/BlockedFile.h"
#include "support/StandIn.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace test {

const std::string ADAPTER_HEADER = "Selected interface 'wlan0'\nAvailable interfaces:\n";
const std::string LIST_HEADER = "network id / ssid / bssid / flags\n";
const std::string SCAN_HEADER = "bssid / frequency / signal level / flags / ssid\n";

/// Settings that load from a scripted client which serves wlan0. They have no refresh thread, which
/// takes its time to end: the memory that it needs cannot be had.
class LoadFixture : public testing::Test {
protected:
    LoadFixture() {
        standIn.on({"interface"}).prints("");
        WifiUtil::getInstance(); // asks for stamps, once
        standIn.reset();
    }
    ~LoadFixture() override {
        WifiHostSettings::unload();
        WifiUtil::unload();
    }

    /// A value that the client has from now on; before script().
    void value(const std::string& id, const std::string& key, const std::string& text) {
        standIn.on({"-iwlan0", "get_network", id, key}).prints(text);
    }

    /// The replies of the client, without headers. Values that were not given are not set, but for
    /// `otherwise`.
    void script(const std::string& list, const std::string& status = "",
                const std::string& scan = "", const std::string& otherwise = "FAIL\n") {
        standIn.on({"interface"}).prints(ADAPTER_HEADER + "wlan0\n");
        standIn.on({"-iwlan0", "list_networks"}).prints(LIST_HEADER + list);
        standIn.on({"-iwlan0", "scan_results"}).prints(SCAN_HEADER + scan);
        standIn.on({"-iwlan0", "status"}).prints(status);
        standIn.on({"*"}).prints(otherwise);
    }

    /// Loads everything as the client has it now: into a new instance, or into the one there is.
    WifiHostSettings& load() {
        if (m_settings)
            m_settings->refreshAllSettings();
        else
            m_settings = WifiHostSettings::getInstance(nullptr);
        return *m_settings;
    }

    /// The same with other replies than before.
    WifiHostSettings& load(const std::string& list, const std::string& status = "",
                           const std::string& scan = "") {
        script(list, status, scan);
        load();
        standIn.reset();
        return *m_settings;
    }

    /// A new instance.
    WifiHostSettings& reload() {
        m_settings = WifiHostSettings::reload(nullptr);
        return *m_settings;
    }

    const WifiNetwork* network(const char* ssid) const {
        return m_settings->getNetwork("wlan0", ssid);
    }

    /// The status of a network, or -1 for none of this SSID.
    int statusOf(const char* ssid) const {
        return network(ssid) ? static_cast<int>(network(ssid)->getNetworkStatus()) : -1;
    }

    /// The SSID of the current network, "none" for none.
    std::string current() const {
        const WifiNetwork* const network = currentNetworkOf(*m_settings);
        return network ? network->getSsid() : "none";
    }

    std::vector<std::string> ssids() const {
        std::vector<std::string> result;
        const WifiNetwork* const head = networksOf(*m_settings)->getHead();
        for (const WifiNetwork* network = head; network; network = network->getNext())
            result.emplace_back(network->getSsid());
        return result;
    }

    /// The commands since the last script, without the client's own name.
    std::vector<std::string> commands() const {
        std::vector<std::string> result;
        for (const Arguments& call : standIn.calls()) {
            std::string command;
            for (std::size_t i = 1; i < call.size(); ++i)
                command += (i == 1 ? "" : " ") + call[i];
            result.push_back(command);
        }
        return result;
    }

    /// Hangs where a lock was left.
    void expectNoLockHeld() const {
        std::thread([this] {
            EXPECT_TRUE(m_settings->lockSettings());
            EXPECT_TRUE(m_settings->unlockSettings());
        }).join();
    }

    const BlockedFile noRefreshThread{"/dev/shm/wifi_shmem"};
    StandIn standIn;

private:
    WifiHostSettings* m_settings = nullptr;
};

} // namespace test
