#include "settings/NetworkIds.h"

#include "model/WifiNetwork.h"
#include "supplicant/WifiUtil.h"

#include "support/StandIn.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

using platwifi::KeyState;
using platwifi::ListedSsid;
using test::Arguments;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

KeyState keptInFile() {
    KeyState state;
    state.read("key_mgmt", "NONE");
    return state;
}

class NetworkIds : public testing::Test {
protected:
    // A network in memory that the supplicant lists next.
    WifiNetwork* load(int id, const std::string& printed, const char* ssid,
                      const KeyState& key = keptInFile()) {
        list(id, printed);
        WifiNetwork* const network = make(id, ssid);
        ids.loaded(*network, key);
        return network;
    }

    WifiNetwork* load(int id, const char* ssid, const KeyState& key = keptInFile()) {
        return load(id, ssid, ssid, key);
    }

    // One that is not in memory.
    void list(int id, const std::string& printed) {
        ListedSsid line{{}, printed};
        if (id <= 255)
            line.id = static_cast<unsigned char>(id);
        ids.listed(line);
    }

    WifiNetwork* add(int id, const char* ssid) {
        WifiNetwork* const network = make(id, ssid);
        ids.added(*network, ssid);
        return network;
    }

    WifiNetwork* make(int id, const char* ssid) {
        networks.push_back(std::make_unique<WifiNetwork>());
        networks.back()->setSsid(ssid);
        networks.back()->setNetworkId(static_cast<unsigned char>(id));
        return networks.back().get();
    }

    // What the supplicant lists from now on.
    void answer(const std::string& lines, int status = 0) {
        standIn.reset();
        standIn.on({"-iwlan0", "list_networks"}).prints("header\n" + lines).exits(status);
    }

    bool confirm() { return ids.confirm(util, "wlan0"); }

    // Whether a save makes the ids stale.
    bool areStaleAfterASave(bool everywhere = true) {
        ids.saved(everywhere);
        return !areFresh();
    }

    // After a save that made them stale.
    bool confirm(const std::string& lines, int status = 0) {
        ids.saved(false);
        answer(lines, status);
        return confirm();
    }

    /// Whether confirming runs no command.
    bool areFresh() {
        answer("");
        return confirm() && standIn.calls().empty();
    }

    // The id of a network, -1 when it may not be used.
    int idOf(const WifiNetwork* network) const {
        return ids.isKnown(*network) ? network->getNetworkId() : -1;
    }

    test::StandIn standIn;
    WifiUtil util;
    std::vector<std::unique_ptr<WifiNetwork>> networks;
    platwifi::NetworkIds ids;
};

// When they are stale.

using StaleNetworkIds = NetworkIds;

// ID-1
TEST_F(StaleNetworkIds, AreThoseThatAreNotCountedFrom0InTheOrderOfTheList) {
    const std::pair<std::vector<int>, bool> rows[] = {
        {{0, 1}, false}, {{0, 2}, true}, {{1}, true}, {{1, 0}, true}};
    for (const auto& [loaded, areStale] : rows) {
        ids = platwifi::NetworkIds();
        for (const int id : loaded)
            load(id, ("network " + std::to_string(id)).c_str());
        EXPECT_EQ(areStaleAfterASave(), areStale) << testing::PrintToString(loaded);
    }
}

TEST_F(StaleNetworkIds, FollowANetworkThatIsNotInMemory) {
    load(0, "home");
    list(1, "home");
    EXPECT_FALSE(areStaleAfterASave()) << "not before it";
    load(2, "work");
    EXPECT_TRUE(areStaleAfterASave());
}

// ID-1
TEST_F(StaleNetworkIds, ComeOfAnAddition) {
    load(0, "home");
    WifiNetwork* const work = add(1, "work");
    ids.written(*work, "key_mgmt", "NONE", true);
    EXPECT_EQ(idOf(work), 1);
    EXPECT_TRUE(areStaleAfterASave());
}

