#include "SettingsTest.h"

#include "supplicant/WifiUtil.h"

#include <memory>

namespace test {
namespace {

// GoogleTest's own last step, after the tests of all suites.
class SharedHost : public testing::Environment {
public:
    Supplicant& supplicant() {
        if (!m_supplicant) {
            m_supplicant = std::make_unique<Supplicant>();
            m_supplicant->start();
        }
        return *m_supplicant;
    }

    void TearDown() override {
        WifiHostSettings::unload();
        WifiUtil::unload();
        m_supplicant.reset();
    }

private:
    std::unique_ptr<Supplicant> m_supplicant;
};

SharedHost* const SHARED_HOST = new SharedHost; // GoogleTest's own now
const testing::Environment* const REGISTERED = testing::AddGlobalTestEnvironment(SHARED_HOST);

std::string column(const std::string& line, std::size_t number) {
    std::size_t begin = 0;
    for (; number > 0; --number)
        begin = line.find('\t', begin) + 1;
    return line.substr(begin, line.find('\t', begin) - begin);
}

} // namespace

Supplicant& SettingsTest::sharedSupplicant() {
    return SHARED_HOST->supplicant();
}

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
