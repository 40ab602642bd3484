#include "settings/NetworkNumbers.h"

#include "model/WifiNetwork.h"
#include "model/WifiNetworkList.h"
#include "supplicant/WifiUtil.h"

#include "support/StandIn.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

using platwifi::UnnumberedNetworks;
using test::Arguments;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr int BEFORE = 99;

class NetworkNumbers : public testing::Test {
protected:
    WifiNetwork* add(const char* ssid) {
        auto network = std::make_unique<WifiNetwork>();
        network->setSsid(ssid);
        network->setNetworkId(BEFORE);
        list.addNetworkToList(network.get());
        return network.release();
    }

    bool confirm(const std::string& lines, int status = 0) {
        standIn.reset();
        standIn.on({"-iwlan0", "list_networks"}).prints("header\n" + lines).exits(status);
        unnumbered.clear();
        return platwifi::confirmNumbers(util, "wlan0", list, known, unnumbered);
    }

    test::StandIn standIn;
    WifiUtil util;
    WifiNetworkList list;
    platwifi::KnownSsids known;
    UnnumberedNetworks unnumbered;
};

TEST_F(NetworkNumbers, AreThoseOfTheLinesWithTheirSsids) {
    const WifiNetwork* const home = add("home");
    const WifiNetwork* const work = add("work");
    const WifiNetwork* const cafe = add("caf\xc3\xa9");
    ASSERT_TRUE(
        confirm("0\twork\tany\t\n1\tother\tany\t\n2\tcaf\\xc3\\xa9\tany\t\n9\thome\tany\t\n"));
    EXPECT_EQ(home->getNetworkId(), 9);
    EXPECT_EQ(work->getNetworkId(), 0);
    EXPECT_EQ(cafe->getNetworkId(), 2);
    EXPECT_THAT(unnumbered, IsEmpty());
    EXPECT_THAT(standIn.calls(),
                ElementsAre(Arguments{"/proc/boot/wpa_cli", "-iwlan0", "list_networks"}));
}

TEST_F(NetworkNumbers, AreThoseOfTheFirstLineOfSeveral) {
    const WifiNetwork* const home = add("home");
    ASSERT_TRUE(confirm("3\thome\tany\t\n4\thome\tany\t\n"));
    EXPECT_EQ(home->getNetworkId(), 3);
}

TEST_F(NetworkNumbers, ChangeNothingElse) {
    WifiNetwork* const home = add("home");
    home->cleanDirtyFields();
    home->setNetworkStatus(NETWORK_STATUS_CONNECTED);
    list.validateDatabase();
    ASSERT_TRUE(confirm("3\thome\tany\t[DISABLED]\n"));
    EXPECT_FALSE(home->getNetworkDirty());
    EXPECT_EQ(home->getNetworkStatus(), static_cast<unsigned int>(NETWORK_STATUS_CONNECTED));
    EXPECT_TRUE(list.isValid());
}

TEST_F(NetworkNumbers, AreUnknownForNetworksThatAreNotListed) {
    const WifiNetwork* const home = add("home");
    const WifiNetwork* const work = add("work");
    const WifiNetwork* const nameless = add(nullptr);
    ASSERT_TRUE(confirm("0\thome\tany\t\n1\t\tany\t\n"));
    EXPECT_THAT(unnumbered, testing::UnorderedElementsAre(work, nameless));
    EXPECT_EQ(home->getNetworkId(), 0);
    EXPECT_EQ(work->getNetworkId(), BEFORE);
    EXPECT_EQ(nameless->getNetworkId(), BEFORE);
}

TEST_F(NetworkNumbers, AreUnknownWhenTheSupplicantListsNothing) {
    const WifiNetwork* const home = add("home");
    for (const char* const lines : {"", "FAIL\n", "home\n"}) {
        ASSERT_TRUE(confirm(lines)) << lines;
        EXPECT_THAT(unnumbered, ElementsAre(home)) << lines;
    }
}

TEST_F(NetworkNumbers, StayWhenTheSupplicantDoesNotAnswer) {
    const WifiNetwork* const home = add("home");
    EXPECT_FALSE(confirm("0\thome\tany\t\n", 255));
    EXPECT_EQ(home->getNetworkId(), BEFORE);
    EXPECT_FALSE(platwifi::confirmNumbers(util, nullptr, list, known, unnumbered));
    EXPECT_FALSE(platwifi::confirmNumbers(util, "fourteen-chars", list, known, unnumbered));
}

TEST_F(NetworkNumbers, AreFoundBehindTheLinesThatLoadingReads) {
    std::string lines;
    for (int i = 0; i < 255; ++i)
        lines += std::to_string(i) + "\tnetwork " + std::to_string(i) + "\tany\t\n";
    const WifiNetwork* const last = add("network 254");
    ASSERT_TRUE(confirm(lines));
    EXPECT_EQ(last->getNetworkId(), 254);
}

TEST_F(NetworkNumbers, AreFoundByTheSsidThatTheSupplicantKnows) {
    WifiNetwork* const renamed = add("home");
    known[renamed] = "home";
    renamed->setSsid("new home");
    const WifiNetwork* const other = add("work");
    ASSERT_TRUE(confirm("0\twork\tany\t\n1\thome\tany\t\n2\tnew home\tany\t\n"));
    EXPECT_EQ(renamed->getNetworkId(), 1);
    EXPECT_EQ(other->getNetworkId(), 0);
    EXPECT_THAT(unnumbered, IsEmpty());
}

TEST_F(NetworkNumbers, AreKnownAfterASaveByTheSsidsThatWereWritten) {
    WifiNetwork* const written = add("home");
    written->cleanDirtyFields();
    WifiNetwork* const waiting = add("work");
    WifiNetwork* const unknown = add("cafe");
    add("gone");
    const platwifi::KnownSsids before{{written, "old home"}, {waiting, "old work"}};
    EXPECT_EQ(platwifi::knownAfterSave(list, before),
              (platwifi::KnownSsids{{written, "home"}, {waiting, "old work"}}))
        << "nothing is known of " << unknown->getSsid();
}

} // namespace