// ID-1
TEST_F(StaleNetworkIds, ComeOfARemoval) {
    load(0, "home");
    const WifiNetwork* const work = load(1, "work");
    ids.removed(*work);
    EXPECT_FALSE(ids.isKnown(*work));
    EXPECT_TRUE(areStaleAfterASave());
}

// ID-1
TEST_F(StaleNetworkIds, ComeOfAChangeBeforeALoad) {
    ids.removed(*load(1, "work"));
    ids.forget();
    load(0, "home");
    EXPECT_TRUE(areStaleAfterASave());
    ids.forget();
    load(0, "home");
    EXPECT_FALSE(areStaleAfterASave()) << "saved by then";
}

// ID-1
TEST_F(StaleNetworkIds, ComeOfANetworkThatTheFileMayNotHold) {
    WifiNetwork* const home = load(0, "home", KeyState());
    load(1, "work");
    EXPECT_TRUE(areStaleAfterASave());
    answer("0\thome\tany\t\n1\twork\tany\t\n");
    EXPECT_TRUE(confirm());
    ids.written(*home, "psk", "12345678", true);
    EXPECT_FALSE(areStaleAfterASave());
    ids.written(*home, "key_mgmt", "BOGUS", false);
    EXPECT_FALSE(areStaleAfterASave()) << "it has a key";
}

// ID-1
TEST_F(StaleNetworkIds, ComeOfAnAdapterThatCouldNotSave) {
    load(0, "home");
    EXPECT_TRUE(areStaleAfterASave(false));
}

TEST_F(StaleNetworkIds, AreFreshAfterALoad) {
    load(1, "home");
    ids.saved(true);
    ids.forget();
    load(0, "home");
    EXPECT_TRUE(areFresh());
}

// ID-5
TEST_F(StaleNetworkIds, ShowInAnAdditionThatGetsOneOfThem) {
    const WifiNetwork* const home = load(0, "home");
    const WifiNetwork* const work = load(1, "work");
    const WifiNetwork* const cafe = add(1, "cafe");
    answer("0\twork\tany\t\n1\tcafe\tany\t\n");
    EXPECT_TRUE(confirm());
    EXPECT_EQ(idOf(home), -1);
    EXPECT_EQ(idOf(work), 0);
    EXPECT_EQ(idOf(cafe), 1);
}

TEST_F(StaleNetworkIds, AreNotAskedForWithoutNetworks) {
    list(0, "home");
    EXPECT_TRUE(confirm("0\thome\tany\t\n"));
    EXPECT_THAT(standIn.calls(), IsEmpty());
}

TEST_F(StaleNetworkIds, AreAskedForOnce) {
    load(0, "home");
    EXPECT_TRUE(confirm("0\thome\tany\t\n"));
    EXPECT_TRUE(confirm());
    EXPECT_THAT(standIn.calls(),
                ElementsAre(Arguments{"/proc/boot/wpa_cli", "-iwlan0", "list_networks"}));
}

TEST_F(StaleNetworkIds, AreConfirmedByAListThatIsThereAlready) {
    const WifiNetwork* const home = load(1, "home");
    ids.confirm({"0\thome\tany\t"});
    EXPECT_EQ(idOf(home), 1) << "it was fresh";
    ids.saved(true);
    ids.confirm({"0\thome\tany\t"});
    EXPECT_EQ(idOf(home), 0);
    EXPECT_TRUE(areFresh());
}

TEST_F(StaleNetworkIds, AreThoseAbove255FromTheBeginning) {
    const WifiNetwork* const home = load(300, "home");
    answer("300\thome\tany\t\n");
    EXPECT_EQ(idOf(home), -1);
    EXPECT_TRUE(confirm());
    EXPECT_EQ(idOf(home), -1);
    answer("0\thome\tany\t\n");
    EXPECT_TRUE(confirm()) << "asked again";
    EXPECT_EQ(idOf(home), 0);
}

// Which line belongs to which network.

