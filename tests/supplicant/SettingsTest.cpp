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
    supplicant.awaitStatus(status);
    loaded.refreshAllSettings();
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
