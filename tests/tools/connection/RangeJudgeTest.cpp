// The judgement of a network by the access points in range.

#include "connection/RangeJudge.h"
#include "model/WifiNetwork.h"
#include "model/WifiTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using cli::AccessPointSecurity;
using cli::Cause;
using cli::judgeRange;
using cli::NetworkSecurity;
using testing::HasSubstr;
using testing::Not;

namespace {

NetworkSecurity networkWith(unsigned int keyManagement, unsigned int pmf = PMF_DEFAULT) {
    WifiNetwork network;
    network.setKeyManagement(keyManagement);
    network.setPmf(pmf);
    network.setSsidBroadcasted(true);
    return NetworkSecurity::of(network);
}

AccessPointSecurity accessPoint(const char* flags, bool requiresProtection = false) {
    auto security = AccessPointSecurity::of(flags);
    security.requiresProtection = requiresProtection;
    return security;
}

constexpr bool PROTECTED = true;
constexpr const char* OPEN = "[ESS]";
constexpr const char* WEP = "[WEP][ESS]";
constexpr const char* WPA1 = "[WPA-PSK-TKIP][ESS]";
constexpr const char* WPA2 = "[WPA2-PSK-CCMP][ESS]";
constexpr const char* WPA1_2 = "[WPA-PSK-CCMP+TKIP][WPA2-PSK-CCMP+TKIP][ESS]";
constexpr const char* WPA2_3 = "[WPA2-PSK+SAE-CCMP][SAE-H2E][ESS]";
constexpr const char* WPA3 = "[WPA2-SAE-CCMP][ESS]";
constexpr const char* SHA256 = "[WPA2-PSK-SHA256-CCMP][ESS]";
constexpr const char* ENTERPRISE = "[WPA2-EAP-CCMP-preauth][ESS]";
constexpr const char* SUITE_B = "[WPA2-EAP-SUITE-B-192-GCMP-256][ESS]";
constexpr const char* FAST = "[WPA2-PSK+FT/PSK-CCMP][ESS]";
constexpr const char* OWE = "[WPA2-OWE-CCMP][ESS]";

struct Advertised {
    const char* flags;
    unsigned int protocols;
    unsigned int keyManagement;
    bool isWep;
};

constexpr Advertised ADVERTISED[] = {
    {OPEN, 0, KEY_MGMT_NONE, false},
    {"", 0, KEY_MGMT_NONE, false},
    {WEP, 0, KEY_MGMT_NONE, true},
    {WPA1, PROTOCOL_WPA, KEY_MGMT_WPA_PSK, false},
    {WPA2, PROTOCOL_RSN, KEY_MGMT_WPA_PSK, false},
    {"[RSN-PSK-CCMP]", PROTOCOL_RSN, KEY_MGMT_WPA_PSK, false},
    {WPA1_2, PROTOCOL_WPA | PROTOCOL_RSN, KEY_MGMT_WPA_PSK, false},
    {WPA2_3, PROTOCOL_RSN, KEY_MGMT_WPA_PSK | KEY_MGMT_SAE, false},
    {WPA3, PROTOCOL_RSN, KEY_MGMT_SAE, false},
    {SHA256, PROTOCOL_RSN, KEY_MGMT_WPA_PSK_SHA256, false},
    {"[WPA2-PSK+PSK-SHA256-CCMP]", PROTOCOL_RSN, KEY_MGMT_WPA_PSK | KEY_MGMT_WPA_PSK_SHA256, false},
    {ENTERPRISE, PROTOCOL_RSN, KEY_MGMT_WPA_EAP, false},
    {"[WPA2-EAP+EAP-SHA256-CCMP]", PROTOCOL_RSN, KEY_MGMT_WPA_EAP | KEY_MGMT_WPA_EAP_SHA256, false},
    {SUITE_B, PROTOCOL_RSN, KEY_MGMT_SUITE_B_192, false},
    {FAST, PROTOCOL_RSN, KEY_MGMT_WPA_PSK | KEY_MGMT_FT_PSK, false},
    {OWE, PROTOCOL_RSN, KEY_MGMT_OWE, false},
    {"[WPA2-FILS-SHA256-CCMP]", PROTOCOL_RSN, 0, false},
    {"[", 0, KEY_MGMT_NONE, false},
    {"[WPA2-PSK", PROTOCOL_RSN, KEY_MGMT_WPA_PSK, false},
};

TEST(TheFlagsOfAScan, HaveTheSecurityOfAnAccessPoint) {
    for (const Advertised& row : ADVERTISED) {
        SCOPED_TRACE(row.flags);
        const auto security = AccessPointSecurity::of(row.flags);
        EXPECT_EQ(security.protocols, row.protocols);
        EXPECT_EQ(security.keyManagement, row.keyManagement);
        EXPECT_EQ(security.isWep, row.isWep);
    }
}

struct Elements {
    const char* hex;
    bool isRequired;
};

// SSID "a" first, then RSN with one or two key managements.
constexpr Elements ELEMENTS[] = {
    {"00016130140100000fac040100000fac040100000fac06c000", true},
    {"00016130140100000fac040100000fac040100000fac088000", false},
    {"00016130140100000fac040100000fac040100000fac020000", false},
    {"00016130180100000fac040100000fac040200000fac02000fac08c000", true},
    {"00016130120100000fac040100000fac040100000fac02", false}, // without capabilities
    {"00016130ff0100000fac04ffff", false},                     // cut, with an absurd count
    {"000161", false},
    {"", false},
    {"30", false},
    {"zz", false},
};

TEST(TheElementsOfABeacon, SayWhetherProtectionIsRequired) {
    for (const Elements& row : ELEMENTS)
        EXPECT_EQ(cli::requiresProtection(row.hex), row.isRequired) << row.hex;
}

struct Pair {
    unsigned int keyManagement;
    unsigned int pmf;
    const char* flags;
    bool requiresProtection;
};

constexpr Pair FITTING[] = {
    {KEY_MGMT_WPA_PSK, PMF_DEFAULT, WPA2, !PROTECTED},
    {KEY_MGMT_WPA_PSK, PMF_DEFAULT, WPA1, !PROTECTED},
    {KEY_MGMT_WPA_PSK, PMF_DEFAULT, WPA2_3, !PROTECTED},
    {KEY_MGMT_WPA_PSK, PMF_OPTIONAL, WPA2, PROTECTED},
    {KEY_MGMT_WPA_PSK | KEY_MGMT_SAE, PMF_OPTIONAL, WPA3, PROTECTED},
    {KEY_MGMT_SAE, PMF_REQUIRED, WPA3, PROTECTED},
    {KEY_MGMT_OWE, PMF_REQUIRED, OWE, PROTECTED},
    {KEY_MGMT_WPA_EAP | KEY_MGMT_WPA_PSK, PMF_DEFAULT, ENTERPRISE, !PROTECTED},
    {KEY_MGMT_NONE, PMF_DEFAULT, OPEN, !PROTECTED},
};

TEST(ANetwork, FitsItsAccessPoint) {
    for (const Pair& row : FITTING) {
        const auto found = judgeRange(networkWith(row.keyManagement, row.pmf),
                                      {accessPoint(row.flags, row.requiresProtection)});
        EXPECT_FALSE(found.has_value()) << row.flags << found->found;
    }
}

struct Misfit {
    unsigned int keyManagement;
    unsigned int pmf;
    const char* flags;
    bool requiresProtection;
    Cause cause;
    const char* found; // part of it
};

constexpr Misfit MISFITS[] = {
    // CAUSE-7
    {KEY_MGMT_WPA_PSK, PMF_DEFAULT, OPEN, !PROTECTED, Cause::OTHER_SECURITY,
     "the security open, the network here has WPA-PSK"},
    {KEY_MGMT_WPA_PSK, PMF_DEFAULT, ENTERPRISE, !PROTECTED, Cause::OTHER_SECURITY,
     "the security WPA2-Enterprise, the network here has WPA-PSK"},
    {KEY_MGMT_WPA_PSK, PMF_DEFAULT, WEP, !PROTECTED, Cause::OTHER_SECURITY, "the security WEP"},
    {KEY_MGMT_NONE, PMF_DEFAULT, WPA2, !PROTECTED, Cause::OTHER_SECURITY,
     "WPA2-PSK, the network here has open"},
    {KEY_MGMT_NONE, PMF_DEFAULT, WEP, !PROTECTED, Cause::OTHER_SECURITY, "here has open"},
    {KEY_MGMT_NONE, PMF_DEFAULT, OWE, PROTECTED, Cause::OTHER_SECURITY, "the security OWE"},
    {KEY_MGMT_SAE, PMF_REQUIRED, WPA2, !PROTECTED, Cause::OTHER_SECURITY, "WPA2-PSK"},
    {KEY_MGMT_WPA_EAP | KEY_MGMT_WPA_PSK, PMF_DEFAULT, OPEN, !PROTECTED, Cause::OTHER_SECURITY,
     "here has WPA-PSK WPA-EAP"},
    {KEY_MGMT_WPA_EAP, PMF_REQUIRED, SUITE_B, PROTECTED, Cause::OTHER_SECURITY, "WPA2-Enterprise"},
    // CAUSE-8
    {KEY_MGMT_WPA_PSK, PMF_DEFAULT, WPA3, PROTECTED, Cause::NEEDS_PMF_OR_WPA3,
     "requires WPA3 (WPA3-SAE), the network here has WPA-PSK"},
    {KEY_MGMT_SAE, PMF_DEFAULT, WPA3, PROTECTED, Cause::NEEDS_PMF_OR_WPA3,
     "requires management frame protection"},
    {KEY_MGMT_SAE, PMF_DISABLED, WPA3, PROTECTED, Cause::NEEDS_PMF_OR_WPA3, "frame protection"},
    {KEY_MGMT_OWE, PMF_DEFAULT, OWE, PROTECTED, Cause::NEEDS_PMF_OR_WPA3, "frame protection"},
    {KEY_MGMT_WPA_PSK_SHA256, PMF_DEFAULT, SHA256, PROTECTED, Cause::NEEDS_PMF_OR_WPA3,
     "frame protection"},
};

TEST(ANetwork, DoesNotFitAnotherSecurity) { // CAUSE-7, CAUSE-8
    for (const Misfit& row : MISFITS) {
        const auto found = judgeRange(networkWith(row.keyManagement, row.pmf),
                                      {accessPoint(row.flags, row.requiresProtection)});
        ASSERT_TRUE(found.has_value()) << row.found;
        EXPECT_EQ(found->cause, row.cause) << row.found;
        EXPECT_THAT(found->found, HasSubstr(row.found));
    }
}

TEST(ANetwork, OfOneProtocolDoesNotFitTheOther) { // CAUSE-7
    auto network = networkWith(KEY_MGMT_WPA_PSK);
    network.protocols = PROTOCOL_RSN;
    EXPECT_EQ(judgeRange(network, {accessPoint(WPA1)})->cause, Cause::OTHER_SECURITY);
    EXPECT_FALSE(judgeRange(network, {accessPoint(WPA1_2)}).has_value());
}

TEST(ANetwork, WithAWepKeyFitsWepOnly) {
    WifiNetwork wep;
    wep.setKeyManagement(KEY_MGMT_NONE);
    wep.setWepKey(0, "abcde");
    const auto network = NetworkSecurity::of(wep);
    EXPECT_FALSE(judgeRange(network, {accessPoint(WEP)}).has_value());
    EXPECT_THAT(judgeRange(network, {accessPoint(OPEN)})->found,
                HasSubstr("the security open, the network here has WEP"));
}

TEST(ANetwork, FitsIfOneOfSeveralAccessPointsDoes) {
    const auto network = networkWith(KEY_MGMT_WPA_PSK);
    EXPECT_FALSE(judgeRange(network, {accessPoint(OPEN), accessPoint(WPA2)}).has_value());
    EXPECT_EQ(judgeRange(network, {accessPoint(OPEN), accessPoint(WPA3, PROTECTED)})->cause,
              Cause::NEEDS_PMF_OR_WPA3);
    EXPECT_THAT(
        judgeRange(network, {accessPoint(OPEN), accessPoint(OPEN), accessPoint(WEP)})->found,
        HasSubstr("the security open or WEP,"));
}

TEST(ANetwork, MayBeOutOfRange) { // CAUSE-6
    auto network = networkWith(KEY_MGMT_WPA_PSK);
    EXPECT_EQ(judgeRange(network, {})->cause, Cause::NOT_IN_RANGE);
    EXPECT_EQ(judgeRange(network, {})->step, "") << "the cause's, which names hidden networks";
    network.isHidden = true;
    EXPECT_THAT(judgeRange(network, {})->step, Not(HasSubstr("hidden")));
    EXPECT_NE(judgeRange(network, {})->step, "");
}

} // namespace
