// Adding and removing networks.

#include "SupplicantTest.h"

#include <string>
#include <thread>
#include <vector>

using test::openNetworks;
using test::WLAN;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

using Creation = test::SupplicantTest;
using Removal = test::SupplicantTest;

TEST_F(Creation, AddsAnEnabledNetworkWithThisSsid) {
    supplicant.start();
    EXPECT_EQ(create("home"), 0);
    EXPECT_THAT(supplicant.ask("get_network 0 ssid"), ElementsAre("\"home\""));
    EXPECT_THAT(supplicant.ask("get_network 0 disabled"), ElementsAre("0"));
}

TEST_F(Creation, ReturnsTheIdThatTheSupplicantChose) {
    supplicant.start(openNetworks({"home", "work"}));
    EXPECT_EQ(create("guest"), 2);
    EXPECT_THAT(supplicant.ask("get_network 2 ssid"), ElementsAre("\"guest\""));
}

TEST_F(Creation, LeavesANetworkWithoutSsidIfTheSsidIsRefused) {
    supplicant.start(openNetworks({"home"}));
    unsigned char id = 99;
    EXPECT_FALSE(util().createNetwork(WLAN, std::string(33, 'x').c_str(), &id));
    EXPECT_EQ(id, 1);
    EXPECT_EQ(supplicant.networks().at(1), "1\t\tany\t[DISABLED]");
}

TEST_F(Creation, ByManyThreadsAddsANetworkForEach) {
    supplicant.start();
    constexpr std::size_t COUNT = 4;
    std::vector<unsigned char> ids(COUNT, 99);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < COUNT; ++i)
        threads.emplace_back([&id = ids[i], ssid = "net " + std::to_string(i)] {
            EXPECT_TRUE(util().createNetwork(WLAN, ssid.c_str(), &id));
        });
    for (std::thread& thread : threads)
        thread.join();
    for (std::size_t i = 0; i < COUNT; ++i)
        EXPECT_THAT(supplicant.ask("get_network " + std::to_string(ids[i]) + " ssid"),
                    ElementsAre("\"net " + std::to_string(i) + "\""));
}

struct Ssid {
    const char* name;
    std::string text;
    std::string listed;   // as the list of networks shows it
    std::string readBack; // as its field reads, without quotes
};

const Ssid SSIDS[] = {
    {"OfOneByte", "x", "x", "x"},
    {"Of32Bytes", std::string(32, 'x'), std::string(32, 'x'), std::string(32, 'x')},
    {"OfNoByte", "", "", ""},
    {"WithBlanks", " my home ", " my home ", " my home "},
    {"WithQuotes", "my \"home\"", "my \\\"home\\\"", "my \"home\""},
    {"WithOneQuote", "\"", "\\\"", "\""},
    {"WithBackslash", "my\\home", "my\\\\home", "my\\home"},
    {"WithShellCharacters", "$(reboot); `x` | *?'", "$(reboot); `x` | *?'", "$(reboot); `x` | *?'"},
    {"WithTab", "my\thome", "my\\thome", "6d7909686f6d65"},
    {"WithLineFeed", "my\nhome", "my\\nhome", "6d790a686f6d65"},
    {"WithUtf8", "caf\xc3\xa9", "caf\\xc3\\xa9", "636166c3a9"},
    {"WithFourByteUtf8", "\xf0\x9f\x98\x80", "\\xf0\\x9f\\x98\\x80", "f09f9880"},
    {"ThatIsNotUtf8", "\xff\xfe", "\\xff\\xfe", "fffe"},
};

class CreationWithSsid : public test::SharedSupplicantTest,
                         public testing::WithParamInterface<Ssid> {};

TEST_P(CreationWithSsid, KeepsItAndReadsItBackAsTheSupplicantPrintsIt) {
    supplicant.reload();
    const unsigned char id = create(GetParam().text.c_str());
    const auto listed = ElementsAre(StartsWith("0\t" + GetParam().listed + "\tany\t"));
    EXPECT_THAT(supplicant.networks(), listed);
    EXPECT_THAT(list(&WifiUtil::getNetworkDatabaseSsids), listed);
    char value[128] = "unread";
    EXPECT_TRUE(util().getNetworkValue(WLAN, id, "ssid", value, sizeof(value)));
    EXPECT_EQ(value, GetParam().readBack);
}

INSTANTIATE_TEST_SUITE_P(Supplicant, CreationWithSsid, testing::ValuesIn(SSIDS),
                         [](const auto& ssid) { return ssid.param.name; });

TEST_F(Removal, KeepsTheIdsOfTheOtherNetworks) {
    supplicant.start(openNetworks({"home", "work", "guest"}));
    supplicant.awaitStatus("ssid=home");
    EXPECT_TRUE(util().removeNetwork(WLAN, 1));
    EXPECT_THAT(supplicant.networks(), ElementsAre("0\thome\tany\t[CURRENT]", "2\tguest\tany\t"));
}

TEST_F(Removal, OfTheCurrentNetworkEndsItsConnection) {
    startConnected();
    EXPECT_TRUE(util().removeNetwork(WLAN, 0));
    supplicant.awaitStatus("wpa_state=DISCONNECTED");
    EXPECT_THAT(supplicant.networks(), IsEmpty());
}

TEST_F(Removal, OfAnUnknownNetworkFails) {
    supplicant.start(openNetworks({"home"}));
    EXPECT_FALSE(util().removeNetwork(WLAN, 7));
    EXPECT_EQ(supplicant.networks().size(), 1U);
}

} // namespace