TEST_F(NetworkIds, AreThoseOfTheLinesWithTheirSsids) {
    const WifiNetwork* const home = load(10, "home");
    const WifiNetwork* const work = load(11, "work");
    const WifiNetwork* const cafe = add(12, "caf\xc3\xa9");
    ASSERT_TRUE(
        confirm("0\twork\tany\t\n1\tother\tany\t\n2\tcaf\\xc3\\xa9\tany\t\n9\thome\tany\t\n"));
    EXPECT_EQ(idOf(home), 9);
    EXPECT_EQ(idOf(work), 0);
    EXPECT_EQ(idOf(cafe), 2);
}

TEST_F(NetworkIds, ChangeNothingElse) {
    WifiNetwork* const home = load(1, "home");
    home->cleanDirtyFields();
    home->setNetworkStatus(NETWORK_STATUS_CONNECTED);
    ASSERT_TRUE(confirm("3\thome\tany\t[DISABLED]\n"));
    EXPECT_FALSE(home->getNetworkDirty());
    EXPECT_EQ(home->getNetworkStatus(), static_cast<unsigned int>(NETWORK_STATUS_CONNECTED));
}

TEST_F(NetworkIds, AreUnknownForNetworksThatAreNotListed) {
    const WifiNetwork* const home = load(1, "home");
    const WifiNetwork* const work = load(2, "work");
    ASSERT_TRUE(confirm("0\thome\tany\t\n1\t\tany\t\n"));
    EXPECT_EQ(idOf(home), 0);
    EXPECT_EQ(idOf(work), -1);
    EXPECT_EQ(work->getNetworkId(), 2);
    answer("0\thome\tany\t\n4\twork\tany\t\n");
    EXPECT_TRUE(confirm()) << "asked again";
    EXPECT_EQ(idOf(work), 4);
}

TEST_F(NetworkIds, AreUnknownWhenTheSupplicantListsNothing) {
    const WifiNetwork* const home = load(0, "home");
    for (const char* const lines : {"", "FAIL\n", "home\n"}) {
        ASSERT_TRUE(confirm(lines)) << lines;
        EXPECT_EQ(idOf(home), -1) << lines;
    }
}

TEST_F(NetworkIds, StayStaleWhenTheSupplicantDoesNotAnswer) {
    const WifiNetwork* const home = load(1, "home");
    EXPECT_FALSE(confirm("0\thome\tany\t\n", 255));
    EXPECT_FALSE(ids.confirm(util, nullptr));
    EXPECT_FALSE(ids.confirm(util, "fourteen-chars"));
    EXPECT_EQ(home->getNetworkId(), 1);
    answer("0\thome\tany\t\n");
    EXPECT_TRUE(confirm());
    EXPECT_EQ(idOf(home), 0);
}

TEST_F(NetworkIds, AreUnknownForANetworkThatWasNotLoaded) {
    load(0, "home");
    EXPECT_EQ(idOf(make(0, "home")), -1);
}

TEST_F(NetworkIds, AreFoundBehindTheLinesThatLoadingReads) {
    std::string lines;
    for (int i = 0; i < 255; ++i)
        lines += std::to_string(i) + "\tnetwork " + std::to_string(i) + "\tany\t\n";
    const WifiNetwork* const last = add(1, "network 254");
    ASSERT_TRUE(confirm(lines));
    EXPECT_EQ(idOf(last), 254);
}

// ID-4
TEST_F(NetworkIds, AreFoundByTheSsidThatTheSupplicantKnows) {
    WifiNetwork* const edited = load(1, "home");
    edited->setSsid("new home");
    ASSERT_TRUE(confirm("0\thome\tany\t\n1\tnew home\tany\t\n"));
    EXPECT_EQ(idOf(edited), 0);
    ids.written(*edited, "ssid", "new home", false);
    ASSERT_TRUE(confirm("0\tnew home\tany\t\n1\thome\tany\t\n"));
    EXPECT_EQ(idOf(edited), 1) << "the supplicant refused the new one";
    ids.written(*edited, "ssid", "new home", true);
    ASSERT_TRUE(confirm("0\tnew home\tany\t\n1\tnew home\tany\t\n2\thome\tany\t\n"));
    EXPECT_EQ(idOf(edited), 1);
}

