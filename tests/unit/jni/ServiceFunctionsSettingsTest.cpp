// The functions that write the XML document and name the first adapter.

#include "jni/ServiceFunctions.h"

#include "model/WifiNetwork.h"
#include "model/WifiTypes.h"

#include "TwoNetworks.h"
#include "unit/settings/LoadedSettings.h"
#include "unit/settings/MissingWifiUtil.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

using test::NETWORKS;
using testing::IsEmpty;

namespace {

class SettingsFunctions : public testing::Test {
protected:
    test::LoadedSettings loaded;
};

// The XML document.

struct Document {
    int result;
    std::string text;
};

Document document(bool full, ErrorHandler* errors = nullptr) {
    BufferedXWriter out;
    const int result = getWifiHostSettingsXML(&out, errors, full);
    return {result, out.text()};
}

TEST_F(SettingsFunctions, WriteTheDocumentOfTheSettings) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n");
    loaded.answer("FAIL\n", 1);
    for (const bool full : {false, true}) {
        BufferedXWriter out;
        ASSERT_TRUE(settings.getWifiHostSettingsXML(&out, nullptr, full));
        const Document written = document(full);
        EXPECT_EQ(written.result, 1);
        EXPECT_EQ(written.text, out.text());
        EXPECT_NE(written.text.find("home"), std::string::npos);
    }
    EXPECT_NE(document(false).text, document(true).text) << "the flag is passed on";
}

// API-11
TEST_F(SettingsFunctions, ReportIntoTheErrorHandlerOfTheCallerWhatTheDocumentLacks) {
    WifiHostSettings& settings = loaded.load("0\thome\tany\t\n");
    loaded.answer("FAIL\n", 1);
    WifiNetwork& network = *settings.getNetwork("wlan0", "home");
    network.setProtocol(PROTOCOL_WPA);
    network.setKeyManagement(KEY_MGMT_WPA_PSK);
    network.setPairwiseCiphers(PAIRWISE_TKIP);
    network.setGroupCiphers(GROUP_TKIP);
    network.setPsk(std::string((1U << 20U) + 1, 'x').c_str());
    ErrorHandler errors;
    EXPECT_EQ(document(true, &errors).result, 1);
    ASSERT_NE(errors.savedError(), nullptr);
    EXPECT_EQ(std::string(errors.savedError()->id()).rfind("crypt.", 0), 0U);
}

TEST_F(SettingsFunctions, WriteADocumentAlsoWithoutNetworks) {
    loaded.fail();
    const Document written = document(true);
    EXPECT_EQ(written.result, 1);
    EXPECT_FALSE(written.text.empty());
    EXPECT_EQ(getWifiHostSettingsXML(nullptr, nullptr, true), 0);
}

// The result is about the settings, not the document.
TEST_F(SettingsFunctions, SucceedWithoutADocumentIfThereIsNoDriver) {
    loaded.load(NETWORKS);
    const test::MissingWifiUtil missing;
    for (const bool full : {true, false}) {
        const Document written = document(full);
        EXPECT_EQ(written.result, 1);
        EXPECT_EQ(written.text, "");
    }
}

// The first adapter.

std::string firstAdapter() {
    char before = 'x';
    char* name = &before;
    const int result = getWifiAdapter(nullptr, &name);
    EXPECT_EQ(result, name ? 1 : 0);
    const std::unique_ptr<char[]> owner(name);
    return name ? name : "null";
}

TEST_F(SettingsFunctions, ReturnTheFirstAdapter) {
    loaded.load(NETWORKS);
    EXPECT_EQ(firstAdapter(), "wlan0");
    loaded.adapters = "wl\xe9n1\nwlan0\n";
    loaded.load(NETWORKS);
    EXPECT_EQ(firstAdapter(), "wl\xe9n1");
    EXPECT_THAT(loaded.commands(), IsEmpty());
    EXPECT_EQ(getWifiAdapter(nullptr, nullptr), 0);
}

TEST_F(SettingsFunctions, ReturnNullWithoutAnAdapter) {
    loaded.fail();
    EXPECT_EQ(firstAdapter(), "null");
}

} // namespace
