// Sets and values that have one word each.

#include "SaveFields.h"

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
using N = WifiNetwork;

namespace {

struct Named {
    unsigned int number;
    const char* word;
};

struct Set {
    const char* flag;
    const char* key;
    bool (WifiNetwork::*set)(unsigned int);
    std::vector<Named> words;
    std::vector<unsigned int> wordless;
};

const Set SETS[] = {
    {"keyManagement",
     "key_mgmt",
     &N::setKeyManagement,
     {{1, "NONE"}, {2, "WPA-PSK"}, {4, "WPA-EAP"}, {8, "IEEE8021X"}, {16, "WPA-NONE"}},
     {6, 3, 31, 32}},
    {"authAlg", "auth_alg", &N::setAuthAlg, {{1, "OPEN"}, {2, "SHARED"}, {3, "LEAP"}}, {4, 5, 8}},
    {"pairwiseCiphers",
     "pairwise",
     &N::setPairwiseCiphers,
     {{4, "CCMP"}, {2, "TKIP"}, {1, "NONE"}},
     {6, 7, 8}},
    {"groupCiphers",
     "group",
     &N::setGroupCiphers,
     {{4, "CCMP"}, {2, "TKIP"}, {16, "WEP40"}, {8, "WEP104"}},
     {6, 30, 1, 24, 32}},
    {"eapModes",
     "eap",
     &N::setEapModes,
     {{1, "TLS"},
      {2, "PEAP"},
      {4, "TTLS"},
      {8, "MD5"},
      {16, "LEAP"},
      {32, "MSCHAPV2"},
      {64, "GTC"},
      {128, "OTP"},
      {1024, "FAST"},
      {256, "PSK"},
      {512, "PAX"}},
     {3, 6, 2047, 2048}},
    {"protocol", "proto", &N::setProtocol, {{1, "WPA"}, {2, "RSN"}}, {3, 4}},
};

// SAVE-5
TEST_F(SaveFields, WriteTheOneWordOfASet) {
    for (const Set& set : SETS) {
        for (const Named& named : set.words) {
            SCOPED_TRACE(std::string(set.key) + " " + named.word);
            const auto edit = [&](WifiNetwork& edited) {
                (edited.*set.set)(named.number);
                EXPECT_THAT(dirty(), ElementsAre(set.flag));
            };
            EXPECT_THAT(saveAfter(edit), ElementsAre(setNetwork(set.key, named.word)));
            EXPECT_THAT(dirty(), IsEmpty());
        }
    }
}

// SAVE-5, SAVE-7
TEST_F(SaveFields, WriteNothingForASetWithoutAWordButClearItsFlag) {
    for (const Set& set : SETS) {
        for (const unsigned int number : set.wordless) {
            SCOPED_TRACE(std::string(set.key) + " " + std::to_string(number));
            const auto edit = [&](WifiNetwork& edited) { (edited.*set.set)(number); };
            EXPECT_THAT(saveAfter(edit), IsEmpty());
            EXPECT_THAT(dirty(), IsEmpty());
        }
    }
}

// SAVE-6
TEST_F(SaveFields, LeaveASetDirtyThatWasEmptied) {
    for (const Set& set : SETS) {
        SCOPED_TRACE(set.key);
        (network.*set.set)(set.words.front().number);
        EXPECT_THAT(saveAfter([&](WifiNetwork& edited) { (edited.*set.set)(0); }), IsEmpty());
        EXPECT_THAT(dirty(), ElementsAre(set.flag));
    }
}

TEST_F(SaveFields, WritesNoSetThatIsClean) {
    for (const Set& set : SETS)
        (network.*set.set)(set.words.front().number);
    EXPECT_THAT(saveAfter([](WifiNetwork&) {}), IsEmpty());
}

} // namespace
