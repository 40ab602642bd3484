#include "host/Link.h"

#include "TextLines.h"
#include "host/Addresses.h"
#include "host/ConnectedTime.h"
#include "settings/replies/PrintedSsid.h"

#include <arpa/inet.h>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <ifaddrs.h>
#include <map>
#include <netinet/in.h>
#include <set>

using namespace cli;

namespace {

const std::string STATUS = "bssid=02:00:00:00:01:00\n"
                           "freq=5180\n"
                           "ssid=home\n"
                           "id=0\n"
                           "mode=station\n"
                           "pairwise_cipher=CCMP\n"
                           "group_cipher=TKIP\n"
                           "key_mgmt=SAE\n"
                           "pmf=2\n"
                           "wpa_state=COMPLETED\n"
                           "ip_address=192.0.2.7\n"
                           "address=02:00:00:00:00:00\n";
const std::string SIGNAL = "RSSI=-61\n"
                           "LINKSPEED=866\n"
                           "NOISE=-92\n"
                           "FREQUENCY=5180\n"
                           "AVG_RSSI=-60";

// The reply without the line of a key.
std::string without(const std::string& key, const std::string& reply) {
    std::string rest;
    for (const std::string& line : test::linesOf(reply)) {
        if (line.rfind(key + "=", 0) != 0)
            rest += line + "\n";
    }
    return rest;
}

Link linkOf(const std::string& status, const std::string& signal = SIGNAL) {
    const LinkState state = LinkState::of(status, signal);
    EXPECT_TRUE(state.link) << status;
    return state.link.value_or(Link());
}

// Every value as a text, in the order of the members.
std::vector<std::string> valuesOf(const Link& link) {
    const auto text = [](const std::optional<int>& number) {
        return number ? std::to_string(*number) : "";
    };
    return {link.bssid,         text(link.frequency), text(link.signal), text(link.speed),
            link.keyManagement, link.pairwiseCipher,  link.groupCipher,  link.pmf,
            link.ipv4};
}

const std::vector<std::string> ALL = {
    "02:00:00:00:01:00", "5180", "-61", "866", "SAE", "CCMP", "TKIP", "required", "192.0.2.7"};

TEST(ALink, IsReadFromTheReplies) {
    const LinkState state = LinkState::of(STATUS, SIGNAL);
    EXPECT_EQ(state.state, WPA_STATE_COMPLETED);
    EXPECT_EQ(state.ssid, "home");
    EXPECT_EQ(valuesOf(*state.link), ALL);
}

TEST(ALink, LacksWhatIsNotReported) {
    const char* const keys[] = {"bssid",           "freq",         "RSSI", "LINKSPEED", "key_mgmt",
                                "pairwise_cipher", "group_cipher", "pmf",  "ip_address"};
    for (std::size_t i = 0; i < std::size(keys); ++i) {
        std::vector<std::string> wanted = ALL;
        wanted[i] = std::string(keys[i]) == "pmf" ? "disabled" : "";
        EXPECT_EQ(valuesOf(linkOf(without(keys[i], STATUS), without(keys[i], SIGNAL))), wanted)
            << keys[i];
    }
    EXPECT_EQ(LinkState::of(without("ssid", STATUS), SIGNAL).ssid, "");
    EXPECT_EQ(linkOf("wpa_state=COMPLETED", "FAIL").pmf, "");
}

TEST(ALink, HasOnlyNumbersThatADriverReports) {
    struct {
        const char* signal;
        std::optional<int> dbm;
        std::optional<int> speed;
    } const rows[] = {
        {"", {}, {}},
        {"FAIL", {}, {}},
        {"RSSI=0\nLINKSPEED=0\n", {}, {}},
        {"RSSI=-9999\nLINKSPEED=-1\n", {}, {}},
        {"RSSI=-1\nLINKSPEED=1\n", -1, 1},
        {"RSSI=-150\nLINKSPEED=46120\n", -150, 46120},
        {"RSSI=-99999999999999999999\nLINKSPEED=99999999999999999999\n", {}, {}},
        {"RSSI=4294967235\nLINKSPEED=4294967295\n", {}, {}},
        {"RSSI=\nLINKSPEED=\n", {}, {}},
        {"RSSI=-6x\nLINKSPEED= 54\n", {}, {}},
        {"AVG_RSSI=-60\nXLINKSPEED=54\n", {}, {}},
        {"RSSI=-50\nRSSI=-60\n", -50, {}},
    };
    for (const auto& row : rows) {
        const Link link = linkOf(STATUS, row.signal);
        EXPECT_EQ(link.signal, row.dbm) << row.signal;
        EXPECT_EQ(link.speed, row.speed) << row.signal;
    }
    for (const char* const frequency : {"0", "-5", "99999999999", "five", ""})
        EXPECT_FALSE(linkOf("wpa_state=COMPLETED\nfreq=" + std::string(frequency)).frequency);
}

TEST(ALink, HasAWordForManagementFrameProtection) {
    struct {
        const char* value;
        const char* word;
    } const rows[] = {{"1", "optional"}, {"2", "required"}, {"3", ""}, {"0", ""}, {"yes", ""}};
    for (const auto& row : rows) {
        const std::string line = std::string("pmf=") + row.value + "\n";
        EXPECT_EQ(linkOf(line + without("pmf", STATUS)).pmf, row.word) << row.value;
    }
}

TEST(ALink, IsNotMistakenInAnOddSsid) {
    const std::string line = "ssid=ssid=freq=1\\nbssid=x=";
    const LinkState state = LinkState::of(line + "\n" + without("ssid", STATUS), SIGNAL);
    EXPECT_EQ(state.ssid, "ssid=freq=1\nbssid=x=");
    EXPECT_EQ(valuesOf(*state.link), ALL);
}

TEST(ALink, ExistsOnlyWhenTheConnectionStands) {
    struct {
        const char* word;
        WpaState state;
    } const rows[] = {
        {"DISCONNECTED", WPA_STATE_DISCONNECTED},
        {"INACTIVE", WPA_STATE_IDLE},
        {"SCANNING", WPA_STATE_SCANNING},
        {"ASSOCIATING", WPA_STATE_ASSOCIATING},
        {"4WAY_HANDSHAKE", WPA_STATE_4WAY_HANDSHAKE},
        {"GROUP_HANDSHAKE", WPA_STATE_GROUP_HANDSHAKE},
        {"INTERFACE_DISABLED", WPA_STATE_UNKNOWN},
        {"COMPLETED?", WPA_STATE_UNKNOWN},
    };
    for (const auto& row : rows) {
        const std::string line = std::string("wpa_state=") + row.word + "\n";
        const LinkState state = LinkState::of(line + without("wpa_state", STATUS), SIGNAL);
        EXPECT_EQ(state.state, row.state) << row.word;
        EXPECT_FALSE(state.link) << row.word;
    }
    EXPECT_EQ(LinkState::of("", "").state, WPA_STATE_UNKNOWN);
}

/// A connection that was recorded: its heading, and the replies.
struct Recorded {
    std::string heading;
    std::string status;
    std::string signal;
};

std::vector<Recorded> recordedConnections() {
    std::ifstream file(CLIENT_REPLIES);
    std::vector<Recorded> all;
    std::string* reply = nullptr;
    for (std::string line; std::getline(file, line);) {
        if (line.rfind("# Connected: ", 0) == 0)
            all.push_back({line, "", ""});
        else if (line == "$ status")
            reply = &all.back().status;
        else if (line == "$ signal_poll")
            reply = &all.back().signal;
        else if (line.empty())
            reply = nullptr;
        else if (reply)
            *reply += line + "\n";
    }
    return all;
}

TEST(ALink, IsReadFromEveryRecordedReply) {
    const std::map<std::string, std::string> pmf = {
        {"disabled", "-"}, {"optional", "1"}, {"required", "2"}};
    const auto recorded = recordedConnections();
    ASSERT_EQ(recorded.size(), 11u);
    for (const Recorded& one : recorded) {
        const LinkState state = LinkState::of(one.status, one.signal);
        ASSERT_TRUE(state.link) << one.heading;
        const Link& link = *state.link;
        EXPECT_EQ(one.heading, "# Connected: ssid=" + platwifi::printedSsid(state.ssid) +
                                   " bssid=" + link.bssid + " key_mgmt=" + link.keyManagement +
                                   " pmf=" + pmf.at(link.pmf) + " wpa_state=COMPLETED");
        EXPECT_TRUE(link.frequency && link.signal && link.speed) << one.heading;
        EXPECT_EQ(link.pairwiseCipher, link.groupCipher) << one.heading;
        EXPECT_EQ(link.ipv4, "");
    }
}

TEST(TheTimeOfAConnection, IsUnknownWithoutWifi) {
    for (const char* const iface : {"lo", "no-such-wlan", ""}) {
        for (const char* const bssid : {"02:00:00:00:01:00", "", "no address"})
            EXPECT_EQ(connectedSeconds(iface, bssid), std::nullopt) << iface << ' ' << bssid;
    }
}

TEST(AnAddress, IsGlobalIfItReachesBeyondTheLink) {
    struct {
        const char* text;
        bool isGlobal;
    } const rows[] = {{"2001:db8::7", true}, {"fd00::7", true}, {"fe80::7", false},
                      {"::1", false},        {"::", false},     {"ff02::1", false}};
    for (const auto& row : rows) {
        in6_addr address{};
        ASSERT_EQ(inet_pton(AF_INET6, row.text, &address), 1);
        EXPECT_EQ(isGlobal(address), row.isGlobal) << row.text;
    }
}

// As getifaddrs() lists them on this machine.
TEST(AnAddress, IsOneOfTheGlobalOnesOfItsInterface) {
    std::map<std::string, std::set<std::string>> expected;
    ifaddrs* list = nullptr;
    ASSERT_EQ(getifaddrs(&list), 0);
    for (const ifaddrs* entry = list; entry; entry = entry->ifa_next) {
        std::set<std::string>& addresses = expected[entry->ifa_name];
        if (!entry->ifa_addr || entry->ifa_addr->sa_family != AF_INET6)
            continue;
        const auto& address = reinterpret_cast<const sockaddr_in6*>(entry->ifa_addr)->sin6_addr;
        char text[INET6_ADDRSTRLEN];
        if (isGlobal(address))
            addresses.insert(inet_ntop(AF_INET6, &address, text, sizeof text));
    }
    freeifaddrs(list);
    for (auto& [iface, addresses] : expected) {
        if (addresses.empty())
            addresses.insert("");
        EXPECT_EQ(addresses.count(globalIpv6(iface)), 1U) << iface << ' ' << globalIpv6(iface);
    }
}

TEST(AnAddress, IsMissingOnAnInterfaceThatHasNone) {
    EXPECT_EQ(globalIpv6("lo"), "");
    EXPECT_EQ(globalIpv6("no-such-wlan"), "");
}

} // namespace