// What is sent is not always what is in memory.
TEST_F(NetworkIds, AreFoundByTheSsidThatWasSent) {
    const WifiNetwork* const network = load(1, "home");
    const char* const rows[][2] = {
        {"caf\xc3\xa9", "caf\\xc3\\xa9"},
        {"caf\\xc3\\xa9", "caf\\\\xc3\\\\xa9"},
        {"\"quoted\"", "quoted"},
        {"a\"b\\c", "a\\\"b\\\\c"},
        {"", ""},
    };
    for (const auto& [ssid, printed] : rows) {
        ids.written(*network, "ssid", ssid, true);
        ASSERT_TRUE(confirm(std::string("5\t") + printed + "\tany\t\n"));
        EXPECT_EQ(idOf(network), 5) << ssid;
    }
}

// Both are "a\\b" in memory: one as it was loaded, one as it was added.
TEST_F(NetworkIds, DistinguishTheEscapedFromTheBytes) {
    const WifiNetwork* const loaded = load(1, "a\\\\b");
    const std::string lines = "0\ta\\\\b\tany\t\n1\ta\\\\\\\\b\tany\t\n";
    ASSERT_TRUE(confirm(lines));
    EXPECT_EQ(idOf(loaded), 0);
    const WifiNetwork* const added = add(2, "a\\\\b");
    ASSERT_TRUE(confirm(lines));
    EXPECT_EQ(idOf(loaded), 0);
    EXPECT_EQ(idOf(added), -1) << "one was there already";
}

// In memory, networks without an SSID are all called the same.
TEST_F(NetworkIds, DistinguishNetworksWithoutAnSsidFromThoseThatLookLikeIt) {
    const WifiNetwork* const nameless = load(0, "", "SSID N/A");
    list(1, "my:net");
    list(2, "any");
    list(3, "SSID N/A");
    ASSERT_TRUE(confirm("0\tmy:net\tany\t\n1\tany\tany\t\n2\tSSID N/A\tany\t\n"));
    EXPECT_EQ(idOf(nameless), -1);
    ASSERT_TRUE(confirm("0\tmy:net\tany\t\n1\t\tany\t\n"));
    EXPECT_EQ(idOf(nameless), 1);
}

// ID-4
TEST_F(NetworkIds, AreThoseOfTheSamePositionAmongNetworksWithOneSsid) {
    const WifiNetwork* const first = load(1, "home");
    list(3, "home");
    const WifiNetwork* const other = load(4, "work");
    const WifiNetwork* const renamed = load(5, "cafe");
    ids.written(*renamed, "ssid", "home", true);
    ASSERT_TRUE(confirm("0\thome\tany\t\n1\thome\tany\t\n2\twork\tany\t\n3\thome\tany\t\n"));
    EXPECT_EQ(idOf(first), 0);
    EXPECT_EQ(idOf(other), 2);
    EXPECT_EQ(idOf(renamed), 3);
}

// Any of them may be the one that is gone.
// ID-4
TEST_F(NetworkIds, AreUnknownWhereOneOfSeveralWithTheSsidIsGone) {
    const WifiNetwork* const home = load(0, "home");
    list(1, "home");
    const WifiNetwork* const work = load(2, "work");
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(confirm("0\thome\tany\t\n1\twork\tany\t\n"));
        EXPECT_EQ(idOf(home), -1);
        EXPECT_EQ(idOf(work), 1);
    }
}

TEST_F(NetworkIds, AreUnknownWhereAnotherNetworkGotTheSsid) {
    const WifiNetwork* const home = load(1, "home");
    ASSERT_TRUE(confirm("3\thome\tany\t\n4\thome\tany\t\n"));
    EXPECT_EQ(idOf(home), -1);
}

TEST_F(NetworkIds, AreThoseOfTheLastLineForANetworkThatWasAdded) {
    list(0, "home");
    const WifiNetwork* const added = add(5, "home");
    ASSERT_TRUE(confirm("0\thome\tany\t\n1\thome\tany\t\n"));
    EXPECT_EQ(idOf(added), 1);
}

} // namespace
