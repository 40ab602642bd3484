#include "SettingsTest.h"

namespace test {
namespace {

std::string column(const std::string& line, std::size_t number) {
    std::size_t begin = 0;
    for (; number > 0; --number)
        begin = line.find('\t', begin) + 1;
    return line.substr(begin, line.find('\t', begin) - begin);
}

} // namespace

void SettingsTest::load(const std::string& networks, const std::string& status) {
    WifiHostSettings& loaded = settings(); // the first one before there is much to load
    supplicant.reload(networks);
    supplicant.ask("reassociate"); // an earlier test may have disconnected it
    if (!status.empty())
        supplicant.awaitStatus(status);
    loaded.refreshAllSettings();
}

void SettingsTest::change(const std::string& ssid, const std::function<bool(WifiNetwork&)>& edit) {
    const platwifi::SettingsLock lock(settings());
    WifiNetwork* const network = settings().getNetwork(WLAN, ssid.c_str());
    ASSERT_NE(network, nullptr) << ssid;
    EXPECT_TRUE(edit(*network));
}

void SettingsTest::changePriority(const std::string& ssid, unsigned int priority) {
    change(ssid, [&](WifiNetwork& network) { return network.setPriority(priority); });
}

void SettingsTest::addOpen(const std::string& ssid) {
    ASSERT_TRUE(settings().addNetwork(WLAN, ssid.c_str()));
    change(ssid, [](WifiNetwork& network) { return network.setKeyManagement(KEY_MGMT_NONE); });
}

std::string SettingsTest::loaded(const std::string& ssid, const std::string& field) {
    for (const Record& record : loadedRecords(settings())) {
        if (record.at("ssid") == ssid)
            return record.at(field);
    }
    return "no such network";
}

Lines SettingsTest::configuredSsids() const {
    Lines ssids;
    for (const std::string& line : supplicant.networks())
        ssids.push_back(column(line, 1));
    return ssids;
}

} // namespace test
