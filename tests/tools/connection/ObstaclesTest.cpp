// What this host alone shows to keep a connection from being made.

#include "connection/Obstacles.h"
#include "model/WifiNetwork.h"
#include "values/Cause.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;
using cli::adapterBlock;
using cli::Cause;
using cli::missingFile;
using testing::HasSubstr;

namespace {

struct PathField {
    bool (WifiNetwork::*set)(const char* text);
    const char* property;
};

constexpr PathField PATHS[] = {
    {&WifiNetwork::setCACertificate, "CACertificateFile"},
    {&WifiNetwork::setCACertificateDir, "CACertificateDir"},
    {&WifiNetwork::setClientCertificate, "clientCertificate"},
    {&WifiNetwork::setPrivateKeyFile, "privateKeyFile"},
    {&WifiNetwork::setCACertificate2, "CACertificateFile2"},
    {&WifiNetwork::setCACertificateDir2, "CACertificateDir2"},
    {&WifiNetwork::setClientCertificate2, "clientCertificate2"},
    {&WifiNetwork::setPrivateKeyFile2, "privateKeyFile2"},
};

TEST(AFileOfANetwork, ThatDoesNotExistIsNamed) { // CAUSE-5
    for (const PathField& field : PATHS) {
        WifiNetwork network;
        (network.*field.set)("/no/such/file.pem");
        const auto found = missingFile(network);
        ASSERT_TRUE(found.has_value()) << field.property;
        EXPECT_EQ(found->cause, Cause::CERTIFICATE_FILE);
        EXPECT_EQ(found->found,
                  std::string("/no/such/file.pem (") + field.property + ") does not exist");
        EXPECT_THAT(found->step, HasSubstr(std::string("SSID ") + field.property + "=PATH"));
    }
}

TEST(AFileOfANetwork, ThatMayExistIsNoObstacle) {
    for (const char* const path :
         {"/proc/self/exe", "/tmp", "hash://server/sha256/00", "blob://x", ""}) {
        WifiNetwork network;
        network.setCACertificate(path);
        EXPECT_FALSE(missingFile(network).has_value()) << path;
    }
    EXPECT_FALSE(missingFile(WifiNetwork()).has_value());
}

class AnAdapter : public testing::Test {
protected:
    ~AnAdapter() override { fs::remove_all(INTERFACES); }

    static void write(const std::string& file, const std::string& text) {
        const fs::path path = fs::path(INTERFACES) / file;
        fs::create_directories(path.parent_path());
        std::ofstream(path) << text << '\n';
    }

    static std::string found() {
        const auto block = adapterBlock("wlan0", INTERFACES);
        if (!block)
            return "";
        EXPECT_EQ(block->cause, Cause::ADAPTER_BLOCKED);
        return block->found + "; " + block->step;
    }

    static constexpr const char* INTERFACES = "/tmp/interfaces";
};

TEST_F(AnAdapter, IsNotBlockedByDefault) {
    EXPECT_EQ(found(), "") << "no such adapter";
    write("wlan0/flags", "0x1003");
    EXPECT_EQ(found(), "");
    write("wlan0/phy80211/rfkill3/soft", "0");
    write("wlan0/phy80211/rfkill3/hard", "0");
    EXPECT_EQ(found(), "");
}

TEST_F(AnAdapter, MayBeBlockedBySoftware) { // CAUSE-10
    write("wlan0/flags", "0x1002");
    write("wlan0/phy80211/rfkill3/soft", "1");
    EXPECT_EQ(found(), "wlan0 is blocked by software (rfkill); ");
}

TEST_F(AnAdapter, MayBeBlockedByASwitch) { // CAUSE-10
    write("wlan0/phy80211/rfkill3/soft", "1");
    write("wlan0/phy80211/rfkill3/hard", "1");
    EXPECT_THAT(found(), HasSubstr("wlan0 is blocked by a switch of this device; turn that"));
}

TEST_F(AnAdapter, MayBeDown) { // CAUSE-10
    write("wlan0/flags", "0x1002");
    EXPECT_EQ(found(), "the link of wlan0 is down; switch it on as root: ip link set wlan0 up");
}

TEST_F(AnAdapter, IsNotMixedUpWithAnotherOne) {
    write("wlan1/flags", "0x1002");
    write("wlan1/phy80211/rfkill4/soft", "1");
    EXPECT_EQ(found(), "");
}

} // namespace
